// SPDX-License-Identifier: MIT

// The lines of a script that wait.

#include "tests/printer/service/script_fixture.h"

namespace vantrel::printer {
namespace {

// 95h and 96h ask for the counters; 21h reads a track, 46h "1" prints and discharges.
constexpr const char* kTransports = "02 95 03 96";
constexpr const char* kPrints = "02 96 03 95";
constexpr const char* kRead = "02 21 03 22";
constexpr const char* kDischarge = "02 50 31 03 62";

class ScriptWaits : public ScriptFixture {};

TEST_F(ScriptWaits, AnswerAtOnceWhereTheReplyHasLeft) {
  EXPECT_EQ(Exchange(kTransports, 7), "06 02 95 20 30 03 86");
  EXPECT_EQ(AskSoon("wait reply"), "ok reply 95h: 20h normal status, \"0\"");
}

TEST_F(ScriptWaits, WaitForTheReply) {
  EXPECT_EQ(AskSoon("wait reply"), "");
  Exchange(kTransports, 7);
  EXPECT_EQ(Awaited(), "ok reply 95h: 20h normal status, \"0\"");
}

TEST_F(ScriptWaits, TellEachReplyOnce) {
  Exchange(kTransports, 7);
  EXPECT_EQ(Ask("wait reply any"), "ok reply 95h: 20h normal status, \"0\"");
  EXPECT_EQ(Ask("wait reply any 1"), "error no such reply left in 1 milliseconds");
  EXPECT_EQ(Ask("wait reply 95 1"), "error no such reply left in 1 milliseconds");
}

TEST_F(ScriptWaits, TellTheReplyToTheLastCommandOfACode) {
  Exchange(kTransports, 7);
  Exchange(kPrints, 7);
  EXPECT_EQ(Ask("wait reply 95h"), "ok reply 95h: 20h normal status, \"0\"");
  EXPECT_EQ(Ask("wait reply"), "ok reply 96h: 20h normal status, \"0\"");
  EXPECT_EQ(Ask("wait reply 96 1"), "error no such reply left in 1 milliseconds");
}

TEST_F(ScriptWaits, DoNotTakeAnEarlierReplyForThatOfACommandThatIsNotAnswered) {
  Exchange(kTransports, 7);
  // It waits for a card.
  Exchange(kRead, 1);
  EXPECT_EQ(Ask("wait reply 1"),
            "error 1 is no code of two hex digits; \"wait reply any 1\" waits "
            "so many milliseconds");
  EXPECT_EQ(Ask("wait reply any 1"), "error no such reply left in 1 milliseconds");
  EXPECT_EQ(AskSoon("wait reply 21"), "");
  server_.InsertCard();
  EXPECT_EQ(Awaited(), "ok reply 21h: 23h no magnetic stripe or other error");
}

TEST_F(ScriptWaits, CountRejectAndResendAsReplies) {
  Exchange("02 20 03 23", 1);
  EXPECT_EQ(Ask("wait reply 20"), "ok 10h reject");
  Exchange("02 95 03 00", 1);
  EXPECT_EQ(Ask("wait reply"), "ok 15h resend");
}

TEST_F(ScriptWaits, RunOutWhereAFaultSuppressesTheReply) {
  Ask("fault silence");
  console_.Write(kTransports);
  EXPECT_EQ(Ask("wait frame 95"), "ok 95h card transport count request");
  EXPECT_EQ(Ask("wait reply any 1"), "error no such reply left in 1 milliseconds");
  Ask("fault mute");
  console_.Write(kTransports);
  EXPECT_EQ(Ask("wait frame 95"), "ok 95h card transport count request");
  EXPECT_EQ(Ask("wait reply any 1"), "error no such reply left in 1 milliseconds");
}

TEST_F(ScriptWaits, WaitForWhatThePrinterIsDoing) {
  EXPECT_EQ(AskSoon("wait idle"), "ok");
  EXPECT_EQ(AskSoon("wait card-wait"), "");
  console_.Write(kRead);
  EXPECT_EQ(Awaited(), "ok");
  EXPECT_EQ(Ask("wait idle 1"), "error the printer was not idle in 1 milliseconds");
  EXPECT_EQ(Ask("wait removal-wait 1"),
            "error no command waited for the removal of a card in 1 milliseconds");
  EXPECT_EQ(AskSoon("wait idle 5000"), "");
  server_.InsertCard();
  EXPECT_EQ(Awaited(), "ok");
  EXPECT_EQ(Ask("wait card-wait 1"), "error no command waited for a card in 1 milliseconds");
  console_.Write(kDischarge);
  EXPECT_EQ(Ask("wait frame 50").substr(0, 2), "ok");
  EXPECT_EQ(AskSoon("wait removal-wait"), "");
  console_.Write(kRead);
  EXPECT_EQ(Awaited(), "ok");
}

TEST_F(ScriptWaits, AreNotIdleWhileSwitchedOff) {
  Ask("power off");
  EXPECT_EQ(Ask("wait idle 1"), "error the printer was not idle in 1 milliseconds");
}

TEST_F(ScriptWaits, RefuseWhatIsNeitherACodeNorALimit) {
  for (const char* word : {"frame", "reply"}) {
    const std::string wait = "wait " + std::string(word);
    EXPECT_EQ(Ask(wait + " 5000"), "error 5000 is no code of two hex digits; \"" + wait +
                                       " any 5000\" waits so many milliseconds");
    EXPECT_EQ(Ask(wait + " x"),
              "error " + wait + " takes a code of two hex digits or \"any\", not \"x\"");
    for (const char* bad : {" any x", " 95 -1", " 95h 3600001", " any 1 2"}) {
      EXPECT_EQ(Ask(wait + bad), "error " + wait +
                                     " with a code or \"any\" takes milliseconds up to 3600000, "
                                     "or nothing")
          << bad;
    }
  }
  for (const char* bad : {"wait idle x", "wait idle -1", "wait idle 1 2", "wait idle 3600001"}) {
    EXPECT_EQ(Ask(bad), "error wait idle takes milliseconds up to 3600000, or nothing") << bad;
  }
  for (const char* bad : {"wait", "wait end", "wait long"}) {
    EXPECT_EQ(Ask(bad),
              "error wait takes \"frame\", \"reply\", \"idle\", \"card-wait\" or "
              "\"removal-wait\"")
        << bad;
  }
}

TEST_F(ScriptWaits, MayBeAnHourLong) {
  EXPECT_EQ(AskSoon("wait idle 3600000"), "ok");
  EXPECT_EQ(AskSoon("wait card-wait 3600000"), "");
  console_.Write(kRead);
  EXPECT_EQ(Awaited(), "ok");
}

TEST_F(ScriptWaits, FailTheScriptWhereTheyRunOut) {
  Ask("wait idle");
  EXPECT_EQ(script_.Status(), 0);
  Ask("wait frame any 1");
  EXPECT_EQ(script_.Status(), 1);
}

}  // namespace
}  // namespace vantrel::printer
