// SPDX-License-Identifier: MIT

#include "printer/model/fault.h"

#include "printer/model/quoted.h"
#include "protocol/control.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace vantrel::printer {
namespace {

using Kind = Fault::Kind;

constexpr unsigned kMostCommands = 1000000;
constexpr std::array<std::string_view, 3> kBadChecks{"inverted", "zero", "others"};
constexpr std::array<std::string_view, 6> kClauses{"on", "after", "every", "next", "for", "until"};

constexpr FaultRow kRows[] = {
    {Kind::kStatus, "status", FaultValue::kHexByte, 0, 255, "7F", "The answer is another status"},
    {Kind::kSilence, "silence", FaultValue::kNone, 0, 0, "", "Nothing answers"},
    {Kind::kMute, "mute", FaultValue::kNone, 0, 0, "", "The work is done, but nothing answers"},
    {Kind::kDelay, "delay", FaultValue::kNumber, 1, 3600000, "2000",
     "The reply comes late (milliseconds)"},
    {Kind::kLate, "late", FaultValue::kOptionalNumber, 1, 3600000, "1000",
     "The reply comes when the console has given it up (milliseconds after)"},
    {Kind::kBadCheck, "bad-bcc", FaultValue::kBadCheck, 0, 2, "",
     "The reply has a wrong block check"},
    {Kind::kWrongEcho, "wrong-echo", FaultValue::kNone, 0, 0, "",
     "The reply has another command code"},
    {Kind::kTruncate, "truncate", FaultValue::kNone, 0, 0, "",
     "The reply lacks its last two bytes"},
    {Kind::kDrop, "drop", FaultValue::kNumber, 1, 1000, "2",
     "A byte of the answer is missing (which one)"},
    {Kind::kExtra, "extra", FaultValue::kHexBytes, 1, 256, "FF00",
     "Noise follows the answer (bytes)"},
    {Kind::kResend, "resend", FaultValue::kNumber, 1, 1000, "2",
     "15h asks for the frame again (times)"},
    {Kind::kReject, "reject", FaultValue::kNone, 0, 0, "", "10h rejects the command"},
    {Kind::kUnknownControl, "unknown-control", FaultValue::kHexByte, 0, 255, "55",
     "An unknown control character answers"},
    {Kind::kNoise, "noise", FaultValue::kHexBytes, 1, 256, "FF00",
     "Noise comes before the answer (bytes)"},
    {Kind::kSplit, "split", FaultValue::kNumber, 1, 1000, "5",
     "The answer comes byte by byte (milliseconds between)"},
    {Kind::kJoin, "join", FaultValue::kNone, 0, 0, "", "The answer comes together with the next"},
    {Kind::kVanish, "vanish", FaultValue::kNone, 0, 0, "", "The device vanishes"},
    {Kind::kRandom, "random", FaultValue::kRandom, 0, std::numeric_limits<unsigned>::max(),
     "1 20 silence,bad-bcc,truncate", "Some of these, at random (seed, percent, faults)"},
};

// What a person has written, for an error.
std::string InQuotes(std::string_view text) { return Quoted(text, '\''); }

[[noreturn]] void Refuse(const std::string& reason) { throw std::invalid_argument(reason); }

const FaultRow& RowOf(Kind kind) {
  return *std::find_if(std::begin(kRows), std::end(kRows),
                       [kind](const FaultRow& row) { return row.kind == kind; });
}

bool IsHex(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char digit) {
    return std::isxdigit(digit) != 0;
  });
}

unsigned NumberOf(std::string_view what, const std::string& text, unsigned least, unsigned most) {
  unsigned number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || number < least || number > most) {
    Refuse("'" + std::string(what) + "' needs a number from " + std::to_string(least) + " to " +
           std::to_string(most) + ", not " + InQuotes(text) + '.');
  }
  return number;
}

// The words of a fault's text, read one by one; an empty one past the end.
class Words {
 public:
  explicit Words(std::string_view text) : stream_(std::string(text)) { stream_ >> word_; }

  bool IsAtEnd() const { return word_.empty(); }
  const std::string& Peek() const { return word_; }
  std::string Take() {
    std::string word = std::move(word_);
    word_.clear();
    stream_ >> word_;
    return word;
  }
  bool IsAtClause() const {
    return std::find(kClauses.begin(), kClauses.end(), word_) != kClauses.end();
  }

 private:
  std::istringstream stream_;
  std::string word_;
};

link::Bytes BytesOfText(const FaultRow& row, const std::string& text) {
  const std::size_t most = row.value == FaultValue::kHexByte ? 1 : row.most;
  if (!IsHex(text) || text.size() % 2 != 0 || text.size() / 2 > most) {
    Refuse("'" + std::string(row.word) + "' needs " +
           (most == 1 ? "two hex digits" : "one to 256 pairs of hex digits") + ", not " +
           InQuotes(text) + '.');
  }
  return link::BytesOf(text);
}

void SetByte(Fault& fault, const FaultRow& row, const std::string& text) {
  fault.value = BytesOfText(row, text).front();
  if (row.kind == Kind::kStatus && (fault.value == protocol::kStx || fault.value == protocol::kEtx))
    Refuse("02h and 03h begin and end a frame and can be no status.");
  if (row.kind == Kind::kUnknownControl &&
      protocol::IsAnswer(static_cast<std::uint8_t>(fault.value)))
    Refuse("06h, 10h and 15h are known control characters.");
}

Fault ParseKind(Words& words, bool among_others);

// Faults with a comma between two of them, up to what may follow.
std::vector<Fault> ParseChoices(Words& words) {
  std::string text;
  while (!words.IsAtEnd() && !words.IsAtClause()) text += words.Take() + " ";
  if (text.empty())
    Refuse("'random' needs faults after its two numbers, as in 'silence,truncate'.");
  std::vector<Fault> choices;
  std::istringstream parts(text);
  for (std::string part; std::getline(parts, part, ',');) {
    Words choice(part);
    choices.push_back(ParseKind(choice, true));
    if (!choice.IsAtEnd())
      Refuse("A comma stands between two faults of 'random', not " + InQuotes(choice.Peek()) + '.');
  }
  return choices;
}

void SetValue(Fault& fault, const FaultRow& row, Words& words) {
  switch (row.value) {
    case FaultValue::kNone:
      return;
    case FaultValue::kOptionalNumber:
      fault.value = NumberOf(row.word, std::string(row.example), row.least, row.most);
      if (words.IsAtEnd() || words.IsAtClause()) return;
      [[fallthrough]];
    case FaultValue::kNumber:
      fault.value = NumberOf(row.word, words.Take(), row.least, row.most);
      return;
    case FaultValue::kHexByte:
      return SetByte(fault, row, words.Take());
    case FaultValue::kHexBytes:
      fault.bytes = BytesOfText(row, words.Take());
      return;
    case FaultValue::kBadCheck: {
      const auto* const check = std::find(kBadChecks.begin(), kBadChecks.end(), words.Peek());
      if (check == kBadChecks.end()) return;
      fault.value = static_cast<unsigned>(check - kBadChecks.begin());
      words.Take();
      return;
    }
    case FaultValue::kRandom:
      fault.value = NumberOf("random", words.Take(), row.least, row.most);
      fault.percent = NumberOf("random", words.Take(), 1, 100);
      fault.choices = ParseChoices(words);
      return;
  }
}

// The kind and its value. One among others that has no value gets that of the list.
Fault ParseKind(Words& words, bool among_others) {
  if (words.IsAtEnd()) Refuse("A fault begins with its name.");
  const std::string name = words.Take();
  const auto* const row = std::find_if(std::begin(kRows), std::end(kRows),
                                       [&name](const FaultRow& each) { return each.word == name; });
  if (row == std::end(kRows)) Refuse("There is no fault " + InQuotes(name) + '.');
  if (among_others && row->kind == Kind::kRandom)
    Refuse("'random' can be none of the faults of 'random'.");
  Fault fault;
  fault.kind = row->kind;
  if (among_others && words.IsAtEnd()) {
    Words example(row->example);
    SetValue(fault, *row, example);
  } else {
    SetValue(fault, *row, words);
  }
  return fault;
}

std::uint8_t CodeOf(std::string text) {
  const std::string word = text;
  if (text.size() == 3 && (text.back() == 'h' || text.back() == 'H')) text.pop_back();
  if (text.size() != 2 || !IsHex(text))
    Refuse("'on' needs a command code of two hex digits, not " + InQuotes(word) + '.');
  return link::BytesOf(text).front();
}

std::string Byte(unsigned value) { return link::HexOf(static_cast<std::uint8_t>(value)) + "h"; }

std::string Noise(const Fault& fault) { return "the noise " + link::HexTextOf(fault.bytes); }

std::string Milliseconds(const Fault& fault) { return std::to_string(fault.value) + " ms"; }

// What is wrong with the block check.
std::string BadCheckInWords(unsigned check) {
  switch (check) {
    case Fault::kZero:
      return "the reply goes with the block check 00h, FFh where 00h is good";
    case Fault::kOthers:
      return "the reply goes with the block check of other bytes: with STX, without ETX";
    default:
      return "the reply goes with each bit of its block check turned";
  }
}

// What a fault does to the command that it strikes.
std::string DeedInWords(const Fault& fault) {
  switch (fault.kind) {
    case Kind::kStatus:
      return "status " + Byte(fault.value) + " answers in place of the work";
    case Kind::kSilence:
      return "the command is left undone and unanswered";
    case Kind::kMute:
      return "the work is done and not answered";
    case Kind::kDelay:
      return "the reply is kept back for " + Milliseconds(fault);
    case Kind::kLate:
      return "the reply is kept back until " + Milliseconds(fault) +
             " after the console has given it up";
    case Kind::kBadCheck:
      return BadCheckInWords(fault.value);
    case Kind::kWrongEcho:
      return "the reply goes with the highest bit of its code turned";
    case Kind::kTruncate:
      return "the reply goes without its last two bytes";
    case Kind::kDrop:
      return "the answer goes without its byte " + std::to_string(fault.value);
    case Kind::kExtra:
      return Noise(fault) + " follows the answer";
    case Kind::kResend:
      return "15h asks for the frame again";
    case Kind::kReject:
      return "10h answers and the command is left undone";
    case Kind::kUnknownControl:
      return Byte(fault.value) + " alone answers and the command is left undone";
    case Kind::kNoise:
      return Noise(fault) + " goes before the answer";
    case Kind::kSplit:
      return "the answer goes byte by byte, " + Milliseconds(fault) + " apart";
    case Kind::kJoin:
      return "the answer is kept back for the next one";
    case Kind::kVanish:
      return "the device goes and the command is left undone";
    case Kind::kRandom:
      break;
  }
  return "something is done at random";
}

// Which commands and how often, from the words after the value.
class Clauses {
 public:
  explicit Clauses(Fault& fault) : fault_(fault) {}

  void Parse(Words& words) {
    while (!words.IsAtEnd()) ParseOne(words);
    if (every_ && !after_) fault_.after = fault_.every;
    if (!often_ && (every_ || fault_.kind == Kind::kRandom)) fault_.strikes.reset();
  }

 private:
  void ParseOne(Words& words) {
    const std::string word = words.Take();
    if (word == "on") {
      Once(on_, word);
      fault_.code = CodeOf(words.Take());
    } else if (word == "after") {
      Once(after_, word);
      fault_.after = NumberOf(word, words.Take(), 1, kMostCommands);
    } else if (word == "every") {
      Once(every_, word);
      fault_.every = NumberOf(word, words.Take(), 1, kMostCommands);
    } else if (word == "for") {
      Once(often_, word);
      fault_.strikes = NumberOf(word, words.Take(), 1, kMostCommands);
    } else if (word == "next") {
      Once(often_, word);
      fault_.strikes = 1;
    } else if (word == "until" && words.Peek() == "cleared") {
      Once(often_, word);
      words.Take();
      fault_.strikes.reset();
    } else {
      Refuse(
          "'on', 'after' and 'every' may follow, and 'next', 'for' with a number or 'until "
          "cleared', not " +
          InQuotes(word + (words.IsAtEnd() ? "" : " " + words.Peek())) + '.');
    }
  }
  static void Once(bool& told, const std::string& word) {
    if (std::exchange(told, true)) Refuse("'" + word + "' tells again what was told before.");
  }

  Fault& fault_;
  bool on_ = false;
  bool after_ = false;
  bool every_ = false;
  bool often_ = false;
};

}  // namespace

std::span<const FaultRow> FaultRows() { return kRows; }

Fault ParseFault(std::string_view text) {
  Words words(text);
  Fault fault = ParseKind(words, false);
  Clauses(fault).Parse(words);
  return fault;
}

std::string KindTextOf(const Fault& fault) {
  const FaultRow& row = RowOf(fault.kind);
  std::string text(row.word);
  switch (row.value) {
    case FaultValue::kNone:
      break;
    case FaultValue::kNumber:
    case FaultValue::kOptionalNumber:
      text += " " + std::to_string(fault.value);
      break;
    case FaultValue::kHexByte:
      text += " " + link::HexOf(static_cast<std::uint8_t>(fault.value));
      break;
    case FaultValue::kHexBytes:
      text += " " + link::HexTextOf(fault.bytes);
      break;
    case FaultValue::kBadCheck:
      if (fault.value != Fault::kInverted) text.append(" ").append(kBadChecks.at(fault.value));
      break;
    case FaultValue::kRandom:
      text += " " + std::to_string(fault.value) + " " + std::to_string(fault.percent);
      for (std::size_t i = 0; i < fault.choices.size(); ++i)
        text += (i == 0 ? " " : ",") + KindTextOf(fault.choices[i]);
      break;
  }
  return text;
}

std::string StruckInWords(const Fault& fault) {
  return KindTextOf(fault) + " (" + DeedInWords(fault) + ")";
}

std::string TextOf(const Fault& fault) {
  std::string text = KindTextOf(fault);
  if (fault.code) text += " on " + link::HexOf(*fault.code);
  if (fault.after != fault.every) text += " after " + std::to_string(fault.after);
  if (fault.every != 1) text += " every " + std::to_string(fault.every);
  if (!fault.strikes) return text + " until cleared";
  if (*fault.strikes == 1) return text + " next";
  return text + " for " + std::to_string(*fault.strikes);
}

}  // namespace vantrel::printer
