// SPDX-License-Identifier: MIT

#include "link/transaction.h"

#include "link/frame.h"
#include "link/reply.h"
#include "link/status_text.h"

#include <algorithm>
#include <utility>

namespace vantrel::link {
namespace {

constexpr int kPollingInterval = 10;  // milliseconds

}  // namespace

// Counts a call in and out, however it ends.
class Transaction::Call {
 public:
  explicit Call(Transaction& transaction)
      : transaction_(transaction), depth_(++transaction.depth_) {}
  ~Call() {
    --transaction_.depth_;
    transaction_.abandoned_depth_ = std::min(transaction_.abandoned_depth_, transaction_.depth_);
  }
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;
  int Depth() const { return depth_; }

 private:
  Transaction& transaction_;
  const int depth_;  // 1 for the outermost call
};

Transaction::Transaction(Port& port, Display& display, Clock& clock, CodePage page)
    : port_(port), display_(display), clock_(clock), page_(page) {
  port_.SetListener(this);
  clock_.SetListener(this);
}

Transaction::~Transaction() {
  port_.SetListener(nullptr);
  clock_.SetListener(nullptr);
}

void Transaction::SendCommand(std::string_view frame, int time_limit) {
  const Call call(*this);
  SetBusy(true);
  try {
    Exchange(frame, time_limit, call.Depth());
  } catch (const PortError&) {
    port_.Close();
    SetBusy(false);
    throw;
  } catch (const ExchangeEnded&) {
    SetBusy(false);
    throw;
  }
  SetBusy(false);
}

void Transaction::Exchange(std::string_view frame, int time_limit, int depth) {
  // A reply in time leaves the timer running; it may fire until this command stops it. TimeUp is
  // cleared only after events have run once more, so a late tick cannot end the new command.
  clock_.Stop(Timer::TimeOut);
  clock_.Yield();
  ThrowIfAbandoned(depth);
  display_.SetText(Field::TxtCommand, "");
  display_.SetText(Field::TxtSyntax, "");
  display_.SetText(Field::TxtResponse, "");
  receive_buffer_.clear();
  port_.DiscardInput();

  display_.SetText(Field::TxtSyntax, SpacedPairs(frame));
  if (frame.size() > 2) display_.SetText(Field::TxtCommand, std::string(frame.substr(2, 2)));

  time_up_ = false;
  clock_.Start(Timer::TimeOut, time_limit);
  clock_.Yield();
  ThrowIfAbandoned(depth);

  Write(BytesOf(frame), depth);

  while (!time_up_) {
    Delay(kPollingInterval, depth);
    switch (JudgeReply(receive_buffer_, frame)) {
      case Judgement::kWait:
        break;
      case Judgement::kComplete:
        ShowReply();
        return;
      case Judgement::kReject:
        display_.SetText(Field::TxtResponse, "&H10: Reject Response");
        return;
      case Judgement::kResend:
        receive_buffer_.clear();
        for (std::size_t i = 0; i < frame.size(); i += 2)
          Write({static_cast<std::uint8_t>(HexPair(frame, i))}, depth);
        display_.SetText(Field::TxtResponse, "&H15: Resend Request");
        break;
      case Judgement::kUnknown:
        display_.SetText(Field::TxtResponse, "Unknown Control Character code: " + receive_buffer_);
        return;
    }
  }
  display_.SetText(Field::TxtResponse, "Time up! " + display_.Text(Field::TxtResponse));
}

void Transaction::Write(const Bytes& bytes, int depth) {
  const bool was_open = port_.IsOpen();
  try {
    port_.Output(bytes);
  } catch (const PortError&) {
    // This call reports it; those around it would wait for a port that is closed now.
    if (was_open) abandoned_depth_ = std::max(abandoned_depth_, depth - 1);
    throw;
  }
}

void Transaction::ShowReply() {
  display_.SetText(Field::TxtResponse, "");
  if (receive_buffer_.size() < 6) return;
  GetStatusText(ReplyLabel(std::string_view(receive_buffer_).substr(4, 2)));
  display_.SetText(Field::TxtResponse, SpacedPairs(std::string_view(receive_buffer_).substr(2)));
}

void Transaction::GetStatusText(std::string_view label) {
  display_.SetText(Field::LblHints, display_.Text(Field::LblHints) + "\r\n" +
                                        ReplyMeaning(label, receive_buffer_, page_));
}

void Transaction::SetBusy(bool busy) {
  display_.EnableCommandButtons(!busy);
  if (busy) return;
  display_.SetText(Field::Panel1, "");
  display_.SetText(Field::Panel2, "");
}

void Transaction::Delay(int milliseconds, int depth) {
  clock_.Start(Timer::WaitTimer, milliseconds);
  wait_done_ = false;
  while (!wait_done_) {
    clock_.WaitForEvents();
    ThrowIfAbandoned(depth);
  }
}

void Transaction::ThrowIfAbandoned(int depth) {
  if (depth > abandoned_depth_) return;
  if (!loss_) throw ExchangeEnded();
  throw PortError(*std::exchange(loss_, std::nullopt));
}

void Transaction::Abandon() {
  loss_.reset();
  abandoned_depth_ = depth_;
}

void Transaction::OnComm(int event_code) {
  if (event_code == kReceive) receive_buffer_ += HexTextOf(port_.Input());
  // A byte that arrives between the read and the discard is lost; this order is meant.
  port_.DiscardInput();
  port_.DiscardOutput();
}

void Transaction::OnLost(const PortError& error) {
  if (depth_ == 0) return display_.ShowLoss(error);
  // The innermost call reports the loss; those around it end without a word.
  loss_ = error;
  abandoned_depth_ = depth_;
}

void Transaction::OnTick(Timer timer) {
  if (timer == Timer::TimeOut)
    time_up_ = true;
  else
    wait_done_ = true;
}

}  // namespace vantrel::link
