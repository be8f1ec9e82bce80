#include "app/view_captures.h"

#include "log/frm_view.h"

#include <QApplication>
#include <QFile>

#include <cstdlib>
#include <iostream>

namespace vantrel::app {

int ViewCaptures(int argc, char** argv, const std::vector<std::string>& paths) {
  if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
      !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    std::cerr << "vantrel-log: there is no display for the window; show needs none.\n";
    return EXIT_FAILURE;
  }
  const QApplication application(argc, argv);
  QStringList names;
  for (const std::string& path : paths) names += QFile::decodeName(path.c_str());
  log::FrmView form(names);
  form.show();
  return QApplication::exec();
}

}  // namespace vantrel::app
