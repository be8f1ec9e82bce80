// SPDX-License-Identifier: MIT
#pragma once

#include <QStatusBar>

#include <array>
#include <string>

class QLabel;

namespace vantrel::dialogs {

// A status bar of two text panels. The panels are labels named NAME_1 and NAME_2 after the bar's
// object name; their texts are plain text.
class PanelBar : public QStatusBar {
  Q_OBJECT

 public:
  explicit PanelBar(const QString& name, QWidget* parent = nullptr);

  // `panel` is 1 or 2.
  void SetText(int panel, const std::string& text);
  std::string Text(int panel) const;

 private:
  std::array<QLabel*, 2> panels_;
};

}  // namespace vantrel::dialogs
