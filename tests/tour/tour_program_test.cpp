// SPDX-License-Identifier: MIT

// The tour itself, off-screen: what it tells, and the pictures that it leaves.

#include "tests/support/file_folder.h"
#include "tests/support/patience.h"

#include <QColor>
#include <QDir>
#include <QImage>
#include <QProcess>
#include <gtest/gtest.h>

#include <set>
#include <string>

namespace vantrel::tour {
namespace {

struct Ended {
  int status;
  std::string out;
  std::string errors;
};

class TourProgramTest : public testing::Test {
 protected:
  Ended Run(const QStringList& arguments) {
    QProcess program;
    program.start(VANTREL_PROGRAMS "/vantrel-tour", arguments);
    EXPECT_TRUE(program.waitForFinished(support::kPatience));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    return {program.exitCode(), program.readAllStandardOutput().toStdString(),
            program.readAllStandardError().toStdString()};
  }
  QString Folder() const { return QString::fromStdString(folder_.Path("tour")); }
  QImage Picture(const QString& name) const { return QImage(Folder() + '/' + name + ".png"); }

  support::FileFolder folder_;
};

// Different colours in a picture, at most `most` of them.
int Colours(const QImage& picture, int most) {
  std::set<QRgb> seen;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) {
      seen.insert(picture.pixel(x, y));
      if (static_cast<int>(seen.size()) == most) return most;
    }
  return static_cast<int>(seen.size());
}

TEST_F(TourProgramTest, TellsEachExchangeAndPhotographsEachWindow) {
  const Ended ended = Run({"--instant", Folder()});
  ASSERT_EQ(ended.status, 0) << ended.errors;
  // 58h to ETX: 58 03 give 5Bh; the reply 58 20 "VANTREL 1.01" 03 gives 13h.
  EXPECT_NE(ended.out.find("\nROM Version Request 58\n"
                           "  sent      02 58 03 5B \n"
                           "  received  02 58 20 56 41 4E 54 52 45 4C 20 31 2E 30 31 03 13 \n"
                           "  meaning   ROM Version: VANTREL 1.01\n"),
            std::string::npos)
      << ended.out;
  // A card was put in while the command waited.
  EXPECT_NE(ended.out.find("  meaning   First Track: VANTREL SAMPLE CARD\n"), std::string::npos);
  EXPECT_NE(ended.out.find("  meaning   First Track: WRITTEN BY THE TOUR\n"), std::string::npos);
  EXPECT_TRUE(ended.out.ends_with("\nPictures are in " + Folder().toStdString() + '\n'));

  const QStringList names = QDir(Folder()).entryList(QDir::Files, QDir::Name);
  EXPECT_EQ(names.join(u' ').toStdString(),
            "about.png barcode.png capture.png captures-compared.png card.pbm "
            "card.png console-and-printer.png console-reply.png console-waiting.png "
            "console.png data-input.png data-question.png discharge-question.png "
            "esc-input.png font-data.png font-double.png font.png "
            "image-expansion.png image-line.png image.png led.png "
            "memory-warning.png method-input.png playback.png print-data.png "
            "printer-buffer.png printer-faults.png printer-line.png "
            "printer-standing-with-fault.png printer-tracks.png printer.png "
            "setting-input.png through-ended.png through.png write-input.png");
  for (const QString& name : names) {
    const QImage picture(Folder() + '/' + name);
    EXPECT_FALSE(picture.isNull()) << name.toStdString();
    const int least = name.startsWith("card.") ? 2 : 16;
    EXPECT_EQ(Colours(picture, least), least) << name.toStdString();
  }
  EXPECT_GT(Picture("console").pixelColor(2, 200).lightness(), 200);
}

TEST_F(TourProgramTest, ShowsTheWindowsInADarkPalette) {
  ASSERT_EQ(Run({Folder(), "--dark", "--instant"}).status, 0);
  for (const char* name : {"console", "printer", "font", "capture"})
    EXPECT_LT(Picture(name).pixelColor(2, 200).lightness(), 80) << name;
}

TEST_F(TourProgramTest, TellsHowItIsUsed) {
  const Ended help = Run({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_TRUE(help.out.starts_with("Usage: vantrel-tour [OPTIONS] FOLDER\n")) << help.out;
  const Ended bare = Run({});
  EXPECT_EQ(bare.status, 2);
  EXPECT_EQ(bare.errors,
            "vantrel-tour: The parameter FOLDER is missing. Try 'vantrel-tour --help'.\n");
}

TEST_F(TourProgramTest, SaysThatItsFolderCannotBeMade) {
  folder_.Make("file", "kept");
  const std::string folder = folder_.Path("file/tour");
  const Ended ended = Run({QString::fromStdString(folder)});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.out, "");
  EXPECT_TRUE(ended.errors.ends_with("vantrel-tour: The folder " + folder + " cannot be made.\n"))
      << ended.errors;
  EXPECT_EQ(folder_.Contents("file"), "kept");
}

}  // namespace
}  // namespace vantrel::tour
