// SPDX-License-Identifier: MIT
#pragma once

#include "printer/model/fault.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <utility>
#include <vector>

namespace vantrel::printer {

// More than these the plan does not hold.
inline constexpr std::size_t kMostFaults = 1000;

// The faults that strike one command.
class Strikes {
 public:
  // The one of this kind; null when there is none.
  const Fault* Find(Fault::Kind kind) const;
  bool Has(Fault::Kind kind) const { return Find(kind) != nullptr; }
  bool IsEmpty() const { return faults_.empty(); }
  const std::vector<Fault>& All() const { return faults_; }

  // Whether a fault of this kind could still do something to the command: not where another of its
  // kind has struck it, or one after which there is no reply.
  bool Takes(Fault::Kind kind) const;
  void Add(Fault fault) { faults_.push_back(std::move(fault)); }

 private:
  std::vector<Fault> faults_;
};

// What is to go wrong with the commands to come. Several faults may strike the same command: those
// that leave no reply before the others, and else in the order of the plan. One that could do
// nothing to it any more strikes the next command that counts for it.
class FaultPlan {
 public:
  using Id = unsigned;
  struct Entry {
    Id id = 0;
    Fault fault;
    // How many strikes are left; until it is cleared where there is no number.
    std::optional<unsigned> left;
  };

  // Puts a fault in place of all, or one more at the end, and returns what to clear it by; no two
  // faults ever get the same. Throws std::length_error, in words, when the plan is full.
  Id Replace(Fault fault);
  Id Add(Fault fault);
  // False when there is no fault of that id.
  bool Clear(Id id);
  void Clear() { faults_.clear(); }
  // In the order in which they were put into the plan.
  std::vector<Entry> List() const;
  bool IsEmpty() const { return faults_.empty(); }

  // Counts a command by its code, or a frame without one, and returns what strikes it. A frame that
  // is to be sent again counts when it has come for the last time.
  Strikes Strike(std::optional<std::uint8_t> code);

 private:
  struct Planned {
    Entry entry;
    std::mt19937 random;
    unsigned seen = 0;  // commands that counted
    bool owed = false;  // was to strike a command to which it could do nothing
    // Of the frame that is there, which may be sent again: whether it was counted, and what strikes
    // it then.
    bool counted = false;
    std::optional<Fault> turn;
    // Has asked for the frame again, and how many times more it will.
    std::optional<Fault> resent;
    unsigned resends = 0;
  };

  static bool Counts(const Planned& planned, std::optional<std::uint8_t> code);
  // Counts a command; what strikes it, if it is this fault's turn.
  static std::optional<Fault> Turn(Planned& planned);
  // Whether the fault has the frame sent again.
  static bool AsksAgain(Planned& planned);
  static void Spend(Planned& planned);
  // Takes the faults out of the plan that have no strike left.
  void Tidy();

  std::vector<Planned> faults_;
  Id last_id_ = 0;
};

}  // namespace vantrel::printer
