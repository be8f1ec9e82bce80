// SPDX-License-Identifier: MIT

#include "log/capture_commands.h"

#include "log/capture_file.h"
#include "log/comparison.h"
#include "log/csv_reader.h"
#include "log/file_saver.h"
#include "log/row_json.h"
#include "log/row_text.h"

#include <exception>
#include <fstream>
#include <functional>
#include <ostream>
#include <stdexcept>
#include <vector>

namespace vantrel::log {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

void Tell(std::ostream& errors, const std::string& sentence) {
  errors << "vantrel-log: " << sentence << '\n';
}

// Hands on the rows of a capture, a portion at a time, and tells what was not read. Returns whether
// all was. Throws std::runtime_error where it is none.
bool ReadRows(CaptureFile& file, const std::function<void(std::vector<LogEntry>&)>& take,
              std::ostream& errors) {
  std::vector<LogEntry> rows;
  while (file.Read(rows)) {
    take(rows);
    rows.clear();
  }
  file.End(rows);
  take(rows);
  for (const std::string& note : file.Notes()) Tell(errors, note);
  for (const std::string& damage : file.Damage()) Tell(errors, damage);
  return file.Damage().empty();
}

// A capture is what it is by its contents; a log as CSV can be made one.
void RefuseCsv(const std::string& path) {
  if (IsCsvLog(path))
    throw std::runtime_error(path +
                             " is no capture but a log as CSV, of which 'vantrel-log convert " +
                             path + " OUT.pcapng' makes one.");
}

// The exchanges of a capture; nothing, which has been told, where it could not be read whole.
std::optional<std::vector<Exchange>> ReadExchanges(const std::string& path, std::ostream& errors) {
  try {
    CaptureFile file(path);
    ExchangeReader reader;
    const bool whole = ReadRows(
        file,
        [&reader](const std::vector<LogEntry>& rows) {
          for (const LogEntry& row : rows) reader.Add(row);
        },
        errors);
    if (whole) return reader.Take();
  } catch (const std::runtime_error& error) {
    Tell(errors, error.what());
  }
  return std::nullopt;
}

// Writes rows to a file that is replaced whole.
class RowSaver {
 public:
  RowSaver(const std::string& path, LogFormat format) : file_(path), format_(format) {}

  void Begin(const CapturedLine& line) { file_.Write(FileStart(format_, line)); }
  void Add(const LogEntry& row) {
    AppendRow(part_, format_, row);
    if (part_.size() < kPart) return;
    file_.Write(part_);
    part_.clear();
  }
  std::string Commit() {
    file_.Write(part_);
    return file_.Commit();
  }

 private:
  static constexpr std::size_t kPart = 65536;

  FileSaver file_;
  LogFormat format_;
  std::string part_;
};

// Adds the rows of a file of either kind. Returns whether all was read.
bool SaveRows(const std::string& from, RowSaver& saver, std::ostream& errors) {
  if (IsCsvLog(from)) {
    std::ifstream in(from, std::ios::binary);
    saver.Begin({});
    for (const LogEntry& row : ReadCsvLog(in, from)) saver.Add(row);
    return true;
  }
  CaptureFile file(from);
  bool begun = false;
  return ReadRows(
      file,
      [&](const std::vector<LogEntry>& rows) {
        // The first rows come after what the file tells of their line.
        if (!begun) saver.Begin(file.Line());
        begun = true;
        for (const LogEntry& row : rows) saver.Add(row);
      },
      errors);
}

}  // namespace

int ShowCapture(const std::string& path, bool json, std::ostream& out, std::ostream& errors) {
  try {
    RefuseCsv(path);
    CaptureFile file(path);
    std::string lines;
    const bool whole = ReadRows(
        file,
        [&](const std::vector<LogEntry>& rows) {
          lines.clear();
          for (const LogEntry& row : rows) {
            lines += json ? JsonLineOf(row) : TextLineOf(row);
            lines += '\n';
          }
          out << lines << std::flush;
        },
        errors);
    if (out) return whole ? kDone : kFailed;
    Tell(errors, "standard output cannot be written.");
  } catch (const std::runtime_error& error) {
    Tell(errors, error.what());
  }
  return kFailed;
}

int CompareCaptures(const std::string& a, const std::string& b, bool json, std::ostream& out,
                    std::ostream& errors) {
  const auto exchanges_a = ReadExchanges(a, errors);
  const auto exchanges_b = ReadExchanges(b, errors);
  if (!exchanges_a || !exchanges_b) return kWrongUse;
  bool same = true;
  std::string lines;
  const bool aligned = Compare(*exchanges_a, *exchanges_b, [&](const FieldDifference& difference) {
    same = false;
    lines += json ? JsonOf(difference) : TextOf(difference);
    lines += '\n';
    if (lines.size() < 65536) return;
    out << lines;
    lines.clear();
  });
  out << lines << std::flush;
  if (!aligned)
    Tell(errors,
         "the captures differ so much that part of them was compared in step, one exchange "
         "with one.");
  if (!out) {
    Tell(errors, "standard output cannot be written.");
    return kWrongUse;
  }
  return same ? kDone : kFailed;
}

int ConvertCapture(const std::string& from, const std::string& to, std::ostream& errors) {
  const auto format = FormatOf(to);
  if (!format) {
    Tell(errors, to + " ends in none of .pcapng, .csv and .txt.");
    return kWrongUse;
  }
  try {
    RowSaver saver(to, *format);
    if (!SaveRows(from, saver, errors)) {
      Tell(errors, to + " was not written.");
      return kFailed;
    }
    const std::string error = saver.Commit();
    if (error.empty()) return kDone;
    Tell(errors, error);
  } catch (const std::runtime_error& error) {
    Tell(errors, error.what());
  }
  return kFailed;
}

}  // namespace vantrel::log
