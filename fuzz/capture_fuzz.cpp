// SPDX-License-Identifier: MIT

// Any bytes as a capture, in any split: nothing crashes, no more memory is taken than the bytes are
// worth, and what is read does not depend on the split.

#include "fuzz/target.h"
#include "log/capture_reader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantrel::fuzz {
namespace {

struct Reading {
  std::vector<log::LogEntry> rows;
  std::vector<std::string> damage;
  std::string refusal;

  friend bool operator==(const Reading&, const Reading&) = default;
};

Reading Read(std::span<const std::uint8_t> bytes, std::size_t portion) {
  Reading reading;
  log::CaptureReader reader;
  try {
    for (std::size_t at = 0; at < bytes.size(); at += portion)
      reader.Feed(bytes.subspan(at, std::min(portion, bytes.size() - at)), reading.rows);
    reader.End(reading.rows);
    reading.damage = reader.Damage();
    for (const std::string& note : reader.Notes()) reading.damage.push_back(note);
  } catch (const std::runtime_error& refusal) {
    reading.refusal = refusal.what();
  }
  return reading;
}

}  // namespace
}  // namespace vantrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vantrel::fuzz::Read;
  if (size == 0) return 0;
  const std::size_t portion = 1 + data[0] % 64;
  const auto whole = Read({data, size}, size);
  if (whole != Read({data, size}, portion)) std::abort();
  std::size_t bytes = 0;
  for (const auto& row : whole.rows) bytes += row.bytes.size();
  if (bytes > size) std::abort();
  return 0;
}
