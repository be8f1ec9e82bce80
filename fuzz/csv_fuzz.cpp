// SPDX-License-Identifier: MIT

// Any bytes as a log that was saved as CSV: refused in a sentence, or rows that no file makes more
// than it holds, and that every format tells again without loss.

#include "fuzz/json_check.h"
#include "fuzz/target.h"
#include "log/capture_reader.h"
#include "log/csv_reader.h"
#include "log/json_text.h"
#include "log/row_json.h"
#include "log/row_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::fuzz {
namespace {

using log::LogEntry;
using log::LogFormat;

std::vector<LogEntry> Read(const std::string& csv) {
  std::istringstream in(csv);
  return log::ReadCsvLog(in, "a.csv");
}

std::string Written(const std::vector<LogEntry>& rows, LogFormat format) {
  std::string file = log::FileStart(format, {});
  for (const LogEntry& row : rows) log::AppendRow(file, format, row);
  return file;
}

void CheckRows(const std::vector<LogEntry>& rows, std::string_view csv) {
  const auto lines = static_cast<std::size_t>(std::count(csv.begin(), csv.end(), '\n')) + 1;
  if (rows.size() >= lines) std::abort();
  std::size_t bytes = 0;
  for (const LogEntry& row : rows) {
    bytes += row.bytes.size();
    if (row.bytes.empty() || log::TextLineOf(row).find('\n') != std::string::npos) std::abort();
    if (!IsJsonLine(log::JsonLineOf(row))) std::abort();
  }
  if (2 * bytes > csv.size()) std::abort();
  if (Read(Written(rows, LogFormat::kCsv)) != rows) std::abort();
}

// A capture keeps no moment before 1970, and no comment longer than its field.
void CheckCapture(std::vector<LogEntry> rows) {
  for (LogEntry& row : rows) {
    row.time = std::max(row.time, log::WallTime{});
    row.comment.resize(std::min<std::size_t>(row.comment.size(), 65535));
  }
  const std::string file = Written(rows, LogFormat::kCapture);
  log::CaptureReader reader;
  std::vector<LogEntry> read;
  reader.Feed({reinterpret_cast<const std::uint8_t*>(file.data()), file.size()}, read);
  reader.End(read);
  if (read != rows || !reader.Damage().empty() || !reader.Notes().empty()) std::abort();
}

}  // namespace
}  // namespace vantrel::fuzz

// The first byte chooses the heading: none, that of today, or the one without the last two columns.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vantrel;
  if (size == 0) return 0;
  std::string csv;
  if (data[0] % 3 == 1) csv = std::string(log::kCsvHeading) + "\r\n";
  if (data[0] % 3 == 2) csv = std::string(log::kOldCsvHeading) + "\n";
  csv.append(reinterpret_cast<const char*>(data) + 1, size - 1);
  try {
    const std::vector<log::LogEntry> rows = fuzz::Read(csv);
    fuzz::CheckRows(rows, csv);
    fuzz::CheckCapture(rows);
  } catch (const std::runtime_error& refusal) {
    const std::string_view words = refusal.what();
    if (!words.starts_with("a.csv has no row of a log in line ") || !words.ends_with('.'))
      std::abort();
  }
  return 0;
}
