// SPDX-License-Identifier: MIT
#pragma once

#include "editors/dot_editor.h"

#include <QImage>
#include <QWidget>

namespace vantrel::editors {

// An editor's picture as it will print, a pixel a dot: what is sent, also where the grid is painted
// otherwise.
class DotPreview : public QWidget {
  Q_OBJECT

 public:
  // `editor` must outlive the preview.
  explicit DotPreview(const DotEditor& editor, QWidget* parent = nullptr);

  // Shows what has changed in the editor.
  void Refresh();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const DotEditor& editor_;
  QImage picture_;
};

}  // namespace vantrel::editors
