// SPDX-License-Identifier: MIT

// A session of every command with the software printer, captured, and the same session with its
// capture played back: the console shows the same.

#include "log/capture_file.h"
#include "log/line_recorder.h"
#include "log/playback_server.h"
#include "log/save_log.h"
#include "printer/line/pseudo_terminal.h"
#include "printer/service/line_recording.h"
#include "tests/endtoend/all_commands.h"
#include "tests/support/file_folder.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace vantrel::endtoend {
namespace {

class CaptureReplay : public AllCommandsTest {
 protected:
  log::LineRecorder recorder_;
  support::FileFolder folder_;
};

TEST_F(CaptureReplay, ShowsTheSameTextsForEveryCommand) {
  std::vector<std::string> then;
  {
    AttendedPrinter printer;
    printer::RecordLineOf(printer.Server(), recorder_);
    then = Session(printer.Server().DevicePath());
  }
  ASSERT_EQ(then.size(), 48U);
  // Not all of them have failed.
  EXPECT_THAT(then[0], testing::HasSubstr("First Track: VANTREL SAMPLE CARD"));
  EXPECT_GT(went_well_, 40);
  recorder_.Finish();
  const std::string path = folder_.Path("session.pcapng");
  ASSERT_EQ(log::SaveLog(recorder_.Log(), path, recorder_.Line()), "");

  std::vector<std::string> damage;
  log::Playback playback(log::ReadCapture(path, damage), {.instant = true});
  EXPECT_TRUE(damage.empty());
  log::LineRecorder again;
  const log::PlaybackServer server(playback, std::make_unique<printer::PseudoTerminal>(), again);
  EXPECT_EQ(Session(server.DevicePath()), then);
  // All but 4Ah send a frame, and 4Bh two.
  EXPECT_EQ(playback.Summary(), "replayed 48 of 48 frames, 0 unexpected");
  EXPECT_TRUE(playback.IsSuccess());
}

}  // namespace
}  // namespace vantrel::endtoend
