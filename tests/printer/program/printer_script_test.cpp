// SPDX-License-Identifier: MIT

// The script of the built program, as another program would use it.

#include "printer/service/printer_script.h"

#include "printer/model/printer_model.h"
#include "printer/service/printer_server.h"
#include "tests/printer/program/printer_program.h"
#include "tests/support/device_user.h"

#include <QFile>
#include <QImage>
#include <QStringList>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <string>

namespace vantrel::printer {
namespace {

class ScriptedPrinter : public PrinterProgram {
 protected:
  // Starts the program and opens its device.
  void Begin(const QStringList& options = {"--instant"}) {
    console_ = std::make_unique<support::DeviceUser>(Serve(QStringList{"--script"} + options));
    ASSERT_TRUE(console_->IsOpen());
  }
  // Sends a line and returns the answer.
  std::string Ask(const std::string& line) {
    program_.write((line + '\n').c_str());
    return ReadLine();
  }

  std::unique_ptr<support::DeviceUser> console_;
};

TEST_F(ScriptedPrinter, PutsCardsInAndPullsThemOut) {
  Begin();
  EXPECT_EQ(Ask("state"),
            "ok card ordinary, outside; printer Idle; LED off; buzzer off; transports 0; prints 0");
  EXPECT_EQ(Ask("pull"), "error there is no card in the printer");
  EXPECT_EQ(Ask("insert cleaning"), "ok");
  EXPECT_EQ(Ask("state"),
            "ok card cleaning, inserted at the front; printer Idle; LED off; buzzer off; "
            "transports 0; prints 0");
  EXPECT_EQ(Ask("insert ordinary"), "error there is a card in the printer");
  EXPECT_EQ(Ask("pull"), "ok");
  EXPECT_EQ(Ask("insert green"), "error a card is \"ordinary\" or \"cleaning\"");
  EXPECT_EQ(Ask("insert ordinary"), "ok");
}

TEST_F(ScriptedPrinter, ServesACommandThatWaitsForTheCard) {
  Begin();
  EXPECT_EQ(Ask("track 1 A B\\x01\\\\"), "ok");
  console_->Write("02 21 03 22");
  EXPECT_EQ(Ask("wait frame 21"), "ok 21h first track read");
  EXPECT_EQ(console_->Read(1), "06");
  EXPECT_EQ(Ask("insert"), "ok");
  // 02h 21h 20h, "A B", 01h, a backslash, 03h and the exclusive-or of all after STX.
  EXPECT_EQ(console_->Read(10), "02 21 20 41 20 42 01 5C 03 7C");
}

TEST_F(ScriptedPrinter, HasASampleOnEachTrack) {
  Begin();
  EXPECT_EQ(Ask("read track 1"), "ok VANTREL SAMPLE CARD");
  EXPECT_EQ(Ask("read track 2"), "ok 0123456789");
  EXPECT_EQ(Ask("read track 3"), "ok 9876543210");
}

TEST_F(ScriptedPrinter, WritesAndReadsTracks) {
  Begin();
  EXPECT_EQ(Ask("read track 2"), "ok 0123456789");
  EXPECT_EQ(Ask("track 2 x\\x7Ey"), "ok");
  EXPECT_EQ(Ask("read track 2"), "ok x~y");
  EXPECT_EQ(Ask("track 2"), "ok");
  EXPECT_EQ(Ask("read track 2"), "ok");
  EXPECT_EQ(Ask("track 1 a\\\\\\x04"), "ok");
  EXPECT_EQ(Ask("read track 1"), "ok a\\\\\\x04");
}

TEST_F(ScriptedPrinter, RefusesWhatATrackCannotHoldAndLosesNothing) {
  Begin();
  EXPECT_EQ(Ask("track 0 A"), "error the track is 1, 2 or 3");
  EXPECT_EQ(Ask("track 2 a\\x02"), "error a track holds 01h and 04h to 7Eh alone");
  EXPECT_EQ(Ask("track 2 a\\n"),
            "error after a backslash comes x and two hex digits, or a backslash");
  EXPECT_EQ(Ask("track 2 " + std::string(70, '1')), "error the track holds 69 bytes");
  EXPECT_EQ(Ask("read track 2"), "ok 0123456789");
  EXPECT_EQ(Ask("read track 4"), "error read takes \"track\" and 1, 2 or 3");
}

TEST_F(ScriptedPrinter, WaitsForFramesInTheirOrder) {
  Begin();
  // Three frames in one go, the second with a bad block check, and a reply of its own between.
  console_->Write("02 95 03 96 02 51 03 00 02 96 03 95");
  EXPECT_EQ(Ask("wait frame"), "ok 95h card transport count request");
  EXPECT_EQ(Ask("wait frame any 5000"), "ok 96h print count request");
  EXPECT_EQ(Ask("wait frame 95h 50"), "error no such frame came in 50 milliseconds");
  program_.write("wait frame 95h\nstate\n");
  console_->Write("02 96 03 95 02 95 03 96");
  EXPECT_EQ(ReadLine(), "ok 95h card transport count request");
  EXPECT_TRUE(QString::fromStdString(ReadLine()).startsWith("ok card "));
}

TEST_F(ScriptedPrinter, SetsFaultsAndTakesThemAway) {
  Begin();
  EXPECT_EQ(Ask("fault reject until cleared"), "ok");
  console_->Write("02 95 03 96");
  EXPECT_EQ(console_->Read(1), "10");
  EXPECT_EQ(Ask("fault sulk"), "error There is no fault 'sulk'.");
  EXPECT_EQ(Ask("fault clear"), "ok");
  console_->Write("02 95 03 96");
  EXPECT_EQ(console_->Read(7), "06 02 95 20 30 03 86");
}

TEST_F(ScriptedPrinter, SwitchesThePower) {
  Begin();
  EXPECT_EQ(Ask("power off"), "ok");
  EXPECT_EQ(Ask("state"),
            "ok card ordinary, outside; printer Switched off; LED off; buzzer off; transports 0; "
            "prints 0");
  EXPECT_EQ(Ask("power on"), "ok");
  console_->Write("02 95 03 96");
  EXPECT_EQ(console_->Read(7), "06 02 95 20 30 03 86");
  EXPECT_EQ(Ask("power"), "error power takes \"on\" or \"off\"");
  EXPECT_EQ(Ask("power up"), "error power takes \"on\" or \"off\"");
}

TEST_F(ScriptedPrinter, ChangesTheSeries) {
  Begin();
  EXPECT_EQ(Ask("series ql8"), "ok");
  // 31h "1" writes the first track, which a QL-8 does not.
  console_->Write("02 31 31 03 03");
  EXPECT_EQ(console_->Read(1), "10");
  EXPECT_EQ(Ask("series ql7"), "ok");
  console_->Write("02 31 31 03 03");
  EXPECT_EQ(console_->Read(1), "06");
  EXPECT_EQ(Ask("series QL-8"), "error series takes \"ql7\" or \"ql8\"");
}

TEST_F(ScriptedPrinter, ChangesTheSpeed) {
  Begin({});
  EXPECT_EQ(Ask("speed 19200"), "ok");
  // What is asked at 9600 is lost; the first answer is that to the second question.
  console_->Write("02 95 03 96");
  EXPECT_FALSE(console_->ReadsTo("86", 200));
  EXPECT_EQ(Ask("speed 9600"), "ok");
  console_->Write("02 96 03 95");
  EXPECT_EQ(console_->Read(7), "06 02 96 20 30 03 85");
  for (const char* bad : {"speed", "speed 49", "speed 4000001", "speed fast", "speed 9600 8"})
    EXPECT_EQ(Ask(bad), "error speed takes a number from 50 to 4000000") << bad;
}

TEST_F(ScriptedPrinter, SavesTheFace) {
  Begin();
  const QString png = folder_.filePath("face.png");
  EXPECT_EQ(Ask("face " + png.toStdString()), "ok");
  EXPECT_EQ(QImage(png).size(), QSize(480, 320));
  const QString pbm = folder_.filePath("face.pbm");
  EXPECT_EQ(Ask("face " + pbm.toStdString()), "ok");
  QFile file(pbm);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  // A portable bitmap of a blank card: no dot is black.
  EXPECT_EQ(file.readAll(), "P4\n480 320\n" + QByteArray(60 * 320, 0));
  EXPECT_EQ(Ask("face card.gif"), "error face takes a path that ends in .png or .pbm");
  EXPECT_EQ(Ask("face /nowhere/card.png"),
            "error /nowhere/card.png was not saved: No such file or directory.");
}

TEST_F(ScriptedPrinter, SavesNothingOverWhatIsNoFile) {
  Begin();
  const std::string png = folder_.filePath("null.png").toStdString();
  ASSERT_EQ(symlink("/dev/null", png.c_str()), 0);
  EXPECT_EQ(Ask("face " + png), "error " + png + " was not saved: it is a device.");
  EXPECT_EQ(Ask("log /dev/null"), "error /dev/null was not saved: it is a device.");
  const std::string pipe = folder_.filePath("pipe").toStdString();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(Ask("log " + pipe), "error " + pipe + " was not saved: it is a pipe.");
  EXPECT_EQ(QFile::symLinkTarget(folder_.filePath("null.png")), "/dev/null");
}

TEST_F(ScriptedPrinter, SavesThroughALinkAndKeepsAMode) {
  Begin();
  QFile kept(folder_.filePath("kept.txt"));
  ASSERT_TRUE(kept.open(QIODevice::WriteOnly));
  kept.close();
  ASSERT_EQ(chmod(kept.fileName().toUtf8().constData(), 0600), 0);
  const QString link = folder_.filePath("link.txt");
  ASSERT_TRUE(kept.link(link));
  console_->Write("02 95 03 96");
  EXPECT_EQ(console_->Read(7), "06 02 95 20 30 03 86");
  EXPECT_EQ(Ask("log " + link.toStdString()), "ok 3");
  EXPECT_EQ(QFile::symLinkTarget(link), kept.fileName());
  EXPECT_EQ(kept.permissions() & ~(QFile::ReadUser | QFile::WriteUser),
            QFile::ReadOwner | QFile::WriteOwner);
  ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
  EXPECT_EQ(kept.readAll().count('\n'), 3);
}

TEST_F(ScriptedPrinter, CountsAndSavesTheLog) {
  Begin();
  EXPECT_EQ(Ask("log"), "ok 0");
  console_->Write("02 95 03 96");
  EXPECT_EQ(console_->Read(7), "06 02 95 20 30 03 86");
  EXPECT_EQ(Ask("log"), "ok 3");
  const QString path = folder_.filePath("line.csv");
  EXPECT_EQ(Ask("log " + path.toStdString()), "ok 3");
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll().count("\r\n"), 4);
  EXPECT_EQ(Ask("log /nowhere/line.csv"),
            "error /nowhere/line.csv was not saved: No such file or directory.");
}

TEST_F(ScriptedPrinter, AnswersWhatItDoesNotKnow) {
  Begin();
  EXPECT_EQ(Ask("INSERT"), "error unknown command \"INSERT\"; help tells the commands");
  EXPECT_EQ(Ask("state now"), "error state takes no parameter");
  // Neither a comment nor an empty line is answered.
  program_.write("# a comment\n\n   \r\n");
  EXPECT_EQ(Ask("pull"), "error there is no card in the printer");
}

TEST_F(ScriptedPrinter, EndsWhenItIsToldTo) {
  Begin();
  EXPECT_EQ(Ask("quit"), "ok");
  EXPECT_EQ(End(), 0);
}

TEST_F(ScriptedPrinter, EndsWithItsInputAfterTheLastAnswer) {
  Begin();
  program_.write("wait frame 95h\npull");
  program_.closeWriteChannel();
  console_->Write("02 95 03 96");
  EXPECT_EQ(ReadLine(), "ok 95h card transport count request");
  EXPECT_EQ(ReadLine(), "error there is no card in the printer");
  // The reply leaves before the program ends, and is there to be read.
  EXPECT_EQ(console_->Read(7), "06 02 95 20 30 03 86");
  EXPECT_EQ(End(), 1);
}

TEST_F(ScriptedPrinter, IsNotReadWithoutItsOption) {
  const support::DeviceUser console(Serve());
  program_.write("quit\n");
  program_.closeWriteChannel();
  console.Write("02 95 03 96");
  EXPECT_EQ(console.Read(7), "06 02 95 20 30 03 86");
  EXPECT_EQ(program_.state(), QProcess::Running);
}

}  // namespace
}  // namespace vantrel::printer
