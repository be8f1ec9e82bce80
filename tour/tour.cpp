// SPDX-License-Identifier: MIT

#include "tour/tour.h"

#include "console/system_time.h"
#include "printer/service/line_recording.h"
#include "tour/capture_windows.h"

#include <QAction>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>
#include <QTabWidget>
#include <QTimer>

#include <iostream>
#include <stdexcept>

namespace vantrel::tour {
namespace {

constexpr int kMoment =
    400;  // milliseconds that a person takes to do something while a command waits

}  // namespace

Tour::Tour(const QString& folder, const Options& options, dialogs::Guard& guard)
    : folder_(folder),
      options_(options),
      fonts_(printer::SystemFontFolder()),
      model_(fonts_, link::SystemCodePage()),
      server_(model_),
      guard_(guard),
      printer_(model_, server_, {dialogs_, files_, guard}),
      port_([this](int number) {
        return number == 1 ? server_.DevicePath() : link::SystemDevice(number);
      }),
      console_(port_, dialogs_, guard, console::SystemTimeOf(QLocale::system()),
               link::SystemCodePage(), [](int status) { std::_Exit(status); }) {
  if (!folder_.mkpath("."))
    throw std::runtime_error("The folder " + folder.toStdString() + " cannot be made.");
  printer::RecordLineOf(server_, recorder_);
  model_.SetInstantWork(options_.instant);
  model_.SetPacing(!options_.instant);
  model_.SetTrack(0, "VANTREL SAMPLE CARD");
  model_.SetTrack(1, "0123456789");
  model_.SetTrack(2, "9876543210");
}

void Tour::Run() {
  std::cout << "The printer serves " << server_.DevicePath() << "\n";
  // The off-screen screen is smaller than the window is at first elsewhere.
  printer_.resize(1120, 860);
  printer_.show();
  console_.show();
  QCoreApplication::processEvents();
  ReadTracks();
  WriteTracks();
  MoveCard();
  Maintain();
  PrintCard();
  PhotographBoth();
  ShowTheOthers();
  Photograph(console_, "console");
  PhotographPrinter();
  PhotographCaptureWindows(
      recorder_, {dialogs_, files_, guard_},
      [this](QWidget& window, const QString& name) { Photograph(window, name); });
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

void Tour::WriteTracks() {
  Answer("data-question", "Yes");
  Type("data-input", "WRITTEN BY THE TOUR");
  Press("Cmd3B");
  Type("write-input", "1");
  Press("Cmd31");
  Press("Cmd21");
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

void Tour::PrintCard() {
  server_.InsertCard();
  Fill(
      "led",
      [](QDialog& form) {
        ClickOn(form, "OptLED_2");
        ClickOn(form, "OptLEDColor_0");
      },
      "CmdNext");
  Press("Cmd5A");

  // A face of 8 x 16 dots in register 0, and where 41h expands it.
  Fill(
      "font",
      [](QDialog& form) {
        ClickOn(form, "Opt16dot");
        for (const char* row : {"..####..", ".#....#.", "#.#..#.#", "#......#", "#.#..#.#",
                                "#..##..#", ".#....#.", "..####.."}) {
          static int line = 0;
          for (int column = 0; row[column] != 0; ++column)
            if (row[column] == '#') ClickDot(form, "LblDot", column * 24 + line + 4);
          ++line;
        }
      },
      "CmdNext");
  boxes_.Expect([](QDialog& box) { PressButton(box, "OK"); });
  Press("Cmd45");
  Fill(
      "",
      [](QDialog& form) {
        ClickOn(form, "Opt_direction_3");
        TypeInto(form, "TxtXCoordinate", "420");
        TypeInto(form, "TxtYCoordinate", "250");
      },
      "CmdEsc_i");
  Answer("", "Yes");
  Type("", "0");
  Press("Cmd41");
  PrintClubCard();
}

void Tour::ShowTheOthers() {
  Answer("about", "OK");
  console_.findChild<QAction*>("Mnu_About")->trigger();
  Fill(
      "image-line",
      [](QDialog& form) {
        ClickOn(form, "CmdSet");
        for (int row = 0; row < 40; row += 3) ClickDot(form, "Lbldot", row);
      },
      "CmdNext");
  Press("Cmd43");
  Fill(
      "font-double",
      [](QDialog& form) {
        for (int dot = 2; dot < 22; ++dot) {
          ClickDot(form, "LblDot", dot * 24 + dot);
          ClickDot(form, "LblDot", dot * 24 + 23 - dot);
        }
      },
      "CmdNext");
  Answer("font-data", "OK");
  Press("Cmd44");
  Fill(
      "image-expansion", [](QDialog& form) { TypeInto(form, "TxtImageNo", "12"); }, "CmdNext");
  Press("Cmd42");
}

void Tour::Fill(const QString& picture, std::function<void(QDialog&)> fill, const char* button) {
  boxes_.Expect([this, picture, fill = std::move(fill), button](QDialog& form) {
    fill(form);
    if (!picture.isEmpty()) Photograph(form, picture);
    ClickOn(form, button);
  });
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
  Save(window, name);
  if (!options_.all_sizes || window.inherits("QMessageBox") || window.inherits("QInputDialog"))
    return;
  const QSize usual = window.size();
  const auto save_at = [&](const QSize& size, const char* label) {
    window.resize(size);
    // The least size may follow from the width.
    QCoreApplication::processEvents();
    window.resize(size);
    QCoreApplication::processEvents();
    Save(window, name + label);
  };
  save_at(QSize(1, 1), "-smallest");
  save_at(QSize(1920, 1080), "-large");
  window.resize(usual);
  QCoreApplication::processEvents();
}

void Tour::Save(QWidget& window, const QString& name) {
  const QString path = folder_.filePath(name + ".png");
  if (!window.grab().save(path))
    throw std::runtime_error("The picture " + path.toStdString() + " cannot be written.");
}

void Tour::PhotographPrinter() {
  auto* pages = printer_.findChild<QTabWidget*>("TabPages");
  const QStringList names{"printer", "printer-tracks", "printer-buffer", "printer-line",
                          "printer-faults"};
  for (int page = 0; page < pages->count(); ++page) {
    pages->setCurrentIndex(page);
    Photograph(printer_, names.at(page));
  }
  model_.AddFault(printer::ParseFault("status 38 for 3"));
  pages->setCurrentIndex(0);
  ClickOn(printer_, "CmdTurn");
  Photograph(printer_, "printer-standing-with-fault");
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

}  // namespace vantrel::tour
