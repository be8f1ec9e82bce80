// SPDX-License-Identifier: MIT

#include "tests/endurance/random_user.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QRegion>
#include <QScrollArea>
#include <QSpinBox>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <array>
#include <string_view>
#include <utility>

namespace vantrel::endurance {
namespace {

constexpr std::array kKeys = {Qt::Key_Tab,    Qt::Key_Backtab,  Qt::Key_Return,   Qt::Key_Enter,
                              Qt::Key_Escape, Qt::Key_Space,    Qt::Key_Left,     Qt::Key_Right,
                              Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Home,     Qt::Key_End,
                              Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete,   Qt::Key_Insert,
                              Qt::Key_F1,     Qt::Key_F3,       Qt::Key_F10,      Qt::Key_Alt,
                              Qt::Key_Menu,   Qt::Key_F4,       Qt::Key_Backspace};

constexpr std::array<std::string_view, 24> kTexts = {"0",
                                                     "1",
                                                     "7",
                                                     "12",
                                                     "0123",
                                                     "319",
                                                     "479",
                                                     "1999",
                                                     "99999",
                                                     "A",
                                                     "aF",
                                                     "7Ab",
                                                     "-1",
                                                     " ",
                                                     "x y",
                                                     "^",
                                                     "\\n",
                                                     "~{|}",
                                                     "Gr\u00FC\u00DFe",
                                                     "\u6F22\u5B57",
                                                     "\u0416\u0438",
                                                     "\u00E9\u00E8",
                                                     "%s%n",
                                                     "&amp;<b>"};

std::string Named(const QWidget& widget) {
  const QString name = widget.objectName();
  const QString kind = widget.metaObject()->className();
  return (name.isEmpty() ? kind : name).toStdString();
}

bool CanBeUsed(const QWidget& widget) { return widget.isVisible() && widget.isEnabled(); }

// Whether there is anything to do with it but to look.
bool IsControl(const QWidget& widget) {
  if (qobject_cast<const QLabel*>(&widget) != nullptr) return widget.focusPolicy() != Qt::NoFocus;
  return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
         qobject_cast<const QLineEdit*>(&widget) != nullptr ||
         qobject_cast<const QComboBox*>(&widget) != nullptr ||
         qobject_cast<const QTabBar*>(&widget) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
         widget.focusPolicy() != Qt::NoFocus;
}

// What is done to a window may end it, so each part of it looks whether it is there still.
void ClickAt(const QPointer<QWindow>& window, QPoint point,
             Qt::MouseButton button = Qt::LeftButton) {
  if (window != nullptr) QTest::mousePress(window, button, {}, point);
  if (window != nullptr) QTest::mouseRelease(window, button, {}, point);
}

void PressKey(const QPointer<QWindow>& window, Qt::Key key,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  if (window != nullptr) QTest::keyPress(window, key, modifiers);
  if (window != nullptr) QTest::keyRelease(window, key, modifiers);
}

void Type(const QPointer<QWindow>& window, const QString& text) {
  for (const QChar character : text) {
    // What one types goes no further than the window that it is meant for.
    const QWidget* front = RandomUser::InFront();
    if (window == nullptr || front == nullptr || front->windowHandle() != window) return;
    const bool is_ascii = character >= u' ' && character <= u'~';
    const Qt::Key key = is_ascii ? QTest::asciiToKey(character.toLatin1()) : Qt::Key_unknown;
    QTest::sendKeyEvent(QTest::Press, window, key, QString(character), Qt::NoModifier);
    if (window != nullptr)
      QTest::sendKeyEvent(QTest::Release, window, key, QString(character), Qt::NoModifier);
  }
}

// Answers an input box with this text.
void Answer(const QWidget& box, const QString& text) {
  const QPointer<QWindow> window = box.windowHandle();
  PressKey(window, Qt::Key_A, Qt::ControlModifier);
  Type(window, text);
  PressKey(window, Qt::Key_Return);
}

template <typename Widget>
Widget* OneOf(Dice& dice, const QList<Widget*>& widgets) {
  if (widgets.isEmpty()) return nullptr;
  return widgets[static_cast<qsizetype>(dice.Below(static_cast<std::size_t>(widgets.size())))];
}

}  // namespace

QWidget* RandomUser::InFront() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  QWidget* active = QApplication::activeWindow();
  if (active != nullptr && active->isVisible()) return active;
  const auto windows = QApplication::topLevelWidgets();
  for (QWidget* window : windows) {
    if (window->isVisible() && window->windowType() != Qt::ToolTip) return window;
  }
  return nullptr;
}

bool RandomUser::Leave(const QWidget& window) {
  QWidget* front = InFront();
  if (front == nullptr || front == &window) return false;
  if (qobject_cast<QInputDialog*>(front) != nullptr) {
    // Some ask until they are answered well.
    static bool is_one_digit = false;
    is_one_digit = !is_one_digit;
    Answer(*front, is_one_digit ? "1" : "22");
    return true;
  }
  if (front->windowType() != Qt::Popup) {
    front->close();
    return true;
  }
  PressKey(front->windowHandle(), Qt::Key_Escape);
  // One whose window has gone hears no key.
  if (InFront() == front) front->hide();
  return true;
}

QString RandomUser::AnyText() {
  if (dice_.Chance(5)) return QString(static_cast<qsizetype>(dice_.Below(400)), 'W');
  const std::string_view text = dice_.OneOf(kTexts);
  QString typed = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  while (dice_.Chance(30)) typed += QString::number(dice_.Below(1000));
  return typed;
}

bool RandomUser::PointIn(QWidget& control, QPoint& point) {
  for (QWidget* around = control.parentWidget(); around != nullptr && !around->isWindow();
       around = around->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(around)) area->ensureWidgetVisible(&control);
  }
  const QRect seen = control.visibleRegion().boundingRect();
  if (seen.isEmpty()) return false;
  const QPoint inside =
      seen.topLeft() +
      QPoint(static_cast<int>(dice_.Below(static_cast<std::size_t>(seen.width()))),
             static_cast<int>(dice_.Below(static_cast<std::size_t>(seen.height()))));
  point = control.mapTo(control.window(), inside);
  return control.window()->windowHandle() != nullptr;
}

void RandomUser::LeaveInStep(const QWidget& window, QTimer& clock, int& depth) {
  clock.start(5);
  ++depth;
  Leave(window);
  --depth;
}

bool RandomUser::Click(QWidget& control) {
  QWidget* window = control.window();
  const QRect seen = control.visibleRegion().boundingRect();
  if (seen.isEmpty() || window->windowHandle() == nullptr) return false;
  ClickAt(window->windowHandle(), control.mapTo(window, seen.center()));
  return true;
}

std::string RandomUser::Act() {
  QWidget* window = InFront();
  if (window == nullptr || window->windowHandle() == nullptr) return "finds no window";
  if (auto* menu = qobject_cast<QMenu*>(window)) return ActOnMenu(*menu);
  if (window->windowType() == Qt::Popup) return ActOnPopup(*window);
  if (qobject_cast<QMessageBox*>(window) != nullptr ||
      qobject_cast<QInputDialog*>(window) != nullptr)
    return ActOnBox(*window);
  return ActOnWindow(*window);
}

std::string RandomUser::ActOnMenu(QMenu& menu) {
  QAction* entry = OneOf(dice_, menu.actions());
  if (entry == nullptr || dice_.Chance(25)) {
    PressKey(menu.windowHandle(), Qt::Key_Escape);
    return "leaves the menu";
  }
  std::string told = "chooses " + entry->text().toStdString();
  ClickAt(menu.windowHandle(), menu.actionGeometry(entry).center());
  return told;
}

// The list of a combo box, most often.
std::string RandomUser::ActOnPopup(QWidget& popup) {
  if (dice_.Chance(30)) {
    PressKey(popup.windowHandle(), Qt::Key_Escape);
    return "leaves the list";
  }
  if (dice_.Chance(30)) return "in the list " + PressKeys(popup);
  QPoint point(static_cast<int>(dice_.Below(static_cast<std::size_t>(popup.width()) + 1)),
               static_cast<int>(dice_.Below(static_cast<std::size_t>(popup.height()) + 1)));
  ClickAt(popup.windowHandle(), point);
  return "clicks into the list";
}

std::string RandomUser::ActOnBox(QWidget& box) {
  auto* line = box.findChild<QLineEdit*>();
  const std::string title = "in the box \"" + box.windowTitle().toStdString() + "\" ";
  if (line != nullptr && dice_.Chance(15)) {
    static constexpr std::array kNumbers = {"0", "1", "2", "11", "22", "7"};
    const char* number = dice_.OneOf(kNumbers);
    Answer(box, number);
    return title + "answers " + number;
  }
  if (line != nullptr && dice_.Chance(50)) {
    const QString text = AnyText();
    if (dice_.Chance(50)) PressKey(box.windowHandle(), Qt::Key_A, Qt::ControlModifier);
    Type(box.windowHandle(), text);
    return title + "types " + text.toStdString();
  }
  if (dice_.Chance(5)) {
    box.close();
    return title + "closes it";
  }
  if (dice_.Chance(10)) return title + PressKeys(box);
  QList<QAbstractButton*> buttons;
  for (QAbstractButton* button : box.findChildren<QAbstractButton*>()) {
    if (CanBeUsed(*button)) buttons.append(button);
  }
  QAbstractButton* button = OneOf(dice_, buttons);
  if (button == nullptr) return title + "finds no button";
  std::string told = title + "presses " + button->text().toStdString();
  Click(*button);
  return told;
}

QWidget* RandomUser::AnyControl(QWidget& window) {
  QList<QWidget*> controls;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->window() == &window && CanBeUsed(*widget) && IsControl(*widget))
      controls.append(widget);
  }
  return OneOf(dice_, controls);
}

std::string RandomUser::ActOnWindow(QWidget& window) {
  const std::string title = "in " + Named(window) + ' ';
  if (window.isModal() && dice_.Chance(15)) {
    for (const QString& name : leave_) {
      auto* button = window.findChild<QAbstractButton*>(name);
      if (button != nullptr && CanBeUsed(*button) && Click(*button))
        return title + "leaves by " + name.toStdString();
    }
  }
  if (window.isModal() && dice_.Chance(4)) {
    window.close();
    return title + "closes it";
  }
  if (dice_.Chance(2)) {
    window.resize(static_cast<int>(dice_.Below(2000)), static_cast<int>(dice_.Below(1400)));
    return title + "drags the corner";
  }
  if (auto* bar = window.findChild<QMenuBar*>(); bar != nullptr && dice_.Chance(4)) {
    if (QAction* menu = OneOf(dice_, bar->actions())) {
      std::string told = title + "opens the menu " + menu->text().toStdString();
      ClickAt(window.windowHandle(), bar->mapTo(&window, bar->actionGeometry(menu).center()));
      return told;
    }
  }
  if (dice_.Chance(15)) return title + PressKeys(window);
  QWidget* control = AnyControl(window);
  if (control == nullptr) return title + "finds no control";
  return title + ActOnControl(*control);
}

std::string RandomUser::PressKeys(QWidget& window) {
  if (dice_.Chance(40)) {
    const QString text = AnyText();
    Type(window.windowHandle(), text);
    return "types " + text.toStdString();
  }
  const Qt::Key key = dice_.OneOf(kKeys);
  static constexpr std::array kModifiers = {Qt::NoModifier,      Qt::NoModifier,
                                            Qt::NoModifier,      Qt::ShiftModifier,
                                            Qt::ControlModifier, Qt::AltModifier};
  const Qt::KeyboardModifier modifier = dice_.OneOf(kModifiers);
  PressKey(window.windowHandle(), key, modifier);
  return "presses key " + std::to_string(key) + " with " + std::to_string(modifier);
}

std::string RandomUser::ActOnControl(QWidget& control) {
  const std::string name = Named(control);
  const QPointer<QWidget> window = control.window();
  const QPointer<QWindow> handle = window->windowHandle();
  QPoint point;
  if (!PointIn(control, point)) return "does not see " + name;
  if (qobject_cast<QLineEdit*>(&control) != nullptr && dice_.Chance(80)) {
    ClickAt(handle, point);
    if (dice_.Chance(60)) PressKey(handle, Qt::Key_Delete);
    if (window == nullptr) return "clicks " + name;
    return "clicks " + name + " and " + PressKeys(*window);
  }
  switch (dice_.Below(20)) {
    case 0:
      ClickAt(handle, point);
      if (handle != nullptr) QTest::mouseDClick(handle, Qt::LeftButton, {}, point);
      return "double-clicks " + name;
    case 1:
      ClickAt(handle, point, Qt::RightButton);
      return "right-clicks " + name;
    case 2: {
      QPoint to;
      PointIn(control, to);
      if (handle != nullptr) QTest::mousePress(handle, Qt::LeftButton, {}, point);
      if (handle != nullptr) QTest::mouseMove(handle, to);
      if (handle != nullptr) QTest::mouseRelease(handle, Qt::LeftButton, {}, to);
      return "drags over " + name;
    }
    default:
      ClickAt(handle, point);
      return "clicks " + name;
  }
}

}  // namespace vantrel::endurance
