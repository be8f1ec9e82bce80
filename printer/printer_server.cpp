#include "printer/printer_server.h"

#include <algorithm>
#include <chrono>
#include <optional>

namespace vantrel {
namespace {

using namespace std::chrono_literals;

QByteArray ToQt(const Bytes& bytes) {
  return QByteArray(reinterpret_cast<const char*>(bytes.data()),
                    static_cast<qsizetype>(bytes.size()));
}

}  // namespace

PrinterServer::PrinterServer(PrinterModel& model, QObject* parent)
    : QObject(parent), model_(model) {
  Open();
  clock_.start();
  model_.OnSend([this](const Bytes& chunk) { Write(chunk); });
  model_.OnChange([this] {
    Schedule();
    emit Changed();
  });
  // The model is at work when it asks for this.
  model_.OnVanish([this] {
    QMetaObject::invokeMethod(
        this, [this] { Unplug(); }, Qt::QueuedConnection);
  });
  due_.setSingleShot(true);
  due_.setTimerType(Qt::PreciseTimer);
  connect(&due_, &QTimer::timeout, this, [this] {
    TellSpeed();
    model_.Advance(Now());
  });
  // A console that is killed cannot be seen to go, so its exclusive use is ended again and again.
  connect(&exclusive_use_, &QTimer::timeout, this, [this] {
    if (terminal_) terminal_->ClearExclusiveUse();
  });
  exclusive_use_.start(250ms);
}

PrinterServer::~PrinterServer() {
  model_.OnSend({});
  model_.OnChange({});
  model_.OnVanish({});
}

void PrinterServer::Open() {
  terminal_.emplace();
  readable_ = std::make_unique<QSocketNotifier>(terminal_->Descriptor(), QSocketNotifier::Read);
  connect(readable_.get(), &QSocketNotifier::activated, this, [this] { ReadLine(); });
}

void PrinterServer::Unplug() {
  if (!terminal_) return;
  // It may be this very notifier's call that brought us here.
  readable_->setEnabled(false);
  readable_.release()->deleteLater();
  terminal_.reset();
  emit DeviceChanged();
}

void PrinterServer::PlugIn() {
  if (terminal_) return;
  Open();
  emit DeviceChanged();
}

bool PrinterServer::InsertCard() { return model_.InsertCard(Now()); }

bool PrinterServer::PullOutCard() { return model_.PullOutCard(Now()); }

void PrinterServer::SetPower(bool on) { model_.SetPower(on, Now()); }

Moment PrinterServer::Now() const { return Moment{clock_.elapsed()}; }

void PrinterServer::ReadLine() {
  const Bytes bytes = terminal_->Read();
  if (bytes.empty()) return;
  TellSpeed();
  emit Received(ToQt(bytes));
  model_.Receive(bytes, Now());
}

void PrinterServer::TellSpeed() {
  if (!terminal_) return;
  if (const auto speed = terminal_->ConsoleSpeed()) model_.SetConsoleSpeed(*speed);
}

void PrinterServer::Write(const Bytes& chunk) {
  const std::size_t written = terminal_ ? terminal_->Write(chunk) : 0;
  emit Sent(ToQt(chunk).left(static_cast<qsizetype>(written)));
}

void PrinterServer::Schedule() {
  const std::optional<Moment> next = model_.NextAdvance();
  if (next)
    due_.start(std::max(*next - Now(), Moment{0}));
  else
    due_.stop();
}

}  // namespace vantrel
