// SPDX-License-Identifier: MIT

// The windows of a capture that is played back and of a pass-through.

#include "log/frm_playback.h"

#include "log/frm_through.h"
#include "log/playback_server.h"
#include "printer/line/pseudo_terminal.h"
#include "tests/support/device_user.h"
#include "tests/support/recording_guard.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/scripted_file_chooser.h"
#include "tests/support/wait_for.h"
#include "tests/support/window_checks.h"

#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantrel::log {
namespace {

TEST(FrmPlaybackTest, ShowsHowFarItIs) {
  LogEntry row;
  row.bytes = "\x02\x21\x03\x22";
  Playback playback(std::vector<LogEntry>{row, row}, {});
  LineRecorder recorder;
  PlaybackServer server(playback, printer::MakePseudoTerminal(), recorder);
  support::ScriptedDialogs dialogs;
  support::ScriptedFileChooser files;
  support::RecordingGuard guard;
  FrmPlayback form("/tmp/line.pcapng", server, recorder, {dialogs, files, guard});
  const auto text = [&form](const char* name) { return form.findChild<QLabel*>(name)->text(); };
  EXPECT_EQ(form.windowTitle(), "Playing back line.pcapng");
  EXPECT_TRUE(text("LblDevice").contains(server.DevicePath().c_str()));
  EXPECT_EQ(text("LblPlayed"), "Played 0 of 2 frames, 0 unexpected");
  const support::DeviceUser console(server.DevicePath());
  console.Write("02 21 03 22 02 22 03 21");
  EXPECT_TRUE(
      support::WaitFor([&] { return text("LblPlayed") == "Played 1 of 2 frames, 1 unexpected"; }));
  EXPECT_EQ(text("LblUnexpected"), "Last unexpected frame: expected 21h, came 22h");
  form.show();
  EXPECT_EQ(support::MnemonicsTwiceIn(form), QStringList());
  EXPECT_EQ(support::UnnamedIn(form), QStringList());
}

TEST(FrmThroughTest, NamesItsDevicesAndEveryWidget) {
  LineRecorder recorder;
  support::ScriptedDialogs dialogs;
  support::ScriptedFileChooser files;
  support::RecordingGuard guard;
  FrmThrough form("/dev/pts/3", "/dev/ttyUSB0", recorder, {dialogs, files, guard});
  form.show();
  EXPECT_EQ(form.findChild<QLabel*>("LblThrough")->text(),
            "The console opens /dev/pts/3; the printer is at /dev/ttyUSB0.");
  EXPECT_EQ(form.findChild<QLabel*>("LblLogEmpty")->text(),
            "Nothing on the line yet. A console opens /dev/pts/3.");
  EXPECT_EQ(support::MnemonicsTwiceIn(form), QStringList());
  EXPECT_EQ(support::UnnamedIn(form), QStringList());
}

}  // namespace
}  // namespace vantrel::log
