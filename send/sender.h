// SPDX-License-Identifier: MIT
#pragma once

#include "link/clock.h"
#include "link/code_page.h"
#include "link/port.h"
#include "link/transaction.h"
#include "send/exchange.h"
#include "send/line_watch.h"

#include <string>

namespace vantrel::send {

// Carries out exchanges with the console's transaction, without a console.
class Sender {
 public:
  // All must outlive the sender, which opens and closes no port but closes one that fails. `watch`
  // may be null.
  Sender(link::Port& port, link::Clock& clock, link::CodePage page, LineWatch* watch = nullptr);

  // Sends a frame (hex text) and waits for its outcome: any but kRefused. `is_success` and `place`
  // are left to the caller.
  Exchange Send(const std::string& frame, int time_limit);
  // Ends the exchange that is under way, with kCancelled.
  void Cancel() { transaction_.Abandon(); }
  // Whether the last exchange, or the one that is under way, has sent anything.
  bool HasSent() const { return port_.HasSent(); }

 private:
  // What the transaction shows, as far as it tells of the outcome.
  class Shown : public link::Display {
   public:
    void SetText(link::Field field, const std::string& text) override;
    std::string Text(link::Field field) const override;
    void EnableCommandButtons(bool) override {}
    // The next exchange finds the line closed.
    void ShowLoss(const link::PortError&) override {}
    void Clear();
    int Resends() const { return resends_; }

   private:
    std::string response_;
    int resends_ = 0;
  };

  WatchedPort port_;
  Shown shown_;
  link::Transaction transaction_;
  const link::CodePage page_;
};

}  // namespace vantrel::send
