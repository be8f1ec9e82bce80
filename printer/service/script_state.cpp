// SPDX-License-Identifier: MIT

#include "printer/service/script_state.h"

#include "link/frame.h"
#include "printer/model/printer_model.h"
#include "printer/service/script_text.h"
#include "protocol/frame_words.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

namespace vantrel::printer {
namespace {

std::string_view PlaceInJson(CardPlace place) {
  switch (place) {
    case CardPlace::kFront:
      return "front";
    case CardPlace::kInside:
      return "inside";
    case CardPlace::kRear:
      return "rear";
    case CardPlace::kExit:
      return "waiting";
    default:
      return "outside";
  }
}

std::string_view ActivityInJson(Activity activity) {
  switch (activity) {
    case Activity::kWork:
      return "work";
    case Activity::kCardWait:
      return "card-wait";
    case Activity::kRemovalWait:
      return "removal-wait";
    case Activity::kOff:
      return "off";
    default:
      return "idle";
  }
}

std::string_view KindInWords(const Card& card) {
  return card.kind == CardKind::kCleaning ? "cleaning" : "ordinary";
}

// Two hex digits, or null.
std::optional<std::string> CodeInJson(std::optional<std::uint8_t> code) {
  return code ? std::optional(link::HexOf(*code)) : std::nullopt;
}

// "02 21 03 22".
std::string HexInWords(std::span<const std::uint8_t> bytes) {
  std::string hex = link::SpacedPairs(link::HexTextOf({bytes.begin(), bytes.end()}));
  if (!hex.empty()) hex.pop_back();
  return hex;
}

log::JsonObject BytesInJson(std::span<const std::uint8_t> bytes, std::optional<std::uint8_t> code,
                            std::optional<std::uint8_t> status, const std::string& meaning) {
  return log::JsonObject()
      .Add("hex", HexInWords(bytes))
      .Add("code", CodeInJson(code))
      .Add("status", CodeInJson(status))
      .Add("meaning", meaning);
}

}  // namespace

std::string StateInWords(const PrinterModel& model) {
  const PrinterState& state = model.State();
  return "card " + std::string(KindInWords(state.card)) + ", " +
         std::string(PlaceInWords(state.place)) + "; printer " + model.ActivityInWords() +
         "; LED " + LedInWords(state.indicators) + "; buzzer " +
         std::string(BuzzerInWords(state.indicators)) + "; transports " +
         std::to_string(state.transports) + "; prints " + std::to_string(state.prints);
}

log::JsonObject StateInJson(const PrinterModel& model) {
  const PrinterState& state = model.State();
  TrackTexts tracks;
  std::copy(state.card.tracks.begin(), state.card.tracks.end(), tracks.begin());
  const auto card = log::JsonObject()
                        .Add("place", PlaceInJson(state.place))
                        .Add("kind", KindInWords(state.card))
                        .Add("target", std::optional(state.HasTargetCard()))
                        .Add("tracks", TracksInJson(tracks));
  const auto led = log::JsonObject()
                       .Add("colour", LedColourInWords(state.indicators))
                       .Add("operation", LedOperationInWords(state.indicators));
  return log::JsonObject()
      .Add("card", card)
      .Add("activity", ActivityInJson(model.CurrentActivity()))
      .Add("command", CodeInJson(model.CommandUnderWay()))
      .Add("led", led)
      .Add("buzzer", BuzzerInWords(state.indicators))
      .Add("transports", static_cast<long>(state.transports))
      .Add("prints", static_cast<long>(state.prints))
      .Add("power", std::optional(state.power))
      .Add("series", state.series == Series::kQl8 ? "ql8" : "ql7")
      .Add("speed", static_cast<long>(model.Speed()))
      .Add("pacing", std::optional(model.Pacing()))
      .Add("caseParts", std::optional(state.case_parts))
      .Add("faults", FaultsInJson(model));
}

std::string FaultsInWords(const PrinterModel& model) {
  std::string words;
  for (const FaultPlan::Entry& entry : model.Faults().List()) {
    if (!words.empty()) words += "; ";
    words += std::to_string(entry.id) + " \"" + TextOf(entry.fault) + '"';
    if (entry.left) words += ' ' + std::to_string(*entry.left) + " left";
  }
  return words;
}

std::vector<log::JsonObject> FaultsInJson(const PrinterModel& model) {
  std::vector<log::JsonObject> faults;
  for (const FaultPlan::Entry& entry : model.Faults().List()) {
    log::JsonObject fault;
    fault.Add("id", static_cast<long>(entry.id)).Add("text", TextOf(entry.fault));
    if (entry.left)
      fault.Add("left", static_cast<long>(*entry.left));
    else
      fault.AddNull("left");
    faults.push_back(std::move(fault));
  }
  return faults;
}

std::string TracksInWords(const TrackTexts& tracks) {
  std::string words;
  for (std::size_t i = 0; i < tracks.size(); ++i) {
    if (i > 0) words += ", ";
    words += std::to_string(i + 1) + ' ';
    if (!tracks[i]) {
      words += "none";
      continue;
    }
    words += '"';
    for (const char character : *tracks[i])
      words += character == '"' ? "\\x22" : Escaped({&character, 1});
    words += '"';
  }
  return words;
}

std::vector<std::optional<std::string>> TracksInJson(const TrackTexts& tracks) {
  std::vector<std::optional<std::string>> texts;
  texts.reserve(tracks.size());
  for (const auto& track : tracks)
    texts.push_back(track ? std::optional(Escaped(*track)) : std::nullopt);
  return texts;
}

log::JsonObject RowInJson(const log::LogEntry& row) {
  const auto bytes = log::BytesOf(row);
  std::optional<std::uint8_t> code;
  std::optional<std::uint8_t> status;
  if (protocol::KindOf(row.direction, bytes) == protocol::GroupKind::kFrame) {
    const auto content = protocol::PartsOf(bytes).content;
    if (!content.empty()) code = content[0];
    if (content.size() > 1 && row.direction == protocol::Direction::kFromPrinter)
      status = content[1];
  }
  return BytesInJson(bytes, code, status, log::MeaningOf(row));
}

log::JsonObject AnswerInJson(const Answered& answer) {
  return BytesInJson(answer.bytes, answer.code, answer.status, AnswerInWords(answer));
}

std::string AnswerInWords(const Answered& answer) {
  return protocol::MeaningInWords(protocol::Direction::kFromPrinter, answer.bytes);
}

}  // namespace vantrel::printer
