// SPDX-License-Identifier: MIT

#include "send/tally.h"

#include "send/answers.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace vantrel::send {
namespace {

using log::JsonObject;

std::string Rounded(double milliseconds) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.1f ms", milliseconds);
  return text.data();
}

std::string Counted(long count, const std::string& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

template <typename Counts>
JsonObject CountsObject(const Counts& counts) {
  JsonObject object;
  for (const auto& [name, count] : counts) object.Add(name, count);
  return object;
}

}  // namespace

void Tally::Add(const Exchange& exchange) {
  if (!exchange.is_success) {
    ++failures_;
    ++failure_kinds_[exchange.status ? StatusDigits(*exchange.status) + "h"
                                     : std::string(NameOf(exchange.outcome))];
  }
  if (exchange.outcome == Outcome::kRefused) return;
  ++outcomes_[std::string(NameOf(exchange.outcome))];
  if (exchange.status) ++statuses_[StatusDigits(*exchange.status)];
  milliseconds_.push_back(static_cast<float>(exchange.milliseconds));
}

double Tally::MedianMilliseconds() const {
  if (milliseconds_.empty()) return 0;
  std::vector<float> sorted = milliseconds_;
  const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
  std::nth_element(sorted.begin(), middle, sorted.end());
  return *middle;
}

double Tally::SlowestMilliseconds() const {
  if (milliseconds_.empty()) return 0;
  return *std::max_element(milliseconds_.begin(), milliseconds_.end());
}

JsonObject Tally::Summary() const {
  JsonObject summary;
  summary.Add("exchanges", Exchanges())
      .Add("failures", failures_)
      .Add("outcomes", CountsObject(outcomes_))
      .Add("statuses", CountsObject(statuses_))
      .Add("medianMilliseconds", MedianMilliseconds())
      .Add("slowestMilliseconds", SlowestMilliseconds());
  return JsonObject().Add("summary", summary);
}

std::string Tally::InWords() const {
  std::string text = Counted(Exchanges(), "exchange") + ", " + Counted(failures_, "failure");
  std::string kinds;
  for (const auto& [kind, count] : failure_kinds_)
    kinds += (kinds.empty() ? "" : ", ") + kind + ": " + std::to_string(count);
  if (!kinds.empty()) text += " (" + kinds + ")";
  return text + "; median " + Rounded(MedianMilliseconds()) + ", slowest " +
         Rounded(SlowestMilliseconds()) + ".";
}

}  // namespace vantrel::send
