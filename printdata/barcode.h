#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::printdata {

// The keys of the barcode pad; a key's index is its Code 128 symbol value.
inline constexpr int kBarcodeKeyCount = 103;
inline constexpr int kBarcodeTypeCount = 8;
inline constexpr int kCodeSetCount = 3;

// A barcode type of 4Eh. Types come in pairs, the second "with Subscript"; both members share keys
// and limits.
struct BarcodeType {
  std::string caption;
  int maximum_count;  // of key presses
  std::string panel1;
  std::string panel2;
};

// The types in the order of their index, which is what is sent.
std::span<const BarcodeType> BarcodeTypes();

// `type` is 0 to 7 in the functions below.
inline bool IsCode128(int type) { return type <= 1; }
inline bool IsCodabar(int type) { return type >= 6; }

// The captions of all keys in Code 128 set A, B or C (`code_set` 0, 1 or 2): the symbols of the
// values 0 to 102. An ampersand is doubled, as a button's caption needs it.
std::vector<std::string> CodeSetCaptions(int code_set);

// The captions of the keys that `type` uses, key 0 first; every further key is hidden. Not for
// Code 128, whose captions are those of a code set.
std::vector<std::string> TypeCaptions(int type);

// What a press of `key` adds to the barcode data: two upper-case hexadecimal digits for Code 128,
// one character for the others. Throws std::out_of_range when the type has no such key.
std::string KeyValue(int type, int key);

// What the form of 4Eh holds; the texts are taken as typed.
struct BarcodeSetting {
  std::string start_coordinate;
  std::string end_coordinate;
  int type = 0;                 // 0 to 7
  int code_set = 0;             // 0 to 2, sent for Code 128 alone
  std::string start_character;  // sent for CODABAR alone
  std::string end_character;    // sent for CODABAR alone
  std::string data;
};

// The data field of 4Eh: "0,47,0,B,2122".
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
  void Clear();

  int Type() const { return type_; }
  const std::string& Data() const { return data_; }
  // The captions of the keys in use, key 0 first; the others are hidden.
  const std::vector<std::string>& Captions() const { return captions_; }
  bool IsPadEnabled() const { return is_pad_enabled_; }
  bool IsNextEnabled() const { return is_next_enabled_; }
  // `panel` is 1 or 2.
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
