// SPDX-License-Identifier: MIT

#include "printer/window/buffer_page.h"

#include "printer/window/face_view.h"
#include "tests/support/printer_form_bench.h"
#include "tests/support/wait_for.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

namespace vantrel::printer {
namespace {

class BufferPageTest : public support::PrinterFormBench {
 protected:
  BufferPageTest() { TurnTo("Print buffer"); }
};

TEST_F(BufferPageTest, SaysWhatFillsIt) {
  EXPECT_EQ(Label("LblBuffer"), "The print expansion buffer is empty: 41h to 4Eh fill it.");
  EXPECT_EQ(Label("LblRegistered"), "Nothing is registered: 44h, 45h and 4Bh do that.");
  EXPECT_FALSE(Find<QListWidget>("LstRegistered")->isVisible());
}

TEST_F(BufferPageTest, ShowsWhatTheNextPrintPutsOnTheCard) {
  // 43h, line 0 and byte 0: eight dots.
  console_.Write("02 43 30 2C 30 2C 46 46 03 40");
  auto* buffer = Find<FaceView>("BufferView");
  ASSERT_TRUE(support::WaitFor([&] { return buffer->BlackDots() == 8; }));
  EXPECT_EQ(buffer->accessibleName(), "Print expansion buffer, 480 by 320 dots, 8 black");
  EXPECT_EQ(Label("LblBuffer"), "8 black dots: the next print puts them on the card.");
  EXPECT_EQ(Find<FaceView>("FaceView")->BlackDots(), 0);
}

TEST_F(BufferPageTest, ShowsRegisteredCharacters) {
  // 44h, 16 dots, register 5, all black.
  QByteArray frame = QByteArray("\x02\x44") + "1,5," + QByteArray(64, 'F') + "\x03\x43";
  console_.Write(frame.toHex(' ').constData());
  auto* list = Find<QListWidget>("LstRegistered");
  ASSERT_TRUE(support::WaitFor([&] { return list->count() == 1; }));
  EXPECT_TRUE(list->isVisible());
  EXPECT_EQ(list->item(0)->text(), "44h, number 5\n16 × 16");
  EXPECT_EQ(Label("LblRegistered"), "Registered: 1.");
  const QImage icon = list->item(0)->icon().pixmap(64, 48).toImage();
  EXPECT_EQ(icon.pixel(icon.width() / 2, icon.height() / 2), qRgb(0, 0, 0));
  // The power switch empties the registers.
  server_.SetPower(false);
  EXPECT_TRUE(support::WaitFor([&] { return list->count() == 0; }));
}

TEST_F(BufferPageTest, ShowsWhatIsLoadedForATrack) {
  TurnTo("Tracks");
  auto* loaded = Find<QLineEdit>("TxtLoaded_1");
  EXPECT_EQ(loaded->placeholderText(), "nothing is loaded");
  // 3Bh "AB", loaded for the first track.
  console_.Write("02 3B 41 42 03 3B");
  EXPECT_TRUE(support::WaitFor([&] { return loaded->text() == "AB"; }));
}

}  // namespace
}  // namespace vantrel::printer
