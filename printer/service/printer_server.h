// SPDX-License-Identifier: MIT
#pragma once

#include "printer/line/pseudo_terminal.h"
#include "printer/model/printer_model.h"
#include "protocol/line_end.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>
#include <string>

namespace vantrel::printer {

// Serves a printer model on a line of its own, from the event loop of its thread, from construction
// to destruction.
class PrinterServer : public QObject {
  Q_OBJECT

 public:
  // Makes the printer's end of a line; throws std::runtime_error when the system gives none.
  using LineMaker = std::function<std::unique_ptr<protocol::LineEnd>()>;

  // Tells this moment; it never goes back.
  using Clock = std::function<protocol::Moment()>;

  // `model` must outlive the server, which makes itself its sink and listener. `make_line` is
  // called at once and whenever the device is plugged in again; what it throws is thrown on. Time
  // is counted from construction where no clock is handed in.
  explicit PrinterServer(PrinterModel& model, LineMaker make_line = MakePseudoTerminal,
                         Clock clock = {}, QObject* parent = nullptr);
  ~PrinterServer() override;

  // Where a console finds the line, "/dev/pts/7"; empty while it is unplugged.
  std::string DevicePath() const { return line_ ? line_->Address() : std::string(); }

  // Makes the device vanish, as an adapter that is pulled out does: a console that has it open
  // finds that its line has hung up. The fault "vanish" does the same. False when it has vanished
  // already.
  bool Unplug();
  // Makes a device again where it has vanished, most often under another name. False where it is
  // there. What making the line throws is thrown on.
  bool PlugIn();

  // Takes what has come over the line by now, and nothing that comes later.
  void HearNoMore();
  // Whether the console has taken all that was sent, as far as can be told.
  bool IsTaken() const { return !line_ || line_->IsTaken(); }

  // A person's hand, at this moment. False where a hand could not do it; see PrinterModel.
  bool InsertCard();
  bool PullOutCard();
  bool PressCleaningButton();
  void SetPower(bool on);

  // This moment, for what the model tells of a moment.
  protocol::Moment Now() const;

 signals:
  // What has gone over the line: what the printer has heard of the console, frame by frame, at that
  // moment (see Now), and what was written.
  void Received(const QByteArray& bytes, vantrel::protocol::Moment when);
  void Sent(const QByteArray& bytes);
  // The device has vanished, or is there again.
  void DeviceChanged();
  // An answer to a command has left whole; see PrinterModel::OnAnswered. Comes after Sent.
  void Answered(const vantrel::printer::Answered& answer);
  // A fault strikes the frame that was received last; told with what it does, see StruckInWords.
  void Struck(const QString& fault);
  // There is something else to remark on the frame that was received last.
  void Remarked(const QString& remark);
  // Something visible of the model may have changed.
  void Changed();

 private:
  void Open();
  // Whether there was anything to read.
  bool ReadLine();
  // Tells the model at what speed the console talks now.
  void TellSpeed();
  void Write(const link::Bytes& chunk);
  // Has the timer go off when the model next needs a call.
  void Schedule();

  PrinterModel& model_;
  LineMaker make_line_;
  std::unique_ptr<protocol::LineEnd> line_;
  // Whether the line took all of the last chunk.
  bool sent_whole_ = false;
  bool hears_ = true;
  Clock clock_;
  QElapsedTimer elapsed_;
  QTimer due_;
  QTimer exclusive_use_;
  std::unique_ptr<QSocketNotifier> readable_;
};

}  // namespace vantrel::printer
