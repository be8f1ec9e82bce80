// SPDX-License-Identifier: MIT

#include "app/console_program.h"
#include "app/demo_places.h"
#include "app/demo_table.h"
#include "app/demonstration.h"
#include "app/printer_options.h"
#include "console/frm_vantrel.h"

#include <QScreen>

#include <exception>
#include <iostream>

namespace {

QString GeometryOption(const QRect& place) {
  return QString("--geometry=%1x%2+%3+%4")
      .arg(place.width())
      .arg(place.height())
      .arg(place.x())
      .arg(place.y());
}

}  // namespace

// Starts a software printer and a console whose COM 1 is that printer.
int main(int argc, char** argv) {
  using namespace vantrel;
  if (const auto end = app::ParsePrinterOptions(app::DemoProgram(), argc, argv).end) return *end;
  QStringList options;
  for (int i = 1; i < argc; ++i) options += QString::fromLocal8Bit(argv[i]);
  app::Demonstration demonstration;
  app::ConsoleProgram console("vantrel-demo", argc, argv, demonstration);
  const QScreen& screen = *QGuiApplication::primaryScreen();
  const auto places = [&screen](int console_least) {
    return app::PlacesIn(screen.availableGeometry(), console_least);
  };
  try {
    demonstration.Start(QStringList(GeometryOption(places(app::kUsualConsoleWidth).printer)) +
                        options);
    return console.Run(
        [&demonstration](int port_number) {
          return port_number == 1 ? demonstration.DevicePath() : link::SystemDevice(port_number);
        },
        [&](console::FrmVantrel& form) {
          demonstration.Serve(form);
          form.setGeometry(places(form.minimumWidth()).console);
        });
  } catch (const std::exception& error) {
    std::cerr << "vantrel-demo: " << error.what() << "\n";
    return 1;
  }
}
