#include "printer/rhythm.h"

namespace vantrel {
namespace {

using namespace std::chrono_literals;

// Whether the operation is in one of its cycles.
bool IsCycling(char operation, std::chrono::milliseconds since) {
  return operation == '2' || (operation == '3' && since < kCycle) ||
         (operation == '4' && since < 3 * kCycle);
}

}  // namespace

bool IsOn(char operation, std::chrono::milliseconds since) {
  return operation == '1' || (IsCycling(operation, since) && since % kCycle < kCycle / 2);
}

std::optional<std::chrono::milliseconds> UntilNextTurn(char operation,
                                                       std::chrono::milliseconds since) {
  if (!IsCycling(operation, since)) return std::nullopt;
  return kCycle / 2 - since % (kCycle / 2);
}

}  // namespace vantrel
