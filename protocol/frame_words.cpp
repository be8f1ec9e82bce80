// SPDX-License-Identifier: MIT

#include "protocol/frame_words.h"

#include "link/frame.h"
#include "protocol/frame.h"
#include "protocol/print_text.h"
#include "protocol/status.h"

#include <algorithm>
#include <cstddef>

namespace vantrel::protocol {
namespace {

// Bytes of data of which the words tell; of more they tell the number.
constexpr std::size_t kMostInWords = 400;

bool IsPrintable(char character) { return character >= 0x20 && character <= 0x7E; }

class Words {
 public:
  void Add(std::string_view part) {
    if (!text_.empty()) text_ += ", ";
    text_ += part;
  }
  std::string Take() { return std::move(text_); }

 private:
  std::string text_;
};

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + '"';
}

// "CR LF", "ESC", "00h" for one byte, "bytes 93 FA" for several.
std::string Unprintable(std::string_view bytes) {
  if (bytes == "\r\n") return "CR LF";
  if (bytes == "\r") return "CR";
  if (bytes == "\n") return "LF";
  if (bytes == "\x1B") return "ESC";
  if (bytes.size() == 1) return link::HexOf(static_cast<std::uint8_t>(bytes[0])) + "h";
  std::string hex = link::SpacedPairs(link::HexTextOf(link::Bytes(bytes.begin(), bytes.end())));
  hex.pop_back();
  return "bytes " + hex;
}

std::string TextInWords(std::string_view text, bool with_sequences) {
  const std::size_t whole = text.size();
  text = text.substr(0, kMostInWords);
  Words words;
  std::size_t at = 0;
  const auto run = [&](auto belongs) {
    std::size_t end = at;
    while (end < text.size() && belongs(text[end])) ++end;
    const std::string_view part = text.substr(at, end - at);
    at = end;
    return part;
  };
  while (at < text.size()) {
    if (IsPrintable(text[at])) {
      words.Add(Quoted(run(IsPrintable)));
    } else if (text.substr(at, 2) == "\r\n") {
      words.Add("CR LF");
      at += 2;
    } else if (with_sequences && text[at] == kEscape && at + 1 < text.size() &&
               EscapeDigits(text[at + 1]) > 0) {
      const char letter = text[at + 1];
      const std::string_view arguments = text.substr(at + 2, EscapeDigits(letter));
      // An argument is a digit of some kind, so an unprintable one shows a sequence cut short.
      const auto* end = std::find_if_not(arguments.begin(), arguments.end(), IsPrintable);
      const auto length = static_cast<std::size_t>(end - arguments.begin());
      std::string sequence = std::string("ESC ") + letter;
      if (length > 0) sequence += " " + std::string(arguments.substr(0, length));
      words.Add(sequence);
      at += 2 + length;
    } else if (text[at] == '\r' || text[at] == '\n' || text[at] == kEscape) {
      words.Add(Unprintable(text.substr(at++, 1)));
    } else {
      words.Add(Unprintable(
          run([](char c) { return !IsPrintable(c) && c != '\r' && c != '\n' && c != kEscape; })));
    }
  }
  std::string told = words.Take();
  if (whole > kMostInWords) told += " ... (" + std::to_string(whole) + " bytes)";
  return told;
}

std::string ReplyInWords(std::string_view content) {
  std::string words = "reply " + link::HexOf(static_cast<std::uint8_t>(content[0])) + "h: ";
  if (content.size() == 1) return words + "no status";
  const auto status = static_cast<std::uint8_t>(content[1]);
  words += link::HexOf(status) + "h " + std::string(StatusMeaning(status));
  if (content.size() > 2) words += ", " + DataInWords(content.substr(2));
  return words;
}

std::string ContentInWords(Direction direction, std::string_view content) {
  if (content.empty()) return "empty frame";
  if (direction == Direction::kFromPrinter) return ReplyInWords(content);
  return CommandInWords(static_cast<std::uint8_t>(content[0]), content.substr(1));
}

std::string Counted(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

std::string FrameInWords(Direction direction, std::span<const std::uint8_t> bytes) {
  const FrameParts parts = PartsOf(bytes);
  const std::string content(parts.content.begin(), parts.content.end());
  if (!parts.check) {
    std::string words = "cut short after " + Counted(bytes.size());
    if (!content.empty()) words += ": " + ContentInWords(direction, content);
    return words;
  }
  if (parts.CheckIsGood()) return ContentInWords(direction, content);
  return "bad block check " + link::HexOf(*parts.check) + "h instead of " +
         link::HexOf(BlockCheckOf(parts.content)) + "h: " + ContentInWords(direction, content);
}

std::string_view ControlInWords(std::uint8_t control) {
  switch (control) {
    case kAcknowledge:
      return "06h acknowledge";
    case kResend:
      return "15h resend";
    default:
      return "10h reject";
  }
}

}  // namespace

std::string DataInWords(std::string_view data) { return TextInWords(data, false); }

std::string PrintTextInWords(std::string_view text) { return TextInWords(text, true); }

std::string MeaningInWords(Direction direction, std::span<const std::uint8_t> bytes) {
  if (bytes.empty()) return {};
  switch (KindOf(direction, bytes)) {
    case GroupKind::kFrame:
      return FrameInWords(direction, bytes);
    case GroupKind::kControl:
      return std::string(ControlInWords(bytes.front()));
    default:
      return "noise, " + Counted(bytes.size());
  }
}

}  // namespace vantrel::protocol
