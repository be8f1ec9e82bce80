// SPDX-License-Identifier: MIT

#include "log/capture_file.h"
#include "tests/send/send_program.h"
#include "tests/support/patience.h"

#include <QFile>
#include <QXmlStreamReader>

#include <sys/stat.h>

#include <csignal>

namespace vantrel::send {
namespace {

class Reports : public SendProgram {
 protected:
  static QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
  }
  // The cases of a JUnit report as "name" or "name: type of its failure".
  static QStringList Cases(const QString& path) {
    QXmlStreamReader xml(Contents(path));
    QStringList cases;
    while (!xml.atEnd()) {
      xml.readNext();
      if (!xml.isStartElement()) continue;
      if (xml.name() == QString("testcase")) cases += xml.attributes().value("name").toString();
      if (xml.name() == QString("failure"))
        cases.back() += ": " + xml.attributes().value("type").toString();
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return cases;
  }

  const QString json_ = folder_.filePath("report.json");
  const QString xml_ = folder_.filePath("report.xml");
};

TEST_F(Reports, HaveOneObjectALine) {
  Begin();
  const Ended ended = Send({"-", "--json", "--report", json_, "--keep-going"}, "58\n99\n25\n");
  EXPECT_EQ(Contents(json_), ended.out);
  EXPECT_EQ(Objects(Contents(json_)).size(), 3U);
  // A report that is there is replaced.
  EXPECT_EQ(Send({"58", "--report", json_}).status, 0);
  EXPECT_EQ(Objects(Contents(json_)).size(), 1U);
}

TEST_F(Reports, AreContinued) {
  Begin();
  ASSERT_EQ(Ask("fault reject after 2"), "ok");
  EXPECT_EQ(Send({"-", "--report", json_}, "58\n40\n95\n").status, 1);
  EXPECT_EQ(Send({"-", "--report", json_, "--from", "2"}, "58\n40\n95\n").status, 0);
  QStringList lines;
  for (const QJsonObject& object : Objects(Contents(json_)))
    lines += QString::number(object["line"].toInt()) + object["outcome"].toString();
  EXPECT_EQ(lines, QStringList({"1reply", "2reject", "2reply", "3reply"}));
}

TEST_F(Reports, AreThereBeforeTheNextExchange) {
  Begin();
  auto process = StartSending({"-", "--quiet", "--report", json_});
  process->write("58\n");
  while (!process->canReadLine() && process->waitForReadyRead(support::kPatience)) continue;
  EXPECT_EQ(Objects(Contents(json_)).size(), 1U);
  process->closeWriteChannel();
  EXPECT_EQ(EndOf(*process).status, 0);
}

TEST_F(Reports, AreJUnitWhereThePathSaysSo) {
  Begin();
  EXPECT_EQ(Send({"-", "--report", xml_, "--keep-going"}, "58\n25\n41 <&\"\n40\n").status, 1);
  EXPECT_EQ(Cases(xml_),
            QStringList({"58 line 1", "25 line 2: reply", "refused line 3: refused", "40 line 4"}));
  EXPECT_TRUE(Contents(xml_).contains("tests=\"4\" failures=\"2\" errors=\"0\""));
  EXPECT_EQ(Send({"58", "--repeat", "2", "--report", xml_}).status, 0);
  EXPECT_EQ(Cases(xml_), QStringList({"58 round 1", "58 round 2"}));
}

TEST_F(Reports, AreWholeAfterASignal) {
  Begin();
  auto process = StartSending({"-", "--quiet", "--report", xml_});
  process->write("58\n");
  while (!process->canReadLine() && process->waitForReadyRead(support::kPatience)) continue;
  EXPECT_FALSE(QFile::exists(xml_));
  kill(static_cast<pid_t>(process->processId()), SIGTERM);
  EXPECT_EQ(EndOf(*process).status, 130);
  EXPECT_EQ(Cases(xml_), QStringList{"58 line 1"});
}

TEST_F(Reports, AreWholeWhenStandardOutputIsClosed) {
  Begin();
  for (const QString& path : {xml_, json_}) {
    QProcess shell;
    shell.start("sh", {"-c", "printf '58\\n40\\n' | " + QString(VANTREL_SEND_PROGRAM) + " --port " +
                                 device_ + " --report " + path + " - >/dev/full"});
    const Ended ended = EndOf(shell);
    EXPECT_EQ(ended.status, 1);
    // The first has been done, so that it need not be done again.
    EXPECT_EQ(ended.errors,
              "vantrel-send: Standard output cannot be written: No space left on device.\n"
              "vantrel-send: Stopped at line 1; go on with --from 2.\n");
  }
  EXPECT_EQ(Cases(xml_), QStringList{"58 line 1"});
  EXPECT_EQ(Objects(Contents(json_)).size(), 1U);
}

TEST_F(Reports, AreWrittenForRoundsThatBeginLater) {
  Begin();
  EXPECT_EQ(Send({"-", "--repeat", "2", "--from", "2", "--report", xml_}, "58\n40\n").status, 0);
  EXPECT_EQ(Cases(xml_),
            QStringList({"40 line 2 round 1", "58 line 1 round 2", "40 line 2 round 2"}));
}

TEST_F(Reports, KeepALineThatWasCutApart) {
  Begin();
  QFile file(json_);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("{\"line\":1,\"comm");
  file.close();
  EXPECT_EQ(Send({"-", "--report", json_, "--from", "2"}, "58\n40\n").status, 0);
  const auto lines = Contents(json_).split('\n');
  ASSERT_EQ(lines.size(), 3);
  EXPECT_EQ(lines[0], "{\"line\":1,\"comm");
  EXPECT_EQ(Objects(lines[1]).at(0)["line"].toInt(), 2);
}

TEST_F(Reports, CountTheFailuresOfExpectations) {
  Begin();
  EXPECT_EQ(Send({"-", "--report", xml_, "--expect", "22", "--keep-going"}, "25\n58\n").status, 1);
  EXPECT_EQ(Cases(xml_), QStringList({"25 line 1", "58 line 2: reply"}));
}

TEST_F(Reports, AreWholeWhenTheDeviceGoes) {
  Begin();
  ASSERT_EQ(Ask("fault vanish after 2"), "ok");
  EXPECT_EQ(Send({"-", "--report", xml_}, "58\n58\n").status, 5);
  EXPECT_EQ(Cases(xml_), QStringList({"58 line 1", "58 line 2: failed"}));
}

TEST_F(Reports, HaveACaptureOfTheLineBesideThem) {
  Begin();
  const QString path = folder_.filePath("line.pcapng");
  EXPECT_EQ(Send({"-", "--capture", path}, "40\n25 --expect 22\n").status, 0);
  std::vector<std::string> damage;
  const auto rows = log::ReadCapture(path.toStdString(), damage);
  EXPECT_TRUE(damage.empty());
  QStringList bytes;
  for (const log::LogEntry& row : rows)
    bytes += (row.direction == protocol::Direction::kFromConsole ? "> " : "< ") +
             QString(QByteArray::fromStdString(row.bytes).toHex(' ').toUpper());
  EXPECT_EQ(bytes, QStringList({"> 02 40 03 43", "< 06", "< 02 40 20 03 63", "> 02 25 03 26",
                                "< 06", "< 02 25 22 03 04"}));
  const Ended ended = Send({"58", "--capture", "/dev/null"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.errors,
            "vantrel-send: The capture /dev/null cannot be written: it is no regular file.\n");
}

TEST_F(Reports, RefuseWhatIsNoRegularFile) {
  Begin();
  const QByteArray fifo = folder_.filePath("fifo").toLocal8Bit();
  ASSERT_EQ(mkfifo(fifo.constData(), 0600), 0);
  for (const QString& path : {QString("/dev/null"), QString(fifo), folder_.path(),
                              QString("/nowhere/report.json"), QString("/nowhere/report.xml")}) {
    const Ended ended = Send({"58", "--report", path});
    EXPECT_EQ(ended.status, 1) << path.toStdString();
    EXPECT_EQ(ended.out, "");
    EXPECT_TRUE(ended.errors.startsWith("vantrel-send: The report ")) << ended.errors.toStdString();
  }
  EXPECT_EQ(Ask("log"), "ok 0");
}

}  // namespace
}  // namespace vantrel::send
