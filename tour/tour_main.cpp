// SPDX-License-Identifier: MIT

#include "commandline/parse.h"
#include "console/guarded_application.h"
#include "dialogs/program_start.h"
#include "tour/tour.h"

#include <QPalette>

#include <cstdlib>
#include <exception>
#include <iostream>

namespace {

// A tour that has gone wrong in an event handler ends like one that has gone wrong elsewhere.
class TellingDialogs : public vantrel::dialogs::Dialogs {
 public:
  vantrel::dialogs::Answer MsgBox(const std::string& prompt, vantrel::dialogs::Buttons,
                                  const std::string& title, vantrel::dialogs::Icon) override {
    std::cerr << "vantrel-tour: " << title << ": " << prompt << "\n";
    std::_Exit(EXIT_FAILURE);
  }
  std::string InputBox(const std::string&, const std::string&, const std::string&) override {
    return {};
  }
};

QPalette DarkPalette() {
  QPalette palette(QColor(0x35, 0x35, 0x35));
  palette.setColor(QPalette::Base, QColor(0x23, 0x23, 0x23));
  palette.setColor(QPalette::Highlight, QColor(0x2A, 0x82, 0xDA));
  // As dark desktops have it; the library would make it of a dark grey.
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(0x8C, 0x8C, 0x8C));
  return palette;
}

const vantrel::commandline::Program& TourProgram() {
  static const vantrel::commandline::Program kProgram = {
      .name = "vantrel-tour",
      .version = VANTREL_VERSION,
      .summary = "walk through the console off-screen, with pictures",
      .description =
          "Drives the console against a software printer, prints each exchange and "
          "writes pictures of the windows. QT_SCALE_FACTOR=2 doubles them.",
      .options = {{.name = "all-sizes",
                   .help = "Writes pictures of each window at its smallest and at 1920 by 1080, "
                           "too."},
                  {.name = "dark", .help = "Shows the windows in a dark palette."},
                  {.name = "instant", .help = "Leaves out the times that a printer takes."}},
      .parameters = {{.value = {.name = "FOLDER",
                                .completion = vantrel::commandline::Completion::kFiles},
                      .help = "Where the pictures go; it is made where it is missing."}},
  };
  return kProgram;
}

}  // namespace

int main(int argc, char** argv) {
  const auto [parsed, end] =
      vantrel::commandline::Begin(TourProgram(), argc, argv, std::cout, std::cerr);
  if (end) return *end;
  // The off-screen platform says this at every window.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.contains("propagateSizeHints")) std::cerr << message.toStdString() << "\n";
  });
  std::cout << std::unitbuf;  // each exchange is to be seen when it happens
  TellingDialogs dialogs;
  vantrel::console::GuardedApplication application(argc, argv, dialogs,
                                                   [](int status) { std::_Exit(status); });
  vantrel::dialogs::IdentifyApplication("vantrel-tour");
  if (parsed.Has("dark")) QApplication::setPalette(DarkPalette());
  try {
    vantrel::tour::Tour(QString::fromStdString(parsed.Parameters().front()),
                        {.all_sizes = parsed.Has("all-sizes"), .instant = parsed.Has("instant")},
                        application)
        .Run();
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "vantrel-tour: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
