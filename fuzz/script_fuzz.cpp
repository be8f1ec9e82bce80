// SPDX-License-Identifier: MIT

// Any lines as the software printer's script holds them, and as what it answers in: what is read of
// a text is written as a text that is read the same, and every answer is one line of JSON.

#include "fuzz/json_check.h"
#include "fuzz/target.h"
#include "log/json_object.h"
#include "log/json_text.h"
#include "printer/model/fault.h"
#include "printer/model/quoted.h"
#include "printer/service/script_text.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::fuzz {
namespace {

using namespace printer;

constexpr std::string_view kBlanks = " \t";

bool IsPrintable(std::string_view text) {
  for (const char character : text) {
    if (character < 0x20 || character > 0x7E) return false;
  }
  return true;
}

void CheckWords(std::string_view line) {
  const auto [word, rest] = Split(line);
  const std::string_view trimmed = Trimmed(line);
  if (word.find_first_of(kBlanks) != std::string_view::npos || !trimmed.starts_with(word) ||
      word.empty() != trimmed.empty() || !line.ends_with(rest) ||
      (!rest.empty() && kBlanks.find(rest.front()) != std::string_view::npos))
    std::abort();
  if (const auto number = NumberIn(line)) {
    if (NumberIn(std::to_string(*number)) != number) std::abort();
  }
  if (const auto code = CodeIn(line)) {
    if (NumberIn(line.substr(0, 2), 16) != *code) std::abort();
  }
  if (const auto track = TrackIn(line)) {
    if (line != std::to_string(*track + 1)) std::abort();
  }
}

void CheckTexts(std::string_view line) {
  const std::string escaped = Escaped(line);
  if (!IsPrintable(escaped) || Unescaped(escaped) != line) std::abort();
  if (const auto bytes = Unescaped(line)) {
    if (bytes->size() > line.size() || Unescaped(Escaped(*bytes)) != bytes) std::abort();
  }
  if (const auto path = PathIn(line)) {
    if (path->empty() || path->find('\0') != std::string::npos || PathIn('"' + *path + '"') != path)
      std::abort();
  }
  const std::string quoted = Quoted(line);
  constexpr std::size_t kMost = 60 * 4 + 5;  // characters of four bytes, quotation marks and dots
  if (quoted.size() > kMost || quoted.size() < 2 || !quoted.ends_with('"')) std::abort();
  for (const char byte : quoted)
    if ((byte >= 0 && byte < 0x20) || byte == 0x7F) std::abort();
}

void CheckFault(std::string_view line) {
  try {
    const Fault fault = ParseFault(line);
    const std::string text = TextOf(fault);
    if (!IsPrintable(text) || ParseFault(text) != fault) std::abort();
  } catch (const std::invalid_argument& refusal) {
    const std::string_view words = refusal.what();
    if (!words.ends_with('.') || words.find('\n') != std::string_view::npos) std::abort();
  }
}

// Answers of every form with these texts in them.
void CheckJson(std::string_view name, std::string_view text) {
  if (TextOfJson(log::JsonText(text)) != log::ValidUtf8(text)) std::abort();
  if (log::ValidUtf8(log::ValidUtf8(text)) != log::ValidUtf8(text)) std::abort();
  log::JsonObject inner;
  inner.Add(name, text).Add("number", -static_cast<long>(text.size()));
  log::JsonObject object;
  object.Add("ok", std::optional<bool>(true))
      .Add(name, inner)
      .Add("objects", std::vector<log::JsonObject>{inner, {}, inner})
      .Add("texts", std::vector<std::optional<std::string>>{std::string(text), {}})
      .Add("milliseconds", static_cast<double>(text.size()) / 3)
      .AddNull("none")
      .Append(inner);
  if (!IsJsonLine(object.Text()) || !IsJsonLine(log::JsonObject().Text())) std::abort();
}

}  // namespace
}  // namespace vantrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  std::string_view before;
  while (!rest.empty()) {
    const std::size_t end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    vantrel::fuzz::CheckWords(line);
    vantrel::fuzz::CheckTexts(line);
    // A fault's text is what follows the words of its line, and may stand alone, too.
    constexpr std::string_view kFault = "fault ";
    vantrel::fuzz::CheckFault(line.starts_with(kFault) ? line.substr(kFault.size()) : line);
    vantrel::fuzz::CheckJson(before, line);
    before = line;
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  return 0;
}
