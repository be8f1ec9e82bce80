// SPDX-License-Identifier: MIT

#include "tour/tour.h"

#include <QColor>
#include <QCoreApplication>
#include <QLineEdit>
#include <QPainter>

#include <algorithm>
#include <stdexcept>

namespace vantrel::tour {
namespace {

constexpr int kBlock = 40;  // dots of the image editor's grid a side
constexpr int kEmblemX = 200;
constexpr int kEmblemByte = 1;  // eight dots from the top

// Overwriting, and adding to what stands there.
constexpr int kOver = 1;
constexpr int kAdded = 3;

// The words stand in two columns.
constexpr int kNames = 108;
constexpr int kValues = 228;

// Every sequence prints the text twice, as it was and with the sequence. What is not wanted of it
// is printed over: a label's second copy by its value, a value's first by the value of the row two
// lines higher, and the rest by blanks.
const ClubText kTexts[] = {
    {kAdded, kNames, 179, "Member    ", "CmdEscFf", "1"},
    {kAdded, kNames, 203, "Points    ", "CmdEscFf", "1"},
    {kAdded, kNames, 227, "Date      ", "CmdEscFf", "1"},
    {kOver, kValues, 179, "2026-11-22  ", "CmdESCBb", "2"},
    {kOver, kValues, 155, "1240        ", "CmdESCBb", "2"},
    {kOver, kValues, 131, "Ada Lovelace", "CmdESCBb", "2"},
    {kOver, kValues, 131, "      ", "CmdEscFf", "1"},
    {kOver, kValues, 155, "      ", "CmdEscFf", "1"},
};
const ClubText kName = {kAdded, 48, 43, "Gull Bay Sailing", "Cmd_EscEe", "22"};
const ClubText kBlankName = {kOver, 48, 43, "        ", "CmdEscFf", "1"};

}  // namespace

void Tour::PrintClubCard() {
  Press("Cmd49");
  for (const ClubText& text : kTexts) PrintText(text);
  PrintText(kName, "print-data");
  PrintText(kBlankName);

  const QImage emblem(":/emblem.png");
  for (int left = 0; left < emblem.width(); left += kBlock)
    for (int top = 0; top < emblem.height(); top += kBlock)
      DrawBlock(emblem, {left, top}, left == 0 && top == 0 ? "image" : "");

  Fill(
      "barcode",
      [](QDialog& form) {
        ClickOn(form, "OptBarcodeType_1");
        ClickOn(form, "OptCodeSet_2");
        TypeInto(form, "TxtStartCoordinate", "244");
        TypeInto(form, "TxtEndCoordinate", "293");
        // Two digits a key.
        for (const char* key : {"CmdKey_10", "CmdKey_0", "CmdKey_47", "CmdKey_11"})
          ClickOn(form, key);
      },
      "CmdNext");
  Press("Cmd4E");
  Type("method-input", "0");
  Press("Cmd48");
  Type("", "0");
  Press("Cmd46");
  SaveCard();
}

void Tour::PrintText(const ClubText& text, const QString& picture) {
  boxes_.Expect([this, text, picture](QDialog& form) {
    ClickOn(form, qPrintable(QString("Opt_direction_%1").arg(text.direction)));
    TypeInto(form, "TxtXCoordinate", QString::number(text.x));
    TypeInto(form, "TxtYCoordinate", QString::number(text.y));
    form.findChild<QLineEdit*>("TxtPrint")->setText(text.text);
    if (!picture.isEmpty()) Photograph(form, picture);
    ClickOn(form, text.sequence);
  });
  Type(picture.isEmpty() ? QString() : "esc-input", text.number);
  Press("Cmd41");
}

void Tour::DrawBlock(const QImage& emblem, QPoint corner, const QString& picture) {
  Fill(
      picture,
      [&emblem, corner](QDialog& form) {
        TypeInto(form, "TxtXCoordinate", QString::number(kEmblemX + corner.x()));
        TypeInto(form, "TxtYCoordinate", QString::number(kEmblemByte + corner.y() / 8));
        ClickOn(form, "CmdSet");
        for (int column = 0; column < kBlock; ++column)
          for (int row = 0; row < kBlock; ++row)
            if (qGray(emblem.pixel(corner + QPoint(column, row))) < 128)
              ClickDot(form, "Lbldot", column * kBlock + row);
      },
      "CmdNext");
  Press("Cmd4D");
}

void Tour::SaveCard() {
  const printer::Bitmap& face = model_.State().card.face;
  QImage dots(face.Width(), face.Height(), QImage::Format_Mono);
  dots.fill(1);
  for (int y = 0; y < face.Height(); ++y)
    for (int x = 0; x < face.Width(); ++x)
      if (face.At(x, y)) dots.setPixel(x, y, 0);

  constexpr int kMargin = 16;
  constexpr int kEdge = 10;
  constexpr int kRadius = 16;
  QImage card(dots.width() + 2 * kMargin, dots.height() + 2 * kMargin, QImage::Format_RGB32);
  card.fill(Qt::white);
  QPainter painter(&card);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(0x60, 0x6A, 0x7C), 2));
  painter.drawRoundedRect(
      QRectF(dots.rect()).translated(kMargin, kMargin).adjusted(-kEdge, -kEdge, kEdge, kEdge),
      kRadius, kRadius);
  painter.drawImage(kMargin, kMargin, dots);
  painter.end();
  if (!dots.save(folder_.filePath("card.pbm")) || !card.save(folder_.filePath("card.png")))
    throw std::runtime_error("The picture of the card cannot be written.");
}

void Tour::PhotographBoth() {
  constexpr int kGap = 28;
  constexpr int kTitle = 30;  // the height of a title bar
  const QSize usual_console = console_.size();
  const QSize usual_printer = printer_.size();
  // A little smaller than alone, so that a page can show both.
  console_.resize(760, 740);
  printer_.resize(1000, 740);
  QCoreApplication::processEvents();
  const QList<QWidget*> windows{&console_, &printer_};
  QImage desk(console_.width() + printer_.width() + 3 * kGap,
              std::max(console_.height(), printer_.height()) + kTitle + 2 * kGap,
              QImage::Format_RGB32);
  desk.fill(QColor(0x4A, 0x6A, 0x82));
  QPainter painter(&desk);
  painter.setRenderHint(QPainter::Antialiasing);
  int left = kGap;
  for (QWidget* window : windows) {
    const QRect frame(left, kGap, window->width(), window->height() + kTitle);
    for (int shade = 8; shade > 0; --shade) {
      painter.setPen(Qt::NoPen);
      painter.setBrush(QColor(0, 0, 0, 10));
      painter.drawRoundedRect(frame.adjusted(-shade, -shade + 3, shade, shade + 3), 10, 10);
    }
    painter.setBrush(QColor(0x2E, 0x36, 0x40));
    painter.drawRoundedRect(frame.adjusted(-1, 0, 1, 1), 7, 7);
    painter.setPen(Qt::white);
    painter.drawText(QRect(frame.topLeft(), QSize(frame.width(), kTitle)), Qt::AlignCenter,
                     window->windowTitle());
    painter.drawPixmap(left, kGap + kTitle, window->grab());
    left += window->width() + kGap;
  }
  painter.end();
  if (!desk.save(folder_.filePath("console-and-printer.png")))
    throw std::runtime_error("The picture of both windows cannot be written.");
  console_.resize(usual_console);
  printer_.resize(usual_printer);
  QCoreApplication::processEvents();
}

}  // namespace vantrel::tour
