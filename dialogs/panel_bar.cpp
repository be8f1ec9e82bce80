// SPDX-License-Identifier: MIT

#include "dialogs/panel_bar.h"

#include <QLabel>

namespace vantrel::dialogs {
namespace {

// A screen reader hears which panel it is, also of an empty one.
QString AccessibleName(std::size_t panel, const QString& text) {
  const QString name = QString("Panel %1").arg(panel);
  return text.isEmpty() ? name : name + ": " + text;
}

}  // namespace

PanelBar::PanelBar(const QString& name, QWidget* parent) : QStatusBar(parent) {
  setObjectName(name);
  setSizeGripEnabled(false);
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    panels_[i] = new QLabel(this);
    panels_[i]->setObjectName(QString("%1_%2").arg(name).arg(i + 1));
    panels_[i]->setAccessibleName(AccessibleName(i + 1, {}));
    panels_[i]->setTextFormat(Qt::PlainText);
    panels_[i]->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    // A long text must not widen the window; it wraps. Room for two lines is always kept, so that a
    // longer text does not move what stands above the bar.
    panels_[i]->setWordWrap(true);
    panels_[i]->setMinimumHeight(2 * panels_[i]->fontMetrics().lineSpacing() +
                                 2 * panels_[i]->frameWidth() + 2);
    panels_[i]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    panels_[i]->setTextInteractionFlags(Qt::TextSelectableByMouse);
    addPermanentWidget(panels_[i], 1);
  }
}

void PanelBar::SetText(int panel, const std::string& text) {
  QLabel* label = panels_.at(static_cast<std::size_t>(panel - 1));
  const QString shown = QString::fromStdString(text);
  if (shown == label->text()) return;
  label->setText(shown);
  label->setAccessibleName(AccessibleName(static_cast<std::size_t>(panel), shown));
}

std::string PanelBar::Text(int panel) const {
  return panels_.at(static_cast<std::size_t>(panel - 1))->text().toStdString();
}

}  // namespace vantrel::dialogs
