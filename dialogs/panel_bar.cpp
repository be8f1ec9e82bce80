#include "dialogs/panel_bar.h"

#include <QLabel>

namespace vantrel::dialogs {

PanelBar::PanelBar(const QString& name, QWidget* parent) : QStatusBar(parent) {
  setObjectName(name);
  setSizeGripEnabled(false);
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    panels_[i] = new QLabel(this);
    panels_[i]->setObjectName(QString("%1_%2").arg(name).arg(i + 1));
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
  panels_.at(static_cast<std::size_t>(panel - 1))->setText(QString::fromStdString(text));
}

std::string PanelBar::Text(int panel) const {
  return panels_.at(static_cast<std::size_t>(panel - 1))->text().toStdString();
}

}  // namespace vantrel::dialogs
