// SPDX-License-Identifier: MIT

#include "printdata/frm_print_buffer.h"

#include "dialogs/digit_box.h"
#include "dialogs/named_widgets.h"
#include "dialogs/panel_bar.h"
#include "printdata/card_diagram.h"
#include "printdata/frames.h"
#include "printdata/leave_watch.h"

#include <QGridLayout>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrel::printdata {
namespace {

// 6240 twips, twenty to a point, at 96 dots per inch.
constexpr int kImageExpansionHeight = 416;

}  // namespace

FrmPrintBuffer::FrmPrintBuffer(link::CommonVariables& common, dialogs::Dialogs& dialogs,
                               dialogs::Guard& guard, QWidget* parent)
    : dialogs::SubForm("FrmPrintBuffer", guard, parent),
      common_(common),
      dialogs_(dialogs),
      status_bar_(new dialogs::PanelBar("StatusBarFrmPrintBuffer")) {
  QGroupBox* card_direction = MakeCardDirection();
  QGroupBox* coordinate = MakeCoordinate();
  fra_print_text_ = MakePrintText();
  fra_image_no_ = MakeImageNo();
  fra_cmd_btn_ = MakeCommandButtons();
  fra_description_ = {MakeFrame("FraDescription_0", "Vertical"),
                      MakeFrame("FraDescription_1", "Horizontal")};
  MakeLayout(card_direction, coordinate);
  fra_image_no_->hide();
  fra_description_[1]->hide();

  auto* leave_watch = new LeaveWatch(this, guard);
  leave_watch->Watch(txt_x_coordinate_, [this] { return TxtXCoordinate_LostFocus(); });
  leave_watch->Watch(txt_y_coordinate_, [this] { return TxtYCoordinate_LostFocus(); });
  leave_watch->Watch(txt_image_no_, [this] { return TxtImageNo_LostFocus(); });
}

QGroupBox* FrmPrintBuffer::MakeCardDirection() {
  static constexpr const char* kCaptions[] = {
      "'0': Vertical + Overwrite", "'1': Horizontal + Overwrite", "'2': Vertical + Added Writing",
      "'3': Horizontal + Added Writing"};
  QGroupBox* frame = MakeFrame("FraCardDirection", "Card Arrangement Direction");
  auto* layout = new QVBoxLayout(frame);
  for (int i = 0; i < 4; ++i) {
    auto* option = new QRadioButton(kCaptions[i]);
    option->setObjectName(QString("Opt_direction_%1").arg(i));
    connect(option, &QRadioButton::clicked, this, Guarded([this, i] { Opt_direction_Click(i); }));
    layout->addWidget(option, 0, Qt::AlignLeft);
    opt_direction_[static_cast<std::size_t>(i)] = option;
  }
  layout->addStretch();
  opt_direction_[2]->setChecked(true);
  return frame;
}

QGroupBox* FrmPrintBuffer::MakeCoordinate() {
  QGroupBox* frame = MakeFrame("FraCoordinate", "Printing Coordinate");
  auto* layout = new QGridLayout(frame);
  const auto add = [layout](int row, const QString& name, const QString& caption,
                            const QString& text) {
    auto* box = new dialogs::DigitBox("Txt" + name, text, dialogs::DigitBox::Deleting::kDiscarded);
    box->setAccessibleName(caption);
    layout->addWidget(dialogs::MakeLabel("Lbl" + name, caption), row, 0);
    layout->addWidget(box, row, 1);
    return box;
  };
  txt_x_coordinate_ = add(0, "XCoordinate", "X-Coordinate", "0");
  txt_y_coordinate_ = add(1, "YCoordinate", "Y-Coordinate", "47");
  return frame;
}

QGroupBox* FrmPrintBuffer::MakePrintText() {
  QGroupBox* frame = MakeFrame("FraPrintText", "Print Text");
  txt_print_ = new QLineEdit("Test Print");
  txt_print_->setObjectName("TxtPrint");
  txt_print_->setAccessibleName("Print Text");
  auto* layout = new QVBoxLayout(frame);
  layout->addWidget(txt_print_);
  return frame;
}

QGroupBox* FrmPrintBuffer::MakeImageNo() {
  QGroupBox* frame = MakeFrame("FraImageNo", "Image No");
  txt_image_no_ = new dialogs::DigitBox("TxtImageNo", "0", dialogs::DigitBox::Deleting::kDiscarded);
  txt_image_no_->setAccessibleName("Image No");
  QPushButton* next = dialogs::MakeButton("CmdNext", ">>>");
  next->setAccessibleName("Next");
  connect(next, &QPushButton::clicked, this, Guarded([this] { CmdNext_Click(); }));
  auto* layout = new QHBoxLayout(frame);
  layout->addWidget(txt_image_no_);
  layout->addWidget(next);
  return frame;
}

QGroupBox* FrmPrintBuffer::MakeCommandButtons() {
  constexpr int kColumns = 6;
  QGroupBox* frame = MakeFrame("FraCmdBtn", "");
  auto* layout = new QGridLayout(frame);
  int place = 0;
  for (const EscSequence& sequence : EscSequences()) {
    QPushButton* button = dialogs::MakeButton(QString::fromStdString(sequence.name),
                                              QString::fromStdString(sequence.caption));
    button->setToolTip(QString::fromStdString(sequence.panel1).trimmed());
    connect(button, &QPushButton::clicked, this,
            Guarded([this, &sequence] { CmdEsc_Click(sequence); }));
    layout->addWidget(button, place / kColumns, place % kColumns);
    ++place;
  }
  return frame;
}

void FrmPrintBuffer::MakeLayout(QGroupBox* card_direction, QGroupBox* coordinate) {
  auto* fields = new QVBoxLayout;
  fields->setSpacing(kFrameSpacing);
  for (QWidget* frame : {card_direction, coordinate, fra_print_text_, fra_image_no_})
    fields->addWidget(frame);
  // The frames end where the diagram's does.
  fields->setStretchFactor(card_direction, 1);

  // Both diagrams have the same place, so that the form keeps its size when they change.
  auto* diagrams = new QGridLayout;
  for (std::size_t i = 0; i < fra_description_.size(); ++i) {
    auto* inside = new QVBoxLayout(fra_description_[i]);
    inside->addWidget(new CardDiagram(i == 0 ? CardDiagram::Orientation::kVertical
                                             : CardDiagram::Orientation::kHorizontal));
    QSizePolicy policy = fra_description_[i]->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    fra_description_[i]->setSizePolicy(policy);
    diagrams->addWidget(fra_description_[i], 0, 0);
  }

  auto* top = new QHBoxLayout;
  top->setSpacing(kFrameSpacing);
  top->addLayout(fields, 1);
  top->addLayout(diagrams, 1);
  auto* all = new QVBoxLayout;
  all->setContentsMargins(kFrameSpacing, kFrameSpacing, kFrameSpacing, kFrameSpacing);
  all->setSpacing(kFrameSpacing);
  all->addLayout(top, 1);
  all->addWidget(fra_cmd_btn_);
  auto* form = new QVBoxLayout(this);
  form->setContentsMargins(0, 0, 0, 0);
  form->setSpacing(0);
  form->addLayout(all, 1);
  ReserveTwoLines(status_bar_);
  form->addWidget(status_bar_);
}

void FrmPrintBuffer::Form_Activate() {
  common_.PrintDirection = std::string("2");
  if (common_.IsPrintData) {
    common_.DataString = PrintText();
    setWindowTitle("41h Data String = Control Header String + Text Data String");
    return;
  }
  fra_print_text_->hide();
  fra_cmd_btn_->hide();
  fra_image_no_->show();
  SetPanelText(1, "Internal Image No : 0 - 1999");
  setWindowTitle("42h Internal image data expand command");
  layout()->activate();
  resize(width(), kImageExpansionHeight);
}

void FrmPrintBuffer::Form_Unload() {
  if (common_.IsPrintData) common_.DataString = ComposePrintHeader(Setting()) + common_.DataString;
}

void FrmPrintBuffer::Opt_direction_Click(int index) {
  common_.PrintDirection = std::to_string(index);
  const bool vertical = IsVertical(common_.PrintDirection);
  fra_description_[vertical ? 1 : 0]->hide();
  fra_description_[vertical ? 0 : 1]->show();
}

bool FrmPrintBuffer::TxtXCoordinate_LostFocus() {
  return Tell(txt_x_coordinate_, CheckCoordinate(Axis::kX, txt_x_coordinate_->text().toStdString(),
                                                 common_.PrintDirection));
}

bool FrmPrintBuffer::TxtYCoordinate_LostFocus() {
  return Tell(txt_y_coordinate_, CheckCoordinate(Axis::kY, txt_y_coordinate_->text().toStdString(),
                                                 common_.PrintDirection));
}

bool FrmPrintBuffer::TxtImageNo_LostFocus() {
  return Tell(txt_image_no_, CheckImageNo(txt_image_no_->text().toStdString()));
}

bool FrmPrintBuffer::Tell(QLineEdit* field, const std::optional<RangeError>& error) {
  if (!error) return false;
  field->setFocus();
  dialogs_.MsgBox(error->message, dialogs::Buttons::kOk, error->title);
  return true;
}

void FrmPrintBuffer::CmdNext_Click() {
  common_.DataString = ComposeImageExpansion(Setting(), txt_image_no_->text().toStdString());
  Unload();
}

void FrmPrintBuffer::CmdEsc_Click(const EscSequence& sequence) {
  if (RunEscSequence(sequence, *this, dialogs_, common_.DataString)) Unload();
}

PrintSetting FrmPrintBuffer::Setting() const {
  return {common_.PrintDirection, txt_x_coordinate_->text().toStdString(),
          txt_y_coordinate_->text().toStdString()};
}

std::string FrmPrintBuffer::PrintText() const { return txt_print_->text().toStdString(); }

bool FrmPrintBuffer::IsVerticalSelected() const {
  return opt_direction_[0]->isChecked() || opt_direction_[2]->isChecked();
}

std::string FrmPrintBuffer::PanelText(int panel) const { return status_bar_->Text(panel); }

void FrmPrintBuffer::SetPanelText(int panel, const std::string& text) {
  status_bar_->SetText(panel, text);
}

}  // namespace vantrel::printdata
