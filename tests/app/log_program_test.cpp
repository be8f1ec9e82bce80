// SPDX-License-Identifier: MIT

// The built program for captures.

#include "log/capture_writer.h"
#include "tests/support/wait_for.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

namespace vantrel::app {
namespace {

using namespace std::chrono_literals;
using protocol::Direction;

// A row as the direction and its bytes in hex.
struct Row {
  Direction direction;
  const char* hex;
};
using Rows = std::vector<Row>;

constexpr Direction kTo = Direction::kFromConsole;
constexpr Direction kFrom = Direction::kFromPrinter;

class LogProgramTest : public testing::Test {
 protected:
  ~LogProgramTest() override {
    if (program_.state() == QProcess::NotRunning) return;
    program_.kill();
    program_.waitForFinished();
  }

  QString Path(const char* name) const { return folder_.filePath(name); }
  // Makes a capture, or adds to the one that is there, and returns its path.
  QString Write(const char* name, const Rows& rows, bool adds = false) const {
    std::string bytes = adds ? "" : log::CaptureStart({});
    for (const Row& row : rows)
      log::AppendPacket(bytes, {log::WallTime(1795266005s), row.direction,
                                QByteArray::fromHex(row.hex).toStdString(), ""});
    QFile file(Path(name));
    EXPECT_TRUE(file.open(adds ? QIODevice::Append : QIODevice::WriteOnly));
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    return Path(name);
  }
  void Start(const QStringList& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("TZ", "UTC");
    program_.setProcessEnvironment(environment);
    program_.start(VANTREL_PROGRAMS "/vantrel-log", arguments);
  }
  // Runs it to its end and returns its status; -1 when it does not end of itself.
  int Run(const QStringList& arguments) {
    Start(arguments);
    if (!program_.waitForFinished() || program_.exitStatus() != QProcess::NormalExit) return -1;
    return program_.exitCode();
  }
  std::string Out() { return program_.readAllStandardOutput().toStdString(); }
  std::string Errors() { return program_.readAllStandardError().toStdString(); }
  // How far the running program has read a file; -1 where it has not opened it.
  qint64 HasRead(const QString& path) const {
    const QString process = "/proc/" + QString::number(program_.processId());
    for (const QString& number : QDir(process + "/fd").entryList(QDir::Files | QDir::System)) {
      if (QFile::symLinkTarget(process + "/fd/" + number) != path) continue;
      QFile info(process + "/fdinfo/" + number);
      if (info.open(QIODevice::ReadOnly))
        return info.readLine().mid(4).trimmed().toLongLong();  // "pos:	96"
    }
    return -1;
  }
  bool ReadsAll(const QString& path) const {
    return support::WaitFor([&] { return HasRead(path) == QFileInfo(path).size(); });
  }

  QTemporaryDir folder_;
  QProcess program_;
};

TEST_F(LogProgramTest, ShowsACapture) {
  EXPECT_EQ(Run({"show", Write("a.pcapng", {{kTo, "02210322"}, {kFrom, "06"}})}), 0);
  EXPECT_EQ(Out(),
            "2026-11-21 13:00:05.000  received  02 21 03 22  21h first track read\n"
            "2026-11-21 13:00:05.000  sent      06  06h acknowledge\n");
  EXPECT_EQ(Errors(), "");
}

TEST_F(LogProgramTest, SaysThatNobodyTakesWhatItShows) {
  program_.setStandardOutputFile("/dev/full");
  EXPECT_EQ(Run({"show", Write("a.pcapng", {{kTo, "02210322"}})}), 1);
  EXPECT_EQ(Errors(), "vantrel-log: standard output cannot be written.\n");
}

// Two captures that differ in one field each, and the one line that tells it.
TEST_F(LogProgramTest, TellsADeliberateDifferenceInEachFieldOnce) {
  // 5Ah with "1", acknowledged; 21h, acknowledged, with the normal status and "A".
  const Rows good{{kTo, "025A310368"}, {kFrom, "06"}, {kFrom, "025A200379"},
                  {kTo, "02210322"},   {kFrom, "06"}, {kFrom, "022120410343"},
                  {kTo, "0258035B"},   {kFrom, "06"}, {kFrom, "025820037B"}};
  const QString a = Write("a.pcapng", good);
  struct Case {
    std::size_t row;
    const char* hex;  // null for a row that is not there
    const char* line;
    const char* json;
  };
  for (const Case& difference :
       std::vector<Case>{{0, "025A32036B", "exchange 1, 5Ah: data \"2\" instead of \"1\"",
                          R"({"exchange":1,"command":"5A","field":"data","a":"31","b":"32"})"},
                         {4, "10", "exchange 2, 21h: controls 10h instead of 06h",
                          R"({"exchange":2,"command":"21","field":"controls","a":"06","b":"10"})"},
                         {5, "022122410341", "exchange 2, 21h: status 22h instead of 20h",
                          R"({"exchange":2,"command":"21","field":"status","a":"20","b":"22"})"},
                         {5, "022120420340", "exchange 2, 21h: reply data \"B\" instead of \"A\"",
                          R"({"exchange":2,"command":"21","field":"replyData","a":"41","b":"42"})"},
                         {5, "022120410344", "exchange 2, 21h: check bad instead of good",
                          R"({"exchange":2,"command":"21","field":"check","a":"good","b":"bad"})"},
                         {8, nullptr, "exchange 3, 58h: status none instead of 20h",
                          R"({"exchange":3,"command":"58","field":"status","a":"20","b":null})"}}) {
    Rows other = good;
    if (difference.hex == nullptr)
      other.erase(other.begin() + static_cast<std::ptrdiff_t>(difference.row));
    else
      other[difference.row].hex = difference.hex;
    const QString b = Write("b.pcapng", other);
    EXPECT_EQ(Run({"compare", a, b}), 1);
    EXPECT_EQ(Out(), std::string(difference.line) + '\n');
    EXPECT_EQ(Run({"compare", "--json", a, b}), 1);
    EXPECT_EQ(Out(), std::string(difference.json) + '\n');
    EXPECT_EQ(Errors(), "");
  }
  // A command that is another one stands alone on either side.
  Rows other = good;
  other[6].hex = "0259035A";
  other[8].hex = "025920037A";
  EXPECT_EQ(Run({"compare", a, Write("b.pcapng", other)}), 1);
  EXPECT_EQ(Out(), "exchange 3, 58h: missing in B\nexchange 4, 59h: only in B\n");
  EXPECT_EQ(Run({"compare", a, Write("b.pcapng", good)}), 0);
  EXPECT_EQ(Out(), "");
  EXPECT_EQ(Run({"compare", a, Path("none")}), 2);
}

TEST_F(LogProgramTest, ConvertsThereAndBack) {
  const QString a = Write("a.pcapng", {{kTo, "02210322"}, {kFrom, "06"}, {kFrom, "FF00"}});
  ASSERT_EQ(Run({"convert", a, Path("b.csv")}), 0);
  ASSERT_EQ(Run({"convert", Path("b.csv"), Path("c.PCAPNG")}), 0);
  ASSERT_EQ(Run({"show", "--json", a}), 0);
  const std::string rows = Out();
  ASSERT_EQ(Run({"show", "--json", Path("c.PCAPNG")}), 0);
  EXPECT_EQ(Out(), rows);
  EXPECT_EQ(Run({"convert", a, Path("d.doc")}), 2);
  EXPECT_FALSE(QFile::exists(Path("d.doc")));
}

TEST_F(LogProgramTest, ViewsACaptureAndFollowsItAsItGrows) {
  const QString path = Write("a.pcapng", {{kTo, "02210322"}});
  Start({"view", path});
  EXPECT_TRUE(ReadsAll(path));
  Write("a.pcapng", {{kFrom, "06"}}, true);
  EXPECT_TRUE(ReadsAll(path));
  program_.terminate();
  EXPECT_TRUE(program_.waitForFinished());
  EXPECT_EQ(Out(), "");
}

TEST_F(LogProgramTest, ViewsTwoCaptures) {
  const QString a = Write("a.pcapng", {{kTo, "02210322"}});
  const QString b = Write("b.pcapng", {{kTo, "02220321"}});
  Start({"view", a, b});
  EXPECT_TRUE(ReadsAll(a));
  EXPECT_TRUE(ReadsAll(b));
}

TEST_F(LogProgramTest, SaysThatTheProgramWithItsWindowIsNotThere) {
  // As where nothing with windows is installed.
  ASSERT_TRUE(QDir(folder_.path()).mkpath("bin"));
  const QString alone = Path("bin/vantrel-log");
  ASSERT_TRUE(QFile::copy(VANTREL_PROGRAMS "/vantrel-log", alone));
  const QString path = Write("a.pcapng", {{kTo, "02210322"}});
  program_.start(alone, {"view", path});
  ASSERT_TRUE(program_.waitForFinished());
  EXPECT_EQ(program_.exitCode(), 1);
  EXPECT_EQ(program_.readAllStandardError(),
            "vantrel-log: the window's program " +
                QFileInfo(folder_.path()).canonicalFilePath().toUtf8() +
                "/libexec/vantrel/vantrel-log-window is not installed; it is in the package "
                "vantrel, which has all windows; show needs none.\n");
  program_.start(alone, {"show", path});
  ASSERT_TRUE(program_.waitForFinished());
  EXPECT_EQ(program_.exitCode(), 0);
}

TEST_F(LogProgramTest, TellsWrongUse) {
  for (const QStringList& arguments : {QStringList{},
                                       {"view"},
                                       {"view", "a", "b", "c"},
                                       {"show"},
                                       {"compare", "a"},
                                       {"convert", "a"},
                                       {"show", "a", "b"},
                                       {"view", "--json", "a"},
                                       {"print"}})
    EXPECT_EQ(Run(arguments), 2) << arguments.join(' ').toStdString();
}

}  // namespace
}  // namespace vantrel::app
