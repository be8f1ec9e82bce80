// SPDX-License-Identifier: MIT

#include "app/console_program.h"

#include "console/frm_vantrel.h"
#include "console/system_time.h"

#include <cstdlib>
#include <utility>

namespace vantrel::app {
namespace {

// Ends from inside any wait or box; nothing runs afterwards.
void EndAtOnce(int status) { std::_Exit(status); }

}  // namespace

ConsoleProgram::ConsoleProgram(const char* name, int& argc, char** argv, dialogs::Dialogs& dialogs)
    : display_(std::in_place, name),
      dialogs_(dialogs),
      application_(argc, argv, dialogs, EndAtOnce) {
  display_.reset();
  dialogs::IdentifyApplication(name);
}

int ConsoleProgram::Run(link::SerialPort::DeviceOf device_of, const Prepare& prepare) {
  link::SerialPort port(std::move(device_of));
  console::FrmVantrel form(port, dialogs_, application_, console::SystemTimeOf(QLocale::system()),
                           link::SystemCodePage(), EndAtOnce);
  QObject::connect(&form, &console::FrmVantrel::Closed, &application_,
                   [] { QApplication::exit(0); });
  if (prepare) prepare(form);
  form.show();
  return QApplication::exec();
}

}  // namespace vantrel::app
