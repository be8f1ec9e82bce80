// SPDX-License-Identifier: MIT

// What the diagram paints, dot by dot.

#include "printdata/card_diagram.h"

#include <QImage>
#include <QLabel>
#include <gtest/gtest.h>

#include <algorithm>

namespace vantrel::printdata {
namespace {

const QColor kInk(0, 255, 255);
const QColor kAccent(255, 0, 0);
const QColor kCard(0, 0, 90);
const QColor kWindow(20, 20, 20);

// The diagram in a dark palette of colours that can be told apart, without its words.
QImage Painted(CardDiagram& diagram) {
  QPalette palette;
  palette.setColor(QPalette::WindowText, kInk);
  palette.setColor(QPalette::Highlight, kAccent);
  palette.setColor(QPalette::Base, kCard);
  palette.setColor(QPalette::Window, kWindow);
  diagram.setPalette(palette);
  diagram.resize(diagram.sizeHint());
  for (QLabel* label : diagram.findChildren<QLabel*>()) label->hide();
  return diagram.grab().toImage();
}

// The smallest rectangle around all pixels of a colour inside `area`.
QRect Bounds(const QImage& image, const QColor& color, const QRect& area) {
  QRect bounds;
  for (int y = area.top(); y <= area.bottom(); ++y)
    for (int x = area.left(); x <= area.right(); ++x)
      if (image.pixelColor(x, y) == color) bounds |= QRect(x, y, 1, 1);
  return bounds;
}

int Count(const QImage& image, const QColor& color, const QRect& area) {
  int count = 0;
  for (int y = area.top(); y <= area.bottom(); ++y)
    for (int x = area.left(); x <= area.right(); ++x) count += image.pixelColor(x, y) == color;
  return count;
}

// The card's rectangle, and the broad arrow's inside it.
struct Parts {
  QRect card;
  QRect arrow;
};

Parts PartsOf(const QImage& image) {
  const QRect card = Bounds(image, kCard, image.rect());
  return {card, Bounds(image, kAccent, card.adjusted(15, 15, -15, -15))};
}

TEST(CardDiagram, TheArrowOfTheVerticalCardPointsUpwards) {
  CardDiagram diagram(CardDiagram::Orientation::kVertical);
  const QImage image = Painted(diagram);
  const Parts parts = PartsOf(image);
  const QRect& card = parts.card;
  const QRect& arrow = parts.arrow;
  EXPECT_GT(card.height(), card.width());
  ASSERT_GT(arrow.width(), 40);
  EXPECT_NEAR(arrow.center().x(), card.center().x(), 2);
  const auto in_row = [&](int y) {
    return Count(image, kAccent, {arrow.left(), y, arrow.width(), 1});
  };
  // Its tip, its shaft, and its broadest place in the middle.
  EXPECT_LT(in_row(arrow.top() + 2), 10);
  EXPECT_NEAR(in_row(arrow.bottom() - 2), 21, 3);
  EXPECT_GT(in_row(arrow.center().y() - 1), 42);
}

TEST(CardDiagram, TheArrowOfTheHorizontalCardPointsToTheRight) {
  CardDiagram diagram(CardDiagram::Orientation::kHorizontal);
  const QImage image = Painted(diagram);
  const Parts parts = PartsOf(image);
  const QRect& card = parts.card;
  const QRect& arrow = parts.arrow;
  EXPECT_GT(card.width(), card.height());
  ASSERT_GT(arrow.height(), 40);
  const auto in_column = [&](int x) {
    return Count(image, kAccent, {x, arrow.top(), 1, arrow.height()});
  };
  EXPECT_LT(in_column(arrow.right() - 2), 10);
  EXPECT_NEAR(in_column(arrow.left() + 2), 21, 3);
  EXPECT_GT(in_column(arrow.center().x() + 1), 42);
}

TEST(CardDiagram, TheAxesHaveThePalettesInkAndRunOnBeyondTheCard) {
  for (const auto orientation :
       {CardDiagram::Orientation::kVertical, CardDiagram::Orientation::kHorizontal}) {
    CardDiagram diagram(orientation);
    const QImage image = Painted(diagram);
    const QRect card = PartsOf(image).card;
    const QRect ink = Bounds(image, kInk, image.rect());
    // Up along the card's left edge, and right along its bottom one, each with a head at its end.
    EXPECT_GE(card.top() - ink.top(), 8);
    EXPECT_GE(ink.right() - card.right(), 8);
    const QRect above(card.left() - 8, ink.top(), 17, card.top() - 2 - ink.top());
    EXPECT_GT(Bounds(image, kInk, above).width(), 6);
    const QRect beside(card.right() + 3, card.bottom() - 8, ink.right() - card.right() - 2, 17);
    EXPECT_GT(Bounds(image, kInk, beside).height(), 6);
    EXPECT_GT(Count(image, kInk, {card.left() - 1, card.top(), 3, card.height()}),
              card.height() * 3 / 4);
    EXPECT_GT(Count(image, kInk, {card.left(), card.bottom() - 1, card.width(), 3}),
              card.width() * 3 / 4);
  }
}

TEST(CardDiagram, TheReferencePointIsMarkedAtTheLeftBottom) {
  CardDiagram diagram(CardDiagram::Orientation::kVertical);
  const QImage image = Painted(diagram);
  const QRect card = PartsOf(image).card;
  const QRect mark = Bounds(image, kAccent, {card.left() - 8, card.bottom() - 8, 17, 17});
  EXPECT_GE(mark.width(), 7);
  EXPECT_GE(mark.height(), 7);
  EXPECT_NEAR(mark.center().x(), card.left(), 2);
  EXPECT_NEAR(mark.center().y(), card.bottom(), 2);
}

}  // namespace
}  // namespace vantrel::printdata
