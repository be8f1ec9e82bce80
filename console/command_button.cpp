#include "console/command_button.h"

#include "console/command_table.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace vantrel {
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
  setAttribute(Qt::WA_OpaquePaintEvent);
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

void CommandButton::changeEvent(QEvent* event) {
  switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
      heights_.clear();
      pictures_ = {};
      break;
    default:
      break;
  }
  QPushButton::changeEvent(event);
}

void CommandButton::Paint(QPainter& painter, const QStyleOptionButton& option) const {
  painter.fillRect(rect(), palette().window());
  style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
  painter.setPen(CaptionColor(palette(), isEnabled()));
  QTextLayout layout(text(), font());
  const qreal text_height = LayOut(layout, width() - 2 * kMargin);
  layout.draw(&painter, {static_cast<qreal>(kMargin), std::floor((height() - text_height) / 2)});
}

const QPixmap& CommandButton::Picture(const QStyleOptionButton& option) {
  const bool active = option.state.testFlag(QStyle::State_Active);
  QPixmap& picture = pictures_.at((isEnabled() ? 0U : 1U) + (active ? 0U : 2U));
  if (!picture.isNull() && picture.deviceIndependentSize() == QSizeF(size()) &&
      picture.devicePixelRatio() == devicePixelRatio())
    return picture;
  picture = QPixmap(size() * devicePixelRatio());
  picture.setDevicePixelRatio(devicePixelRatio());
  picture.fill(palette().color(QPalette::Window));
  QPainter painter(&picture);
  Paint(painter, option);
  return picture;
}

QSize CommandButton::sizeHint() const { return minimumSizeHint(); }

QSize CommandButton::minimumSizeHint() const {
  return {kNarrowest, heightForWidth(std::max(width(), kNarrowest))};
}

void CommandButton::paintEvent(QPaintEvent*) {
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  QPainter painter(this);
  constexpr QStyle::State kRare =
      QStyle::State_HasFocus | QStyle::State_MouseOver | QStyle::State_Sunken;
  if (option.state & kRare)
    Paint(painter, option);
  else
    painter.drawPixmap(0, 0, Picture(option));
}

}  // namespace vantrel
