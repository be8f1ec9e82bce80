// SPDX-License-Identifier: MIT
#pragma once

#include "tests/endurance/dice.h"

#include <QPoint>
#include <QString>

#include <string>
#include <utility>
#include <vector>

class QMenu;
class QTimer;
class QWidget;

namespace vantrel::endurance {

// Someone who does something, anything, with the window in front: clicks, presses keys, types,
// drags, opens menus and chooses from them, answers boxes, closes windows. What is done goes to the
// window as the window system would hand it over, so that nothing behind a modal window is reached.
class RandomUser {
 public:
  // `leave` names the buttons by which forms are left, and which are pressed more often.
  RandomUser(Dice& dice, std::vector<QString> leave) : dice_(dice), leave_(std::move(leave)) {}

  // The window in front: a menu, a modal one, the active one or any; null when there is none.
  static QWidget* InFront();

  // Does one thing with the window in front, and tells what. Returns when all that it brought about
  // has ended.
  std::string Act();
  // Closes what is in front of `window`: a menu by Escape, a box or form by its close box. False
  // when there was nothing.
  static bool Leave(const QWidget& window);
  // A step of someone who has finished: closes what is in front of `window`, and has the next step
  // come soon. `depth` counts the steps that have not ended.
  static void LeaveInStep(const QWidget& window, QTimer& clock, int& depth);
  // Clicks a control, wherever it is in its window; false where none of it can be seen.
  static bool Click(QWidget& control);
  // A text that one may type: digits, hex, letters of several scripts, a long one.
  QString AnyText();

 private:
  std::string ActOnMenu(QMenu& menu);
  std::string ActOnPopup(QWidget& popup);
  std::string ActOnBox(QWidget& box);
  std::string ActOnWindow(QWidget& window);
  std::string ActOnControl(QWidget& control);
  std::string PressKeys(QWidget& window);
  // A control of the window that can be used now; null when there is none.
  QWidget* AnyControl(QWidget& window);
  // A point of what can be seen of the control, in its window; the control is scrolled to.
  bool PointIn(QWidget& control, QPoint& point);

  Dice& dice_;
  std::vector<QString> leave_;
};

}  // namespace vantrel::endurance
