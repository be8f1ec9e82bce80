// SPDX-License-Identifier: MIT

#include "dialogs/window_dialogs.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>

#include <algorithm>

namespace vantrel::dialogs {
namespace {

constexpr int kInputBoxWidth = 380;  // pixels; room for a title and a line of data
constexpr int kWidestWord = 560;
constexpr int kBesideText = 100;  // what a box has left and right of its text, at the most

// The text with a place to break, of no width, after every few characters of each word that is
// wider than a line of `width` pixels; empty when there is no such word.
QString BreakableText(const QString& text, const QFontMetrics& metrics, int width) {
  constexpr int kPiece = 8;
  QString breakable;
  bool found = false;
  const QStringList words = text.split(' ');
  for (const QString& word : words) {
    if (!breakable.isEmpty()) breakable += ' ';
    if (metrics.horizontalAdvance(word) <= width) {
      breakable += word;
      continue;
    }
    found = true;
    for (qsizetype i = 0; i < word.size(); i += kPiece)
      breakable += word.mid(i, kPiece) + QChar(0x200B);
  }
  return found ? breakable : QString();
}

// A message box cuts off what does not fit into a line and has no blank to break at. Such a text is
// shown by a label of its own in place of the box's; the box's text stays as it is.
void ShowLongWords(QMessageBox& box) {
  const auto labels = box.findChildren<QLabel*>();
  const auto found = std::find_if(labels.begin(), labels.end(), [&box](const QLabel* label) {
    return label->text() == box.text();
  });
  if (found == labels.end() || box.layout() == nullptr) return;
  QLabel* cut = *found;
  // A box is never wider than the screen.
  const int width = std::min(kWidestWord, box.screen()->availableGeometry().width() - kBesideText);
  const QString text = BreakableText(box.text(), cut->fontMetrics(), width);
  if (text.isEmpty()) return;
  auto* label = new QLabel(text, &box);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setFixedWidth(width);
  delete box.layout()->replaceWidget(cut, label);
  cut->hide();
}

// The width that a window manager needs for the title, with an icon and three buttons beside it.
int WidthOfTitle(const QString& title) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::TitleFont);
  font.setBold(true);
  const QFontMetrics metrics(font);
  return metrics.horizontalAdvance(title) + 6 * metrics.height();
}

bool IsShown(const QWidget* window) { return window != nullptr && window->isVisible(); }

}  // namespace

QWidget* WindowDialogs::Asking() {
  QWidget* asking = QApplication::activeModalWidget();
  if (!IsShown(asking)) asking = QApplication::activeWindow();
  // After a box has closed, it takes a moment until a window is active again.
  if (!IsShown(asking)) asking = asked_last_;
  if (!IsShown(asking)) {
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
      return IsShown(window) &&
             (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog);
    });
    asking = found != windows.end() ? *found : nullptr;
  }
  asked_last_ = asking;
  return asking;
}

Answer WindowDialogs::MsgBox(const std::string& prompt, Buttons buttons, const std::string& title,
                             Icon icon) {
  QMessageBox box(Asking());
  box.setWindowTitle(QString::fromStdString(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(QString::fromStdString(prompt));
  if (icon == Icon::kExclamation) box.setIcon(QMessageBox::Warning);
  if (icon == Icon::kCritical) box.setIcon(QMessageBox::Critical);
  switch (buttons) {
    case Buttons::kOk:
      box.setStandardButtons(QMessageBox::Ok);
      box.setDefaultButton(QMessageBox::Ok);
      box.setEscapeButton(QMessageBox::Ok);
      break;
    case Buttons::kYesNo:
      box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
      box.setDefaultButton(QMessageBox::Yes);
      box.setEscapeButton(QMessageBox::No);
      break;
    case Buttons::kYesNoCancel:
      box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
      box.setDefaultButton(QMessageBox::Yes);
      box.setEscapeButton(QMessageBox::Cancel);
      break;
  }
  ShowLongWords(box);
  // A message box sets its own size; a line of the grid's width does not go under it.
  if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
    grid->addItem(new QSpacerItem(WidthOfTitle(box.windowTitle()), 0), grid->rowCount(), 0, 1,
                  grid->columnCount());
  switch (box.exec()) {
    case QMessageBox::Yes:
      return Answer::kYes;
    case QMessageBox::No:
      return Answer::kNo;
    case QMessageBox::Cancel:
      return Answer::kCancel;
    default:
      return Answer::kOk;
  }
}

std::string WindowDialogs::InputBox(const std::string& prompt, const std::string& title,
                                    const std::string& default_text) {
  QInputDialog box(Asking());
  box.setInputMode(QInputDialog::TextInput);
  box.setWindowTitle(QString::fromStdString(title));
  // The label is made with the text box as its buddy and would take "&" for a mnemonic. Asking for
  // the size makes it now, while it is still empty, and it loses its buddy before it gets the
  // prompt.
  box.setTextValue(QString::fromStdString(default_text));
  static_cast<void>(box.sizeHint());
  for (auto* label : box.findChildren<QLabel*>()) {
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(nullptr);
  }
  box.setLabelText(QString::fromStdString(prompt));
  // What the buddy would have done.
  if (auto* edit = box.findChild<QLineEdit*>()) edit->setAccessibleName(box.labelText());
  box.resize(std::max({kInputBoxWidth, box.sizeHint().width(), WidthOfTitle(box.windowTitle())}),
             box.sizeHint().height());
  if (box.exec() != QDialog::Accepted) return {};
  return box.textValue().toStdString();
}

}  // namespace vantrel::dialogs
