// SPDX-License-Identifier: MIT

// How the frames of the print data forms lie.

#include "printdata/card_diagram.h"
#include "printdata/frm_4e.h"
#include "printdata/frm_print_buffer.h"
#include "tests/support/painted_part.h"
#include "tests/support/recording_guard.h"
#include "tests/support/scripted_dialogs.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace vantrel::printdata {
namespace {

constexpr int kSpacing = 9;

QRect Frame(const QWidget& form, const char* name) {
  auto* frame = form.findChild<QGroupBox*>(name);
  if (frame == nullptr) {
    ADD_FAILURE() << name;
    return {};
  }
  return {frame->mapTo(&form, QPoint()), frame->size()};
}

int Below(const QRect& upper, const QRect& lower) { return lower.top() - upper.bottom() - 1; }
int Beside(const QRect& left, const QRect& right) { return right.left() - left.right() - 1; }

class FrameSpacingTest : public testing::TestWithParam<QSize> {
 protected:
  void ShowForm(QWidget& form) {
    form.show();
    form.resize(form.size().expandedTo(GetParam()));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QCoreApplication::processEvents();
  }
  link::CommonVariables common_;
  support::ScriptedDialogs dialogs_;
  support::RecordingGuard guard_;
};

TEST_P(FrameSpacingTest, OfPrintData) {
  common_.IsPrintData = true;
  FrmPrintBuffer form(common_, dialogs_, guard_);
  ShowForm(form);
  const QRect direction = Frame(form, "FraCardDirection");
  const QRect coordinate = Frame(form, "FraCoordinate");
  const QRect text = Frame(form, "FraPrintText");
  const QRect diagram = Frame(form, "FraDescription_0");
  const QRect buttons = Frame(form, "FraCmdBtn");
  EXPECT_EQ(Below(direction, coordinate), kSpacing);
  EXPECT_EQ(Below(coordinate, text), kSpacing);
  EXPECT_EQ(Below(text, buttons), kSpacing);
  EXPECT_EQ(Below(diagram, buttons), kSpacing);
  EXPECT_EQ(Beside(direction, diagram), kSpacing);
  EXPECT_EQ(direction.top(), diagram.top());
  EXPECT_EQ(text.bottom(), diagram.bottom());
  EXPECT_EQ(buttons.left(), direction.left());
  EXPECT_EQ(buttons.right(), diagram.right());
}

TEST_P(FrameSpacingTest, OfImageExpansion) {
  common_.IsPrintData = false;
  FrmPrintBuffer form(common_, dialogs_, guard_);
  ShowForm(form);
  const QRect coordinate = Frame(form, "FraCoordinate");
  const QRect image = Frame(form, "FraImageNo");
  const QRect diagram = Frame(form, "FraDescription_0");
  EXPECT_EQ(Below(coordinate, image), kSpacing);
  EXPECT_EQ(Beside(image, diagram), kSpacing);
  EXPECT_EQ(image.bottom(), diagram.bottom());
}

TEST_P(FrameSpacingTest, OfBarcodes) {
  Frm4E form(common_, guard_);
  ShowForm(form);
  const QRect type = Frame(form, "FraBarcodeType");
  const QRect y = Frame(form, "FraYCoordinate");
  const QRect code_set = Frame(form, "FraCodeSet");
  const QRect data = Frame(form, "FraBarcodeData");
  const QRect keys = Frame(form, "FraKey");
  EXPECT_EQ(Beside(type, y), kSpacing);
  EXPECT_EQ(Beside(y, code_set), kSpacing);
  EXPECT_EQ(Below(y, data), kSpacing);
  EXPECT_EQ(Below(type, keys), kSpacing);
  EXPECT_EQ(type.top(), y.top());
  EXPECT_EQ(type.bottom(), data.bottom());
  EXPECT_EQ(data.right(), keys.right());
  EXPECT_EQ(type.left(), keys.left());
}

TEST_P(FrameSpacingTest, TheDiagramIsInTheMiddleOfItsFrame) {
  // A line of text is not quite as high or as wide as its room.
  constexpr int kTolerance = 12;
  common_.IsPrintData = true;
  FrmPrintBuffer form(common_, dialogs_, guard_);
  ShowForm(form);
  for (int direction = 0; direction < 2; ++direction) {
    form.findChild<QAbstractButton*>(QString("Opt_direction_%1").arg(direction))->click();
    QCoreApplication::processEvents();
    auto* diagram = form.findChild<QGroupBox*>(QString("FraDescription_%1").arg(direction))
                        ->findChild<CardDiagram*>();
    ASSERT_TRUE(diagram->isVisible());
    const QRect painted = support::PaintedPart(*diagram);
    EXPECT_LE(std::abs(painted.left() - (diagram->width() - 1 - painted.right())), kTolerance);
    EXPECT_LE(std::abs(painted.top() - (diagram->height() - 1 - painted.bottom())), kTolerance);
  }
}

// In a wide window the fields need no more room than the diagram.
TEST_P(FrameSpacingTest, ExtraWidthIsShared) {
  common_.IsPrintData = true;
  FrmPrintBuffer form(common_, dialogs_, guard_);
  ShowForm(form);
  const QRect fields = Frame(form, "FraCardDirection");
  const QRect diagram = Frame(form, "FraDescription_0");
  EXPECT_LE(fields.width(), diagram.width() + 1);
}

TEST_P(FrameSpacingTest, TheKeysAreInTheMiddleOfTheirFrame) {
  Frm4E form(common_, guard_);
  ShowForm(form);
  for (const char* type : {"OptBarcodeType_0", "OptBarcodeType_2"}) {
    form.findChild<QAbstractButton*>(type)->click();
    QCoreApplication::processEvents();
    QRect keys;
    for (const auto* key : form.findChildren<QPushButton*>(QRegularExpression("^CmdKey_")))
      if (key->isVisible()) keys |= key->geometry();
    const QWidget* room = form.findChild<QPushButton*>("CmdKey_0")->parentWidget();
    EXPECT_LE(std::abs(keys.top() - (room->height() - 1 - keys.bottom())), 1) << type;
    EXPECT_LE(std::abs(keys.left() - (room->width() - 1 - keys.right())), 1) << type;
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, FrameSpacingTest, testing::Values(QSize(0, 0), QSize(1200, 900)));

}  // namespace
}  // namespace vantrel::printdata
