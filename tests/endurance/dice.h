// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string>

namespace vantrel::endurance {

// Numbers that a seed decides, the same on every machine.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : engine_(seed) {}

  // 0 to `sides` - 1.
  std::size_t Below(std::size_t sides) { return static_cast<std::size_t>(engine_() % sides); }
  // In so many of a hundred cases.
  bool Chance(std::size_t percent) { return Below(100) < percent; }
  template <typename Choices>
  const auto& OneOf(const Choices& choices) {
    return choices[Below(std::size(choices))];
  }

 private:
  std::mt19937_64 engine_;
};

// What a run of random steps is told by the environment: VANTREL_RANDOM_SEED, VANTREL_RANDOM_STEPS,
// VANTREL_RANDOM_HOLD (the longest processor time in milliseconds for which the event loop may not
// be reached) and VANTREL_RANDOM_TELL, which has every step told on standard error.
struct RandomRun {
  // `usual_steps` where the environment tells none.
  explicit RandomRun(int usual_steps)
      : seed(Told("VANTREL_RANDOM_SEED", 1)),
        steps(static_cast<int>(
            Told("VANTREL_RANDOM_STEPS", static_cast<std::uint64_t>(usual_steps)))),
        longest_hold(static_cast<int>(Told("VANTREL_RANDOM_HOLD", 1000))),
        tells(std::getenv("VANTREL_RANDOM_TELL") != nullptr) {}

  std::string Again() const {
    return "Again with VANTREL_RANDOM_SEED=" + std::to_string(seed) +
           " VANTREL_RANDOM_STEPS=" + std::to_string(steps);
  }

  std::uint64_t seed;
  int steps;
  int longest_hold;
  bool tells;

 private:
  static std::uint64_t Told(const char* name, std::uint64_t otherwise) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0' ? std::strtoull(value, nullptr, 10) : otherwise;
  }
};

}  // namespace vantrel::endurance
