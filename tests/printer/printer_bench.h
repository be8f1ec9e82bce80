#pragma once

#include "printer/printer_model.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantrel {

// A printer on the bench: bytes are written as hex with blanks, time is counted by hand.
class PrinterBench {
 public:
  PrinterBench() {
    model.OnSend([this](const Bytes& chunk) {
      std::string hex = SpacedPairs(HexTextOf(chunk));
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
    model.Receive(BytesOf(digits), now);
    return Sent();
  }

  // Lets time pass, calling the printer whenever it asks to be called, and returns what it sends.
  std::vector<std::string> Pass(std::chrono::milliseconds time) {
    const Moment end = now + time;
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

  PrinterModel model;
  Moment now{1000};

 private:
  std::vector<std::string> Sent() { return std::exchange(sent_, {}); }

  std::vector<std::string> sent_;
};

using Chunks = std::vector<std::string>;

}  // namespace vantrel
