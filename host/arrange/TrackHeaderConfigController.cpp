#include "host/arrange/TrackHeaderConfigController.h"

#include "host/arrange/CLgFenster.h"

namespace host {
namespace {

using namespace cocoa;

/// How many element switches a set-up lists, and which of them the host has settings for.
constexpr NSUInteger kElements = 24;
constexpr NSUInteger kColorBars = 12;
constexpr NSUInteger kControlSurfaceBars = 14;

bool isShown(const HeaderSetup& headers, NSUInteger element) {
  if (element == kColorBars) return headers.colorBars;
  if (element == kControlSurfaceBars) return headers.controlSurfaceBars.has_value();
  return true;
}

/// The set-up that the host would save: whether tracks are numbered, and a switch per element.
NSDictionary createSaveConfigDict(Class /*self*/, NSObject fenster) {
  const CLgFenster* window = stateIfKind<CLgFenster>(fenster);
  if (window == nullptr || window->model == nullptr) return {};
  const HeaderSetup& headers = window->model->song.arrange.headers;
  const auto switches = NSMutableArray::array();
  for (NSUInteger i = 0; i < kElements; ++i) switches.addObject(NSNumber::numberWithBool(isShown(headers, i)));
  const auto config = NSMutableDictionary::dictionary();
  config.setObject(NSNumber::numberWithBool(headers.trackNumbers), literal<"isshowtrnums">());
  config.setObject(switches, literal<"trackelemShow">());
  return config;
}

}  // namespace

void defineTrackHeaderConfigController() {
  ClassDefinition<TrackHeaderConfigController>("TrackHeaderConfigController", "NSObject")
      .classMethod<"createSaveConfigDict:", createSaveConfigDict>()
      .registered();
}

}  // namespace host
