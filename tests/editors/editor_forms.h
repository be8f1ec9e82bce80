// SPDX-License-Identifier: MIT
#pragma once

#include "editors/dot_grid.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace vantrel::editors {

// The control of that design name; ends the test when there is none.
template <typename Control>
Control& Find(const QWidget& form, const QString& name) {
  auto* control = form.findChild<Control*>(name);
  if (control == nullptr) throw std::logic_error("no control " + name.toStdString());
  return *control;
}

inline std::string LabelText(const QWidget& form, const QString& name) {
  return Find<QLabel>(form, name).text().toStdString();
}

inline void ClickControl(const QWidget& form, const QString& name) {
  QTest::mouseClick(&Find<QWidget>(form, name), Qt::LeftButton);
}

// Shows the window and makes it the active one, so that focus is what it is for a user.
inline void ShowActive(QWidget& window) {
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

inline void ClickAt(DotGrid& grid, const QRect& rect) {
  ASSERT_FALSE(rect.isEmpty());
  QTest::mouseClick(&grid, Qt::LeftButton, {}, rect.center());
}

// Press, release, double click, release, as a window system sends them.
inline void DoubleClickAt(DotGrid& grid, const QRect& rect) {
  ClickAt(grid, rect);
  QTest::mouseDClick(&grid, Qt::LeftButton, {}, rect.center());
  QTest::mouseRelease(&grid, Qt::LeftButton, {}, rect.center());
}

// From the end of the origin's label to the corner of the first dot.
inline QPoint FromOriginLabelToDots(const QWidget& form, const DotGrid& grid) {
  const auto& label = Find<QLabel>(form, "LblOrigin");
  return grid.mapTo(&form, grid.DotRect(0).topLeft()) -
         label.mapTo(&form, label.rect().bottomLeft());
}

// In windows of several sizes, the dots grow and the origin's label stays right above them.
inline void ExpectOriginToStayWithTheDots(QWidget& form, const DotGrid& grid) {
  const QPoint before = FromOriginLabelToDots(form, grid);
  EXPECT_LE(before.manhattanLength(), 40);
  int dot_before = grid.DotRect(0).width();
  for (const QSize size : {QSize(1300, 800), QSize(1900, 1040)}) {
    form.resize(size);
    QApplication::processEvents();
    EXPECT_GT(grid.DotRect(0).width(), std::exchange(dot_before, grid.DotRect(0).width()));
    EXPECT_EQ(FromOriginLabelToDots(form, grid), before) << size.width();
  }
}

inline bool IsBlack(const DotGrid& grid, int index) { return grid.Editor().Dots().IsBlack(index); }

}  // namespace vantrel::editors
