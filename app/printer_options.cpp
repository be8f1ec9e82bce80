// SPDX-License-Identifier: MIT

#include "app/printer_options.h"

#include "commandline/parse.h"
#include "protocol/line_speed.h"

#include <charconv>
#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string_view>

namespace vantrel::app {
namespace {

using commandline::Parsed;
using commandline::WrongUse;
using protocol::kHighestSpeed;
using protocol::kLowestSpeed;
using protocol::TcpAddress;

// What the table cannot see: paths that are empty and options that do not go together.
void Check(const Parsed& parsed) {
  if (parsed.Has("link") && parsed.Value("link").empty())
    throw WrongUse("--link needs the path of the link to make.");
  if (parsed.Has("capture") && parsed.Value("capture").empty())
    throw WrongUse("--capture needs the file to write.");
  if (parsed.Has("log") && parsed.Value("log").empty())
    throw WrongUse("--log needs the file to write.");
  if (parsed.Value("log").ends_with(".pcapng"))
    throw WrongUse("--log writes text or CSV; --capture writes captures.");
  if (parsed.Has("log-limit") && !parsed.Has("log")) throw WrongUse("--log-limit needs --log.");
  if (parsed.Has("through") && parsed.Value("through").empty())
    throw WrongUse("--through needs the device of the printer.");
  if (parsed.Has("socket") && parsed.Value("socket").empty())
    throw WrongUse("--socket needs the path of the socket to make.");
  if (parsed.Has("tcp") && parsed.Has("socket"))
    throw WrongUse("--tcp and --socket do not go together: a printer has one line.");
  for (const char* option : {"tcp", "socket"}) {
    if (parsed.Has("link") && parsed.Has(option))
      throw WrongUse(std::string("--link has no meaning with --") + option +
                     ": there is no device to link to.");
  }
  if (parsed.Has("geometry") && parsed.Has("headless"))
    throw WrongUse("--geometry has no meaning with --headless: there is no window.");
  if (parsed.Has("script") && !parsed.Has("headless")) throw WrongUse("--script needs --headless.");
  if (parsed.Has("json") && !parsed.Has("script")) throw WrongUse("--json needs --script.");
  if (parsed.Has("replay") && parsed.Value("replay").empty())
    throw WrongUse("--replay needs the capture to play back.");
  if (parsed.Has("match") && !parsed.Has("replay")) throw WrongUse("--match needs --replay.");
  for (const char* option : {"card", "series", "speed", "no-pacing", "case-parts", "code-page"}) {
    if (parsed.Has("replay") && parsed.Has(option))
      throw WrongUse(std::string("--") + option +
                     " has no meaning with --replay: there the printer of the capture answers.");
  }
  for (const char* option : {"script", "card", "instant", "series", "speed", "no-pacing",
                             "case-parts", "code-page", "replay"}) {
    if (parsed.Has("through") && parsed.Has(option))
      throw WrongUse(std::string("--") + option +
                     " has no meaning with --through: there the real printer answers.");
  }
}

printer::Series SeriesIn(const std::string& text) {
  if (text != "ql7" && text != "ql8") throw WrongUse("--series is ql7 or ql8.");
  return text == "ql8" ? printer::Series::kQl8 : printer::Series::kQl7;
}

// That of the system's language where none is told.
link::CodePage CodePageIn(const std::string& text) {
  const auto told = text.empty() ? std::nullopt : link::CodePageOfNumber(std::stoi(text));
  return told.value_or(link::SystemCodePage());
}

int SpeedIn(const std::string& text) {
  int speed = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), speed);
  if (error != std::errc() || end != text.data() + text.size() || speed < kLowestSpeed ||
      speed > kHighestSpeed) {
    throw WrongUse("--speed needs a number from " + std::to_string(kLowestSpeed) + " to " +
                   std::to_string(kHighestSpeed) + ".");
  }
  return speed;
}

WindowPlace PlaceIn(const std::string& text) {
  WindowPlace place;
  int length = 0;
  const int read = std::sscanf(text.c_str(), "%5dx%5d+%5d+%5d%n", &place.width, &place.height,
                               &place.x, &place.y, &length);
  if (read != 4 || static_cast<std::size_t>(length) != text.size() || place.width < 1 ||
      place.height < 1)
    throw WrongUse("--geometry needs a place such as 1000x700+0+0.");
  return place;
}

// An address that may lack its host where there is a default one.
TcpAddress AddressIn(const char* option, std::string_view text, std::string_view default_host) {
  try {
    return protocol::ParseTcpAddress(text, default_host);
  } catch (const std::invalid_argument& error) {
    throw WrongUse(std::string(option) + ": " + error.what());
  }
}

std::string PrinterIn(const std::string& through) {
  constexpr std::string_view kTcp = "tcp:";
  if (through.starts_with(kTcp))
    AddressIn("--through", std::string_view(through).substr(kTcp.size()), "");
  return through;
}

PrinterOptions OptionsOf(const Parsed& parsed) {
  Check(parsed);
  return {
      .headless = parsed.Has("headless"),
      .script = parsed.Has("script"),
      .json = parsed.Has("json"),
      .card = parsed.Has("card"),
      .instant = parsed.Has("instant"),
      .tcp = parsed.Has("tcp") ? std::optional(AddressIn("--tcp", parsed.Value("tcp"), "127.0.0.1"))
                               : std::nullopt,
      .socket = parsed.Value("socket"),
      .link = parsed.Value("link"),
      .capture = parsed.Value("capture"),
      .log = parsed.Value("log"),
      .log_limit =
          parsed.Has("log-limit") ? std::optional(parsed.Number("log-limit")) : std::nullopt,
      .replay = parsed.Value("replay"),
      .match_code = parsed.Value("match") == "code",
      .through = PrinterIn(parsed.Value("through")),
      .series = SeriesIn(parsed.Value("series")),
      .speed = SpeedIn(parsed.Value("speed")),
      .pacing = !parsed.Has("no-pacing") && !parsed.Has("instant"),
      .case_parts = parsed.Has("case-parts"),
      .geometry =
          parsed.Has("geometry") ? std::optional(PlaceIn(parsed.Value("geometry"))) : std::nullopt,
      .code_page = CodePageIn(parsed.Value("code-page")),
  };
}

}  // namespace

ParsedPrinterOptions ParsePrinterOptions(const commandline::Program& program, int argc,
                                         const char* const* argv) {
  const auto [parsed, end] = commandline::Begin(program, argc, argv, std::cout, std::cerr);
  if (end) return {{}, end};
  try {
    return {OptionsOf(parsed), {}};
  } catch (const WrongUse& error) {
    return {{}, commandline::TellWrongUse(program, error.what(), std::cerr)};
  }
}

}  // namespace vantrel::app
