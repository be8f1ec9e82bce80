// The 48 commands in words: one table of names and of how the data of each is read.

#include "link/frame.h"
#include "printer/frame_words.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {
namespace {

using Meaning = std::optional<std::string>;
using Reader = Meaning (*)(std::string_view data);

bool IsNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool IsHex(std::string_view text) {
  return text.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

// The fields between commas, at most `most`: the last one keeps the commas that are left.
std::vector<std::string_view> Fields(std::string_view data, std::size_t most) {
  std::vector<std::string_view> fields;
  while (fields.size() + 1 < most) {
    const std::size_t comma = data.find(',');
    if (comma == std::string_view::npos) break;
    fields.push_back(data.substr(0, comma));
    data.remove_prefix(comma + 1);
  }
  fields.push_back(data);
  return fields;
}

// A field as it stands; a field without a character would leave nothing to see.
std::string Shown(std::string_view field) { return field.empty() ? "(none)" : std::string(field); }

bool IsCoordinate(std::string_view field) { return field.empty() || IsNumber(field); }

Meaning Nothing(std::string_view data) {
  return data.empty() ? Meaning(std::string()) : std::nullopt;
}

Meaning AnyText(std::string_view data) { return data.empty() ? "no data" : DataInWords(data); }

// The digit of 31h and 32h is a mask: 1, 2 and 4 for the three tracks.
Meaning TrackChoice(std::string_view data) {
  constexpr std::array<std::string_view, 7> kTracksOf{
      "track 1",        "track 2",        "tracks 1 and 2",   "track 3",
      "tracks 1 and 3", "tracks 2 and 3", "tracks 1, 2 and 3"};
  if (data.size() != 1 || data[0] < '1' || data[0] > '7') return std::nullopt;
  return std::string(kTracksOf.at(static_cast<std::size_t>(data[0] - '1')));
}

// "direction 2, X 0, Y 47" of the first three fields.
Meaning Arrangement(const std::vector<std::string_view>& fields) {
  if (fields.size() < 3 || fields[0].size() != 1 || fields[0] < "0" || fields[0] > "3" ||
      !IsCoordinate(fields[1]) || !IsCoordinate(fields[2]))
    return std::nullopt;
  return "direction " + std::string(fields[0]) + ", X " + Shown(fields[1]) + ", Y " +
         Shown(fields[2]);
}

Meaning PrintData(std::string_view data) {
  const auto fields = Fields(data, 4);
  Meaning meaning = fields.size() == 4 ? Arrangement(fields) : std::nullopt;
  if (meaning) *meaning += fields[3].empty() ? ", no text" : ", " + PrintTextInWords(fields[3]);
  return meaning;
}

Meaning ImageExpansion(std::string_view data) {
  const auto fields = Fields(data, 5);
  Meaning meaning =
      fields.size() == 4 && IsCoordinate(fields[3]) ? Arrangement(fields) : std::nullopt;
  if (meaning) *meaning += ", image " + Shown(fields[3]);
  return meaning;
}

Meaning RegisteredImageExpansion(std::string_view data) {
  const auto fields = Fields(data, 7);
  if (fields.size() != 6 || !IsHex(fields[3]) || !IsNumber(fields[4]) || !IsNumber(fields[5]))
    return std::nullopt;
  Meaning meaning = Arrangement(fields);
  if (meaning)
    *meaning += ", image " + Shown(fields[3]) + ", dots " + std::string(fields[4]) + " to " +
                std::string(fields[5]);
  return meaning;
}

// What `count` hex digits spell; only whole bytes can be read.
Meaning HexBytes(std::string_view digits, std::string_view of_what) {
  if (!IsHex(digits) || digits.size() % 2 != 0) return std::nullopt;
  return std::to_string(digits.size() / 2) + " bytes of " + std::string(of_what);
}

Meaning ImageLine(std::string_view data) {
  const auto fields = Fields(data, 4);
  if (fields.size() != 3 || !IsCoordinate(fields[0]) || !IsCoordinate(fields[1]))
    return std::nullopt;
  const Meaning dots = HexBytes(fields[2], "dots");
  if (!dots) return std::nullopt;
  return "X " + Shown(fields[0]) + ", Y " + Shown(fields[1]) + ", " + *dots;
}

Meaning ImageBlock(std::string_view data) {
  const auto fields = Fields(data, 5);
  if (fields.size() != 4 || !IsCoordinate(fields[0]) || !IsCoordinate(fields[1]) ||
      !IsNumber(fields[2]))
    return std::nullopt;
  const Meaning dots = HexBytes(fields[3], "dots");
  if (!dots) return std::nullopt;
  return "X " + Shown(fields[0]) + ", Y " + Shown(fields[1]) + ", " + std::string(fields[2]) +
         " bytes a line, " + *dots;
}

// "0,3,0100...": size, register and pattern.
Meaning Font(std::string_view data) {
  const auto fields = Fields(data, 4);
  if (fields.size() != 3 || (fields[0] != "0" && fields[0] != "1") || fields[1].size() != 1 ||
      !IsHex(fields[1]))
    return std::nullopt;
  const Meaning dots = HexBytes(fields[2], "dots");
  if (!dots) return std::nullopt;
  return std::string(fields[0] == "0" ? "24" : "16") + " dot, number " + std::string(fields[1]) +
         ", " + *dots;
}

Meaning BmpBlock(std::string_view data) {
  const auto fields = Fields(data, 3);
  if (fields.size() != 2 || fields[0].size() != 1) return std::nullopt;
  const Meaning bytes = HexBytes(fields[1], "a BMP file");
  if (!bytes) return std::nullopt;
  if (fields[0] == "+") return "next block, " + *bytes;
  if (!IsHex(fields[0])) return std::nullopt;
  return "image " + std::string(fields[0]) + ", " + *bytes;
}

// What stands after the type of a Code 128: code set and symbol values, two hex digits each.
Meaning Code128(std::string_view rest) {
  const auto fields = Fields(rest, 3);
  if (fields.size() != 2 || fields[0].size() != 1 || fields[0] < "A" || fields[0] > "C" ||
      !IsHex(fields[1]) || fields[1].size() % 2 != 0)
    return std::nullopt;
  std::string words = "set " + std::string(fields[0]) + ", values";
  for (std::size_t i = 0; i < fields[1].size(); i += 2)
    words += " " + std::to_string(HexPair(fields[1], i));
  return fields[1].empty() ? words + " none" : words;
}

Meaning Codabar(std::string_view rest) {
  const auto fields = Fields(rest, 2);
  if (fields.size() != 2 || fields[0].size() != 2) return std::nullopt;
  return std::string("start ") + fields[0][0] + ", end " + fields[0][1] + ", " +
         (fields[1].empty() ? "no data" : DataInWords(fields[1]));
}

Meaning Barcode(std::string_view data) {
  constexpr std::array<std::string_view, 4> kTypes{"Code 128", "Code 39", "ITF", "CODABAR"};
  const auto fields = Fields(data, 4);
  if (fields.size() != 4 || fields[2].size() != 1 || fields[2] < "0" || fields[2] > "7")
    return std::nullopt;
  const auto type = static_cast<std::size_t>(fields[2][0] - '0');
  Meaning rest;
  if (type < 2)
    rest = Code128(fields[3]);
  else if (type < 6)
    rest = fields[3].empty() ? "no data" : DataInWords(fields[3]);
  else
    rest = Codabar(fields[3]);
  if (!rest) return std::nullopt;
  return "Y " + Shown(fields[0]) + " to " + Shown(fields[1]) + ", " +
         std::string(kTypes.at(type / 2)) + (type % 2 == 1 ? " with subscript, " : ", ") + *rest;
}

Meaning DischargeMethod(std::string_view data) {
  if (data == "0") return "then hold the card at the front";
  if (data == "1") return "then discharge the card";
  if (data == "2") return "then discharge the card to the back";
  return std::nullopt;
}

Meaning Discharge(std::string_view data) {
  if (data == "0") return "stop at the front, target card";
  if (data == "1") return "completely, no target card";
  if (data == "2") return "to the back";
  return std::nullopt;
}

Meaning Operation(char digit, std::string_view repeated) {
  switch (digit) {
    case ' ':
      return "as it is";
    case '0':
      return "off";
    case '1':
      return "on";
    case '2':
      return std::string(repeated);
    case '3':
      return "1 cycle";
    case '4':
      return "3 cycles";
    default:
      return std::nullopt;
  }
}

Meaning Indicators(std::string_view data) {
  if (data.size() != 3 || data[1] < '1' || data[1] > '3') return std::nullopt;
  constexpr std::array<std::string_view, 3> kColours{"green", "red", "orange"};
  const Meaning buzzer = Operation(data[0], "buzzing");
  const Meaning led = Operation(data[2], "flashing");
  if (!buzzer || !led) return std::nullopt;
  return "buzzer " + *buzzer + ", LED " + *led + ", " +
         std::string(kColours.at(static_cast<std::size_t>(data[1] - '1')));
}

Meaning EnableOrDisable(std::string_view data) {
  if (data == "0") return "disable";
  if (data == "1") return "enable";
  return std::nullopt;
}

struct Row {
  std::uint8_t code;
  std::string_view name;
  Reader read;
};

constexpr Row kRows[] = {
    {0x21, "first track read", Nothing},
    {0x22, "second track read", Nothing},
    {0x23, "third track read", Nothing},
    {0x25, "first track read of the card inside", Nothing},
    {0x26, "second track read of the card inside", Nothing},
    {0x27, "third track read of the card inside", Nothing},
    {0x29, "first track buffer read", Nothing},
    {0x2A, "second track buffer read", Nothing},
    {0x2B, "third track buffer read", Nothing},
    {0x31, "magnetic stripe write", TrackChoice},
    {0x32, "magnetic stripe write on the card inside", TrackChoice},
    {0x35, "first track data set, reverse 7-bit", AnyText},
    {0x36, "second track data set, reverse 7-bit", AnyText},
    {0x37, "third track data set, reverse 7-bit", AnyText},
    {0x38, "first track data set, 7-bit", AnyText},
    {0x39, "second track data set, 7-bit", AnyText},
    {0x3A, "third track data set, 7-bit", AnyText},
    {0x3B, "first track data set", AnyText},
    {0x3C, "second track data set", AnyText},
    {0x3D, "third track data set", AnyText},
    {0x40, "print expansion buffer clear", Nothing},
    {0x41, "print data", PrintData},
    {0x42, "internal image expand", ImageExpansion},
    {0x43, "external image expand, line", ImageLine},
    {0x44, "double byte external character register", Font},
    {0x45, "single byte external character register", Font},
    {0x46, "erase and print", DischargeMethod},
    {0x47, "print", DischargeMethod},
    {0x48, "erase", DischargeMethod},
    {0x49, "buffer clear", Nothing},
    {0x4A, "internal image 2 expand", RegisteredImageExpansion},
    {0x4B, "BMP file register to internal image 2", BmpBlock},
    {0x4D, "external image expand, block", ImageBlock},
    {0x4E, "barcode", Barcode},
    {0x50, "card discharge", Discharge},
    {0x51, "card rear side idle", Nothing},
    {0x52, "cleaning", Nothing},
    {0x53, "card front side idle", Nothing},
    {0x54, "card insertion wait cancel", Nothing},
    {0x55, "card removal wait cancel", Nothing},
    {0x58, "ROM version request", Nothing},
    {0x59, "status request", Nothing},
    {0x5A, "LED and buzzer", Indicators},
    {0x5B, "cleaning button", EnableOrDisable},
    {0x5F, "reset", Nothing},
    {0x91, "various setting", AnyText},
    {0x95, "card transport count request", Nothing},
    {0x96, "print count request", Nothing},
};

}  // namespace

std::string CommandInWords(std::uint8_t code, std::string_view data) {
  for (const Row& row : kRows) {
    if (row.code != code) continue;
    std::string words = HexOf(code) + "h " + std::string(row.name);
    const Meaning meaning = row.read(data);
    if (meaning && !meaning->empty()) words += ": " + *meaning;
    if (!meaning) words += data.empty() ? ": no data" : ": cannot be read: " + DataInWords(data);
    return words;
  }
  std::string words = HexOf(code) + "h unknown command";
  if (!data.empty()) words += ": " + DataInWords(data);
  return words;
}

}  // namespace vantrel
