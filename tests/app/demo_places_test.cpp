#include "app/demo_places.h"

#include <gtest/gtest.h>

namespace vantrel::app {
namespace {

constexpr int kConsoleLeast = 690;

class DemoPlacesTest : public testing::TestWithParam<QRect> {};

TEST_P(DemoPlacesTest, TheConsoleIsOnTheScreenAndThePrintersWorkingPartInSight) {
  const QRect screen = GetParam();
  const DemoPlaces places = PlacesIn(screen, kConsoleLeast);
  EXPECT_TRUE(screen.contains(places.console));
  EXPECT_GE(places.console.width(), kConsoleLeast);
  EXPECT_GE(places.console.top() - screen.top(), 24);  // room for the title
  EXPECT_LE(places.printer.bottom(), screen.bottom());
  EXPECT_GE(places.printer.width(), 950);
  // "Insert card" begins 540 pixels from the window's left edge, the slot ends at 845.
  EXPECT_LT(places.console.right(), places.printer.left() + 540);
  EXPECT_LE(places.printer.left() + 845, screen.right());
}

INSTANTIATE_TEST_SUITE_P(Screens, DemoPlacesTest,
                         testing::Values(QRect(0, 0, 1024, 640), QRect(0, 0, 1366, 768),
                                         QRect(0, 0, 1680, 1050), QRect(0, 0, 1920, 1080),
                                         QRect(0, 27, 1920, 1053), QRect(1920, 0, 2560, 1440)));

TEST(DemoPlaces, SideBySideWhereTheyFit) {
  const DemoPlaces places = PlacesIn({0, 0, 1920, 1080}, kConsoleLeast);
  EXPECT_FALSE(places.console.intersects(places.printer));
  EXPECT_LE(places.printer.right(), 1920);
}

TEST(DemoPlaces, OverlappingOnASmallScreen) {
  const DemoPlaces places = PlacesIn({0, 0, 1366, 768}, kConsoleLeast);
  EXPECT_TRUE(places.console.intersects(places.printer));
}

}  // namespace
}  // namespace vantrel::app
