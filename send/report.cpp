// SPDX-License-Identifier: MIT

#include "send/report.h"

#include "link/unique_descriptor.h"
#include "log/file_saver.h"
#include "log/json_text.h"
#include "send/answers.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace vantrel::send {
namespace {

using link::UniqueDescriptor;

ReportError CannotWrite(const std::string& path, int error) {
  return ReportError("The report " + path + " cannot be written: " + std::strerror(error) + ".");
}

void WriteAll(int descriptor, std::string_view text, const std::string& path) {
  while (!text.empty()) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw CannotWrite(path, errno);
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

// Without waiting at a pipe of that name.
void RefuseOtherThanRegular(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
    throw ReportError("The report cannot be written to " + path + ", which is no regular file.");
}

class JsonReport : public Report {
 public:
  JsonReport(std::string path, bool continues) : path_(std::move(path)) {
    const int mode = continues ? O_APPEND : O_TRUNC;
    file_.Reset(open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | mode, 0666));
    if (!file_.IsOpen()) throw CannotWrite(path_, errno);
    // A line that was cut, by a full disk say, stays a line of its own.
    const off_t size = lseek(file_.Get(), 0, SEEK_END);
    char last = '\n';
    if (size > 0 && pread(file_.Get(), &last, 1, size - 1) == 1 && last != '\n')
      WriteAll(file_.Get(), "\n", path_);
  }
  void Add(const Exchange& exchange) override {
    WriteAll(file_.Get(), Told(exchange, Format::kJson), path_);
  }
  void Finish() override {}

 private:
  const std::string path_;
  UniqueDescriptor file_;
};

std::string XmlText(const std::string& text) {
  std::string escaped;
  for (const char character : log::ValidUtf8(text)) {
    const auto code = static_cast<unsigned char>(character);
    switch (character) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        // Most control characters cannot be in XML at all.
        if (code >= 0x20)
          escaped += character;
        else
          escaped += "\\x" + StatusDigits(code);
    }
  }
  return escaped;
}

std::string Seconds(double milliseconds) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.6f", milliseconds / 1000);
  return text.data();
}

std::string CaseName(const Exchange& exchange) {
  std::string name = exchange.command.empty() ? "refused" : exchange.command;
  if (exchange.place.line) name += " line " + std::to_string(*exchange.place.line);
  if (exchange.place.round) name += " round " + std::to_string(*exchange.place.round);
  return name;
}

// The cases wait in a file without a name, because their number stands before them.
class JUnitReport : public Report {
 public:
  explicit JUnitReport(const std::string& path)
      : saver_(path), cases_(std::tmpfile(), std::fclose) {
    if (!saver_.Write("")) throw ReportError("The report " + saver_.Commit());
    if (cases_ == nullptr) Fail();
  }

  void Add(const Exchange& exchange) override {
    ++count_;
    milliseconds_ += exchange.milliseconds;
    std::string text = "  <testcase classname=\"vantrel-send\" name=\"" +
                       XmlText(CaseName(exchange)) + "\" time=\"" + Seconds(exchange.milliseconds) +
                       "\"";
    if (exchange.is_success) {
      text += "/>\n";
    } else {
      ++failures_;
      text += ">\n    <failure message=\"" + XmlText(exchange.meaning) + "\" type=\"" +
              std::string(NameOf(exchange.outcome)) + "\">sent " + Pairs(exchange.sent) +
              "; received " + Pairs(exchange.received) + "</failure>\n  </testcase>\n";
    }
    if (std::fwrite(text.data(), 1, text.size(), cases_.get()) != text.size()) Fail();
  }

  void Finish() override {
    saver_.Write(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuite name=\"vantrel-send\" tests=\"" +
        std::to_string(count_) + "\" failures=\"" + std::to_string(failures_) +
        "\" errors=\"0\" skipped=\"0\" time=\"" + Seconds(milliseconds_) + "\">\n");
    CopyCases();
    saver_.Write("</testsuite>\n");
    if (const std::string error = saver_.Commit(); !error.empty())
      throw ReportError("The report " + error);
  }

 private:
  [[noreturn]] static void Fail() {
    throw ReportError(std::string("The report cannot be kept until its end: ") +
                      std::strerror(errno) + ".");
  }

  void CopyCases() {
    std::rewind(cases_.get());
    std::array<char, 65536> part{};
    while (const std::size_t count = std::fread(part.data(), 1, part.size(), cases_.get()))
      saver_.Write({part.data(), count});
    if (std::ferror(cases_.get()) != 0) Fail();
  }

  log::FileSaver saver_;
  std::unique_ptr<FILE, int (*)(FILE*)> cases_;
  long count_ = 0;
  long failures_ = 0;
  double milliseconds_ = 0;
};

}  // namespace

std::unique_ptr<Report> OpenReport(const std::string& path, bool continues) {
  RefuseOtherThanRegular(path);
  if (path.ends_with(".xml")) return std::make_unique<JUnitReport>(path);
  return std::make_unique<JsonReport>(path, continues);
}

}  // namespace vantrel::send
