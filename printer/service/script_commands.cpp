#include "printer/service/script_commands.h"

#include "log/playback.h"
#include "log/save_log.h"
#include "printer/model/printer_model.h"
#include "printer/service/dot_image.h"
#include "printer/service/printer_server.h"
#include "printer/service/script_text.h"
#include "protocol/line_speed.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace vantrel::printer {
namespace {

using Answer = std::optional<ScriptAnswer>;

constexpr int kDefaultWait = 10000;  // milliseconds
constexpr int kLongestWait = 3600000;

ScriptAnswer Ok(std::string text = {}) { return ScriptAnswer::Ok(std::move(text)); }

ScriptAnswer Error(std::string text) { return ScriptAnswer::Error(std::move(text)); }

Answer Help(ScriptContext& context, std::string_view) {
  std::string usages;
  for (const ScriptCommand& command : ScriptCommands()) {
    if (context.playback != nullptr && !command.needs_no_printer) continue;
    if (!usages.empty()) usages += " | ";
    usages += command.usage;
  }
  if (context.playback != nullptr) usages += " | wait end [MS]";
  return Ok(usages);
}

Answer Insert(ScriptContext& context, std::string_view rest) {
  if (!rest.empty() && rest != "cleaning" && rest != "ordinary")
    return Error("a card is \"ordinary\" or \"cleaning\"");
  if (context.model->State().place != CardPlace::kOutside)
    return Error("there is a card in the printer");
  if (!rest.empty())
    context.model->SetCardKind(rest == "cleaning" ? CardKind::kCleaning : CardKind::kOrdinary);
  return context.server->InsertCard() ? Ok() : Error("the card cannot be put in now");
}

Answer PullOut(ScriptContext& context, std::string_view rest) {
  if (!rest.empty()) return Error("pull takes no parameter");
  if (context.model->State().place == CardPlace::kOutside)
    return Error("there is no card in the printer");
  return context.server->PullOutCard() ? Ok() : Error("a command moves the card");
}

Answer WriteTrack(ScriptContext& context, std::string_view rest) {
  const auto [number, text] = Split(rest);
  const auto track = TrackIn(number);
  if (!track) return Error("the track is 1, 2 or 3");
  const auto contents = Unescaped(text);
  if (!contents) return Error("after a backslash comes x and two hex digits, or a backslash");
  const std::size_t length = kTrackLength.at(*track);
  if (contents->size() > length)
    return Error("the track holds " + std::to_string(length) + " bytes");
  if (!IsRecordable(*contents)) return Error("a track holds 01h and 04h to 7Eh alone");
  context.model->SetTrack(*track, *contents);
  return Ok();
}

Answer ReadTrack(ScriptContext& context, std::string_view rest) {
  const auto [word, number] = Split(rest);
  const auto track = TrackIn(number);
  if (word != "track" || !track) return Error("read takes \"track\" and 1, 2 or 3");
  return Ok(Escaped(context.model->State().card.tracks.at(*track)));
}

Answer TellState(ScriptContext& context, std::string_view rest) {
  if (!rest.empty()) return Error("state takes no parameter");
  if (context.playback != nullptr) return Ok(context.playback->Summary());
  const PrinterState& state = context.model->State();
  return Ok(std::string("card ") +
            (state.card.kind == CardKind::kCleaning ? "cleaning" : "ordinary") + ", " +
            std::string(PlaceInWords(state.place)) + "; printer " +
            context.model->ActivityInWords() + "; LED " + LedInWords(state.indicators) +
            "; buzzer " + std::string(BuzzerInWords(state.indicators)) + "; transports " +
            std::to_string(state.transports) + "; prints " + std::to_string(state.prints));
}

Answer SaveFace(ScriptContext& context, std::string_view rest) {
  const bool png = rest.ends_with(".png");
  if (!png && !rest.ends_with(".pbm")) return Error("face takes a path that ends in .png or .pbm");
  const std::string error = SavePicture(ImageOf(context.model->State().card.face),
                                        png ? "png" : "pbm", std::string(rest));
  return error.empty() ? Ok() : Error(error);
}

Answer Log(ScriptContext& context, std::string_view rest) {
  const log::LineLog& log = context.recorder.Log();
  const std::string error =
      rest.empty() ? "" : log::SaveLog(log, std::string(rest), context.recorder.Line());
  return error.empty() ? Ok(std::to_string(log.End() - log.First())) : Error(error);
}

Answer SetFault(ScriptContext& context, std::string_view rest) {
  if (rest.empty()) return Error("fault takes the fault to have");
  try {
    if (rest == "clear")
      context.model->ClearFaults();
    else
      context.model->ReplaceFaults(ParseFault(rest));
  } catch (const std::invalid_argument& refusal) {
    return Error(refusal.what());
  }
  return Ok();
}

Answer Power(ScriptContext& context, std::string_view rest) {
  if (rest != "on" && rest != "off") return Error("power takes \"on\" or \"off\"");
  context.server->SetPower(rest == "on");
  return Ok();
}

Answer ChangeSeries(ScriptContext& context, std::string_view rest) {
  if (rest != "ql7" && rest != "ql8") return Error("series takes \"ql7\" or \"ql8\"");
  context.model->SetSeries(rest == "ql8" ? Series::kQl8 : Series::kQl7);
  return Ok();
}

Answer ChangeSpeed(ScriptContext& context, std::string_view rest) {
  const auto speed = NumberIn(rest);
  if (!speed || *speed < protocol::kLowestSpeed || *speed > protocol::kHighestSpeed) {
    return Error("speed takes a number from " + std::to_string(protocol::kLowestSpeed) + " to " +
                 std::to_string(protocol::kHighestSpeed));
  }
  context.model->SetSpeed(*speed);
  return Ok();
}

Answer BeginWaitForEnd(ScriptContext& context, std::string_view rest) {
  const auto milliseconds = rest.empty() ? std::optional(kDefaultWait) : NumberIn(rest);
  if (!milliseconds || *milliseconds < 0 || *milliseconds > kLongestWait)
    return Error("wait end takes milliseconds up to 3600000");
  context.wait = ScriptWait{{}, *milliseconds, true};
  return {};
}

Answer BeginWait(ScriptContext& context, std::string_view rest) {
  constexpr const char* kUsage =
      "wait takes \"frame\", a code of two hex digits, and milliseconds up to 3600000";
  const auto [word, parameters] = Split(rest);
  if (word == "end" && context.playback != nullptr) return BeginWaitForEnd(context, parameters);
  if (word != "frame") return Error(kUsage);
  auto [first, second] = Split(parameters);
  ScriptWait wait{CodeIn(first), kDefaultWait};
  if (wait.code) first = std::exchange(second, {});
  if (!first.empty()) {
    const auto milliseconds = NumberIn(first);
    if (!milliseconds || *milliseconds < 0 || *milliseconds > kLongestWait || !second.empty())
      return Error(kUsage);
    wait.milliseconds = *milliseconds;
  }
  context.wait = wait;
  return {};
}

Answer Quit(ScriptContext& context, std::string_view rest) {
  if (!rest.empty()) return Error("quit takes no parameter");
  context.is_over = true;
  return Ok();
}

constexpr std::array kCommands{
    ScriptCommand{"help", "help", Help, true},
    ScriptCommand{"insert", "insert [ordinary|cleaning]", Insert},
    ScriptCommand{"pull", "pull", PullOut},
    ScriptCommand{"track", "track N TEXT", WriteTrack},
    ScriptCommand{"read", "read track N", ReadTrack},
    ScriptCommand{"state", "state", TellState, true},
    ScriptCommand{"face", "face PATH", SaveFace},
    ScriptCommand{"log", "log [PATH]", Log, true},
    ScriptCommand{"fault", "fault TEXT", SetFault},
    ScriptCommand{"power", "power on|off", Power},
    ScriptCommand{"series", "series ql7|ql8", ChangeSeries},
    ScriptCommand{"speed", "speed BPS", ChangeSpeed},
    ScriptCommand{"wait", "wait frame [CODE] [MS]", BeginWait, true},
    ScriptCommand{"quit", "quit", Quit, true},
};

}  // namespace

std::span<const ScriptCommand> ScriptCommands() { return kCommands; }

std::optional<ScriptAnswer> DoScriptLine(ScriptContext& context, std::string_view line) {
  const auto [word, rest] = Split(line);
  const auto command = std::find_if(kCommands.begin(), kCommands.end(),
                                    [&](const ScriptCommand& row) { return row.word == word; });
  if (command == kCommands.end())
    return Error("unknown command \"" + Escaped(word) + "\"; help tells the commands");
  if (context.playback != nullptr && !command->needs_no_printer)
    return Error("a capture is played back; there is no printer to which " + std::string(word) +
                 " could be done");
  return command->run(context, rest);
}

}  // namespace vantrel::printer
