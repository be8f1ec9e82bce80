#pragma once

#include "link/frame.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vantrel {

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
    // The work is done, and its answer suffers: the reply comes `value` milliseconds late, with a
    // block check of which every bit is wrong, with another code than the command's (and a good
    // block check), or without its last two bytes.
    kDelay,
    kBadCheck,
    kWrongEcho,
    kTruncate,
    // `noise` goes in front of all that answers.
    kNoise,
    // Each byte of what answers goes alone, `value` milliseconds after the one before.
    kSplit,
    // What answers, 06h too, is kept back until something else is sent, and goes together with it.
    kJoin,
  };

  Kind kind = Kind::kSilence;
  unsigned value = 0;
  Bytes noise;
  // How many commands it happens to; until it is taken away where there is no number.
  std::optional<unsigned> commands = 1;

  friend bool operator==(const Fault&, const Fault&) = default;
};

// What follows a fault's word in its text.
enum class FaultValue { kNone, kNumber, kHexByte, kHexBytes };

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

// A fault's text is its word, its value and how often: "status 38", "delay 2000 for 3", "noise FF00
// until cleared"; nothing or "next" is once. Numbers are decimal, bytes are pairs of hex digits of
// either case. Throws std::invalid_argument, in words, for any other text.
Fault ParseFault(std::string_view text);
// The text that ParseFault reads as this fault.
std::string TextOf(const Fault& fault);

}  // namespace vantrel
