#include "host/liveloops/LiveLoopsColors.h"

#include "cocoa/Call.h"
#include "cocoa/ClassDefinition.h"

namespace host {
namespace {

using namespace cocoa;

struct GeneralColors : ObjectState {};
struct GridHeaderColors : ObjectState {};
struct GridClockColors : ObjectState {};
struct DividerColors : ObjectState {};
struct RowButtonColors : ObjectState {};
struct SceneTriggerColors : ObjectState {};
struct RowTriggerColors : ObjectState {};

/// A colour as 0xRRGGBB, made when it is first asked for, and kept.
template <unsigned Rgb>
NSColor color(NSObject /*self*/) {
  static const NSColor made = Ref<NSColor>(NSColor::colorWithSRGBRed((Rgb >> 16U) / 255.0, (Rgb >> 8U & 0xFFU) / 255.0,
                                                                     (Rgb & 0xFFU) / 255.0, 1))
                                  .detach();
  return made;
}

/// A class whose methods are added one by one.
template <class State>
CategoryDefinition newClass(const char* className) {
  ClassDefinition<State>(className, "NSObject").registered();
  return CategoryDefinition(className);
}

void defineBackgrounds() {
  newClass<GeneralColors>("LiveLoopsGeneralColors")
      .method<"backgroundColor", color<0x2B2C2F>>()
      .method<"backgroundColorInsideSubfolder", color<0x242528>>();
  newClass<GridHeaderColors>("LiveLoopsGridHeaderColors")
      .method<"backgroundColor", color<0x3A3B3F>>()
      .method<"lineColor", color<0x232427>>()
      .method<"globalTrackPlaceholderBackgroundColor", color<0x333438>>()
      .method<"globalTrackPlaceholderBottomLineColor", color<0x1B1C1E>>()
      .method<"globalTrackPlaceholderLineColor", color<0x47484D>>();
  newClass<GridClockColors>("LiveLoopsGridClockColors")
      .method<"backgroundColor", color<0x1F2022>>()
      .method<"foregroundColor", color<0x8FD3A6>>();
}

/// The ends of the divider and the buttons of rows look alike.
void addButtonColors(CategoryDefinition buttons) {
  buttons.method<"basicBackgroundColor", color<0x3F4045>>()
      .method<"backgroundPressedStateColor", color<0x5A5C63>>()
      .method<"backgroundMouseoverColor", color<0x4B4D53>>()
      .method<"glyphColor", color<0xC9CBD0>>()
      .method<"borderColor", color<0x1B1C1E>>();
}

void defineTriggers() {
  newClass<SceneTriggerColors>("LiveLoopsSceneTriggerColors")
      .method<"foregroundTextColor", color<0xDCDDE0>>()
      .method<"backgroundColor", color<0x3A3B3F>>()
      .method<"backgroundSelectedColor", color<0x55616E>>()
      .method<"buttonGlyphColor", color<0xB5B7BC>>()
      .method<"mouseoverButtonBackgroundColor", color<0x53555B>>()
      .method<"mouseoverButtonBackgroundColorForFocusScene", color<0x66727F>>()
      .method<"mousePressedButtonGlyphColor", color<0xFFFFFF>>()
      .method<"borderColor", color<0x1B1C1E>>()
      .method<"flashColor", color<0x7FB08E>>()
      .method<"mouseoverColor", color<0x45474C>>()
      .method<"excessSceneTriggerBackgroundColor", color<0x313236>>();
  newClass<RowTriggerColors>("LiveLoopsRowTriggerColors")
      .method<"glyphColor", color<0xA7A9AE>>()
      .method<"glyphHighlightedColor", color<0xF2F3F5>>()
      .method<"backgroundColor", color<0x35363A>>()
      .method<"backgroundHighlightedColor", color<0x4C5765>>()
      .method<"mouseoverBackgroundColor", color<0x404146>>()
      .method<"mouseoverBackgroundHighlightedColor", color<0x586474>>()
      .method<"pressedStateBackgroundColor", color<0x4E5056>>()
      .method<"pressedStateBackgroundHighlightedColor", color<0x677587>>()
      .method<"borderColor", color<0x1B1C1E>>()
      .method<"borderHighlightedColor", color<0x8A98AA>>()
      .method<"rowSeparatorColor", color<0x222326>>()
      .method<"rowSeparatorHighlightedColor", color<0x6D7A8A>>()
      .method<"excessBackgroundColor", color<0x2E2F32>>();
}

}  // namespace

NSColor liveLoopsColor(const char* className, const char* method) {
  static const Ref<NSMutableDictionary> instances = make<NSMutableDictionary>();
  const NSString key = string(className);
  if (!instances->objectForKey(key)) {
    const id made = call<"init", id>(call<"alloc", id>(classNamed(className)));
    instances->setObject(Ref<NSObject>::adopt(NSObject(made)).get(), key);
  }
  return send<NSColor>(instances->objectForKey(key).object, sel_registerName(method));
}

void defineLiveLoopsColors() {
  defineBackgrounds();
  addButtonColors(newClass<DividerColors>("LiveLoopsDividerHeaderAndFooterColors"));
  addButtonColors(newClass<RowButtonColors>("LiveLoopsRowTriggerColorUtility"));
  defineTriggers();
}

}  // namespace host
