// SPDX-License-Identifier: MIT

// Commands from standard input, and rounds of them.

#include "tests/send/send_program.h"
#include "tests/support/patience.h"

#include <QFile>
#include <QJsonArray>

#include <string>

namespace vantrel::send {
namespace {

class ManyCommands : public SendProgram {
 protected:
  // The members of that name of all objects, with blanks between them.
  static std::string Members(const QByteArray& out, const char* name) {
    QStringList members;
    for (const QJsonObject& object : Objects(out))
      members += object[name].isNull() ? "null" : object[name].toVariant().toString();
    return members.join(' ').toStdString();
  }
  // What is said on standard error, without the program's name.
  static std::string Said(const Ended& ended) {
    QByteArray said = ended.errors;
    return said.replace("vantrel-send: ", "").trimmed().toStdString();
  }
};

TEST_F(ManyCommands, AreReadFromStandardInput) {
  Begin();
  const Ended ended = Send({"-", "--json"},
                           "58\n"
                           "\n"
                           "# a comment\n"
                           "41 --x 5 'Ada L' \r\n"
                           "  21 --data '' --time-limit 50");
  EXPECT_EQ(Members(ended.out, "line"), "1 4 5");
  EXPECT_EQ(Members(ended.out, "command"), "58 41 21");
  EXPECT_EQ(Members(ended.out, "outcome"), "reply reply time-up");
  EXPECT_EQ(Objects(ended.out).at(1)["sent"].toString(),
            "02 41 32 2C 35 2C 34 37 2C 41 64 61 20 4C 03 42");
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(Said(ended), "Stopped at line 5; go on with --from 5.");
}

TEST_F(ManyCommands, AreAnsweredInBlocks) {
  Begin();
  const Ended ended = Send({"-"}, "40\n41 '\n");
  EXPECT_EQ(ended.out.toStdString(),
            "sent      02 40 03 43\nreceived  06 02 40 20 03 63\n20h: Normal Status\n"
            "refused   A quote is not closed.\n");
  EXPECT_EQ(ended.status, 1);
}

TEST_F(ManyCommands, AreAnsweredBeforeTheNextIsRead) {
  Begin();
  auto process = StartSending({"-", "--quiet"});
  for (int i = 0; i < 3; ++i) {
    process->write("58\n");
    while (!process->canReadLine() && process->waitForReadyRead(support::kPatience)) continue;
    EXPECT_EQ(process->readLine(), "VANTREL 1.01\n");
  }
  process->closeWriteChannel();
  EXPECT_EQ(EndOf(*process).status, 0);
}

TEST_F(ManyCommands, StopAtTheFirstFailure) {
  Begin();
  const Ended ended = Send({"-", "--json"}, "58\n25\n58\n");
  EXPECT_EQ(Members(ended.out, "status"), "20 22");
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(Said(ended), "Stopped at line 2; go on with --from 2.");
}

TEST_F(ManyCommands, GoOnAfterAFailureWhereTheyShall) {
  Begin();
  const Ended ended = Send({"-", "--json", "--keep-going"}, "25\n99\n31 8\n58\n");
  EXPECT_EQ(Members(ended.out, "outcome"), "reply refused refused reply");
  EXPECT_EQ(Members(ended.out, "status"), "22 null null 20");
  EXPECT_EQ(Members(ended.out, "command"), "25 null 31 58");
  EXPECT_EQ(Members(ended.out, "error"),
            " There is no command '99'. TRACKS is a number from 1 to 7, not '8'. ");
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(Said(ended), "");
}

TEST_F(ManyCommands, TakeTheirOwnExpectations) {
  Begin();
  EXPECT_EQ(Send({"-"}, "25 --expect 22\n58\n").status, 0);
  EXPECT_EQ(Send({"-", "--expect", "22"}, "25\n").status, 0);
  EXPECT_EQ(Send({"-", "--expect", "22"}, "25\n58\n").status, 1);
  EXPECT_EQ(Send({"-", "--expect", "22"}, "58 --expect 20\n").status, 0);
}

TEST_F(ManyCommands, TakeTheCommandLinesTimeLimit) {
  Begin();
  ASSERT_EQ(Ask("fault silence for 2"), "ok");
  const Ended ended =
      Send({"-", "--json", "--keep-going", "--time-limit", "20"}, "58\n58 --time-limit 300\n");
  const auto objects = Objects(ended.out);
  ASSERT_EQ(objects.size(), 2U);
  EXPECT_EQ(objects[0]["outcome"].toString(), "time-up");
  // Not the command's own five seconds.
  EXPECT_LT(objects[0]["milliseconds"].toDouble(), 5000.0);
  EXPECT_GE(objects[1]["milliseconds"].toDouble(), 299.0);
}

TEST_F(ManyCommands, RefuseOptionsThatALineCannotCarry) {
  Begin();
  const Ended ended = Send({"-", "--json", "--keep-going"}, "58 --json\n58 --help\n-\nhelp\n");
  EXPECT_EQ(Members(ended.out, "error"),
            "Unknown option 'json'. A line takes no --help and no --version. There is no command "
            "'-'. There is no command 'help'.");
}

TEST_F(ManyCommands, OpenThePortAtTheFirstLineThatSends) {
  EXPECT_EQ(SendTo({"-", "--port", "/dev/no-such-device"}, "# nothing\n\n").status, 0);
  const Ended refused = SendTo({"-", "--port", "/dev/no-such-device"}, "99\n");
  EXPECT_EQ(refused.status, 1);
  const Ended ended = SendTo({"-", "--json", "--port", "/dev/no-such-device"}, "\n58\n");
  EXPECT_EQ(ended.status, 5);
  EXPECT_EQ(ended.out, "");
  EXPECT_EQ(Said(ended),
            "There is no device /dev/no-such-device.\nStopped at line 2; go on with --from 2.");
}

TEST_F(ManyCommands, EndWith5WhenTheDeviceGoesAmongThem) {
  Begin();
  ASSERT_EQ(Ask("fault vanish after 3"), "ok");
  const Ended ended = Send({"-", "--json", "--keep-going"}, "58\n58\n58\n58\n");
  EXPECT_EQ(Members(ended.out, "outcome"), "reply reply failed");
  EXPECT_EQ(ended.status, 5);
  EXPECT_TRUE(
      QString::fromStdString(Said(ended)).endsWith("Stopped at line 3; go on with --from 3."));
}

TEST_F(ManyCommands, BeginAtALaterLine) {
  Begin();
  const Ended ended = Send({"-", "--json", "--from", "3"}, "99\n25\n58\n40\n");
  EXPECT_EQ(Members(ended.out, "line"), "3 4");
  EXPECT_EQ(ended.status, 0);
  const Ended beyond = Send({"-", "--from", "5"}, "58\n");
  EXPECT_EQ(beyond.status, 1);
  EXPECT_EQ(Said(beyond), "Standard input has only 1 lines.");
}

TEST_F(ManyCommands, AreWrittenAndNotSent) {
  const Ended ended = SendTo({"-", "--dry-run"}, "58\n31 2\n");
  EXPECT_EQ(ended.out, "02 58 03 5B\n02 31 32 03 00\n");
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(SendTo({"-", "--dry-run"}, "58\n31 8\n40\n").status, 1);
}

TEST_F(ManyCommands, TellDataAloneWhenQuiet) {
  Begin();
  EXPECT_EQ(Send({"-", "--quiet"}, "58\n40\n95\n").out, "VANTREL 1.01\n\n0\n");
}

TEST_F(ManyCommands, AreRepeated) {
  Begin();
  const Ended ended = Send({"-", "--json", "--repeat", "2"}, "58\n40\n");
  EXPECT_EQ(Members(ended.out, "round"), "1 1 2 2 ");
  EXPECT_EQ(Members(ended.out, "line"), "1 2 1 2 ");
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.errors, "");
  const QJsonObject summary = Objects(ended.out).back()["summary"].toObject();
  EXPECT_EQ(summary.keys(), QStringList({"exchanges", "failures", "medianMilliseconds", "outcomes",
                                         "slowestMilliseconds", "statuses"}));
  EXPECT_EQ(summary["exchanges"].toInt(), 4);
  EXPECT_EQ(summary["failures"].toInt(-1), 0);
  EXPECT_EQ(summary["outcomes"].toObject(), QJsonObject({{"reply", 4}}));
  EXPECT_EQ(summary["statuses"].toObject(), QJsonObject({{"20", 4}}));
  EXPECT_GE(summary["slowestMilliseconds"].toDouble(), summary["medianMilliseconds"].toDouble());
}

TEST_F(ManyCommands, TellBlocksOfFailuresAloneInRounds) {
  Begin();
  ASSERT_EQ(Ask("fault status 38 after 3"), "ok");
  const Ended ended = Send({"--until-failure", "58"});
  EXPECT_EQ(ended.out.toStdString(),
            "sent      02 58 03 5B\nreceived  06 02 58 38 03 63\n38h: Card jam\n");
  EXPECT_EQ(ended.status, 1);
  const std::string said = Said(ended);
  EXPECT_TRUE(said.starts_with("3 exchanges, 1 failure (38h: 1); median ")) << said;
  EXPECT_TRUE(said.ends_with("Stopped at round 3.")) << said;
}

TEST_F(ManyCommands, TellWhereAListInRoundsStops) {
  Begin();
  ASSERT_EQ(Ask("fault reject after 4"), "ok");
  const Ended ended = Send({"-", "--json", "--repeat", "9"}, "\n58\n40\n");
  EXPECT_EQ(Members(ended.out, "round"), "1 1 2 2 ");
  EXPECT_EQ(Said(ended), "Stopped at line 3, round 2; go on with --from 3.");
  EXPECT_EQ(ended.status, 1);
}

TEST_F(ManyCommands, BeginTheFirstRoundAtALaterLine) {
  Begin();
  const Ended ended = Send({"-", "--json", "--repeat", "2", "--from", "2"}, "58\n40\n");
  EXPECT_EQ(Members(ended.out, "line"), "2 1 2 ");
  EXPECT_EQ(Send({"-", "--repeat", "2", "--from", "3"}, "58\n40\n").status, 1);
}

TEST_F(ManyCommands, AreDoneUntilOneFails) {
  Begin();
  ASSERT_EQ(Ask("fault status 22 after 6"), "ok");
  const Ended ended = Send({"-", "--json", "--until-failure", "--from", "2"}, "58\n40\n95\n");
  EXPECT_EQ(Members(ended.out, "line"), "2 3 1 2 3 1 ");
  EXPECT_EQ(Members(ended.out, "round"), "1 1 2 2 2 3 ");
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(Said(ended), "Stopped at line 1, round 3; go on with --from 1.");
  const QJsonObject summary = Objects(ended.out).back()["summary"].toObject();
  EXPECT_EQ(summary["failures"].toInt(), 1);
  EXPECT_EQ(summary["statuses"].toObject(), QJsonObject({{"20", 5}, {"22", 1}}));
}

TEST_F(ManyCommands, TalkAtTheSpeedThatTheyAreTold) {
  Begin({"--instant", "--speed", "19200"});
  EXPECT_EQ(Send({"-", "--quiet", "--speed", "19200"}, "58\n58\n").out,
            "VANTREL 1.01\nVANTREL 1.01\n");
}

TEST_F(ManyCommands, AreToldInUtf8WhateverTheyAre) {
  // Objects are read as UTF-8, which fails for any other bytes.
  const auto objects = Objects(SendTo({"-", "--json", "--dry-run"}, "\xFF\xC3\n").out);
  ASSERT_EQ(objects.size(), 1U);
  EXPECT_EQ(objects[0]["error"].toString(), QString("There is no command '\uFFFD\uFFFD'."));
}

TEST_F(ManyCommands, AreCheckedBeforeTheFirstRound) {
  Begin();
  const Ended ended = Send({"-", "--json", "--repeat", "2"}, "58\n31 9\n40 x\n");
  EXPECT_EQ(Members(ended.out, "line"), "2 3");
  EXPECT_EQ(Members(ended.out, "outcome"), "refused refused");
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(Ask("log"), "ok 0");
  EXPECT_EQ(Said(Send({"-", "--repeat", "2"}, "# none\n")), "Standard input has no command.");
}

TEST_F(ManyCommands, NeedLeaveToWearTheMemory) {
  Begin();
  const char* sentence = "wears the printer's memory; among many commands it needs --wear.";
  for (const char* option : {"--repeat=1", "--until-failure"}) {
    const Ended ended = Send({option, "5B", "1"});
    EXPECT_EQ(ended.status, 2);
    EXPECT_TRUE(ended.errors.contains(sentence));
  }
  const Ended ended = Send({"-", "--json"}, "91 A\n");
  EXPECT_EQ(Members(ended.out, "error"), std::string("Command 91 ") + sentence);
  EXPECT_EQ(Ask("log"), "ok 0");
  EXPECT_EQ(Send({"5B", "1"}).status, 0);
  EXPECT_EQ(Send({"-", "--wear"}, "91 A\n5B 0\n").status, 0);
  EXPECT_EQ(Send({"--wear", "--repeat", "2", "5B", "1"}).status, 0);
}

TEST_F(ManyCommands, RefuseOptionsThatExcludeEachOther) {
  struct Case {
    QStringList words;
    const char* sentence;
  };
  for (const Case& one :
       {Case{{"-", "--repeat", "2", "--keep-going"},
             "--repeat and --keep-going exclude each other."},
        Case{{"58", "--repeat", "2", "--until-failure"},
             "--repeat and --until-failure exclude each other."},
        Case{{"58", "--repeat", "0"}, "--repeat is a number from 1 to 1000000000, not '0'."},
        Case{{"58", "--dry-run", "--repeat", "2"}, "--dry-run and --repeat exclude each other."},
        Case{{"58", "--keep-going"}, "--keep-going is for commands from standard input, -."},
        Case{{"58", "--from", "2"}, "--from is for commands from standard input, -."},
        Case{{"-", "--from", "0"}, "--from is a number from 1 to 1000000000, not '0'."},
        Case{{"-", "--data", "00"},
             "--data is for one command; a line of standard input may carry its own."},
        Case{{"-", "--report", "x", "--capture", "x"}, "--report and --capture need a file each."},
        Case{{"-", "--report", ""}, "--report needs a file."},
        Case{{"-", "58"}, "Unexpected argument '58'."}}) {
    const Ended ended = SendTo(one.words);
    EXPECT_EQ(ended.status, 2) << one.sentence;
    EXPECT_TRUE(ended.errors.contains(one.sentence)) << ended.errors.toStdString();
  }
}

TEST_F(ManyCommands, StopWhenStandardOutputIsClosed) {
  Begin();
  QProcess shell;
  shell.start("sh", {"-c", "exec 3>&1; { yes 58 | " + QString(VANTREL_SEND_PROGRAM) + " --port " +
                               device_ + " - --quiet; echo $? >&3; } | head -n 2 >/dev/null"});
  const Ended ended = EndOf(shell);
  EXPECT_EQ(ended.out, "1\n");
  EXPECT_TRUE(
      ended.errors.startsWith("vantrel-send: Standard output cannot be written: Broken pipe."))
      << ended.errors.toStdString();
}

TEST_F(ManyCommands, RefuseALineThatIsTooLong) {
  const Ended ended = SendTo({"-"}, QByteArray(1'048'577, 'a'));
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(Said(ended), "Line 1 is too long.");
}

}  // namespace
}  // namespace vantrel::send
