// SPDX-License-Identifier: MIT

// What does drawing a full card cost, and what does one frame cost the printer's model?

#include "link/common.h"
#include "link/frame.h"
#include "printer/model/printer_model.h"

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <vector>

namespace vantrel::bench {
namespace {

link::Bytes Frame(std::uint8_t code, std::string_view data) {
  std::string hex;
  for (const char character : data) hex += link::HexOf(static_cast<std::uint8_t>(character));
  return link::BytesOf(link::ComposeFrame(link::HexOf(code), hex));
}

printer::Fonts& InstalledFonts() {
  static printer::Fonts fonts(printer::SystemFontFolder());
  return fonts;
}

// Text in two sizes all over the card, an image, a barcode and a block of image data.
std::vector<link::Bytes> FullCard() {
  std::vector<link::Bytes> frames;
  frames.push_back(Frame(0x49, ""));
  const std::string line(40, 'W');
  for (int y = 23; y < printer::kFaceHeight; y += 24)
    frames.push_back(Frame(0x41, "1,0," + std::to_string(y) + "," + line));
  for (int y = 47; y < printer::kFaceHeight; y += 48)
    frames.push_back(Frame(0x41, "3,0," + std::to_string(y) +
                                     ",\x1B"
                                     "E22" +
                                     line.substr(0, 20)));
  frames.push_back(Frame(0x42, "1,200,200,2"));
  frames.push_back(Frame(0x4E, "240,280,3,123456789"));
  frames.push_back(Frame(0x4D, "430,0,5," + std::string(400, 'A')));
  return frames;
}

void RenderAFullCard(benchmark::State& state) {
  printer::PrinterModel model(InstalledFonts(), link::CodePage::kWestern);
  const auto frames = FullCard();
  std::size_t accepted = 0;
  model.OnSend([&accepted](const link::Bytes& chunk) {
    if (chunk.front() == protocol::kAcknowledge) ++accepted;
  });
  for (auto _ : state) {
    for (const link::Bytes& frame : frames) model.Receive(frame, protocol::Moment{0});
  }
  if (accepted != frames.size() * static_cast<std::size_t>(state.iterations()))
    state.SkipWithError("A frame was not accepted.");
}
BENCHMARK(RenderAFullCard)->Unit(benchmark::kMillisecond);

void ServeFrame(benchmark::State& state, const link::Bytes& frame) {
  printer::PrinterModel model(InstalledFonts(), link::CodePage::kWestern);
  std::size_t accepted = 0;
  model.OnSend([&accepted](const link::Bytes& chunk) {
    if (chunk.front() == protocol::kAcknowledge) ++accepted;
  });
  for (auto _ : state) model.Receive(frame, protocol::Moment{0});
  if (accepted != static_cast<std::size_t>(state.iterations()))
    state.SkipWithError("A frame was not accepted.");
}
BENCHMARK_CAPTURE(ServeFrame, RomVersion, Frame(0x58, ""));
BENCHMARK_CAPTURE(ServeFrame, BufferClear, Frame(0x40, ""));
BENCHMARK_CAPTURE(ServeFrame, PrintText, Frame(0x41, "2,0,47,Test Print"));
BENCHMARK_CAPTURE(ServeFrame, printer::InternalImage, Frame(0x42, "2,0,47,0"));
BENCHMARK_CAPTURE(ServeFrame, ImageLine, Frame(0x43, "100,0,FF00FF00FF"));
BENCHMARK_CAPTURE(ServeFrame, ImageBlock, Frame(0x4D, "0,0,5," + std::string(400, 'A')));
BENCHMARK_CAPTURE(ServeFrame, ExternalCharacter, Frame(0x44, "0,0," + std::string(144, 'F')));
BENCHMARK_CAPTURE(ServeFrame, Barcode, Frame(0x4E, "0,47,2,123"));

}  // namespace
}  // namespace vantrel::bench

BENCHMARK_MAIN();
