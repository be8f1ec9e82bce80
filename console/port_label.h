// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace vantrel::console {

// Tells in one line what the port is. It takes no more of the menu bar than the menus leave; what
// is too long is cut in the middle, and whole in the tool tip.
class PortLabel : public QLabel {
  Q_OBJECT

 public:
  explicit PortLabel(QWidget* parent = nullptr);

  // `state` is a few words, such as "open".
  void Show(int number, const QString& device, const QString& speed, const QString& state);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace vantrel::console
