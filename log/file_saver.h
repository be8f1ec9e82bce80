// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <streambuf>
#include <string>
#include <string_view>

namespace vantrel::log {

// Writes a file whole or not at all: what is written goes to another file in the same folder, which
// takes its place at the end. Until then that file has no name, so that a program that is killed
// leaves nothing behind; where the file system has no such files it has a name of its own,
// ".vantrel-PID-N".
//
// Where the path is a link, the link stays and what it leads to is replaced, or made. A file that
// was there hands on its mode and its owner. What is there and is no regular file, or may not be
// written, is refused.
class FileSaver {
 public:
  enum class Beside { kWithoutName, kNamed };

  // Begins to save. What goes wrong from here on is told by Commit. With kNamed the file beside has
  // a name from the beginning, as it has where the file system knows no other.
  explicit FileSaver(std::string path, Beside beside = Beside::kWithoutName);
  // Without a successful Commit, what was there is as it was.
  ~FileSaver();
  FileSaver(const FileSaver&) = delete;
  FileSaver& operator=(const FileSaver&) = delete;

  // Adds bytes to the end. Returns false once anything has gone wrong; nothing is written then.
  bool Write(std::string_view bytes);
  // Puts the file in place, once. Returns an empty text, or why it was not saved:
  // "PATH was not saved: No such file or directory.".
  std::string Commit();

 private:
  // Each of these keeps the first reason in `error_`.
  void FindTarget();
  void FollowLinks();
  void CheckTarget();
  void MakePart(Beside beside);
  // Makes a file under an unused name in `part_`; `make` returns -1, and sets errno, where it
  // cannot.
  template <typename Make>
  void UnderUnusedName(const Make& make);
  // Gives a name to a file that has none.
  void NamePart();
  bool Flush();
  void HandOn();
  void Fail(const std::string& reason);
  void FailBySystem();
  bool HasFailed() const { return !error_.empty(); }
  void Abandon();

  std::string path_;
  std::string target_;  // where the links lead
  std::string part_;    // the name of what is written to; empty where there is none to remove
  int descriptor_ = -1;
  std::string pending_;
  bool exists_ = false;
  // Of the file that was there.
  mode_t mode_ = 0;
  uid_t user_ = 0;
  gid_t group_ = 0;
  std::string error_;
};

// Has a stream write to a saver, which must outlive it. The stream turns bad where the saver fails.
class FileSaverBuffer : public std::streambuf {
 public:
  explicit FileSaverBuffer(FileSaver& saver) : saver_(saver) {}

 protected:
  std::streamsize xsputn(const char* text, std::streamsize count) override;
  int_type overflow(int_type character) override;

 private:
  FileSaver& saver_;
};

// Saves these bytes as a file. Returns an empty text, or why it was not saved, as Commit does.
std::string ReplaceFile(const std::string& path, std::string_view bytes);

}  // namespace vantrel::log
