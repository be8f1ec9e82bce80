#include "log/row_json.h"

#include "link/frame.h"
#include "log/json_text.h"
#include "log/row_text.h"
#include "protocol/frame.h"

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

// Two hex digits of a frame's content, or null.
std::string DigitsAt(const protocol::FrameParts& parts, std::size_t at) {
  return at < parts.content.size() ? JsonText(link::HexOf(parts.content[at])) : "null";
}

}  // namespace

std::string JsonLineOf(const LogEntry& entry) {
  const protocol::GroupKind kind = protocol::KindOf(entry.direction, BytesOf(entry));
  const bool to_printer = entry.direction == protocol::Direction::kFromConsole;
  std::string code = "null";
  std::string status = "null";
  std::string check = "null";
  if (kind == protocol::GroupKind::kFrame) {
    const protocol::FrameParts parts = protocol::PartsOf(BytesOf(entry));
    code = DigitsAt(parts, 0);
    if (!to_printer) status = DigitsAt(parts, 1);
    if (parts.check) check = parts.CheckIsGood() ? "true" : "false";
  }
  std::string line = "{\"time\":\"" + UtcInWords(entry.time) + "\",\"direction\":\"";
  line += to_printer ? "to printer" : "from printer";
  line += "\",\"kind\":\"";
  line += KindInWords(kind);
  line += "\",\"hex\":\"" + HexOf(entry) + "\",\"code\":" + code + ",\"status\":" + status +
          ",\"checkIsGood\":" + check + ",\"meaning\":" + JsonText(MeaningOf(entry)) +
          ",\"comment\":" + (entry.comment.empty() ? "null" : JsonText(entry.comment)) + '}';
  return line;
}

}  // namespace vantrel::log
