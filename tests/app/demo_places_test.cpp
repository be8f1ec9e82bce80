// SPDX-License-Identifier: MIT

// Where the demonstration puts its windows, with the printer's window as it is.

#include "app/demo_places.h"

#include "printer/window/card_slot_view.h"
#include "tests/support/painted_part.h"
#include "tests/support/printer_form_bench.h"

#include <QPushButton>
#include <QTableView>

#include <algorithm>

namespace vantrel::app {
namespace {

constexpr int kConsoleLeast = 690;
// What a window manager may put at a window's sides.
constexpr int kSide = 4;

class DemoPlacesTest : public support::PrinterFormBench, public testing::WithParamInterface<QRect> {
 protected:
  // What is painted of a widget, on the screen when the window is in its place.
  QRect Painted(QWidget& widget, const QRect& window) {
    return support::PaintedPart(widget).translated(widget.mapTo(&form_, QPoint()) +
                                                   window.topLeft());
  }
};

TEST_P(DemoPlacesTest, TheConsoleIsOnTheScreenAndThePrintersWorkingPartInSight) {
  const QRect screen = GetParam();
  const auto [console, printer] = PlacesIn(screen, kConsoleLeast);
  EXPECT_TRUE(screen.contains(console));
  EXPECT_GE(console.width(), kConsoleLeast);
  EXPECT_GE(console.top() - screen.top(), 24);  // room for the title
  EXPECT_LE(printer.bottom(), screen.bottom());
  form_.resize(printer.size());
  QCoreApplication::processEvents();
  ASSERT_EQ(form_.size(), printer.size()) << "It needs more.";
  const QRect free(QPoint(console.right() + 1 + kSide, screen.top()), screen.bottomRight());
  EXPECT_TRUE(free.contains(Painted(*Find<QPushButton>("CmdInsertCard"), printer)));
  EXPECT_TRUE(free.contains(Painted(*form_.findChild<printer::CardSlotView*>(), printer)));
  // Of the log's last row, the meaning is to be seen.
  auto* log = Find<QTableView>("TxtLog")->viewport();
  const QPoint last = log->mapTo(&form_, log->rect().bottomRight()) + printer.topLeft();
  EXPECT_LT(last.y(), screen.bottom());
  EXPECT_GT(std::min(last.x(), screen.right()) - free.left(), 150);
}

INSTANTIATE_TEST_SUITE_P(Screens, DemoPlacesTest,
                         testing::Values(QRect(0, 0, 1024, 640), QRect(0, 0, 1366, 768),
                                         QRect(0, 0, 1680, 1050), QRect(0, 0, 1920, 1080),
                                         QRect(0, 27, 1920, 1053), QRect(1920, 0, 2560, 1440)));

TEST(DemoPlaces, SideBySideWhereTheyFit) {
  const DemoPlaces places = PlacesIn({0, 0, 1920, 1080}, kConsoleLeast);
  EXPECT_FALSE(places.console.intersects(places.printer));
  EXPECT_LE(places.printer.right(), 1920 - kSide);
}

TEST(DemoPlaces, OverlappingOnASmallScreen) {
  const DemoPlaces places = PlacesIn({0, 0, 1366, 768}, kConsoleLeast);
  EXPECT_TRUE(places.console.intersects(places.printer));
  EXPECT_LE(places.printer.right(), 1366 - kSide);
}

}  // namespace
}  // namespace vantrel::app
