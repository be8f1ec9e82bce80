#pragma once

#include <QDialog>

namespace vantrel {

// A form that the console shows modally. Enter and Escape do nothing of their own on it: it has no
// default button and no cancel button.
class SubForm : public QDialog {
  Q_OBJECT

 public:
  explicit SubForm(const QString& name, QWidget* parent = nullptr);

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

  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool active_ = false;
};

}  // namespace vantrel
