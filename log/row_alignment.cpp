#include "log/row_alignment.h"

#include "protocol/frame.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace vantrel::log {
namespace {

// How far ahead an exchange is sought that both captures have.
constexpr std::size_t kFarthest = 64;
// Searches in vain after which the captures are taken to have no more in common.
constexpr int kMostInVain = 256;

bool IsNoise(const LogEntry& row) {
  return protocol::KindOf(row.direction, BytesOf(row)) == protocol::GroupKind::kNoise;
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
  // STX, code and data of the frame that begins it; empty for the first.
  std::string_view Command(std::size_t i) const {
    if (i == 0) return {};
    const std::string_view bytes = rows_.At(Begin(i)).bytes;
    return bytes.substr(0, bytes.find('\x03'));
  }

 private:
  const CaptureRows& rows_;
};

class Aligner {
 public:
  Aligner(const CaptureRows& left, const CaptureRows& right)
      : left_rows_(left), right_rows_(right), left_(left), right_(right) {}

  std::vector<AlignedLine> Align() {
    lines_.reserve(std::max(left_rows_.Size(), right_rows_.Size()));
    Pair(0, 0);
    std::size_t i = 1;
    std::size_t j = 1;
    while (i < left_.Count() && j < right_.Count()) {
      const Step step = NextPair(i, j);
      for (; i < step.left; ++i) AddAlone(left_.Begin(i), left_.End(i), true);
      for (; j < step.right; ++j) AddAlone(right_.Begin(j), right_.End(j), false);
      if (step.pairs) Pair(i++, j++);
    }
    for (; i < left_.Count(); ++i) AddAlone(left_.Begin(i), left_.End(i), true);
    for (; j < right_.Count(); ++j) AddAlone(right_.Begin(j), right_.End(j), false);
    return std::move(lines_);
  }

 private:
  // The next exchanges that belong together; those before them stand alone.
  struct Step {
    std::size_t left = 0;
    std::size_t right = 0;
    bool pairs = true;  // false where none do
  };

  bool IsSame(std::size_t i, std::size_t j, bool by_code) const {
    const std::string_view left = left_.Command(i);
    const std::string_view right = right_.Command(j);
    return by_code ? left.substr(0, 2) == right.substr(0, 2) : left == right;
  }

  // The nearest exchanges from these on that have the same command.
  std::optional<Step> Nearest(std::size_t i, std::size_t j, bool by_code) const {
    for (std::size_t far = 0; far <= kFarthest; ++far) {
      for (std::size_t on_left = 0; on_left <= far; ++on_left) {
        const Step step{i + on_left, j + far - on_left};
        if (step.left < left_.Count() && step.right < right_.Count() &&
            IsSame(step.left, step.right, by_code))
          return step;
      }
    }
    return std::nullopt;
  }

  // By code and data, then by code; where the captures have no more in common, in step.
  Step NextPair(std::size_t i, std::size_t j) {
    if (IsSame(i, j, false) || in_vain_ >= kMostInVain) return {i, j};
    const auto same = Nearest(i, j, false);
    // Other data of the same command are no reason to look elsewhere, unless one is missing here.
    if (IsSame(i, j, true) && !(same && same->left - i + same->right - j == 1)) return {i, j};
    if (same) return *same;
    ++in_vain_;
    return Nearest(i, j, true).value_or(Step{i + 1, j + 1, false});
  }

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
    lines_.push_back(
        {static_cast<std::uint32_t>(left), static_cast<std::uint32_t>(right), difference});
  }

  const CaptureRows& left_rows_;
  const CaptureRows& right_rows_;
  Exchanges left_;
  Exchanges right_;
  int in_vain_ = 0;
  std::vector<AlignedLine> lines_;
};

}  // namespace

std::vector<AlignedLine> AlignRows(const CaptureRows& left, const CaptureRows& right) {
  return Aligner(left, right).Align();
}

}  // namespace vantrel::log
