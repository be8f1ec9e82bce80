// SPDX-License-Identifier: MIT

// One command of the built program: what it tells and its status, whatever the printer does.

#include "tests/send/send_program.h"
#include "tests/support/device_user.h"

#include <QThread>

#include <termios.h>

#include <csignal>

namespace vantrel::send {
namespace {

class OneCommand : public SendProgram {
 protected:
  // The status of 58h with a fault, and the object told.
  int StatusWith(const std::string& fault, int time_limit = 5000) {
    EXPECT_EQ(Ask("fault " + fault), "ok");
    const Ended ended = Send({"58", "--json", "--time-limit", QString::number(time_limit)});
    const auto objects = Objects(ended.out);
    object_ = objects.empty() ? QJsonObject() : objects.front();
    return ended.status;
  }
  std::string Member(const char* name) const { return object_[name].toString().toStdString(); }

  QJsonObject object_;
};

TEST_F(OneCommand, TellsTheReplyInTwoColumns) {
  Begin({"--instant", "--card"});
  ASSERT_EQ(Ask("track 1 ABC"), "ok");
  const Ended ended = Send({"21"});
  EXPECT_EQ(ended.out.toStdString(),
            "sent      02 21 03 22\n"
            "received  06 02 21 20 41 42 43 03 42\n"
            "20h: Normal Status\n"
            "First Track: ABC\n");
  EXPECT_EQ(ended.errors, "");
  EXPECT_EQ(ended.status, 0);
}

TEST_F(OneCommand, LeavesOutWhatThereIsNot) {
  Begin();
  EXPECT_EQ(Send({"40"}).out.toStdString(),
            "sent      02 40 03 43\nreceived  06 02 40 20 03 63\n20h: Normal Status\n");
  ASSERT_EQ(Ask("fault silence"), "ok");
  EXPECT_EQ(Send({"40", "--time-limit", "50"}).out.toStdString(),
            "sent      02 40 03 43\nTime up!\n");
}

TEST_F(OneCommand, ShowsControlCharactersAsTwoHexDigits) {
  Begin({"--instant", "--card"});
  ASSERT_EQ(Ask("track 1 A\\x01\\\\"), "ok");
  EXPECT_TRUE(Send({"21"}).out.endsWith("First Track: A\\x01\\\n"));
  EXPECT_EQ(Send({"29", "--quiet"}).out, "A\x01\\\n");
  EXPECT_EQ(Objects(Send({"29", "--json"}).out).at(0)["text"].toString(), QString("A\x01\\"));
}

TEST_F(OneCommand, TellsOneObject) {
  Begin();
  const Ended ended = Send({"--json", "58"});
  EXPECT_EQ(ended.status, 0);
  const auto objects = Objects(ended.out);
  ASSERT_EQ(objects.size(), 1U);
  EXPECT_EQ(objects[0].keys(),
            QStringList({"command", "label", "meaning", "milliseconds", "outcome", "received",
                         "resends", "sent", "status", "text"}));
  EXPECT_EQ(objects[0]["command"].toString(), "58");
  EXPECT_EQ(objects[0]["status"].toString(), "20");
  EXPECT_EQ(objects[0]["sent"].toString(), "02 58 03 5B");
  EXPECT_EQ(objects[0]["received"].toString(),
            "06 02 58 20 56 41 4E 54 52 45 4C 20 31 2E 30 31 03 13");
  EXPECT_EQ(objects[0]["outcome"].toString(), "reply");
  EXPECT_EQ(objects[0]["meaning"].toString(), "20h: Normal Status");
  EXPECT_EQ(objects[0]["label"].toString(), "ROM Version: ");
  EXPECT_EQ(objects[0]["text"].toString(), "VANTREL 1.01");
  EXPECT_EQ(objects[0]["resends"].toInt(-1), 0);
  EXPECT_GE(objects[0]["milliseconds"].toDouble(), 9.0);  // one tick of the wait
}

TEST_F(OneCommand, TellsTheDataAloneWhenQuiet) {
  Begin();
  EXPECT_EQ(Send({"--quiet", "58"}).out, "VANTREL 1.01\n");
  EXPECT_EQ(Send({"--quiet", "40"}).out, "\n");
  ASSERT_EQ(Ask("fault reject"), "ok");
  EXPECT_EQ(Send({"--quiet", "58"}).out, "");
}

TEST_F(OneCommand, EndsWith1ForAnotherStatus) {
  Begin();
  EXPECT_EQ(StatusWith("status 38"), 1);
  EXPECT_EQ(Member("status"), "38");
  EXPECT_EQ(Member("meaning"), "38h: Card jam");
  EXPECT_EQ(Member("received"), "06 02 58 38 03 63");
}

TEST_F(OneCommand, EndsWith3WhenTheTimeIsUp) {
  Begin();
  for (const char* fault : {"silence", "mute", "bad-bcc", "wrong-echo", "truncate", "join"}) {
    EXPECT_EQ(StatusWith(fault, 200), 3) << fault;
    EXPECT_EQ(Member("outcome"), "time-up") << fault;
    EXPECT_EQ(Member("meaning"), "Time up!") << fault;
    EXPECT_TRUE(object_["status"].isNull()) << fault;
    // The limit begins before the first byte goes out, on a busy machine some time before.
    EXPECT_GE(object_["milliseconds"].toDouble(), 150.0) << fault;
  }
}

TEST_F(OneCommand, TellsEveryStatusInTheConsolesWords) {
  struct Case {
    const char* status;
    const char* meaning;
    int end = 1;
  };
  Begin();
  for (const Case& one :
       {Case{"20", "20h: Normal Status", 0}, Case{"22", "22h: No targeted Card"},
        Case{"23", "23h: No magnetic stripe or other error"}, Case{"31", "31h: Parity Error"},
        Case{"32", "32h: No Start code or End code"}, Case{"33", "33h: LRC Error"},
        Case{"34", "34h: Erroneous character"}, Case{"37", "37h: Magnetic Stripe writing error"},
        Case{"38", "38h: Card jam"}, Case{"40", "40h: Cover open"},
        Case{"41", "41h: Invalid command"}, Case{"42", "42h: CAM motor error"},
        Case{"43", "43h: Erase head temperature error"}, Case{"45", "45h: EEPROM error"},
        Case{"4C", "4Ch: Non-Compatible BMP file data"},
        Case{"51", "51h: Expansion buffer overflow error"}, Case{"7F", "Unknown response"}}) {
    EXPECT_EQ(StatusWith(std::string("status ") + one.status), one.end);
    EXPECT_EQ(Member("outcome"), "reply") << one.status;
    EXPECT_EQ(Member("status"), one.status);
    EXPECT_EQ(Member("meaning"), one.meaning);
  }
}

TEST_F(OneCommand, TellsWhatWasReceivedWhenTheTimeIsUp) {
  Begin();
  EXPECT_EQ(StatusWith("drop 3", 1000), 3);
  EXPECT_EQ(Member("received"), "06 02 20 56 41 4E 54 52 45 4C 20 31 2E 30 31 03 13");
  EXPECT_EQ(StatusWith("extra 41FF", 1000), 3);
  EXPECT_EQ(Member("received"), "06 02 58 20 56 41 4E 54 52 45 4C 20 31 2E 30 31 03 13 41 FF");
  EXPECT_EQ(StatusWith("late 60000", 1000), 3);
  EXPECT_EQ(Member("received"), "06");
  EXPECT_EQ(Member("outcome"), "time-up");
}

TEST_F(OneCommand, BearsAReplyByteByByte) {
  Begin();
  EXPECT_EQ(StatusWith("split 1"), 0);
  EXPECT_EQ(Member("received"), "06 02 58 20 56 41 4E 54 52 45 4C 20 31 2E 30 31 03 13");
}

TEST_F(OneCommand, EndsWith4WhenItIsRejected) {
  Begin();
  EXPECT_EQ(StatusWith("reject"), 4);
  EXPECT_EQ(Member("outcome"), "reject");
  EXPECT_EQ(Member("received"), "10");
  EXPECT_EQ(Member("meaning"), "&H10: Reject Response");
  EXPECT_EQ(StatusWith("random 1 100 reject"), 4);
  EXPECT_EQ(Member("outcome"), "reject");
}

TEST_F(OneCommand, EndsWith4ForAnUnknownControlCharacter) {
  Begin();
  EXPECT_EQ(StatusWith("unknown-control 41"), 4);
  EXPECT_EQ(Member("outcome"), "unknown");
  EXPECT_EQ(Member("meaning"), "Unknown Control Character code: 41");
  EXPECT_EQ(StatusWith("noise FF00"), 4);
  EXPECT_EQ(Member("outcome"), "unknown");
  EXPECT_EQ(StatusWith("drop 1"), 4);
  EXPECT_EQ(Member("outcome"), "unknown");
  EXPECT_EQ(Member("received"), "02 58 20 56 41 4E 54 52 45 4C 20 31 2E 30 31 03 13");
}

TEST_F(OneCommand, EndsWith5WhenTheDeviceGoes) {
  Begin();
  ASSERT_EQ(Ask("fault vanish"), "ok");
  const Ended ended = Send({"58", "--json"});
  EXPECT_EQ(ended.status, 5);
  const auto objects = Objects(ended.out);
  ASSERT_EQ(objects.size(), 1U) << ended.errors.toStdString();
  EXPECT_EQ(objects[0]["outcome"].toString(), "failed");
  EXPECT_EQ(objects[0]["meaning"].toString(), "The device " + device_ + " is gone.");
  EXPECT_TRUE(objects[0]["status"].isNull());
  EXPECT_EQ(ended.errors, ("vantrel-send: The device " + device_ + " is gone.\n").toUtf8());
}

TEST_F(OneCommand, CountsResends) {
  Begin();
  EXPECT_EQ(StatusWith("resend 2"), 0);
  EXPECT_EQ(object_["resends"].toInt(), 2);
  EXPECT_EQ(Member("received"), "06 02 58 20 56 41 4E 54 52 45 4C 20 31 2E 30 31 03 13");
}

TEST_F(OneCommand, BearsAReplyInPieces) {
  Begin();
  EXPECT_EQ(StatusWith("delay 50"), 0);
  EXPECT_GE(object_["milliseconds"].toDouble(), 50.0);
}

TEST_F(OneCommand, TakesExpectedStatusesAloneAsSuccess) {
  Begin();
  EXPECT_EQ(Send({"25", "--expect", "22"}).status, 0);
  EXPECT_EQ(Send({"25", "--expect", "20,22"}).status, 0);
  EXPECT_EQ(Send({"58", "--expect", "22"}).status, 1);
  ASSERT_EQ(Ask("fault reject"), "ok");
  EXPECT_EQ(Send({"58", "--expect", "22"}).status, 1);
  ASSERT_EQ(Ask("fault silence"), "ok");
  EXPECT_EQ(Send({"58", "--expect", "22", "--time-limit", "20"}).status, 1);
  EXPECT_EQ(SendTo({"--port", "/dev/no-such-device", "58", "--expect", "22"}).status, 5);
}

TEST_F(OneCommand, WritesFramesAndOpensNothing) {
  const Ended ended = SendTo({"--port", "/dev/no-such-device", "--dry-run", "41", "Hi"});
  EXPECT_EQ(ended.out, "02 41 32 2C 30 2C 34 37 2C 48 69 03 4E\n");
  EXPECT_EQ(ended.status, 0);
  const auto objects = Objects(SendTo({"--dry-run", "--json", "2a"}).out);
  ASSERT_EQ(objects.size(), 1U);
  EXPECT_EQ(objects[0].keys(), QStringList({"command", "sent"}));
  EXPECT_EQ(objects[0]["command"].toString(), "2A");
  EXPECT_EQ(objects[0]["sent"].toString(), "02 2A 03 29");
}

TEST_F(OneCommand, SaysWhichPortItCannotUse) {
  struct Case {
    const char* port;
    const char* sentence;
  };
  for (const Case& one :
       {Case{"/dev/no-such-device", "There is no device /dev/no-such-device."},
        Case{"/dev/null", "/dev/null is no serial device."},
        Case{"/tmp", "The device /tmp cannot be used: Is a directory."},
        Case{"tcp:127.0.0.1:1", "There is no connection to 127.0.0.1:1: Connection refused."}}) {
    const Ended ended = SendTo({"--json", "--port", one.port, "58"});
    EXPECT_EQ(ended.status, 5) << one.port;
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(ended.errors.toStdString(), std::string("vantrel-send: ") + one.sentence + "\n");
  }
}

TEST_F(OneCommand, KeepsThePortToItself) {
  Begin({});
  auto first = StartSending({"21"});
  ASSERT_EQ(Ask("wait frame 21"), "ok 21h first track read");
  const Ended second = Send({"58"});
  EXPECT_EQ(second.status, 5);
  EXPECT_EQ(second.errors,
            ("vantrel-send: The device " + device_ + " is in use by another program.\n").toUtf8());
  // The 06h that answers it has gone out, so that it cannot come in the next one's time.
  while (Ask("log") == "ok 1") QThread::msleep(1);
  first->kill();
  first->waitForFinished();
  // What a killed program leaves behind is no hindrance.
  EXPECT_EQ(Send({"58", "--quiet"}).out, "VANTREL 1.01\n");
}

// The device's settings as another program has left them, to be found again.
class LeftSettings {
 public:
  explicit LeftSettings(const QString& device) : user_(device.toStdString()) {
    EXPECT_EQ(tcgetattr(user_.Descriptor(), &before_), 0);
    before_.c_cc[VMIN] = 7;
    cfsetspeed(&before_, B4800);
    EXPECT_EQ(tcsetattr(user_.Descriptor(), TCSANOW, &before_), 0);
  }
  void ExpectThem() const {
    termios after{};
    ASSERT_EQ(tcgetattr(user_.Descriptor(), &after), 0);
    EXPECT_EQ(after.c_cc[VMIN], 7);
    EXPECT_EQ(cfgetospeed(&after), speed_t{B4800});
    EXPECT_EQ(after.c_cflag, before_.c_cflag);
    EXPECT_EQ(after.c_iflag, before_.c_iflag);
    EXPECT_EQ(after.c_lflag, before_.c_lflag);
  }
  speed_t Speed() const {
    termios now{};
    EXPECT_EQ(tcgetattr(user_.Descriptor(), &now), 0);
    return cfgetospeed(&now);
  }

 private:
  const support::DeviceUser user_;
  termios before_{};
};

TEST_F(OneCommand, PutsThePortsSettingsBack) {
  Begin();
  const LeftSettings settings(device_);
  EXPECT_EQ(Send({"58", "--speed", "19200"}).status, 0);
  settings.ExpectThem();
}

TEST_F(OneCommand, PutsThePortsSettingsBackAfterASignal) {
  Begin();
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const LeftSettings settings(device_);
    ASSERT_EQ(Ask("fault silence"), "ok");
    auto process = StartSending({"58", "--speed", "19200"});
    ASSERT_TRUE(Ask("wait frame 58").starts_with("ok "));
    EXPECT_EQ(settings.Speed(), speed_t{B19200});
    kill(static_cast<pid_t>(process->processId()), signal);
    EXPECT_EQ(EndOf(*process).status, 130);
    settings.ExpectThem();
  }
}

TEST_F(OneCommand, PutsThePortsSettingsBackAfterATimeUpAndARejection) {
  Begin();
  const LeftSettings settings(device_);
  EXPECT_EQ(StatusWith("silence", 20), 3);
  EXPECT_EQ(StatusWith("reject"), 4);
  settings.ExpectThem();
}

TEST_F(OneCommand, PutsThePortsSettingsBackWhenStandardOutputIsClosed) {
  Begin();
  const LeftSettings settings(device_);
  QProcess shell;
  shell.start("sh",
              {"-c", QString(VANTREL_SEND_PROGRAM) + " --port " + device_ + " 58 >/dev/full"});
  const Ended ended = EndOf(shell);
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.errors,
            "vantrel-send: Standard output cannot be written: No space left on device.\n");
  settings.ExpectThem();
}

TEST_F(OneCommand, TakesOptionsAnywhereBeforeTwoDashes) {
  const QByteArray frame = "02 41 32 2C 35 2C 34 37 2C 48 69 03 4B\n";  // "2,5,47,Hi"
  EXPECT_EQ(SendTo({"--dry-run", "--x", "5", "41", "Hi"}).out, frame);
  EXPECT_EQ(SendTo({"41", "Hi", "--x=005", "--dry-run"}).out, frame);
  EXPECT_EQ(SendTo({"--x=5", "41", "--dry-run", "--", "Hi"}).out, frame);
  // "2,0,47,--x"
  EXPECT_EQ(SendTo({"--dry-run", "41", "--", "--x"}).out,
            "02 41 32 2C 30 2C 34 37 2C 2D 2D 78 03 17\n");
}

TEST_F(OneCommand, TalksAtTheSpeedThatItIsTold) {
  Begin({"--speed", "19200"});
  EXPECT_EQ(Send({"58", "--speed", "19200", "--quiet"}).out, "VANTREL 1.01\n");
  EXPECT_EQ(Send({"58", "--time-limit", "300"}).status, 3);
}

TEST_F(OneCommand, RefusesWrongUse) {
  struct Case {
    QStringList words;
    const char* sentence;
  };
  for (const Case& one : {
           Case{{}, "A command is missing."},
           Case{{"99"}, "There is no command '99'."},
           Case{{"58", "--haste"}, "Unknown option 'haste'."},
           Case{{"58", "--json", "--quiet"}, "--json and --quiet exclude each other."},
           Case{{"58", "--time-limit", "0"},
                "--time-limit is a number from 1 to 3600000, not '0'."},
           Case{{"58", "--time-limit", "3600001"},
                "--time-limit is a number from 1 to 3600000, not '3600001'."},
           Case{{"58", "--speed", "49"}, "--speed is a number from 50 to 4000000, not '49'."},
           Case{{"58", "--port", "tcp:host"},
                "--port is a device, or tcp:HOST:PORT with a port from 1 to 65535, not "
                "'tcp:host'."},
           Case{{"58", "--expect", "2"},
                "--expect is statuses of two hex digits with commas between them, not '2'."},
           Case{{"help", "99"}, "There is no command '99'."},
       }) {
    const Ended ended = SendTo(one.words);
    EXPECT_EQ(ended.status, 2) << one.sentence;
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(ended.errors.toStdString(),
              std::string("vantrel-send: ") + one.sentence + " Try 'vantrel-send --help'.\n");
  }
}

TEST_F(OneCommand, TellsItsHelp) {
  EXPECT_EQ(SendTo({"--version"}).out, "vantrel-send 1.01\n");
  const QByteArray help = SendTo({"help"}).out;
  EXPECT_EQ(help, SendTo({"--help"}).out);
  EXPECT_TRUE(help.contains("  41 [OPTIONS] TEXT "));
  const QByteArray command = SendTo({"help", "4e"}).out;
  EXPECT_TRUE(command.startsWith("Usage: vantrel-send 4E [OPTIONS] DATA\n"))
      << command.toStdString();
  EXPECT_TRUE(command.contains("--bottom DOTS"));
}

TEST_F(OneCommand, SaysWhenItsHelpCannotBeWritten) {
  for (const char* words : {"help", "help 41", "--help", "--version"}) {
    QProcess shell;
    shell.start("sh", {"-c", QString(VANTREL_SEND_PROGRAM) + " " + words + " >/dev/full"});
    const Ended ended = EndOf(shell);
    EXPECT_EQ(ended.status, 1) << words;
    EXPECT_EQ(ended.errors, "vantrel-send: Standard output cannot be written.\n") << words;
  }
}

TEST_F(OneCommand, EndsWith1WhenStandardOutputIsClosed) {
  Begin();
  QProcess shell;
  shell.start("sh", {"-c", QString(VANTREL_SEND_PROGRAM) + " --port " + device_ + " 58 >&-"});
  const Ended ended = EndOf(shell);
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.errors,
            "vantrel-send: Standard output cannot be written: Bad file descriptor.\n");
}

}  // namespace
}  // namespace vantrel::send
