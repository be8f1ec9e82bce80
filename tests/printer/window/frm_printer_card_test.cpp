// SPDX-License-Identifier: MIT

// The card's side of the window: its face, its tracks, the deck.

#include "printer/window/face_view.h"
#include "tests/support/printer_form_bench.h"
#include "tests/support/wait_for.h"

#include <QApplication>
#include <QClipboard>
#include <QColorSpace>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>

namespace vantrel::printer {
namespace {

class FrmPrinterCard : public support::PrinterFormBench {
 protected:
  QString Line(const char* name) { return Find<QLineEdit>(name)->text(); }
  // Has the deck's card of this index taken as a person would, with the keyboard.
  void Choose(int index) {
    auto* deck = Find<QComboBox>("CmbDeck");
    while (deck->currentIndex() < index) QTest::keyClick(deck, Qt::Key_Down);
    while (deck->currentIndex() > index) QTest::keyClick(deck, Qt::Key_Up);
  }
  // Puts a card with one black dot, at x 1 and y 2, into the printer's hand.
  void PrintADot() {
    Card card;
    card.face.Set(1, 2, true);
    ASSERT_TRUE(model_.ChangeCard(card));
    // The model tells of it through its server.
    ASSERT_TRUE(support::WaitFor([&] { return Find<FaceView>("FaceView")->Picture() == ADot(); }));
  }
  static QImage ADot() {
    QImage picture(480, 320, QImage::Format_Mono);
    picture.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    picture.fill(0);
    picture.setPixel(1, 2, 1);
    return picture;
  }

  QTemporaryDir folder_;
};

TEST_F(FrmPrinterCard, ShowsEachDotAsASquareOfWholePixels) {
  PrintADot();
  form_.resize(2400, 1700);
  Find<QSplitter>("SplHalves")->setSizes({1200, 300});
  ASSERT_TRUE(support::WaitFor([&] { return Find<FaceView>("FaceView")->Scale() > 1; }));
  auto* face = Find<FaceView>("FaceView");
  const int scale = static_cast<int>(face->Scale());
  const QImage shown = face->grab().toImage();
  const QPoint corner((face->width() - 480 * scale) / 2, (face->height() - 320 * scale) / 2);
  int black = 0;
  for (int y = 0; y < 320 * scale; ++y) {
    for (int x = 0; x < 480 * scale; ++x) {
      const QRgb colour = shown.pixel(corner + QPoint(x, y));
      const bool in_dot = x / scale == 1 && y / scale == 2;
      ASSERT_EQ(colour, in_dot ? qRgb(0, 0, 0) : qRgb(255, 255, 255)) << x << ' ' << y;
      black += in_dot ? 1 : 0;
    }
  }
  EXPECT_EQ(black, scale * scale);
  EXPECT_EQ(Find<QLabel>("LblScale")->text(), QString("480 × 320 dots, %1:1").arg(scale));
}

TEST_F(FrmPrinterCard, TurnsThePictureByQuartersClockwise) {
  PrintADot();
  auto* face = Find<FaceView>("FaceView");
  Click("CmdTurn");
  EXPECT_EQ(face->Picture().size(), QSize(320, 480));
  // What was the second row from the top is the third column from the right.
  EXPECT_EQ(face->Picture().pixel(320 - 1 - 2, 1), qRgb(0, 0, 0));
  Click("CmdTurn");
  EXPECT_EQ(face->Picture().pixel(480 - 1 - 1, 320 - 1 - 2), qRgb(0, 0, 0));
  Click("CmdTurn");
  EXPECT_EQ(face->Picture().pixel(2, 480 - 1 - 1), qRgb(0, 0, 0));
  Click("CmdTurn");
  EXPECT_EQ(face->QuarterTurns(), 0);
  EXPECT_EQ(face->Picture(), ADot());
}

TEST_F(FrmPrinterCard, TellsTheScaleOfTheFaceAsItIsTurned) {
  form_.resize(1024, 640);
  QCoreApplication::processEvents();
  auto* face = Find<FaceView>("FaceView");
  const auto expect_label = [&](const QString& dots) {
    QCoreApplication::processEvents();
    const double scale = face->Scale();
    ASSERT_LT(scale, 1);
    EXPECT_EQ(Find<QLabel>("LblScale")->text(),
              QString("%1 dots, %2 %").arg(dots).arg(std::lround(100 * scale)));
  };
  expect_label("480 × 320");
  Click("CmdTurn");
  expect_label("320 × 480");
  Click("CmdTurn");
  expect_label("480 × 320");
  // Where its size stays, nothing but the turning tells of it.
  Find<QComboBox>("CmbZoom")->setCurrentIndex(1);
  Click("CmdTurn");
  EXPECT_EQ(Find<QLabel>("LblScale")->text(), "320 × 480 dots, 1:1");
}

TEST_F(FrmPrinterCard, ZoomsTheFace) {
  auto* face = Find<FaceView>("FaceView");
  auto* zoom = Find<QComboBox>("CmbZoom");
  auto* scroll = Find<QScrollArea>("ScrFace");
  for (int times = 1; times <= 3; ++times) {
    zoom->setCurrentIndex(times);
    QCoreApplication::processEvents();
    EXPECT_EQ(face->Scale(), times);
    EXPECT_GE(face->width(), 480 * times);
    EXPECT_EQ(Find<QLabel>("LblScale")->text(), QString("480 × 320 dots, %1:1").arg(times));
  }
  EXPECT_GT(scroll->horizontalScrollBar()->maximum(), 0);
  zoom->setCurrentIndex(0);
  EXPECT_TRUE(support::WaitFor([&] { return face->width() <= scroll->width(); }));
}

TEST_F(FrmPrinterCard, FitsTheStandingCard) {
  Click("CmdTurn");
  auto* face = Find<FaceView>("FaceView");
  auto* scroll = Find<QScrollArea>("ScrFace");
  for (const QSize& size : {QSize(1024, 640), form_.minimumSizeHint()}) {
    form_.resize(size);
    QCoreApplication::processEvents();
    EXPECT_EQ(scroll->verticalScrollBar()->maximum(), 0);
    EXPECT_LE(480 * face->Scale(), scroll->viewport()->height());
    EXPECT_LT(face->Scale(), 1);
    EXPECT_TRUE(Find<QLabel>("LblScale")->text().endsWith(" %"));
  }
}

TEST_F(FrmPrinterCard, HasAnEdgeThatIsSeenOnWhite) {
  auto* face = Find<FaceView>("FaceView");
  QPalette white = face->palette();
  white.setColor(QPalette::Window, Qt::white);
  face->setPalette(white);
  const QImage shown = face->grab().toImage();
  // Down the middle, the first that is not white is the card's upper edge.
  int y = 0;
  while (y < shown.height() / 2 && shown.pixelColor(shown.width() / 2, y).lightness() > 250) ++y;
  ASSERT_LT(y, shown.height() / 2);
  int darkest = 255;
  for (int dy = 0; dy < 4; ++dy)
    darkest = std::min(darkest, shown.pixelColor(shown.width() / 2, y + dy).lightness());
  // A contrast of 3:1 to white begins at about this grey.
  EXPECT_LT(darkest, 149);
}

TEST_F(FrmPrinterCard, SharesExtraHeightWithTheLog) {
  auto* halves = Find<QSplitter>("SplHalves");
  form_.resize(1024, 720);
  QCoreApplication::processEvents();
  const QList<int> before = halves->sizes();
  form_.resize(1024, 1120);
  QCoreApplication::processEvents();
  const QList<int> after = halves->sizes();
  EXPECT_GT(after[0], before[0] + 100);
  EXPECT_GT(after[1], before[1] + 100);
}

TEST_F(FrmPrinterCard, CopiesThePictureAsItIsTurned) {
  PrintADot();
  Click("CmdTurn");
  Click("CmdCopyPicture");
  const QImage copied = QApplication::clipboard()->image();
  EXPECT_EQ(copied.size(), QSize(320, 480));
  EXPECT_EQ(copied.pixel(320 - 1 - 2, 1), qRgb(0, 0, 0));
  EXPECT_EQ(copied.pixel(0, 0), qRgb(255, 255, 255));
}

TEST_F(FrmPrinterCard, SavesThePictureAsItIsTurned) {
  PrintADot();
  files_.WillAnswer(folder_.filePath("lying.png"));
  Click("CmdSavePicture");
  EXPECT_EQ(files_.LastFilters(), "Pictures (*.png)");
  QImage lying(folder_.filePath("lying.png"));
  // The file says how its black and white are meant.
  lying.setColorSpace({});
  EXPECT_EQ(lying.convertToFormat(QImage::Format_RGB32),
            ADot().convertToFormat(QImage::Format_RGB32));
  Click("CmdTurn");
  files_.WillAnswer(folder_.filePath("standing.png"));
  Click("CmdSavePicture");
  EXPECT_EQ(QImage(folder_.filePath("standing.png")).size(), QSize(320, 480));
  EXPECT_EQ(Find<QLabel>("LblLog")->text(), "Saved to " + folder_.filePath("standing.png"));
}

TEST_F(FrmPrinterCard, SavesNoPictureWhenTheQuestionIsCancelled) {
  const QString before = Find<QLabel>("LblLog")->text();
  files_.WillAnswer("");
  Click("CmdSavePicture");
  EXPECT_EQ(Find<QLabel>("LblLog")->text(), before);
}

TEST_F(FrmPrinterCard, SaysWhyAPictureWasNotSaved) {
  const QString path = folder_.filePath("missing/card.png");
  files_.WillAnswer(path);
  dialogs_.Answers(dialogs::Answer::kOk);
  Click("CmdSavePicture");
  EXPECT_EQ(dialogs_.Last().prompt,
            path.toStdString() + " was not saved: No such file or directory.");
  EXPECT_EQ(dialogs_.Last().title, "Save picture");
  EXPECT_EQ(dialogs_.Last().icon, dialogs::Icon::kCritical);
  files_.WillAnswer("/dev/null");
  dialogs_.Answers(dialogs::Answer::kOk);
  Click("CmdSavePicture");
  EXPECT_EQ(dialogs_.Last().prompt, "/dev/null was not saved: it is a device.");
}

TEST_F(FrmPrinterCard, NamesTheFontsThatAreMissing) {
  auto* label = Find<QLabel>("LblFonts");
  EXPECT_FALSE(label->isVisible());
  form_.ShowMissingFonts({"There is no font <b>Sans</b>.", "There is no font Serif."});
  EXPECT_TRUE(label->isVisible());
  EXPECT_EQ(label->text(), "There is no font <b>Sans</b>.\nThere is no font Serif.");
  EXPECT_EQ(label->textFormat(), Qt::PlainText);
  EXPECT_LE(form_.minimumSizeHint().width(), 1024);
  form_.ShowMissingFonts({});
  EXPECT_FALSE(label->isVisible());
}

TEST_F(FrmPrinterCard, MakesCardsAndKeepsThemInTheDeck) {
  model_.SetTrack(0, "FIRST");
  Click("CmdNewCard");
  EXPECT_EQ(Find<QComboBox>("CmbDeck")->currentText(), "Card 2");
  EXPECT_EQ(Line("TxtTrack_1"), "");
  QTest::keyClicks(Find<QLineEdit>("TxtTrack_1"), "SECOND\r");
  Click("OptCard_1");
  Choose(0);
  EXPECT_EQ(Line("TxtTrack_1"), "FIRST");
  EXPECT_EQ(model_.State().card.kind, CardKind::kOrdinary);
  Choose(1);
  EXPECT_EQ(Line("TxtTrack_1"), "SECOND");
  EXPECT_EQ(model_.State().card.kind, CardKind::kCleaning);
}

TEST_F(FrmPrinterCard, ChangesTheCardOutsideAlone) {
  Click("CmdInsertCard");
  EXPECT_FALSE(Find<QPushButton>("CmdNewCard")->isEnabled());
  EXPECT_FALSE(Find<QComboBox>("CmbDeck")->isEnabled());
  EXPECT_FALSE(model_.ChangeCard({}));
  Click("CmdPullOutCard");
  EXPECT_TRUE(Find<QPushButton>("CmdNewCard")->isEnabled());
}

TEST_F(FrmPrinterCard, ShowsTracksAndBuffersAsTextAndHex) {
  model_.SetTrack(0, "AB");
  EXPECT_EQ(Line("TxtTrackHex_1"), "41 42");
  EXPECT_EQ(Line("TxtBuffer_1"), "");
  EXPECT_EQ(Find<QLineEdit>("TxtBuffer_1")->placeholderText(), "no card has passed");
  Click("CmdInsertCard");
  console_.Write("02 21 03 22");
  ASSERT_TRUE(support::WaitFor([&] { return Line("TxtBuffer_1") == "AB"; }));
  EXPECT_EQ(Line("TxtBufferHex_1"), "41 42");
  EXPECT_EQ(Find<QLineEdit>("TxtBuffer_2")->placeholderText(), "empty");
}

TEST_F(FrmPrinterCard, FitsAWindowOf1024By640) {
  EXPECT_LE(form_.minimumSizeHint().width(), 1024);
  EXPECT_LE(form_.minimumSizeHint().height(), 590);
}

}  // namespace
}  // namespace vantrel::printer
