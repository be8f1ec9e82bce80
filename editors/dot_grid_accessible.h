// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

#include <unordered_map>

namespace vantrel::editors {

class DotGrid;

// A dot grid for screen readers: its children are the dots, which are check boxes, and the
// selectors, which are buttons, in the order of DotGrid::TargetAt.
class DotGridAccessible : public QAccessibleWidget {
 public:
  // Makes Qt use this class for every DotGrid. Calls after the first do nothing.
  static void Install();

  explicit DotGridAccessible(DotGrid* grid);
  ~DotGridAccessible() override;

  int childCount() const override;
  QAccessibleInterface* child(int number) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;

 private:
  DotGrid* Grid() const;

  mutable std::unordered_map<int, QAccessible::Id> children_;
};

}  // namespace vantrel::editors
