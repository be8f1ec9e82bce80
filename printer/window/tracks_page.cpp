// SPDX-License-Identifier: MIT

#include "printer/window/tracks_page.h"

#include "printer/model/printer_model.h"
#include "printer/window/form_text.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace vantrel::printer {

TracksPage::TracksPage(const PrinterModel& model, QWidget* parent)
    : QWidget(parent), model_(model) {
  auto* layout = new QGridLayout(this);
  layout->setHorizontalSpacing(10);
  layout->setVerticalSpacing(4);
  layout->setColumnStretch(1, 1);
  int row = 0;
  const auto add = [&](const QString& caption, QWidget* box) {
    layout->addWidget(new QLabel(caption, this), row, 0);
    layout->addWidget(box, row++, 1);
  };
  for (std::size_t i = 0; i < kTracks; ++i) {
    const QString track = tr("Track %1").arg(i + 1);
    TxtTrackHex[i] = MakeReading(QString("TxtTrackHex_%1").arg(i + 1), tr("%1, hex").arg(track));
    TxtBuffer[i] = MakeReading(QString("TxtBuffer_%1").arg(i + 1), tr("Buffer of %1").arg(track));
    TxtBufferHex[i] =
        MakeReading(QString("TxtBufferHex_%1").arg(i + 1), tr("Buffer of %1, hex").arg(track));
    TxtLoaded[i] = MakeReading(QString("TxtLoaded_%1").arg(i + 1), tr("Loaded for %1").arg(track));
    add(tr("%1, hex").arg(track), TxtTrackHex[i]);
    add(tr("Its buffer"), TxtBuffer[i]);
    add(tr("Its buffer, hex"), TxtBufferHex[i]);
    add(tr("Loaded for it"), TxtLoaded[i]);
    if (i + 1 < kTracks) layout->setRowMinimumHeight(row++, 6);
  }
  layout->setRowStretch(row, 1);
  Refresh();
}

QLineEdit* TracksPage::MakeReading(const QString& name, const QString& spoken) {
  auto* box = new QLineEdit(this);
  box->setObjectName(name);
  box->setAccessibleName(spoken);
  box->setReadOnly(true);
  box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  return box;
}

void TracksPage::Refresh() {
  const PrinterState& state = model_.State();
  for (std::size_t i = 0; i < kTracks; ++i) {
    const auto& buffer = state.buffers[i];
    const QString when_empty = buffer ? tr("empty") : tr("no card has passed");
    ShowReading(TxtTrackHex[i], HexToQt(state.card.tracks[i]), tr("empty"));
    ShowReading(TxtBuffer[i], ToQt(buffer.value_or("")), when_empty);
    ShowReading(TxtBufferHex[i], HexToQt(buffer.value_or("")), when_empty);
    ShowReading(TxtLoaded[i], ToQt(state.presets[i].value_or("")), tr("nothing is loaded"));
  }
}

}  // namespace vantrel::printer
