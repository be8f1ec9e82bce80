#include "printer/command.h"

namespace vantrel {
namespace {

bool IsMethod(std::string_view data) {
  return data.size() == 1 && data.front() >= '0' && data.front() <= '2';
}

// The case accessory parts close the back.
bool BackIsOpen(const PrinterState& state, const Command& command) {
  return command.data != "2" || !state.case_parts;
}

// A cleaning card has no face to change.
void EraseFace(PrinterState& state) {
  if (state.card.kind == CardKind::kOrdinary) state.card.face.Clear();
}

// The heat only blackens: what is black on the card stays so until it is erased. The print
// expansion buffer keeps its picture for the next card.
void PrintFace(PrinterState& state) {
  ++state.prints;
  if (state.card.kind == CardKind::kOrdinary) state.card.face.Merge(state.print_image);
}

Reply DischargeAfterPass(PrinterState& state, const Command& command) {
  switch (command.data.front()) {
    case '0':
      state.Transport(CardPlace::kFront);
      break;
    case '1':
      state.Transport(CardPlace::kExit);
      break;
    default:
      state.Transport(CardPlace::kRear);
      break;
  }
  return {};
}

Reply EraseAndPrint(PrinterState& state, const Command& command) {
  state.PassUnderHead();
  EraseFace(state);
  PrintFace(state);
  return DischargeAfterPass(state, command);
}

Reply Print(PrinterState& state, const Command& command) {
  state.PassUnderHead();
  PrintFace(state);
  return DischargeAfterPass(state, command);
}

Reply Erase(PrinterState& state, const Command& command) {
  state.PassUnderHead();
  EraseFace(state);
  return DischargeAfterPass(state, command);
}

constexpr CommandRow kRows[] = {
    {0x46, Need::kCardOrWait, IsMethod, kEraseTime + kPrintTime, EraseAndPrint, BackIsOpen},
    {0x47, Need::kCardOrWait, IsMethod, kPrintTime, Print, BackIsOpen},
    {0x48, Need::kCardOrWait, IsMethod, kEraseTime, Erase, BackIsOpen},
};

}  // namespace

std::span<const CommandRow> CycleCommands() { return kRows; }

}  // namespace vantrel
