// SPDX-License-Identifier: MIT

#include "printer/commands/command.h"
#include "printer/drawing/barcode.h"
#include "printer/drawing/fonts.h"
#include "printer/drawing/internal_images.h"
#include "printer/drawing/page.h"
#include "printer/drawing/print_text.h"

namespace vantrel::printer {
namespace {

Reply ReplyWhether(bool fitted) { return {fitted ? status::kNormal : status::kOverflow, {}}; }

// 40h leaves the image data in the print expansion buffer, 49h clears that too.
Reply ClearPrintData(PrinterState& state, const protocol::NoData&) {
  state.print_image = state.image_data;
  return {};
}

Reply ClearEverything(PrinterState& state, const protocol::NoData&) {
  state.image_data.Clear();
  state.print_image.Clear();
  return {};
}

Reply ExpandPrintData(PrinterState& state, const protocol::PrintData& data) {
  const auto& [direction, x, y] = data.arrangement;
  Page page(state.print_image, direction);
  return ReplyWhether(
      DrawPrintText(page, {state.fonts, state.registers, state.code_page, x, y}, data.items));
}

// Of the images that there could be, the printer holds the first few.
bool IsHeld(const PrinterState&, const protocol::ImageChoice& choice) {
  return choice.number < kInternalImages;
}

Reply ExpandInternalImage(PrinterState& state, const protocol::ImageChoice& choice) {
  const auto& [direction, x, y] = choice.arrangement;
  return ReplyWhether(Page(state.print_image, direction).Put(InternalImage(choice.number), x, y));
}

// Whether the register holds an image with those dots.
bool IsRegistered(const PrinterState& state, const protocol::RegisteredImageChoice& choice) {
  return choice.last < state.registers.images.at(choice.number).Width();
}

Reply ExpandRegisteredImage(PrinterState& state, const protocol::RegisteredImageChoice& choice) {
  const auto image = state.registers.images.at(choice.number).Picture();
  // The register may have been given another image while the command stood in line.
  if (!image || choice.last >= image->Width()) return {status::kNoMonochromeBmp, {}};
  Bitmap part(choice.last - choice.first + 1, image->Height());
  for (int y = 0; y < part.Height(); ++y) {
    for (int x = 0; x < part.Width(); ++x) part.Set(x, y, image->At(choice.first + x, y));
  }
  const auto& [direction, x, y] = choice.arrangement;
  return ReplyWhether(Page(state.print_image, direction).Put(part, x, y));
}

Reply ExpandBarcode(PrinterState& state, const protocol::Barcode& barcode) {
  return ReplyWhether(DrawBarcode(state.print_image, state.fonts, barcode));
}

constexpr CommandRow kRows[] = {
    {.code = 0x40, .work = kFor<ClearPrintData>},
    {.code = 0x41, .work = kFor<ExpandPrintData>},
    {.code = 0x42, .work = kFor<ExpandInternalImage>, .fits = kFor<IsHeld>},
    {.code = 0x49, .work = kFor<ClearEverything>},
    {.code = 0x4A, .work = kFor<ExpandRegisteredImage>, .fits = kFor<IsRegistered>},
    {.code = 0x4E, .work = kFor<ExpandBarcode>},
};

}  // namespace

std::span<const CommandRow> PrintBufferCommands() { return kRows; }

}  // namespace vantrel::printer
