#include "printer/fault.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace vantrel {
namespace {

using Kind = Fault::Kind;

constexpr FaultRow kRows[] = {
    {Kind::kStatus, "status", FaultValue::kHexByte, 0, 255, "7F", "The answer is another status"},
    {Kind::kSilence, "silence", FaultValue::kNone, 0, 0, "", "Nothing answers"},
    {Kind::kDelay, "delay", FaultValue::kNumber, 1, 3600000, "2000",
     "The reply comes late (milliseconds)"},
    {Kind::kBadCheck, "bad-bcc", FaultValue::kNone, 0, 0, "", "The reply has a wrong block check"},
    {Kind::kWrongEcho, "wrong-echo", FaultValue::kNone, 0, 0, "",
     "The reply has another command code"},
    {Kind::kTruncate, "truncate", FaultValue::kNone, 0, 0, "",
     "The reply lacks its last two bytes"},
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
};

constexpr unsigned kMostCommands = 1000000;

[[noreturn]] void Refuse(const std::string& reason) { throw std::invalid_argument(reason); }

const FaultRow& RowOf(Kind kind) {
  return *std::find_if(std::begin(kRows), std::end(kRows),
                       [kind](const FaultRow& row) { return row.kind == kind; });
}

unsigned NumberOf(const std::string& what, const std::string& text, unsigned least, unsigned most) {
  unsigned number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || number < least || number > most) {
    Refuse("'" + what + "' needs a number from " + std::to_string(least) + " to " +
           std::to_string(most) + ", not '" + text + "'.");
  }
  return number;
}

Bytes BytesOfText(const FaultRow& row, const std::string& text) {
  const bool hex = std::all_of(text.begin(), text.end(),
                               [](unsigned char digit) { return std::isxdigit(digit) != 0; });
  const std::size_t most = row.value == FaultValue::kHexByte ? 1 : row.most;
  if (!hex || text.empty() || text.size() % 2 != 0 || text.size() / 2 > most) {
    Refuse("'" + std::string(row.word) + "' needs " +
           (most == 1 ? "two hex digits" : "one to 256 pairs of hex digits") + ", not '" + text +
           "'.");
  }
  return BytesOf(text);
}

void SetValue(Fault& fault, const FaultRow& row, const std::string& text) {
  if (row.value == FaultValue::kNumber) {
    fault.value = NumberOf(std::string(row.word), text, row.least, row.most);
    return;
  }
  const Bytes bytes = BytesOfText(row, text);
  if (row.value == FaultValue::kHexBytes) {
    fault.noise = bytes;
    return;
  }
  fault.value = bytes.front();
  if (row.kind == Kind::kStatus && (fault.value == 0x02 || fault.value == 0x03))
    Refuse("02h and 03h begin and end a frame and can be no status.");
  if (row.kind == Kind::kUnknownControl &&
      (fault.value == 0x06 || fault.value == 0x10 || fault.value == 0x15))
    Refuse("06h, 10h and 15h are known control characters.");
}

// How often, from the words after the value.
std::optional<unsigned> CommandsOf(const std::vector<std::string>& words) {
  const bool two = words.size() == 2;
  if (words.empty() || (words.size() == 1 && words[0] == "next")) return 1;
  if (two && words[0] == "until" && words[1] == "cleared") return std::nullopt;
  if (two && words[0] == "for") return NumberOf("for", words[1], 1, kMostCommands);
  std::string rest;
  for (const std::string& word : words) rest += (rest.empty() ? "" : " ") + word;
  Refuse("'next', 'for' with a number or 'until cleared' may follow, not '" + rest + "'.");
}

}  // namespace

std::span<const FaultRow> FaultRows() { return kRows; }

Fault ParseFault(std::string_view text) {
  std::istringstream stream{std::string(text)};
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  if (words.empty()) Refuse("A fault begins with its name.");
  const auto row = std::find_if(std::begin(kRows), std::end(kRows), [&words](const FaultRow& each) {
    return each.word == words.front();
  });
  if (row == std::end(kRows)) Refuse("There is no fault '" + words.front() + "'.");
  Fault fault;
  fault.kind = row->kind;
  words.erase(words.begin());
  if (row->value != FaultValue::kNone) {
    SetValue(fault, *row, words.empty() ? std::string() : words.front());
    words.erase(words.begin());
  }
  fault.commands = CommandsOf(words);
  return fault;
}

std::string TextOf(const Fault& fault) {
  const FaultRow& row = RowOf(fault.kind);
  std::string text(row.word);
  if (row.value == FaultValue::kNumber) text += " " + std::to_string(fault.value);
  if (row.value == FaultValue::kHexByte)
    text += " " + HexOf(static_cast<std::uint8_t>(fault.value));
  if (row.value == FaultValue::kHexBytes) text += " " + HexTextOf(fault.noise);
  if (!fault.commands) return text + " until cleared";
  if (*fault.commands == 1) return text + " next";
  return text + " for " + std::to_string(*fault.commands);
}

}  // namespace vantrel
