// SPDX-License-Identifier: MIT

#include "printdata/frm_4e.h"

#include "dialogs/digit_box.h"
#include "dialogs/named_widgets.h"
#include "dialogs/panel_bar.h"
#include "printdata/frames.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrel::printdata {
namespace {

// Sixteen in a row show the sets A and B as tables of ASCII do, twenty the hundred numbers of
// set C.
constexpr KeyArrangement kCodeSetArrangements[] = {{16, 0, 1}, {16, 1, 1}, {20, 2, 2}};
// The digits in the first row, the signs in the second.
constexpr KeyArrangement kOtherArrangement = {10, 2, 1};
constexpr int kMostRows = 7;
constexpr int kKeySpacing = 4;
// Gives all columns of the pad the same width; with a large font the form may be shown narrower.
constexpr int kPreferredWidth = 960;

QComboBox* MakeCharacterBox(const QString& name) {
  auto* box = new QComboBox;
  box->setObjectName(name);
  box->setEditable(true);
  // What is typed stays as typed: no completion, no new items.
  box->setCompleter(nullptr);
  box->setInsertPolicy(QComboBox::NoInsert);
  box->addItems({"A", "B", "C", "D"});
  return box;
}

}  // namespace

Frm4E::Frm4E(link::CommonVariables& common, dialogs::Guard& guard, QWidget* parent)
    : dialogs::SubForm("Frm4E", guard, parent),
      common_(common),
      status_bar_(new dialogs::PanelBar("StatusBarFrm4E")) {
  setWindowTitle("4Eh Bar Code Data Setting Commands");
  QGroupBox* barcode_type = MakeBarcodeType();
  fra_code_set_ = MakeCodeSet();
  fra_start_stop_ = MakeStartStop();
  fra_key_ = MakeKeys();
  auto* choices = new QGridLayout;
  choices->addWidget(MakeYCoordinate(), 0, 0);
  // Only one of the two is shown at a time, in the same place.
  for (QGroupBox* frame : {fra_code_set_, fra_start_stop_}) {
    QSizePolicy policy = frame->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    frame->setSizePolicy(policy);
    choices->addWidget(frame, 0, 1);
  }
  choices->addWidget(MakeBarcodeData(), 1, 0, 1, 2);
  choices->setSpacing(kFrameSpacing);
  // It ends where the types' frame does.
  choices->setRowStretch(1, 1);
  choices->setColumnStretch(0, 1);
  choices->setColumnStretch(1, 1);
  auto* top = new QHBoxLayout;
  top->setSpacing(kFrameSpacing);
  top->addWidget(barcode_type);
  top->addLayout(choices, 1);
  auto* all = new QVBoxLayout;
  all->setContentsMargins(kFrameSpacing, kFrameSpacing, kFrameSpacing, kFrameSpacing);
  all->setSpacing(kFrameSpacing);
  all->addLayout(top);
  all->addWidget(fra_key_, 1);
  auto* form = new QVBoxLayout(this);
  form->setContentsMargins(0, 0, 0, 0);
  form->setSpacing(0);
  form->addLayout(all, 1);
  ReserveTwoLines(status_bar_);
  form->addWidget(status_bar_);
  Form_Load();
  layout()->activate();
  const int screen_width = screen()->availableGeometry().width();
  resize(std::min(kPreferredWidth, screen_width), sizeHint().height());
}

QGroupBox* Frm4E::MakeBarcodeType() {
  QGroupBox* frame = MakeFrame("FraBarcodeType", "Barcode Type");
  auto* layout = new QVBoxLayout(frame);
  layout->setSpacing(4);
  for (int i = 0; i < kBarcodeTypeCount; ++i) {
    const auto index = static_cast<std::size_t>(i);
    auto* option = new QRadioButton(QString::fromStdString(BarcodeTypes()[index].caption));
    option->setObjectName(QString("OptBarcodeType_%1").arg(i));
    connect(option, &QRadioButton::clicked, this, Guarded([this, i] { OptBarcodeType_Click(i); }));
    layout->addWidget(option, 0, Qt::AlignLeft);
    opt_barcode_type_[index] = option;
  }
  opt_barcode_type_[0]->setChecked(true);
  return frame;
}

QGroupBox* Frm4E::MakeCodeSet() {
  static constexpr const char* kCaptions[] = {"Set A", "Set B", "Set C"};
  QGroupBox* frame = MakeFrame("FraCodeSet", "CodeSet");
  auto* layout = new QHBoxLayout(frame);
  for (int i = 0; i < kCodeSetCount; ++i) {
    auto* option = new QRadioButton(kCaptions[i]);
    option->setObjectName(QString("OptCodeSet_%1").arg(i));
    connect(option, &QRadioButton::clicked, this, Guarded([this, i] { OptCodeSet_Click(i); }));
    layout->addWidget(option, 0, Qt::AlignLeft);
    opt_code_set_[static_cast<std::size_t>(i)] = option;
  }
  layout->addStretch();
  opt_code_set_[0]->setChecked(true);
  return frame;
}

QGroupBox* Frm4E::MakeStartStop() {
  QGroupBox* frame = MakeFrame("FraStartStop", "Start / End Characters");
  combo_start_ = MakeCharacterBox("ComboStart");
  combo_start_->setAccessibleName("Start character");
  combo_end_ = MakeCharacterBox("ComboEnd");
  combo_end_->setAccessibleName("End character");
  // Their texts stand in for the names on some systems.
  for (QComboBox* box : {combo_start_, combo_end_})
    box->setAccessibleDescription(box->accessibleName());
  auto* layout = new QHBoxLayout(frame);
  layout->addWidget(combo_start_);
  layout->addWidget(combo_end_);
  frame->hide();
  return frame;
}

QGroupBox* Frm4E::MakeYCoordinate() {
  QGroupBox* frame = MakeFrame("FraYCoordinate", "Y Coordinate");
  txt_start_coordinate_ =
      new dialogs::DigitBox("TxtStartCoordinate", "0", dialogs::DigitBox::Deleting::kAllowed);
  txt_start_coordinate_->setAccessibleName("Y Coordinate, Start");
  // Takes any text; that is meant.
  txt_end_coordinate_ = new QLineEdit("47");
  txt_end_coordinate_->setObjectName("TxtEndCoordinate");
  txt_end_coordinate_->setAccessibleName("Y Coordinate, End");
  auto* layout = new QGridLayout(frame);
  layout->addWidget(dialogs::MakeLabel("LblStartCoordinate", "Start"), 0, 0);
  layout->addWidget(txt_start_coordinate_, 0, 1);
  layout->addWidget(dialogs::MakeLabel("LblEndCoordinate", "End"), 1, 0);
  layout->addWidget(txt_end_coordinate_, 1, 1);
  return frame;
}

QGroupBox* Frm4E::MakeKeys() {
  QGroupBox* frame = MakeFrame("FraKey", "Characters");
  key_space_ = new QWidget;
  auto* keys = new QVBoxLayout(key_space_);
  keys->setContentsMargins(0, 0, 0, 0);
  key_grid_ = new QGridLayout;
  key_grid_->setSpacing(kKeySpacing);
  keys->addStretch();
  keys->addLayout(key_grid_);
  keys->addStretch();
  for (int i = 0; i < kBarcodeKeyCount; ++i) {
    QPushButton* key = dialogs::MakeButton(QString("CmdKey_%1").arg(i), "");
    key->setParent(key_space_);
    // The columns of the grid give a key its width.
    key->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    connect(key, &QPushButton::clicked, this, Guarded([this, i] { CmdKey_Click(i); }));
    cmd_key_[static_cast<std::size_t>(i)] = key;
  }
  ReserveKeySpace();
  auto* layout = new QVBoxLayout(frame);
  layout->addWidget(key_space_);
  return frame;
}

QGroupBox* Frm4E::MakeBarcodeData() {
  QGroupBox* frame = MakeFrame("FraBarcodeData", "Barcode Data");
  lbl_barcode_data_ = dialogs::MakeLabel("LblBarcodeData", "");
  lbl_barcode_data_->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  lbl_barcode_data_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  lbl_barcode_data_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lbl_barcode_data_->setAutoFillBackground(true);
  lbl_barcode_data_->setBackgroundRole(QPalette::Base);
  lbl_barcode_data_->setForegroundRole(QPalette::Text);
  QFont large = font();
  large.setPointSize(large.pointSize() + 3);
  lbl_barcode_data_->setFont(large);
  // Wide enough for the longest data, eleven keys of two digits.
  const QFontMetrics metrics(large);
  lbl_barcode_data_->setMinimumSize(22 * metrics.horizontalAdvance('0') + 12,
                                    metrics.lineSpacing() + 12);
  cmd_clear_ = dialogs::MakeButton("CmdClear", "Clear");
  connect(cmd_clear_, &QPushButton::clicked, this, Guarded([this] { CmdClear_Click(); }));
  cmd_next_ = dialogs::MakeButton("CmdNext", ">>");
  cmd_next_->setAccessibleName("Next");
  connect(cmd_next_, &QPushButton::clicked, this, Guarded([this] { CmdNext_Click(); }));
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmd_clear_);
  buttons->addStretch();
  buttons->addWidget(cmd_next_);
  auto* layout = new QVBoxLayout(frame);
  layout->addWidget(lbl_barcode_data_);
  layout->addLayout(buttons);
  layout->addStretch();
  return frame;
}

void Frm4E::Form_Load() {
  OptCodeSet_Click(0);
  common_.DataString.clear();
  combo_start_->setEditText("A");
  combo_end_->setEditText("A");
}

void Frm4E::OptBarcodeType_Click(int index) {
  pad_.SelectType(index);
  fra_code_set_->setVisible(IsCode128(index));
  fra_start_stop_->setVisible(IsCodabar(index));
  ArrangeKeys(IsCode128(index) ? kCodeSetArrangements[0] : kOtherArrangement);
  ShowPad();
  if (!IsCodabar(index)) return;
  combo_start_->setFocus();
  // An arrow key clicks the option first and gives it the focus afterwards.
  const QRadioButton* option = opt_barcode_type_[static_cast<std::size_t>(index)];
  if (!option->hasFocus())
    QMetaObject::invokeMethod(combo_start_, qOverload<>(&QWidget::setFocus), Qt::QueuedConnection);
}

void Frm4E::OptCodeSet_Click(int index) {
  pad_.SelectCodeSet(index);
  ArrangeKeys(kCodeSetArrangements[index]);
  ShowPad();
}

void Frm4E::CmdKey_Click(int index) {
  pad_.PressKey(index);
  ShowPad();
}

void Frm4E::CmdClear_Click() {
  pad_.Clear();
  ShowPad();
}

void Frm4E::CmdNext_Click() {
  common_.DataString = ComposeBarcode({txt_start_coordinate_->text().toStdString(),
                                       txt_end_coordinate_->text().toStdString(), pad_.Type(),
                                       SelectedCodeSet(), combo_start_->currentText().toStdString(),
                                       combo_end_->currentText().toStdString(), pad_.Data()});
  Unload();
}

void Frm4E::ShowPad() {
  const QString typed = QString::fromStdString(pad_.Data());
  lbl_barcode_data_->setText(typed);
  lbl_barcode_data_->setAccessibleName("Barcode data: " + (typed.isEmpty() ? "none" : typed));
  cmd_next_->setEnabled(pad_.IsNextEnabled());
  fra_key_->setEnabled(pad_.IsPadEnabled());
  status_bar_->SetText(1, pad_.PanelText(1));
  status_bar_->SetText(2, pad_.PanelText(2));
}

void Frm4E::ArrangeKeys(const KeyArrangement& arrangement) {
  const QFont key_font = KeyFont(arrangement);
  const QFontMetrics metrics(key_font);
  const auto in_use = static_cast<int>(pad_.Captions().size());
  int row = 0;
  int column = 0;
  for (int i = 0; i < kBarcodeKeyCount; ++i) {
    QPushButton* key = cmd_key_[static_cast<std::size_t>(i)];
    key_grid_->removeWidget(key);
    key->setVisible(i < in_use);
    if (i >= in_use) continue;
    const QString caption = QString::fromStdString(pad_.Captions()[static_cast<std::size_t>(i)]);
    key->setText(caption);
    key->setFont(key_font);
    key->setMinimumWidth(metrics.horizontalAdvance(caption) + 8);
    const int columns = i < 100 ? 1 : arrangement.function_columns;
    key_grid_->addWidget(key, row, column, 1, columns);
    column += columns;
    if (column == arrangement.columns) {
      column = 0;
      ++row;
    }
  }
  for (int i = 0; i < key_grid_->columnCount(); ++i)
    key_grid_->setColumnStretch(i, i < arrangement.columns ? 1 : 0);
}

void Frm4E::ReserveKeySpace() {
  const int height = QFontMetrics(KeyFont(kOtherArrangement)).lineSpacing() + 8;
  for (QPushButton* key : cmd_key_) key->setFixedHeight(height);
  key_space_->setMinimumHeight(kMostRows * (height + kKeySpacing) - kKeySpacing);
}

QFont Frm4E::KeyFont(const KeyArrangement& arrangement) const {
  QFont key_font = font();
  key_font.setPointSize(key_font.pointSize() + arrangement.points_larger);
  return key_font;
}

int Frm4E::SelectedCodeSet() const {
  const auto selected =
      std::find_if(opt_code_set_.begin(), opt_code_set_.end(),
                   [](const QRadioButton* option) { return option->isChecked(); });
  return static_cast<int>(selected - opt_code_set_.begin());
}

}  // namespace vantrel::printdata
