// SPDX-License-Identifier: MIT
#pragma once

#include "link/port.h"
#include "tests/support/call_log.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantrel::support {

// A serial port in memory. It records what it is asked to do; the test plays the printer's side.
// Made closed, as port 1 at "9600,N,8,1". Its messages name the devices "COM 1" and "COM 2".
class FakePort : public link::Port {
 public:
  // Writes "Open COM 1 9600,N,8,1", "Close", "DiscardInput", "DiscardOutput", "Input" and "Output
  // 02210322" to the log.
  void LogTo(CallLog& log) { log_ = &log; }

  // Bytes arrive, as hex text; the listener hears of them at once. Nothing arrives at a closed
  // port.
  void Receive(std::string_view hex);
  // Bytes arrive and nobody is told.
  void ReceiveUnnoticed(std::string_view hex);
  // A notification with an event code of the test's choice.
  void Notify(int event_code);
  // The device vanishes: the port closes and the listener hears of it.
  void Lose();
  // The write of that number, counted from 1 over the port's life, fails; the port stays open.
  void FailAtWrite(int number) { failing_write_ = number; }
  void FailNextWrite() { failing_write_ = write_attempts_ + 1; }
  // Every Open fails from now on, or succeeds again.
  void RefuseOpen(bool refuse) { refuses_open_ = refuse; }
  // Called after each successful write with what was written, as hex text.
  void WhenWritten(std::function<void(const std::string&)> action) {
    when_written_ = std::move(action);
  }

  // Every write that succeeded, as hex text.
  const std::vector<std::string>& Writes() const { return writes_; }
  // Every successful opening, such as "COM 1 9600,N,8,1".
  const std::vector<std::string>& Openings() const { return openings_; }
  int Closings() const { return closings_; }
  int InputDiscards() const { return input_discards_; }
  int OutputDiscards() const { return output_discards_; }
  int CommPort() const { return number_; }
  const std::string& Settings() const { return settings_; }

  void SetListener(link::PortListener* listener) override { listener_ = listener; }
  void SetCommPort(int number) override { number_ = number; }
  void SetSettings(const std::string& settings) override { settings_ = settings; }
  bool IsOpen() const override { return is_open_; }
  void Open() override;
  void Close() override;
  link::Bytes Input() override;
  void DiscardInput() override;
  void DiscardOutput() override;
  void Output(const link::Bytes& bytes) override;

 private:
  std::string Name() const { return "COM " + std::to_string(number_); }

  int number_ = 1;
  std::string settings_ = "9600,N,8,1";
  bool is_open_ = false;
  bool refuses_open_ = false;
  int failing_write_ = 0;
  int write_attempts_ = 0;
  link::Bytes input_;
  std::vector<std::string> writes_;
  std::vector<std::string> openings_;
  int closings_ = 0;
  int input_discards_ = 0;
  int output_discards_ = 0;
  std::function<void(const std::string&)> when_written_;
  link::PortListener* listener_ = nullptr;
  CallLog* log_ = nullptr;
};

}  // namespace vantrel::support
