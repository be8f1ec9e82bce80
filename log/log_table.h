// SPDX-License-Identifier: MIT
#pragma once

class QTableView;

namespace vantrel::log {

// Makes a table show rows of a log: whole rows are selected, all are of one height, and a million
// of them cost nothing.
void SetUpLogTable(QTableView& table);

}  // namespace vantrel::log
