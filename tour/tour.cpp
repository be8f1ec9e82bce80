#include "tour/tour.h"

#include "console/system_time.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <iostream>
#include <stdexcept>

namespace vantrel {
namespace {

constexpr int kMoment =
    400;  // milliseconds that a person takes to do something while a command waits

}  // namespace

Tour::Tour(const QString& folder)
    : folder_(folder),
      server_(model_),
      printer_(model_, server_, files_),
      port_(
          [this](int number) { return number == 1 ? server_.DevicePath() : SystemDevice(number); }),
      console_(port_, dialogs_, SystemTimeOf(QLocale::system()), SystemCodePage(),
               [](int status) { std::_Exit(status); }) {
  if (!folder_.mkpath("."))
    throw std::runtime_error("The folder " + folder.toStdString() + " cannot be made.");
  model_.SetTrack(0, "VANTREL SAMPLE CARD");
  model_.SetTrack(1, "0123456789");
  model_.SetTrack(2, "9876543210");
}

void Tour::Run() {
  std::cout << "The printer serves " << server_.DevicePath() << "\n";
  printer_.show();
  console_.show();
  QCoreApplication::processEvents();
  ReadTracks();
  MoveCard();
  Maintain();
  Photograph(console_, "console");
  Photograph(printer_, "printer");
  std::cout << "Pictures are in " << folder_.absolutePath().toStdString() << "\n";
}

void Tour::ReadTracks() {
  Press("Cmd58");
  Press("Cmd21", [this] {
    Photograph(console_, "console-waiting");
    server_.InsertCard();
  });
  Photograph(console_, "console-reply");
  Press("Cmd26");
  Press("Cmd27");
}

void Tour::MoveCard() {
  Press("Cmd51");
  Press("Cmd53");
  Answer("discharge-question", "Yes");
  Press("Cmd50");
  server_.PullOutCard();
  Press("Cmd25");
}

void Tour::Maintain() {
  Answer("memory-warning", "Yes");
  Answer("", "Yes");
  Answer("", "OK");
  Press("Cmd5B");
  Answer("", "Yes");
  Type("setting-input", "11");
  Press("Cmd91");
  Press("Cmd95");
  Press("Cmd59");
}

void Tour::Press(const char* name, std::function<void()> meanwhile) {
  auto* button = console_.findChild<QPushButton*>(name);
  if (button == nullptr) throw std::runtime_error(std::string("There is no button ") + name);
  if (meanwhile) QTimer::singleShot(kMoment, &console_, std::move(meanwhile));
  std::cout << "\n" << button->text().toStdString() << "\n";
  button->click();
  if (!boxes_.IsDone())
    throw std::runtime_error(std::string("A box that ") + name + " should open did not come.");
  PrintExchange();
}

void Tour::PrintExchange() {
  // The first two lines of the hints are the command's help; what the reply means stands under
  // them.
  const QString hints = QString::fromStdString(Text("LblHints"));
  const QString meaning = hints.section("\r\n", 2);
  std::cout << "  sent      " << Text("TxtSyntax") << "\n"
            << "  received  " << Text("TxtResponse") << "\n"
            << "  meaning   " << meaning.toStdString() << "\n";
}

std::string Tour::Text(const char* name) const {
  return console_.findChild<QWidget*>(name)->property("text").toString().toStdString();
}

void Tour::Photograph(QWidget& window, const QString& name) {
  QCoreApplication::processEvents();
  const QString path = folder_.filePath(name + ".png");
  if (!window.grab().save(path))
    throw std::runtime_error("The picture " + path.toStdString() + " cannot be written.");
}

void Tour::Answer(const QString& picture, const QString& button) {
  boxes_.Expect([this, picture, button](QDialog& box) {
    if (!picture.isEmpty()) Photograph(box, picture);
    PressButton(box, button);
  });
}

void Tour::Type(const QString& picture, const QString& text) {
  boxes_.Expect([this, picture, text](QDialog& box) {
    if (!picture.isEmpty()) Photograph(box, picture);
    TypeAndPressOk(box, text);
  });
}

}  // namespace vantrel
