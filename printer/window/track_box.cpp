// SPDX-License-Identifier: MIT

#include "printer/window/track_box.h"

#include "printer/window/form_text.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpressionValidator>

namespace vantrel::printer {

TrackBox::TrackBox(int longest, QWidget* parent) : QLineEdit(parent) {
  setMaxLength(longest);
  setValidator(new QRegularExpressionValidator(QRegularExpression("[\\x01\\x04-\\x7e]*"), this));
  setPlaceholderText(tr("empty"));
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setToolTip(tr("Enter records what was typed, Escape takes it back."));
  connect(this, &QLineEdit::textEdited, this, [this]() noexcept { ShowWhether(); });
  ShowWhether();
}

void TrackBox::ShowTrack(const QString& track) {
  const std::optional<QString> edit = Edit();
  if (track_ == track) return;
  track_ = track;
  if (!edit) SetText(this, track);
  ShowWhether();
}

std::optional<QString> TrackBox::Edit() const {
  return text() == track_ ? std::nullopt : std::optional(text());
}

void TrackBox::SetEdit(const std::optional<QString>& edit) {
  SetText(this, edit.value_or(track_));
  ShowWhether();
}

void TrackBox::keyPressEvent(QKeyEvent* event) {
  const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (Edit() && enters) {
    emit Entered(text());
    ShowWhether();
  } else if (Edit() && event->key() == Qt::Key_Escape) {
    SetEdit({});
  } else {
    QLineEdit::keyPressEvent(event);
  }
}

void TrackBox::ShowWhether() {
  const bool changed = Edit().has_value();
  if (!changed)
    track_at_edit_.reset();
  else if (!track_at_edit_)
    track_at_edit_ = track_;
  QFont shown = font();
  shown.setItalic(changed);
  setFont(shown);
  QString told = text().isEmpty() ? tr("empty")
                                  : tr("%1 of %2 characters").arg(text().size()).arg(maxLength());
  if (changed) told = tr("changed and not recorded, %1").arg(told);
  setAccessibleDescription(told);
  update();
  emit EditChanged();
}

void TrackBox::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  if (!Edit()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(NoticeColour(palette()), 2));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}

}  // namespace vantrel::printer
