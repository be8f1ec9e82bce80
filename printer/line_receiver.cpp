#include "printer/line_receiver.h"

#include "link/common.h"

#include <string>

namespace vantrel {
namespace {

constexpr std::uint8_t kStx = 0x02;
constexpr std::uint8_t kEtx = 0x03;

bool CheckIsGood(const Bytes& content, std::uint8_t check) {
  std::string frame(StxHex);
  frame += HexTextOf(content);
  frame += EtxHex;
  return CalcBCC(frame) == HexOf(check);
}

}  // namespace

std::vector<Arrival> LineReceiver::Receive(std::span<const std::uint8_t> bytes, Moment now) {
  Advance(now);
  last_byte_ = now;
  std::vector<Arrival> arrivals;
  for (const std::uint8_t byte : bytes) {
    if (place_ == Place::kBlockCheck) {
      const bool good = CheckIsGood(content_, byte);
      arrivals.push_back({good, std::move(content_)});
      content_ = {};
      place_ = Place::kOutside;
    } else if (byte == kStx) {
      content_.clear();
      place_ = Place::kContent;
    } else if (place_ == Place::kContent && byte == kEtx) {
      place_ = Place::kBlockCheck;
    } else if (place_ == Place::kContent) {
      content_.push_back(byte);
      if (content_.size() > kLongestFrame - 2) {
        content_ = {};
        place_ = Place::kOutside;
      }
    }
  }
  return arrivals;
}

std::optional<Moment> LineReceiver::Deadline() const {
  if (place_ == Place::kOutside) return std::nullopt;
  return last_byte_ + kFrameSilence;
}

void LineReceiver::Advance(Moment now) {
  if (place_ == Place::kOutside || now < last_byte_ + kFrameSilence) return;
  content_ = {};
  place_ = Place::kOutside;
}

}  // namespace vantrel
