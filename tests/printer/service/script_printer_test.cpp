// SPDX-License-Identifier: MIT

// The lines of a script that deal with the printer, its line and its faults.

#include "printer/line/socket_line.h"
#include "protocol/tcp_address.h"
#include "tests/printer/service/script_fixture.h"
#include "tests/support/socket_user.h"
#include "tests/support/wait_for.h"

namespace vantrel::printer {
namespace {

using testing::StartsWith;

constexpr const char* kTransports = "02 95 03 96";

class ScriptPrinter : public ScriptFixture {};

TEST_F(ScriptPrinter, UnplugsAndPlugsIn) {
  EXPECT_EQ(Ask("plug"), "error it is plugged in already");
  EXPECT_EQ(Ask("unplug"), "ok");
  EXPECT_EQ(server_.DevicePath(), "");
  EXPECT_EQ(Ask("unplug"), "error it is unplugged already");
  const std::string answer = Ask("plug");
  EXPECT_EQ(answer, "ok " + server_.DevicePath());
  EXPECT_THAT(server_.DevicePath(), StartsWith("/dev/pts/"));
  EXPECT_EQ(Ask("plug it"), "error plug takes no parameter");
  EXPECT_EQ(Ask("unplug it"), "error unplug takes no parameter");
}

TEST_F(ScriptPrinter, PlugsInAfterTheFault) {
  Ask("fault vanish");
  console_.Write(kTransports);
  EXPECT_TRUE(support::WaitFor([this] { return server_.DevicePath().empty(); }));
  EXPECT_EQ(Ask("unplug"), "error it is unplugged already");
  const std::string answer = Ask("plug");
  EXPECT_EQ(answer, "ok " + server_.DevicePath());
  const support::DeviceUser console(server_.DevicePath());
  ASSERT_TRUE(console.IsOpen());
}

TEST(ScriptOnSockets, CutsTheConsoleOffAndLetsNoneIn) {
  PrinterModel model(support::InstalledFonts(), link::CodePage::kWestern);
  PrinterServer server(model, TcpLines({"127.0.0.1", 0}));
  log::LineRecorder recorder;
  PrinterScript script(model, server, recorder, {.json = false, .line = "address"});
  std::vector<std::string> answers;
  QObject::connect(&script, &PrinterScript::Answered,
                   [&](const QByteArray& answer) { answers.push_back(answer.toStdString()); });
  const std::string address = server.DevicePath();
  const std::uint16_t port = protocol::ParseTcpAddress(address, "").port;
  const auto console = support::SocketUser::OnTcp(port);
  console.Write({0x02, 0x95, 0x03, 0x96});
  int changes = 0;
  QObject::connect(&server, &PrinterServer::Received, [&changes] { ++changes; });
  ASSERT_TRUE(support::WaitFor([&changes] { return changes > 0; }));
  script.Feed("unplug\n");
  EXPECT_EQ(console.Read(7).size(), 7U);
  EXPECT_TRUE(console.IsClosed());
  EXPECT_FALSE(support::SocketUser::OnTcp(port).IsOpen());
  script.Feed("plug\n");
  EXPECT_EQ(answers, (std::vector<std::string>{"ok", "ok " + address}));
  EXPECT_TRUE(support::SocketUser::OnTcp(port).IsOpen());
}

TEST_F(ScriptPrinter, ReplacesAddsListsAndClearsFaults) {
  EXPECT_EQ(Ask("fault list"), "ok");
  EXPECT_EQ(Ask("fault silence until cleared"), "ok");
  EXPECT_EQ(Ask("fault status 38 on 95h after 2 for 3"), "ok");
  EXPECT_EQ(Ask("fault add bad-bcc zero on 21 every 2"), "ok 3");
  EXPECT_EQ(Ask("fault   add   mute"), "ok 4");
  EXPECT_EQ(Ask("fault list"),
            "ok 2 \"status 38 on 95 after 2 for 3\" 3 left; 3 \"bad-bcc zero on 21 every 2 until "
            "cleared\"; 4 \"mute next\" 1 left");
  EXPECT_EQ(Ask("fault clear 4"), "ok");
  Exchange(kTransports, 7);
  EXPECT_EQ(Exchange(kTransports, 6), "06 02 95 38 03 AE");
  EXPECT_EQ(Ask("fault list"),
            "ok 2 \"status 38 on 95 after 2 for 3\" 2 left; 3 \"bad-bcc zero on 21 every 2 until "
            "cleared\"");
  EXPECT_EQ(Ask("fault clear"), "ok");
  EXPECT_EQ(Ask("fault list"), "ok");
}

TEST_F(ScriptPrinter, KeepsThePlanWhereALineIsRefused) {
  Ask("fault mute");
  EXPECT_EQ(Ask("fault"), "error fault takes the fault to have");
  EXPECT_EQ(Ask("fault add"), "error fault takes the fault to have");
  EXPECT_EQ(Ask("fault sulk"), "error There is no fault 'sulk'.");
  EXPECT_EQ(Ask("fault add random 1 0 mute"),
            "error 'random' needs a number from 1 to 100, not '0'.");
  EXPECT_EQ(Ask("fault list all"), "error fault list takes no parameter");
  for (const char* bad : {"9", "x", "0", "-1"})
    EXPECT_EQ(Ask("fault clear " + std::string(bad)),
              "error there is no fault \"" + std::string(bad) + "\"");
  EXPECT_EQ(Ask("fault list"), "ok 1 \"mute next\" 1 left");
  for (int i = 1; i < 1000; ++i) Ask("fault add mute");
  EXPECT_EQ(Ask("fault add mute"), "error The plan holds no more than 1000 faults.");
}

TEST_F(ScriptPrinter, QuotesNoMoreThanSixtyCharacters) {
  const std::string most(60, 'x');
  EXPECT_EQ(Ask("fault " + most), "error There is no fault '" + most + "'.");
  EXPECT_EQ(Ask("fault " + most + 'x'), "error There is no fault '" + most + "...'.");
  EXPECT_EQ(Ask(most + 'x'), "error unknown command \"" + most + "...\"; help tells the commands");
  EXPECT_EQ(Ask("wait frame " + most + 'x'),
            "error wait frame takes a code of two hex digits or \"any\", not \"" + most + "...\"");
  EXPECT_EQ(Ask("\x01\xFF\xC3\xA4"),
            "error unknown command \"\\x01\\xFF\xC3\xA4\"; help tells the commands");
}

TEST_F(ScriptPrinter, PressesTheCleaningButton) {
  EXPECT_EQ(Ask("button cleaning"), "ok");
  EXPECT_EQ(Ask("wait card-wait"), "ok");
  EXPECT_EQ(model_.CommandUnderWay(), 0x52);
  Ask("insert cleaning");
  EXPECT_EQ(model_.State().place, CardPlace::kExit);
  // Nothing was answered.
  EXPECT_EQ(Exchange("02 95 03 96", 7).substr(0, 11), "06 02 95 20");
  EXPECT_EQ(Ask("button"), "error button takes \"cleaning\"");
  EXPECT_EQ(Ask("button cleaning twice"), "error button cleaning takes no parameter");
}

TEST_F(ScriptPrinter, HasNoCleaningButtonWhereItIsDisabledOrOff) {
  // 5Bh "0" holds from the next time on that the power is switched on.
  Exchange("02 5B 30 03 68", 6);
  EXPECT_EQ(Ask("button cleaning"), "ok");
  Ask("power off");
  EXPECT_EQ(Ask("button cleaning"), "error the printer is switched off");
  Ask("power on");
  EXPECT_EQ(Ask("button cleaning"), "error the cleaning button is disabled");
}

TEST_F(ScriptPrinter, FitsTheCaseParts) {
  EXPECT_EQ(Ask("case-parts on"), "ok");
  EXPECT_TRUE(model_.State().case_parts);
  EXPECT_EQ(Ask("case-parts off"), "ok");
  EXPECT_FALSE(model_.State().case_parts);
  EXPECT_EQ(Ask("case-parts"), "error case-parts takes \"on\" or \"off\"");
}

TEST_F(ScriptPrinter, SwitchesPacing) {
  EXPECT_EQ(Ask("pacing on"), "ok");
  EXPECT_TRUE(model_.Pacing());
  EXPECT_EQ(Ask("pacing off"), "ok");
  EXPECT_FALSE(model_.Pacing());
  EXPECT_EQ(Ask("pacing maybe"), "error pacing takes \"on\" or \"off\"");
}

TEST_F(ScriptPrinter, ChangesTheCodePage) {
  for (const char* page : {"932", "936", "949", "950"}) {
    EXPECT_EQ(Ask("code-page " + std::string(page)), "ok");
    EXPECT_EQ(static_cast<int>(model_.State().code_page), std::stoi(page));
  }
  EXPECT_EQ(Ask("code-page 437"), "error code-page takes 932, 936, 949, 950 or 1252");
  EXPECT_EQ(Ask("code-page"), "error code-page takes 932, 936, 949, 950 or 1252");
  EXPECT_EQ(static_cast<int>(model_.State().code_page), 950);
}

TEST_F(ScriptPrinter, TellsOfItsLines) {
  EXPECT_THAT(Ask("help"), StartsWith("ok help [LINE] | insert [ordinary|cleaning] | pull | "));
  EXPECT_THAT(Ask("help pull"), StartsWith("ok pull: Pulls the card out"));
  EXPECT_THAT(Ask("help card"), testing::AllOf(StartsWith("ok card new [ordinary|cleaning]: "),
                                               testing::HasSubstr(" | card choose N: ")));
  EXPECT_EQ(Ask("help wait end"), "error there is no line \"wait end\"");
}

TEST_F(ScriptPrinter, EndsWithTheStatusThatItIsTold) {
  Ask("pull");
  EXPECT_EQ(script_.Status(), 1);
  for (const char* bad : {"quit -1", "quit 256", "quit x", "quit 1 2"})
    EXPECT_EQ(Ask(bad), "error quit takes a status from 0 to 255, or nothing") << bad;
  EXPECT_EQ(Ask("quit 0"), "ok");
  EXPECT_EQ(script_.Status(), 0);
  EXPECT_TRUE(support::WaitFor([this] { return finished_ == 1; }));
  EXPECT_EQ(AskSoon("state"), "");
}

TEST_F(ScriptPrinter, EndsWellWhereNothingWasRefused) {
  Ask("state");
  EXPECT_EQ(Ask("quit"), "ok");
  EXPECT_EQ(script_.Status(), 0);
}

}  // namespace
}  // namespace vantrel::printer
