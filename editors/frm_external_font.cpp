// SPDX-License-Identifier: MIT

#include "editors/frm_external_font.h"

#include "dialogs/named_widgets.h"
#include "editors/form_parts.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>

namespace vantrel::editors {

FrmExternalFont::FrmExternalFont(link::CommonVariables& common, dialogs::Dialogs& dialogs,
                                 dialogs::Guard& guard, QWidget* parent)
    : dialogs::SubForm("FrmExternalFont", guard, parent),
      common_(common),
      dialogs_(dialogs),
      editor_(common) {
  auto* side = new QVBoxLayout;
  side->addWidget(MakeFontChoice());
  side->addStretch();
  auto* next = dialogs::MakeButton("CmdNext", ">>");
  next->setAccessibleName("Next");
  connect(next, &QPushButton::clicked, this, Guarded([this] { CmdNext_Click(); }));
  side->addWidget(next);

  auto* body = new QHBoxLayout;
  body->addLayout(side);
  body->addWidget(MakeMatrix(), 1);
  status_bar_ = AddBodyAndStatusBar(this, body);
  ShowEditor();
}

QWidget* FrmExternalFont::MakeFontChoice() {
  auto* frame = new QGroupBox("Font Type And Number");
  frame->setObjectName("FraCoordinate");
  auto* layout = new QGridLayout(frame);
  const auto add_option = [&](const QString& name, const QString& caption, int column,
                              void (FontEditor::*handler)()) {
    auto* option = new QRadioButton(caption);
    option->setObjectName(name);
    // A click on the option that is selected already changes the size anew as well.
    connect(option, &QRadioButton::clicked, this, Guarded([this, handler] {
              (editor_.*handler)();
              ShowEditor();
            }));
    layout->addWidget(option, 0, column, Qt::AlignLeft);
    return option;
  };
  add_option("Opt24dot", "24 dot", 0, &FontEditor::Opt24dot_Click)->setChecked(true);
  add_option("Opt16dot", "16 dot", 1, &FontEditor::Opt16dot_Click);

  image_no_ = new QComboBox;
  image_no_->setObjectName("ComboImageNo");
  for (const char digit : std::string("0123456789ABCDEF"))
    image_no_->addItem(QString(QLatin1Char(digit)));
  // The text is sent as it was typed: nothing completes it or turns an "a" into an "A".
  image_no_->setEditable(true);
  image_no_->setCompleter(nullptr);
  image_no_->setInsertPolicy(QComboBox::NoInsert);
  image_no_->setMinimumContentsLength(4);
  auto* label = dialogs::MakeLabel("LblImageNo", "Image No:");
  label->setBuddy(image_no_);
  layout->addWidget(label, 1, 0);
  layout->addWidget(image_no_, 1, 1);
  return frame;
}

QWidget* FrmExternalFont::MakeMatrix() {
  matrix_ = new QGroupBox;
  matrix_->setObjectName("FraFontMatrix");
  grid_ = std::make_unique<DotGrid>("LblDot", editor_, 2, EventGuard());
  auto* layout = MakeMatrixLayout(matrix_, "Origin(0,0)", grid_.get());
  const char* const captions[] = {"Fill All", "Clear All"};
  for (int i = 0; i < 2; ++i) {
    auto* button = dialogs::MakeButton(QString("CmdAll_%1").arg(i), captions[i]);
    connect(button, &QPushButton::clicked, this, Guarded([this, i] {
              editor_.CmdAll_Click(i);
              ShowEditor();
            }));
    layout->addWidget(button);
  }
  return matrix_;
}

void FrmExternalFont::Form_Activate() {
  editor_.Form_Activate();
  ShowEditor();
}

void FrmExternalFont::ShowEditor() {
  setWindowTitle(QString::fromStdString(editor_.Caption()));
  matrix_->setTitle(QString::fromStdString(editor_.FrameCaption()));
  status_bar_->SetText(1, editor_.Panel1());
  grid_->Refresh();
}

void FrmExternalFont::CmdNext_Click() {
  editor_.CmdNext_Click(image_no_->currentText().toStdString());
  dialogs_.MsgBox(common_.DataString, dialogs::Buttons::kOk, "Print Data");
  Unload();
}

}  // namespace vantrel::editors
