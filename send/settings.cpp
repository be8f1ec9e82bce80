// SPDX-License-Identifier: MIT

#include "send/settings.h"

#include "link/port.h"
#include "send/line_port.h"

#include <initializer_list>
#include <utility>

namespace vantrel::send {
namespace {

using commandline::Parsed;
using commandline::WrongUse;

void CheckTogether(const Parsed& parsed) {
  static constexpr std::initializer_list<std::pair<const char*, const char*>> kExclusive = {
      {"json", "quiet"},        {"repeat", "until-failure"},
      {"repeat", "keep-going"}, {"until-failure", "keep-going"},
      {"dry-run", "repeat"},    {"dry-run", "until-failure"},
      {"dry-run", "report"},    {"dry-run", "capture"},
  };
  for (const auto& [one, other] : kExclusive)
    if (parsed.Has(one) && parsed.Has(other))
      throw WrongUse(std::string("--") + one + " and --" + other + " exclude each other.");
  const bool from_input = parsed.Command()->name == "-";
  for (const char* option : {"keep-going", "from"})
    if (parsed.Has(option) && !from_input)
      throw WrongUse(std::string("--") + option + " is for commands from standard input, -.");
  if (parsed.Has("data") && from_input)
    throw WrongUse("--data is for one command; a line of standard input may carry its own.");
}

std::string Address(const Parsed& parsed) {
  if (!parsed.Has("port")) return link::SystemDevice(1);
  std::string address = parsed.Value("port");
  if (address.empty()) throw WrongUse("--port needs a device, or tcp:HOST:PORT.");
  if (address.starts_with("tcp:") && !IsTcpAddress(address))
    throw WrongUse("--port is a device, or tcp:HOST:PORT with a port from 1 to 65535, not '" +
                   address + "'.");
  return address;
}

}  // namespace

Settings ReadSettings(const Parsed& parsed) {
  CheckTogether(parsed);
  Settings settings;
  settings.address = Address(parsed);
  settings.speed = parsed.Number("speed");
  if (parsed.Has("json")) settings.format = Format::kJson;
  if (parsed.Has("quiet")) settings.format = Format::kQuiet;
  settings.dry_run = parsed.Has("dry-run");
  settings.from_input = parsed.Command()->name == "-";
  settings.keep_going = parsed.Has("keep-going");
  if (parsed.Has("repeat")) settings.rounds = parsed.Number("repeat");
  settings.until_failure = parsed.Has("until-failure");
  settings.wear = parsed.Has("wear");
  settings.continues = parsed.Has("from");
  if (settings.continues) settings.from = parsed.Number("from");
  settings.report = parsed.Value("report");
  settings.capture = parsed.Value("capture");
  for (const char* option : {"report", "capture"})
    if (parsed.Has(option) && parsed.Value(option).empty())
      throw WrongUse(std::string("--") + option + " needs a file.");
  if (!settings.report.empty() && settings.report == settings.capture)
    throw WrongUse("--report and --capture need a file each.");
  return settings;
}

void CheckWear(const Job& job, const Settings& settings) {
  if (settings.IsMany() && !settings.wear && WearsMemory(job.code))
    throw WrongUse("Command " + job.code +
                   " wears the printer's memory; among many commands it needs --wear.");
}

}  // namespace vantrel::send
