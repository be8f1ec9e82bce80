#include "printer/service/dot_image.h"

#include "log/file_saver.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageWriter>
#include <QTransform>

namespace vantrel::printer {

QImage ImageOf(const Bitmap& dots, int quarter_turns) {
  QImage image(dots.Width(), dots.Height(), QImage::Format_Mono);
  image.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
  image.fill(0);
  for (int y = 0; y < dots.Height(); ++y) {
    uchar* line = image.scanLine(y);
    for (int x = 0; x < dots.Width(); ++x) {
      if (dots.At(x, y)) line[x / 8] = static_cast<uchar>(line[x / 8] | (0x80U >> (x % 8)));
    }
  }
  return quarter_turns % 4 == 0 ? image
                                : image.transformed(QTransform().rotate(90.0 * quarter_turns));
}

Bitmap DotsOf(const QImage& picture) {
  Bitmap dots(picture.width(), picture.height());
  for (int y = 0; y < dots.Height(); ++y) {
    for (int x = 0; x < dots.Width(); ++x) {
      constexpr int kMiddleGrey = 128;
      if (qGray(picture.pixel(x, y)) < kMiddleGrey) dots.Set(x, y, true);
    }
  }
  return dots;
}

std::string SavePicture(const QImage& picture, const char* format, const std::string& path) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  if (!writer.write(picture))
    return path + " was not saved: " + writer.errorString().toStdString() + '.';
  return log::ReplaceFile(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

}  // namespace vantrel::printer
