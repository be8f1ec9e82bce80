// SPDX-License-Identifier: MIT

#include "tests/reliability/line_faults.h"

#include <string_view>
#include <utility>
#include <vector>

namespace vantrel::reliability {
namespace {

std::string CheckOf(const std::string& reply) { return reply.substr(reply.size() - 2); }

std::string WithCheck(const std::string& reply, const std::string& check) {
  return reply.substr(0, reply.size() - 2) + check;
}

std::string Inverted(const std::string& check) { return ExclusiveOr(check + "FF"); }

// Without the byte of that number, counted from the end.
std::string WithoutByteFromTheEnd(std::string reply, std::size_t number) {
  return reply.erase(reply.size() - 2 * number, 2);
}

}  // namespace

std::span<const LineFault> LineFaults() {
  static const std::vector<LineFault> kFaults = {
      {.name = "nothing",
       .strike = [](Line& line) { line.Send(25, line.Good()); },
       .response = "$shown",
       .ending = Ending::kSoon,
       .added = "\r\n$meaning",
       .sender = {"reply", "20h: Normal Status", 0}},
      {.name = "status 38h",
       .strike = [](Line& line) { line.Send(25, line.Jammed()); },
       .response = "$jammed",
       .ending = Ending::kSoon,
       .added = "\r\n$jam",
       .sender = {"reply", "38h: Card jam", 1}},
      {.name = "silence",
       .strike = [](Line&) {},
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "late reply",
       .strike = [](Line& line) { line.Send(line.TimeLimit() - 15, line.Good()); },
       .response = "$shown",
       .ending = Ending::kJustBefore,
       .added = "\r\n$meaning",
       .sender = {"reply", "20h: Normal Status", 0}},
      {.name = "reply at the very end of the limit",
       .strike = [](Line& line) { line.Send(line.TimeLimit(), line.Good()); },
       .response = "$shown",
       .ending = Ending::kLimit,
       .added = "\r\n$meaning",
       .sender = {"reply", "20h: Normal Status", 0}},
      {.name = "reply after the limit",
       .strike = [](Line& line) { line.Send(line.TimeLimit() + 50, line.Good()); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3},
       .block_response = "$shown",
       .block_added = "\r\n$meaning",
       .block_ending = Ending::kAny},
      {.name = "06h alone",
       .strike = [](Line& line) { line.Send(25, "06"); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "06h, and the rest a second later",
       .strike =
           [](Line& line) {
             line.Send(25, "06");
             line.Send(1025, line.Good().substr(2));
           },
       .response = "$shown",
       .ending = Ending::kAny,
       .added = "\r\n$meaning",
       .sender = {"reply", "20h: Normal Status", 0}},
      {.name = "15h once",
       .strike =
           [](Line& line) {
             line.Repetition() < 1 ? line.Send(25, "15") : line.Send(25, line.Good());
           },
       .response = "$shown",
       .ending = Ending::kSoon,
       .added = "\r\n$meaning",
       .sender = {"reply", "20h: Normal Status", 0, 1}},
      {.name = "15h three times",
       .strike =
           [](Line& line) {
             line.Repetition() < 3 ? line.Send(25, "15") : line.Send(25, line.Good());
           },
       .response = "$shown",
       .ending = Ending::kSoon,
       .added = "\r\n$meaning",
       .sender = {"reply", "20h: Normal Status", 0, 3}},
      {.name = "15h for ever",
       .strike = [](Line& line) { line.Send(100, "15"); },
       .response = "Time up! &H15: Resend Request",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up! &H15: Resend Request", 3, kAsLongAsItLasts}},
      {.name = "15h, then silence",
       .strike =
           [](Line& line) {
             if (line.Repetition() == 0) line.Send(25, "15");
           },
       .response = "Time up! &H15: Resend Request",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up! &H15: Resend Request", 3, 1}},
      {.name = "15h with the reply behind it at once",
       .strike =
           [](Line& line) {
             if (line.Repetition() == 0) line.Send(25, "15" + line.Good());
           },
       .response = "Time up! &H15: Resend Request",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up! &H15: Resend Request", 3, 1}},
      {.name = "15h in the last pass of the limit",
       .strike =
           [](Line& line) {
             if (line.Repetition() == 0) line.Send(line.TimeLimit(), "15");
           },
       .response = "Time up! &H15: Resend Request",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up! &H15: Resend Request", 3, 1}},
      {.name = "15h, then a bad check",
       .strike =
           [](Line& line) {
             line.Send(25, line.Repetition() == 0 ? "15" : WithCheck(line.Good(), "FF"));
           },
       .response = "Time up! &H15: Resend Request",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up! &H15: Resend Request", 3, 1}},
      {.name = "15h, then 10h",
       .strike = [](Line& line) { line.Send(25, line.Repetition() == 0 ? "15" : "10"); },
       .response = "&H10: Reject Response",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"reject", "&H10: Reject Response", 4, 1}},
      {.name = "15h, then an unknown control character",
       .strike = [](Line& line) { line.Send(25, line.Repetition() == 0 ? "15" : "07"); },
       .response = "Unknown Control Character code: 07",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: 07", 4, 1}},
      {.name = "10h",
       .strike = [](Line& line) { line.Send(25, "10"); },
       .response = "&H10: Reject Response",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"reject", "&H10: Reject Response", 4}},
      {.name = "10h with the reply behind it at once",
       .strike = [](Line& line) { line.Send(25, "10" + line.Good()); },
       .response = "&H10: Reject Response",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"reject", "&H10: Reject Response", 4}},
      {.name = "unknown control character 00h",
       .strike = [](Line& line) { line.Send(25, "00"); },
       .response = "Unknown Control Character code: 00",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: 00", 4}},
      {.name = "unknown control character 02h",
       .strike = [](Line& line) { line.Send(25, "02"); },
       .response = "Unknown Control Character code: 02",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: 02", 4}},
      {.name = "unknown control character 05h",
       .strike = [](Line& line) { line.Send(25, "05"); },
       .response = "Unknown Control Character code: 05",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: 05", 4}},
      {.name = "unknown control character 07h",
       .strike = [](Line& line) { line.Send(25, "07"); },
       .response = "Unknown Control Character code: 07",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: 07", 4}},
      {.name = "unknown control character 11h",
       .strike = [](Line& line) { line.Send(25, "11"); },
       .response = "Unknown Control Character code: 11",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: 11", 4}},
      {.name = "unknown control character 13h",
       .strike = [](Line& line) { line.Send(25, "13"); },
       .response = "Unknown Control Character code: 13",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: 13", 4}},
      {.name = "unknown control character 1Bh",
       .strike = [](Line& line) { line.Send(25, "1B"); },
       .response = "Unknown Control Character code: 1B",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: 1B", 4}},
      {.name = "unknown control character 7Fh",
       .strike = [](Line& line) { line.Send(25, "7F"); },
       .response = "Unknown Control Character code: 7F",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: 7F", 4}},
      {.name = "unknown control character FFh",
       .strike = [](Line& line) { line.Send(25, "FF"); },
       .response = "Unknown Control Character code: FF",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: FF", 4}},
      {.name = "reply without its 06h",
       .strike = [](Line& line) { line.Send(25, line.Good().substr(2)); },
       .response = "Unknown Control Character code: $frame",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: $frame", 4}},
      {.name = "bad check, inverted",
       .strike =
           [](Line& line) {
             line.Send(25, WithCheck(line.Good(), Inverted(CheckOf(line.Good()))));
           },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "bad check, zero",
       .strike =
           [](Line& line) {
             line.Send(25, WithCheck(line.Good(), CheckOf(line.Good()) == "00" ? "FF" : "00"));
           },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "bad check, of other bytes",
       .strike =
           [](Line& line) {  // STX taken in, ETX left out.
             line.Send(25, WithCheck(line.Good(), ExclusiveOr(CheckOf(line.Good()) + "0203")));
           },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "bad check, and the good reply behind it",
       .strike =
           [](Line& line) {
             line.Send(25, WithCheck(line.Good(), Inverted(CheckOf(line.Good()))));
             line.Send(60, line.Good());
           },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "wrong echo",
       .strike =
           [](Line& line) {
             line.Send(25, ReplyWith((line.Code() == "58" ? "59" : "58") +
                                     line.Good().substr(6, line.Good().size() - 10)));
           },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "wrong echo by a single bit",
       .strike =
           [](Line& line) {
             line.Send(25, ReplyWith(ExclusiveOr(line.Code() + "01") +
                                     line.Good().substr(6, line.Good().size() - 10)));
           },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "missing ETX",
       .strike = [](Line& line) { line.Send(25, WithoutByteFromTheEnd(line.Good(), 2)); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "ETX missing, with the check of what is there",
       .strike =
           [](Line& line) {
             const std::string rest = WithoutByteFromTheEnd(line.Good(), 2);
             line.Send(25, WithCheck(rest, ExclusiveOr(CheckOf(line.Good()) + "03")));
           },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "another byte for ETX, with a good check",
       .strike =
           [](Line& line) {
             const std::string body = line.Good().substr(4, line.Good().size() - 8) + "04";
             line.Send(25, "0602" + body + ExclusiveOr(body));
           },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "missing STX",
       .strike = [](Line& line) { line.Send(25, "06" + line.Good().substr(4)); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "another byte for STX",
       .strike = [](Line& line) { line.Send(25, "0603" + line.Good().substr(4)); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "truncated behind STX",
       .strike = [](Line& line) { line.Send(25, line.Good().substr(0, 4)); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "truncated behind the code",
       .strike = [](Line& line) { line.Send(25, line.Good().substr(0, 6)); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "truncated behind the status",
       .strike = [](Line& line) { line.Send(25, line.Good().substr(0, 8)); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "truncated by three bytes",
       .strike = [](Line& line) { line.Send(25, line.Good().substr(0, line.Good().size() - 6)); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "truncated by two bytes",
       .strike = [](Line& line) { line.Send(25, line.Good().substr(0, line.Good().size() - 4)); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "truncated by a byte",
       .strike = [](Line& line) { line.Send(25, line.Good().substr(0, line.Good().size() - 2)); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "noise before the button is pressed",
       .strike = [](Line& line) { line.Send(25, line.Good()); },
       .response = "$shown",
       .ending = Ending::kSoon,
       .added = "\r\n$meaning",
       .sender = {"reply", "20h: Normal Status", 0},
       .prepare = [](Line& line) { line.Port().Receive("FF0055"); }},
      {.name = "noise before the frame goes out",
       .strike = [](Line& line) { line.Send(25, line.Good()); },
       .response = "Unknown Control Character code: FF0055",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: FF0055", 4},
       .prepare =
           [](Line& line) { line.Clock().InYield(2, [&line] { line.Port().Receive("FF0055"); }); },
       .block_response = "$shown",
       .block_added = "\r\n$meaning",
       .block_ending = Ending::kSoon},
      {.name = "noise before the reply at once",
       .strike = [](Line& line) { line.Send(25, "FF00" + line.Good()); },
       .response = "Unknown Control Character code: FF00$reply",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: FF00$reply", 4}},
      {.name = "noise before the reply",
       .strike =
           [](Line& line) {
             line.Send(25, "FF00");
             line.Send(70, line.Good());
           },
       .response = "Unknown Control Character code: FF00",
       .ending = Ending::kSoon,
       .added = "",
       .sender = {"unknown", "Unknown Control Character code: FF00", 4}},
      {.name = "noise between 06h and STX",
       .strike = [](Line& line) { line.Send(25, "06FF" + line.Good().substr(2)); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "noise behind the reply at once",
       .strike = [](Line& line) { line.Send(25, line.Good() + "55"); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "noise behind the reply, 20 ms later",
       .strike =
           [](Line& line) {
             line.Send(25, line.Good());
             line.Send(45, "55");
           },
       .response = "$shown",
       .ending = Ending::kSoon,
       .added = "\r\n$meaning",
       .sender = {"reply", "20h: Normal Status", 0},
       .block_response = "Unknown Control Character code: 55",
       .block_added = "\r\n$meaning",
       .block_ending = Ending::kSoon},
      {.name = "noise behind the reply, 50 ms later",
       .strike =
           [](Line& line) {
             line.Send(25, line.Good());
             line.Send(75, "FF0055");
           },
       .response = "$shown",
       .ending = Ending::kSoon,
       .added = "\r\n$meaning",
       .sender = {"reply", "20h: Normal Status", 0}},
      {.name = "split byte by byte, 1 ms apart",
       .strike = [](Line& line) { line.SendSplit(25, 1, line.Good()); },
       .response = "$shown",
       .ending = Ending::kSoon,
       .added = "\r\n$meaning",
       .sender = {"reply", "20h: Normal Status", 0}},
      {.name = "split byte by byte, 15 ms apart",
       .strike = [](Line& line) { line.SendSplit(25, 15, line.Good()); },
       .response = "$shown",
       .ending = Ending::kSoon,
       .added = "\r\n$meaning",
       .sender = {"reply", "20h: Normal Status", 0}},
      {.name = "split so slowly that the limit passes",
       .strike = [](Line& line) { line.SendSplit(25, line.TimeLimit() / 4, line.Good()); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3},
       // ETX of the first reply and 06h of the second come in the same pass.
       .block_response = "Unknown Control Character code: 0306",
       .block_added = "",
       .block_ending = Ending::kAny},
      {.name = "two replies at once",
       .strike = [](Line& line) { line.Send(25, line.Good() + line.Good()); },
       .response = "Time up! ",
       .ending = Ending::kLimit,
       .added = "",
       .sender = {"time-up", "Time up!", 3}},
      {.name = "two replies, 20 ms apart",
       .strike =
           [](Line& line) {
             line.Send(25, line.Good());
             line.Send(45, line.Good());
           },
       .response = "$shown",
       .ending = Ending::kSoon,
       .added = "\r\n$meaning",
       .sender = {"reply", "20h: Normal Status", 0}},
      {.name = "port closed and opened again during the wait",
       .strike =
           [](Line& line) {
             line.After(15, [&line] {
               line.Port().Close();
               line.Port().Open();
             });
             line.Send(25, line.Good());
           },
       .response = "$shown",
       .ending = Ending::kSoon,
       .added = "\r\n$meaning",
       .sender = {"reply", "20h: Normal Status", 0}},
  };
  return kFaults;
}

std::span<const PortFault> PortFaults() {
  static constexpr const char* kGone =
      "COM 1 is gone: Input/output error\r\n\r\n"
      "Connect the printer again, then choose the port in \"Setting\" - \"Port\" and then a speed "
      "in \"Setting\" - \"Baud Rate\" to open it.";
  static constexpr const char* kNotWritten =
      "COM 1 could not be written to: Input/output error\r\n\r\n"
      "Check the cable and the printer, then choose the port in \"Setting\" - \"Port\" and then a "
      "speed in \"Setting\" - \"Baud Rate\" to open it.";
  static constexpr const char* kClosed =
      "COM 1 is not open, so nothing was sent\r\n\r\n"
      "Choose a speed in \"Setting\" - \"Baud Rate\" to open it.";
  static const Line::Strike kNothing = [](Line&) {};
  static const Line::Strike kAsksAgain = [](Line& line) {
    if (line.Repetition() == 0) line.Send(25, "15");
  };
  static const std::vector<PortFault> kFaults = {
      {.name = "port closed",
       .strike = kNothing,
       .prepare = [](Line& line) { line.Port().Close(); },
       .message = kClosed,
       .frames_sent = 0,
       .is_closed_before = true},
      {.name = "device gone before the button is pressed",
       .strike = kNothing,
       .prepare = [](Line& line) { line.Port().Lose(); },
       .message = kClosed,
       .frames_sent = 0,
       .is_closed_before = true},
      {.name = "device gone before the frame is shown",
       .strike = kNothing,
       .prepare = [](Line& line) { line.Clock().InYield(1, [&line] { line.Port().Lose(); }); },
       .message = kGone,
       .frame_shown = false,
       .frames_sent = 0},
      {.name = "device gone before the write",
       .strike = kNothing,
       .prepare = [](Line& line) { line.Clock().InYield(2, [&line] { line.Port().Lose(); }); },
       .message = kGone,
       .frames_sent = 0},
      {.name = "device gone at the write",
       .strike = kNothing,
       .prepare = [](Line& line) { line.Port().FailNextWrite(); },
       .message = kNotWritten,
       .frames_sent = 0},
      {.name = "device gone during the wait",
       .strike = [](Line& line) { line.After(25, [&line] { line.Port().Lose(); }); },
       .prepare = kNothing,
       .message = kGone},
      {.name = "device gone between 06h and STX",
       .strike =
           [](Line& line) {
             line.Send(25, "06");
             line.After(40, [&line] { line.Port().Lose(); });
           },
       .prepare = kNothing,
       .message = kGone},
      {.name = "device gone in the middle of the reply",
       .strike =
           [](Line& line) {
             line.Send(25, line.Good().substr(0, 8));
             line.After(40, [&line] { line.Port().Lose(); });
           },
       .prepare = kNothing,
       .message = kGone},
      {.name = "device gone with the reply there and not yet judged",
       .strike =
           [](Line& line) {
             line.Send(25, line.Good());
             line.After(26, [&line] { line.Port().Lose(); });
           },
       .prepare = kNothing,
       .message = kGone,
       .is_replied_before = true},
      {.name = "device gone at the resend",
       .strike = kAsksAgain,
       .prepare = [](Line& line) { line.Port().FailAtWrite(2); },
       .message = kNotWritten},
      {.name = "device gone in the middle of the resend",
       .strike = kAsksAgain,
       .prepare = [](Line& line) { line.Port().FailAtWrite(4); },
       .message = kNotWritten},
      {.name = "device gone after the resend",
       .strike =
           [](Line& line) {
             if (line.Repetition() == 0) return line.Send(25, "15");
             line.After(25, [&line] { line.Port().Lose(); });
           },
       .prepare = kNothing,
       .message = kGone,
       .response = "&H15: Resend Request"},
  };
  return kFaults;
}

std::string Filled(std::string text, const ConsoleCommand& command) {
  const std::string reply = command.reply;
  const std::string jammed = command.Code() + " 38 03 " + ExclusiveOr(command.Code() + "3803");
  const std::pair<std::string_view, std::string> texts[] = {
      {"$shown", command.shown},
      {"$meaning", command.meaning},
      {"$jammed", "02 " + jammed + " "},
      {"$jam", command.label + std::string("38h: Card jam")},
      {"$reply", reply},
      {"$frame", reply.substr(2)},
  };
  for (const auto& [name, value] : texts)
    if (const std::size_t at = text.find(name); at != std::string::npos)
      text.replace(at, name.size(), value);
  return text;
}

}  // namespace vantrel::reliability
