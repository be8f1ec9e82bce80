// SPDX-License-Identifier: MIT

// Any bytes as what a printer answers, byte by byte: each is judged as the rule for a reply says,
// and what is complete has words, whatever data it carries.

#include "fuzz/target.h"
#include "link/frame.h"
#include "link/reply.h"
#include "link/status_text.h"
#include "log/json_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

namespace vantrel::fuzz {
namespace {

using link::Judgement;

// The device's protocol in bytes: 06h, STX, the command's code, status and data, ETX, and the
// exclusive-or of all after STX. 10h and 15h stand for themselves, whatever follows.
Judgement Expected(std::span<const std::uint8_t> bytes, std::uint8_t code) {
  if (bytes.empty()) return Judgement::kWait;
  if (bytes[0] == 0x10) return Judgement::kReject;
  if (bytes[0] == 0x15) return Judgement::kResend;
  if (bytes[0] != 0x06) return Judgement::kUnknown;
  if (bytes.size() < 4 || bytes[1] != 0x02 || bytes[2] != code || bytes[bytes.size() - 2] != 0x03)
    return Judgement::kWait;
  std::uint8_t check = 0;
  for (const std::uint8_t byte : bytes.subspan(2, bytes.size() - 3)) check ^= byte;
  return check == bytes.back() ? Judgement::kComplete : Judgement::kWait;
}

std::size_t CharactersOf(std::string_view utf8) {
  return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80;
  }));
}

void CheckWords(const std::string& buffer, std::uint8_t code, link::CodePage page) {
  const std::string data = link::ReplyData(buffer);
  constexpr std::size_t kRoundData = 6;  // 06h, STX, code, status, ETX and block check
  const std::size_t bytes = buffer.size() / 2;
  if (data.size() != (bytes > kRoundData ? bytes - kRoundData : 0)) std::abort();
  const std::string_view label = link::ReplyLabel(link::HexOf(code));
  const unsigned status = link::ReplyStatus(buffer);
  const std::string meaning = link::ReplyMeaning(label, buffer, page);
  if (meaning.empty() || log::ValidUtf8(meaning) != meaning || !meaning.starts_with(label))
    std::abort();
  // The status is told, but for the normal one behind a label; each byte is one character.
  const bool tells_status = status != 0x20 || label.empty();
  const std::string_view words = tells_status ? link::StatusText(status) : std::string_view();
  if (tells_status && words.empty()) std::abort();
  if (meaning.substr(label.size(), words.size()) != words) std::abort();
  if (CharactersOf(meaning.substr(label.size() + words.size())) != data.size()) std::abort();
}

}  // namespace
}  // namespace vantrel::fuzz

// The first byte chooses the code page and, with bit 7, that 06h, STX and code come before the rest
// and ETX and a good block check after it; the second is the code of the command that was sent.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vantrel;
  using link::CodePage;
  if (size < 2) return 0;
  constexpr CodePage kPages[] = {CodePage::kJapanese, CodePage::kSimplifiedChinese,
                                 CodePage::kKorean, CodePage::kTraditionalChinese,
                                 CodePage::kWestern};
  const CodePage page = kPages[(data[0] & 0x7F) % std::size(kPages)];
  const std::uint8_t code = data[1];
  link::Bytes received(data + 2, data + size);
  if ((data[0] & 0x80) != 0) {
    received.insert(received.begin(), {0x06, 0x02, code});
    received.push_back(0x03);
    std::uint8_t check = 0;
    for (std::size_t i = 2; i < received.size(); ++i) check ^= received[i];
    received.push_back(check);
  }
  const std::string frame = link::ComposeFrame(link::HexOf(code), "3132");
  std::string buffer;
  for (std::size_t count = 0; count <= received.size(); ++count) {
    if (count > 0) buffer += link::HexOf(received[count - 1]);
    const auto judgement = link::JudgeReply(buffer, frame);
    if (judgement != fuzz::Expected(std::span(received).first(count), code)) std::abort();
    if (judgement == link::Judgement::kComplete) fuzz::CheckWords(buffer, code, page);
  }
  return 0;
}
