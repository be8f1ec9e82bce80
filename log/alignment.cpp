// SPDX-License-Identifier: MIT

#include "log/alignment.h"

#include <algorithm>

namespace vantrel::log {
namespace {

using Index = std::int64_t;

// The greedy search of E. W. Myers, "An O(ND) difference algorithm": after `d` elements that stand
// alone, how far along `a` each diagonal (the place in `a` less that in `b`) comes at best.
class Search {
 public:
  Search(std::span<const std::uint32_t> a, std::span<const std::uint32_t> b)
      : a_(a), b_(b), a_size_(std::ssize(a)), b_size_(std::ssize(b)) {}

  // Returns whether both ends were reached with at most this many elements alone.
  bool Run(Index most) {
    for (Index d = 0; d <= most; ++d) {
      reached_.emplace_back(static_cast<std::size_t>(d) + 1, -1);
      // What lies beyond the ends of the sequences is not looked at.
      for (Index k = -d; k <= d; k += 2) {
        if (k < -b_size_ || k > a_size_) continue;
        const Index x = Follow(k, Begin(d, k));
        At(d, k) = x;
        if (x + x - k > best_sum_) {
          best_sum_ = x + x - k;
          best_d_ = d;
          best_k_ = k;
        }
        if (x >= a_size_ && x - k >= b_size_) return true;
      }
    }
    return false;
  }

  // The runs of equal elements on the way to the furthest place that was reached, in order.
  std::vector<Alignment::Run> Runs() const {
    std::vector<Alignment::Run> runs;
    Index k = best_k_;
    for (Index d = best_d_;; --d) {
      const Index end = At(d, k);
      const Index begin = d == 0 ? 0 : Begin(d, k);
      if (end > begin)
        runs.push_back({static_cast<std::size_t>(begin), static_cast<std::size_t>(begin - k),
                        static_cast<std::size_t>(end - begin)});
      if (d == 0) break;
      k = FromBelow(d, k) ? k + 1 : k - 1;
    }
    std::reverse(runs.begin(), runs.end());
    return runs;
  }
  std::size_t EndInA() const { return static_cast<std::size_t>(At(best_d_, best_k_)); }
  std::size_t EndInB() const { return static_cast<std::size_t>(At(best_d_, best_k_) - best_k_); }

 private:
  Index At(Index d, Index k) const {
    return k < -d || k > d
               ? -1
               : reached_[static_cast<std::size_t>(d)][static_cast<std::size_t>((k + d) / 2)];
  }
  Index& At(Index d, Index k) {
    return reached_[static_cast<std::size_t>(d)][static_cast<std::size_t>((k + d) / 2)];
  }
  // Whether the best way to a diagonal takes an element of `b` alone, not one of `a`.
  bool FromBelow(Index d, Index k) const {
    return k == -d || (k != d && At(d - 1, k - 1) < At(d - 1, k + 1));
  }
  Index Begin(Index d, Index k) const {
    if (d == 0) return 0;
    if (FromBelow(d, k)) return At(d - 1, k + 1);
    const Index left = At(d - 1, k - 1);
    return left < 0 ? -1 : left + 1;
  }
  Index Follow(Index k, Index x) const {
    if (x < 0 || x > a_size_ || x < k || x - k > b_size_) return -1;
    while (x < a_size_ && x - k < b_size_ &&
           a_[static_cast<std::size_t>(x)] == b_[static_cast<std::size_t>(x - k)])
      ++x;
    return x;
  }

  std::span<const std::uint32_t> a_;
  std::span<const std::uint32_t> b_;
  Index a_size_;
  Index b_size_;
  std::vector<std::vector<Index>> reached_;
  Index best_sum_ = -1;
  Index best_d_ = 0;
  Index best_k_ = 0;
};

}  // namespace

Alignment Align(std::span<const std::uint32_t> a, std::span<const std::uint32_t> b,
                std::size_t most_apart, Rest rest) {
  std::size_t same = 0;
  const std::size_t shorter = std::min(a.size(), b.size());
  while (same < shorter && a[same] == b[same]) ++same;
  std::size_t same_at_end = 0;
  while (same_at_end < shorter - same &&
         a[a.size() - 1 - same_at_end] == b[b.size() - 1 - same_at_end])
    ++same_at_end;
  const auto rest_a = a.subspan(same, a.size() - same - same_at_end);
  const auto rest_b = b.subspan(same, b.size() - same - same_at_end);

  Alignment alignment;
  if (same > 0) alignment.runs.push_back({0, 0, same});
  if (!rest_a.empty() && !rest_b.empty()) {
    Search search(rest_a, rest_b);
    const bool whole =
        search.Run(static_cast<Index>(std::min(most_apart, rest_a.size() + rest_b.size())));
    for (const Alignment::Run& run : search.Runs())
      alignment.runs.push_back({run.a + same, run.b + same, run.length});
    alignment.gave_up = !whole;
    if (!whole && rest == Rest::kInStep) {
      const std::size_t left =
          std::min(rest_a.size() - search.EndInA(), rest_b.size() - search.EndInB());
      if (left > 0)
        alignment.runs.push_back({same + search.EndInA(), same + search.EndInB(), left});
    }
  }
  if (same_at_end > 0)
    alignment.runs.push_back({a.size() - same_at_end, b.size() - same_at_end, same_at_end});
  return alignment;
}

}  // namespace vantrel::log
