// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace vantrel::console {

// A date or a time: as the system writes it (UTF-8), and in digits with ASCII signs alone
// ("2026-11-20", "21:05:03").
struct TimeText {
  std::string local;
  std::string numeric;
};

// Tells the date in the system's short format and the time in its long format, as they are when
// asked.
struct SystemTime {
  std::function<TimeText()> short_date;
  std::function<TimeText()> long_time;
};

// A range of character codes written as "20h - 5Eh": two hex digits, "h - ", two hex digits, "h".
struct CharacterRange {
  unsigned lowest;
  unsigned highest;

  static CharacterRange Parse(std::string_view range_text);

  // Whether every character of UTF-8 text has a code within the range and is neither 02h nor 03h,
  // which would end or begin a frame. Characters beyond 7Eh are in no range.
  bool Takes(std::string_view text) const;
};

// The range of a track data command, "35" to "3D", as CharacterRange::Parse takes it.
std::string_view TrackDataRange(std::string_view code);

// The date or time as a track's sample data can carry it: the system's writing where its characters
// pass the range (in capitals where the range ends before the small letters, with plain blanks for
// other blanks) and it is at most 21 characters long, so that a sample stays within its track; else
// the numeric writing.
std::string SampleTime(const TimeText& time, const CharacterRange& range);

}  // namespace vantrel::console
