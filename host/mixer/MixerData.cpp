#include "host/mixer/MixerData.h"

namespace host {
namespace {

using namespace cocoa;

/// How many element switches a strip set-up lists, and which of them shows track colours.
constexpr NSUInteger kElements = 48;
constexpr NSUInteger kTrackColourElement = 44;

/// The strip set-up that the host would save: a switch per element.
NSDictionary createSaveConfigDict(Class /*self*/, NSObject window) {
  const CLgMixerWindow* mixer = stateIfKind<CLgMixerWindow>(window);
  if (mixer == nullptr) return {};
  const auto switches = NSMutableArray::array();
  for (NSUInteger i = 0; i < kElements; ++i) {
    switches.addObject(NSNumber::numberWithBool(i != kTrackColourElement || mixer->showsTrackColours));
  }
  const auto config = NSMutableDictionary::dictionary();
  config.setObject(switches, literal<"isMixThing">());
  return config;
}

struct ChannelStripConfigController : ObjectState {};

}  // namespace

NSColor trackColour(const Track& track) {
  if (!track.colour) return {};
  return NSColor::colorWithSRGBRed(track.colour->red / 255.0, track.colour->green / 255.0, track.colour->blue / 255.0,
                                   1);
}

NSInteger CLgMixerDataSource::typeOfStrip(NSObject strip) {
  const CLgChannelStrip* represented = stateIfKind<CLgChannelStrip>(strip);
  return represented == nullptr ? -1 : static_cast<NSInteger>(represented->track->type);
}

NSColor CLgMixerDataSource::colorOfStrip(NSObject strip, BOOL /*highlighted*/) {
  const CLgChannelStrip* represented = stateIfKind<CLgChannelStrip>(strip);
  return represented == nullptr ? NSColor() : trackColour(*represented->track);
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
