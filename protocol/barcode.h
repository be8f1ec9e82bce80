// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrel::protocol {

// A barcode as 4Eh asks for it.
struct Barcode {
  // How the bars stand for the data.
  enum class Type {
    kCode128,  // at most 11 symbol values, 0 to 102
    kCode39,   // at most 10 of "0123456789-. $/+%"
    kItf,      // at most 20 digits
    kCodabar,  // at most 13 of "0123456789-.:$/+" between a start and an end character, 'A' to 'D'
  };

  Type type = Type::kCode128;  // how the data are encoded
  bool subscript = false;      // its data in characters below the bars
  int start = 0;               // the first line of dots of the bars, 0 to 319
  int end = 0;                 // the last line of dots of the bars, 0 to 319
  char code_set = 'A';         // Code 128: the set of the start character, 'A' to 'C'
  // The symbol values of a Code 128 symbol between its start and its check character, 0 to 102;
  // of the other types the characters, CODABAR's with its start and end characters.
  std::string data;
};

// Reads "Ystart,Yend,type,data", with "set," before the data of Code 128 (two hex digits a symbol
// value) and the start and end character, "AB,", before those of CODABAR. Nothing where that is
// not what `text` is, where the data is empty or longer than its type allows (11, 10, 20 and 13),
// or where it holds what its type cannot encode.
std::optional<Barcode> ParseBarcode(std::string_view text);

}  // namespace vantrel::protocol
