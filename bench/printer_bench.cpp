// SPDX-License-Identifier: MIT

// What does the software printer cost whoever tests with it: exchanges a second on a
// pseudo-terminal, on TCP and on a Unix socket; the time from start to first line; the memory after
// many exchanges (a million, or as many as the first argument tells; with 0 that and the exchanges
// a second are left out); and printers side by side, each started, used and ended.

#include "link/unique_descriptor.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <signal.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace vantrel::bench {
namespace {

using SteadyClock = std::chrono::steady_clock;
using link::UniqueDescriptor;

double MillisecondsSince(SteadyClock::time_point start) {
  return std::chrono::duration<double, std::milli>(SteadyClock::now() - start).count();
}

void Require(bool success, const char* what) {
  if (success) return;
  std::perror(what);
  std::exit(EXIT_FAILURE);
}

// A printer without a window, whose input and output are pipes.
class Printer {
 public:
  explicit Printer(std::vector<std::string> options) {
    std::array<int, 2> input{};
    std::array<int, 2> output{};
    Require(pipe2(input.data(), O_CLOEXEC) == 0 && pipe2(output.data(), O_CLOEXEC) == 0, "pipe");
    input_.Reset(input[1]);
    output_.Reset(output[0]);
    const UniqueDescriptor its_input(input[0]);
    const UniqueDescriptor its_output(output[1]);
    options.insert(options.begin(), {VANTREL_PRINTER_PROGRAM, "--headless", "--instant"});
    std::vector<char*> arguments;
    arguments.reserve(options.size() + 1);
    for (std::string& option : options) arguments.push_back(option.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, its_input.Get(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, its_output.Get(), STDOUT_FILENO);
    Require(posix_spawn(&process_, VANTREL_PRINTER_PROGRAM, &actions, nullptr, arguments.data(),
                        environ) == 0,
            "start");
    posix_spawn_file_actions_destroy(&actions);
    char character = 0;
    while (read(output_.Get(), &character, 1) == 1 && character != '\n') address_ += character;
  }
  ~Printer() {
    if (process_ > 0) kill(process_, SIGTERM);
    Wait();
  }
  Printer(const Printer&) = delete;
  Printer& operator=(const Printer&) = delete;

  const std::string& Address() const { return address_; }
  // Ends the input of its script, and waits for its end.
  void End() {
    input_.Reset();
    Wait();
  }
  // In kilobytes.
  long Memory() const {
    std::ifstream status("/proc/" + std::to_string(process_) + "/status");
    std::string word;
    long kilobytes = 0;
    while (status >> word) {
      if (word == "VmRSS:") status >> kilobytes;
    }
    return kilobytes;
  }

 private:
  void Wait() {
    if (process_ > 0) waitpid(process_, nullptr, 0);
    process_ = -1;
  }

  pid_t process_ = -1;
  UniqueDescriptor input_;
  UniqueDescriptor output_;
  std::string address_;
};

UniqueDescriptor OnDevice(const std::string& device) {
  UniqueDescriptor line(open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
  Require(line.IsOpen(), "device");
  return line;
}

template <typename Address>
UniqueDescriptor OnSocket(const Address& address, int family) {
  UniqueDescriptor line(socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0));
  Require(connect(line.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0,
          "connect");
  return line;
}

UniqueDescriptor OnTcp(const std::string& address) {
  sockaddr_in place{};
  place.sin_family = AF_INET;
  place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  place.sin_port =
      htons(static_cast<std::uint16_t>(std::stoi(address.substr(address.find(':') + 1))));
  return OnSocket(place, AF_INET);
}

UniqueDescriptor OnPath(const std::string& path) {
  sockaddr_un place{};
  place.sun_family = AF_UNIX;
  std::strncpy(place.sun_path, path.c_str(), sizeof place.sun_path - 1);
  return OnSocket(place, AF_UNIX);
}

// 5Ah changes nothing; its answer is always the same.
void Exchange(int line) {
  static constexpr std::array<unsigned char, 7> kFrame{0x02, 0x5A, 0x20, 0x31, 0x20, 0x03, 0x68};
  static constexpr std::size_t kAnswer = 6;
  Require(write(line, kFrame.data(), kFrame.size()) == static_cast<ssize_t>(kFrame.size()),
          "write");
  std::array<unsigned char, 16> answer{};
  for (std::size_t got = 0; got < kAnswer;) {
    const ssize_t count = read(line, answer.data() + got, answer.size() - got);
    Require(count > 0, "read");
    got += static_cast<std::size_t>(count);
  }
}

void Measure(const char* name, int line) {
  constexpr int kExchanges = 20000;
  const auto start = SteadyClock::now();
  for (int i = 0; i < kExchanges; ++i) Exchange(line);
  std::printf("%-16s %8.0f exchanges a second\n", name,
              kExchanges * 1000 / MillisecondsSince(start));
}

void MeasureLines() {
  {
    const Printer printer({});
    Measure("pseudo-terminal", OnDevice(printer.Address()).Get());
  }
  {
    const Printer printer({"--tcp", "0"});
    Measure("TCP", OnTcp(printer.Address()).Get());
  }
  const std::string path = "/tmp/vantrel-bench-" + std::to_string(getpid());
  const Printer printer({"--socket", path});
  Measure("Unix socket", OnPath(path).Get());
}

void MeasureStart() {
  std::vector<double> times;
  for (int i = 0; i < 20; ++i) {
    const auto start = SteadyClock::now();
    const Printer printer({});
    times.push_back(MillisecondsSince(start));
  }
  std::sort(times.begin(), times.end());
  std::printf("start to first line, ms: min %.1f  median %.1f  max %.1f\n", times.front(),
              times[times.size() / 2], times.back());
}

// With a script the log is kept, without one it is not.
void MeasureMemory(const char* name, const std::vector<std::string>& options, long exchanges) {
  const Printer printer(options);
  const UniqueDescriptor line = OnDevice(printer.Address());
  Exchange(line.Get());
  const long before = printer.Memory();
  for (long i = 0; i < exchanges; ++i) Exchange(line.Get());
  std::printf("memory %s: %ld KB at the start, %ld KB after %ld exchanges\n", name, before,
              printer.Memory(), exchanges);
}

// From before the start to after the end: its first line is read, a command is answered, and the
// input of its script ends.
double UseOne() {
  const auto start = SteadyClock::now();
  Printer printer({"--script"});
  Exchange(OnDevice(printer.Address()).Get());
  printer.End();
  return MillisecondsSince(start);
}

// Processor time of all printers that have ended, in milliseconds.
double ProcessorTimeOfPrinters() {
  rusage used{};
  getrusage(RUSAGE_CHILDREN, &used);
  const auto milliseconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
  };
  return milliseconds(used.ru_utime) + milliseconds(used.ru_stime);
}

void MeasureSideBySide() {
  constexpr std::size_t kPrinters = 20;
  std::vector<double> alone;
  for (std::size_t i = 0; i < kPrinters; ++i) alone.push_back(UseOne());
  std::sort(alone.begin(), alone.end());
  std::printf("one printer after the other, started, used, ended, ms: median %.1f  max %.1f\n",
              alone[kPrinters / 2], alone.back());
  for (int round = 0; round < 5; ++round) {
    std::array<double, kPrinters> times{};
    std::vector<std::thread> threads;
    threads.reserve(kPrinters);
    const double processor = ProcessorTimeOfPrinters();
    const auto start = SteadyClock::now();
    for (double& time : times) threads.emplace_back([&time] { time = UseOne(); });
    for (std::thread& thread : threads) thread.join();
    const double all = MillisecondsSince(start);
    std::sort(times.begin(), times.end());
    std::printf(
        "%zu side by side, ms: median %.1f  max %.1f; all in %.1f; processor time of each %.2f\n",
        kPrinters, times[kPrinters / 2], times.back(), all,
        (ProcessorTimeOfPrinters() - processor) / kPrinters);
  }
}

void Run(long exchanges) {
  if (exchanges > 0) MeasureLines();
  MeasureStart();
  MeasureSideBySide();
  if (exchanges <= 0) return;
  MeasureMemory("without a log", {}, exchanges);
  MeasureMemory("with a log", {"--script"}, exchanges);
}

}  // namespace
}  // namespace vantrel::bench

int main(int argc, char** argv) {
  constexpr long kMillion = 1000000;
  vantrel::bench::Run(argc > 1 ? std::strtol(argv[1], nullptr, 10) : kMillion);
  return 0;
}
