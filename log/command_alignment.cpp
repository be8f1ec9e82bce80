// SPDX-License-Identifier: MIT

#include "log/command_alignment.h"

#include <cstddef>
#include <functional>
#include <unordered_map>
#include <vector>

namespace vantrel::log {
namespace {

// Commands that stand alone, past which the rest is put side by side one by one.
constexpr std::size_t kMostApart = 1500;

struct Hash {
  std::size_t operator()(const CommandKey& key) const {
    return std::hash<std::string_view>()(key.data) * 257 + NumberOf(key);
  }
  static std::uint32_t NumberOf(const CommandKey& key) { return key.code ? *key.code + 1U : 0U; }
};

std::vector<std::uint32_t> CodesOf(std::span<const CommandKey> commands) {
  std::vector<std::uint32_t> codes;
  codes.reserve(commands.size());
  for (const CommandKey& command : commands) codes.push_back(Hash::NumberOf(command));
  return codes;
}

// Gives commands numbers, the same where code and data are.
class Numbers {
 public:
  std::vector<std::uint32_t> Of(std::span<const CommandKey> commands) {
    std::vector<std::uint32_t> numbers;
    numbers.reserve(commands.size());
    for (const CommandKey& command : commands)
      numbers.push_back(
          numbers_.try_emplace(command, static_cast<std::uint32_t>(numbers_.size())).first->second);
    return numbers;
  }

 private:
  std::unordered_map<CommandKey, std::uint32_t, Hash> numbers_;
};

}  // namespace

Alignment AlignCommands(std::span<const CommandKey> a, std::span<const CommandKey> b) {
  Numbers numbers;
  const std::vector<std::uint32_t> numbers_a = numbers.Of(a);
  const std::vector<std::uint32_t> numbers_b = numbers.Of(b);
  Alignment exact = Align(numbers_a, numbers_b, kMostApart, Rest::kAlone);
  exact.runs.push_back({a.size(), b.size(), 0});
  Alignment all;
  std::size_t end_a = 0;
  std::size_t end_b = 0;
  for (const Alignment::Run& run : exact.runs) {
    const Alignment between =
        Align(CodesOf(a.subspan(end_a, run.a - end_a)), CodesOf(b.subspan(end_b, run.b - end_b)),
              kMostApart, Rest::kInStep);
    all.gave_up = all.gave_up || between.gave_up;
    for (const Alignment::Run& part : between.runs)
      all.runs.push_back({end_a + part.a, end_b + part.b, part.length});
    if (run.length > 0) all.runs.push_back(run);
    end_a = run.a + run.length;
    end_b = run.b + run.length;
  }
  return all;
}

}  // namespace vantrel::log
