#include "app/view_captures.h"

#include "dialogs/program_start.h"
#include "log/frm_view.h"

#include <QApplication>
#include <QFile>

#include <optional>
#include <utility>

namespace vantrel::app {

int ViewCaptures(int argc, char** argv, const std::vector<std::string>& paths) {
  std::optional<dialogs::DisplayWatch> watch(std::in_place, "vantrel-log", "show needs none.");
  const QApplication application(argc, argv);
  watch.reset();
  dialogs::IdentifyApplication("vantrel-log");
  QStringList names;
  for (const std::string& path : paths) names += QFile::decodeName(path.c_str());
  log::FrmView form(names);
  form.show();
  return QApplication::exec();
}

}  // namespace vantrel::app
