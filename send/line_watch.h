// SPDX-License-Identifier: MIT
#pragma once

#include "link/port.h"
#include "protocol/frame_words.h"

#include <chrono>
#include <optional>

namespace vantrel::send {

// Is told every byte on the line.
class LineWatch {
 public:
  virtual ~LineWatch() = default;
  virtual void OnBytes(protocol::Direction direction, const link::Bytes& bytes) = 0;
};

// A port that tells of what passes it.
class WatchedPort : public link::Port {
 public:
  WatchedPort(link::Port& port, LineWatch* watch) : port_(port), watch_(watch) {}

  using Time = std::chrono::steady_clock::time_point;
  // When the first byte since Begin was written.
  void Begin() { first_output_.reset(); }
  bool HasSent() const { return first_output_.has_value(); }
  double MillisecondsSinceSent() const {
    if (!first_output_) return 0;
    const auto since = std::chrono::steady_clock::now() - *first_output_;
    return std::chrono::duration<double, std::milli>(since).count();
  }

  void SetListener(link::PortListener* listener) override { port_.SetListener(listener); }
  void SetCommPort(int number) override { port_.SetCommPort(number); }
  void SetSettings(const std::string& settings) override { port_.SetSettings(settings); }
  bool IsOpen() const override { return port_.IsOpen(); }
  void Open() override { port_.Open(); }
  void Close() override { port_.Close(); }
  void DiscardInput() override { port_.DiscardInput(); }
  void DiscardOutput() override { port_.DiscardOutput(); }
  link::Bytes Input() override {
    link::Bytes bytes = port_.Input();
    if (watch_ != nullptr && !bytes.empty())
      watch_->OnBytes(protocol::Direction::kFromPrinter, bytes);
    return bytes;
  }
  void Output(const link::Bytes& bytes) override {
    const Time now = std::chrono::steady_clock::now();
    port_.Output(bytes);
    if (!first_output_) first_output_ = now;
    if (watch_ != nullptr) watch_->OnBytes(protocol::Direction::kFromConsole, bytes);
  }

 private:
  link::Port& port_;
  LineWatch* const watch_;
  std::optional<Time> first_output_;
};

}  // namespace vantrel::send
