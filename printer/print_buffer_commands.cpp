#include "printer/barcode.h"
#include "printer/command.h"
#include "printer/fields.h"
#include "printer/fonts.h"
#include "printer/internal_images.h"
#include "printer/page.h"
#include "printer/print_text.h"

#include <optional>

namespace vantrel {
namespace {

// What 41h, 42h and 4Ah begin with: direction, X and Y.
struct Arrangement {
  char direction = '0';
  int x = 0;
  int y = 0;
};

std::optional<Arrangement> ReadArrangement(FieldReader& fields) {
  const auto direction = fields.Character();
  if (!direction || !IsDirection(*direction)) return std::nullopt;
  const bool vertical = IsVertical(*direction);
  const auto x = fields.Number((vertical ? kFaceHeight : kFaceWidth) - 1);
  const auto y = fields.Number((vertical ? kFaceWidth : kFaceHeight) - 1);
  if (!x || !y) return std::nullopt;
  return Arrangement{*direction, *x, *y};
}

Reply ReplyWhether(bool fitted) { return {fitted ? status::kNormal : status::kOverflow, {}}; }

// 40h leaves the image data in the print expansion buffer, 49h clears that too.
Reply ClearPrintData(PrinterState& state, const Command&) {
  state.print_image = state.image_data;
  return {};
}

Reply ClearEverything(PrinterState& state, const Command&) {
  state.image_data.Clear();
  state.print_image.Clear();
  return {};
}

struct PrintData {
  Arrangement arrangement;
  std::vector<TextItem> items;
};

std::optional<PrintData> ReadPrintData(std::string_view data) {
  FieldReader fields(data);
  const auto arrangement = ReadArrangement(fields);
  if (!arrangement) return std::nullopt;
  auto items = ParsePrintText(fields.Rest(), IsVertical(arrangement->direction));
  if (!items) return std::nullopt;
  return PrintData{*arrangement, std::move(*items)};
}

bool IsPrintData(std::string_view data) { return ReadPrintData(data).has_value(); }

Reply ExpandPrintData(PrinterState& state, const Command& command) {
  const auto data = ReadPrintData(command.data);
  const auto& [direction, x, y] = data->arrangement;
  Page page(state.print_image, direction);
  return ReplyWhether(
      DrawPrintText(page, {SystemFonts(), state.registers, state.code_page, x, y}, data->items));
}

struct ImageChoice {
  Arrangement arrangement;
  int number = 0;
};

std::optional<ImageChoice> ReadImageChoice(std::string_view data) {
  FieldReader fields(data);
  const auto arrangement = ReadArrangement(fields);
  const auto number = NumberOf(fields.Rest(), kHighestImageNumber);
  if (!arrangement || !number || *number >= kInternalImages) return std::nullopt;
  return ImageChoice{*arrangement, *number};
}

bool IsImageChoice(std::string_view data) { return ReadImageChoice(data).has_value(); }

Reply ExpandInternalImage(PrinterState& state, const Command& command) {
  const auto choice = ReadImageChoice(command.data);
  const auto& [direction, x, y] = choice->arrangement;
  return ReplyWhether(Page(state.print_image, direction).Put(InternalImage(choice->number), x, y));
}

// Part of an image registered by 4Bh: its columns from a first to a last dot.
struct RegisteredChoice {
  Arrangement arrangement;
  std::size_t number = 0;
  int first = 0;
  int last = 0;
};

std::optional<RegisteredChoice> ReadRegisteredChoice(std::string_view data) {
  FieldReader fields(data);
  const auto arrangement = ReadArrangement(fields);
  const auto digit = fields.Character();
  const auto number = digit ? HexDigitOf(*digit) : std::nullopt;
  const auto first = fields.Number(kLongestBmpSide - 1);
  const auto last = NumberOf(fields.Rest(), kLongestBmpSide - 1);
  if (!arrangement || !number || !first || !last || *last < *first) return std::nullopt;
  return RegisteredChoice{*arrangement, static_cast<std::size_t>(*number), *first, *last};
}

bool IsRegisteredChoice(std::string_view data) { return ReadRegisteredChoice(data).has_value(); }

// Whether the register holds an image with those dots.
bool IsRegistered(const PrinterState& state, const Command& command) {
  const auto choice = ReadRegisteredChoice(command.data);
  return choice->last < state.registers.images.at(choice->number).Width();
}

Reply ExpandRegisteredImage(PrinterState& state, const Command& command) {
  const auto choice = ReadRegisteredChoice(command.data);
  const auto image = state.registers.images.at(choice->number).Picture();
  // The register may have been given another image while the command stood in line.
  if (!image || choice->last >= image->Width()) return {status::kNoMonochromeBmp, {}};
  Bitmap part(choice->last - choice->first + 1, image->Height());
  for (int y = 0; y < part.Height(); ++y) {
    for (int x = 0; x < part.Width(); ++x) part.Set(x, y, image->At(choice->first + x, y));
  }
  const auto& [direction, x, y] = choice->arrangement;
  return ReplyWhether(Page(state.print_image, direction).Put(part, x, y));
}

bool IsBarcode(std::string_view data) { return ParseBarcode(data).has_value(); }

Reply ExpandBarcode(PrinterState& state, const Command& command) {
  return ReplyWhether(DrawBarcode(state.print_image, *ParseBarcode(command.data)));
}

constexpr CommandRow kRows[] = {
    {0x40, Need::kNothing, IsEmpty, kNoTime, ClearPrintData},
    {0x41, Need::kNothing, IsPrintData, kNoTime, ExpandPrintData},
    {0x42, Need::kNothing, IsImageChoice, kNoTime, ExpandInternalImage},
    {0x49, Need::kNothing, IsEmpty, kNoTime, ClearEverything},
    {0x4A, Need::kNothing, IsRegisteredChoice, kNoTime, ExpandRegisteredImage, IsRegistered},
    {0x4E, Need::kNothing, IsBarcode, kNoTime, ExpandBarcode},
};

}  // namespace

std::span<const CommandRow> PrintBufferCommands() { return kRows; }

}  // namespace vantrel
