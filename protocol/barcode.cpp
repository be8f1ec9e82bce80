// SPDX-License-Identifier: MIT

#include "protocol/barcode.h"

#include "protocol/card_face.h"
#include "protocol/command_readers.h"
#include "protocol/fields.h"
#include "protocol/frame_words.h"

#include <array>

namespace vantrel::protocol {
namespace {

using Type = Barcode::Type;

struct TypeRow {
  std::string_view name;
  std::size_t longest;          // characters, or symbol values
  std::string_view characters;  // what it encodes; Code 128 is checked by its symbol values
};

// By Type.
constexpr std::array<TypeRow, 4> kTypes{{
    {"Code 128", 11, {}},
    {"Code 39", 10, "0123456789-. $/+%"},
    {"ITF", 20, "0123456789"},
    {"CODABAR", 13, "0123456789-.:$/+"},
}};

// FNC1, the last of Code 128's symbol values that may stand in data.
constexpr std::uint8_t kHighestSymbolValue = 102;

bool IsCodeSet(std::string_view field) { return field == "A" || field == "B" || field == "C"; }

// "set,values".
bool ReadCode128(std::string_view rest, std::size_t longest, Barcode& barcode) {
  const auto fields = FieldsOf<2>(rest);
  if (!fields || !IsCodeSet(fields->front())) return false;
  const auto values = HexBytesOf(fields->back(), longest);
  if (!values) return false;
  for (const std::uint8_t value : *values) {
    if (value > kHighestSymbolValue) return false;
    barcode.data += static_cast<char>(value);
  }
  barcode.code_set = fields->front().front();
  return true;
}

bool IsEncoded(std::string_view data, const TypeRow& row) {
  return !data.empty() && data.size() <= row.longest &&
         data.find_first_not_of(row.characters) == std::string_view::npos;
}

// "AB,data".
bool ReadCodabar(std::string_view rest, const TypeRow& row, Barcode& barcode) {
  const auto fields = FieldsOf<2>(rest);
  if (!fields || !IsEncoded(fields->back(), row)) return false;
  const std::string_view ends = fields->front();
  if (ends.size() != 2 || ends.find_first_not_of("ABCD") != std::string_view::npos) return false;
  barcode.data = ends[0] + std::string(fields->back()) + ends[1];
  return true;
}

bool ReadData(std::string_view rest, Barcode& barcode) {
  const TypeRow& row = kTypes.at(static_cast<std::size_t>(barcode.type));
  if (barcode.type == Type::kCode128) return ReadCode128(rest, row.longest, barcode);
  if (barcode.type == Type::kCodabar) return ReadCodabar(rest, row, barcode);
  barcode.data = rest;
  return IsEncoded(rest, row);
}

std::string TextInWords(std::string_view text) {
  return text.empty() ? "no data" : DataInWords(text);
}

Meaning Code128InWords(std::string_view rest) {
  const auto fields = FieldsOf<2>(rest);
  if (!fields || !IsCodeSet(fields->front())) return std::nullopt;
  const std::string words = "set " + std::string(fields->front()) + ", values";
  if (fields->back().empty()) return words + " none";
  const auto values = HexBytesOf(fields->back(), fields->back().size());
  if (!values) return std::nullopt;
  std::string numbers;
  for (const std::uint8_t value : *values) numbers += " " + std::to_string(value);
  return words + numbers;
}

Meaning CodabarInWords(std::string_view rest) {
  const auto fields = FieldsOf<2>(rest);
  if (!fields || fields->front().size() != 2) return std::nullopt;
  return std::string("start ") + fields->front()[0] + ", end " + fields->front()[1] + ", " +
         TextInWords(fields->back());
}

}  // namespace

std::optional<Barcode> ParseBarcode(std::string_view text) {
  constexpr int kHighestType = 7;
  const auto fields = FieldsOf<4>(text);
  if (!fields) return std::nullopt;
  const auto start = NumberOf((*fields)[0], kFaceHeight - 1);
  const auto end = NumberOf((*fields)[1], kFaceHeight - 1);
  const auto type = NumberOf((*fields)[2], kHighestType);
  if (!start || !end || *end < *start || !type) return std::nullopt;
  Barcode barcode;
  barcode.type = static_cast<Type>(*type / 2);
  barcode.subscript = *type % 2 == 1;
  barcode.start = *start;
  barcode.end = *end;
  return ReadData(fields->back(), barcode) ? std::optional(barcode) : std::nullopt;
}

Meaning BarcodeInWords(std::string_view data) {
  const auto fields = FieldsOf<4>(data);
  if (!fields || (*fields)[2].size() != 1 || (*fields)[2] < "0" || (*fields)[2] > "7")
    return std::nullopt;
  const auto digit = static_cast<std::size_t>((*fields)[2].front() - '0');
  const auto type = static_cast<Type>(digit / 2);
  Meaning rest = TextInWords(fields->back());
  if (type == Type::kCode128) rest = Code128InWords(fields->back());
  if (type == Type::kCodabar) rest = CodabarInWords(fields->back());
  if (!rest) return std::nullopt;
  return "Y " + Shown((*fields)[0]) + " to " + Shown((*fields)[1]) + ", " +
         std::string(kTypes.at(digit / 2).name) + (digit % 2 == 1 ? " with subscript, " : ", ") +
         *rest;
}

}  // namespace vantrel::protocol
