// SPDX-License-Identifier: MIT

#include "editors/frm_5a.h"

#include "dialogs/named_widgets.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

namespace vantrel::editors {
namespace {

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Arrow keys select the option they reach in a group with no selection as well, as in any other.
class OptionButton : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    QRadioButton::keyPressEvent(event);
    auto* reached = qobject_cast<QRadioButton*>(QApplication::focusWidget());
    if (reached && reached != this && reached->parent() == parent() && !reached->isChecked())
      reached->click();
  }
};

}  // namespace

Frm5A::Frm5A(link::CommonVariables& common, dialogs::Dialogs& dialogs, dialogs::Guard& guard,
             QWidget* parent)
    : dialogs::SubForm("Frm5A", guard, parent), common_(common), dialogs_(dialogs) {
  setWindowTitle("Form5A");
  QPushButton* next = dialogs::MakeButton("CmdNext", ">>");
  next->setAccessibleName("Next");
  connect(next, &QPushButton::clicked, this, Guarded([this] { CmdNext_Click(); }));

  auto* layout = new QGridLayout(this);
  int column = 0;
  for (const Control control : kControls) layout->addWidget(MakeGroup(control), 0, column++);
  layout->addWidget(next, 1, column - 1, Qt::AlignRight);
  layout->setRowStretch(0, 1);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

QWidget* Frm5A::MakeGroup(Control control) {
  const ControlGroup& group = GroupOf(control);
  auto* frame = new QGroupBox(Text(group.frame_caption));
  frame->setObjectName(Text(group.frame_name));
  auto* layout = new QVBoxLayout(frame);
  auto& options = options_[static_cast<std::size_t>(control)];
  for (int i = 0; i < static_cast<int>(group.options.size()); ++i) {
    auto* option = new OptionButton(Text(group.options[static_cast<std::size_t>(i)].caption));
    option->setObjectName(QString("%1_%2").arg(Text(group.option_name)).arg(i));
    option->setChecked(i == group.initial_index);
    connect(option, &QRadioButton::clicked, this,
            Guarded([this, control, i] { Choose(control, i); }));
    layout->addWidget(option, 0, Qt::AlignLeft);
    options.push_back(option);
  }
  layout->addStretch();
  return frame;
}

void Frm5A::Choose(Control control, int index) {
  const ControlGroup& group = GroupOf(control);
  if (!settings_.Choose(control, index)) {
    dialogs_.MsgBox(std::string(group.error_prompt), dialogs::Buttons::kOk,
                    std::string(group.error_title));
    return;
  }
  // The others of the group lose their mark by it.
  options_[static_cast<std::size_t>(control)][static_cast<std::size_t>(index)]->setChecked(true);
}

void Frm5A::CmdNext_Click() {
  common_.ControlDataString = settings_.ControlData();
  Unload();
}

}  // namespace vantrel::editors
