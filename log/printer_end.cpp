// SPDX-License-Identifier: MIT

#include "log/printer_end.h"

#include "log/serial_printer_end.h"
#include "log/tcp_printer_end.h"
#include "protocol/tcp_address.h"

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string_view>

namespace vantrel::log {

std::unique_ptr<PrinterEnd> OpenPrinter(const std::string& device) {
  constexpr std::string_view kTcp = "tcp:";
  if (!device.starts_with(kTcp)) return std::make_unique<SerialPrinterEnd>(device);
  try {
    const auto address =
        protocol::ParseTcpAddress(std::string_view(device).substr(kTcp.size()), "");
    return std::make_unique<TcpPrinterEnd>(address);
  } catch (const std::invalid_argument& error) {
    throw std::runtime_error(error.what());
  }
}

std::string DeviceErrorInWords(const std::string& device, int error) {
  switch (error) {
    case ENOENT:
    case ENXIO:
      return "There is no device " + device + ".";
    case EACCES:
    case EPERM:
      return "There is no permission to use the device " + device + ".";
    case EBUSY:
      return "The device " + device + " is in use by another program.";
    case ENOTTY:
      return device + " is no serial device.";
    default:
      return "The device " + device + " cannot be used: " + std::strerror(error) + ".";
  }
}

}  // namespace vantrel::log
