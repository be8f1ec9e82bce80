// SPDX-License-Identifier: MIT

#include "editors/frm_external_image.h"

#include "dialogs/named_widgets.h"
#include "editors/form_parts.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>

namespace vantrel::editors {
namespace {

// Keeps the form's size and layout while the widget is hidden.
void RetainSize(QWidget* widget) {
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
}

}  // namespace

FrmExternalImage::FrmExternalImage(link::CommonVariables& common, dialogs::Dialogs& dialogs,
                                   dialogs::Guard& guard, QWidget* parent)
    : dialogs::SubForm("FrmExternalImage", guard, parent), dialogs_(dialogs), editor_(common) {
  auto* side = new QVBoxLayout;
  side->addWidget(MakeCoordinates());
  side->addStretch();
  next_ = dialogs::MakeButton("CmdNext", ">>");
  next_->setAccessibleName("Next");
  connect(next_, &QPushButton::clicked, this, Guarded([this] { CmdNext_Click(); }));
  side->addWidget(next_);

  auto* body = new QHBoxLayout;
  body->addLayout(side);
  body->addWidget(MakeMatrix(), 1);
  status_bar_ = AddBodyAndStatusBar(this, body);
  // From the boxes to what comes next in either step.
  setTabOrder(set_, grid_.get());
  setTabOrder(grid_.get(), clear_);
  setTabOrder(clear_, next_);
  ShowEditor();
}

QWidget* FrmExternalImage::MakeCoordinates() {
  auto* frame = new QGroupBox("Printing Coordinate");
  frame->setObjectName("FraCoordinate");
  auto* layout = new QGridLayout(frame);
  int row = 0;
  const auto add_box = [&](const QString& axis) {
    auto* box = new dialogs::DigitBox("Txt" + axis + "Coordinate", "0",
                                      dialogs::DigitBox::Deleting::kAllowed);
    connect(box, &dialogs::DigitBox::Click, this, Guarded([this] { TxtCoordinate_Click(); }));
    auto* label = dialogs::MakeLabel("Lbl" + axis + "Coordinate", axis + "-Coordinate");
    label->setBuddy(box);
    layout->addWidget(label, row, 0);
    layout->addWidget(box, row++, 1);
    return box;
  };
  x_coordinate_ = add_box("X");
  y_coordinate_ = add_box("Y");
  set_ = dialogs::MakeButton("CmdSet", "Set");
  RetainSize(set_);
  connect(set_, &QPushButton::clicked, this, Guarded([this] { CmdSet_Click(); }));
  layout->addWidget(set_, row, 1);
  return frame;
}

QWidget* FrmExternalImage::MakeMatrix() {
  matrix_ = new QGroupBox;
  matrix_->setObjectName("FraDotMatrix");
  RetainSize(matrix_);
  grid_ = std::make_unique<DotGrid>("Lbldot", editor_, 1, EventGuard());
  auto* layout = MakeMatrixLayout(matrix_, "Origin (0,0)", grid_.get());
  clear_ = dialogs::MakeButton("CmdClear", "Clear All");
  connect(clear_, &QPushButton::clicked, this, Guarded([this] { CmdClear_Click(); }));
  layout->addWidget(clear_);
  return matrix_;
}

void FrmExternalImage::Form_Activate() {
  editor_.Form_Activate();
  ShowEditor();
  // What is typed first replaces the text, which Backspace can't remove.
  x_coordinate_->selectAll();
}

void FrmExternalImage::TxtCoordinate_Click() {
  editor_.TxtCoordinate_Click();
  ShowEditor();
}

void FrmExternalImage::CmdSet_Click() {
  const auto invalid = editor_.CmdSet_Click(x_coordinate_->text().toStdString(),
                                            y_coordinate_->text().toStdString());
  if (invalid) {
    dialogs_.MsgBox(invalid->prompt, dialogs::Buttons::kOk, invalid->title);
    dialogs::DigitBox* box = invalid->is_x ? x_coordinate_ : y_coordinate_;
    box->setText("0");
    box->setFocus();
    box->selectAll();
    return;
  }
  ShowEditor();
  clear_->setFocus();
}

void FrmExternalImage::CmdClear_Click() {
  editor_.CmdClear_Click();
  ShowEditor();
}

void FrmExternalImage::CmdNext_Click() {
  editor_.CmdNext_Click(x_coordinate_->text().toStdString(), y_coordinate_->text().toStdString());
  Unload();
}

void FrmExternalImage::ShowEditor() {
  const bool drawing = editor_.CurrentStep() == ImageEditor::Step::kDrawing;
  setWindowTitle(QString::fromStdString(editor_.Caption()));
  matrix_->setTitle(QString::fromStdString(editor_.FrameCaption()));
  status_bar_->SetText(1, editor_.Panel1());
  matrix_->setVisible(drawing);
  next_->setEnabled(drawing);
  set_->setVisible(!drawing);
  grid_->Refresh();
}

}  // namespace vantrel::editors
