// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <type_traits>
#include <utility>

namespace vantrel::dialogs {

// Deals with what the work of an event throws, because the library's own functions, through which
// every event comes, must not be left by an exception.
class Guard {
 public:
  virtual ~Guard() = default;
  // Runs `work`, now. Returns when it has ended and what it threw has been told; throws nothing.
  virtual void Run(const std::function<void()>& work) = 0;
};

// `work` to be connected to a signal: it runs inside `guard`, which must outlive the connection.
inline std::function<void()> Guarded(Guard& guard, std::function<void()> work) {
  return [&guard, work = std::move(work)] { guard.Run(work); };
}

// The same for work that takes what the signal carries, or its first part.
template <typename Work>
auto GuardedSlot(Guard& guard, Work work) {
  return [&guard, work = std::move(work) ]<typename... Arguments>(
      Arguments... arguments) requires std::is_invocable_v<const Work&, Arguments...> {
    guard.Run([&] { work(arguments...); });
  };
}

}  // namespace vantrel::dialogs
