#include "console/command_button.h"

#include "console/command_table.h"

#include <QEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
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
      std::fill(std::begin(caption_), std::end(caption_), QPixmap());
      break;
    default:
      break;
  }
  QPushButton::changeEvent(event);
}

const QPixmap& CommandButton::Caption() {
  QPixmap& caption = caption_[isEnabled() ? 0 : 1];
  if (!caption.isNull() && caption.deviceIndependentSize() == QSizeF(size()) &&
      caption.devicePixelRatio() == devicePixelRatio())
    return caption;
  caption = QPixmap(size() * devicePixelRatio());
  caption.setDevicePixelRatio(devicePixelRatio());
  caption.fill(Qt::transparent);
  QPainter painter(&caption);
  painter.setPen(CaptionColor(palette(), isEnabled()));
  QTextLayout layout(text(), font());
  const qreal text_height = LayOut(layout, width() - 2 * kMargin);
  layout.draw(&painter, {static_cast<qreal>(kMargin), std::floor((height() - text_height) / 2)});
  return caption;
}

QSize CommandButton::sizeHint() const { return minimumSizeHint(); }

QSize CommandButton::minimumSizeHint() const {
  return {kNarrowest, heightForWidth(std::max(width(), kNarrowest))};
}

void CommandButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  painter.drawControl(QStyle::CE_PushButton, option);

  painter.drawPixmap(0, 0, Caption());
}

}  // namespace vantrel
