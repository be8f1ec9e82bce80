#include "console/command_button.h"

#include "console/command_table.h"

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

}  // namespace

CommandButton::CommandButton(const Command& command, QWidget* parent)
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
  QTextLayout layout(text(), font());
  return static_cast<int>(std::ceil(LayOut(layout, width - 2 * kMargin))) + 2 * kMargin;
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

  QTextLayout layout(text(), font());
  const qreal height = LayOut(layout, width() - 2 * kMargin);
  painter.setPen(
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
  layout.draw(&painter, {static_cast<qreal>(kMargin), std::floor((this->height() - height) / 2)});
}

}  // namespace vantrel
