#pragma once

#include "printer/printer_model.h"
#include "printer/pseudo_terminal.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>
#include <optional>
#include <string>

namespace vantrel {

// Serves a printer model on a pseudo-terminal of its own, from the event loop of its thread, from
// construction to destruction.
class PrinterServer : public QObject {
  Q_OBJECT

 public:
  // `model` must outlive the server, which makes itself its sink and listener. Throws
  // std::system_error when the system gives no pseudo-terminal.
  explicit PrinterServer(PrinterModel& model, QObject* parent = nullptr);
  ~PrinterServer() override;

  // The device that a console opens, "/dev/pts/7"; empty while it has vanished.
  std::string DevicePath() const { return terminal_ ? terminal_->DevicePath() : std::string(); }

  // Makes the device vanish, as an adapter that is pulled out does: a console that has it open
  // finds that its line has hung up. The fault "vanish" does the same.
  void Unplug();
  // Makes a device again where it has vanished, most often under another name. Throws
  // std::system_error when the system gives none.
  void PlugIn();

  // A person's hand, at this moment. False where a hand could not do it; see PrinterModel.
  bool InsertCard();
  bool PullOutCard();
  void SetPower(bool on);

  // This moment, for what the model tells of a moment.
  Moment Now() const;

 signals:
  // What has gone over the line, as it was read or written.
  void Received(const QByteArray& bytes);
  void Sent(const QByteArray& bytes);
  // The device has vanished, or is there again.
  void DeviceChanged();
  // Something visible of the model may have changed.
  void Changed();

 private:
  void Open();
  void ReadLine();
  // Tells the model at what speed the console talks now.
  void TellSpeed();
  void Write(const Bytes& chunk);
  // Has the timer go off when the model next needs a call.
  void Schedule();

  PrinterModel& model_;
  std::optional<PseudoTerminal> terminal_;
  QElapsedTimer clock_;
  QTimer due_;
  QTimer exclusive_use_;
  std::unique_ptr<QSocketNotifier> readable_;
};

}  // namespace vantrel
