// From a shell to the face of a card.

#include "tests/send/send_program.h"

#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QProcessEnvironment>

namespace vantrel::send {
namespace {

class Printed : public SendProgram {
 protected:
  // Prints what the printer holds and returns the face of the card.
  QImage Print() {
    EXPECT_EQ(Send({"46", "0"}).status, 0);
    const QString path = folder_.filePath("face.png");
    EXPECT_EQ(Ask("face " + path.toStdString()), "ok");
    return QImage(path);
  }
  // Whether the printer is sent such a command; it may take the other program its time.
  bool Comes(const std::string& code) {
    for (int i = 0; i < 20; ++i)
      if (Ask("wait frame " + code + " 500").starts_with("ok ")) return true;
    return false;
  }
  // Puts a card in as the target of the next commands.
  void TakeCard() {
    Begin({"--instant", "--card"});
    ASSERT_EQ(Send({"51"}).status, 0);
  }
  QString Saved(const QImage& picture, const QString& name) {
    QString path = folder_.filePath(name);
    EXPECT_TRUE(picture.save(path));
    return path;
  }
  // What a reader of barcodes finds on a picture.
  static QString Barcode(const QImage& face, const QString& path) {
    // Room around the bars, as a reader needs it.
    QImage page(face.width() + 80, face.height() + 80, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter(&page).drawImage(40, 40, face);
    EXPECT_TRUE(page.scaled(3 * page.width(), 3 * page.height()).save(path));
    QProcess reader;
    reader.start("zbarimg", {"--quiet", "--raw", path});
    EXPECT_TRUE(reader.waitForFinished(20000));
    return QString(reader.readAllStandardOutput()).trimmed();
  }
  static bool IsBlack(const QImage& picture, int x, int y) {
    return qGray(picture.pixel(x, y)) < 128;
  }
};

// Every dot differs from its neighbours in some way that a shift or a swap would show.
QImage Pattern(int width, int height) {
  QImage picture(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      picture.setPixel(x, y,
                       (x * x + 3 * y * y + x * y) % 7 < 3 ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
  return picture;
}

TEST_F(Printed, AFullFacesPictureIsTheSameDotForDot) {
  TakeCard();
  const QImage picture = Pattern(480, 320);
  const Ended ended = Send({"4D", "--json", "--picture", Saved(picture, "picture.png")});
  ASSERT_EQ(ended.status, 0) << ended.errors.toStdString();
  EXPECT_EQ(Objects(ended.out).size(), 96U);
  const QImage face = Print();
  ASSERT_EQ(face.size(), picture.size());
  int different = 0;
  for (int y = 0; y < 320; ++y)
    for (int x = 0; x < 480; ++x) different += IsBlack(face, x, y) != IsBlack(picture, x, y);
  EXPECT_EQ(different, 0);
}

TEST_F(Printed, APictureLiesWhereItIsPut) {
  TakeCard();
  const QImage picture = Pattern(30, 12);
  ASSERT_EQ(Send({"43", "--x", "100", "--y", "5", "--picture", Saved(picture, "p.bmp")}).status, 0);
  const QImage face = Print();
  int different = 0;
  for (int y = 0; y < 320; ++y) {
    for (int x = 0; x < 480; ++x) {
      const bool inside = x >= 100 && x < 130 && y >= 40 && y < 52;
      different += IsBlack(face, x, y) != (inside && IsBlack(picture, x - 100, y - 40));
    }
  }
  EXPECT_EQ(different, 0);
}

TEST_F(Printed, ABarcodeIsReadBack) {
  struct Case {
    QStringList words;
    const char* text;
  };
  for (const Case& one :
       {Case{{"4E", "AB-12"}, "AB-12"}, Case{{"4E", "--set", "C", "123456"}, "123456"},
        Case{{"4E", "--type", "itf", "12345670"}, "12345670"}}) {
    TakeCard();
    ASSERT_EQ(Send(one.words).status, 0);
    EXPECT_EQ(Barcode(Print(), folder_.filePath("code.png")), QString(one.text));
    program_.kill();
    program_.waitForFinished();
  }
}

TEST_F(Printed, ARegisteredCharacterStandsInTheText) {
  TakeCard();
  const QImage character = Pattern(24, 24);
  ASSERT_EQ(Send({"44", "3", "--picture", Saved(character, "c.png")}).status, 0);
  ASSERT_EQ(Send({"41", "--direction", "3", "--x", "48", "--y", "99", "\\eG3"}).status, 0);
  const QImage face = Print();
  // Its left bottom dot is at X 48, Y 99 from the top left corner of the lying card.
  int different = 0;
  for (int y = 0; y < 24; ++y)
    for (int x = 0; x < 24; ++x)
      different += IsBlack(face, 48 + x, 99 - 23 + y) != IsBlack(character, x, y);
  EXPECT_EQ(different, 0);
}

TEST_F(Printed, TextIsThere) {
  TakeCard();
  ASSERT_EQ(Send({"41", "--direction", "3", "--x", "0", "--y", "47", "I"}).status, 0);
  const QImage face = Print();
  int black = 0;
  for (int y = 0; y < 320; ++y) {
    for (int x = 0; x < 480; ++x) {
      if (!IsBlack(face, x, y)) continue;
      ++black;
      // One character of 24 dots above and at Y 47.
      EXPECT_LT(x, 12);
      EXPECT_GE(y, 24);
      EXPECT_LE(y, 47);
    }
  }
  EXPECT_GT(black, 20);
}

TEST_F(Printed, TwoHundredCardsComeOfACsvFile) {
  Begin();
  QFile file(folder_.filePath("members.csv"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  for (int i = 0; i < 200; ++i)
    file.write(QString("%1,Member %2\n").arg(100000 + i).arg(i).toUtf8());
  file.close();
  QProcess example;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("PATH",
                     QFileInfo(VANTREL_SEND_PROGRAM).path() + ":" + environment.value("PATH"));
  example.setProcessEnvironment(environment);
  example.start(VANTREL_EXAMPLES "/members.py", {file.fileName(), "--port", device_});
  for (int i = 0; i < 200; ++i) {
    ASSERT_TRUE(Comes("53")) << i;
    if (i > 0) {
      ASSERT_EQ(Ask("pull"), "ok");
    }
    ASSERT_EQ(Ask("insert"), "ok");
    ASSERT_TRUE(Comes("46")) << i;
  }
  const Ended ended = EndOf(example);
  EXPECT_EQ(ended.status, 0) << ended.errors.toStdString();
  EXPECT_EQ(ended.out.count('\n'), 200);
  EXPECT_TRUE(ended.out.endsWith("100199 Member 199\n"));
  EXPECT_TRUE(QString::fromStdString(Ask("state")).endsWith("prints 200"));
  const QString path = folder_.filePath("face.png");
  EXPECT_EQ(Ask("face " + path.toStdString()), "ok");
  EXPECT_EQ(Barcode(QImage(path), folder_.filePath("code.png")), "100199");
}

class Unreadable : public SendProgram {
 protected:
  // The refusal of a file as a picture; nothing is sent, since there is no device.
  // The sentence, without the hint at the help that follows every one.
  static std::string Refusal(const QString& path) {
    const Ended ended = SendTo({"--port", "/dev/no-such-device", "4D", "--picture", path});
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.out, "");
    const QByteArray hint = " Try 'vantrel-send --help'.\n";
    EXPECT_TRUE(ended.errors.endsWith(hint)) << ended.errors.toStdString();
    return ended.errors.chopped(hint.size()).toStdString();
  }
};

TEST_F(Unreadable, PicturesAreRefused) {
  const QString path = folder_.filePath("a.png");
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("This is no picture.");
  file.flush();
  EXPECT_EQ(Refusal(path), "vantrel-send: " + path.toStdString() + " is no picture.");
  ASSERT_TRUE(file.resize(1'073'741'824));
  EXPECT_EQ(Refusal(path), "vantrel-send: " + path.toStdString() +
                               " has 1073741824 bytes; at most 67108864 are read.");
  EXPECT_EQ(Refusal("/dev/zero"), "vantrel-send: /dev/zero is no regular file.");
  EXPECT_EQ(Refusal("/nowhere.png"),
            "vantrel-send: /nowhere.png cannot be read: No such file or directory.");
  const QString large = folder_.filePath("large.png");
  ASSERT_TRUE(Pattern(481, 8).save(large));
  EXPECT_EQ(Refusal(large), "vantrel-send: The picture has 481 x 8 dots; 480 x 320 fit.");
}

}  // namespace
}  // namespace vantrel::send
