// SPDX-License-Identifier: MIT

#include "link/port.h"
#include "log/serial_printer_end.h"
#include "send/connection.h"

#include <stdexcept>

namespace vantrel::send {
namespace {

using link::PortError;

class SerialConnection : public Connection {
 public:
  explicit SerialConnection(const std::string& device) : device_(device) {}

  int Descriptor() const override { return device_.Descriptor(); }
  std::string GoneInWords() const override { return "The device " + device_.Name() + " is gone."; }
  bool SetSpeed(int speed) override { return device_.TakeSpeed(speed); }

 private:
  log::SerialPrinterEnd device_;
};

}  // namespace

std::unique_ptr<Connection> OpenSerial(const std::string& device, int speed) {
  std::unique_ptr<Connection> connection;
  try {
    connection = std::make_unique<SerialConnection>(device);
  } catch (const std::runtime_error& error) {
    throw PortError(error.what());
  }
  if (!connection->SetSpeed(speed))
    throw PortError("The device " + device + " does not take the speed " + std::to_string(speed) +
                    ".");
  return connection;
}

}  // namespace vantrel::send
