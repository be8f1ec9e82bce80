#pragma once

#include <QPushButton>

class QTextLayout;

namespace vantrel {

struct Command;

// A button whose caption wraps to as many lines as the button's width needs, with the command code
// that ends the caption in bold. Its text is the caption as it stands; the property "Tag" holds the
// command's tag.
class CommandButton : public QPushButton {
  Q_OBJECT

 public:
  explicit CommandButton(const Command& command, QWidget* parent = nullptr);

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // Lays the caption out in lines of `width` pixels, centred, and returns the height of all lines.
  qreal LayOut(QTextLayout& layout, int width) const;

  const int code_length_;
};

}  // namespace vantrel
