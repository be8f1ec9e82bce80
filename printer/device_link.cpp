#include "printer/device_link.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace vantrel {
namespace {

namespace fs = std::filesystem;

bool LeadsTo(const std::string& path, const std::string& device) {
  std::error_code error;
  return fs::read_symlink(path, error) == device && !error;
}

bool IsDangling(const std::string& path) {
  std::error_code error;
  return fs::is_symlink(fs::symlink_status(path, error)) &&
         fs::status(path, error).type() == fs::file_type::not_found;
}

}  // namespace

DeviceLink::DeviceLink(std::string path, std::string device)
    : path_(std::move(path)), device_(std::move(device)) {
  std::error_code error;
  const fs::file_status there = fs::symlink_status(path_, error);
  if (there.type() != fs::file_type::not_found && fs::exists(there)) {
    if (!LeadsTo(path_, device_) && !IsDangling(path_))
      throw std::runtime_error("The link " + path_ +
                               " was not made: there is something of that name already.");
    fs::remove(path_, error);
  }
  error.clear();
  fs::create_symlink(device_, path_, error);
  if (error)
    throw std::runtime_error("The link " + path_ + " was not made: " + error.message() + ".");
}

DeviceLink::~DeviceLink() {
  std::error_code error;
  if (LeadsTo(path_, device_)) fs::remove(path_, error);
}

}  // namespace vantrel
