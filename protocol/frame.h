// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"
#include "protocol/control.h"

#include <cstdint>
#include <optional>
#include <span>

namespace vantrel::protocol {

// The block check of a frame: the exclusive-or of its content and of the ETX after it. The content
// is the command's code and its data, or those of a reply.
std::uint8_t BlockCheckOf(std::span<const std::uint8_t> content);

// The whole frame around a content, which must hold neither 02h nor 03h (that is not looked at):
// STX, content, ETX and block check.
link::Bytes FrameAround(std::span<const std::uint8_t> content);

// What a group of bytes on the line is.
enum class GroupKind {
  kFrame,    // from STX to block check, or as far as it came
  kControl,  // one of the printer's answers alone
  kNoise,    // bytes outside frames
};

// The kind of a group as FrameReader tells it apart, from its bytes alone.
GroupKind KindOf(Direction sender, std::span<const std::uint8_t> bytes);

// A frame, whole or cut short, taken apart. The content points into the frame's bytes.
struct FrameParts {
  // What stands between STX and ETX, or as far as it came; may be empty.
  std::span<const std::uint8_t> content;
  // The block check that came; nothing where the frame was cut short before it.
  std::optional<std::uint8_t> check;

  // Whether the block check came and is that of the content.
  bool CheckIsGood() const { return check == BlockCheckOf(content); }
};

// Takes apart bytes that begin with STX. Throws std::invalid_argument where they do not.
FrameParts PartsOf(std::span<const std::uint8_t> frame);

}  // namespace vantrel::protocol
