#include "host/app/StepSequencerPanel.h"

#include "host/app/Views.h"
#include "host/mixer/Painter.h"

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
constexpr Row kRows[] = {{"Kick", 0x1111}, {"Snare", 0x1010}, {"Clap", 0x9010},
                         {"Closed Hat", 0x5555}, {"Open Hat", 0x4444}, {"Shaker", 0xBBBB}};

NSColor catalogueColour(Look which) {
  return NSColor::colorWithCatalogName(literal<"#$assets-mainBundleID">(), string(catalogueName(which)));
}

NSColor stepSequencerRowHeadersBackgroundColor(Class /*self*/) { return catalogueColour(Look::kRowHeaderBackground); }

void drawSteps(const Painter& painter, const Row& row, double y) {
  for (int step = 0; step < kSteps; ++step) {
    const CGRect frame = CGRectMake(kHeaderWidth + 8 + kStepWidth * step, y + 4, kStepWidth - 4, kRowHeight - 8);
    const bool on = (row.steps >> static_cast<unsigned>(step) & 1U) != 0;
    const Look colour = !on ? Look::kStepOff : step % 4 == 0 ? Look::kStepAccent : Look::kStepOn;
    painter.fillRounded(frame, 4, catalogueColour(colour));
  }
}

void drawSequencer(CGRect bounds, CGContextRef context) {
  const Painter painter(context);
  painter.fill(bounds, look(Look::kMixerBackground));
  const auto headers =
      call<"stepSequencerRowHeadersBackgroundColor", NSColor>(asObject(classNamed<"NSColor">()));
  painter.fill(CGRectMake(0, 0, kHeaderWidth, bounds.size.height), headers);
  double y = bounds.size.height - kRowHeight - 6;
  for (const Row& row : kRows) {
    painter.text(row.name, CGRectMake(12, y, kHeaderWidth - 20, kRowHeight), catalogueColour(Look::kRowHeaderText),
                 {.size = 11.5, .alignment = TextAlignment::kLeft});
    drawSteps(painter, row, y);
    y -= kRowHeight;
  }
}

}  // namespace

StepSequencerPanel::StepSequencerPanel(double scale) {
  const CGRect content =
      CGRectMake(0, 0, kHeaderWidth + 12 + kStepWidth * kSteps, kRowHeight * static_cast<double>(std::size(kRows)) + 40);
  panel_ = Ref<NSWindow>::adopt(NSWindow(call<"initWithContentRect:styleMask:backing:defer:", id>(
      call<"alloc", id>(classNamed("MAKitPanel")), content, NSUInteger(15), NSUInteger(2), BOOL(0))));
  panel_->setTitle(literal<"Step Sequencer">());
  call<"setBackingScaleFactor:">(panel_.get(), scale);
  const auto view = Ref<NSView>::adopt(
      NSView(call<"initWithFrame:", id>(call<"alloc", id>(classNamed("CLgToolbarView")), content)));
  stateOf<CLgToolbarView>(view.get()).draw = drawSequencer;
  panel_->contentView().addSubview(view);
  panel_->orderFront(NSObject());
}

StepSequencerPanel::~StepSequencerPanel() { panel_->close(); }

void attachStepSequencerColours() {
  CategoryDefinition("NSColor")
      .classMethod<"stepSequencerRowHeadersBackgroundColor", stepSequencerRowHeadersBackgroundColor>();
}

}  // namespace host
