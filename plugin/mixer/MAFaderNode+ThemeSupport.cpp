// The cap of a fader, as an image of the theme.

#include "plugin/hostapi/MANode.h"
#include "plugin/imaging/ThemeImages.h"
#include "plugin/language/TrackTypes.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/theme/Utility.h"

namespace velura {
namespace {

using namespace cocoa;

using Fader = MAFaderNode;
constexpr FixedString kClass = Fader::kClassName;

/// The cap's image; nil where the host's cap stays.
NSImage capImage(Fader fader) {
  constexpr NSInteger kPlainMode = 0;
  constexpr NSInteger kOtherPlainMode = 2;
  const NSInteger mode = fader.faderMode();
  const TrackType type = trackTypeOf(fader);
  if ((mode != kPlainMode && mode != kOtherPlainMode) || rowOf(type) == nullptr) return {};
  ThemeUtility& theme = ThemeUtility::shared();
  const bool shared = theme.useSharedFaderType(static_cast<NSInteger>(type)) != 0;
  const auto name = faderImageName(fader.isHighlighted(), type, shared ? ImageSet::kShared : ImageSet::kOwn);
  return name ? themeImage(string(*name), {}) : NSImage();
}

void customUpdateFaderKnob(Fader fader) {
  if (const NSImage image = capImage(fader)) {
    const auto knob = call<"childNodeWithName:", MAImageNode>(fader.object, literal<"fader knob">());
    if (respondsTo<"setContents:">(knob)) knob.setContents(image);
  } else if (respondsTo<"updateFaderKnob">(fader)) {
    fader.updateFaderKnob();
  }
}

struct UpdatePresentationObject : HostOverride<kClass, "updatePresentationObject:view:", void(NSObject, NSObject)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);

  static void themed(Fader fader, NSObject presentation, NSObject view) {
    callHost(fader, presentation, view);
    call<"customUpdateFaderKnob">(fader);
  }
};

void addMethods(CategoryDefinition& category) { category.method<"customUpdateFaderKnob", customUpdateFaderKnob>(); }

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAFaderNode =
    OverridesOf<kClass, UpdatePresentationObject>::themedClass<InstallationRules{}, addMethods>();
}  // namespace overrides

}  // namespace velura
