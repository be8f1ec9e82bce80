// SPDX-License-Identifier: MIT

// From a shell to the face of a card.

#include "tests/send/send_program.h"
#include "tests/support/patience.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QProcess>
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
    EXPECT_TRUE(reader.waitForFinished(support::kPatience));
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
        Case{{"4E", "--type", "itf", "12345670"}, "12345670"},
        Case{{"4E", "--type", "code39", "0123-$/+%."}, "0123-$/+%."},
        Case{{"4E", "--type", "codabar", "--start", "B", "--stop", "D", "01-$:/.+9"},
             "B01-$:/.+9D"}}) {
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

TEST_F(Printed, TransparentDotsOfAPictureAreClear) {
  // A black column, one that is black but transparent, and a white one.
  QImage picture(3, 8, QImage::Format_ARGB32);
  for (int y = 0; y < 8; ++y)
    for (int x = 0; x < 3; ++x)
      picture.setPixel(
          x, y, qRgba(x == 2 ? 255 : 0, x == 2 ? 255 : 0, x == 2 ? 255 : 0, x == 1 ? 0 : 255));
  const QString path = Saved(picture, "clear.png");
  // "0,0,1,FF0000" and "0,0,1,0000FF"
  EXPECT_EQ(SendTo({"--dry-run", "4D", "--picture", path}).out,
            "02 4D 30 2C 30 2C 31 2C 46 46 30 30 30 30 03 53\n");
  EXPECT_EQ(SendTo({"--dry-run", "4D", "--invert", "--picture", path}).out,
            "02 4D 30 2C 30 2C 31 2C 30 30 30 30 46 46 03 53\n");
}

TEST_F(Printed, PicturesOfAnyFormatAreTheSame) {
  // Sixteen columns of black and white: each format keeps these apart.
  QImage picture(16, 16, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter(&picture).fillRect(0, 0, 16, 8, Qt::black);
  QByteArray data;
  for (int i = 0; i < 16; ++i) data += "46 46 30 30 ";
  for (const char* format : {"png", "bmp", "jpg", "ppm", "xpm"}) {
    // The name's ending says nothing.
    const QString path = folder_.filePath("picture.dat");
    ASSERT_TRUE(picture.save(path, format));
    const Ended ended = SendTo({"--dry-run", "4D", "--picture", path});
    EXPECT_EQ(ended.status, 0) << format << ended.errors.toStdString();
    EXPECT_TRUE(ended.out.contains(" 30 2C 30 2C 32 2C " + data + "03 "))
        << format << ended.out.toStdString();
  }
}

class Examples : public Printed {
 protected:
  // Starts an example with the built vantrel-send in its path.
  void StartExample(const QString& name, const QStringList& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH",
                       QFileInfo(VANTREL_SEND_PROGRAM).path() + ":" + environment.value("PATH"));
    example_.setProcessEnvironment(environment);
    example_.setWorkingDirectory(folder_.path());
    example_.start(VANTREL_EXAMPLES "/" + name, arguments);
  }
  // Prints the cards of so many members in one run; every card is handed in and taken out.
  Ended PrintCards(int count, const QString& example, const QStringList& options) {
    Begin();
    QFile file(folder_.filePath("members.csv"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    for (int i = 0; i < count; ++i)
      file.write(QString("%1,Member %2\n").arg(100000 + i).arg(i).toUtf8());
    file.close();
    StartExample(example, QStringList{file.fileName(), "--port", device_} + options);
    for (int i = 0; i < count && !testing::Test::HasFailure(); ++i) {
      EXPECT_TRUE(Comes("53")) << i;
      if (i > 0) {
        EXPECT_EQ(Ask("pull"), "ok");
      }
      EXPECT_EQ(Ask("insert"), "ok");
      EXPECT_TRUE(Comes("46")) << i;
    }
    Ended ended = EndOf(example_);
    EXPECT_EQ(ended.status, 0) << ended.errors.toStdString();
    EXPECT_TRUE(QString::fromStdString(Ask("state")).endsWith(QString("prints %1").arg(count)));
    const QString path = folder_.filePath("face.png");
    EXPECT_EQ(Ask("face " + path.toStdString()), "ok");
    EXPECT_EQ(Barcode(QImage(path), folder_.filePath("code.png")), QString::number(99999 + count));
    return ended;
  }

  QProcess example_;
};

TEST_F(Examples, PrintCardsOfACsvFileInPython) {
  const Ended ended = PrintCards(40, "members.py", {});
  EXPECT_EQ(ended.out.count('\n'), 40);
  EXPECT_TRUE(ended.out.endsWith("100039 Member 39\n"));
}

TEST_F(Examples, PrintCardsOfACsvFileInAShell) {
  const Ended ended = PrintCards(20, "members.sh", {"--quiet"});
  // Five commands a card, none of which has data.
  EXPECT_EQ(ended.out, QByteArray(100, '\n'));
}

TEST_F(Examples, BearWhatNamesAndFilesHave) {
  QFile file(folder_.filePath("members.csv"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("1234,Pat O'Brien \\o/\r\n\n5678,last");
  file.close();
  StartExample("members.sh", {file.fileName(), "--dry-run"});
  const Ended ended = EndOf(example_);
  EXPECT_EQ(ended.status, 0) << ended.errors.toStdString();
  const auto frames = ended.out.split('\n');
  ASSERT_EQ(frames.size(), 11) << ended.out.toStdString();
  // "3,24,60,Pat O'Brien \o/" and "3,24,60,last"
  EXPECT_EQ(frames[2],
            "02 41 33 2C 32 34 2C 36 30 2C 50 61 74 20 4F 27 42 72 69 65 6E 20 5C 6F 2F 03 3E");
  EXPECT_EQ(frames[7], "02 41 33 2C 32 34 2C 36 30 2C 6C 61 73 74 03 57");
}

TEST_F(Examples, StopAtTheFirstFailure) {
  Begin({"--instant", "--card"});
  QFile file(folder_.filePath("members.csv"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("1234,A\n5678,B\n");
  file.close();
  ASSERT_EQ(Ask("fault status 51 on 41"), "ok");
  StartExample("members.py", {file.fileName(), "--port", device_});
  const Ended ended = EndOf(example_);
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.out, "");
  EXPECT_TRUE(ended.errors.contains("51h: Expansion buffer overflow error"))
      << ended.errors.toStdString();
}

TEST_F(Examples, BurnInUntilAFailure) {
  Begin({"--instant", "--card"});
  ASSERT_EQ(Ask("fault status 38 after 15 on 46"), "ok");
  StartExample("burn-in.sh", {"--port", device_});
  const Ended ended = EndOf(example_);
  EXPECT_EQ(ended.status, 1);
  EXPECT_TRUE(ended.errors.contains("Stopped at line 6, round 15; go on with --from 6."))
      << ended.errors.toStdString();
  EXPECT_TRUE(ended.out.contains("38h: Card jam")) << ended.out.toStdString();
  QFile report(folder_.filePath("burn-in.json"));
  ASSERT_TRUE(report.open(QIODevice::ReadOnly));
  EXPECT_EQ(Objects(report.readAll()).size(), 90U);
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

TEST_F(Unreadable, PicturesOtherThanPngWhereTheirLibraryIsNotInstalled) {
  ASSERT_TRUE(QDir(folder_.path()).mkpath("bin"));
  const QString alone = folder_.filePath("bin/vantrel-send");
  ASSERT_TRUE(QFile::copy(VANTREL_SEND_PROGRAM, alone));
  const QString png = folder_.filePath("p.dat");
  ASSERT_TRUE(Pattern(30, 12).save(png, "png"));
  QProcess of_png;
  of_png.start(alone, {"--dry-run", "4D", "--picture", png});
  const Ended ended = EndOf(of_png);
  EXPECT_EQ(ended.status, 0) << ended.errors.toStdString();
  EXPECT_EQ(ended.out, SendTo({"--dry-run", "4D", "--picture", png}).out);
  QProcess program;
  program.start(alone, {"--port", "/dev/no-such-device", "4D", "--picture", alone});
  ASSERT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitCode(), 2);
  const QByteArray errors = program.readAllStandardError();
  EXPECT_TRUE(errors.startsWith("vantrel-send: Pictures other than PNG cannot be read: " +
                                QFileInfo(folder_.path()).canonicalFilePath().toUtf8() + "/lib"))
      << errors.toStdString();
  EXPECT_TRUE(errors.contains(
      "/vantrel/vantrel-pictures.so is not installed; it is in the package vantrel."))
      << errors.toStdString();
}

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
  ASSERT_TRUE(Pattern(481, 8).save(large, "bmp"));
  EXPECT_EQ(Refusal(large), "vantrel-send: The picture has 481 x 8 dots; 480 x 320 fit.");
  const QString cut = folder_.filePath("cut");
  ASSERT_TRUE(Pattern(8, 8).save(cut, "png"));
  ASSERT_TRUE(QFile::resize(cut, 60));
  EXPECT_EQ(Refusal(cut), "vantrel-send: " + cut.toStdString() +
                              " is no picture that can be read: it ends too early.");
}

}  // namespace
}  // namespace vantrel::send
