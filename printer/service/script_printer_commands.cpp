// SPDX-License-Identifier: MIT

// The lines of a script that deal with the printer itself, its line and its faults.

#include "log/playback.h"
#include "log/save_log.h"
#include "printer/model/quoted.h"
#include "printer/service/printer_server.h"
#include "printer/service/script_commands.h"
#include "printer/service/script_state.h"
#include "printer/service/script_text.h"
#include "protocol/line_speed.h"

#include <array>
#include <exception>
#include <stdexcept>
#include <utility>

namespace vantrel::printer {
namespace {

using Answer = std::optional<ScriptAnswer>;

ScriptAnswer Ok(std::string text = {}, log::JsonObject members = {}) {
  return ScriptAnswer::Ok(std::move(text), std::move(members));
}

ScriptAnswer Error(std::string text) { return ScriptAnswer::Error(std::move(text)); }

Answer TellState(ScriptContext& context, std::string_view rest) {
  if (!rest.empty()) return Error("state takes no parameter");
  if (context.playback == nullptr)
    return Ok(StateInWords(*context.model), StateInJson(*context.model));
  const log::Playback& playback = *context.playback;
  return Ok(playback.Summary(), log::JsonObject()
                                    .Add("frames", static_cast<long>(playback.Frames()))
                                    .Add("played", static_cast<long>(playback.Played()))
                                    .Add("unexpected", static_cast<long>(playback.Unexpected())));
}

Answer Log(ScriptContext& context, std::string_view rest) {
  const log::LineLog& log = context.recorder.Log();
  if (!rest.empty()) {
    const auto path = PathIn(rest);
    if (!path) return Error("log takes a path, or nothing");
    const std::string error = log::SaveLog(log, *path, context.recorder.Line());
    if (!error.empty()) return ScriptAnswer::PathError(*path, error);
  }
  const std::size_t entries = log.End() - log.First();
  return Ok(std::to_string(entries), log::JsonObject().Add("entries", static_cast<long>(entries)));
}

// Puts a fault into the plan, in place of all or as one more.
Answer PlanFault(ScriptContext& context, std::string_view text, bool more) {
  if (text.empty()) return Error("fault takes the fault to have");
  try {
    const Fault fault = ParseFault(text);
    const FaultPlan::Id id =
        more ? context.model->AddFault(fault) : context.model->ReplaceFaults(fault);
    return Ok(more ? std::to_string(id) : std::string(),
              log::JsonObject().Add("id", static_cast<long>(id)));
  } catch (const std::logic_error& refusal) {
    return Error(refusal.what());
  }
}

Answer SetFault(ScriptContext& context, std::string_view rest) {
  return PlanFault(context, rest, false);
}

Answer AddFault(ScriptContext& context, std::string_view rest) {
  return PlanFault(context, rest, true);
}

Answer ListFaults(ScriptContext& context, std::string_view rest) {
  if (!rest.empty()) return Error("fault list takes no parameter");
  return Ok(FaultsInWords(*context.model),
            log::JsonObject().Add("faults", FaultsInJson(*context.model)));
}

Answer ClearFault(ScriptContext& context, std::string_view rest) {
  if (rest.empty()) {
    context.model->ClearFaults();
    return Ok();
  }
  const auto number = NumberIn(rest);
  if (!number || *number < 1 || !context.model->ClearFault(static_cast<FaultPlan::Id>(*number)))
    return Error("there is no fault " + Quoted(rest));
  return Ok();
}

// "on" or "off"; nothing for any other text.
std::optional<bool> SwitchIn(std::string_view text) {
  if (text == "on") return true;
  if (text == "off") return false;
  return std::nullopt;
}

ScriptAnswer SwitchError(const char* word) {
  return Error(std::string(word) + " takes \"on\" or \"off\"");
}

Answer Power(ScriptContext& context, std::string_view rest) {
  const auto on = SwitchIn(rest);
  if (!on) return SwitchError("power");
  context.server->SetPower(*on);
  return Ok();
}

Answer FitCaseParts(ScriptContext& context, std::string_view rest) {
  const auto on = SwitchIn(rest);
  if (!on) return SwitchError("case-parts");
  context.model->SetCaseParts(*on);
  return Ok();
}

Answer ChangePacing(ScriptContext& context, std::string_view rest) {
  const auto on = SwitchIn(rest);
  if (!on) return SwitchError("pacing");
  context.model->SetPacing(*on);
  return Ok();
}

Answer TellEvents(ScriptContext& context, std::string_view rest) {
  const auto on = SwitchIn(rest);
  if (!on) return SwitchError("events");
  if (!context.style.json) return Error("events are told with --json alone");
  context.events = *on;
  return Ok();
}

Answer Unplug(ScriptContext& context, std::string_view rest) {
  if (!rest.empty()) return Error("unplug takes no parameter");
  return context.server->Unplug() ? Ok() : Error("it is unplugged already");
}

Answer Plug(ScriptContext& context, std::string_view rest) {
  if (!rest.empty()) return Error("plug takes no parameter");
  try {
    if (!context.server->PlugIn()) return Error("it is plugged in already");
  } catch (const std::exception& error) {
    return Error(error.what());
  }
  const std::string address = context.server->DevicePath();
  return Ok(address, log::JsonObject().Add(context.style.line, address));
}

Answer PressButton(ScriptContext& context, std::string_view rest) {
  if (!rest.empty()) return Error("button cleaning takes no parameter");
  if (context.server->PressCleaningButton()) return Ok();
  if (!context.model->State().power) return Error("the printer is switched off");
  return Error(context.model->State().cleaning_button ? "too many commands stand in line"
                                                      : "the cleaning button is disabled");
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

Answer ChangeCodePage(ScriptContext& context, std::string_view rest) {
  const auto number = NumberIn(rest);
  const auto code_page = number ? link::CodePageOfNumber(*number) : std::nullopt;
  if (!code_page) return Error("code-page takes 932, 936, 949, 950 or 1252");
  context.model->SetCodePage(*code_page);
  return Ok();
}

Answer Quit(ScriptContext& context, std::string_view rest) {
  constexpr int kHighestStatus = 255;
  if (!rest.empty()) {
    const auto status = NumberIn(rest);
    if (!status || *status < 0 || *status > kHighestStatus)
      return Error("quit takes a status from 0 to 255, or nothing");
    context.status = status;
  }
  context.is_over = true;
  return Ok();
}

constexpr std::array kCommands{
    ScriptCommand{"state", TellState},
    ScriptCommand{"log", Log},
    ScriptCommand{"fault", SetFault},
    ScriptCommand{"fault add", AddFault},
    ScriptCommand{"fault list", ListFaults},
    ScriptCommand{"fault clear", ClearFault},
    ScriptCommand{"power", Power},
    ScriptCommand{"unplug", Unplug},
    ScriptCommand{"plug", Plug},
    ScriptCommand{"button cleaning", PressButton},
    ScriptCommand{"series", ChangeSeries},
    ScriptCommand{"case-parts", FitCaseParts},
    ScriptCommand{"speed", ChangeSpeed},
    ScriptCommand{"pacing", ChangePacing},
    ScriptCommand{"code-page", ChangeCodePage},
    ScriptCommand{"events", TellEvents},
    ScriptCommand{"quit", Quit},
};

}  // namespace

std::span<const ScriptCommand> PrinterCommands() { return kCommands; }

}  // namespace vantrel::printer
