#include "printer/window/face_side.h"

#include "dialogs/file_chooser.h"
#include "printer/model/printer_model.h"
#include "printer/service/dot_image.h"
#include "printer/window/face_view.h"

#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <string>

namespace vantrel::printer {

FaceSide::FaceSide(const PrinterModel& model, dialogs::FileChooser& files, QWidget* parent)
    : QGroupBox(tr("Face of the card"), parent),
      model_(model),
      files_(files),
      face_(new FaceView(this)),
      LblFonts(new QLabel(this)),
      LblScale(new QLabel(this)) {
  face_->setObjectName("FaceView");
  auto* scroll = new QScrollArea(this);
  scroll->setObjectName("ScrFace");
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidget(face_);
  // The whole face fits while it lies; when it stands it is scrolled, or the window made higher.
  scroll->setMinimumSize(face_->sizeHint());
  LblFonts->setObjectName("LblFonts");
  LblFonts->setTextFormat(Qt::PlainText);
  LblFonts->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  LblFonts->setWordWrap(true);
  LblFonts->hide();
  LblScale->setObjectName("LblScale");
  LblScale->setTextFormat(Qt::PlainText);
  auto* turn = MakeButton("CmdTurn", tr("Tu&rn"), &FaceSide::CmdTurn_Click);
  turn->setToolTip(tr("Turns the picture by a quarter."));
  auto* row = new QHBoxLayout;
  row->addWidget(turn);
  row->addWidget(
      MakeButton("CmdSavePicture", tr("Sa&ve picture..."), &FaceSide::CmdSavePicture_Click));
  row->addStretch();
  row->addWidget(LblScale);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 4, 8, 8);
  layout->addWidget(LblFonts);
  layout->addWidget(scroll, 1);
  layout->addLayout(row);
  connect(face_, &FaceView::Scaled, this, &FaceSide::ShowScale);
  draw_face_.setSingleShot(true);
  connect(&draw_face_, &QTimer::timeout, this, [this] { face_->Show(model_.State().card.face); });
  Refresh();
  ShowScale();
}

void FaceSide::Refresh() {
  if (!draw_face_.isActive()) draw_face_.start(0);
}

void FaceSide::ShowMissingFonts(const QStringList& fonts) {
  LblFonts->setText(fonts.join('\n'));
  LblFonts->setVisible(!fonts.isEmpty());
}

QPushButton* FaceSide::MakeButton(const char* name, const QString& caption,
                                  void (FaceSide::*click)()) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  connect(button, &QPushButton::clicked, this, click);
  return button;
}

void FaceSide::CmdTurn_Click() { face_->Turn(); }

void FaceSide::CmdSavePicture_Click() {
  const QString path =
      files_.SaveName(this, tr("Save picture"), "card.png", tr("Pictures (*.png)"));
  if (path.isEmpty()) return;
  face_->Show(model_.State().card.face);
  const std::string error =
      SavePicture(face_->Picture(), "png", QFile::encodeName(path).toStdString());
  emit Told(error.empty() ? tr("Saved to %1").arg(path) : QString::fromLocal8Bit(error.c_str()));
}

void FaceSide::ShowScale() {
  const QSize dots = face_->Picture().size();
  LblScale->setText(
      tr("%1 × %2 dots, %3:1").arg(dots.width()).arg(dots.height()).arg(face_->Scale()));
}

}  // namespace vantrel::printer
