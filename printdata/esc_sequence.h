// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <vector>

namespace vantrel::printdata {

// Numbers from `first` to `last`, both accepted.
struct NumberRange {
  int first;  // the smallest
  int last;   // the largest
};

// The question for the number of a sequence.
struct EscPrompt {
  std::string text;                   // which numbers it takes and what they do
  std::vector<NumberRange> accepted;  // those numbers
};

// The pieces that a body is put together from, n being the number typed at the prompt.
enum class EscPiece {
  kText,        // the print text
  kLineBreak,   // CR LF
  kFiveBlanks,  // five spaces
  kEsc,         // the byte 1Bh and the sequence's letter
  kDec,         // n in decimal
  kHex1,        // n as one upper-case hexadecimal digit
  kDec2,        // n in decimal, two digits
  kDec3,        // n in decimal, three digits
};

// Whether the button first asks the Yes/No question about printers that lack the sequence, and
// whether a No leaves the composed data empty or as it was.
enum class EscNotice {
  kNone,           // it does not ask
  kNoEmptiesData,  // No leaves nothing
  kNoKeepsData,    // No leaves the data as it was
};

// One demonstration of an ESC control sequence inside the print text of 41h: the button that starts
// it, what it asks and the body that it composes.
struct EscSequence {
  std::string name;                     // the button's
  std::string caption;                  // the button's
  std::string label;                    // the beginning of the prompt's title
  std::string panel1;                   // what it does, the first hint
  std::string panel2;                   // the second hint; empty: the one shown before stays
  EscPrompt vertical;                   // for directions 0 and 2
  EscPrompt horizontal;                 // differs from `vertical` for ESC X and ESC Y alone
  char letter;                          // the one that is sent, whatever other case the label names
  std::vector<EscPiece> body;           // what the print text is made of, piece by piece
  EscNotice notice = EscNotice::kNone;  // what is asked first
};

// The eighteen sequences, in the order of their buttons.
std::span<const EscSequence> EscSequences();

// Whether a reply of `number` ends the prompt.
bool Accepts(const EscPrompt& prompt, int number);

// The print text and the sequence put together, in UTF-8, as it follows the header of 41h. `number`
// is one that the prompt accepts.
std::string ComposeEscBody(const EscSequence& sequence, int number, const std::string& print_text);

}  // namespace vantrel::printdata
