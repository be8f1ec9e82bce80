#include "printer/command.h"

namespace vantrel {
namespace {

// '0' stops the card at the front, still a target; '1' discharges it completely. '2', a discharge
// to the back, is for 46h to 48h alone.
Reply Discharge(PrinterState& state, const Command& command) {
  state.Transport(command.data == "0" ? CardPlace::kFront : CardPlace::kExit);
  return {};
}

Reply MoveToRear(PrinterState& state, const Command&) {
  state.Transport(CardPlace::kRear);
  return {};
}

Reply Clean(PrinterState& state, const Command&) {
  state.Transport(CardPlace::kExit);
  return {};
}

Reply MoveToFront(PrinterState& state, const Command&) {
  state.Transport(CardPlace::kFront);
  return {};
}

Reply CancelInsertionWait(PrinterState& state, const Command&) {
  if (state.wait == CardWait::kInsertion) state.wait = CardWait::kNone;
  return {};
}

// The card that should have been pulled out is held at the front again, as a target.
Reply CancelRemovalWait(PrinterState& state, const Command&) {
  if (state.wait == CardWait::kRemoval) state.wait = CardWait::kNone;
  if (state.place == CardPlace::kExit) state.place = CardPlace::kFront;
  return {};
}

constexpr CommandRow kRows[] = {
    {0x50, Need::kTargetCard, IsZeroOrOne, kMoveTime, Discharge},
    {0x51, Need::kCardOrWait, IsEmpty, kMoveTime, MoveToRear},
    {0x52, Need::kCleaningCard, IsEmpty, kCleaningTime, Clean},
    {0x53, Need::kCardOrWait, IsEmpty, kMoveTime, MoveToFront},
    {0x54, Need::kNothing, IsEmpty, kNoTime, CancelInsertionWait},
    {0x55, Need::kNothing, IsEmpty, kNoTime, CancelRemovalWait},
};

}  // namespace

std::span<const CommandRow> TransportCommands() { return kRows; }

}  // namespace vantrel
