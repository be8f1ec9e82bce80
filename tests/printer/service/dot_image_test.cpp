#include "printer/service/dot_image.h"

#include "tests/support/file_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <string>

namespace vantrel::printer {
namespace {

// Two rows of ten dots, black at the ends of the first.
QImage Picture() {
  Bitmap dots(10, 2);
  dots.Set(0, 0, true);
  dots.Set(9, 0, true);
  return ImageOf(dots);
}

TEST(DotImage, IsSavedAsAPortableBitmap) {
  const support::FileFolder folder;
  EXPECT_EQ(SavePicture(Picture(), "pbm", folder.Path("face.pbm")), "");
  // A row fills whole bytes, the first dot in the highest bit.
  EXPECT_EQ(folder.Contents("face.pbm"), std::string("P4\n10 2\n\x80\x40\x00\x00", 12));
}

TEST(DotImage, IsSavedAsPng) {
  const support::FileFolder folder;
  folder.Make("face.png", "old");
  EXPECT_EQ(SavePicture(Picture(), "png", folder.Path("face.png")), "");
  const QImage saved(QString::fromStdString(folder.Path("face.png")));
  EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32),
            Picture().convertToFormat(QImage::Format_RGB32));
}

TEST(DotImage, IsNotSavedOverAPipe) {
  const support::FileFolder folder;
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(SavePicture(Picture(), "png", folder.Path("pipe")),
            folder.Path("pipe") + " was not saved: it is a pipe.");
}

TEST(DotImage, IsNotSavedInAFormatThatThereIsNot) {
  const support::FileFolder folder;
  EXPECT_NE(SavePicture(Picture(), "sketch", folder.Path("face")), "");
  EXPECT_EQ(folder.Count(), 0U);
}

}  // namespace
}  // namespace vantrel::printer
