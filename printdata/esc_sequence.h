#pragma once

#include "dialogs/dialogs.h"

#include <span>
#include <string>
#include <vector>

namespace vantrel::printdata {

// One demonstration of an ESC control sequence inside the print text of 41h: the button that
// starts it, what it asks and the body that it composes.

// Numbers from `first` to `last`, both accepted.
struct NumberRange {
  int first;
  int last;
};

struct EscPrompt {
  std::string text;
  std::vector<NumberRange> accepted;
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
// whether a No leaves DataString empty or as it was.
enum class EscNotice { kNone, kNoEmptiesData, kNoKeepsData };

struct EscSequence {
  std::string name;     // the button's
  std::string caption;  // the button's
  std::string label;    // the beginning of the prompt's title
  std::string panel1;
  std::string panel2;  // empty: panel 2 keeps its text
  EscPrompt vertical;
  EscPrompt horizontal;  // differs from `vertical` for ESC X and ESC Y alone
  char letter;           // the one that is sent, whatever other case the label names
  std::vector<EscPiece> body;
  EscNotice notice = EscNotice::kNone;
};

// The eighteen sequences, in the order of their buttons.
std::span<const EscSequence> EscSequences();

// Whether a reply of `number` ends the prompt.
bool Accepts(const EscPrompt& prompt, int number);

// The print text and the sequence put together, in UTF-8. `number` is one that the prompt accepts.
std::string ComposeEscBody(const EscSequence& sequence, int number, const std::string& print_text);

// What an ESC button reads from its form and writes to it.
class EscForm {
 public:
  virtual ~EscForm() = default;
  virtual std::string PrintText() const = 0;
  // Whether direction 0 or 2 is the one selected.
  virtual bool IsVerticalSelected() const = 0;
  // `panel` is 1 or 2.
  virtual std::string PanelText(int panel) const = 0;
  virtual void SetPanelText(int panel, const std::string& text) = 0;
};

// A press of the sequence's button: asks, and composes the body into `data_string`. Returns true
// when the form is to unload, false when the user answered No. The prompt returns until its reply
// is accepted: its number is the whole number nearest to the one that the reply begins with, halves
// to even; Cancel and an empty reply are 0.
bool RunEscSequence(const EscSequence& sequence, EscForm& form, dialogs::Dialogs& dialogs,
                    std::string& data_string);

}  // namespace vantrel::printdata
