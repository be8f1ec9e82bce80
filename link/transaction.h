// SPDX-License-Identifier: MIT
#pragma once

#include "link/clock.h"
#include "link/code_page.h"
#include "link/display.h"
#include "link/port.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantrel::link {

// Thrown out of a wait that has ended without an outcome (the console is closing, or a failure has
// already been reported by a command nested in the wait). There is nothing to show for it.
struct ExchangeEnded {};

// The one way to talk to the printer: a command and its reply at a time, on the user-interface
// thread. While a call waits, events run, and a click may run a second call inside the first. That
// nesting is how a card wait is cancelled; the calls share ReceiveBuffer, the timers and the
// display on purpose, and the outer one goes on with what the nested one left.
class Transaction : public PortListener, public Clock::Listener {
 public:
  // All three must outlive the transaction, which makes itself the listener of port and clock.
  Transaction(Port& port, Display& display, Clock& clock, CodePage page);
  ~Transaction() override;
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  // Sends a frame (hex text, STX to block check), waits for the reply for `time_limit`
  // milliseconds, resends on request, and shows the outcome. Returns when the exchange has ended,
  // whatever its outcome. Throws PortError when the port fails (it is closed then, the buttons are
  // enabled and the panels emptied) and ExchangeEnded after Abandon, and after a failure of the
  // open port that a call nested in this one has reported.
  void SendCommand(std::string_view frame, int time_limit);

  // Disables the ordinary command buttons, or enables them and empties both panels.
  void SetBusy(bool busy);

  // Appends the meaning of the reply in ReceiveBuffer to LblHints, on a new line that begins with
  // `label`.
  void GetStatusText(std::string_view label);

  // Ends every call that is waiting, as soon as its event loop is reached again, with
  // ExchangeEnded.
  void Abandon();

  // Whether a call is waiting.
  bool IsWaiting() const { return depth_ > 0; }

  // Every byte received since the last clear, as hex text.
  const std::string& ReceiveBuffer() const { return receive_buffer_; }

  void OnComm(int event_code) override;
  void OnLost(const PortError& error) override;
  void OnTick(Timer timer) override;

 private:
  class Call;

  void Exchange(std::string_view frame, int time_limit, int depth);
  // Writes for the call of that depth. Where an open port fails, the calls around it are abandoned.
  void Write(const Bytes& bytes, int depth);
  // Yields until `milliseconds` have passed. Ends the call of that depth when it has been
  // abandoned.
  void Delay(int milliseconds, int depth);
  void ThrowIfAbandoned(int depth);
  void ShowReply();

  Port& port_;
  Display& display_;
  Clock& clock_;
  const CodePage page_;
  std::string receive_buffer_;
  bool time_up_ = false;
  bool wait_done_ = false;
  int depth_ = 0;            // calls that are waiting, one inside the other
  int abandoned_depth_ = 0;  // the outermost so many of them are to end
  std::optional<PortError> loss_;
};

}  // namespace vantrel::link
