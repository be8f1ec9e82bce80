// SPDX-License-Identifier: MIT
#pragma once

#include "log/captured_line.h"
#include "log/line_log.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantrel::log {

// The files that rows are written to.
enum class LogFormat { kText, kCsv, kCapture };

// The format that a path's ending tells, in any case: .txt, .csv or .pcapng.
std::optional<LogFormat> FormatOf(std::string_view path);

// What a file begins with, before its rows; a capture tells of the line.
std::string FileStart(LogFormat format, const CapturedLine& line);
// Adds a row as a file of a format has it, its end of line included.
void AppendRow(std::string& out, LogFormat format, const LogEntry& entry);

// The first line of a log as CSV, without its end, and that of files without the last two columns.
inline constexpr std::string_view kCsvHeading =
    "Date,Time,Direction,Hex,Characters,Meaning,UTC,Comment";
inline constexpr std::string_view kOldCsvHeading = "Date,Time,Direction,Hex,Characters,Meaning";

// "2026-11-21T13:00:05.123456Z". The year is one of 0 to 9999, as in a file.
std::string UtcInWords(WallTime time);

}  // namespace vantrel::log
