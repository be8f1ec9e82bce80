// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <QString>

#include <optional>

namespace vantrel::printer {

// A box with what a track of the card holds. What is typed into it is not recorded before the key
// Enter; until then it is seen to be so, and nothing but Escape or the caller takes it away.
class TrackBox : public QLineEdit {
  Q_OBJECT

 public:
  // `longest` is how many characters the track holds.
  explicit TrackBox(int longest, QWidget* parent = nullptr);

  // What the track holds from now on. A text that was typed and not recorded stays.
  void ShowTrack(const QString& track);
  // What was typed and not recorded, or nothing.
  std::optional<QString> Edit() const;
  // Puts such a text in place of what the box shows, or shows the track.
  void SetEdit(const std::optional<QString>& edit);
  // What the track holds.
  const QString& Track() const { return track_; }
  // Whether the track has come to hold something else since the text was typed.
  bool IsOvertaken() const { return Edit() && track_at_edit_ && track_ != *track_at_edit_; }

 signals:
  // Enter was pressed: this is to be recorded.
  void Entered(const QString& text);
  // Edit() or IsOvertaken() may have changed.
  void EditChanged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  // Shows whether there is something that is not recorded, to the eye and to a screen reader.
  void ShowWhether();

  QString track_;
  std::optional<QString> track_at_edit_;
};

}  // namespace vantrel::printer
