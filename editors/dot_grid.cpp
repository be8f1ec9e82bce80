// SPDX-License-Identifier: MIT

#include "editors/dot_grid.h"

#include "editors/dot_grid_accessible.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleHints>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantrel::editors {
namespace {

using Kind = DotGrid::Target::Kind;

constexpr int kLeastPitch = 8;  // in units of the scale
// So large that a screen of any size keeps a grid that can be looked at as a whole.
constexpr int kGreatestPitch = 48;
constexpr int kOriginMark = 8;    // diameter of the circle at the top left corner
constexpr int kDotsADivider = 8;  // dots between two dividers
// Contrast ratio under which black and the colour of a clear dot are hard to tell apart.
constexpr double kPoorContrast = 4.5;

const QColor kRowSelectorColor(0, 150, 60);
const QColor kColumnSelectorColor(214, 40, 40);

QColor Blend(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

// The contrast ratio of a colour against black, 1 to 21.
double ContrastWithBlack(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  const double luminance = 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
                           0.0722 * linear(color.blueF());
  return (luminance + 0.05) / 0.05;
}

// Fills the outermost `width` pixels inside `rect`.
void FillFrame(QPainter& painter, const QRect& rect, int width, const QColor& color) {
  painter.fillRect(QRect(rect.left(), rect.top(), rect.width(), width), color);
  painter.fillRect(QRect(rect.left(), rect.bottom() - width + 1, rect.width(), width), color);
  painter.fillRect(QRect(rect.left(), rect.top(), width, rect.height()), color);
  painter.fillRect(QRect(rect.right() - width + 1, rect.top(), width, rect.height()), color);
}

}  // namespace

DotGrid::DotGrid(const QString& name, DotEditor& editor, int scale, dialogs::Guard& guard,
                 QWidget* parent)
    : QWidget(parent), editor_(editor), scale_(scale), guard_(guard) {
  DotGridAccessible::Install();
  setObjectName(name);
  setAccessibleName("Dots");
  setAccessibleDescription(
      "Arrow keys move, Space sets or clears a dot or selects a row or column, Delete clears a row "
      "or column.");
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  MeasureShown();
  resize(DotGrid::sizeHint());
  shown_ = LookOfTargets();
}

QPoint DotGrid::OriginOfDots() const { return {kOriginMark + 2, kOriginMark + 2}; }

QRect DotGrid::CellRect(int column, int row) const {
  // The line to the next dot belongs to both.
  const int pitch = Pitch();
  return {OriginOfDots() + QPoint(column, row) * pitch, QSize(pitch + scale_, pitch + scale_)};
}

QRect DotGrid::DotRect(int index) const {
  const DotPattern& dots = editor_.Dots();
  if (index < 0 || index >= dots.Count() || !dots.IsVisible(index)) return {};
  return CellRect(index / dots.Rows(), index % dots.Rows());
}

QRect DotGrid::RowSelectorRect(int row) const {
  if (row < 0 || row >= editor_.Dots().Rows() || !editor_.RowSelectorVisible(row)) return {};
  return CellRect(shown_columns_, row).translated(Pitch() / 2, 0);
}

QRect DotGrid::ColumnSelectorRect(int column) const {
  if (column < 0 || column >= editor_.Dots().Columns() || !editor_.ColumnSelectorVisible(column))
    return {};
  return CellRect(column, shown_rows_).translated(0, Pitch() / 2);
}

QRect DotGrid::RectOf(const Target& target) const {
  switch (target.kind) {
    case Kind::kDot:
      return DotRect(target.index);
    case Kind::kRowSelector:
      return RowSelectorRect(target.index);
    case Kind::kColumnSelector:
      return ColumnSelectorRect(target.index);
  }
  return {};
}

int DotGrid::TargetCount() const {
  const DotPattern& dots = editor_.Dots();
  return dots.Count() + dots.Rows() + dots.Columns();
}

DotGrid::Target DotGrid::TargetAt(int number) const {
  const DotPattern& dots = editor_.Dots();
  if (number < dots.Count()) return {Kind::kDot, number};
  number -= dots.Count();
  if (number < dots.Rows()) return {Kind::kRowSelector, number};
  return {Kind::kColumnSelector, number - dots.Rows()};
}

int DotGrid::NumberOf(const Target& target) const {
  const DotPattern& dots = editor_.Dots();
  switch (target.kind) {
    case Kind::kDot:
      return target.index;
    case Kind::kRowSelector:
      return dots.Count() + target.index;
    case Kind::kColumnSelector:
      return dots.Count() + dots.Rows() + target.index;
  }
  return -1;
}

QString DotGrid::NameOf(const Target& target) const {
  const int rows = editor_.Dots().Rows();
  switch (target.kind) {
    case Kind::kDot:
      return QString("Column %1, row %2").arg(target.index / rows).arg(target.index % rows);
    case Kind::kRowSelector:
      return QString("Select row %1").arg(target.index);
    case Kind::kColumnSelector:
      return QString("Select column %1").arg(target.index);
  }
  return {};
}

QSize DotGrid::sizeHint() const {
  // Of the whole grid, so that a form keeps its size when dots are hidden.
  const auto length = [this](int cells) { return LengthOf(cells, kLeastPitch * scale_); };
  return QSize(length(editor_.Dots().Columns()), length(editor_.Dots().Rows())) +
         QSize(OriginOfDots().x(), OriginOfDots().y());
}

void DotGrid::Click(const Target& target) {
  guard_.Run([&] {
    switch (target.kind) {
      case Kind::kDot:
        editor_.Lbldot_Click(target.index);
        break;
      case Kind::kRowSelector:
        editor_.lblHorizontal_Click(target.index);
        break;
      case Kind::kColumnSelector:
        editor_.LblVertical_Click(target.index);
        break;
    }
    Refresh();
  });
}

void DotGrid::DblClick(const Target& target) {
  guard_.Run([&] {
    if (target.kind == Kind::kRowSelector) editor_.lblHorizontal_DblClick(target.index);
    if (target.kind == Kind::kColumnSelector) editor_.LblVertical_DblClick(target.index);
    Refresh();
  });
}

// ---- what is shown -----------------------------------------------------------------------------

void DotGrid::MeasureShown() {
  const DotPattern& dots = editor_.Dots();
  shown_columns_ = shown_rows_ = 0;
  for (int i = 0; i < dots.Count(); ++i) {
    if (!dots.IsVisible(i)) continue;
    shown_columns_ = std::max(shown_columns_, i / dots.Rows() + 1);
    shown_rows_ = std::max(shown_rows_, i % dots.Rows() + 1);
  }
}

int DotGrid::Pitch() const {
  // The inverse of LengthOf, rounded down.
  const auto fitting = [this](int length, int cells) {
    const int pitch = std::max(0, 2 * (length - scale_) / (2 * cells + 3));
    return LengthOf(cells, pitch + 1) <= length ? pitch + 1 : pitch;
  };
  const QPoint origin = OriginOfDots();
  return std::clamp(std::min(fitting(width() - origin.x(), shown_columns_),
                             fitting(height() - origin.y(), shown_rows_)),
                    kLeastPitch * scale_, kGreatestPitch);
}

std::vector<std::uint8_t> DotGrid::LookOfTargets() const {
  std::vector<std::uint8_t> looks;
  looks.reserve(static_cast<std::size_t>(TargetCount()));
  const DotPattern& dots = editor_.Dots();
  for (int i = 0; i < dots.Count(); ++i)
    looks.push_back(dots.IsVisible(i) ? (dots.IsBlack(i) ? 2 : 1) : 0);
  for (int i = 0; i < dots.Rows(); ++i) looks.push_back(editor_.RowSelectorVisible(i) ? 1 : 0);
  for (int i = 0; i < dots.Columns(); ++i)
    looks.push_back(editor_.ColumnSelectorVisible(i) ? 1 : 0);
  return looks;
}

void DotGrid::Refresh() {
  const std::vector<std::uint8_t> before = std::exchange(shown_, LookOfTargets());
  const int columns_before = shown_columns_;
  const int rows_before = shown_rows_;
  MeasureShown();
  QRect changed;
  bool resized = shown_columns_ != columns_before || shown_rows_ != rows_before;
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    if (shown_[i] == before[i]) continue;
    const Target target = TargetAt(static_cast<int>(i));
    changed |= RectOf(target);
    resized |= shown_[i] == 0;
    if (target.kind == Kind::kDot) TellScreenReader(target);
  }
  if (RectOf(cursor_).isEmpty()) cursor_ = Target{};
  if (resized) {
    update();
  } else if (!changed.isEmpty()) {
    update(changed);
  }
  emit Refreshed();
}

// ---- mouse -------------------------------------------------------------------------------------

std::optional<DotGrid::Target> DotGrid::HitAt(const QPoint& position) const {
  const DotPattern& dots = editor_.Dots();
  const QPoint from_origin = position - OriginOfDots();
  // A line between two cells belongs to the cell right of it or below it, the last one to the last.
  const auto cell = [this, pitch = Pitch()](int distance, int count) {
    if (distance < 0 || distance >= count * pitch + scale_) return -1;
    return std::min(distance / pitch, count - 1);
  };
  const int column = cell(from_origin.x(), shown_columns_);
  const int row = cell(from_origin.y(), shown_rows_);
  Target target;
  if (column >= 0 && row >= 0)
    target = {Kind::kDot, column * dots.Rows() + row};
  else if (row >= 0)
    target = {Kind::kRowSelector, row};
  else if (column >= 0)
    target = {Kind::kColumnSelector, column};
  else
    return std::nullopt;
  if (!RectOf(target).contains(position)) return std::nullopt;
  return target;
}

void DotGrid::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressed_ = HitAt(event->position().toPoint());
  clicked_.reset();
}

void DotGrid::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !pressed_) return;
  const auto pressed = std::exchange(pressed_, std::nullopt);
  const QPoint position = event->position().toPoint();
  if (HitAt(position) != pressed) return;
  clicked_ = pressed;
  clicked_at_ = position;
  SetCursor(*pressed, false);
  Click(*pressed);
}

void DotGrid::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPoint position = event->position().toPoint();
  const auto hit = HitAt(position);
  const int reach = 2 * QGuiApplication::styleHints()->mouseDoubleClickDistance();
  // Two quick clicks on neighbours arrive as a double click, but they are two clicks.
  const bool neighbours =
      clicked_ && clicked_ != hit && (position - clicked_at_).manhattanLength() <= reach;
  if (neighbours) return mousePressEvent(event);
  clicked_.reset();
  pressed_.reset();
  if (!hit) return;
  SetCursor(*hit, false);
  DblClick(*hit);
}

// ---- keyboard ----------------------------------------------------------------------------------

void DotGrid::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      return MoveCursor(-1, 0);
    case Qt::Key_Right:
      return MoveCursor(1, 0);
    case Qt::Key_Up:
      return MoveCursor(0, -1);
    case Qt::Key_Down:
      return MoveCursor(0, 1);
    case Qt::Key_Space:
      ShowCursor(true);
      if (!event->isAutoRepeat() && !RectOf(cursor_).isEmpty()) Click(cursor_);
      return;
    case Qt::Key_Delete:
      ShowCursor(true);
      if (!RectOf(cursor_).isEmpty()) DblClick(cursor_);
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

void DotGrid::MoveCursor(int columns, int rows) {
  const int height = editor_.Dots().Rows();
  // A row selector stands in the column after the last shown one, a column selector in the row
  // after the last shown one.
  int column = shown_columns_;
  int row = shown_rows_;
  if (cursor_.kind == Kind::kDot) {
    column = cursor_.index / height;
    row = cursor_.index % height;
  } else {
    (cursor_.kind == Kind::kRowSelector ? row : column) = cursor_.index;
  }
  column += columns;
  row += rows;
  Target target = cursor_;
  if (column >= 0 && row >= 0 && column < shown_columns_ && row < shown_rows_)
    target = {Kind::kDot, column * height + row};
  else if (column == shown_columns_ && row < shown_rows_)
    target = {Kind::kRowSelector, row};
  else if (row == shown_rows_ && column < shown_columns_)
    target = {Kind::kColumnSelector, column};
  SetCursor(RectOf(target).isEmpty() ? cursor_ : target, true);
}

void DotGrid::SetCursor(const Target& target, bool by_keyboard) {
  if (target != cursor_ && cursor_shown_) update(RectOf(cursor_));
  const bool moved = target != cursor_;
  cursor_ = target;
  if (moved && cursor_shown_ && by_keyboard) update(RectOf(cursor_));
  ShowCursor(by_keyboard);
  if (moved && hasFocus() && QAccessible::isActive()) {
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(NumberOf(cursor_));
    QAccessible::updateAccessibility(&event);
  }
}

void DotGrid::ShowCursor(bool shown) {
  if (shown == cursor_shown_) return;
  cursor_shown_ = shown;
  update(RectOf(cursor_));
}

void DotGrid::focusInEvent(QFocusEvent* event) {
  switch (event->reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
      // The focus comes back to where it was, and looks as it did.
      if (cursor_shown_) update(RectOf(cursor_));
      return;
    default:
      ShowCursor(event->reason() != Qt::MouseFocusReason);
  }
}

void DotGrid::focusOutEvent(QFocusEvent*) {
  if (cursor_shown_) update(RectOf(cursor_));
}

void DotGrid::TellScreenReader(const Target& target) const {
  if (!QAccessible::isActive()) return;
  QAccessible::State changed;
  changed.checked = true;
  QAccessibleStateChangeEvent event(const_cast<DotGrid*>(this), changed);
  event.setChild(NumberOf(target));
  QAccessible::updateAccessibility(&event);
}

// ---- painting ----------------------------------------------------------------------------------

void DotGrid::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRect area = event->rect();
  const DotPattern& dots = editor_.Dots();
  const QPoint first = (area.topLeft() - OriginOfDots()) / Pitch() - QPoint(1, 1);
  const QPoint last = (area.bottomRight() - OriginOfDots()) / Pitch();
  for (int column = std::max(0, first.x()); column <= std::min(last.x(), shown_columns_ - 1);
       ++column) {
    for (int row = std::max(0, first.y()); row <= std::min(last.y(), shown_rows_ - 1); ++row) {
      const int index = column * dots.Rows() + row;
      if (DotRect(index).intersects(area)) PaintDot(painter, index);
    }
  }
  for (int row = 0; row < dots.Rows(); ++row) {
    const QRect rect = RowSelectorRect(row);
    if (rect.intersects(area)) PaintSelector(painter, rect, kRowSelectorColor);
  }
  for (int column = 0; column < dots.Columns(); ++column) {
    const QRect rect = ColumnSelectorRect(column);
    if (rect.intersects(area)) PaintSelector(painter, rect, kColumnSelectorColor);
  }
  PaintOrigin(painter);
  if (cursor_shown_ && hasFocus())
    FillFrame(painter, RectOf(cursor_), scale_ + 1, palette().color(QPalette::Highlight));
}

void DotGrid::PaintDot(QPainter& painter, int index) const {
  const DotPattern& dots = editor_.Dots();
  const QRect rect = DotRect(index);
  const QColor clear = palette().color(QPalette::Base);
  const QColor text = palette().color(QPalette::Text);
  const QColor line = Blend(clear, text, 0.25);
  const QColor divider = Blend(clear, text, 0.75);
  const int column = index / dots.Rows();
  const int row = index % dots.Rows();
  const auto at_divider = [](int cell, int shown) {
    return cell % kDotsADivider == 0 || cell == shown;
  };

  const QRect inside = rect.adjusted(scale_, scale_, -scale_, -scale_);
  const bool black = dots.IsBlack(index);
  painter.fillRect(inside, black ? QColor(Qt::black) : clear);
  // Where a clear dot is nearly black itself, a bright ring tells a set one from it.
  if (black && ContrastWithBlack(clear) < kPoorContrast) FillFrame(painter, inside, scale_, text);

  const QRect lines[] = {{rect.left(), rect.top(), rect.width(), scale_},
                         {rect.left(), inside.bottom() + 1, rect.width(), scale_},
                         {rect.left(), rect.top(), scale_, rect.height()},
                         {inside.right() + 1, rect.top(), scale_, rect.height()}};
  const bool strong[] = {at_divider(row, shown_rows_), at_divider(row + 1, shown_rows_),
                         at_divider(column, shown_columns_),
                         at_divider(column + 1, shown_columns_)};
  // The strong ones last, so that a divider is not cut where lines cross it.
  for (const bool now : {false, true})
    for (int i = 0; i < 4; ++i)
      if (strong[i] == now) painter.fillRect(lines[i], now ? divider : line);
}

void DotGrid::PaintSelector(QPainter& painter, const QRect& rect, const QColor& color) const {
  painter.fillRect(rect.adjusted(scale_, scale_, -scale_, -scale_), color);
}

void DotGrid::PaintOrigin(QPainter& painter) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::Highlight));
  painter.drawEllipse(QRect(1, 1, kOriginMark, kOriginMark));
  painter.restore();
}

}  // namespace vantrel::editors
