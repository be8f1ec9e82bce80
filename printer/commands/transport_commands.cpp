// SPDX-License-Identifier: MIT

#include "printer/commands/command.h"

namespace vantrel::printer {
namespace {

// A discharge to the back is for 46h to 48h alone.
bool IsToTheFrontOrOut(const PrinterState&, const protocol::Discharge& discharge) {
  return discharge != protocol::Discharge::kRear;
}

// Stopped at the front, the card is still a target.
Reply Discharge(PrinterState& state, const protocol::Discharge& discharge) {
  const bool stops = discharge == protocol::Discharge::kFront;
  state.Transport(stops ? CardPlace::kFront : CardPlace::kExit);
  return {};
}

Reply MoveToRear(PrinterState& state, const protocol::NoData&) {
  state.Transport(CardPlace::kRear);
  return {};
}

Reply Clean(PrinterState& state, const protocol::NoData&) {
  state.Transport(CardPlace::kExit);
  return {};
}

Reply MoveToFront(PrinterState& state, const protocol::NoData&) {
  state.Transport(CardPlace::kFront);
  return {};
}

Reply CancelInsertionWait(PrinterState& state, const protocol::NoData&) {
  if (state.wait == CardWait::kInsertion) state.wait = CardWait::kNone;
  return {};
}

// The card that should have been pulled out is held at the front again, as a target.
Reply CancelRemovalWait(PrinterState& state, const protocol::NoData&) {
  if (state.wait == CardWait::kRemoval) state.wait = CardWait::kNone;
  if (state.place == CardPlace::kExit) state.place = CardPlace::kFront;
  return {};
}

constexpr CommandRow kRows[] = {
    {.code = 0x50,
     .need = Need::kTargetCard,
     .duration = kMoveTime,
     .work = kFor<Discharge>,
     .fits = kFor<IsToTheFrontOrOut>},
    {.code = 0x51, .need = Need::kCardOrWait, .duration = kMoveTime, .work = kFor<MoveToRear>},
    {.code = 0x52, .need = Need::kCleaningCard, .duration = kCleaningTime, .work = kFor<Clean>},
    {.code = 0x53, .need = Need::kCardOrWait, .duration = kMoveTime, .work = kFor<MoveToFront>},
    {.code = 0x54, .work = kFor<CancelInsertionWait>},
    {.code = 0x55, .work = kFor<CancelRemovalWait>},
};

}  // namespace

std::span<const CommandRow> TransportCommands() { return kRows; }

}  // namespace vantrel::printer
