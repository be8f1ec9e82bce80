// SPDX-License-Identifier: MIT
#pragma once

#include "tests/log/capture_bytes.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::log {

// A capture file that is written block by block, every byte by hand; its times begin at 2026-11-21
// 13:00:05 and grow by a microsecond a packet.
class WrittenCapture {
 public:
  WrittenCapture();
  // Adds an interface; the first one has the number 0.
  void AddInterface(std::uint16_t link_type, std::string_view description);
  // Adds a packet: header of link type 250 with the event, and the bytes.
  void AddPacket(std::uint32_t interface, std::uint8_t event, std::string_view bytes);
  // Adds a packet whose bytes are all there is.
  void AddBare(std::uint32_t interface, std::string_view bytes);
  const std::string& Bytes() const { return bytes_; }

 private:
  CaptureBytes make_;
  std::string bytes_;
  std::uint32_t packets_ = 0;
};

// What an analyser told of a capture.
struct AnalyserRun {
  std::vector<std::string> lines;  // of standard output
  std::string errors;              // standard error, without the warning that root gets
};

// A home with the plugin in it, removed at the end, and files beside each other to run tools on.
class AnalyserHome {
 public:
  AnalyserHome();
  ~AnalyserHome();
  AnalyserHome(const AnalyserHome&) = delete;
  AnalyserHome& operator=(const AnalyserHome&) = delete;

  std::string Path(const std::string& name = {}) const;
  void Write(const std::string& name, const std::string& bytes) const;
  // Runs a command of the shell in it, which must succeed.
  AnalyserRun Run(const std::string& command) const;

 private:
  std::string folder_;
};

// Runs tshark on a file of these bytes.
AnalyserRun RunAnalyser(const std::string& capture, const std::string& arguments);

}  // namespace vantrel::log
