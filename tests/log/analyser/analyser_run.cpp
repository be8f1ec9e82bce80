// SPDX-License-Identifier: MIT

#include "tests/log/analyser/analyser_run.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace vantrel::log {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kStart = 1795266005;  // 2026-11-21 13:00:05

std::string FileText(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

WrittenCapture::WrittenCapture() : bytes_(make_.Section()) {}

void WrittenCapture::AddInterface(std::uint16_t link_type, std::string_view description) {
  // Options: name, description, times in microseconds.
  bytes_ += make_.Interface(link_type, make_.Option(2, "/dev/pts/7") +
                                           make_.Option(3, std::string(description)) +
                                           make_.Option(9, "\x06") + make_.Option(0, ""));
}

void WrittenCapture::AddPacket(std::uint32_t interface, std::uint8_t event,
                               std::string_view bytes) {
  // The header is big-endian in every file.
  const CaptureBytes header(true);
  AddBare(interface, header.Number(kStart, 4) + header.Number(packets_, 4) +
                         header.Number(event, 1) + std::string(3, '\0') + std::string(bytes));
}

void WrittenCapture::AddBare(std::uint32_t interface, std::string_view bytes) {
  bytes_ += make_.Packet(interface, kStart * 1000000 + packets_++, std::string(bytes));
}

AnalyserHome::AnalyserHome() : folder_(fs::path(testing::TempDir()) / "analyser-test-XXXXXX") {
  if (mkdtemp(folder_.data()) == nullptr) throw std::runtime_error("no folder");
  const fs::path plugins = Path(".local/lib/wireshark/plugins");
  fs::create_directories(plugins);
  fs::copy_file(ANALYSER_PLUGIN, plugins / "vantrel.lua");
}

AnalyserHome::~AnalyserHome() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

std::string AnalyserHome::Path(const std::string& name) const {
  return name.empty() ? folder_ : folder_ + "/" + name;
}

void AnalyserHome::Write(const std::string& name, const std::string& bytes) const {
  std::ofstream(Path(name), std::ios::binary) << bytes;
}

AnalyserRun AnalyserHome::Run(const std::string& command) const {
  const std::string whole = "cd '" + folder_ + "' && export HOME='" + folder_ +
                            "' XDG_CONFIG_HOME= XDG_DATA_HOME= LC_ALL=C && (" + command +
                            ") >out 2>err";
  EXPECT_EQ(std::system(whole.c_str()), 0) << FileText(Path("err"));
  AnalyserRun run;
  std::istringstream errors(FileText(Path("err")));
  for (std::string line; std::getline(errors, line);) {
    // That tshark itself warns of, whatever it reads.
    if (!line.empty() && !line.starts_with("Running as user \"root\"")) run.errors += line + '\n';
  }
  std::istringstream out(FileText(Path("out")));
  for (std::string line; std::getline(out, line);) run.lines.push_back(line);
  return run;
}

AnalyserRun RunAnalyser(const std::string& capture, const std::string& arguments) {
  const AnalyserHome home;
  home.Write("line.pcapng", capture);
  return home.Run("tshark -r line.pcapng " + arguments);
}

}  // namespace vantrel::log
