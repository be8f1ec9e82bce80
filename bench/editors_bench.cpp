// SPDX-License-Identifier: MIT

// Do the editors of dots answer within a frame (16 ms), and does the image editor open within 50
// ms? Run off-screen: QT_QPA_PLATFORM=offscreen editors_bench.

#include "bench/quiet.h"
#include "editors/frm_external_font.h"
#include "editors/frm_external_image.h"

#include <QApplication>
#include <QImage>
#include <QPushButton>
#include <benchmark/benchmark.h>

namespace vantrel::bench {
namespace {

void Press(QWidget& form, const char* button) { form.findChild<QPushButton*>(button)->click(); }

// Paints the whole grid, whatever of it has changed: the most that a change can cost.
void Repaint(editors::DotGrid& grid, QImage& image) { grid.render(&image); }

QImage ImageFor(const editors::DotGrid& grid) {
  return QImage(grid.size(), QImage::Format_ARGB32_Premultiplied);
}

// The image editor in block mode, ready to draw on the whole grid.
class BlockImage {
 public:
  BlockImage() {
    common_.IsBlockMode = true;
    form_.show();
    Press(form_, "CmdSet");
  }
  editors::DotGrid& Grid() { return *form_.findChild<editors::DotGrid*>("Lbldot"); }
  QPixmap Picture() { return form_.grab(); }

 private:
  link::CommonVariables common_;
  NoDialogs dialogs_;
  NoGuard guard_;
  editors::FrmExternalImage form_{common_, dialogs_, guard_};
};

void FillAllOfTheFontEditor(benchmark::State& state) {
  link::CommonVariables common;
  common.IsDoubleByteFont = true;
  NoDialogs dialogs;
  NoGuard guard;
  editors::FrmExternalFont form(common, dialogs, guard);
  form.show();
  auto& grid = *form.findChild<editors::DotGrid*>("LblDot");
  QImage image = ImageFor(grid);
  for (auto _ : state) {
    Press(form, "CmdAll_0");
    Repaint(grid, image);
    state.PauseTiming();
    Press(form, "CmdAll_1");
    state.ResumeTiming();
  }
}

void RowOfTheImageEditor(benchmark::State& state) {
  BlockImage image_editor;
  editors::DotGrid& grid = image_editor.Grid();
  QImage image = ImageFor(grid);
  const editors::DotGrid::Target row{editors::DotGrid::Target::Kind::kRowSelector, 20};
  for (auto _ : state) {
    grid.Click(row);
    Repaint(grid, image);
    state.PauseTiming();
    grid.DblClick(row);
    state.ResumeTiming();
  }
}

void OneDotOfTheImageEditor(benchmark::State& state) {
  BlockImage image_editor;
  editors::DotGrid& grid = image_editor.Grid();
  for (auto _ : state) {
    grid.Click({editors::DotGrid::Target::Kind::kDot, 820});
    QApplication::processEvents();  // repaints the dot
  }
}

// From nothing to the first picture of the form with its grid.
void OpeningTheImageEditor(benchmark::State& state) {
  for (auto _ : state) {
    BlockImage image_editor;
    benchmark::DoNotOptimize(image_editor.Picture());
  }
}

BENCHMARK(FillAllOfTheFontEditor)->Unit(benchmark::kMillisecond);
BENCHMARK(RowOfTheImageEditor)->Unit(benchmark::kMillisecond);
BENCHMARK(OneDotOfTheImageEditor)->Unit(benchmark::kMillisecond);
BENCHMARK(OpeningTheImageEditor)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vantrel::bench

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
