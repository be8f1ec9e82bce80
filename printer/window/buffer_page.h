// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/helpers.h"
#include "printer/drawing/print_registers.h"

#include <QString>
#include <QTimer>
#include <QWidget>

#include <vector>

class QLabel;
class QListWidget;

namespace vantrel::printer {

class FaceView;
class PrinterModel;

// A page with what the console has sent to be printed: the print expansion buffer, and the
// characters and images that it has registered.
class BufferPage : public QWidget {
  Q_OBJECT

 public:
  // All must outlive the page.
  BufferPage(const PrinterModel& model, dialogs::Helpers helpers, QWidget* parent = nullptr);

  // Shows what there is, a little later. Whoever owns the page calls it when the printer's server
  // tells of a change.
  void Refresh();

 private:
  // A register that holds something.
  struct Registered {
    QString name;
    Bitmap dots;

    bool operator==(const Registered&) const = default;
  };

  void Draw();
  std::vector<Registered> AllRegistered() const;

  const PrinterModel& model_;
  dialogs::Helpers helpers_;
  // Pictures cost more than a text, so several changes are drawn as one.
  QTimer draw_;
  std::vector<Registered> registered_;
  FaceView* buffer_ = nullptr;
  QLabel* LblBuffer = nullptr;
  QLabel* LblRegistered = nullptr;
  QListWidget* LstRegistered = nullptr;
};

}  // namespace vantrel::printer
