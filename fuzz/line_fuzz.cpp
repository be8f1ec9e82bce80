// SPDX-License-Identifier: MIT

// Any bytes on the line of the software printer, in any split, with good frames and a person's hand
// in between: nothing crashes, nothing piles up, and the next good frame is understood.

#include "fuzz/target.h"
#include "link/frame.h"
#include "printer/model/printer_model.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

namespace vantrel::fuzz {
namespace {

using namespace std::chrono_literals;

printer::Fonts& InstalledFonts() {
  static printer::Fonts fonts(printer::SystemFontFolder());
  return fonts;
}

// The input, read from its start; nothing but zeroes past its end.
class Input {
 public:
  explicit Input(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

  bool IsAtEnd() const { return rest_.empty(); }
  std::uint8_t Byte() {
    if (rest_.empty()) return 0;
    const std::uint8_t byte = rest_.front();
    rest_ = rest_.subspan(1);
    return byte;
  }
  link::Bytes Some() {
    const std::size_t wanted = Byte();
    const std::size_t count = std::min(wanted, rest_.size());
    link::Bytes bytes(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(count));
    rest_ = rest_.subspan(count);
    return bytes;
  }

 private:
  std::span<const std::uint8_t> rest_;
};

class Printer {
 public:
  Printer() {
    model_.OnSend([this](const link::Bytes& chunk) {
      last_ = chunk;
      sent_ += chunk.size();
    });
  }

  void Do(Input& input) {
    switch (input.Byte() % 12) {
      case 0:
        return model_.SetPower(input.Byte() % 4 != 0, now_);
      case 1:
        return model_.SetPacing(input.Byte() % 2 == 0);
      case 2:
        return model_.SetConsoleSpeed(kSlowest + 37 * input.Byte());
      case 3:
        return SetFault(input);
      case 4:
        model_.InsertCard(now_);
        return;
      case 5:
        model_.PullOutCard(now_);
        return;
      case 6:
        return model_.SetInstantWork(input.Byte() % 2 == 0);
      case 7:
        return Pass(std::chrono::milliseconds(input.Byte() * 8));
      case 8:
      case 9:
        return Receive(input.Some());
      default:
        return Receive(Frame(input.Some()));
    }
  }

  // Ends with a reset that must be answered, once all that is on its way has arrived.
  bool UnderstandsAReset() {
    model_.ClearFaults();
    model_.SetPacing(false);
    model_.SetPower(true, now_);
    Pass(put_ * kSlowestByte + protocol::kFrameSilence);
    model_.Receive(link::BytesOf("025F035C"), now_);
    Pass(2s);
    constexpr std::ptrdiff_t kReplyBytes = 5;
    return last_.size() >= kReplyBytes &&
           link::Bytes(last_.end() - kReplyBytes, last_.end()) == link::BytesOf("025F20037C");
  }

  std::size_t Sent() const { return sent_; }

 private:
  static constexpr int kSlowest = 50;                               // bit/s
  static constexpr std::chrono::milliseconds kSlowestByte = 200ms;  // ten bits

  void Receive(const link::Bytes& bytes) {
    put_ += bytes.size();
    model_.Receive(bytes, now_);
  }
  // A frame whose block check is good, unless the content holds STX or ETX.
  static link::Bytes Frame(const link::Bytes& content) {
    if (content.empty()) return link::BytesOf("020303");
    return link::BytesOf(
        link::ComposeFrame(link::HexOf(content.front()),
                           link::HexTextOf(link::Bytes(content.begin() + 1, content.end()))));
  }

  void SetFault(Input& input) {
    const printer::FaultRow& row = printer::FaultRows()[input.Byte() % printer::FaultRows().size()];
    printer::Fault fault;
    fault.kind = row.kind;
    fault.value = std::clamp<unsigned>(input.Byte(), row.least, row.most);
    if (row.value == printer::FaultValue::kHexBytes) fault.bytes = input.Some();
    fault.strikes = 1 + input.Byte() % 4;
    fault.every = 1 + input.Byte() % 3;
    fault.choices = {printer::ParseFault("resend 2"), printer::ParseFault("split 3")};
    if (input.Byte() % 4 == 0 || model_.Faults().List().size() >= 8) model_.ClearFaults();
    model_.AddFault(fault);
  }

  void Pass(std::chrono::milliseconds time) {
    const protocol::Moment end = now_ + time;
    while (model_.NextAdvance() && *model_.NextAdvance() <= end) {
      now_ = std::max(now_, *model_.NextAdvance());
      model_.Advance(now_);
    }
    now_ = end;
  }

  printer::PrinterModel model_{InstalledFonts(), link::CodePage::kWestern};
  protocol::Moment now_{0};
  link::Bytes last_;
  std::size_t sent_ = 0;
  std::size_t put_ = 0;
};

}  // namespace
}  // namespace vantrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vantrel::fuzz::Input input({data, size});
  vantrel::fuzz::Printer printer;
  while (!input.IsAtEnd()) printer.Do(input);
  if (!printer.UnderstandsAReset()) std::abort();
  // No answer is longer than a track and a fault's noise, and each takes two bytes of input or
  // more.
  if (printer.Sent() > 1024 * (size + 2)) std::abort();
  return 0;
}
