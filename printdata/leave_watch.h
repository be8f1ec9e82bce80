// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/guard.h"

#include <QObject>

#include <functional>
#include <map>
#include <vector>

class QWidget;

namespace vantrel::printdata {

// Tells when the user leaves a text box of a form: by Tab, by a click elsewhere, or because the
// focus was given to another control. A box that opens, a menu, another window that becomes active
// and the form's closing are not leaving; a box left but not told yet when the form closes is not
// told.
//
// A box is told as left on the next turn of the event loop; left by pressing the mouse, once the
// button is released. When the mouse is released on a button of the form, the box is told first and
// the button is clicked afterwards, even if the box took the focus back or showed a message.
class LeaveWatch : public QObject {
 public:
  // Judges a box that was left. Returns true when it took the focus back; boxes that were left
  // after it are then not told.
  using LostFocus = std::function<bool()>;

  // Watches boxes of `form`, whose child it becomes. They are judged inside `guard`, which must
  // outlive the form.
  LeaveWatch(QWidget* form, dialogs::Guard& guard);

  void Watch(QWidget* box, LostFocus lost_focus);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TellSoon();
  void Tell();
  bool ClickAfterTelling(QObject* released_on);

  QWidget* const form_;
  dialogs::Guard& guard_;
  std::map<QObject*, LostFocus> boxes_;
  std::vector<QObject*> left_;  // in the order of leaving
  bool telling_ = false;
};

}  // namespace vantrel::printdata
