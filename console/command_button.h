#pragma once

#include <QHash>
#include <QPixmap>
#include <QPushButton>

#include <array>

class QPainter;
class QStyleOptionButton;
class QTextLayout;

namespace vantrel {

struct ConsoleCommand;

// A button whose caption wraps to as many lines as the button's width needs, with the command code
// that ends the caption in bold. Its text is the caption as it stands; the property "Tag" holds the
// command's tag.
class CommandButton : public QPushButton {
  Q_OBJECT

 public:
  explicit CommandButton(const ConsoleCommand& command, QWidget* parent = nullptr);

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  // Lays the caption out in lines of `width` pixels, centred, and returns the height of all lines.
  qreal LayOut(QTextLayout& layout, int width) const;
  // Paints the whole button, what lies behind its corners too.
  void Paint(QPainter& painter, const QStyleOptionButton& option) const;
  // The button as it was painted last in the state of `option`.
  const QPixmap& Picture(const QStyleOptionButton& option);

  const int code_length_;
  // The heights found for widths, because a layout asks for each many times over.
  mutable QHash<int, int> heights_;
  // Pictures of the button, enabled and not, in an active window and not: each command repaints
  // nearly all buttons twice.
  std::array<QPixmap, 4> pictures_;
};

}  // namespace vantrel
