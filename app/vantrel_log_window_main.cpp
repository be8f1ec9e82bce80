// SPDX-License-Identifier: MIT

// Shows one capture, or two side by side, in a window until it is closed; vantrel-log becomes it.

#include "app/log_table.h"
#include "commandline/fault.h"
#include "commandline/parse.h"
#include "dialogs/program_start.h"
#include "log/frm_view.h"

#include <QApplication>
#include <QFile>

#include <csignal>
#include <iostream>
#include <optional>

int main(int argc, char** argv) {
  vantrel::commandline::EndOnFaults("vantrel-log");
  const auto [parsed, end] =
      vantrel::commandline::Begin(vantrel::app::LogProgram(), argc, argv, std::cout, std::cerr);
  if (end) return *end;
  // A file that may not grow is told by the call that meets it.
  std::signal(SIGXFSZ, SIG_IGN);
  std::optional<QApplication> application;
  {
    const vantrel::dialogs::DisplayWatch watch("vantrel-log", "show needs none.");
    application.emplace(argc, argv);
  }
  vantrel::dialogs::IdentifyApplication("vantrel-log");
  QStringList names;
  for (const std::string& path : parsed.Parameters()) names += QFile::decodeName(path.c_str());
  vantrel::log::FrmView form(names);
  form.show();
  return QApplication::exec();
}
