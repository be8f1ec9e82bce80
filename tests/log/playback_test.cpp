// SPDX-License-Identifier: MIT

// Bytes are written out: 02 code and data 03, and the exclusive-or of all after 02.

#include "log/playback.h"

#include "tests/log/log_rows.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;
using protocol::Moment;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

const std::string k21 = "\x02\x21\x03\x22";
const std::string k21Bad = "\x02\x21\x03\x55";
const std::string k22 = "\x02\x22\x03\x21";
const std::string k46With0 = "\x02\x46\x30\x03\x75";
const std::string k46With1 = "\x02\x46\x31\x03\x74";
const std::string kReply21 = "\x02\x21\x20\x41\x03\x43";
const std::string kReply22 = "\x02\x22\x20\x03\x01";
const std::string kAcknowledge = "\x06";
const std::string kResend = "\x15";
const std::string kReject = "\x10";

// Plays rows back and keeps what was sent and when.
class Player {
 public:
  explicit Player(const std::vector<LogEntry>& rows, PlaybackSettings settings = {})
      : playback(rows, settings) {
    playback.OnSend([this](const link::Bytes& chunk) {
      sent.emplace_back(now_.count(), std::string(chunk.begin(), chunk.end()));
    });
    playback.OnUnexpected([this](const std::string& words) { told.push_back(words); });
  }

  // The console sends bytes at a moment; all that is due until then has gone out.
  void Send(Moment now, const std::string& bytes) {
    RunTo(now);
    playback.Receive({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, now);
  }
  void RunTo(Moment now) {
    while (playback.NextAdvance() && *playback.NextAdvance() <= now) {
      now_ = *playback.NextAdvance();
      playback.Advance(now_);
    }
    now_ = now;
  }

  Playback playback;
  std::vector<std::pair<int, std::string>> sent;  // milliseconds and bytes
  std::vector<std::string> told;

 private:
  Moment now_{0};
};

std::vector<LogEntry> TwoReads() {
  return {To(0ms, k21),    From(2ms, kAcknowledge),    From(700ms, kReply21),
          To(1000ms, k22), From(1005ms, kAcknowledge), From(1005ms, kReply22)};
}

TEST(PlaybackTest, AnswersWithTheGapsOfThen) {
  Player player(TwoReads());
  player.Send(100ms, k21);
  player.RunTo(900ms);
  EXPECT_THAT(player.sent, ElementsAre(Pair(102, kAcknowledge), Pair(800, kReply21)));
  EXPECT_EQ(player.playback.Summary(), "replayed 1 of 2 frames, 0 unexpected");
  player.Send(5000ms, k22);
  player.RunTo(6000ms);
  EXPECT_THAT(player.sent, ElementsAre(Pair(102, kAcknowledge), Pair(800, kReply21),
                                       Pair(5005, kAcknowledge + kReply22)));
  EXPECT_EQ(player.playback.Summary(), "replayed 2 of 2 frames, 0 unexpected");
  EXPECT_TRUE(player.playback.IsSuccess());
}

TEST(PlaybackTest, CountsGapsFromTheFirstByteOfTheFrame) {
  Player player(TwoReads());
  player.Send(100ms, k21.substr(0, 2));
  player.Send(300ms, k21.substr(2));
  EXPECT_THAT(player.sent, ElementsAre(Pair(300, kAcknowledge)));  // 102 was too early
  player.RunTo(2000ms);
  EXPECT_THAT(player.sent, ElementsAre(Pair(300, kAcknowledge), Pair(800, kReply21)));
}

// A clock that was put back while the capture was made.
TEST(PlaybackTest, KeepsTheOrderOfAnswersWhoseTimesGoBack) {
  Player player({To(0ms, k21), From(700ms, kAcknowledge), From(2ms, kReply21)});
  player.Send(100ms, k21);
  player.RunTo(900ms);
  EXPECT_THAT(player.sent, ElementsAre(Pair(800, kAcknowledge), Pair(800, kReply21)));
}

TEST(PlaybackTest, AnswersAtOnceAndInOneChunkWhereThatIsWished) {
  Player player(TwoReads(), {.instant = true});
  player.Send(100ms, k21);
  EXPECT_THAT(player.sent, ElementsAre(Pair(100, kAcknowledge + kReply21)));
}

TEST(PlaybackTest, SendsWhatCameBeforeTheFirstFrameWithItsAnswers) {
  Player player({From(0ms, "ab"), From(0ms, kResend), From(3ms, "c"), To(10ms, k21),
                 From(12ms, kAcknowledge)});
  player.RunTo(500ms);
  EXPECT_THAT(player.sent, IsEmpty());
  player.Send(600ms, k21);
  player.RunTo(700ms);
  EXPECT_THAT(player.sent,
              ElementsAre(Pair(600, "ab" + kResend), Pair(600, "c"), Pair(602, kAcknowledge)));
}

TEST(PlaybackTest, RejectsAnotherFrameAndKeepsTheExpectation) {
  Player player(TwoReads(), {.instant = true});
  player.Send(1ms, k22);
  EXPECT_THAT(player.sent, ElementsAre(Pair(1, kReject)));
  EXPECT_THAT(player.told, ElementsAre("expected 21h, came 22h"));
  player.Send(2ms, k21);
  player.Send(3ms, k22);
  EXPECT_EQ(player.playback.Summary(), "replayed 2 of 2 frames, 1 unexpected");
  EXPECT_TRUE(player.playback.HasEnded());
  EXPECT_FALSE(player.playback.IsSuccess());
}

TEST(PlaybackTest, TellsHowTheDataOfTheSameCommandDiffer) {
  Player player({To(0ms, k46With0), From(1ms, kAcknowledge)}, {.instant = true});
  player.Send(1ms, k46With1);
  player.Send(2ms, "\x02\x46\x03\x45");
  EXPECT_THAT(player.sent, ElementsAre(Pair(1, kReject), Pair(2, kReject)));
  EXPECT_THAT(player.told,
              ElementsAre("46h: data \"1\" instead of \"0\"", "46h: no data instead of \"0\""));
}

TEST(PlaybackTest, TellsWhereLongDataBeginToDiffer) {
  // 01h twice or not at all leaves the block check as it is: 3Bh and 03h and an even number of 'A'.
  const std::string text(500, 'A');
  Player player({To(0ms, "\x02\x3B" + text + "\x03\x38")}, {.instant = true});
  player.Send(1ms, "\x02\x3B" + text.substr(2) + "BB" + "\x03\x38");
  EXPECT_THAT(player.told, ElementsAre("3Bh: data differ from byte 499 on"));
}

TEST(PlaybackTest, TakesOtherDataWhereTheCodeIsToMatchAlone) {
  Player player({To(0ms, k46With0), From(1ms, kAcknowledge), To(2ms, k21)},
                {.instant = true, .match_code = true});
  player.Send(1ms, k46With1);
  player.Send(2ms, k22);
  EXPECT_THAT(player.sent, ElementsAre(Pair(1, kAcknowledge), Pair(2, kReject)));
  EXPECT_THAT(player.told, ElementsAre("expected 21h, came 22h"));
}

TEST(PlaybackTest, HasAFrameWithABadBlockCheckSentAgain) {
  Player player(TwoReads(), {.instant = true});
  player.Send(1ms, k21Bad);
  EXPECT_THAT(player.sent, ElementsAre(Pair(1, kResend)));
  EXPECT_THAT(player.told, ElementsAre("expected 21h, came 21h with a bad block check"));
  player.Send(2ms, k21);
  EXPECT_EQ(player.playback.Summary(), "replayed 1 of 2 frames, 1 unexpected");
}

TEST(PlaybackTest, PlaysResendsAsTheyWere) {
  // The printer asked for the same frame again, as a fault has it do.
  Player player({To(0ms, k21), From(1ms, kResend), To(5ms, k21), From(6ms, kAcknowledge)},
                {.instant = true});
  player.Send(1ms, k21);
  player.Send(2ms, k21);
  EXPECT_THAT(player.sent, ElementsAre(Pair(1, kResend), Pair(2, kAcknowledge)));
  EXPECT_TRUE(player.playback.IsSuccess());
}

TEST(PlaybackTest, TakesAGoodFrameWhereTheLineHadSpoiltIt) {
  const std::string spoilt = "\x02\x29\x03\x22";  // 21h with a bit too many
  const std::vector<LogEntry> rows{To(0ms, spoilt), From(1ms, kResend), To(5ms, k21),
                                   From(6ms, kAcknowledge)};
  Player same_again(rows, {.instant = true});
  same_again.Send(1ms, spoilt);
  same_again.Send(2ms, k21);
  EXPECT_THAT(same_again.sent, ElementsAre(Pair(1, kResend), Pair(2, kAcknowledge)));
  Player unspoilt(rows, {.instant = true});
  unspoilt.Send(1ms, k21);
  unspoilt.Send(2ms, k21);
  EXPECT_THAT(unspoilt.sent, ElementsAre(Pair(1, kResend), Pair(2, kAcknowledge)));
  Player another(rows, {.instant = true});
  another.Send(1ms, k22);
  EXPECT_THAT(another.told, ElementsAre("expected 29h, came 22h"));
}

TEST(PlaybackTest, PassesOverBytesThatAreNoFrame) {
  Player player({To(0ms, "noise"), To(1ms, "\x02\x21"), To(2ms, k21), From(3ms, kAcknowledge)},
                {.instant = true});
  player.Send(1ms, "xyz\x06\x02\x29\x29" + k21);
  EXPECT_THAT(player.sent, ElementsAre(Pair(1, kAcknowledge)));
  EXPECT_TRUE(player.playback.IsSuccess());
}

TEST(PlaybackTest, ForgetsAHalfFrameAfterSilence) {
  Player player({To(0ms, k21), From(3ms, kAcknowledge)}, {.instant = true});
  player.Send(0ms, "\x02\x21");
  player.Send(600ms, "\x03\x22");
  EXPECT_THAT(player.sent, IsEmpty());
  player.Send(700ms, k21);
  EXPECT_THAT(player.sent, ElementsAre(Pair(700, kAcknowledge)));
}

TEST(PlaybackTest, MatchesAFrameThatComesBeforeTheAnswersOfTheOneBefore) {
  Player player(TwoReads());
  player.Send(0ms, k21);
  player.Send(100ms, k22);
  player.RunTo(2000ms);
  EXPECT_THAT(player.sent, ElementsAre(Pair(2, kAcknowledge), Pair(105, kAcknowledge + kReply22),
                                       Pair(700, kReply21)));
  EXPECT_TRUE(player.playback.IsSuccess());
}

TEST(PlaybackTest, RejectsEverythingAfterTheEnd) {
  Player player({To(0ms, k21), From(1ms, kAcknowledge)}, {.instant = true});
  player.Send(0ms, k21);
  EXPECT_TRUE(player.playback.IsSuccess());
  player.Send(1ms, k21);
  player.Send(2ms, k21Bad);
  EXPECT_THAT(player.sent, ElementsAre(Pair(0, kAcknowledge), Pair(1, kReject), Pair(2, kReject)));
  EXPECT_THAT(player.told, ElementsAre("expected no more frames, came 21h",
                                       "expected no more frames, came 21h with a bad block check"));
  EXPECT_EQ(player.playback.Summary(), "replayed 1 of 1 frames, 2 unexpected");
}

TEST(PlaybackTest, PlaysAFrameThatNobodyAnswered) {
  Player player({To(0ms, k21), To(10ms, k22), From(11ms, kAcknowledge)});
  player.Send(0ms, k21);
  EXPECT_EQ(player.playback.Summary(), "replayed 1 of 2 frames, 0 unexpected");
  player.Send(1ms, k22);
  EXPECT_FALSE(player.playback.HasEnded());  // its answer is on its way
  player.RunTo(2ms);
  EXPECT_TRUE(player.playback.HasEnded());
}

}  // namespace
}  // namespace vantrel::log
