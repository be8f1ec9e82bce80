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

std::string Little(std::uint32_t number, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(number >> (8 * i) & 0xFF);
  return text;
}

std::string Big(std::uint32_t number) {
  const std::string little = Little(number, 4);
  return {little.rbegin(), little.rend()};
}

std::string Padded(std::string text) {
  while (text.size() % 4 != 0) text += '\0';
  return text;
}

std::string Option(std::uint32_t code, std::string_view value) {
  return Little(code, 2) + Little(static_cast<std::uint32_t>(value.size()), 2) +
         Padded(std::string(value));
}

std::string FileText(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

CaptureBytes::CaptureBytes() {
  AddBlock(0x0A0D0D0A,
           Little(0x1A2B3C4D, 4) + Little(1, 2) + Little(0, 2) + std::string(8, '\xFF'));
}

void CaptureBytes::AddInterface(std::uint16_t link_type, std::string_view description) {
  // Options: name, description, times in microseconds.
  AddBlock(1, Little(link_type, 2) + Little(0, 2) + Little(0, 4) + Option(2, "/dev/pts/7") +
                  Option(3, description) + Option(9, "\x06") + Option(0, ""));
}

void CaptureBytes::AddPacket(std::uint32_t interface, std::uint8_t event, std::string_view bytes) {
  AddBare(interface, Big(1795266005) + Big(packets_) + static_cast<char>(event) +
                         std::string(3, '\0') + std::string(bytes));
}

void CaptureBytes::AddBare(std::uint32_t interface, std::string_view bytes) {
  // 1795266005 seconds (2026-11-21 13:00:05) in microseconds, and one more a packet.
  const std::uint64_t time = 1795266005000000ULL + packets_++;
  const auto length = static_cast<std::uint32_t>(bytes.size());
  AddBlock(6, Little(interface, 4) + Little(static_cast<std::uint32_t>(time >> 32), 4) +
                  Little(static_cast<std::uint32_t>(time & 0xFFFFFFFF), 4) + Little(length, 4) +
                  Little(length, 4) + Padded(std::string(bytes)));
}

void CaptureBytes::AddBlock(std::uint32_t type, std::string body) {
  const std::string length = Little(static_cast<std::uint32_t>(body.size() + 12), 4);
  bytes_ += Little(type, 4) + length + std::move(body) + length;
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
