// SPDX-License-Identifier: MIT

// How long from the press of a command's button until the form that it brings up has been painted
// whole? Off-screen unless QT_QPA_PLATFORM says otherwise.

#include "bench/quiet.h"
#include "console/frm_vantrel.h"
#include "console/guarded_application.h"
#include "console/system_time.h"

#include <QDialog>
#include <QPushButton>
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

namespace vantrel::bench {
namespace {

using Clock = std::chrono::steady_clock;

// What a form's data are sent to: every write fails at once, so that nothing is waited for.
class NoPort : public link::Port {
 public:
  void SetListener(link::PortListener*) override {}
  void SetCommPort(int) override {}
  void SetSettings(const std::string&) override {}
  bool IsOpen() const override { return true; }
  void Open() override {}
  void Close() override {}
  link::Bytes Input() override { return {}; }
  void DiscardInput() override {}
  void DiscardOutput() override {}
  void Output(const link::Bytes&) override { throw link::PortError("Nothing is sent."); }
};

// Closes each form as soon as it has been painted, and keeps the moment.
class FormWatch : public QObject {
 public:
  std::optional<Clock::time_point> painted;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    auto* form = qobject_cast<QDialog*>(object);
    if (form != nullptr && event->type() == QEvent::Paint && !painted) {
      painted = Clock::time_point{};
      // When all of the form has been painted, children included.
      QMetaObject::invokeMethod(
          form,
          [this, form] {
            painted = Clock::now();
            form->close();
          },
          Qt::QueuedConnection);
    }
    return false;
  }
};

void PressToShown(benchmark::State& state, console::FrmVantrel& console, const char* name) {
  auto* button = console.findChild<QPushButton*>(name);
  if (button == nullptr) return state.SkipWithError("There is no such button.");
  FormWatch watch;
  qApp->installEventFilter(&watch);
  for (auto _ : state) {
    // A person presses a button of a window that has been painted.
    QCoreApplication::processEvents();
    watch.painted.reset();
    const auto pressed = Clock::now();
    button->click();
    if (!watch.painted) return state.SkipWithError("No form came.");
    state.SetIterationTime(std::chrono::duration<double>(*watch.painted - pressed).count());
  }
}

}  // namespace
}  // namespace vantrel::bench

int main(int argc, char** argv) {
  using namespace vantrel;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  bench::NoDialogs dialogs;
  const auto end = [](int status) { std::_Exit(status); };
  console::GuardedApplication application(argc, argv, dialogs, end);
  bench::NoPort port;
  console::FrmVantrel form(port, dialogs, application, console::SystemTimeOf(QLocale::c()),
                           link::CodePage::kWestern, end);
  form.show();
  for (const char* name :
       {"Cmd41", "Cmd42", "Cmd43", "Cmd44", "Cmd45", "Cmd4D", "Cmd4E", "Cmd5A"}) {
    benchmark::RegisterBenchmark(
        ("PressToShown/" + std::string(name)).c_str(),
        [&form, name](benchmark::State& state) { bench::PressToShown(state, form, name); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  }
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
