// SPDX-License-Identifier: MIT

#include "console/command_button.h"

#include "console/command_table.h"
#include "console/family_color.h"
#include "dialogs/focus_ring.h"

#include <QAccessible>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QTextLayout>

#include <cmath>

namespace vantrel::console {
namespace {

// Pixels between the caption and the button's edge, which is wide enough for the tint.
constexpr int kSideMargin = 10;
constexpr int kMargin = 3;
constexpr int kNarrowest = 100;
// The tint of the family, inside the button's own frame.
constexpr int kTintInset = 3;
constexpr int kTintWidth = 4;

QString TextOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// A bracket that follows a letter may begin a line; what follows a hyphen may not.
QString Breakable(QString text) {
  constexpr QChar kMayBreak(0x200B);
  constexpr QChar kMayNotBreak(0x2060);
  for (qsizetype i = text.size() - 1; i > 0; --i) {
    if (text[i].isSpace()) continue;
    if (text[i] == u'(' && !text[i - 1].isSpace()) text.insert(i, kMayBreak);
    if (text[i - 1] == u'-') text.insert(i, kMayNotBreak);
  }
  return text;
}

// Most styles paint disabled text too faintly to read; half-way between text and button can be read
// in light and dark themes alike.
QColor CaptionColor(const QPalette& palette, bool enabled) {
  const QColor text = palette.color(QPalette::Active, QPalette::ButtonText);
  if (enabled) return text;
  const QColor button = palette.color(QPalette::Active, QPalette::Button);
  return {(text.red() + button.red()) / 2, (text.green() + button.green()) / 2,
          (text.blue() + button.blue()) / 2};
}

}  // namespace

CommandButton::CommandButton(const ConsoleCommand& command, QWidget* parent)
    : QPushButton(TextOf(command.caption), parent),
      family_(FamilyOf(command.code)),
      code_length_(static_cast<int>(command.code.size())),
      shown_(Breakable(text())) {
  setObjectName(TextOf(command.button));
  setProperty("Tag", TextOf(command.tag));
  setAccessibleDescription(TextOf(kFamilyNames[static_cast<std::size_t>(family_)]));
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::MinimumExpanding);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

qreal CommandButton::LayOut(QTextLayout& layout, int width) const {
  QTextOption option(Qt::AlignHCenter);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QTextLayout::FormatRange code;
  code.start = static_cast<int>(shown_.size()) - code_length_;
  code.length = code_length_;
  code.format.setFontWeight(QFont::Bold);
  layout.setFormats({code});
  qreal height = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, height});
    height += line.height();
  }
  layout.endLayout();
  return height;
}

int CommandButton::heightForWidth(int width) const {
  const auto known = heights_.constFind(width);
  if (known != heights_.constEnd()) return *known;
  QTextLayout layout(shown_, font());
  const int height =
      static_cast<int>(std::ceil(LayOut(layout, width - 2 * kSideMargin))) + 2 * kMargin;
  heights_.insert(width, height);
  return height;
}

void CommandButton::LookEnabled(bool enabled) {
  if (enabled == looks_enabled_) return;
  looks_enabled_ = enabled;
  update();
}

void CommandButton::changeEvent(QEvent* event) {
  switch (event->type()) {
    case QEvent::EnabledChange:
      // Without the base class, which would repaint the button. The rest of what it does is done
      // here.
      if (!isEnabled() && isDown()) setDown(false);
      TellScreenReader();
      return;
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
      heights_.clear();
      break;
    default:
      break;
  }
  QPushButton::changeEvent(event);
}

void CommandButton::TellScreenReader() {
  if (!QAccessible::isActive()) return;
  QAccessible::State changed;
  changed.disabled = true;
  QAccessibleStateChangeEvent event(this, changed);
  QAccessible::updateAccessibility(&event);
}

QSize CommandButton::sizeHint() const { return minimumSizeHint(); }

QSize CommandButton::minimumSizeHint() const {
  // What the caption needs is told for each width.
  return {kNarrowest, fontMetrics().height() + 2 * kMargin};
}

void CommandButton::paintEvent(QPaintEvent*) {
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  option.state.setFlag(QStyle::State_Enabled, looks_enabled_);
  const bool active = option.state.testFlag(QStyle::State_Active);
  option.palette.setCurrentColorGroup(!looks_enabled_ ? QPalette::Disabled
                                      : active        ? QPalette::Active
                                                      : QPalette::Inactive);
  QPainter painter(this);
  style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
  PaintTint(painter);
  painter.setPen(CaptionColor(palette(), looks_enabled_));
  QTextLayout layout(shown_, font());
  const qreal text_height = LayOut(layout, width() - 2 * kSideMargin);
  layout.draw(&painter,
              {static_cast<qreal>(kSideMargin), std::floor((height() - text_height) / 2)});
  if (hasFocus()) dialogs::PaintFocusRing(painter, *this);
}

void CommandButton::PaintTint(QPainter& painter) const {
  QColor tint = FamilyColor(family_, palette().color(QPalette::Active, QPalette::Button));
  if (!looks_enabled_) tint.setAlphaF(0.5F);
  painter.fillRect(QRect(kTintInset, kTintInset, kTintWidth, height() - 2 * kTintInset), tint);
}

void CommandButton::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Enter:
    case Qt::Key_Return:
      if (!event->isAutoRepeat()) click();
      return;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      // The grid knows where they lead.
      event->ignore();
      return;
    default:
      QPushButton::keyPressEvent(event);
  }
}

}  // namespace vantrel::console
