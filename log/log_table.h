// SPDX-License-Identifier: MIT
#pragma once

class QTableView;

namespace vantrel::log {

// Makes a table show rows of a log: whole rows are selected, all are of one height, and a million
// of them cost nothing. Text that a model aligns to the right, of cells and of their header, keeps
// `RightMargin` from the next column.
void SetUpLogTable(QTableView& table);

// Pixels between right-aligned text and the right edge of its column.
int RightMargin(const QTableView& table);

}  // namespace vantrel::log
