// SPDX-License-Identifier: MIT

#include "log/row_alignment.h"

#include "log/command_alignment.h"
#include "protocol/frame.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace vantrel::log {
namespace {

bool IsNoise(const LogEntry& row) {
  return protocol::KindOf(row.direction, BytesOf(row)) == protocol::GroupKind::kNoise;
}

CommandKey CommandOf(const LogEntry& row) {
  const protocol::FrameParts parts = protocol::PartsOf(BytesOf(row));
  if (parts.content.empty()) return {};
  return {parts.content.front(), std::string_view(row.bytes).substr(2, parts.content.size() - 1)};
}

// The exchanges of a capture, the first of them what comes before the first frame.
class Exchanges {
 public:
  explicit Exchanges(const CaptureRows& rows) : rows_(rows) {}

  std::size_t Count() const { return rows_.Starts().size() + 1; }
  std::size_t Begin(std::size_t i) const { return i == 0 ? 0 : rows_.Starts()[i - 1]; }
  std::size_t End(std::size_t i) const {
    return i < rows_.Starts().size() ? rows_.Starts()[i] : rows_.Size();
  }
  // The commands that begin them, from the second on.
  std::vector<CommandKey> Commands() const {
    std::vector<CommandKey> commands;
    commands.reserve(rows_.Starts().size());
    for (const std::size_t start : rows_.Starts()) commands.push_back(CommandOf(rows_.At(start)));
    return commands;
  }

 private:
  const CaptureRows& rows_;
};

class Aligner {
 public:
  Aligner(const CaptureRows& left, const CaptureRows& right)
      : left_rows_(left), right_rows_(right), left_(left), right_(right) {}

  AlignedRows Align() {
    aligned_.lines.reserve(std::max(left_rows_.Size(), right_rows_.Size()));
    Pair(0, 0);
    Alignment alignment = AlignCommands(left_.Commands(), right_.Commands());
    alignment.runs.push_back({left_.Count() - 1, right_.Count() - 1, 0});
    std::size_t i = 1;
    std::size_t j = 1;
    for (const Alignment::Run& run : alignment.runs) {
      for (; i < run.a + 1; ++i) AddAlone(left_.Begin(i), left_.End(i), true);
      for (; j < run.b + 1; ++j) AddAlone(right_.Begin(j), right_.End(j), false);
      for (std::size_t n = 0; n < run.length; ++n) Pair(i++, j++);
    }
    aligned_.went_in_step = alignment.gave_up;
    return std::move(aligned_);
  }

 private:
  void Pair(std::size_t i, std::size_t j) {
    std::size_t left = left_.Begin(i);
    std::size_t right = right_.Begin(j);
    while (left < left_.End(i) || right < right_.End(j)) {
      const bool has_left = left < left_.End(i);
      const bool has_right = right < right_.End(j);
      const bool left_noise = has_left && IsNoise(left_rows_.At(left));
      const bool right_noise = has_right && IsNoise(right_rows_.At(right));
      if (left_noise && right_noise)
        Add(left++, right++, Difference::kNone);
      else if (left_noise)
        Add(left++, AlignedLine::kNothing, Difference::kNone);
      else if (right_noise)
        Add(AlignedLine::kNothing, right++, Difference::kNone);
      else if (!has_right)
        Add(left++, AlignedLine::kNothing, Difference::kOnlyLeft);
      else if (!has_left)
        Add(AlignedLine::kNothing, right++, Difference::kOnlyRight);
      else
        PairRows(left++, right++);
    }
  }

  void PairRows(std::size_t left, std::size_t right) {
    const LogEntry& a = left_rows_.At(left);
    const LogEntry& b = right_rows_.At(right);
    const bool same = a.direction == b.direction && a.bytes == b.bytes;
    Add(left, right, same ? Difference::kNone : Difference::kDiffers);
  }

  void AddAlone(std::size_t begin, std::size_t end, bool on_left) {
    for (std::size_t row = begin; row < end; ++row) {
      if (on_left)
        Add(row, AlignedLine::kNothing, Difference::kOnlyLeft);
      else
        Add(AlignedLine::kNothing, row, Difference::kOnlyRight);
    }
  }

  void Add(std::size_t left, std::size_t right, Difference difference) {
    aligned_.lines.push_back(
        {static_cast<std::uint32_t>(left), static_cast<std::uint32_t>(right), difference});
  }

  const CaptureRows& left_rows_;
  const CaptureRows& right_rows_;
  Exchanges left_;
  Exchanges right_;
  AlignedRows aligned_;
};

}  // namespace

AlignedRows AlignRows(const CaptureRows& left, const CaptureRows& right) {
  return Aligner(left, right).Align();
}

}  // namespace vantrel::log
