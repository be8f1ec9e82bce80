// SPDX-License-Identifier: MIT

#include "editors/dot_grid_accessible.h"

#include "editors/dot_grid.h"

#include <QPointer>

namespace vantrel::editors {
namespace {

using Kind = DotGrid::Target::Kind;

class DotGridItem : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  DotGridItem(DotGrid* grid, int number) : grid_(grid), number_(number) {}

  int Number() const { return number_; }

  bool isValid() const override { return !grid_.isNull(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return parent()->window(); }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(grid_);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? grid_->NameOf(Target()) : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override {
    const QRect rect = grid_->RectOf(Target());
    return rect.isEmpty() ? rect : QRect(grid_->mapToGlobal(rect.topLeft()), rect.size());
  }
  QAccessible::Role role() const override {
    return Target().kind == Kind::kDot ? QAccessible::CheckBox : QAccessible::Button;
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.invisible = !grid_->isVisible() || grid_->RectOf(Target()).isEmpty();
    state.disabled = !grid_->isEnabled();
    state.focusable = true;
    state.focused = grid_->hasFocus() && grid_->Cursor() == Target();
    state.checkable = Target().kind == Kind::kDot;
    state.checked = state.checkable && grid_->Editor().Dots().IsBlack(Target().index);
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
  }

  QStringList actionNames() const override {
    if (Target().kind == Kind::kDot) return {toggleAction()};
    return {pressAction(), ClearAction()};
  }
  void doAction(const QString& action) override {
    if (!grid_->isEnabled() || grid_->RectOf(Target()).isEmpty()) return;
    if (action == ClearAction())
      grid_->DblClick(Target());
    else if (actionNames().contains(action))
      grid_->Click(Target());
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }
  QString localizedActionName(const QString& name) const override { return name; }
  QString localizedActionDescription(const QString& name) const override { return name; }

 private:
  static QString ClearAction() { return "Clear"; }
  DotGrid::Target Target() const { return grid_->TargetAt(number_); }

  const QPointer<DotGrid> grid_;
  const int number_;
};

}  // namespace

void DotGridAccessible::Install() {
  static const bool kInstalled = [] {
    QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
      auto* grid = qobject_cast<DotGrid*>(object);
      return grid ? new DotGridAccessible(grid) : nullptr;
    });
    return true;
  }();
  static_cast<void>(kInstalled);
}

DotGridAccessible::DotGridAccessible(DotGrid* grid)
    : QAccessibleWidget(grid, QAccessible::Grouping) {}

DotGridAccessible::~DotGridAccessible() {
  for (const auto& [number, id] : children_) QAccessible::deleteAccessibleInterface(id);
}

DotGrid* DotGridAccessible::Grid() const { return static_cast<DotGrid*>(widget()); }

int DotGridAccessible::childCount() const { return Grid()->TargetCount(); }

QAccessibleInterface* DotGridAccessible::child(int number) const {
  if (number < 0 || number >= childCount()) return nullptr;
  const auto known = children_.find(number);
  if (known != children_.end()) return QAccessible::accessibleInterface(known->second);
  auto* item = new DotGridItem(Grid(), number);
  children_[number] = QAccessible::registerAccessibleInterface(item);
  return item;
}

QAccessibleInterface* DotGridAccessible::childAt(int x, int y) const {
  const QPoint position = Grid()->mapFromGlobal(QPoint(x, y));
  for (int number = 0; number < childCount(); ++number)
    if (Grid()->RectOf(Grid()->TargetAt(number)).contains(position)) return child(number);
  return nullptr;
}

QAccessibleInterface* DotGridAccessible::focusChild() const {
  return Grid()->hasFocus() ? child(Grid()->NumberOf(Grid()->Cursor())) : nullptr;
}

int DotGridAccessible::indexOfChild(const QAccessibleInterface* child) const {
  const auto* item = dynamic_cast<const DotGridItem*>(child);
  return item ? item->Number() : -1;
}

}  // namespace vantrel::editors
