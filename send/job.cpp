// SPDX-License-Identifier: MIT

#include "send/job.h"

#include "console/command_table.h"
#include "link/common.h"
#include "link/frame.h"
#include "protocol/fields.h"
#include "send/data_fields.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace vantrel::send {
namespace {

using commandline::Parsed;
using commandline::WrongUse;

constexpr unsigned kNormalStatus = 0x20;

DataFields NoData(const Parsed&, const Means&) { return {""}; }

DataFields FirstParameter(const Parsed& parsed, const Means&) {
  return {HexOfAscii(parsed.Parameters().front())};
}

using Composer = DataFields (*)(const Parsed&, const Means&);

Composer ComposerOf(std::string_view code) {
  static const std::map<std::string_view, Composer> kComposers = {
      {"31", FirstParameter}, {"32", FirstParameter},  {"35", TrackText},
      {"36", TrackText},      {"37", TrackText},       {"38", TrackText},
      {"39", TrackText},      {"3A", TrackText},       {"3B", TrackText},
      {"3C", TrackText},      {"3D", TrackText},       {"41", PrintText},
      {"42", InternalImage},  {"43", ExternalImage},   {"44", Character},
      {"45", Character},      {"46", FirstParameter},  {"47", FirstParameter},
      {"48", FirstParameter}, {"4A", RegisteredImage}, {"4B", BmpBlocks},
      {"4D", ExternalImage},  {"4E", Barcode},         {"50", FirstParameter},
      {"5A", Indicators},     {"5B", FirstParameter},  {"91", StoredSetting},
  };
  const auto found = kComposers.find(code);
  return found == kComposers.end() ? NoData : found->second;
}

DataFields DataOf(const Parsed& parsed, const Means& means) {
  if (!parsed.Has("data")) return ComposerOf(parsed.Command()->name)(parsed, means);
  for (const commandline::Option& option : parsed.Command()->options)
    if (parsed.Has(option.name))
      throw WrongUse("--data stands in place of options such as --" + option.name + ".");
  const std::string hex = parsed.Value("data");
  return {hex.empty() ? hex : HexPairs(hex, "--data")};
}

// The table has the same commands.
const console::ConsoleCommand& RowOf(std::string_view code) {
  const auto rows = console::Commands();
  return *std::find_if(rows.begin(), rows.end(),
                       [code](const console::ConsoleCommand& row) { return row.code == code; });
}

}  // namespace

bool Job::IsExpected(unsigned status) const {
  if (expected.empty()) return status == kNormalStatus;
  return std::find(expected.begin(), expected.end(), status) != expected.end();
}

Job Compose(const Parsed& parsed, const Means& means) {
  const console::ConsoleCommand& command = RowOf(parsed.Command()->name);
  Job job;
  job.code = command.code;
  for (const std::string& data : DataOf(parsed, means))
    job.frames.push_back(link::ComposeFrame(job.code, data));
  job.time_limit = parsed.Has("time-limit") ? parsed.Number("time-limit")
                                            : means.time_limit.value_or(command.time_limit);
  job.expected = parsed.Has("expect") ? ParseStatuses(parsed.Value("expect")) : means.expected;
  return job;
}

std::vector<unsigned> ParseStatuses(const std::string& text) {
  std::vector<unsigned> statuses;
  for (std::size_t i = 0; i <= text.size(); i += 3) {
    const std::string pair = text.substr(i, 2);
    if (!protocol::HexBytesOf(pair, 1) || (i + 2 < text.size() && text[i + 2] != ','))
      throw WrongUse("--expect is statuses of two hex digits with commas between them, not '" +
                     text + "'.");
    statuses.push_back(link::HexPair(pair, 0));
  }
  return statuses;
}

bool WearsMemory(std::string_view code) { return code == "5B" || code == "91"; }

std::string RegisterDigit(const std::string& text) {
  const auto digit = text.size() == 1 ? protocol::HexDigitOf(text[0]) : std::nullopt;
  if (!digit) throw WrongUse("REGISTER is a digit from 0 to F, not '" + text + "'.");
  return {"0123456789ABCDEF"[*digit]};
}

std::string HexPairs(const std::string& text, const std::string& subject) {
  const auto bytes = protocol::HexBytesOf(text, text.size());
  if (!bytes) throw WrongUse(subject + " is one or more pairs of hex digits.");
  return link::HexTextOf(*bytes);
}

std::string HexOfAscii(const std::string& text) {
  return link::StrToHex(text, link::CodePage::kWestern);
}

}  // namespace vantrel::send
