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
  layout->setVerticalSpacing(6);
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
    TxtTrackHex[i]->setPlaceholderText(tr("empty"));
    add(tr("%1, hex").arg(track), TxtTrackHex[i]);
    add(tr("Its buffer"), TxtBuffer[i]);
    add(tr("Its buffer, hex"), TxtBufferHex[i]);
    if (i + 1 < kTracks) layout->setRowMinimumHeight(row++, 2);
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
    SetText(TxtTrackHex[i], HexToQt(state.card.tracks[i]));
    SetText(TxtBuffer[i], ToQt(buffer.value_or("")));
    SetText(TxtBufferHex[i], HexToQt(buffer.value_or("")));
    for (QLineEdit* box : {TxtBuffer[i], TxtBufferHex[i]})
      box->setPlaceholderText(buffer ? tr("empty") : tr("no card has passed"));
  }
}

}  // namespace vantrel::printer
