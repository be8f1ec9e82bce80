// SPDX-License-Identifier: MIT

#include "log/log_table.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QHeaderView>
#include <QTableView>

#include <algorithm>

namespace vantrel::log {

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
  QHeaderView* columns = table.horizontalHeader();
  columns->setHighlightSections(false);
  columns->setStretchLastSection(true);
}

}  // namespace vantrel::log
