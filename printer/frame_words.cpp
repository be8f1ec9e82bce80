#include "printer/frame_words.h"

#include "link/frame.h"
#include "link/status_text.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

namespace vantrel {
namespace {

constexpr std::uint8_t kStx = 0x02;
constexpr std::uint8_t kEtx = 0x03;
// Bytes of data of which the words tell; of more they tell the number.
constexpr std::size_t kMostInWords = 400;

bool IsPrintable(char character) { return character >= 0x20 && character <= 0x7E; }

// The characters that follow an ESC and its letter; 0 for a letter that has no sequence.
std::size_t ArgumentsOf(char letter) {
  constexpr std::string_view kOne = "BbDdFfGgIiJjMmVvWw";
  constexpr std::string_view kTwo = "EeLlSs";
  constexpr std::string_view kThree = "XxYy";
  if (kOne.find(letter) != std::string_view::npos) return 1;
  if (kTwo.find(letter) != std::string_view::npos) return 2;
  return kThree.find(letter) != std::string_view::npos ? 3 : 0;
}

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
  if (bytes.size() == 1) return HexOf(static_cast<std::uint8_t>(bytes[0])) + "h";
  std::string hex = SpacedPairs(HexTextOf(Bytes(bytes.begin(), bytes.end())));
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
    } else if (with_sequences && text[at] == '\x1B' && at + 1 < text.size() &&
               ArgumentsOf(text[at + 1]) > 0) {
      const char letter = text[at + 1];
      const std::string_view arguments = text.substr(at + 2, ArgumentsOf(letter));
      // An argument is a digit of some kind, so an unprintable one shows a sequence cut short.
      const auto* end = std::find_if_not(arguments.begin(), arguments.end(), IsPrintable);
      const auto length = static_cast<std::size_t>(end - arguments.begin());
      std::string sequence = std::string("ESC ") + letter;
      if (length > 0) sequence += " " + std::string(arguments.substr(0, length));
      words.Add(sequence);
      at += 2 + length;
    } else if (text[at] == '\r' || text[at] == '\n' || text[at] == '\x1B') {
      words.Add(Unprintable(text.substr(at++, 1)));
    } else {
      words.Add(Unprintable(
          run([](char c) { return !IsPrintable(c) && c != '\r' && c != '\n' && c != '\x1B'; })));
    }
  }
  std::string told = words.Take();
  if (whole > kMostInWords) told += " ... (" + std::to_string(whole) + " bytes)";
  return told;
}

// "20h: Normal Status" as "20h normal status", "33h: LRC Error" as "33h LRC Error".
std::string StatusInWords(std::uint8_t status) {
  std::string words = HexOf(status) + "h ";
  std::string_view text = StatusText(status);
  if (text.starts_with(HexOf(status) + "h: ")) text.remove_prefix(5);
  if (status == 0x20) {
    for (const char character : text)
      words += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    return words;
  }
  words += text;
  char& first = words[4];
  if (text.size() > 1 && std::islower(static_cast<unsigned char>(text[1])) != 0)
    first = static_cast<char>(std::tolower(static_cast<unsigned char>(first)));
  return words;
}

std::string ReplyInWords(std::string_view content) {
  std::string words = "reply " + HexOf(static_cast<std::uint8_t>(content[0])) + "h: ";
  if (content.size() == 1) return words + "no status";
  words += StatusInWords(static_cast<std::uint8_t>(content[1]));
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
  const auto etx = std::find(bytes.begin(), bytes.end(), kEtx);
  const std::string content(bytes.begin() + 1, etx);
  // The block check is the one byte after ETX.
  if (bytes.end() - etx < 2) {
    std::string words = "cut short after " + Counted(bytes.size());
    if (!content.empty()) words += ": " + ContentInWords(direction, content);
    return words;
  }
  std::uint8_t check = 0;
  for (auto byte = bytes.begin() + 1; byte <= etx; ++byte) check ^= *byte;
  const std::uint8_t found = *(etx + 1);
  if (found == check) return ContentInWords(direction, content);
  return "bad block check " + HexOf(found) + "h instead of " + HexOf(check) +
         "h: " + ContentInWords(direction, content);
}

}  // namespace

std::string DataInWords(std::string_view data) { return TextInWords(data, false); }

std::string PrintTextInWords(std::string_view text) { return TextInWords(text, true); }

std::string MeaningInWords(Direction direction, std::span<const std::uint8_t> bytes) {
  if (bytes.empty()) return {};
  if (bytes[0] == kStx) return FrameInWords(direction, bytes);
  if (direction == Direction::kFromPrinter && bytes.size() == 1) {
    if (bytes[0] == 0x06) return "06h acknowledge";
    if (bytes[0] == 0x15) return "15h resend";
    if (bytes[0] == 0x10) return "10h reject";
  }
  return "noise, " + Counted(bytes.size());
}

}  // namespace vantrel
