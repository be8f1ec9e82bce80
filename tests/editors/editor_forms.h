#pragma once

#include "editors/dot_grid.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

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

inline bool IsBlack(const DotGrid& grid, int index) { return grid.Editor().Dots().IsBlack(index); }

}  // namespace vantrel::editors
