// SPDX-License-Identifier: MIT

// The data field of 4Eh.

#include "printdata/barcode.h"
#include "send/data_fields.h"

#include <algorithm>

namespace vantrel::send {
namespace {

using commandline::Parsed;
using commandline::WrongUse;

constexpr int kSetA = 0;
constexpr int kSetB = 1;
constexpr int kSetC = 2;

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

// The key with that caption; -1 where there is none.
int KeyOf(const std::vector<std::string>& captions, const std::string& caption) {
  const auto found = std::find(captions.begin(), captions.end(), caption);
  return found == captions.end() ? -1 : static_cast<int>(found - captions.begin());
}

// The key of the character at the start of `rest` in a code set, and how many characters it stands
// for; a length of 0 where the set lacks it.
struct SetKey {
  int key = 0;
  std::size_t length = 0;
};

SetKey KeyInSet(int code_set, std::string_view rest) {
  const auto code = static_cast<unsigned char>(rest[0]);
  switch (code_set) {
    case kSetA:
      if (code < 0x20) return {code + 0x40, 1};
      if (code < 0x60) return {code - 0x20, 1};
      return {};
    case kSetB:
      if (code >= 0x20 && code < 0x80) return {code - 0x20, 1};
      return {};
    case kSetC:
      if (rest.size() < 2 || !IsDigit(rest[0]) || !IsDigit(rest[1])) return {};
      return {10 * (rest[0] - '0') + rest[1] - '0', 2};
    default:
      return {};
  }
}

// The keys of a text in Code 128, code changes included.
std::vector<int> Code128Keys(std::string_view text, int code_set) {
  static constexpr const char* kChangeTo[] = {"CodeA", "CodeB"};
  std::vector<int> keys;
  while (!text.empty()) {
    SetKey next = KeyInSet(code_set, text);
    if (next.length == 0) {
      const int new_set = static_cast<unsigned char>(text[0]) < 0x20 ? kSetA : kSetB;
      keys.push_back(KeyOf(printdata::CodeSetCaptions(code_set), kChangeTo[new_set]));
      code_set = new_set;
      next = KeyInSet(code_set, text);
      if (next.length == 0) throw WrongUse("DATA of a Code 128 has characters 00h to 7Fh alone.");
    }
    keys.push_back(next.key);
    text.remove_prefix(next.length);
  }
  return keys;
}

std::string Joined(const std::vector<std::string>& captions) {
  std::string text;
  for (const std::string& caption : captions)
    text += (text.empty() ? "" : " ") + (caption == "SPC" ? "blank" : caption);
  return text;
}

// The keys of a text in any other type.
std::vector<int> PlainKeys(const std::string& text, int type) {
  const std::vector<std::string> captions = printdata::TypeCaptions(type);
  std::vector<int> keys;
  for (const char character : text) {
    const int key = KeyOf(captions, character == ' ' ? "SPC" : std::string(1, character));
    if (key < 0)
      throw WrongUse("DATA of this barcode has these characters alone: " + Joined(captions) + ".");
    keys.push_back(key);
  }
  return keys;
}

void RefuseUnlessOf(const Parsed& parsed, bool has_it, std::initializer_list<const char*> options,
                    const char* type) {
  for (const char* option : options)
    if (!has_it && parsed.Has(option))
      throw WrongUse(std::string("--") + option + " is for " + type + " alone.");
}

}  // namespace

DataFields Barcode(const Parsed& parsed, const Means&) {
  static const std::vector<std::string> kTypes = {"code128", "code39", "itf", "codabar"};
  const auto type_word = std::find(kTypes.begin(), kTypes.end(), parsed.Value("type"));
  // Each type is followed by itself with the text below.
  const int type =
      2 * static_cast<int>(type_word - kTypes.begin()) + (parsed.Has("text-below") ? 1 : 0);
  const bool is_code128 = printdata::IsCode128(type);
  RefuseUnlessOf(parsed, is_code128, {"set"}, "code128");
  RefuseUnlessOf(parsed, printdata::IsCodabar(type), {"start", "stop"}, "codabar");
  if (parsed.Number("top") > parsed.Number("bottom"))
    throw WrongUse("--bottom is a number from --top to 319, not '" + parsed.Value("bottom") + "'.");

  const std::string& text = parsed.Parameters().front();
  if (text.empty()) throw WrongUse("DATA is empty.");
  const int code_set = parsed.Value("set")[0] - 'A';
  const std::vector<int> keys = is_code128 ? Code128Keys(text, code_set) : PlainKeys(text, type);
  const int most = printdata::BarcodeTypes()[static_cast<std::size_t>(type)].maximum_count;
  if (keys.size() > static_cast<std::size_t>(most))
    throw WrongUse("DATA has " + std::to_string(keys.size()) +
                   (is_code128 ? " symbols, code changes included; " : " characters; ") +
                   "at most " + std::to_string(most) + " fit.");
  printdata::BarcodeSetting setting{.start_coordinate = parsed.Value("top"),
                                    .end_coordinate = parsed.Value("bottom"),
                                    .type = type,
                                    .code_set = code_set,
                                    .start_character = parsed.Value("start"),
                                    .end_character = parsed.Value("stop"),
                                    .data = ""};
  for (const int key : keys) setting.data += printdata::KeyValue(type, key);
  return {HexOfAscii(printdata::ComposeBarcode(setting))};
}

}  // namespace vantrel::send
