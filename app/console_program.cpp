#include "app/console_program.h"

#include "console/frm_vantrel.h"
#include "console/guarded_application.h"
#include "console/system_time.h"
#include "dialogs/window_dialogs.h"

#include <cstdlib>
#include <utility>

namespace vantrel {

int RunConsole(int& argc, char** argv, SerialPort::DeviceOf device_of) {
  WindowDialogs dialogs;
  // Ends from inside any wait or box, with nothing run afterwards.
  const auto end_program = [](int status) { std::_Exit(status); };
  GuardedApplication application(argc, argv, dialogs, end_program);
  QApplication::setApplicationName("vantrel");
  QApplication::setApplicationVersion(VANTREL_VERSION);
  QApplication::setDesktopFileName("vantrel");
  SerialPort port(std::move(device_of));
  FrmVantrel form(port, dialogs, SystemTimeOf(QLocale::system()), SystemCodePage(), end_program);
  QObject::connect(&form, &FrmVantrel::Closed, &application, [] { QApplication::exit(0); });
  form.show();
  return QApplication::exec();
}

}  // namespace vantrel
