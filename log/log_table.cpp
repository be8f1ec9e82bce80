// SPDX-License-Identifier: MIT

#include "log/log_table.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QHeaderView>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionHeader>
#include <QStyleOptionViewItem>
#include <QStyledItemDelegate>
#include <QTableView>

#include <algorithm>

namespace vantrel::log {
namespace {

// Pixels that a style leaves at each side of a cell's text, and of a decoration.
int ItemMargin(const QTableView& table) {
  return table.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &table) + 1;
}

// Pixels of the empty decoration that stands behind right-aligned text; one of none would be no
// decoration.
int RoomBehind(const QTableView& table) {
  return std::max(1, table.fontMetrics().averageCharWidth() / 2);
}

class LogCells : public QStyledItemDelegate {
 public:
  explicit LogCells(QTableView& table) : QStyledItemDelegate(&table), table_(table) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (!option->displayAlignment.testFlag(Qt::AlignRight)) return;
    // It keeps the text away from the next column, and the cell's ground stays whole.
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationPosition = QStyleOptionViewItem::Right;
    option->decorationSize = {RoomBehind(table_), 1};
  }

 private:
  const QTableView& table_;
};

// A header has no room behind its text; that of right-aligned columns is drawn here.
class LogHeader : public QHeaderView {
 public:
  explicit LogHeader(QTableView& table) : QHeaderView(Qt::Horizontal, &table), table_(table) {
    setSectionsClickable(true);
  }

 protected:
  void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override {
    QHeaderView::initStyleOptionForIndex(option, section);
    if (IsRight(*option)) option->text.clear();
  }
  void paintSection(QPainter* painter, const QRect& rect, int section) const override {
    // A style may leave a clip behind.
    painter->save();
    QHeaderView::paintSection(painter, rect, section);
    painter->restore();
    QStyleOptionHeader option;
    initStyleOption(&option);
    QHeaderView::initStyleOptionForIndex(&option, section);
    if (!IsRight(option)) return;
    const QRect inside = rect.adjusted(ItemMargin(table_), 0, -RightMargin(table_), 0);
    const QString text =
        painter->fontMetrics().elidedText(option.text, Qt::ElideRight, inside.width());
    style()->drawItemText(painter, inside, static_cast<int>(option.textAlignment), option.palette,
                          isEnabled(), text, QPalette::ButtonText);
  }

 private:
  static bool IsRight(const QStyleOptionHeader& option) {
    return option.textAlignment.testFlag(Qt::AlignRight);
  }

  const QTableView& table_;
};

}  // namespace

void SetUpLogTable(QTableView& table) {
  table.setSelectionBehavior(QAbstractItemView::SelectRows);
  table.setSelectionMode(QAbstractItemView::ExtendedSelection);
  table.setWordWrap(false);
  table.setShowGrid(false);
  table.setAlternatingRowColors(true);
  table.setTabKeyNavigation(false);
  table.setCornerButtonEnabled(false);
  table.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  // No content changes a row's height.
  const QFontMetrics fixed(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  QHeaderView* rows = table.verticalHeader();
  rows->hide();
  rows->setSectionResizeMode(QHeaderView::Fixed);
  rows->setMinimumSectionSize(0);
  rows->setDefaultSectionSize(std::max(fixed.height(), table.fontMetrics().height()) + 4);
  table.setItemDelegate(new LogCells(table));
  auto* columns = new LogHeader(table);
  table.setHorizontalHeader(columns);
  columns->setHighlightSections(false);
  columns->setStretchLastSection(true);
}

int RightMargin(const QTableView& table) { return 3 * ItemMargin(table) + RoomBehind(table); }

}  // namespace vantrel::log
