// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::printer {

// Something that goes wrong with commands on purpose, so that a console can be seen to cope.
struct Fault {
  enum class Kind {
    // The work is not done, and no card is waited for: the answer, when the work's time is over, is
    // status `value` without data.
    kStatus,
    // These leave the command undone. Nothing answers; or, in place of 06h and reply, 10h or the
    // control character `value` does; or the device goes.
    kSilence,
    kReject,
    kUnknownControl,
    kVanish,
    // 15h answers the frame `value` times, then the command is served.
    kResend,
    // The work is done, and nothing answers.
    kMute,
    // The work is done, and its answer suffers: the reply comes `value` milliseconds late, or that
    // long after a console has given it up, with a wrong block check (`value` is a BadCheck), with
    // another code than the command's (and a good block check), or without its last two bytes.
    kDelay,
    kLate,
    kBadCheck,
    kWrongEcho,
    kTruncate,
    // Of all that answers, 06h too, byte number `value` is missing; the first is 1.
    kDrop,
    // `bytes` go in front of all that answers, or follow the answer.
    kNoise,
    kExtra,
    // Each byte of what answers goes alone, `value` milliseconds after the one before.
    kSplit,
    // What answers, 06h too, is kept back until something else is sent, and goes together with it.
    kJoin,
    // In so many of a hundred cases one of `choices`, drawn by a generator that begins with `value`
    // and therefore always draws the same.
    kRandom,
  };
  // A wrong block check: each bit of the good one is turned; 00h (FFh where that is good); or the
  // one of other bytes: STX is taken in, ETX is left out.
  enum BadCheck : unsigned { kInverted, kZero, kOthers };

  Kind kind = Kind::kSilence;
  unsigned value = 0;
  link::Bytes bytes;
  // How many times it strikes; until it is taken away where there is no number.
  std::optional<unsigned> strikes = 1;

  // Which commands count: those of this code, or every frame with a good block check.
  std::optional<std::uint8_t> code;
  // The first of them that it strikes, counted from 1, and every how many-th from there on.
  unsigned after = 1;
  unsigned every = 1;

  unsigned percent = 100;
  std::vector<Fault> choices;

  friend bool operator==(const Fault&, const Fault&) = default;
};

// What follows a fault's word in its text.
enum class FaultValue {
  kNone,
  kNumber,
  kOptionalNumber,
  kHexByte,
  kHexBytes,
  kBadCheck,
  kRandom,
};

struct FaultRow {
  Fault::Kind kind;
  std::string_view word;
  FaultValue value;
  // The smallest and greatest number, or number of bytes.
  unsigned least;
  unsigned most;
  // A value to begin with in a list, as the fault's text has it; empty where there is none.
  std::string_view example;
  std::string_view in_words;
};

// Every kind of fault, in the order in which a list shows them.
std::span<const FaultRow> FaultRows();

// A fault's text is its kind, its value, and then, in any order: "on CODE" (two hex digits, "h" may
// follow), "after N", "every N", and how often: "next", "for N" or "until cleared". "after 3" is
// the third of the commands that count; "every 3" alone is the third, the sixth and so on. How
// often is once where it is not told, but until cleared with "every" and for "random".
//
// "status 38", "delay 2000 for 3", "noise FF00 until cleared", "bad-bcc zero on 21h every 2",
// "random 7 20 silence,status 22,truncate". Numbers are decimal, bytes are pairs of hex digits of
// either case. Throws std::invalid_argument, in words, for any other text.
Fault ParseFault(std::string_view text);
// The text that ParseFault reads as this fault.
std::string TextOf(const Fault& fault);
// The kind and its value alone: "status 38".
std::string KindTextOf(const Fault& fault);
// The same and, in brackets, what it does to the command that it strikes: "status 38 (status 38h
// answers in place of the work)". Not for kRandom: of that one, one of its choices strikes.
std::string StruckInWords(const Fault& fault);

}  // namespace vantrel::printer
