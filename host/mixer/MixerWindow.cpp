#include "host/mixer/MixerWindow.h"

#include <algorithm>
#include <array>

#include "host/app/KitWindow.h"
#include "host/app/Views.h"
#include "host/mixer/MAFaderNode.h"
#include "host/mixer/MALevelNode.h"
#include "host/mixer/MANode.h"
#include "host/mixer/MixerData.h"
#include "host/mixer/Painter.h"
#include "host/mixer/StripBuilder.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kToolbarHeight = 34;
constexpr double kAboveStrips = 8;
constexpr double kBelowStrips = 6;
constexpr double kBesideStrips = 10;
constexpr double kWidestWindow = 12'000;  // what lies beyond is scrolled out of sight

/// The view controller of the mixer's contents.
struct CLgRupertContentsViewController : ObjectState {
  Ref<NSObject> contentsController;
  Ref<NSObject> mixerFENSTER;
};

double drawMenu(const Painter& painter, double x, double height, const char* title) {
  constexpr double kWidth = 46;
  painter.text(title, CGRectMake(x, 0, kWidth, height), catalogueColour(Look::kToolbarText), {.size = 11.5});
  return x + kWidth;
}

/// The toolbar: menus at the left, the view modes in the middle.
void drawToolbar(CGRect bounds, CGContextRef context) {
  const Painter painter(context);
  const double height = bounds.size.height;
  painter.fill(bounds, catalogueColour(Look::kToolbarBackground));
  painter.fill(CGRectMake(0, 0, bounds.size.width, 1), catalogueColour(Look::kToolbarEdge));
  double x = 10;
  for (const char* menu : {"Edit", "Options", "View"}) x = drawMenu(painter, x, height, menu);
  constexpr std::array<const char*, 3> kModes{"Single", "Tracks", "All"};
  constexpr double kModeWidth = 62;
  const double left = std::floor(bounds.midX() - kModeWidth * 1.5);
  painter.fillRounded(CGRectMake(left - 1, 6, kModeWidth * 3 + 2, height - 12), 6, faded(NSColor::blackColor(), 0.25));
  for (std::size_t mode = 0; mode < kModes.size(); ++mode) {
    const CGRect frame = CGRectMake(left + kModeWidth * static_cast<double>(mode), 7, kModeWidth, height - 14);
    if (mode == 1) painter.fillRounded(frame, 5, catalogueColour(Look::kToolbarActive));
    painter.text(kModes[mode], frame, catalogueColour(Look::kToolbarText), {.size = 11, .weight = 0.23});
  }
}

Ref<NSObject> newObject(const char* className) {
  return Ref<NSObject>::adopt(NSObject(call<"init", id>(call<"alloc", id>(classNamed(className)))));
}

Ref<NSView> newView(const char* className, CGRect frame) {
  return Ref<NSView>::adopt(NSView(call<"initWithFrame:", id>(call<"alloc", id>(classNamed(className)), frame)));
}

}  // namespace

MixerWindow::MixerWindow(const Song& song, double scale) {
  buildNodes(song);
  buildViews(song, scale);
}

MixerWindow::~MixerWindow() {
  call<"setDelegate:">(contents_.get(), NSObject());
  window_->close();
}

void MixerWindow::buildNodes(const Song& song) {
  contentsController_ = newObject("CLgMixerContentsController");
  CLgMixerContentsController& controller = stateOf<CLgMixerContentsController>(contentsController_.get());
  controller.dataSource = newObject("CLgMixerDataSource");
  const double height = stripHeight(song);
  const double width = kStripWidth * static_cast<double>(song.tracks.size());
  root_ = makeNode("MANode", "mixer", CGRectMake(0, kBelowStrips, width, height));
  controller.node = root_;
  stateOf<MANode>(root_.get()).ownController = contentsController_;
  for (std::size_t i = 0; i < song.tracks.size(); ++i) {
    const AutoreleasePool pool;
    const Ref<NSObject> strip = buildStrip(song, song.tracks[i], i + 1);
    call<"setFrame:">(strip.get(), CGRectMake(kStripWidth * static_cast<double>(i), 0, kStripWidth, height));
    const Ref<NSObject> represented = newObject("CLgChannelStrip");
    stateOf<CLgChannelStrip>(represented.get()).track = &song.tracks[i];
    call<"setRepresentedObject:">(strip.get(), represented.get());
    call<"addChild:">(root_.get(), strip.get());
  }
}

void MixerWindow::buildViews(const Song& song, double scale) {
  const double contentHeight = stripHeight(song) + kBelowStrips + kAboveStrips;
  const double stripsWidth = kStripWidth * static_cast<double>(song.tracks.size());
  const double width = std::min(kWidestWindow, std::max(320.0, stripsWidth + kBesideStrips));
  window_ = openKitWindow("MAKitWindow", {width, contentHeight + kToolbarHeight}, song.title + " - Mixer", scale);
  const Ref<NSView> mixer = newView("CLgRupertView", CGRectMake(0, 0, width, contentHeight));
  const Ref<NSView> contents = newView("CLgRupertContentsView", CGRectMake(0, 0, width, contentHeight));
  contents_ = contents.get();
  viewController_ = newObject("CLgRupertContentsViewController");
  auto& controller = stateOf<CLgRupertContentsViewController>(viewController_.get());
  controller.contentsController = contentsController_;
  controller.mixerFENSTER = newObject("CLgMixerWindow");
  stateOf<CLgMixerWindow>(controller.mixerFENSTER.get()).showsTrackColours = song.trackColours;
  call<"setDelegate:">(contents_.get(), viewController_.get());
  call<"setBackgroundColor:">(contents_.get(), look(Look::kMixerBackground));
  call<"setNode:">(contents_.get(), root_.get());
  mixer->addSubview(contents);
  window_->contentView().addSubview(mixer);
  window_->contentView().addSubview(drawnView(CGRectMake(0, contentHeight, width, kToolbarHeight), drawToolbar));
  windowController_ = newObject("NSWindowController");
  call<"setWindow:">(windowController_.get(), window_.get());
}

NSArray MixerWindow::strips() const { return call<"childrenArray", NSArray>(root_.get()); }

void MixerWindow::updatePresentation() const { call<"updatePresentation">(contents_.get()); }

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
  call<"setTextColor:">(display, peakColour(level));
}

void MixerWindow::setVolume(std::size_t strip, double level) const {
  call<"setValue:">(section(strip, "volumeFader"), faderPosition(level));
  const NSObject display = section(strip, "volume");
  call<"setTitle:">(display, string(decibels(level)));
  call<"setTextColor:">(display, look(Look::kDisplayText));
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

void defineMixerWindow() {
  ClassDefinition<CLgRupertContentsViewController>("CLgRupertContentsViewController", "NSViewController")
      .getter<"contentsController", &CLgRupertContentsViewController::contentsController>()
      .getter<"mixerFENSTER", &CLgRupertContentsViewController::mixerFENSTER>()
      .registered();
}

}  // namespace host
