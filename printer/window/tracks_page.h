// SPDX-License-Identifier: MIT
#pragma once

#include "printer/commands/printer_state.h"

#include <QWidget>

#include <array>

class QLineEdit;

namespace vantrel::printer {

class PrinterModel;

// A page with the card's tracks as hex, the track buffers as text and hex, and what the console has
// loaded to be written.
class TracksPage : public QWidget {
  Q_OBJECT

 public:
  // The model must outlive the page.
  explicit TracksPage(const PrinterModel& model, QWidget* parent = nullptr);

  // Shows the tracks and buffers as they are now. Whoever owns the page calls it when the printer's
  // server tells of a change.
  void Refresh();

 private:
  // A box to read and copy from. `spoken` names it to whoever does not see its caption.
  QLineEdit* MakeReading(const QString& name, const QString& spoken);

  const PrinterModel& model_;
  std::array<QLineEdit*, kTracks> TxtTrackHex{};
  std::array<QLineEdit*, kTracks> TxtBuffer{};
  std::array<QLineEdit*, kTracks> TxtBufferHex{};
  std::array<QLineEdit*, kTracks> TxtLoaded{};
};

}  // namespace vantrel::printer
