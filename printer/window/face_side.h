#pragma once

#include <QGroupBox>
#include <QStringList>
#include <QTimer>

class QLabel;
class QPushButton;

namespace vantrel::dialogs {
class FileChooser;
}

namespace vantrel::printer {

class FaceView;
class PrinterModel;

// The face of the printer's card as it is printed, to turn and to save.
class FaceSide : public QGroupBox {
  Q_OBJECT

 public:
  // Both must outlive the side.
  FaceSide(const PrinterModel& model, dialogs::FileChooser& files, QWidget* parent = nullptr);

  // Shows the face as it is, a little later. Whoever owns the side calls it when the printer's
  // server tells of a change.
  void Refresh();
  // Names the fonts that the printer lacks, each in words that end a sentence; nothing is shown
  // where there are none.
  void ShowMissingFonts(const QStringList& fonts);

 signals:
  // How saving a picture went, in words.
  void Told(const QString& message);

 private:
  QPushButton* MakeButton(const char* name, const QString& caption, void (FaceSide::*click)());
  void CmdTurn_Click();
  void CmdSavePicture_Click();
  void ShowScale();

  const PrinterModel& model_;
  dialogs::FileChooser& files_;
  // A face costs more than a text, so several changes are drawn as one.
  QTimer draw_face_;
  FaceView* face_ = nullptr;
  QLabel* LblFonts = nullptr;
  QLabel* LblScale = nullptr;
};

}  // namespace vantrel::printer
