#include "host/mixer/MixerData.h"

namespace host {
namespace {

using namespace cocoa;

/// How many element switches a strip set-up lists, and which of them shows track colours.
constexpr NSUInteger kElements = 48;
constexpr NSUInteger kTrackColorElement = 44;

/// The strip set-up that the host would save: a switch per element.
NSDictionary createSaveConfigDict(Class /*self*/, NSObject window) {
  const CLgMixerWindow* mixer = stateIfKind<CLgMixerWindow>(window);
  if (mixer == nullptr) return {};
  const auto switches = NSMutableArray::array();
  for (NSUInteger i = 0; i < kElements; ++i) {
    switches.addObject(NSNumber::numberWithBool(i != kTrackColorElement || mixer->showsTrackColors));
  }
  const auto config = NSMutableDictionary::dictionary();
  config.setObject(switches, literal<"isMixThing">());
  return config;
}

struct ChannelStripConfigController : ObjectState {};

}  // namespace

NSColor trackColor(const Track& track) {
  if (!track.color) return {};
  return NSColor::colorWithSRGBRed(track.color->red / 255.0, track.color->green / 255.0, track.color->blue / 255.0, 1);
}

NSInteger CLgMixerDataSource::typeOfStrip(NSObject strip) {
  const CLgChannelStrip* represented = stateIfKind<CLgChannelStrip>(strip);
  return represented == nullptr ? -1 : static_cast<NSInteger>(represented->track->type);
}

NSColor CLgMixerDataSource::colorOfStrip(NSObject strip, BOOL /*highlighted*/) {
  const CLgChannelStrip* represented = stateIfKind<CLgChannelStrip>(strip);
  return represented == nullptr ? NSColor() : trackColor(*represented->track);
}

void defineMixerData() {
  ClassDefinition<CLgChannelStrip>("CLgChannelStrip", "NSObject").registered();
  ClassDefinition<CLgMixerDataSource>("CLgMixerDataSource", "NSObject")
      .method<"typeOfStrip:", &CLgMixerDataSource::typeOfStrip>()
      .method<"colorOfStrip:highlighted:", &CLgMixerDataSource::colorOfStrip>()
      .registered();
  ClassDefinition<CLgMixerContentsController>("CLgMixerContentsController", "NSObject")
      .property<"dataSource", "setDataSource:", &CLgMixerContentsController::dataSource>()
      .property<"node", "setNode:", &CLgMixerContentsController::node>()
      .registered();
  ClassDefinition<CLgMixerWindow>("CLgMixerWindow", "NSObject").registered();
  ClassDefinition<ChannelStripConfigController>("ChannelStripConfigController", "NSObject")
      .classMethod<"createSaveConfigDict:", createSaveConfigDict>()
      .registered();
}

}  // namespace host
