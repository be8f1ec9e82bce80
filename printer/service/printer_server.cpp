// SPDX-License-Identifier: MIT

#include "printer/service/printer_server.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

QByteArray ToQt(const link::Bytes& bytes) {
  return QByteArray(reinterpret_cast<const char*>(bytes.data()),
                    static_cast<qsizetype>(bytes.size()));
}

}  // namespace

PrinterServer::PrinterServer(PrinterModel& model, LineMaker make_line, Clock clock, QObject* parent)
    : QObject(parent), model_(model), make_line_(std::move(make_line)), clock_(std::move(clock)) {
  Open();
  elapsed_.start();
  model_.OnSend([this](const link::Bytes& chunk) { Write(chunk); });
  model_.OnChange([this] {
    Schedule();
    emit Changed();
  });
  model_.OnAnswered([this](const printer::Answered& answer) {
    if (sent_whole_) emit Answered(answer);
  });
  model_.OnHear([this](std::span<const std::uint8_t> bytes, protocol::Moment when) {
    emit Received(QByteArray(reinterpret_cast<const char*>(bytes.data()),
                             static_cast<qsizetype>(bytes.size())),
                  when);
  });
  model_.OnStrike([this](const std::string& fault) { emit Struck(QString::fromStdString(fault)); });
  model_.OnRemark(
      [this](const std::string& remark) { emit Remarked(QString::fromStdString(remark)); });
  // The model is at work when it asks for this.
  model_.OnVanish([this] {
    QMetaObject::invokeMethod(
        this, [this] { Unplug(); }, Qt::QueuedConnection);
  });
  due_.setSingleShot(true);
  due_.setTimerType(Qt::PreciseTimer);
  connect(&due_, &QTimer::timeout, this, [this]() noexcept {
    TellSpeed();
    model_.Advance(Now());
  });
  // A console that is killed cannot be seen to go, so its exclusive use is ended again and again.
  connect(&exclusive_use_, &QTimer::timeout, this, [this]() noexcept {
    if (line_) line_->ClearExclusiveUse();
  });
  exclusive_use_.start(250ms);
}

PrinterServer::~PrinterServer() {
  model_.OnSend({});
  model_.OnChange({});
  model_.OnAnswered({});
  model_.OnHear({});
  model_.OnStrike({});
  model_.OnRemark({});
  model_.OnVanish({});
}

void PrinterServer::Open() {
  line_ = make_line_();
  readable_ = std::make_unique<QSocketNotifier>(line_->Descriptor(), QSocketNotifier::Read);
  connect(readable_.get(), &QSocketNotifier::activated, this, [this]() noexcept { ReadLine(); });
}

bool PrinterServer::Unplug() {
  if (!line_) return false;
  // It may be this very notifier's call that brought us here.
  readable_->setEnabled(false);
  readable_.release()->deleteLater();
  line_.reset();
  emit DeviceChanged();
  return true;
}

bool PrinterServer::PlugIn() {
  if (line_) return false;
  Open();
  emit DeviceChanged();
  return true;
}

void PrinterServer::HearNoMore() {
  // A console that never pauses is heard no longer than this.
  constexpr int kMostReads = 16;
  for (int i = 0; i < kMostReads && hears_ && line_ && model_.TakesMore() && ReadLine(); ++i)
    continue;
  hears_ = false;
  Schedule();
}

bool PrinterServer::PressCleaningButton() { return model_.PressCleaningButton(Now()); }

bool PrinterServer::InsertCard() { return model_.InsertCard(Now()); }

bool PrinterServer::PullOutCard() { return model_.PullOutCard(Now()); }

void PrinterServer::SetPower(bool on) { model_.SetPower(on, Now()); }

protocol::Moment PrinterServer::Now() const {
  return clock_ ? clock_() : protocol::Moment{elapsed_.elapsed()};
}

bool PrinterServer::ReadLine() {
  const link::Bytes bytes = line_->Read();
  if (bytes.empty()) return false;
  TellSpeed();
  model_.Receive(bytes, Now());
  return true;
}

void PrinterServer::TellSpeed() {
  if (!line_) return;
  if (const auto speed = line_->ConsoleSpeed()) model_.SetConsoleSpeed(*speed);
}

void PrinterServer::Write(const link::Bytes& chunk) {
  const std::size_t written = line_ ? line_->Write(chunk) : 0;
  sent_whole_ = written == chunk.size();
  emit Sent(ToQt(chunk).left(static_cast<qsizetype>(written)));
}

void PrinterServer::Schedule() {
  if (readable_) readable_->setEnabled(hears_ && model_.TakesMore());
  const std::optional<protocol::Moment> next = model_.NextAdvance();
  if (next)
    due_.start(std::max(*next - Now(), protocol::Moment{0}));
  else
    due_.stop();
}

}  // namespace vantrel::printer
