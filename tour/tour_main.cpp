#include "console/guarded_application.h"
#include "tour/tour.h"

#include <cstdlib>
#include <cstring>
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

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 || std::strcmp(argv[1], "--help") == 0) {
    std::cout << "Usage: vantrel-tour FOLDER\n"
                 "Drives the console against a software printer, prints each exchange and writes\n"
                 "pictures of the windows to FOLDER.\n";
    return argc == 2 ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  // The off-screen platform says this at every window.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.contains("propagateSizeHints")) std::cerr << message.toStdString() << "\n";
  });
  std::cout << std::unitbuf;  // each exchange is to be seen when it happens
  TellingDialogs dialogs;
  vantrel::console::GuardedApplication application(argc, argv, dialogs,
                                                   [](int status) { std::_Exit(status); });
  try {
    vantrel::tour::Tour(QString::fromLocal8Bit(argv[1]), application).Run();
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "vantrel-tour: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
