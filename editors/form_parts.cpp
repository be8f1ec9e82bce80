// SPDX-License-Identifier: MIT

#include "editors/form_parts.h"

#include "dialogs/named_widgets.h"
#include "editors/dot_preview.h"

#include <QVBoxLayout>

namespace vantrel::editors {

QBoxLayout* MakeMatrixLayout(QWidget* frame, const QString& origin, DotGrid* grid) {
  auto* layout = new QVBoxLayout(frame);
  auto* dots = new QVBoxLayout;
  dots->addWidget(dialogs::MakeLabel("LblOrigin", origin));
  dots->addWidget(grid, 1);
  auto* preview = new DotPreview(grid->Editor());
  QObject::connect(grid, &DotGrid::Refreshed, preview, &DotPreview::Refresh);
  auto* beside = new QVBoxLayout;
  beside->addWidget(dialogs::MakeLabel("LblPreview", "1:1"));
  beside->addWidget(preview);
  beside->addStretch();
  auto* pictures = new QHBoxLayout;
  // On the side where the grid begins, so that it stays beside the dots.
  pictures->addLayout(beside);
  pictures->addLayout(dots, 1);
  layout->addLayout(pictures, 1);
  auto* row = new QHBoxLayout;
  row->addWidget(dialogs::MakeLabel("LblDescriptipn", "Click -> Select DbClick -> DeSelect"));
  row->addStretch();
  layout->addLayout(row);
  return row;
}

dialogs::PanelBar* AddBodyAndStatusBar(QWidget* form, QLayout* body) {
  auto* layout = new QVBoxLayout(form);
  auto* status_bar = new dialogs::PanelBar("StatusBarExImage");
  const QMargins margins = layout->contentsMargins();
  layout->setContentsMargins(0, 0, 0, 0);
  body->setContentsMargins(margins);
  layout->addLayout(body, 1);
  layout->addWidget(status_bar);
  // The hints are in panel 1 and need the whole width.
  status_bar->findChild<QLabel*>("StatusBarExImage_2")->hide();
  return status_bar;
}

}  // namespace vantrel::editors
