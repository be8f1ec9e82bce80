// SPDX-License-Identifier: MIT

// Every command's row: its code, its name, and how its data is read and told.

#include "protocol/command_table.h"

#include "protocol/command_readers.h"
#include "protocol/frame_words.h"

#include <algorithm>

namespace vantrel::protocol {
namespace {

using Value = std::optional<CommandData>;

// For `parse`: what a reader returns, as one of the values.
template <auto read>
Value Reads(std::string_view data) {
  auto value = read(data);
  if (!value) return std::nullopt;
  return CommandData(std::move(*value));
}

// For `words` where all that can be told in words is what a printer takes.
template <auto read, auto in_words>
Meaning Tells(std::string_view data) {
  const auto value = read(data);
  return value ? in_words(*value) : std::nullopt;
}

template <auto read>
Meaning Tells(std::string_view data) {
  const auto value = read(data);
  return value ? InWords(*value) : std::nullopt;
}

Value ReadsNothing(std::string_view data) { return data.empty() ? Value(NoData{}) : std::nullopt; }

Meaning TellsNothing(std::string_view data) {
  return data.empty() ? Meaning(std::string()) : std::nullopt;
}

Meaning TellsAnyText(std::string_view data) { return data.empty() ? "no data" : DataInWords(data); }

template <std::size_t track>
Value ReadsTrack(std::string_view data) {
  return data.empty() ? Value(TrackRead{track}) : std::nullopt;
}

template <std::size_t track, bool in_reverse>
Value ReadsSevenBits(std::string_view data) {
  constexpr std::size_t kMost = 69;
  return ReadTrackPreset(data, {track, 0x01, 0x7E, kMost, in_reverse});
}

template <std::size_t track, char first, char last, std::size_t most>
Value ReadsCharacters(std::string_view data) {
  return ReadTrackPreset(data, {track, first, last, most, false});
}

constexpr auto kTellsDischargeAfterPass = Tells<ReadDischarge, DischargeAfterPassInWords>;
constexpr auto kTellsDischarge = Tells<ReadDischarge, DischargeInWords>;

constexpr CommandEntry kEntries[] = {
    {0x21, "first track read", ReadsTrack<0>, TellsNothing},
    {0x22, "second track read", ReadsTrack<1>, TellsNothing},
    {0x23, "third track read", ReadsTrack<2>, TellsNothing},
    {0x25, "first track read of the card inside", ReadsTrack<0>, TellsNothing},
    {0x26, "second track read of the card inside", ReadsTrack<1>, TellsNothing},
    {0x27, "third track read of the card inside", ReadsTrack<2>, TellsNothing},
    {0x29, "first track buffer read", ReadsTrack<0>, TellsNothing},
    {0x2A, "second track buffer read", ReadsTrack<1>, TellsNothing},
    {0x2B, "third track buffer read", ReadsTrack<2>, TellsNothing},
    {0x31, "magnetic stripe write", Reads<ReadTrackChoice>, Tells<ReadTrackChoice>},
    {0x32, "magnetic stripe write on the card inside", Reads<ReadTrackChoice>,
     Tells<ReadTrackChoice>},
    {0x35, "first track data set, reverse 7-bit", ReadsSevenBits<0, true>, TellsAnyText},
    {0x36, "second track data set, reverse 7-bit", ReadsSevenBits<1, true>, TellsAnyText},
    {0x37, "third track data set, reverse 7-bit", ReadsSevenBits<2, true>, TellsAnyText},
    {0x38, "first track data set, 7-bit", ReadsSevenBits<0, false>, TellsAnyText},
    {0x39, "second track data set, 7-bit", ReadsSevenBits<1, false>, TellsAnyText},
    {0x3A, "third track data set, 7-bit", ReadsSevenBits<2, false>, TellsAnyText},
    {0x3B, "first track data set", ReadsCharacters<0, 0x20, 0x5E, 76>, TellsAnyText},
    {0x3C, "second track data set", ReadsCharacters<1, 0x30, 0x3E, 37>, TellsAnyText},
    {0x3D, "third track data set", ReadsCharacters<2, 0x30, 0x3E, 104>, TellsAnyText},
    {0x40, "print expansion buffer clear", ReadsNothing, TellsNothing},
    {0x41, "print data", Reads<ReadPrintData>, PrintDataInWords},
    {0x42, "internal image expand", Reads<ReadImageChoice>, ImageChoiceInWords},
    {0x43, "external image expand, line", Reads<ReadImageLine>, ImageLineInWords},
    {0x44, "double byte external character register", Reads<ReadDoubleByteCharacter>,
     ExternalCharacterInWords},
    {0x45, "single byte external character register", Reads<ReadSingleByteCharacter>,
     ExternalCharacterInWords},
    {0x46, "erase and print", Reads<ReadDischarge>, kTellsDischargeAfterPass},
    {0x47, "print", Reads<ReadDischarge>, kTellsDischargeAfterPass},
    {0x48, "erase", Reads<ReadDischarge>, kTellsDischargeAfterPass},
    {0x49, "buffer clear", ReadsNothing, TellsNothing},
    {0x4A, "internal image 2 expand", Reads<ReadRegisteredImageChoice>,
     RegisteredImageChoiceInWords},
    {0x4B, "BMP file register to internal image 2", Reads<ReadBmpBlock>, BmpBlockInWords},
    {0x4D, "external image expand, block", Reads<ReadImageBlock>, ImageBlockInWords},
    {0x4E, "barcode", Reads<ParseBarcode>, BarcodeInWords},
    {0x50, "card discharge", Reads<ReadDischarge>, kTellsDischarge},
    {0x51, "card rear side idle", ReadsNothing, TellsNothing},
    {0x52, "cleaning", ReadsNothing, TellsNothing},
    {0x53, "card front side idle", ReadsNothing, TellsNothing},
    {0x54, "card insertion wait cancel", ReadsNothing, TellsNothing},
    {0x55, "card removal wait cancel", ReadsNothing, TellsNothing},
    {0x58, "ROM version request", ReadsNothing, TellsNothing},
    {0x59, "status request", ReadsNothing, TellsNothing},
    {0x5A, "LED and buzzer", Reads<ReadIndicatorSetting>, Tells<ReadIndicatorSetting>},
    {0x5B, "cleaning button", Reads<ReadCleaningButton>, Tells<ReadCleaningButton>},
    {0x5F, "reset", ReadsNothing, TellsNothing},
    {0x91, "various setting", Reads<ReadVariousSetting>, TellsAnyText},
    {0x95, "card transport count request", ReadsNothing, TellsNothing},
    {0x96, "print count request", ReadsNothing, TellsNothing},
};

}  // namespace

std::span<const CommandEntry> AllCommands() { return kEntries; }

const CommandEntry* FindEntry(std::uint8_t code) {
  const auto* entry = std::find_if(std::begin(kEntries), std::end(kEntries),
                                   [code](const CommandEntry& row) { return row.code == code; });
  return entry == std::end(kEntries) ? nullptr : entry;
}

std::optional<CommandData> Parse(std::uint8_t code, std::string_view data) {
  const CommandEntry* entry = FindEntry(code);
  return entry == nullptr ? std::nullopt : entry->parse(data);
}

}  // namespace vantrel::protocol
