// The cap of a fader, as an image of the theme.

#include "cocoa/Override.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/language/TrackTypes.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/theme/Utility.h"

namespace velura {
namespace {

using namespace cocoa;

using UpdatePresentationObject = Override<"MAFaderNode", void(NSObject, NSObject),
                                          "updatePresentationObject:view:", "customUpdatePresentationObject:view:">;

/// The cap's image; nil where the host's cap stays.
NSImage capImage(MAFaderNode fader) {
  constexpr NSInteger kPlainMode = 0;
  constexpr NSInteger kOtherPlainMode = 2;
  const NSInteger mode = fader.faderMode();
  const TrackType type = trackTypeOf(fader);
  if ((mode != kPlainMode && mode != kOtherPlainMode) || rowOf(type) == nullptr) return {};
  ThemeUtility& theme = ThemeUtility::shared();
  const bool shared = theme.useSharedFaderType(static_cast<NSInteger>(type)) != 0;
  const auto name = faderImageName(fader.isHighlighted() ? Highlighted::kYes : Highlighted::kNo, type,
                                   shared ? ImageSet::kShared : ImageSet::kOwn);
  return name ? theme.getImage(string(*name), {}) : NSImage();
}

void customUpdateFaderKnob(MAFaderNode fader) {
  if (const NSImage image = capImage(fader)) {
    const auto knob = call<"childNodeWithName:", MAImageNode>(fader.object, literal<"fader knob">());
    if (knob.respondsToSelector(selector<"setContents:">())) knob.setContents(image);
  } else if (fader.respondsToSelector(selector<"updateFaderKnob">())) {
    fader.updateFaderKnob();
  }
}

void customUpdatePresentationObject(MAFaderNode fader, NSObject presentation, NSObject view) {
  UpdatePresentationObject::callHost(fader, presentation, view);
  call<"customUpdateFaderKnob">(fader);
}

}  // namespace

void attachMAFaderNodeThemeSupport() {
  CategoryDefinition("MAFaderNode")
      .method<"customUpdateFaderKnob", customUpdateFaderKnob>()
      .replacement<UpdatePresentationObject, customUpdatePresentationObject>()
      .classMethod<"addSwizzleMethod", installOnce<UpdatePresentationObject>>();
}

}  // namespace velura
