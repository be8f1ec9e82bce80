// SPDX-License-Identifier: MIT

#include "log/capture_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace vantrel::log {
namespace {

constexpr std::size_t kPortion = 262144;

[[noreturn]] void Fail(const std::string& path, int error) {
  throw std::runtime_error(path + " cannot be read: " + std::strerror(error) + '.');
}

}  // namespace

CaptureFile::CaptureFile(std::string path)
    : path_(std::move(path)),
      descriptor_(open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY)),
      portion_(kPortion) {
  if (descriptor_ < 0) Fail(path_, errno);
}

CaptureFile::~CaptureFile() { close(descriptor_); }

bool CaptureFile::Read(std::vector<LogEntry>& rows) {
  ssize_t count = 0;
  do {
    count = read(descriptor_, portion_.data(), portion_.size());
  } while (count < 0 && errno == EINTR);
  if (count < 0) Fail(path_, errno);
  if (count == 0) return false;
  position_ += static_cast<std::uint64_t>(count);
  try {
    reader_.Feed(std::span(portion_).first(static_cast<std::size_t>(count)), rows);
  } catch (const std::runtime_error& refusal) {
    throw std::runtime_error(path_ + ' ' + refusal.what() + '.');
  }
  return true;
}

std::uint64_t CaptureFile::Size() const {
  struct stat status {};
  if (fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode)) return 0;
  return static_cast<std::uint64_t>(status.st_size);
}

std::vector<std::string> CaptureFile::Sentences(std::vector<std::string> parts) const {
  for (std::string& part : parts) {
    part.insert(0, path_ + ' ');
    part += '.';
  }
  return parts;
}

std::vector<LogEntry> ReadCapture(const std::string& path, std::vector<std::string>& damage) {
  CaptureFile file(path);
  std::vector<LogEntry> rows;
  while (file.Read(rows)) {
  }
  file.End(rows);
  damage = file.Damage();
  return rows;
}

}  // namespace vantrel::log
