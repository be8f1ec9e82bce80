// SPDX-License-Identifier: MIT

// Pictures to dots, and dots to frames.

#include "link/frame.h"
#include "tests/send/command_lines.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vantrel::send {
namespace {

// A picture of these greys, row after row, none transparent.
Picture Grey(int width, std::vector<std::uint8_t> grey) {
  Picture picture;
  picture.width = width;
  picture.height = static_cast<int>(grey.size()) / width;
  picture.alpha.assign(grey.size(), 255);
  picture.grey = std::move(grey);
  return picture;
}

Picture Black(int width, int height) {
  return Grey(width, std::vector<std::uint8_t>(static_cast<std::size_t>(width * height), 0));
}

// The dots as characters, row after row: '#' for black.
std::string Dots(const Picture& picture, const BlackAndWhite& how) {
  std::string dots;
  for (const bool black : BlackDots(picture, how)) dots += black ? '#' : '.';
  return dots;
}

TEST(BlackDots, AreDarkerThanTheThreshold) {
  const Picture picture = Grey(5, {0, 127, 128, 129, 255});
  EXPECT_EQ(Dots(picture, {}), "##...");
  EXPECT_EQ(Dots(picture, {.threshold = 0}), ".....");
  EXPECT_EQ(Dots(picture, {.threshold = 129}), "###..");
  EXPECT_EQ(Dots(picture, {.threshold = 256}), "#####");
}

TEST(BlackDots, AreTurnedAboutWhenInverted) {
  EXPECT_EQ(Dots(Grey(4, {0, 127, 128, 255}), {.invert = true}), "..##");
}

TEST(BlackDots, AreNoneWhereThePictureIsTransparent) {
  Picture picture = Grey(4, {0, 0, 255, 255});
  picture.alpha = {255, 0, 255, 0};
  EXPECT_EQ(Dots(picture, {}), "#...");
  EXPECT_EQ(Dots(picture, {.invert = true}), "..#.");
  picture.alpha = {128, 127, 128, 127};
  EXPECT_EQ(Dots(picture, {}), "#...");
}

TEST(BlackDots, SpreadTheirErrorWhenDithered) {
  // 100 is black, which hands 7/16 of 100 (43) to the next: 143 is white, an error of -112, of
  // which -49 goes on: 51 is black, and 100 + 22 too.
  EXPECT_EQ(Dots(Grey(4, {100, 100, 100, 100}), {.dither = true}), "#.##");
  // 5/16 of 100 (31) go to the dot below, which is white then.
  EXPECT_EQ(Dots(Grey(1, {100, 100}), {.dither = true}), "#.");
  // Half black in the mean.
  const std::string dots = Dots(Grey(32, std::vector<std::uint8_t>(1024, 128)), {.dither = true});
  const auto black = std::count(dots.begin(), dots.end(), '#');
  EXPECT_GT(black, 490);
  EXPECT_LT(black, 534);
  EXPECT_EQ(Dots(Grey(2, {0, 255}), {.dither = true}), "#.");
}

// The data fields of a command line whose picture is `picture`, as text.
std::vector<std::string> Data(const Words& words, const Picture& picture) {
  const Means means{
      .read_picture = [&](const std::string&, const PictureLimits&) { return picture; }};
  std::vector<std::string> data;
  for (const std::string& frame : Composed(words, means).frames) {
    const link::Bytes bytes = link::BytesOf(frame);
    data.emplace_back(bytes.begin() + 2, bytes.end() - 2);
  }
  return data;
}

TEST(PictureFrames, HaveALineAFrameInLineMode) {
  // Two columns of ten dots, filled up to two bytes: FFh and 03h.
  EXPECT_EQ(Data({"43", "--x", "7", "--y", "1", "--picture", "p"}, Black(2, 10)),
            (Words{"7,1,FF03", "8,1,FF03"}));
}

TEST(PictureFrames, HaveWholeLinesInBlockMode) {
  EXPECT_EQ(Data({"4D", "--picture", "p"}, Black(3, 8)), Words{"0,0,1,FFFFFF"});
  // The top dot is the lowest bit: a column of black, white ... from the top is 55h.
  EXPECT_EQ(Data({"4D", "--picture", "p"}, Grey(1, {0, 255, 0, 255, 0, 255, 0, 255})),
            Words{"0,0,1,55"});
}

TEST(PictureFrames, AreAsManyAsNeeded) {
  const auto data = Data({"4D", "--picture", "p"}, Black(480, 320));
  // Five lines of 40 bytes make the longest frame, 413 bytes with "479,0,40,".
  ASSERT_EQ(data.size(), 96U);
  EXPECT_EQ(data[0], "0,0,40," + std::string(400, 'F'));
  EXPECT_EQ(data[95], "475,0,40," + std::string(400, 'F'));
  EXPECT_EQ(Data({"43", "--picture", "p"}, Black(480, 320)).size(), 480U);
}

TEST(PictureFrames, GoOutWhereTheyAreBlankToo) {
  EXPECT_EQ(Data({"4D", "--picture", "p"}, Grey(1, std::vector<std::uint8_t>(8, 255))),
            Words{"0,0,1,00"});
}

TEST(PictureFrames, AreNoLongerThanTheyMayBe) {
  for (const char* command : {"43", "4D"}) {
    for (const int most : {20, 21, 30, 50, 100, 413, 1000}) {
      std::size_t bytes = 0;
      for (const std::string& data : Data({command, "--x", "400", "--y", "9", "--picture", "p",
                                           "--frame-bytes", std::to_string(most)},
                                          Black(80, 240))) {
        EXPECT_LE(data.size() + 4, static_cast<std::size_t>(most));
        bytes += static_cast<std::size_t>(std::count(data.begin(), data.end(), 'F')) / 2;
      }
      EXPECT_EQ(bytes, 80U * 30U) << command << " in " << most;
    }
  }
  // Four bytes of a line fit beside "479,0,4,".
  EXPECT_EQ(Data({"4D", "--picture", "p", "--frame-bytes", "20"}, Black(1, 64)),
            (Words{"0,0,4,FFFFFFFF", "0,4,4,FFFFFFFF"}));
}

TEST(PictureFrames, RefuseWhatTheyCannotBe) {
  const Means means{.read_picture = [](const std::string& path, const PictureLimits& limits) {
    if (path == "large") throw PictureError(TooLarge(500, 9, limits));
    return Black(24, 24);
  }};
  EXPECT_EQ(Refusal({"4D", "--x", "1", "--y", "39", "--picture", "large"}, means),
            "The picture has 500 x 9 dots; 479 x 8 fit.");
  EXPECT_EQ(Refusal({"4D", "00", "--picture", "p"}, means), "There are both HEX and --picture.");
  EXPECT_EQ(Refusal({"43", "00", "--dither"}, means), "--dither needs --picture.");
  EXPECT_EQ(Refusal({"4D", "--line-bytes", "1", "--picture", "p"}, means),
            "--line-bytes is for HEX, not for --picture.");
  EXPECT_EQ(Refusal({"43", "--picture", "p", "--frame-bytes", "19"}, means),
            "--frame-bytes is a number from 20 to 65536, not '19'.");
  EXPECT_EQ(Refusal({"43", "--picture", "p", "--frame-bytes", "65537"}, means),
            "--frame-bytes is a number from 20 to 65536, not '65537'.");
  EXPECT_EQ(
      Refusal({"43", "--picture", "p", "--frame-bytes", "65536", "--threshold", "256"}, means), "");
  EXPECT_EQ(Refusal({"43", "--picture", "p", "--threshold", "0"}, means), "");
  EXPECT_EQ(Refusal({"43", "--picture", "p", "--threshold", "257"}, means),
            "--threshold is a number from 0 to 256, not '257'.");
  EXPECT_EQ(Refusal({"44", "0", "--picture", "p"}, means), "");
  EXPECT_EQ(Refusal({"45", "0", "--picture", "p"}, means),
            "The picture has 24 x 24 dots; the character has 12 x 24.");
}

TEST(PictureFrames, RegisterCharacters) {
  EXPECT_EQ(Data({"44", "0", "--picture", "p"}, Black(24, 24)),
            Words{"0,0," + std::string(144, 'F')});
  EXPECT_EQ(Data({"45", "f", "--size", "16", "--picture", "p"}, Black(8, 16)),
            Words{"1,F," + std::string(32, 'F')});
}

}  // namespace
}  // namespace vantrel::send
