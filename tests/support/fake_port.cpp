// SPDX-License-Identifier: MIT

#include "tests/support/fake_port.h"

#include <utility>

namespace vantrel::support {

void FakePort::Receive(std::string_view hex) {
  if (!is_open_) return;
  ReceiveUnnoticed(hex);
  Notify(link::PortListener::kReceive);
}

void FakePort::ReceiveUnnoticed(std::string_view hex) {
  const link::Bytes bytes = link::BytesOf(hex);
  input_.insert(input_.end(), bytes.begin(), bytes.end());
}

void FakePort::Notify(int event_code) {
  if (listener_ != nullptr) listener_->OnComm(event_code);
}

void FakePort::Lose() {
  Close();
  if (listener_ != nullptr) listener_->OnLost(link::DeviceGone(Name(), "Input/output error"));
}

void FakePort::Open() {
  if (refuses_open_)
    throw link::CannotOpen(Name(), link::OpenFailure::kNotFound, "No such file or directory", "");
  is_open_ = true;
  input_.clear();
  openings_.push_back(Name() + " " + settings_);
  Note(log_, "Open " + openings_.back());
}

void FakePort::Close() {
  if (!is_open_) return;
  is_open_ = false;
  input_.clear();
  ++closings_;
  Note(log_, "Close");
}

link::Bytes FakePort::Input() {
  Note(log_, "Input");
  return std::exchange(input_, {});
}

void FakePort::DiscardInput() {
  if (!is_open_) return;
  input_.clear();
  ++input_discards_;
  Note(log_, "DiscardInput");
}

void FakePort::DiscardOutput() {
  if (!is_open_) return;
  ++output_discards_;
  Note(log_, "DiscardOutput");
}

void FakePort::Output(const link::Bytes& bytes) {
  if (!is_open_) throw link::NotOpen(Name());
  if (++write_attempts_ == failing_write_) throw link::WriteFailed(Name(), "Input/output error");
  writes_.push_back(link::HexTextOf(bytes));
  Note(log_, "Output " + writes_.back());
  if (when_written_) when_written_(writes_.back());
}

}  // namespace vantrel::support
