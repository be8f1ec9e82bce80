// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <deque>
#include <functional>
#include <vector>

namespace vantrel::tour {

// Answers the boxes and forms that open over the console, as a person would: each as it comes, by
// its own buttons.
class BoxWatcher {
 public:
  using Act = std::function<void(QDialog& box)>;

  BoxWatcher();

  // Adds what to do with the next box. It must close the box in the end, or let another act do so.
  void Expect(Act act) { acts_.push_back(std::move(act)); }
  // Whether every expected box has come.
  bool IsDone() const { return acts_.empty(); }

 private:
  void Look();

  QTimer timer_;
  std::deque<Act> acts_;
  std::vector<QPointer<QDialog>> seen_;  // a form is met again when a box over it has closed
};

// Presses the button whose caption is `caption` ("&" left aside). Throws std::runtime_error when
// there is none.
void PressButton(QDialog& box, const QString& caption);
// Clicks a button or an option of an editing form by its name.
void ClickOn(QWidget& form, const char* name);
// Clicks a dot of a form's grid.
void ClickDot(QDialog& form, const char* grid, int index);
// Puts `text` into a text box of a form.
void TypeInto(QDialog& form, const char* name, const QString& text);
// Types `text` over what the box's text field holds and presses OK.
void TypeAndPressOk(QDialog& box, const QString& text);

}  // namespace vantrel::tour
