// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::printdata {

// The keys of the barcode pad; a key's index is its Code 128 symbol value.
inline constexpr int kBarcodeKeyCount = 103;
// The types that 4Eh knows: four kinds of bars, each without and with its data in characters below.
inline constexpr int kBarcodeTypeCount = 8;
// The code sets of Code 128: A, B and C.
inline constexpr int kCodeSetCount = 3;

// A barcode type of 4Eh. Types come in pairs, the second "with Subscript"; both members share keys
// and limits.
struct BarcodeType {
  std::string caption;  // its name, as the form shows it
  int maximum_count;    // of key presses
  std::string panel1;   // the first hint for whoever types its data
  std::string panel2;   // the second hint
};

// The types in the order of their index, which is what is sent.
std::span<const BarcodeType> BarcodeTypes();

// Whether the data of a type, 0 to 7, are the symbol values of Code 128.
inline bool IsCode128(int type) { return type <= 1; }
// Whether a type, 0 to 7, is CODABAR, which has a start and an end character.
inline bool IsCodabar(int type) { return type >= 6; }

// The captions of all keys in Code 128 set A, B or C (`code_set` 0, 1 or 2): the symbols of the
// values 0 to 102. An ampersand is doubled, as a button's caption needs it.
std::vector<std::string> CodeSetCaptions(int code_set);

// The captions of the keys that `type`, 2 to 7, uses, key 0 first; every further key is hidden. Not
// for Code 128, whose captions are those of a code set.
std::vector<std::string> TypeCaptions(int type);

// What a press of `key` adds to the data of a `type`, 0 to 7: two upper-case hexadecimal digits for
// Code 128, one character for the others. Throws std::out_of_range when the type has no such key.
std::string KeyValue(int type, int key);

// What a barcode of 4Eh is to be; the texts are taken as typed.
struct BarcodeSetting {
  std::string start_coordinate;  // the first line of dots of the bars, "0" to "319"
  std::string end_coordinate;    // the last one
  int type = 0;                  // 0 to 7
  int code_set = 0;              // 0 to 2, sent for Code 128 alone
  std::string start_character;   // "A" to "D", sent for CODABAR alone
  std::string end_character;     // "A" to "D", sent for CODABAR alone
  std::string data;              // what KeyValue gives, key by key
};

// The data field of 4Eh: "0,47,0,B,2122". Nothing is judged; protocol::ParseBarcode tells whether a
// printer takes it.
std::string ComposeBarcode(const BarcodeSetting& setting);

// The key pad and what its keys have entered, as the form of 4Eh is to show them.
class BarcodePad {
 public:
  // As the form loads: Code 128, set A, nothing entered.
  BarcodePad();

  // The type's option was clicked, whether it was selected already or not. Leaves a full, disabled
  // pad disabled, except for Code 128.
  void SelectType(int type);
  // The code set's option was clicked.
  void SelectCodeSet(int code_set);
  // Adds the key's value; the press that reaches the maximum disables the pad. Throws
  // std::out_of_range when the type has no such key.
  void PressKey(int key);
  // Takes away all that was entered and enables the pad.
  void Clear();

  // The type selected, 0 to 7.
  int Type() const { return type_; }
  // What the keys have entered, as BarcodeSetting::data.
  const std::string& Data() const { return data_; }
  // The captions of the keys in use, key 0 first; the others are hidden.
  const std::vector<std::string>& Captions() const { return captions_; }
  // Whether a key may be pressed.
  bool IsPadEnabled() const { return is_pad_enabled_; }
  // Whether what was entered may be sent.
  bool IsNextEnabled() const { return is_next_enabled_; }
  // The hint in a panel, 1 or 2. Throws std::out_of_range for another one.
  const std::string& PanelText(int panel) const {
    return panels_.at(static_cast<std::size_t>(panel - 1));
  }

 private:
  int type_ = 0;
  int entered_count_ = 0;
  int maximum_count_;
  std::string data_;
  std::vector<std::string> captions_;
  bool is_pad_enabled_ = true;
  bool is_next_enabled_ = true;
  std::array<std::string, 2> panels_;
};

}  // namespace vantrel::printdata
