// SPDX-License-Identifier: MIT

// What stands on a terminal at standard error.

#include "link/frame.h"
#include "tests/send/send_program.h"
#include "tests/support/device_user.h"
#include "tests/support/test_terminal.h"

#include <sys/ioctl.h>

namespace vantrel::send {
namespace {

class Terminal : public SendProgram {
 protected:
  // Runs vantrel-send with the terminal at standard error and returns what was written to it.
  std::string Shown(const QStringList& words, int status, const QByteArray& input = {}) {
    QProcess process;
    process.setStandardErrorFile(QString::fromStdString(terminal_.Device()));
    process.start(VANTREL_SEND_PROGRAM, QStringList{"--port", device_} + words);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_EQ(EndOf(process).status, status);
    // The system carries over what was written in its own time; a byte that the program never
    // writes comes last.
    const std::string last = "FF";
    support::DeviceUser(terminal_.Device()).Write(last);
    std::string hex;
    for (std::string part = "none"; !part.empty() && !hex.ends_with(last); hex += part)
      part = terminal_.Received(1);
    EXPECT_TRUE(hex.ends_with(last)) << hex;
    const link::Bytes bytes = link::BytesOf(hex.substr(0, hex.rfind(last)));
    return {bytes.begin(), bytes.end()};
  }
  void SetColumns(unsigned short columns) const {
    const winsize size{.ws_row = 24, .ws_col = columns, .ws_xpixel = 0, .ws_ypixel = 0};
    ASSERT_EQ(ioctl(terminal_.Descriptor(), TIOCSWINSZ, &size), 0);
  }

  support::TestTerminal terminal_;
};

TEST_F(Terminal, ShowsHowFarARunIs) {
  Begin();
  const std::string shown = Shown({"--repeat", "5", "58"}, 0);
  EXPECT_TRUE(shown.starts_with("\r[####................] 1 of 5, ")) << shown;
  EXPECT_NE(shown.find(" a second, 0 failures, 0:0"), std::string::npos) << shown;
  // The line has gone when the summary comes.
  const std::size_t summary = shown.find("\r\x1B[Kvantrel-send: 5 exchanges, 0 failures; median ");
  EXPECT_NE(summary, std::string::npos) << shown;
  EXPECT_EQ(shown.find("of 5", summary), std::string::npos) << shown;
}

TEST_F(Terminal, ShowsNoShareOfARunWithoutEnd) {
  Begin();
  ASSERT_EQ(Ask("fault reject after 3"), "ok");
  const std::string shown = Shown({"--until-failure", "-"}, 1, "58\n");
  EXPECT_TRUE(shown.starts_with("\r1, ")) << shown;
  EXPECT_EQ(shown.find(" left"), std::string::npos) << shown;
  EXPECT_NE(shown.find("\x1B[Kvantrel-send: 3 exchanges, 1 failure (reject: 1); median "),
            std::string::npos)
      << shown;
  EXPECT_NE(shown.find("Stopped at line 1, round 3; go on with --from 1."), std::string::npos)
      << shown;
}

TEST_F(Terminal, ShowsNoMoreThanALineHolds) {
  Begin();
  SetColumns(30);
  const std::string shown = Shown({"--repeat", "2", "58"}, 0);
  EXPECT_TRUE(shown.starts_with("\r[##########..........] 1 of 2\x1B[K")) << shown;
}

TEST_F(Terminal, ShowsNothingOfOneCommand) {
  Begin();
  EXPECT_EQ(Shown({"58"}, 0), "");
}

}  // namespace
}  // namespace vantrel::send
