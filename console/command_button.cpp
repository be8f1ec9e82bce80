#include "console/command_button.h"

#include "console/command_table.h"

#include <QAccessible>
#include <QEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace vantrel::console {
namespace {

constexpr int kMargin = 4;  // pixels between the caption and the button's edge
constexpr int kNarrowest = 96;

QString TextOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
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
      code_length_(static_cast<int>(command.code.size())) {
  setObjectName(TextOf(command.button));
  setProperty("Tag", TextOf(command.tag));
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::MinimumExpanding);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

qreal CommandButton::LayOut(QTextLayout& layout, int width) const {
  QTextOption option(Qt::AlignHCenter);
  option.setWrapMode(QTextOption::WordWrap);
  layout.setTextOption(option);
  QTextLayout::FormatRange code;
  code.start = static_cast<int>(text().size()) - code_length_;
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
  QTextLayout layout(text(), font());
  const int height = static_cast<int>(std::ceil(LayOut(layout, width - 2 * kMargin))) + 2 * kMargin;
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
  return {kNarrowest, heightForWidth(std::max(width(), kNarrowest))};
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
  painter.setPen(CaptionColor(palette(), looks_enabled_));
  QTextLayout layout(text(), font());
  const qreal text_height = LayOut(layout, width() - 2 * kMargin);
  layout.draw(&painter, {static_cast<qreal>(kMargin), std::floor((height() - text_height) / 2)});
}

}  // namespace vantrel::console
