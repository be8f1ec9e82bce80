// SPDX-License-Identifier: MIT
#pragma once

#include "log/json_object.h"
#include "log/line_log.h"
#include "printer/model/answers.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

// What a script is told of the printer, as text and as JSON.
namespace vantrel::printer {

class PrinterModel;

// "card ordinary, outside; printer Idle; LED off; buzzer off; transports 0; prints 0".
std::string StateInWords(const PrinterModel& model);
log::JsonObject StateInJson(const PrinterModel& model);

// The faults to come: `1 "status 38 on 21 next" 1 left; 2 "mute until cleared"`; empty for none.
std::string FaultsInWords(const PrinterModel& model);
std::vector<log::JsonObject> FaultsInJson(const PrinterModel& model);

// A text for each track, or none: `1 "ABC", 2 none, 3 ""`. What is not printable, and in words a
// double quote, is shown as \xHH.
using TrackTexts = std::array<std::optional<std::string>, kTracks>;
std::string TracksInWords(const TrackTexts& tracks);
std::vector<std::optional<std::string>> TracksInJson(const TrackTexts& tracks);

// hex, code, status and meaning of a group of bytes on the line, and of an answer.
log::JsonObject RowInJson(const log::LogEntry& row);
log::JsonObject AnswerInJson(const Answered& answer);
// "reply 21h: 20h normal status".
std::string AnswerInWords(const Answered& answer);

}  // namespace vantrel::printer
