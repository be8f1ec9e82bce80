// SPDX-License-Identifier: MIT
#pragma once

#include "printer/model/printer_model.h"
#include "tests/support/installed_fonts.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantrel::support {

// A printer on the bench: bytes are written as hex with blanks, time is counted by hand.
class PrinterBench {
 public:
  explicit PrinterBench(link::CodePage code_page = link::CodePage::kWestern)
      : model(InstalledFonts(), code_page) {
    model.OnSend([this](const link::Bytes& chunk) {
      std::string hex = link::SpacedPairs(link::HexTextOf(chunk));
      hex.pop_back();
      sent_.push_back(hex);
    });
  }

  // Gives the printer bytes, "02 21 03 22", and returns the chunks that it sends at once.
  std::vector<std::string> Send(std::string_view hex) {
    std::string digits;
    for (const char character : hex) {
      if (character != ' ') digits += character;
    }
    model.Receive(link::BytesOf(digits), now);
    return Sent();
  }

  // Lets time pass, calling the printer whenever it asks to be called, and returns what it sends.
  std::vector<std::string> Pass(std::chrono::milliseconds time) {
    const protocol::Moment end = now + time;
    while (model.NextAdvance() && *model.NextAdvance() <= end) {
      now = std::max(now, *model.NextAdvance());
      model.Advance(now);
    }
    now = end;
    return Sent();
  }

  std::vector<std::string> InsertCard() {
    model.InsertCard(now);
    return Sent();
  }

  std::vector<std::string> PullOutCard() {
    model.PullOutCard(now);
    return Sent();
  }

  printer::PrinterModel model;
  protocol::Moment now{1000};

 private:
  std::vector<std::string> Sent() { return std::exchange(sent_, {}); }

  std::vector<std::string> sent_;
};

using Chunks = std::vector<std::string>;

}  // namespace vantrel::support
