// SPDX-License-Identifier: MIT
#pragma once

#include "console/frm_vantrel.h"
#include "link/serial_port.h"
#include "tests/support/missing_device.h"
#include "tests/support/pty_peer.h"
#include "tests/support/scripted_dialogs.h"

#include <QDialog>
#include <QPushButton>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantrel::support {

// A port of the system that counts how often it is closed, by Open too.
class CountingPort : public link::SerialPort {
 public:
  using SerialPort::SerialPort;
  void Close() override {
    ++closings;
    SerialPort::Close();
  }
  int closings = 0;
};

// A case with the whole console on a real pseudo-terminal, whose other end the case drives. Boxes
// are scripted.
class ConsoleTest : public testing::Test {
 protected:
  ConsoleTest();
  ~ConsoleTest() override;

  // Makes and shows the console; port 1 is the peer's device, port 2 `second_device`.
  void Load();
  // Clicks a button with the mouse; returns when its handler has ended.
  void Press(const char* name);
  // Chooses a menu entry.
  void Choose(const char* name);
  // Runs `act` from the event loop as soon as `condition` holds there.
  void Once(std::function<bool()> condition, std::function<void()> act);
  // Lets every frame be answered with a good reply that carries `data_hex`.
  void AnswerAll(const std::string& data_hex = "", const std::string& status = "20");

  // Runs `act` on the editing form that opens next, once it is shown. It must close the form.
  void OnForm(std::function<void(QDialog& form)> act);

  // Clicks a button or an option of an editing form with the mouse.
  static void Click(QDialog& form, const char* name);
  // Empties a text box with the Delete key, the only one that takes digits away, and types.
  static void Type(QDialog& form, const char* name, const char* text);
  // Clicks a dot of a grid with the mouse.
  static void ClickDot(QDialog& form, const char* grid_name, int index);

  QPushButton* Button(const char* name);
  // The text of a label or text box.
  std::string Text(const char* name);
  bool IsChecked(const char* entry);
  // The frames that the peer has received.
  const std::vector<std::string>& Frames() const { return peer_.Frames(); }

  PtyPeer peer_;
  ScriptedDialogs dialogs_;
  std::string first_device_ = peer_.Device();
  std::string second_device_ = MissingDevice();
  CountingPort port_;
  std::unique_ptr<console::FrmVantrel> form_;
  int end_status_ = -1;  // the status with which the console ended the program
};

}  // namespace vantrel::support
