// SPDX-License-Identifier: MIT

#include "printer/service/picture_file.h"

#include "tests/support/file_folder.h"

#include <QImage>
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <string>

namespace vantrel::printer {
namespace {

// Two rows of ten dots, black at the ends of the first.
Bitmap Picture() {
  Bitmap dots(10, 2);
  dots.Set(0, 0, true);
  dots.Set(9, 0, true);
  return dots;
}

TEST(PictureFile, IsSavedAsAPortableBitmap) {
  const support::FileFolder folder;
  EXPECT_EQ(SavePicture(Picture(), PictureFormat::kPortableBitmap, folder.Path("face.pbm")), "");
  // A row fills whole bytes, the first dot in the highest bit.
  EXPECT_EQ(folder.Contents("face.pbm"), std::string("P4\n10 2\n\x80\x40\x00\x00", 12));
}

TEST(PictureFile, IsSavedAsPngThatOthersRead) {
  const support::FileFolder folder;
  folder.Make("face.png", "old");
  EXPECT_EQ(SavePicture(Picture(), PictureFormat::kPng, folder.Path("face.png")), "");
  const QImage saved(QString::fromStdString(folder.Path("face.png")));
  ASSERT_EQ(saved.size(), QSize(10, 2));
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 10; ++x) {
      const bool black = y == 0 && (x == 0 || x == 9);
      EXPECT_EQ(saved.pixel(x, y), black ? qRgb(0, 0, 0) : qRgb(255, 255, 255)) << x << ' ' << y;
    }
  }
}

TEST(PictureFile, IsNotSavedOverAPipe) {
  const support::FileFolder folder;
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(SavePicture(Picture(), PictureFormat::kPng, folder.Path("pipe")),
            folder.Path("pipe") + " was not saved: it is a pipe.");
}

}  // namespace
}  // namespace vantrel::printer
