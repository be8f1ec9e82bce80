// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/helpers.h"

#include <QGroupBox>
#include <QStringList>
#include <QTimer>

class QComboBox;
class QLabel;
class QPushButton;

namespace vantrel::printer {

class FaceView;
class PrinterModel;

// The face of the printer's card as it is printed, to turn, to enlarge, to copy and to save.
class FaceSide : public QGroupBox {
  Q_OBJECT

 public:
  // All must outlive the side.
  FaceSide(const PrinterModel& model, dialogs::Helpers helpers, QWidget* parent = nullptr);

  // Shows the face as it is, a little later. Whoever owns the side calls it when the printer's
  // server tells of a change.
  void Refresh();
  // Names the fonts that the printer lacks, each in words that end a sentence; nothing is shown
  // where there are none.
  void ShowMissingFonts(const QStringList& fonts);

  // What the buttons do, and the choice of a zoom: how many pixels a dot takes, 1 to 3, or 0 for as
  // many as fit.
  void CmdTurn_Click();
  void CmdCopyPicture_Click();
  void CmdSavePicture_Click();
  void SetZoom(int zoom);

 signals:
  // How saving or copying a picture went, in words.
  void Told(const QString& message);

 private:
  QPushButton* MakeButton(const char* name, const QString& caption, const QString& tip,
                          void (FaceSide::*click)());
  void ShowScale();

  const PrinterModel& model_;
  dialogs::Helpers helpers_;
  // A face costs more than a text, so several changes are drawn as one.
  QTimer draw_face_;
  FaceView* face_ = nullptr;
  QComboBox* CmbZoom = nullptr;
  QLabel* LblFonts = nullptr;
  QLabel* LblScale = nullptr;
};

}  // namespace vantrel::printer
