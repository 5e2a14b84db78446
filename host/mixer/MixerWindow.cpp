#include "host/mixer/MixerWindow.h"

#include <algorithm>
#include <array>

#include "host/kit/CLgArrangeWindowController.h"
#include "host/kit/KitWindow.h"
#include "host/mixer/MAFaderNode.h"
#include "host/mixer/MALevelNode.h"
#include "host/mixer/MANode.h"
#include "host/mixer/MixerToolbar.h"
#include "host/mixer/StripBuilder.h"
#include "host/palette/Palette.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kBesideStrips = 10;
constexpr double kWidestWindow = 12'000;  // what lies beyond is scrolled out of sight

CGSize contentSizeOf(const Song& song) {
  const double strips = kStripWidth * static_cast<double>(song.tracks.size()) + kBesideStrips;
  const double width = std::max(320.0, strips + MixerView::legendWidth(song));
  return {std::min(kWidestWindow, width), MixerView::height(song)};
}

}  // namespace

MixerWindow::MixerWindow(const Song& song, double scale) : mixer_(song, {{}, contentSizeOf(song)}) {
  const CGSize size = contentSizeOf(song);
  window_ =
      openKitWindow("MAKitWindow", {size.width, size.height + kMixerToolbarHeight}, song.title + " - Mixer", scale);
  const Ref<NSView> split = newView("MAView", {{}, size});
  split->addSubview(mixer_.view());
  window_->contentView().addSubview(split);
  window_->contentView().addSubview(newMixerToolbar(song, CGRectMake(0, size.height, size.width, kMixerToolbarHeight)));
  controller_ = newObject("CLgArrangeWindowController");
  stateOf<CLgArrangeWindowController>(controller_).mainSplitView = split;
  call<"setWindow:">(controller_.get(), window_.get());
}

MixerWindow::~MixerWindow() { window_->close(); }

NSObject MixerWindow::section(std::size_t strip, const char* name, std::size_t index) const {
  if (strip >= strips().count()) return {};
  const MANode& node = stateOf<MANode>(strips().objectAtIndex(strip));
  const NSString wanted = string(name);
  for (const NSObject child : items(node.childrenArray)) {
    if (stateOf<MANode>(child).name->isEqualToString(wanted) && index-- == 0) return child;
  }
  return {};
}

void MixerWindow::setLevels(std::size_t strip, const std::array<double, 2>& levels) const {
  if (MALevelNode* meter = stateIfKind<MALevelNode>(section(strip, "level"))) meter->setLevels(levels);
}

void MixerWindow::setPeak(std::size_t strip, double level) const {
  const NSObject display = section(strip, "peak");
  call<"setTitle:">(display, string(decibels(level)));
  call<"setTextColor:">(display, peakColor(level));
}

void MixerWindow::setVolume(std::size_t strip, double level) const {
  call<"setValue:">(section(strip, "volumeFader"), faderPosition(level));
  const NSObject display = section(strip, "volume");
  call<"setTitle:">(display, string(decibels(level)));
  call<"setTextColor:">(display, paletteColor(Palette::kDisplayText));
}

void MixerWindow::setPan(std::size_t strip, double pan) const {
  const NSObject panner = section(strip, "pan");
  call<"setValue:">(panner, (pan + 64) / 127);
  if (!panner) return;
  const auto readout = call<"childNodeWithName:", NSObject>(panner, literal<"panner readout">());
  call<"setTitle:">(readout, string(signedNumber(pan)));
}

void MixerWindow::setSelected(std::size_t strip, bool selected) const {
  if (strip < strips().count()) call<"setHighlightState:">(strips().objectAtIndex(strip), NSInteger(selected ? 1 : 0));
}

void MixerWindow::setButton(std::size_t strip, const char* name, NSInteger state) const {
  call<"setState:">(section(strip, name), state);
}

void MixerWindow::setPlugIn(std::size_t strip, std::size_t slot, const PlugInSlot& plugIn) const {
  const NSObject button = section(strip, "audioPlugIn", slot);
  if (!button) return;
  // The kind comes before what it stands for, as when the slot was built.
  call<"setRepresentedObject:">(button, NSObject());
  call<"setAssetSetPath:">(button, literal<"Buttons.AudioPlugIn">());
  showPlugIn(button, plugIn);
}

void MixerWindow::setSend(std::size_t strip, std::size_t slot, double level, bool bypassed) const {
  call<"setState:">(section(strip, "sendButton", slot), NSInteger(bypassed ? 0 : 1));
  const NSObject knob = section(strip, "sendKnob", slot);
  call<"setValue:">(knob, level);
  call<"setBypassed:">(knob, BOOL(bypassed));
}

}  // namespace host
