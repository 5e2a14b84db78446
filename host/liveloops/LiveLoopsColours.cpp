#include "host/liveloops/LiveLoopsColours.h"

#include "cocoa/Call.h"
#include "cocoa/ClassDefinition.h"

namespace host {
namespace {

using namespace cocoa;

struct GeneralColours : ObjectState {};
struct GridHeaderColours : ObjectState {};
struct GridClockColours : ObjectState {};
struct DividerColours : ObjectState {};
struct RowButtonColours : ObjectState {};
struct SceneTriggerColours : ObjectState {};
struct RowTriggerColours : ObjectState {};

/// A colour as 0xRRGGBB, made when it is first asked for, and kept.
template <unsigned Rgb>
NSColor colour(NSObject /*self*/) {
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
  newClass<GeneralColours>("LiveLoopsGeneralColors")
      .method<"backgroundColor", colour<0x2B2C2F>>()
      .method<"backgroundColorInsideSubfolder", colour<0x242528>>();
  newClass<GridHeaderColours>("LiveLoopsGridHeaderColors")
      .method<"backgroundColor", colour<0x3A3B3F>>()
      .method<"lineColor", colour<0x232427>>()
      .method<"globalTrackPlaceholderBackgroundColor", colour<0x333438>>()
      .method<"globalTrackPlaceholderBottomLineColor", colour<0x1B1C1E>>()
      .method<"globalTrackPlaceholderLineColor", colour<0x47484D>>();
  newClass<GridClockColours>("LiveLoopsGridClockColors")
      .method<"backgroundColor", colour<0x1F2022>>()
      .method<"foregroundColor", colour<0x8FD3A6>>();
}

/// The ends of the divider and the buttons of rows look alike.
void addButtonColours(CategoryDefinition buttons) {
  buttons.method<"basicBackgroundColor", colour<0x3F4045>>()
      .method<"backgroundPressedStateColor", colour<0x5A5C63>>()
      .method<"backgroundMouseoverColor", colour<0x4B4D53>>()
      .method<"glyphColor", colour<0xC9CBD0>>()
      .method<"borderColor", colour<0x1B1C1E>>();
}

void defineTriggers() {
  newClass<SceneTriggerColours>("LiveLoopsSceneTriggerColors")
      .method<"foregroundTextColor", colour<0xDCDDE0>>()
      .method<"backgroundColor", colour<0x3A3B3F>>()
      .method<"backgroundSelectedColor", colour<0x55616E>>()
      .method<"buttonGlyphColor", colour<0xB5B7BC>>()
      .method<"mouseoverButtonBackgroundColor", colour<0x53555B>>()
      .method<"mouseoverButtonBackgroundColorForFocusScene", colour<0x66727F>>()
      .method<"mousePressedButtonGlyphColor", colour<0xFFFFFF>>()
      .method<"borderColor", colour<0x1B1C1E>>()
      .method<"flashColor", colour<0x7FB08E>>()
      .method<"mouseoverColor", colour<0x45474C>>()
      .method<"excessSceneTriggerBackgroundColor", colour<0x313236>>();
  newClass<RowTriggerColours>("LiveLoopsRowTriggerColors")
      .method<"glyphColor", colour<0xA7A9AE>>()
      .method<"glyphHighlightedColor", colour<0xF2F3F5>>()
      .method<"backgroundColor", colour<0x35363A>>()
      .method<"backgroundHighlightedColor", colour<0x4C5765>>()
      .method<"mouseoverBackgroundColor", colour<0x404146>>()
      .method<"mouseoverBackgroundHighlightedColor", colour<0x586474>>()
      .method<"pressedStateBackgroundColor", colour<0x4E5056>>()
      .method<"pressedStateBackgroundHighlightedColor", colour<0x677587>>()
      .method<"borderColor", colour<0x1B1C1E>>()
      .method<"borderHighlightedColor", colour<0x8A98AA>>()
      .method<"rowSeparatorColor", colour<0x222326>>()
      .method<"rowSeparatorHighlightedColor", colour<0x6D7A8A>>()
      .method<"excessBackgroundColor", colour<0x2E2F32>>();
}

}  // namespace

NSColor liveLoopsColour(const char* className, const char* method) {
  static const Ref<NSMutableDictionary> instances = make<NSMutableDictionary>();
  const NSString key = string(className);
  if (!instances->objectForKey(key)) {
    const id made = call<"init", id>(call<"alloc", id>(classNamed(className)));
    instances->setObject(Ref<NSObject>::adopt(NSObject(made)).get(), key);
  }
  return send<NSColor>(instances->objectForKey(key).object, sel_registerName(method));
}

void defineLiveLoopsColours() {
  defineBackgrounds();
  addButtonColours(newClass<DividerColours>("LiveLoopsDividerHeaderAndFooterColors"));
  addButtonColours(newClass<RowButtonColours>("LiveLoopsRowTriggerColorUtility"));
  defineTriggers();
}

}  // namespace host
