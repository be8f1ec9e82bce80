// SPDX-License-Identifier: MIT

#include "log/row_json.h"

#include "link/frame.h"
#include "log/json_object.h"
#include "log/row_text.h"
#include "protocol/frame.h"

#include <optional>
#include <string_view>

namespace vantrel::log {
namespace {

std::string_view KindInWords(protocol::GroupKind kind) {
  switch (kind) {
    case protocol::GroupKind::kFrame:
      return "frame";
    case protocol::GroupKind::kControl:
      return "control";
    default:
      return "bytes";
  }
}

// Two hex digits of a frame's content.
std::optional<std::string> DigitsAt(const protocol::FrameParts& parts, std::size_t at) {
  if (at >= parts.content.size()) return std::nullopt;
  return link::HexOf(parts.content[at]);
}

}  // namespace

std::string JsonLineOf(const LogEntry& entry) {
  const protocol::GroupKind kind = protocol::KindOf(entry.direction, BytesOf(entry));
  const bool to_printer = entry.direction == protocol::Direction::kFromConsole;
  std::optional<std::string> code;
  std::optional<std::string> status;
  std::optional<bool> check;
  if (kind == protocol::GroupKind::kFrame) {
    const protocol::FrameParts parts = protocol::PartsOf(BytesOf(entry));
    code = DigitsAt(parts, 0);
    if (!to_printer) status = DigitsAt(parts, 1);
    if (parts.check) check = parts.CheckIsGood();
  }
  std::optional<std::string> comment;
  if (!entry.comment.empty()) comment = entry.comment;
  return JsonObject()
      .Add("time", UtcInWords(entry.time))
      .Add("direction", to_printer ? "to printer" : "from printer")
      .Add("kind", KindInWords(kind))
      .Add("hex", HexOf(entry))
      .Add("code", code)
      .Add("status", status)
      .Add("checkIsGood", check)
      .Add("meaning", MeaningOf(entry))
      .Add("comment", comment)
      .Text();
}

}  // namespace vantrel::log
