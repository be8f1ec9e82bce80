// SPDX-License-Identifier: MIT

#include "printer/window/face_side.h"

#include "dialogs/dialogs.h"
#include "dialogs/file_chooser.h"
#include "dialogs/guard.h"
#include "printer/model/printer_model.h"
#include "printer/service/picture_file.h"
#include "printer/window/dot_image.h"
#include "printer/window/face_view.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <cmath>
#include <optional>
#include <string>

namespace vantrel::printer {

using dialogs::GuardedSlot;

FaceSide::FaceSide(const PrinterModel& model, dialogs::Helpers helpers, QWidget* parent)
    : QGroupBox(tr("Face of the card"), parent),
      model_(model),
      helpers_(helpers),
      face_(new FaceView(tr("Card face"), this)),
      CmbZoom(new QComboBox(this)),
      LblFonts(new QLabel(this)),
      LblScale(new QLabel(this)) {
  face_->setObjectName("FaceView");
  auto* scroll = new QScrollArea(this);
  scroll->setObjectName("ScrFace");
  scroll->setAccessibleName(tr("Face of the card"));
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidget(face_);
  // So much is seen of the face at least, turned or not.
  scroll->setMinimumSize(face_->minimumSizeHint());
  LblFonts->setObjectName("LblFonts");
  LblFonts->setTextFormat(Qt::PlainText);
  LblFonts->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  LblFonts->setWordWrap(true);
  LblFonts->setAccessibleName(tr("Missing fonts"));
  LblFonts->hide();
  LblScale->setObjectName("LblScale");
  LblScale->setTextFormat(Qt::PlainText);
  CmbZoom->setObjectName("CmbZoom");
  CmbZoom->setAccessibleName(tr("Size of the face"));
  // Its text stands in for the name on some systems.
  CmbZoom->setAccessibleDescription(CmbZoom->accessibleName());
  CmbZoom->setToolTip(tr("How large the face is shown."));
  CmbZoom->addItems({tr("Fit"), "1:1", "2:1", "3:1"});
  connect(CmbZoom, &QComboBox::currentIndexChanged, this,
          GuardedSlot(helpers_.guard, [this](int zoom) {
            face_->SetZoom(zoom == 0 ? std::nullopt : std::optional(zoom));
          }));
  auto* row = new QHBoxLayout;
  row->addWidget(CmbZoom);
  row->addWidget(MakeButton("CmdTurn", tr("Tu&rn"), tr("Turns the picture by a quarter."),
                            &FaceSide::CmdTurn_Click));
  row->addWidget(MakeButton("CmdCopyPicture", tr("Copy picture"),
                            tr("Copies the picture, one pixel a dot."),
                            &FaceSide::CmdCopyPicture_Click));
  row->addWidget(MakeButton("CmdSavePicture", tr("Save picture..."),
                            tr("Saves the picture, one pixel a dot."),
                            &FaceSide::CmdSavePicture_Click));
  row->addStretch();
  row->addWidget(LblScale);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 4, 8, 8);
  layout->addWidget(LblFonts);
  layout->addWidget(scroll, 1);
  layout->addLayout(row);
  connect(face_, &FaceView::Scaled, this, GuardedSlot(helpers_.guard, [this] { ShowScale(); }));
  draw_face_.setSingleShot(true);
  connect(&draw_face_, &QTimer::timeout, this,
          GuardedSlot(helpers_.guard, [this] { face_->Show(model_.State().card.face); }));
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

QPushButton* FaceSide::MakeButton(const char* name, const QString& caption, const QString& tip,
                                  void (FaceSide::*click)()) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setToolTip(tip);
  connect(button, &QPushButton::clicked, this,
          GuardedSlot(helpers_.guard, [this, click] { (this->*click)(); }));
  return button;
}

void FaceSide::CmdTurn_Click() { face_->Turn(); }

void FaceSide::SetZoom(int zoom) { CmbZoom->setCurrentIndex(zoom); }

void FaceSide::CmdCopyPicture_Click() {
  face_->Show(model_.State().card.face);
  QApplication::clipboard()->setImage(face_->Picture());
  emit Told(tr("Picture copied"));
}

void FaceSide::CmdSavePicture_Click() {
  const QString path =
      helpers_.files.SaveName(this, tr("Save picture"), "card.png", tr("Pictures (*.png)"));
  if (path.isEmpty()) return;
  face_->Show(model_.State().card.face);
  const std::string error = SavePicture(DotsOf(face_->Picture()), PictureFormat::kPng,
                                        QFile::encodeName(path).toStdString());
  if (error.empty()) return emit Told(tr("Saved to %1").arg(path));
  helpers_.dialogs.MsgBox(QString::fromLocal8Bit(error.c_str()).toStdString(),
                          dialogs::Buttons::kOk, tr("Save picture").toStdString(),
                          dialogs::Icon::kCritical);
}

void FaceSide::ShowScale() {
  const QSize dots = face_->Picture().size();
  const double scale = face_->Scale();
  LblScale->setText(tr("%1 × %2 dots, %3")
                        .arg(dots.width())
                        .arg(dots.height())
                        .arg(scale < 1 ? tr("%1 %").arg(std::lround(100 * scale))
                                       : tr("%1:1").arg(std::lround(scale))));
}

}  // namespace vantrel::printer
