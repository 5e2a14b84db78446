#include "host/sequencer/StepSequencerPanel.h"

#include "cocoa/Call.h"
#include "cocoa/ClassDefinition.h"
#include "host/drawing/Painter.h"
#include "host/kit/KitWindow.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kHeaderWidth = 120;
constexpr double kRowHeight = 30;
constexpr double kStepWidth = 26;
constexpr int kSteps = 16;

struct Row {
  const char* name;
  unsigned steps;  // one bit a step, the first lowest
};
constexpr Row kRows[] = {{"Kick", 0x1111},       {"Snare", 0x1010},    {"Clap", 0x9010},
                         {"Closed Hat", 0x5555}, {"Open Hat", 0x4444}, {"Shaker", 0xBBBB}};

NSColor stepSequencerRowHeadersBackgroundColor(Class /*self*/) { return catalogueColor(Palette::kRowHeaderBackground); }

void drawSteps(const Painter& painter, const Row& row, double y) {
  for (int step = 0; step < kSteps; ++step) {
    const CGRect frame = CGRectMake(kHeaderWidth + 8 + kStepWidth * step, y + 4, kStepWidth - 4, kRowHeight - 8);
    const bool on = (row.steps >> static_cast<unsigned>(step) & 1U) != 0;
    const Palette color = !on ? Palette::kStepOff : step % 4 == 0 ? Palette::kStepAccent : Palette::kStepOn;
    painter.fillRounded(frame, 4, catalogueColor(color));
  }
}

void drawSequencer(CGRect bounds, CGContextRef context) {
  const Painter painter(context);
  painter.fill(bounds, paletteColor(Palette::kMixerBackground));
  const auto headers = call<"stepSequencerRowHeadersBackgroundColor", NSColor>(asObject(classNamed<"NSColor">()));
  painter.fill(CGRectMake(0, 0, kHeaderWidth, bounds.size.height), headers);
  double y = bounds.size.height - kRowHeight - 6;
  for (const Row& row : kRows) {
    painter.text(row.name, CGRectMake(12, y, kHeaderWidth - 20, kRowHeight), catalogueColor(Palette::kRowHeaderText),
                 {.size = 11.5, .alignment = TextAlignment::kLeft});
    drawSteps(painter, row, y);
    y -= kRowHeight;
  }
}

}  // namespace

StepSequencerPanel::StepSequencerPanel(double scale) {
  constexpr double kBelowRows = 40;
  const CGSize content{kHeaderWidth + 12 + kStepWidth * kSteps,
                       kRowHeight * static_cast<double>(std::size(kRows)) + kBelowRows};
  panel_ = openKitWindow("MAKitPanel", content, "Step Sequencer", scale);
  panel_->contentView().addSubview(drawnView({{0, 0}, content}, drawSequencer));
}

StepSequencerPanel::~StepSequencerPanel() { panel_->close(); }

void attachStepSequencerColors() {
  CategoryDefinition("NSColor")
      .classMethod<"stepSequencerRowHeadersBackgroundColor", stepSequencerRowHeadersBackgroundColor>();
}

}  // namespace host
