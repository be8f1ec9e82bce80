// SPDX-License-Identifier: MIT

#include "printer/commands/command.h"

namespace vantrel::printer {
namespace {

// The case accessory parts close the back.
bool BackIsOpen(const PrinterState& state, const protocol::Discharge& discharge) {
  return discharge != protocol::Discharge::kRear || !state.case_parts;
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

Reply DischargeAfterPass(PrinterState& state, const protocol::Discharge& discharge) {
  switch (discharge) {
    case protocol::Discharge::kFront:
      state.Transport(CardPlace::kFront);
      break;
    case protocol::Discharge::kExit:
      state.Transport(CardPlace::kExit);
      break;
    case protocol::Discharge::kRear:
      // It falls out at the back, and the printer has no card any more.
      state.Transport(CardPlace::kOutside);
      break;
  }
  return {};
}

Reply EraseAndPrint(PrinterState& state, const protocol::Discharge& discharge) {
  state.PassUnderHead();
  EraseFace(state);
  PrintFace(state);
  return DischargeAfterPass(state, discharge);
}

Reply Print(PrinterState& state, const protocol::Discharge& discharge) {
  state.PassUnderHead();
  PrintFace(state);
  return DischargeAfterPass(state, discharge);
}

Reply Erase(PrinterState& state, const protocol::Discharge& discharge) {
  state.PassUnderHead();
  EraseFace(state);
  return DischargeAfterPass(state, discharge);
}

constexpr CommandRow kRows[] = {
    {.code = 0x46,
     .need = Need::kCardOrWait,
     .duration = kEraseTime + kPrintTime,
     .work = kFor<EraseAndPrint>,
     .fits = kFor<BackIsOpen>},
    {.code = 0x47,
     .need = Need::kCardOrWait,
     .duration = kPrintTime,
     .work = kFor<Print>,
     .fits = kFor<BackIsOpen>},
    {.code = 0x48,
     .need = Need::kCardOrWait,
     .duration = kEraseTime,
     .work = kFor<Erase>,
     .fits = kFor<BackIsOpen>},
};

}  // namespace

std::span<const CommandRow> CycleCommands() { return kRows; }

}  // namespace vantrel::printer
