// SPDX-License-Identifier: MIT

#include "dialogs/program_start.h"

#include <QApplication>
#include <QDebug>
#include <QIcon>

#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

// The resources of a static library; the call must stand outside of every namespace.
static void LoadIcon() { Q_INIT_RESOURCE(icon); }

namespace vantrel::dialogs {
namespace {

// What the handler of messages, a plain function, works with.
struct Watch {
  std::string program;
  std::string advice;
  QtMessageHandler before = nullptr;
  std::vector<QString> held;
};

Watch& Current() {
  static Watch watch;
  return watch;
}

std::string Sentence() {
  // What the library looks at, in its order.
  if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    return "the display of QT_QPA_PLATFORM=" + qgetenv("QT_QPA_PLATFORM").toStdString() +
           " cannot be reached";
  for (const char* name : {"WAYLAND_DISPLAY", "DISPLAY"})
    if (!qEnvironmentVariableIsEmpty(name))
      return "the display " + qgetenv(name).toStdString() + " cannot be reached";
  return "there is no display for the window";
}

void Hold(QtMsgType type, const QMessageLogContext&, const QString& message) {
  Watch& watch = Current();
  if (type != QtFatalMsg) {
    watch.held.push_back(message);
    return;
  }
  std::cerr << watch.program << ": " << Sentence()
            << (watch.advice.empty() ? "." : "; " + watch.advice) << std::endl;
  std::_Exit(EXIT_FAILURE);
}

}  // namespace

DisplayWatch::DisplayWatch(const char* program, const char* advice) {
  Watch& watch = Current();
  watch.program = program;
  watch.advice = advice;
  watch.before = qInstallMessageHandler(Hold);
}

DisplayWatch::~DisplayWatch() {
  Watch& watch = Current();
  qInstallMessageHandler(watch.before);
  for (const QString& message : std::exchange(watch.held, {})) qWarning().noquote() << message;
}

void IdentifyApplication(const QString& name) {
  LoadIcon();
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256})
    icon.addFile(QString(":/vantrel/icon/vantrel-%1.png").arg(size));
  QApplication::setApplicationName(name);
  QApplication::setApplicationVersion(VANTREL_VERSION);
  QApplication::setDesktopFileName("org.vantrel.vantrel");
  QApplication::setWindowIcon(icon);
}

}  // namespace vantrel::dialogs
