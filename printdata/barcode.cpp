// SPDX-License-Identifier: MIT

#include "printdata/barcode.h"

#include <algorithm>
#include <stdexcept>

namespace vantrel::printdata {
namespace {

// A key press of a type: the digits 0 to 9, then these.
constexpr std::string_view kCode39Signs = "-. $/+%";
constexpr std::string_view kCodabarSigns = "-.:$/+";

constexpr std::array<std::string_view, 32> kControlCharacters = {
    "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS",  "HT",  "LF",
    "VT",  "FF",  "CR",  "SO",  "SI",  "DLE", "DC1", "DC2", "DC3", "DC4", "NAK",
    "SYN", "ETB", "CAN", "EM",  "SUB", "ESC", "FS",  "GS",  "RS",  "US"};

// The values 96 to 102 of sets A and B, and 100 to 102 of set C.
constexpr std::string_view kFunctionsOfA[] = {"FNC3",  "FNC2", "Shift", "CodeC",
                                              "CodeB", "FNC4", "FNC1"};
constexpr std::string_view kFunctionsOfB[] = {"FNC3", "FNC2",  "Shift", "CodeC",
                                              "FNC4", "CodeA", "FNC1"};
constexpr std::string_view kFunctionsOfC[] = {"CodeB", "CodeA", "FNC1"};

std::vector<BarcodeType> MakeTypes() {
  const BarcodeType pairs[] = {
      {"Code 128", 11,
       "Press the keys of the code set; a code change inside the data is a key (CodeA, CodeB, "
       "CodeC, Shift)",
       "Max 11 characters."},
      {"Code 39 (3 of 9)", 10, "Press 0 -  9, －, ．, <Space> , ＄, ／, ＋, ％",
       "Max 10 characters.   ＊(the start and stop code) is automatically applied. "},
      {"ITF (Interleaved 2 of 5)", 20, "Press '0' - ' 9'", "Max 20 characters"},
      {"CODABAR (NW-7)", 13, "Press 0 -  9, －, ．, ：, ＄, ／, ＋", "Max 13 characters"},
  };
  std::vector<BarcodeType> types;
  for (const BarcodeType& plain : pairs) {
    types.push_back(plain);
    types.push_back(plain);
    types.back().caption += " with Subscript";
  }
  return types;
}

std::string_view Signs(int type) {
  switch (type / 2) {
    case 1:
      return kCode39Signs;
    case 3:
      return kCodabarSigns;
    default:
      return "";
  }
}

std::string CharacterCaption(char character) {
  if (character == ' ') return "SPC";
  if (character == '&') return "&&";
  return {character};
}

}  // namespace

std::span<const BarcodeType> BarcodeTypes() {
  static const std::vector<BarcodeType> kTypes = MakeTypes();
  return kTypes;
}

std::vector<std::string> CodeSetCaptions(int code_set) {
  std::vector<std::string> captions;
  const auto add = [&captions](std::span<const std::string_view> names) {
    captions.insert(captions.end(), names.begin(), names.end());
  };
  const auto add_characters = [&captions](char first, char last) {
    for (char character = first; character <= last; ++character)
      captions.push_back(CharacterCaption(character));
  };
  switch (code_set) {
    case 0:
      add_characters(' ', '_');
      add(kControlCharacters);
      add(kFunctionsOfA);
      break;
    case 1:
      add_characters(' ', '~');
      captions.emplace_back("DEL");
      add(kFunctionsOfB);
      break;
    default:
      for (int value = 0; value <= 99; ++value)
        captions.push_back((value < 10 ? "0" : "") + std::to_string(value));
      add(kFunctionsOfC);
      break;
  }
  return captions;
}

std::vector<std::string> TypeCaptions(int type) {
  std::vector<std::string> captions;
  for (char digit = '0'; digit <= '9'; ++digit) captions.push_back({digit});
  for (const char sign : Signs(type)) captions.push_back(CharacterCaption(sign));
  return captions;
}

std::string KeyValue(int type, int key) {
  const int key_count =
      IsCode128(type) ? kBarcodeKeyCount : 10 + static_cast<int>(Signs(type).size());
  if (key < 0 || key >= key_count) throw std::out_of_range("the barcode type has no such key");
  if (IsCode128(type)) {
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    return {kHexDigits[static_cast<std::size_t>(key / 16)],
            kHexDigits[static_cast<std::size_t>(key % 16)]};
  }
  if (key <= 9) return std::to_string(key);
  return {Signs(type)[static_cast<std::size_t>(key - 10)]};
}

std::string ComposeBarcode(const BarcodeSetting& setting) {
  std::string result = setting.start_coordinate + "," + setting.end_coordinate + "," +
                       std::to_string(setting.type) + ",";
  if (IsCode128(setting.type)) {
    result += "ABC"[setting.code_set];
    result += ',';
  }
  if (IsCodabar(setting.type)) result += setting.start_character + setting.end_character + ",";
  return result + setting.data;
}

BarcodePad::BarcodePad() : maximum_count_(BarcodeTypes().front().maximum_count) {
  SelectCodeSet(0);
}

void BarcodePad::SelectType(int type) {
  type_ = type;
  data_.clear();
  entered_count_ = 0;
  is_next_enabled_ = false;
  if (IsCode128(type)) {
    // Set A's captions, whichever code set is selected; the selected one's letter is still sent.
    // That is meant.
    SelectCodeSet(0);
  } else {
    captions_ = TypeCaptions(type);
  }
  const BarcodeType& chosen = BarcodeTypes()[static_cast<std::size_t>(type)];
  maximum_count_ = chosen.maximum_count;
  panels_ = {chosen.panel1, chosen.panel2};
}

void BarcodePad::SelectCodeSet(int code_set) {
  data_.clear();
  panels_[0].clear();
  entered_count_ = 0;
  is_pad_enabled_ = true;
  captions_ = CodeSetCaptions(code_set);
}

void BarcodePad::PressKey(int key) {
  data_ += KeyValue(type_, key);
  is_next_enabled_ = true;
  ++entered_count_;
  if (entered_count_ == maximum_count_) {
    is_pad_enabled_ = false;
    panels_[0] = "Data is full!!";
  }
}

void BarcodePad::Clear() {
  is_next_enabled_ = false;
  data_.clear();
  entered_count_ = 0;
  is_pad_enabled_ = true;
  panels_[0].clear();
}

}  // namespace vantrel::printdata
