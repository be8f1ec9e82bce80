// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/guard.h"

#include <QDialog>

#include <functional>

namespace vantrel::dialogs {

// A form that the console shows modally. Enter and Escape do nothing of their own on it: it has no
// default button and no cancel button.
class SubForm : public QDialog {
  Q_OBJECT

 public:
  // `guard` must outlive the form. Form_Activate and Form_Unload run inside it.
  SubForm(const QString& name, Guard& guard, QWidget* parent = nullptr);

  // Unloads the form, however it comes to be closed: by a button of its own, which calls Unload, or
  // by the close box.
  void Unload() { done(QDialog::Accepted); }
  void done(int result) override;

 protected:
  // Runs once each time the form is shown, before it is painted; never when a box over the form
  // closes.
  virtual void Form_Activate() {}
  // Runs once when the form unloads.
  virtual void Form_Unload() {}

  Guard& EventGuard() const { return guard_; }
  // `work` to be connected to a signal: it runs inside the form's guard.
  std::function<void()> Guarded(std::function<void()> work) const {
    return dialogs::Guarded(guard_, std::move(work));
  }

  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  Guard& guard_;
  bool active_ = false;
};

}  // namespace vantrel::dialogs
