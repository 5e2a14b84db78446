// Buttons and slots of a mixer strip: the colours of their titles, and the looks of groups of plug-ins.

#include <array>
#include <string_view>

#include "cocoa/Override.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/ColouredText.h"
#include "plugin/mixer/HostColour.h"
#include "plugin/mixer/KeyPair.h"
#include "plugin/mixer/PluginGroups.h"
#include "plugin/theme/StringBytes.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using SetForegroundColor = Override<"MAButtonNode", void(NSColor), "setForegroundColor:", "customSetForegroundColor:">;
using ForegroundColor = Override<"MAButtonNode", NSColor(), "foregroundColor", "customForegroundColor">;
using AttributedTitle =
    Override<"MAButtonNode", NSObject(NSInteger), "attributedTitleForState:", "customAttributedTitleForState:">;
using SetAssetSetPath = Override<"MAButtonNode", void(NSString), "setAssetSetPath:", "customSetAssetSetPath:">;
using NumberOfSegments = Override<"MAButtonNode", NSInteger(), "numberOfSegments", "customNumberOfSegments">;
using UpdatePresentationObject = Override<"MAButtonNode", void(NSObject, NSObject),
                                          "updatePresentationObject:view:", "customUpdatePresentationObject:view:">;
using SetRepresentedObject =
    Override<"MAButtonNode", void(NSObject), "setRepresentedObject:", "customSetRepresentedObject:">;
using ImageForState = Override<"MAButtonNode", NSImage(NSInteger), "imageForState:", "customimageForState:">;

// ---- Kinds of buttons ---------------------------------------------------------------------------------

constexpr std::string_view kGroupedInsertPrefix = "Buttons.AudioPlugIn_";
constexpr std::string_view kInstrumentSuffix = "CustomInstrument";

enum class ButtonKind {
  kInsert,
  kMidiInsert,
  kInstrument,
  kSend,
  kInput,
  kAutomationRead,
  kAutomationTouch,
  kAutomationLatch,
  kAutomationWrite,
  kPlain,
  kEmpty,
  kOther
};

struct KindRow {
  std::string_view path;
  ButtonKind kind;
};
constexpr KindRow kKinds[] = {
    {"Buttons.AudioPlugIn", ButtonKind::kInsert},
    {"Buttons.MIDIPlugIn", ButtonKind::kMidiInsert},
    {"Buttons.CustomInstrument", ButtonKind::kInstrument},
    {"Buttons.Send", ButtonKind::kSend},
    {"Buttons.SendIsOnFader", ButtonKind::kSend},
    {"Buttons.InputSegment", ButtonKind::kInput},
    {"Buttons.AutomationRead", ButtonKind::kAutomationRead},
    {"Buttons.AutomationTouch", ButtonKind::kAutomationTouch},
    {"Buttons.AutomationLatch", ButtonKind::kAutomationLatch},
    {"Buttons.AutomationWrite", ButtonKind::kAutomationWrite},
    {"Buttons.Default", ButtonKind::kPlain},
    {"Buttons.EmptyPlugIn", ButtonKind::kEmpty},
};

/// What a button is, told by the asset set that the host draws it with.
ButtonKind kindOf(MAButtonNode button) {
  const BriefUTF8 path(button.assetSetPath());
  for (const KindRow& row : kKinds) {
    if (row.path == path.view()) return row.kind;
  }
  return path.view().starts_with(kGroupedInsertPrefix) ? ButtonKind::kInsert : ButtonKind::kOther;
}

// ---- Colours of titles --------------------------------------------------------------------------------

/// The titles of a kind of button: on and off, and in every other mode of the host.
struct TitleKeys {
  KeyPair on;
  KeyPair off;
  KeyPair otherMode;
  [[nodiscard]] NSColor colour(MAButtonNode button, NSColor host, bool isHighlighted) const {
    const KeyPair& plain = button.isOn() ? on : off;
    return (isGrey(host) ? plain : otherMode).colour(isHighlighted);
  }
};

using enum ThemeKey;
constexpr TitleKeys kInstrumentTitle{{kInputInstButtonTitleColor, kInputInstButtonTitleHighlightColor},
                                     {kInputInstButtonBypassTitleColor, kInputInstButtonBypassHighlightTitleColor},
                                     {kInputInstButtonDimTitleColor, kInputInstButtonDimTitleColor}};
constexpr TitleKeys kSendTitle{{kSendButtonTitleColor, kSendButtonTitleHighlightColor},
                               {kSendButtonBypassTitleColor, kSendButtonBypassHighlightTitleColor},
                               {kSendButtonLowLatencyTitleColor, kSendButtonLowLatencyTitleHighlightColor}};
constexpr TitleKeys kMidiTitle{{kMidiButtonTitleColor, kMidiButtonTitleHighlightColor},
                               {kMidiButtonBypassTitleColor, kMidiButtonBypassHighlightTitleColor},
                               {kMidiButtonDimTitleColor, kMidiButtonDimHighlightTitleColor}};

/// The title of an audio effect: the colour of its group, else the theme's.
struct InsertTitle {
  NSString (*groupColour)();
  KeyPair keys;
};

InsertTitle insertTitle(bool isOn, ColourState state) {
  if (state == ColourState::kDimmed) {
    return {literal<"dimTextColor">, {kAudioFXInsertButtonTitleDimColor, kAudioFXInsertButtonTitleDimColor}};
  }
  NSString (*const group)() = isOn ? literal<"onTextColor"> : literal<"offTextColor">;
  if (state == ColourState::kLowLatency) {
    return {group, {kAudioFXInsertButtonLowLatencyTitleColor, kAudioFXInsertButtonLowLatencyTitleHighlightColor}};
  }
  if (isOn) return {group, {kAudioFXInsertButtonTitleColor, kAudioFXInsertButtonTitleHighlightColor}};
  return {group, {kAudioFXInsertButtonBypassTitleColor, kAudioFXInsertButtonBypassHighlightTitleColor}};
}

NSColor insertTitleColour(MAButtonNode button, NSColor host) {
  const InsertTitle title = insertTitle(button.isOn(), stateShownBy(host));
  const NSColor grouped = groupOf(button.representedObject()).colour(title.groupColour());
  return grouped ? grouped : title.keys.colour(button.isHighlighted());
}

NSColor colourFor(ThemeKey key) { return ThemeUtility::shared().colorForKey(key); }

void customSetForegroundColor(MAButtonNode button, NSColor colour) {
  const auto themed = [&]() -> NSColor {
    switch (kindOf(button)) {
      case ButtonKind::kInstrument:
        return kInstrumentTitle.colour(button, colour, button.isHighlighted());
      case ButtonKind::kInsert:
        return insertTitleColour(button, colour);
      case ButtonKind::kSend:
        return kSendTitle.colour(button, colour, button.isHighlighted());
      case ButtonKind::kPlain:
        return colourFor(kSettingButtonTitleColor);
      default:
        return {};
    }
  }();
  SetForegroundColor::callHost(button, themed ? themed : colour);
}

NSColor customForegroundColor(MAButtonNode button) {
  const NSColor host = ForegroundColor::callHost(button);
  const auto themed = [&]() -> NSColor {
    switch (kindOf(button)) {
      case ButtonKind::kMidiInsert:
        return kMidiTitle.colour(button, host, button.parent().isHighlighted());
      case ButtonKind::kPlain:
        return colourFor(kSettingButtonTitleColor);
      default:
        return {};
    }
  }();
  return themed ? themed : host;
}

NSColor plainTitleColour(MAButtonNode button) {
  if (button.isNamed<"output">()) return colourFor(kOutputButtonTitleColor);
  if (button.isNamed<"setting">() && !button.isOn()) return colourFor(kSettingOffButtonTitleColor);
  return colourFor(kSettingButtonTitleColor);
}

NSColor automationTitleColour(ThemeKey mode, bool isOn) { return colourFor(isOn ? mode : kAutomationBypassColor); }

/// The colour of a whole title that the host draws in `host`; nil where the theme leaves it.
NSColor titleColour(MAButtonNode button, NSColor host) {
  switch (kindOf(button)) {
    case ButtonKind::kInput:
      return colourFor(kInputButtonTitleColor);
    case ButtonKind::kAutomationRead:
      return automationTitleColour(kAutomationReadTitleColor, !isGrey(host));
    case ButtonKind::kAutomationTouch:
      return automationTitleColour(kAutomationTouchTitleColor, button.isOn());
    case ButtonKind::kAutomationLatch:
      return automationTitleColour(kAutomationLatchTitleColor, button.isOn());
    case ButtonKind::kAutomationWrite:
      return automationTitleColour(kAutomationWriteTitleColor, button.isOn());
    case ButtonKind::kPlain:
      return plainTitleColour(button);
    case ButtonKind::kInsert:
      return insertTitleColour(button, host);
    case ButtonKind::kEmpty:
      return button.isNamed<"input">() ? colourFor(kEmptySlotButtonLabelColor) : NSColor();
    default:
      return {};
  }
}

NSObject customAttributedTitle(MAButtonNode button, NSInteger state) {
  const NSObject title = AttributedTitle::callHost(button, state);
  const auto text = as<NSAttributedString>(title);
  if (text.length() == 0) return title;
  const NSColor colour = titleColour(button, foregroundColourOf(text));
  return colour ? inColour(text, colour) : title;
}

// ---- Groups of plug-ins -------------------------------------------------------------------------------

bool isPluginPath(NSString path) {
  return path.isEqualToString(literal<"Buttons.MIDIPlugIn">()) ||
         path.isEqualToString(literal<"Buttons.AudioPlugIn">());
}

/// The asset set in the place of the one that the host chose.
NSString themedPath(MAButtonNode button, NSString path) {
  if (!isPluginPath(path)) return path;
  if (button.isNamed<"input">()) return literal<"Buttons.CustomInstrument">();
  if (!path.isEqualToString(literal<"Buttons.AudioPlugIn">())) return path;
  const NSString image = groupOf(button.representedObject()).image();
  return image ? call<"stringByAppendingString:", NSString>(literal<"Buttons.">().object, image) : path;
}

void customSetAssetSetPath(MAButtonNode button, NSString path) {
  SetAssetSetPath::callHost(button, themedPath(button, path));
}

/// A plug-in may arrive after the path: the path is set once more, now that the group is known.
void customSetRepresentedObject(MAButtonNode button, NSObject represented) {
  SetRepresentedObject::callHost(button, represented);
  const NSString path = button.assetSetPath();
  if (path.isEqualToString(literal<"Buttons.AudioPlugIn">())) call<"setAssetSetPath:">(button, path);
}

NSInteger customNumberOfSegments(MAButtonNode button) {
  constexpr NSInteger kSwitchTitleAndMenu = 3;
  const BriefUTF8 path(button.assetSetPath());
  const bool isOwnLook = path.view().ends_with(kInstrumentSuffix) || path.view().starts_with(kGroupedInsertPrefix);
  return isOwnLook ? kSwitchTitleAndMenu : NumberOfSegments::callHost(button);
}

NSImage customImageForState(MAButtonNode button, NSInteger state) {
  constexpr NSInteger kSymbol = 2;
  const NSImage image = ImageForState::callHost(button, state);
  if (state != kSymbol || !BriefUTF8(button.assetSetPath()).view().starts_with(kGroupedInsertPrefix)) return image;
  const PluginGroup group = groupOf(button.representedObject());
  if (!group.image()) return image;
  const NSColor tint = group.colourFromString(button.isOn() ? literal<"onIconColor">() : literal<"offIconColor">());
  if (!tint || !image.respondsToSelector(selector<"imageWithColor:">())) return image;
  return call<"imageWithColor:", NSImage>(image, tint);
}

void customUpdatePresentationObject(MAButtonNode button, NSObject presentation, NSObject view) {
  // The host keeps the title of a MIDI effect, whose colour follows the strip.
  if (kindOf(button) == ButtonKind::kMidiInsert && button.respondsToSelector(selector<"setNeedsUpdateContents:">()) &&
      button.respondsToSelector(selector<"invalidateCache">())) {
    button.invalidateCache();
    button.setNeedsUpdateContents(true);
  }
  UpdatePresentationObject::callHost(button, presentation, view);
}

NSString pluginID(Class /*self*/, std::uint32_t type, std::uint32_t subtype, std::uint32_t manufacturer) {
  return makePluginID({type, subtype, manufacturer});
}

}  // namespace

void attachMAButtonNodeThemeSupport() {
  CategoryDefinition("MAButtonNode")
      .classMethod<"makePluginID:subtype:manufacturer:", pluginID>()
      .replacement<SetForegroundColor, customSetForegroundColor>()
      .replacement<ForegroundColor, customForegroundColor>()
      .replacement<AttributedTitle, customAttributedTitle>()
      .replacement<SetAssetSetPath, customSetAssetSetPath>()
      .replacement<NumberOfSegments, customNumberOfSegments>()
      .replacement<UpdatePresentationObject, customUpdatePresentationObject>()
      .replacement<SetRepresentedObject, customSetRepresentedObject>()
      .replacement<ImageForState, customImageForState>()
      .classMethod<"addSwizzleMethod",
                   installOnce<SetForegroundColor, ForegroundColor, AttributedTitle, SetAssetSetPath, NumberOfSegments,
                               UpdatePresentationObject, SetRepresentedObject, ImageForState>>();
}

}  // namespace velura
