// SPDX-License-Identifier: MIT

#include "log/file_saver.h"

#include "log/nameless_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

namespace vantrel::log {
namespace {

constexpr int kMostLinks = 40;
constexpr int kMostNames = 1000;
constexpr std::size_t kBlock = 65536;

// The path up to its last slash, that included; empty without one.
std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string_view KindInWords(mode_t mode) {
  if (S_ISDIR(mode)) return "it is a folder";
  if (S_ISFIFO(mode)) return "it is a pipe";
  if (S_ISSOCK(mode)) return "it is a socket";
  return "it is a device";
}

// The name that the system has for what is there, without links; empty, and errno set, on failure.
std::string RealPath(const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
  return real ? std::string(real.get()) : std::string();
}

}  // namespace

FileSaver::FileSaver(std::string path, Beside beside) : path_(std::move(path)) {
  FindTarget();
  if (!HasFailed()) MakePart(beside);
}

FileSaver::~FileSaver() { Abandon(); }

void FileSaver::FindTarget() {
  struct stat found {};
  if (stat(path_.c_str(), &found) == 0) {
    exists_ = true;
    mode_ = found.st_mode;
    user_ = found.st_uid;
    group_ = found.st_gid;
    if (!S_ISREG(mode_)) return Fail(std::string(KindInWords(mode_)));
    target_ = RealPath(path_);
    return target_.empty() ? FailBySystem() : CheckTarget();
  }
  if (errno != ENOENT) return FailBySystem();
  FollowLinks();
}

// A link that leads nowhere yet: what it leads to is to be made.
void FileSaver::FollowLinks() {
  target_ = path_;
  for (int i = 0; i < kMostLinks; ++i) {
    std::array<char, PATH_MAX> next{};
    const ssize_t length = readlink(target_.c_str(), next.data(), next.size());
    if (length < 0) return;
    const std::string leads_to(next.data(), static_cast<std::size_t>(length));
    target_ = leads_to.starts_with('/') ? leads_to : FolderOf(target_) + leads_to;
  }
  errno = ELOOP;
  FailBySystem();
}

// A file that may not be written is not to be replaced either, even where its folder allows it.
void FileSaver::CheckTarget() {
  const int probe = open(target_.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
  if (probe < 0) return FailBySystem();
  close(probe);
}

void FileSaver::MakePart(Beside beside) {
  // Nobody may read for a moment what was closed to him before.
  const mode_t mode = exists_ ? mode_t{S_IRUSR | S_IWUSR} : mode_t{0666};
  if (beside == Beside::kWithoutName) {
    descriptor_ = OpenNamelessFile(FolderOf(target_) + '.', mode);
    if (descriptor_ >= 0) return;
    // Where it cannot be made or could not be named, the other way tells what is wrong.
  }
  UnderUnusedName([&] {
    descriptor_ = open(part_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    return descriptor_;
  });
}

void FileSaver::NamePart() {
  UnderUnusedName([this] { return NameFile(descriptor_, part_); });
}

template <typename Make>
void FileSaver::UnderUnusedName(const Make& make) {
  static std::atomic<unsigned> made{0};
  for (int i = 0; i < kMostNames; ++i) {
    part_ = FolderOf(target_) + ".vantrel-" + std::to_string(getpid()) + '-' +
            std::to_string(made.fetch_add(1));
    if (make() >= 0) return;
    if (errno != EEXIST) break;
  }
  part_.clear();
  FailBySystem();
}

bool FileSaver::Write(std::string_view bytes) {
  if (HasFailed()) return false;
  pending_ += bytes;
  return pending_.size() < kBlock || Flush();
}

bool FileSaver::Flush() {
  std::string_view left = pending_;
  while (!HasFailed() && !left.empty()) {
    const ssize_t count = write(descriptor_, left.data(), left.size());
    if (count >= 0)
      left.remove_prefix(static_cast<std::size_t>(count));
    else if (errno != EINTR)
      FailBySystem();
  }
  pending_.clear();
  return !HasFailed();
}

void FileSaver::HandOn() {
  struct stat made {};
  if (fstat(descriptor_, &made) != 0) return FailBySystem();
  const bool same_owner = made.st_uid == user_ && made.st_gid == group_;
  if (!same_owner && fchown(descriptor_, user_, group_) != 0)
    return Fail("its owner could not be kept");
  if (fchmod(descriptor_, mode_ & mode_t{07777}) != 0) FailBySystem();
}

std::string FileSaver::Commit() {
  if (Flush() && exists_) HandOn();
  if (!HasFailed() && fsync(descriptor_) != 0) FailBySystem();
  if (!HasFailed() && part_.empty()) NamePart();
  if (!HasFailed() && close(std::exchange(descriptor_, -1)) != 0) FailBySystem();
  if (!HasFailed() && std::rename(part_.c_str(), target_.c_str()) != 0) FailBySystem();
  if (HasFailed()) {
    Abandon();
    return path_ + " was not saved: " + error_ + '.';
  }
  part_.clear();
  return {};
}

void FileSaver::Fail(const std::string& reason) {
  if (!HasFailed()) error_ = reason;
}

void FileSaver::FailBySystem() { Fail(std::strerror(errno)); }

void FileSaver::Abandon() {
  if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
  if (!part_.empty()) unlink(std::exchange(part_, {}).c_str());
}

std::streamsize FileSaverBuffer::xsputn(const char* text, std::streamsize count) {
  return saver_.Write({text, static_cast<std::size_t>(count)}) ? count : 0;
}

FileSaverBuffer::int_type FileSaverBuffer::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(0);
  const char text = traits_type::to_char_type(character);
  return saver_.Write({&text, 1}) ? character : traits_type::eof();
}

std::string ReplaceFile(const std::string& path, std::string_view bytes) {
  FileSaver file(path);
  file.Write(bytes);
  return file.Commit();
}

}  // namespace vantrel::log
