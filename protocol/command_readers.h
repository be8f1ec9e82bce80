// SPDX-License-Identifier: MIT
#pragma once

// The data of the commands, read for the table: what a printer takes becomes a value, and words are
// found for it, for what comes near to it too.

#include "protocol/command_data.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantrel::protocol {

// Nothing where data cannot be told in words.
using Meaning = std::optional<std::string>;

std::optional<TrackChoice> ReadTrackChoice(std::string_view data);
Meaning InWords(const TrackChoice& choice);

// A preset of `first` to `last` but 02h and 03h, 1 to `most` characters.
struct PresetRule {
  std::size_t track = 0;
  char first = 0;
  char last = 0;
  std::size_t most = 0;
  bool in_reverse = false;  // the last character comes first to the head
};
std::optional<TrackPreset> ReadTrackPreset(std::string_view data, const PresetRule& rule);

std::optional<PrintData> ReadPrintData(std::string_view data);
Meaning PrintDataInWords(std::string_view data);
std::optional<ImageChoice> ReadImageChoice(std::string_view data);
Meaning ImageChoiceInWords(std::string_view data);
std::optional<RegisteredImageChoice> ReadRegisteredImageChoice(std::string_view data);
Meaning RegisteredImageChoiceInWords(std::string_view data);

std::optional<ImageDots> ReadImageLine(std::string_view data);
Meaning ImageLineInWords(std::string_view data);
std::optional<ImageDots> ReadImageBlock(std::string_view data);
Meaning ImageBlockInWords(std::string_view data);
std::optional<ExternalCharacter> ReadDoubleByteCharacter(std::string_view data);
std::optional<ExternalCharacter> ReadSingleByteCharacter(std::string_view data);
Meaning ExternalCharacterInWords(std::string_view data);
std::optional<BmpBlock> ReadBmpBlock(std::string_view data);
Meaning BmpBlockInWords(std::string_view data);

Meaning BarcodeInWords(std::string_view data);

std::optional<Discharge> ReadDischarge(std::string_view data);
Meaning DischargeInWords(const Discharge& discharge);
Meaning DischargeAfterPassInWords(const Discharge& discharge);
std::optional<IndicatorSetting> ReadIndicatorSetting(std::string_view data);
Meaning InWords(const IndicatorSetting& setting);
std::optional<CleaningButton> ReadCleaningButton(std::string_view data);
Meaning InWords(const CleaningButton& button);
std::optional<VariousSetting> ReadVariousSetting(std::string_view data);

// For words of data as it stands: a field as it is, a field that may be a number of dots or none,
// and whether a text has digits of one kind alone; a number needs one at least.
std::string Shown(std::string_view field);
bool IsCoordinate(std::string_view field);
bool IsNumber(std::string_view field);
bool IsHex(std::string_view field);

}  // namespace vantrel::protocol
