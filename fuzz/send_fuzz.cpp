// SPDX-License-Identifier: MIT

// Lines of commands for the sender, any bytes: each is refused in a sentence or becomes frames, as
// the console would send them.

#include "commandline/parse.h"
#include "fuzz/target.h"
#include "link/frame.h"
#include "send/job.h"
#include "send/table.h"
#include "send/words.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace vantrel;

// A picture as large as fits, whose dots differ.
send::Picture AnyPicture(const std::string&, const send::PictureLimits& limits) {
  send::Picture picture;
  picture.width = limits.width;
  picture.height = limits.height;
  const auto count =
      static_cast<std::size_t>(limits.width) * static_cast<std::size_t>(limits.height);
  for (std::size_t i = 0; i < count; ++i) picture.grey.push_back(static_cast<std::uint8_t>(i * 7));
  picture.alpha.assign(count, 255);
  return picture;
}

// Whether it is a frame of that command, from STX to its block check.
bool IsFrameOf(const std::string& code, const std::string& frame) {
  const link::Bytes bytes = link::BytesOf(frame);
  if (bytes.size() < 4 || bytes[0] != 0x02 || frame.substr(2, 2) != code ||
      bytes[bytes.size() - 2] != 0x03)
    return false;
  std::uint8_t check = 0;
  for (std::size_t i = 1; i + 1 < bytes.size(); ++i) check ^= bytes[i];
  return check == bytes.back();
}

void Take(std::string_view line) {
  const send::Means means{.read_picture = AnyPicture};
  try {
    const std::vector<std::string> words = send::WordsOf(line);
    if (words.empty()) return;
    const commandline::Parsed parsed = commandline::Parse(send::LineTable(), words);
    if (parsed.Command() == nullptr) return;
    const send::Job job = send::Compose(parsed, means);
    if (job.frames.empty() || job.time_limit < 1) std::abort();
    for (const std::string& frame : job.frames)
      if (!IsFrameOf(job.code, frame)) std::abort();
  } catch (const commandline::WrongUse& refusal) {
    if (std::string_view(refusal.what()).empty()) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  while (!rest.empty()) {
    const std::size_t end = rest.find('\n');
    Take(rest.substr(0, end));
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  return 0;
}
