// SPDX-License-Identifier: MIT

#include "log/file_saver.h"

#include "tests/support/file_folder.h"
#include "tests/support/file_limits.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace vantrel::log {
namespace {

class FileSaverTest : public testing::Test {
 protected:
  // A group that this process is in, another than its own where there is one.
  static gid_t LastGroup() {
    std::vector<gid_t> groups(static_cast<std::size_t>(std::max(0, getgroups(0, nullptr))));
    const int count = getgroups(static_cast<int>(groups.size()), groups.data());
    return count > 0 ? groups.at(static_cast<std::size_t>(count) - 1) : getegid();
  }

  // Whether a file without a name can be made in the folder.
  bool HasFilesWithoutName() const {
    const int file = open(folder_.Path("").c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, 0600);
    if (file >= 0) close(file);
    return file >= 0;
  }

  support::FileFolder folder_;
};

TEST_F(FileSaverTest, MakesAFileWithTheModeOfTheUsersMask) {
  const mode_t found = umask(027);
  EXPECT_EQ(ReplaceFile(folder_.Path("new"), "bytes\n"), "");
  umask(found);
  EXPECT_EQ(folder_.Contents("new"), "bytes\n");
  EXPECT_EQ(folder_.ModeOf("new"), 0640U);
  EXPECT_EQ(folder_.Count(), 1U);
}

TEST_F(FileSaverTest, KeepsTheModeOfAFile) {
  folder_.Make("kept", "old and longer");
  for (const mode_t mode : {0600U, 0664U, 0640U, 02640U}) {
    ASSERT_EQ(chmod(folder_.Path("kept").c_str(), mode), 0);
    EXPECT_EQ(ReplaceFile(folder_.Path("kept"), "new"), "");
    EXPECT_EQ(folder_.ModeOf("kept"), mode);
    EXPECT_EQ(folder_.Contents("kept"), "new");
  }
}

// Only the superuser gives files to anybody; others give theirs to a group that they are in.
TEST_F(FileSaverTest, KeepsTheOwnerOfAFile) {
  const bool is_superuser = geteuid() == 0;
  const uid_t owner = is_superuser ? 1234 : geteuid();
  const gid_t group = is_superuser ? 2345 : LastGroup();
  folder_.Make("kept", "old");
  ASSERT_EQ(chown(folder_.Path("kept").c_str(), owner, group), 0);
  EXPECT_EQ(ReplaceFile(folder_.Path("kept"), "new"), "");
  struct stat found {};
  ASSERT_EQ(stat(folder_.Path("kept").c_str(), &found), 0);
  EXPECT_EQ(found.st_uid, owner);
  EXPECT_EQ(found.st_gid, group);
}

TEST_F(FileSaverTest, FollowsALinkAndLeavesIt) {
  folder_.Make("target", "old");
  folder_.Link("target", "first");
  folder_.Link(folder_.Path("first"), "second");
  EXPECT_EQ(ReplaceFile(folder_.Path("second"), "new"), "");
  EXPECT_EQ(folder_.Contents("target"), "new");
  EXPECT_EQ(folder_.LinkTarget("first"), "target");
  EXPECT_EQ(folder_.LinkTarget("second"), folder_.Path("first"));
}

TEST_F(FileSaverTest, MakesWhatALinkLeadsTo) {
  folder_.Link("target", "link");
  EXPECT_EQ(ReplaceFile(folder_.Path("link"), "new"), "");
  EXPECT_EQ(folder_.Contents("target"), "new");
  EXPECT_EQ(folder_.LinkTarget("link"), "target");
}

TEST_F(FileSaverTest, RefusesLinksInACircle) {
  folder_.Link("a", "b");
  folder_.Link("b", "a");
  EXPECT_EQ(ReplaceFile(folder_.Path("a"), "new"),
            folder_.Path("a") + " was not saved: Too many levels of symbolic links.");
}

TEST_F(FileSaverTest, RefusesWhatIsNoRegularFile) {
  EXPECT_EQ(ReplaceFile("/dev/null", "new"), "/dev/null was not saved: it is a device.");
  EXPECT_EQ(ReplaceFile("/dev/full", "new"), "/dev/full was not saved: it is a device.");
  folder_.Link("/dev/null", "link");
  EXPECT_EQ(ReplaceFile(folder_.Path("link"), "new"),
            folder_.Path("link") + " was not saved: it is a device.");
  ASSERT_EQ(mkfifo(folder_.Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(ReplaceFile(folder_.Path("pipe"), "new"),
            folder_.Path("pipe") + " was not saved: it is a pipe.");
  EXPECT_EQ(ReplaceFile(folder_.Path(""), "new"),
            folder_.Path("") + " was not saved: it is a folder.");
  struct stat found {};
  ASSERT_EQ(stat("/dev/null", &found), 0);
  EXPECT_TRUE(S_ISCHR(found.st_mode));
  ASSERT_EQ(stat(folder_.Path("pipe").c_str(), &found), 0);
  EXPECT_TRUE(S_ISFIFO(found.st_mode));
}

TEST_F(FileSaverTest, LeavesFilesOfSimilarNamesAlone) {
  folder_.Make("line.txt.part", "the user's");
  EXPECT_EQ(ReplaceFile(folder_.Path("line.txt"), "new"), "");
  EXPECT_EQ(folder_.Contents("line.txt.part"), "the user's");
  EXPECT_EQ(folder_.Count(), 2U);
}

TEST_F(FileSaverTest, SaysThatThereIsNoFolder) {
  EXPECT_EQ(ReplaceFile(folder_.Path("missing/file"), "new"),
            folder_.Path("missing/file") + " was not saved: No such file or directory.");
}

TEST_F(FileSaverTest, LeavesWhatWasThereWhereTheFolderIsReadOnly) {
  folder_.Make("kept", "old");
  ASSERT_EQ(chmod(folder_.Path("kept").c_str(), 0666), 0);
  ASSERT_EQ(chmod(folder_.Path("").c_str(), 0555), 0);
  {
    const support::OtherUser other;
    EXPECT_EQ(ReplaceFile(folder_.Path("kept"), "new"),
              folder_.Path("kept") + " was not saved: Permission denied.");
  }
  ASSERT_EQ(chmod(folder_.Path("").c_str(), 0755), 0);
  EXPECT_EQ(folder_.Contents("kept"), "old");
}

TEST_F(FileSaverTest, RefusesAFileThatMayNotBeWrittenInAFolderThatMay) {
  folder_.Make("kept", "old");
  ASSERT_EQ(chmod(folder_.Path("kept").c_str(), 0444), 0);
  ASSERT_EQ(chmod(folder_.Path("").c_str(), 0777), 0);
  {
    const support::OtherUser other;
    EXPECT_EQ(ReplaceFile(folder_.Path("kept"), "new"),
              folder_.Path("kept") + " was not saved: Permission denied.");
  }
  EXPECT_EQ(folder_.Contents("kept"), "old");
}

TEST_F(FileSaverTest, LeavesWhatWasThereWhereThereIsNoRoom) {
  folder_.Make("kept", "old");
  {
    const support::SizeLimit limit(100000);
    EXPECT_EQ(ReplaceFile(folder_.Path("kept"), std::string(200000, 'x')),
              folder_.Path("kept") + " was not saved: File too large.");
  }
  EXPECT_EQ(folder_.Contents("kept"), "old");
  EXPECT_EQ(folder_.Count(), 1U);
}

TEST_F(FileSaverTest, LeavesWhatWasThereWithoutCommit) {
  folder_.Make("kept", "old");
  {
    FileSaver file(folder_.Path("kept"));
    EXPECT_TRUE(file.Write(std::string(200000, 'x')));
  }
  EXPECT_EQ(folder_.Contents("kept"), "old");
  EXPECT_EQ(folder_.Count(), 1U);
}

TEST_F(FileSaverTest, LeavesNothingWhereItIsKilled) {
  folder_.Make("kept", "old");
  const pid_t child = fork();
  if (child == 0) {
    FileSaver file(folder_.Path("kept"));
    // More than is kept back, so that some of it has been written.
    file.Write(std::string(200000, 'x'));
    raise(SIGKILL);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
  EXPECT_EQ(folder_.Contents("kept"), "old");
  // Where the file system has no files without a name, the one beside has one, and stays.
  EXPECT_EQ(folder_.Count(), HasFilesWithoutName() ? 1U : 2U);
}

TEST_F(FileSaverTest, NamesAFileThatReplacesAnotherAndOneThatIsNew) {
  folder_.Make("kept", "old and longer");
  ASSERT_EQ(chmod(folder_.Path("kept").c_str(), 0640), 0);
  for (const char* name : {"kept", "new"})
    for (const auto beside : {FileSaver::Beside::kWithoutName, FileSaver::Beside::kNamed}) {
      FileSaver file(folder_.Path(name), beside);
      EXPECT_TRUE(file.Write(name));
      EXPECT_EQ(file.Commit(), "");
      EXPECT_EQ(folder_.Contents(name), name);
    }
  EXPECT_EQ(folder_.ModeOf("kept"), 0640U);
  EXPECT_EQ(folder_.Count(), 2U);
}

// As where the file system has no files without a name.
TEST_F(FileSaverTest, LeavesWhatWasThereWithoutCommitOfANamedFile) {
  folder_.Make("kept", "old");
  {
    FileSaver file(folder_.Path("kept"), FileSaver::Beside::kNamed);
    EXPECT_TRUE(file.Write(std::string(200000, 'x')));
    EXPECT_EQ(folder_.Count(), 2U);
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path(""))) {
      const std::string name = entry.path().filename();
      EXPECT_TRUE(name == "kept" || folder_.ModeOf(name) == 0600U) << name;
    }
  }
  EXPECT_EQ(folder_.Contents("kept"), "old");
  EXPECT_EQ(folder_.Count(), 1U);
}

TEST_F(FileSaverTest, SavesInTheFolderOfTheProcessByABareName) {
  const std::string found = std::filesystem::current_path();
  std::filesystem::current_path(folder_.Path(""));
  EXPECT_EQ(ReplaceFile("bare", "new"), "");
  std::filesystem::current_path(found);
  EXPECT_EQ(folder_.Contents("bare"), "new");
  EXPECT_EQ(folder_.Count(), 1U);
}

TEST_F(FileSaverTest, TakesAStream) {
  FileSaver file(folder_.Path("new"));
  FileSaverBuffer buffer(file);
  std::ostream out(&buffer);
  for (int i = 0; i < 20000; ++i) out << "line " << i << '\n';
  EXPECT_TRUE(out.good());
  EXPECT_EQ(file.Commit(), "");
  const std::string contents = folder_.Contents("new");
  EXPECT_TRUE(contents.starts_with("line 0\nline 1\n"));
  EXPECT_TRUE(contents.ends_with("line 19998\nline 19999\n"));
  EXPECT_EQ(contents.size(), 208890U);
}

TEST_F(FileSaverTest, TurnsAStreamBadWhereItFails) {
  FileSaver file("/dev/null");
  FileSaverBuffer buffer(file);
  std::ostream out(&buffer);
  out << "line\n";
  EXPECT_FALSE(out.good());
}

}  // namespace
}  // namespace vantrel::log
