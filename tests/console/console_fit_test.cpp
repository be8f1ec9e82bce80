// SPDX-License-Identifier: MIT

// The console's size, and whether everything is seen at it.

#include "console/command_button.h"
#include "console/command_table.h"
#include "tests/support/console_fixture.h"
#include "tests/support/wait_for.h"

#include <QFontDatabase>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>
#include <QTextLayout>

#include <cmath>

namespace vantrel::console {
namespace {

class ConsoleFitTest : public support::ConsoleTest {
 protected:
  ~ConsoleFitTest() override { QApplication::setFont(before_); }

  // Loads the console with a font of that many points.
  void LoadWith(int points) {
    QFont font = before_;
    font.setPointSize(points);
    QApplication::setFont(font);
    Load();
  }
  void Resize(const QSize& size) {
    form_->resize(size);
    ASSERT_TRUE(support::WaitFor([&] { return form_->width() == size.width(); }))
        << form_->minimumWidth();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
  }
  std::vector<CommandButton*> Buttons() {
    std::vector<CommandButton*> buttons;
    for (const ConsoleCommand& command : Commands())
      buttons.push_back(form_->findChild<CommandButton*>(
          QString::fromUtf8(command.button.data(), static_cast<qsizetype>(command.button.size()))));
    return buttons;
  }
  // The height and the width that the button's caption takes when its lines are as wide as the
  // button, its last two characters in bold.
  static QSizeF CaptionIn(const CommandButton& button) {
    // A line may end before the bracket of a word that is too long.
    const QString text = button.text().replace("Expand(", QString("Expand\u200B("));
    QTextLayout layout(text, button.font());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QTextLayout::FormatRange code;
    code.start = static_cast<int>(text.size()) - 2;
    code.length = 2;
    code.format.setFontWeight(QFont::Bold);
    layout.setFormats({code});
    QSizeF size;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLineWidth(button.width() - 20);
      size = {std::max(size.width(), line.naturalTextWidth()), size.height() + line.height()};
    }
    layout.endLayout();
    return size;
  }
  void ExpectNoCaptionCut(const char* where) {
    for (const CommandButton* button : Buttons()) {
      const QSizeF caption = CaptionIn(*button);
      EXPECT_LE(std::ceil(caption.height()), button->height())
          << button->text().toStdString() << " " << where;
      EXPECT_LE(std::ceil(caption.width()), button->width()) << button->text().toStdString();
    }
  }
  QScrollArea& ButtonsArea() {
    QWidget* widget = Button("Cmd21");
    while (qobject_cast<QScrollArea*>(widget) == nullptr) widget = widget->parentWidget();
    return *qobject_cast<QScrollArea*>(widget);
  }
  QScrollBar& ButtonsScrollBar() { return *ButtonsArea().verticalScrollBar(); }
  // Where a widget stands in the window.
  QRect PlaceOf(const QWidget& widget) const {
    return {widget.mapTo(form_.get(), QPoint()), widget.size()};
  }

  const QFont before_ = QApplication::font();
};

class ConsoleFontTest : public ConsoleFitTest, public testing::WithParamInterface<int> {};

TEST_P(ConsoleFontTest, NoCaptionIsCutAtAnyWidthOfTheWindow) {
  LoadWith(GetParam());
  for (const QSize size :
       {QSize(760, 700), QSize(1024, 600), QSize(1120, 720), QSize(1920, 1000)}) {
    Resize(size);
    ExpectNoCaptionCut(std::to_string(size.width()).c_str());
  }
}

TEST_P(ConsoleFontTest, StartsInsideTheScreen) {
  LoadWith(GetParam());
  const QSize available = form_->screen()->availableSize();
  EXPECT_LE(form_->width(), available.width());
  EXPECT_LE(form_->height(), available.height());
  EXPECT_LE(form_->minimumWidth(), 760);
}

INSTANTIATE_TEST_SUITE_P(Points, ConsoleFontTest, testing::Values(9, 10, 12, 15, 18));

TEST_F(ConsoleFitTest, NoStyleCutsACaption) {
  const QString style_before = QApplication::style()->name();
  LoadWith(12);
  for (const QString& style : QStyleFactory::keys()) {
    QApplication::setStyle(style);
    Resize({800, 760});
    Resize({1024, 760});
    ExpectNoCaptionCut(style.toUtf8().constData());
  }
  QApplication::setStyle(style_before);
}

TEST_F(ConsoleFitTest, AllIsInSightOnASmallScreen) {
  LoadWith(9);
  Resize({1020, 700});
  // What a window manager leaves of 1024 by 640.
  Resize({1020, 608});
  EXPECT_EQ(form_->height(), 608);
  EXPECT_EQ(ButtonsScrollBar().maximum(), 0);
  for (CommandButton* button : Buttons())
    EXPECT_FALSE(button->visibleRegion().isEmpty()) << button->text().toStdString();
  EXPECT_TRUE(form_->rect().contains(form_->statusBar()->geometry()));
}

TEST_F(ConsoleFitTest, NothingScrollsWhereThereIsRoom) {
  LoadWith(9);
  QCoreApplication::processEvents();
  EXPECT_EQ(ButtonsScrollBar().maximum(), 0);
  for (const int width : {792, 1024}) {
    Resize({width, 760});
    ASSERT_EQ(form_->height(), 760) << width;
    EXPECT_EQ(ButtonsScrollBar().maximum(), 0) << width;
  }
}

TEST_F(ConsoleFitTest, TheButtonsHaveTheSameMarginAtBothEdgesOfTheWindow) {
  LoadWith(9);
  Resize({1024, 760});
  ASSERT_FALSE(ButtonsScrollBar().isVisible());
  const QRect first = PlaceOf(*Buttons().front()), last = PlaceOf(*Buttons().back());
  EXPECT_GT(first.left(), 0);
  EXPECT_EQ(form_->width() - (last.right() + 1), first.left());
  const QRect exit = PlaceOf(*Button("CmdExit"));
  EXPECT_LE(exit.right(), last.right());
}

TEST_F(ConsoleFitTest, TheButtonsKeepTheirMarginBesideTheScrollBar) {
  LoadWith(18);
  for (const int width : {form_->minimumWidth(), 760, 1024}) {
    Resize({width, form_->minimumHeight()});
    ASSERT_TRUE(ButtonsScrollBar().isVisible()) << width;
    const QRect first = PlaceOf(*Buttons().front()), last = PlaceOf(*Buttons().back());
    const QRect bar = PlaceOf(ButtonsScrollBar());
    EXPECT_GT(first.left(), 0) << width;
    EXPECT_EQ(bar.left() - (last.right() + 1), first.left()) << width;
    EXPECT_LE(bar.right(), form_->rect().right()) << width;
    // Nothing is left out at the side.
    EXPECT_LE(ButtonsArea().widget()->width(), ButtonsArea().viewport()->width()) << width;
    EXPECT_FALSE(ButtonsArea().horizontalScrollBar()->isVisible()) << width;
  }
}

TEST_F(ConsoleFitTest, TheLeastHeightFollowsFromTheCaptions) {
  LoadWith(9);
  Resize({1400, 760});
  const int wide = form_->minimumHeight();
  Resize({760, 760});
  EXPECT_GT(form_->minimumHeight(), wide);
}

TEST_F(ConsoleFitTest, ALargerFontWhileItRunsCutsNothing) {
  LoadWith(9);
  Resize({1024, 700});
  QFont large = before_;
  large.setPointSize(15);
  QApplication::setFont(large);
  ASSERT_TRUE(support::WaitFor([&] { return Button("Cmd21")->font().pointSize() == 15; }));
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
  ExpectNoCaptionCut("after the change");
}

TEST_F(ConsoleFitTest, ANarrowWindowHasTheHelpBelowTheBoxes) {
  LoadWith(9);
  auto* hints = form_->findChild<QLabel*>("LblHints");
  auto* response = form_->findChild<QWidget*>("TxtResponse");
  const auto top = [this](QWidget* widget) { return widget->mapTo(form_.get(), QPoint()).y(); };
  Resize({1300, 760});
  EXPECT_LT(top(hints), top(response));
  Resize({760, 760});
  EXPECT_GT(top(hints), top(response));
  // Across the whole width.
  QWidget* area = hints->parentWidget()->parentWidget();
  const auto right = [this](QWidget* widget) {
    return widget->mapTo(form_.get(), widget->rect().bottomRight()).x();
  };
  EXPECT_EQ(right(area), right(response));
  EXPECT_EQ(right(area), right(Button("CmdExit")));
}

TEST_F(ConsoleFitTest, TheHelpHasAFixedPitch) {
  Load();
  EXPECT_TRUE(QFontInfo(form_->findChild<QLabel*>("LblHints")->font()).fixedPitch());
}

}  // namespace
}  // namespace vantrel::console
