// SPDX-License-Identifier: MIT

// A script that is answered in JSON.

#include "tests/printer/service/script_fixture.h"
#include "tests/support/wait_for.h"

namespace vantrel::printer {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class ScriptInJson : public ScriptFixture {
 protected:
  ScriptInJson() : ScriptFixture({.json = true, .line = "device"}) {}

  // The text up to the time, and what follows it.
  static std::string WithoutTime(const std::string& event) {
    const std::size_t begin = event.find(",\"time\":\"");
    EXPECT_NE(begin, std::string::npos) << event;
    const std::size_t end = event.find('"', begin + 9);
    EXPECT_EQ(event.substr(end - 1, 1), "Z");
    return event.substr(0, begin) + event.substr(end + 1);
  }
};

TEST_F(ScriptInJson, AnswersWithOneObjectALine) {
  EXPECT_EQ(Ask("insert"), R"({"ok":true})");
  EXPECT_EQ(Ask("insert"), R"({"ok":false,"error":"there is a card in the printer"})");
  EXPECT_EQ(Ask("no\"such"),
            R"({"ok":false,"error":"unknown command \"no\"such\"; help tells the commands"})");
  EXPECT_EQ(Ask("log"), R"({"ok":true,"entries":0})");
}

TEST_F(ScriptInJson, TellsTheState) {
  Ask("track 1 A\\x01\\\\");
  EXPECT_EQ(
      Ask("state"),
      R"({"ok":true,"card":{"place":"outside","kind":"ordinary","target":false,)"
      R"("tracks":["A\\x01\\\\","",""]},"activity":"idle","command":null,)"
      R"("led":{"colour":"green","operation":"off"},"buzzer":"off","transports":0,"prints":0,)"
      R"("power":true,"series":"ql7","speed":9600,"pacing":false,"caseParts":false,"faults":[]})");
}

TEST_F(ScriptInJson, TellsEachActivityAndPlace) {
  Exchange("02 21 03 22", 1);
  EXPECT_THAT(Ask("state"), HasSubstr(R"("activity":"card-wait","command":"21",)"));
  Ask("insert cleaning");
  EXPECT_THAT(Ask("state"),
              HasSubstr(R"("card":{"place":"inside","kind":"cleaning","target":true,)"));
  Ask("wait reply 21");
  EXPECT_EQ(Exchange("02 51 03 52", 11), "02 21 23 03 01 06 02 51 20 03 72");
  EXPECT_THAT(Ask("state"), HasSubstr(R"("card":{"place":"rear",)"));
  Exchange("02 53 03 50", 6);
  EXPECT_THAT(Ask("state"), HasSubstr(R"("card":{"place":"front",)"));
  // 50h "1" lets the card wait to be pulled out.
  Exchange("02 50 31 03 62", 6);
  EXPECT_THAT(Ask("state"),
              HasSubstr(R"("card":{"place":"waiting","kind":"cleaning","target":false,)"));
  Exchange("02 21 03 22", 1);
  EXPECT_THAT(Ask("state"), HasSubstr(R"("activity":"removal-wait","command":"21",)"));
  Ask("pull");
  EXPECT_THAT(Ask("state"), HasSubstr(R"("activity":"card-wait","command":"21",)"));
  model_.SetInstantWork(false);
  Ask("insert");
  EXPECT_THAT(Ask("state"), HasSubstr(R"("activity":"work","command":"21",)"));
  Ask("power off");
  const std::string off = Ask("state");
  EXPECT_THAT(off, HasSubstr(R"("activity":"off","command":null,)"));
  EXPECT_THAT(off, HasSubstr(R"("power":false,)"));
}

TEST_F(ScriptInJson, TellsSettingsAndIndicators) {
  Ask("series ql8");
  Ask("speed 1200");
  Ask("case-parts on");
  Ask("fault status 38 for 2");
  Ask("fault add mute until cleared");
  const std::string faults = R"("faults":[{"id":1,"text":"status 38 for 2","left":2},)"
                             R"({"id":2,"text":"mute until cleared","left":null}])";
  EXPECT_THAT(Ask("state"), HasSubstr(R"("power":true,"series":"ql8","speed":1200,"pacing":false,)"
                                      R"("caseParts":true,)" +
                                      faults));
  EXPECT_EQ(Ask("fault list"), R"({"ok":true,)" + faults + "}");
  Ask("fault clear");
  // 5Ah: buzzer on, LED red and flashing.
  EXPECT_EQ(Exchange("02 5A 31 32 32 03 68", 6), "06 02 5A 20 03 79");
  EXPECT_THAT(Ask("state"),
              HasSubstr(R"("led":{"colour":"red","operation":"flashing"},"buzzer":"on",)"));
}

TEST_F(ScriptInJson, TellsFramesAndReplies) {
  console_.Write("02 95 03 96");
  EXPECT_EQ(Ask("wait frame"), R"({"ok":true,"hex":"02 95 03 96","code":"95","status":null,)"
                               R"("meaning":"95h card transport count request"})");
  EXPECT_EQ(Ask("wait reply"), R"({"ok":true,"hex":"02 95 20 30 03 86","code":"95","status":"20",)"
                               R"("meaning":"reply 95h: 20h normal status, \"0\""})");
  Exchange("02 20 03 23", 1);
  EXPECT_EQ(Ask("wait reply 20"),
            R"({"ok":true,"hex":"10","code":"20","status":null,"meaning":"10h reject"})");
  EXPECT_EQ(Ask("wait reply any 1"),
            R"({"ok":false,"error":"no such reply left in 1 milliseconds"})");
}

TEST_F(ScriptInJson, TellsCardsTracksAndFaults) {
  EXPECT_EQ(Ask("card new cleaning"), R"({"ok":true,"number":2,"name":"Card 2"})");
  EXPECT_EQ(Ask("card list"),
            R"({"ok":true,"cards":[{"number":1,"name":"Card 1","kind":"ordinary","chosen":false},)"
            R"({"number":2,"name":"Card 2","kind":"cleaning","chosen":true}]})");
  EXPECT_EQ(Ask("presets"), R"({"ok":true,"presets":[null,null,null]})");
  Ask("card choose 1");
  Ask("track 1 A\"");
  Ask("insert");
  Exchange("02 21 03 22", 8);
  EXPECT_EQ(Ask("buffers"), R"({"ok":true,"buffers":["A\"","",""]})");
  EXPECT_EQ(Ask("read track 1"), R"({"ok":true,"text":"A\""})");
  EXPECT_EQ(Ask("fault mute"), R"({"ok":true,"id":1})");
  EXPECT_EQ(Ask("fault add mute"), R"({"ok":true,"id":2})");
}

TEST_F(ScriptInJson, TellsTheNewDevice) {
  Ask("unplug");
  const std::string answer = Ask("plug");
  EXPECT_EQ(answer, R"({"ok":true,"device":")" + server_.DevicePath() + "\"}");
}

TEST_F(ScriptInJson, NamesItsLines) {
  EXPECT_THAT(Ask("help"), testing::AllOf(StartsWith(R"({"ok":true,"lines":["help [LINE]",)"),
                                          EndsWith(R"(,"quit [STATUS]"]})")));
  EXPECT_THAT(Ask("help quit"),
              StartsWith(R"({"ok":true,"lines":["quit [STATUS]"],"help":"quit [STATUS]: Ends)"));
}

TEST_F(ScriptInJson, TellsEventsBetweenAnswersWhileItIsAskedTo) {
  Exchange("02 95 03 96", 7);
  EXPECT_EQ(Ask("events on"), R"({"ok":true})");
  told_.clear();
  Exchange("02 96 03 95", 7);
  ASSERT_TRUE(support::WaitFor([this] { return told_.size() >= 3; }));
  EXPECT_EQ(WithoutTime(told_[0]),
            R"({"event":"received","hex":"02 96 03 95","code":"96","status":null,)"
            R"("meaning":"96h print count request","comment":null})");
  EXPECT_EQ(WithoutTime(told_[1]),
            R"({"event":"sent","hex":"06","code":null,"status":null,"meaning":"06h acknowledge",)"
            R"("comment":null})");
  EXPECT_THAT(
      WithoutTime(told_[2]),
      StartsWith(R"({"event":"sent","hex":"02 96 20 30 03 85","code":"96","status":"20",)"));
  told_.clear();
  Ask("insert");
  ASSERT_TRUE(support::WaitFor([this] { return told_.size() >= 2; }));
  EXPECT_EQ(told_[0], R"({"ok":true})");
  EXPECT_THAT(WithoutTime(told_[1]), StartsWith(R"({"event":"state","card":{"place":"front",)"));
  EXPECT_EQ(Ask("events off"), R"({"ok":true})");
  told_.clear();
  Exchange("02 95 03 96", 7);
  Ask("pull");
  EXPECT_EQ(told_, std::vector<std::string>{R"({"ok":true})"});
}

TEST_F(ScriptInJson, TellsWhatAFaultDid) {
  Ask("events on");
  Ask("fault status 38");
  told_.clear();
  Exchange("02 95 03 96", 6);
  ASSERT_TRUE(support::WaitFor([this] { return told_.size() >= 2; }));
  EXPECT_THAT(told_, testing::Contains(HasSubstr(
                         "\"comment\":\"fault: status 38 (status 38h answers in place of the "
                         "work)\"}")));
}

TEST(ScriptInWords, TellsNoEvents) {
  PrinterModel model(support::InstalledFonts(), link::CodePage::kWestern);
  PrinterServer server(model);
  log::LineRecorder recorder;
  PrinterScript script(model, server, recorder);
  std::vector<std::string> answers;
  QObject::connect(&script, &PrinterScript::Answered,
                   [&](const QByteArray& answer) { answers.push_back(answer.toStdString()); });
  script.Feed("events on\nevents\n");
  EXPECT_EQ(answers, (std::vector<std::string>{"error events are told with --json alone",
                                               "error events takes \"on\" or \"off\""}));
}

}  // namespace
}  // namespace vantrel::printer
