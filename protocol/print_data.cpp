// SPDX-License-Identifier: MIT

// What 41h, 42h and 4Ah expand.

#include "protocol/card_face.h"
#include "protocol/command_readers.h"
#include "protocol/fields.h"
#include "protocol/frame_words.h"

#include <span>

namespace vantrel::protocol {
namespace {

constexpr int kHighestImageNumber = 1999;

// Of data whose first three fields they are.
using ArrangementFields = std::span<const std::string_view, 3>;

std::optional<Arrangement> ReadArrangement(ArrangementFields fields) {
  const auto direction = CharacterOf(fields[0]);
  if (!direction || !IsDirection(*direction)) return std::nullopt;
  const bool vertical = IsVertical(*direction);
  const auto x = NumberOf(fields[1], (vertical ? kFaceHeight : kFaceWidth) - 1);
  const auto y = NumberOf(fields[2], (vertical ? kFaceWidth : kFaceHeight) - 1);
  if (!x || !y) return std::nullopt;
  return Arrangement{*direction, *x, *y};
}

// "direction 2, X 0, Y 47".
Meaning ArrangementInWords(ArrangementFields fields) {
  const auto direction = CharacterOf(fields[0]);
  if (!direction || !IsDirection(*direction) || !IsCoordinate(fields[1]) ||
      !IsCoordinate(fields[2]))
    return std::nullopt;
  return "direction " + std::string(fields[0]) + ", X " + Shown(fields[1]) + ", Y " +
         Shown(fields[2]);
}

}  // namespace

std::optional<PrintData> ReadPrintData(std::string_view data) {
  const auto fields = FieldsOf<4>(data);
  if (!fields) return std::nullopt;
  const auto arrangement = ReadArrangement(std::span(*fields).first<3>());
  if (!arrangement) return std::nullopt;
  auto items = ParsePrintText(fields->back(), IsVertical(arrangement->direction));
  if (!items) return std::nullopt;
  return PrintData{*arrangement, std::move(*items)};
}

Meaning PrintDataInWords(std::string_view data) {
  const auto fields = FieldsOf<4>(data);
  if (!fields) return std::nullopt;
  Meaning meaning = ArrangementInWords(std::span(*fields).first<3>());
  if (meaning)
    *meaning += fields->back().empty() ? ", no text" : ", " + PrintTextInWords(fields->back());
  return meaning;
}

std::optional<ImageChoice> ReadImageChoice(std::string_view data) {
  const auto fields = FieldsOf<4>(data);
  if (!fields) return std::nullopt;
  const auto arrangement = ReadArrangement(std::span(*fields).first<3>());
  const auto number = NumberOf(fields->back(), kHighestImageNumber);
  if (!arrangement || !number) return std::nullopt;
  return ImageChoice{*arrangement, *number};
}

Meaning ImageChoiceInWords(std::string_view data) {
  const auto fields = FieldsOf<4>(data);
  if (!fields || !IsCoordinate(fields->back())) return std::nullopt;
  Meaning meaning = ArrangementInWords(std::span(*fields).first<3>());
  if (meaning) *meaning += ", image " + Shown(fields->back());
  return meaning;
}

std::optional<RegisteredImageChoice> ReadRegisteredImageChoice(std::string_view data) {
  const auto fields = FieldsOf<6>(data);
  if (!fields) return std::nullopt;
  const auto arrangement = ReadArrangement(std::span(*fields).first<3>());
  const auto number = HexDigitOf((*fields)[3]);
  const auto first = NumberOf((*fields)[4], kLongestBmpSide - 1);
  const auto last = NumberOf((*fields)[5], kLongestBmpSide - 1);
  if (!arrangement || !number || !first || !last || *last < *first) return std::nullopt;
  return RegisteredImageChoice{*arrangement, *number, *first, *last};
}

Meaning RegisteredImageChoiceInWords(std::string_view data) {
  const auto fields = FieldsOf<6>(data);
  if (!fields) return std::nullopt;
  const auto& [direction, x, y, number, first, last] = *fields;
  if (!IsHex(number) || !IsNumber(first) || !IsNumber(last)) return std::nullopt;
  Meaning meaning = ArrangementInWords(std::span(*fields).first<3>());
  if (meaning)
    *meaning +=
        ", image " + Shown(number) + ", dots " + std::string(first) + " to " + std::string(last);
  return meaning;
}

}  // namespace vantrel::protocol
