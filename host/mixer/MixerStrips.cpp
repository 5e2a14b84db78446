#include "host/mixer/MixerStrips.h"

#include "host/drawing/Painter.h"
#include "host/kit/KitWindow.h"
#include "host/kit/Views.h"
#include "host/mixer/MANode.h"
#include "host/mixer/MixerData.h"
#include "host/mixer/MixerLegend.h"
#include "host/mixer/StripBuilder.h"

namespace host {
namespace {

using namespace cocoa;

/// The view controller of the mixer's contents.
struct CLgRupertContentsViewController : ObjectState {
  Ref<NSObject> contentsController;
  Ref<NSObject> mixerFENSTER;
  id delegate = nullptr;  // not retained; nil for faders of an unnamed length
  const Song* song = nullptr;

  NSObject delegateHandle() { return NSObject(delegate); }
  NSObject legendItem(NSString identifier) { return song == nullptr ? NSObject() : newLegendItem(*song, identifier); }
};

/// Knows how the mixer is set up.
struct CLgMixerSetup : ObjectState {
  bool longFaders = false;
};

}  // namespace

MixerStrips::MixerStrips(const Song& song, const std::vector<std::size_t>& tracks, CGRect frame) {
  buildNodes(song, tracks);
  view_ = newView("CLgRupertContentsView", frame);
  viewController_ = newObject("CLgRupertContentsViewController");
  auto& controller = stateOf<CLgRupertContentsViewController>(viewController_);
  controller.song = &song;
  controller.contentsController = contentsController_;
  controller.mixerFENSTER = newObject("CLgMixerWindow");
  stateOf<CLgMixerWindow>(controller.mixerFENSTER).showsTrackColors = song.trackColors;
  if (song.faderLength != FaderLength::kMedium) {
    delegate_ = newObject("CLgMixerSetup");
    stateOf<CLgMixerSetup>(delegate_).longFaders = song.faderLength == FaderLength::kLong;
    controller.delegate = delegate_.get().object;
  }
  call<"setDelegate:">(view_.get(), viewController_.get());
  call<"setBackgroundColor:">(view_.get(), paletteColor(Palette::kMixerBackground));
  call<"setNode:">(view_.get(), root_.get());
}

MixerStrips::~MixerStrips() {
  // Others may hold on to these objects for longer than there is a song to show.
  call<"setDelegate:">(view_.get(), NSObject());
  auto& controller = stateOf<CLgRupertContentsViewController>(viewController_);
  controller.delegate = nullptr;
  controller.song = nullptr;
}

void MixerStrips::buildNodes(const Song& song, const std::vector<std::size_t>& tracks) {
  contentsController_ = newObject("CLgMixerContentsController");
  auto& controller = stateOf<CLgMixerContentsController>(contentsController_);
  controller.dataSource = newObject("CLgMixerDataSource");
  const double height = stripHeight(song);
  root_ = makeNode("MANode", "mixer",
                   CGRectMake(0, kBelowStrips, kStripWidth * static_cast<double>(tracks.size()), height));
  controller.node = root_;
  stateOf<MANode>(root_).ownController = contentsController_;
  for (std::size_t i = 0; i < tracks.size(); ++i) {
    const AutoreleasePool pool;
    const Track& track = song.tracks[tracks[i]];
    const Ref<NSObject> strip = buildStrip(song, track, tracks[i] + 1);
    call<"setFrame:">(strip.get(), CGRectMake(kStripWidth * static_cast<double>(i), 0, kStripWidth, height));
    const Ref<NSObject> represented = newObject("CLgChannelStrip");
    stateOf<CLgChannelStrip>(represented).track = &track;
    call<"setRepresentedObject:">(strip.get(), represented.get());
    call<"addChild:">(root_.get(), strip.get());
  }
}

NSArray MixerStrips::strips() const { return call<"childrenArray", NSArray>(root_.get()); }

void MixerStrips::updatePresentation() const { call<"updatePresentation">(view_.get()); }

void defineMixerStrips() {
  ClassDefinition<CLgMixerSetup>("CLgMixerSetup", "NSObject")
      .getter<"longFaders", &CLgMixerSetup::longFaders>()
      .registered();
  ClassDefinition<CLgRupertContentsViewController>("CLgRupertContentsViewController", "NSViewController")
      .getter<"contentsController", &CLgRupertContentsViewController::contentsController>()
      .getter<"mixerFENSTER", &CLgRupertContentsViewController::mixerFENSTER>()
      .method<"delegate", &CLgRupertContentsViewController::delegateHandle>()
      .method<"legendItemForIdentifier:", &CLgRupertContentsViewController::legendItem>()
      .registered();
}

}  // namespace host
