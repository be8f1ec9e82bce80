// SPDX-License-Identifier: MIT

#include "log/save_log.h"

#include "log/file_saver.h"

#include <ostream>

namespace vantrel::log {

void WriteLog(std::ostream& out, LogFormat format, const LineLog& log, const CapturedLine& line) {
  std::string part = FileStart(format, line);
  for (std::size_t number = log.First(); number < log.End() && out; ++number) {
    AppendRow(part, format, log.At(number));
    if (part.size() < 65536) continue;
    out << part;
    part.clear();
  }
  out << part;
}

std::string SaveLog(const LineLog& log, const std::string& path, const CapturedLine& line) {
  FileSaver file(path);
  FileSaverBuffer buffer(file);
  std::ostream out(&buffer);
  WriteLog(out, FormatOf(path).value_or(LogFormat::kText), log, line);
  return file.Commit();
}

}  // namespace vantrel::log
