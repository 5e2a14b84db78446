// Buttons and slots of a mixer strip: the colours of their titles, and the looks of groups of plug-ins.

#include <array>
#include <string_view>

#include "plugin/hostapi/MANode.h"
#include "plugin/mixer/HostColor.h"
#include "plugin/mixer/KeyPair.h"
#include "plugin/mixer/PluginGroups.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/text/ColoredText.h"
#include "plugin/text/StringBytes.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using Button = MAButtonNode;
constexpr FixedString kClass = Button::kClassName;

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

struct ButtonKindRow {
  std::string_view path;
  ButtonKind kind;
};
constexpr ButtonKindRow kButtonKinds[] = {
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
ButtonKind buttonKindOf(Button button) {
  const BriefUTF8 path(button.assetSetPath());
  for (const ButtonKindRow& row : kButtonKinds) {
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
  [[nodiscard]] NSColor color(Button button, NSColor host, bool isHighlighted) const {
    const KeyPair& plain = button.isOn() ? on : off;
    return (isGrey(host) ? plain : otherMode).color(isHighlighted);
  }
};

constexpr TitleKeys kInstrumentTitle{
    {key<"InputInstButtonTitleColor">, key<"InputInstButtonTitleHighlightColor">},
    {key<"InputInstButtonBypassTitleColor">, key<"InputInstButtonBypassHighlightTitleColor">},
    {key<"InputInstButtonDimTitleColor">, key<"InputInstButtonDimTitleColor">}};
constexpr TitleKeys kSendTitle{{key<"sendButtonTitleColor">, key<"sendButtonTitleHighlightColor">},
                               {key<"sendButtonBypassTitleColor">, key<"sendButtonBypassHighlightTitleColor">},
                               {key<"sendButtonLowLatencyTitleColor">, key<"sendButtonLowLatencyTitleHighlightColor">}};
constexpr TitleKeys kMidiTitle{{key<"midiButtonTitleColor">, key<"midiButtonTitleHighlightColor">},
                               {key<"midiButtonBypassTitleColor">, key<"midiButtonBypassHighlightTitleColor">},
                               {key<"midiButtonDimTitleColor">, key<"midiButtonDimHighlightTitleColor">}};

/// The title of an audio effect: the colour of its group, else the theme's.
struct InsertTitle {
  NSString (*groupColor)();
  KeyPair keys;
};

InsertTitle insertTitle(bool isOn, ColorState state) {
  if (state == ColorState::kDimmed) {
    return {literal<"dimTextColor">,
            {key<"audioFXInsertButtonTitleDimColor">, key<"audioFXInsertButtonTitleDimColor">}};
  }
  NSString (*const group)() = isOn ? literal<"onTextColor"> : literal<"offTextColor">;
  if (state == ColorState::kLowLatency) {
    return {group,
            {key<"audioFXInsertButtonLowLatencyTitleColor">, key<"audioFXInsertButtonLowLatencyTitleHighlightColor">}};
  }
  if (isOn) return {group, {key<"audioFXInsertButtonTitleColor">, key<"audioFXInsertButtonTitleHighlightColor">}};
  return {group, {key<"audioFXInsertButtonBypassTitleColor">, key<"audioFXInsertButtonBypassHighlightTitleColor">}};
}

NSColor insertTitleColor(Button button, NSColor host) {
  const InsertTitle title = insertTitle(button.isOn(), stateShownBy(host));
  const NSColor grouped = groupOf(button.representedObject()).color(title.groupColor());
  return grouped ? grouped : title.keys.color(button.isHighlighted());
}

NSColor colorFor(ThemeKey key) { return ThemeUtility::shared().colorForKey(key); }

struct SetForegroundColor : HostOverride<kClass, "setForegroundColor:", void(NSColor)> {
  static constexpr OpenWindow kOpenWindow =
      notReached(kSetOnce, "MAButtonNode audioPlugIn, MAButtonNode input, MAButtonNode sendButton");

  static void themed(Button button, NSColor color) {
    const auto themed = [&]() -> NSColor {
      switch (buttonKindOf(button)) {
        case ButtonKind::kInstrument:
          return kInstrumentTitle.color(button, color, button.isHighlighted());
        case ButtonKind::kInsert:
          return insertTitleColor(button, color);
        case ButtonKind::kSend:
          return kSendTitle.color(button, color, button.isHighlighted());
        case ButtonKind::kPlain:
          return colorFor(key<"settingButtonTitleColor">);
        default:
          return {};
      }
    }();
    callHost(button, themed ? themed : color);
  }
};

struct ForegroundColor : HostOverride<kClass, "foregroundColor", NSColor()> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);

  static NSColor themed(Button button) {
    const NSColor host = callHost(button);
    const auto themed = [&]() -> NSColor {
      switch (buttonKindOf(button)) {
        case ButtonKind::kMidiInsert:
          return kMidiTitle.color(button, host, button.parent().isHighlighted());
        case ButtonKind::kPlain:
          return colorFor(key<"settingButtonTitleColor">);
        default:
          return {};
      }
    }();
    return themed ? themed : host;
  }
};

NSColor plainTitleColor(Button button) {
  if (button.isNamed<"output">()) return colorFor(key<"outputButtonTitleColor">);
  if (button.isNamed<"setting">() && !button.isOn()) return colorFor(key<"settingOffButtonTitleColor">);
  return colorFor(key<"settingButtonTitleColor">);
}

NSColor automationTitleColor(ThemeKey mode, bool isOn) { return colorFor(isOn ? mode : key<"automationBypassColor">); }

/// The colour of a whole title that the host draws in `host`; nil where the theme leaves it.
NSColor titleColor(Button button, NSColor host) {
  switch (buttonKindOf(button)) {
    case ButtonKind::kInput:
      return colorFor(key<"inputButtonTitleColor">);
    case ButtonKind::kAutomationRead:
      return automationTitleColor(key<"automationReadTitleColor">, !isGrey(host));
    case ButtonKind::kAutomationTouch:
      return automationTitleColor(key<"automationTouchTitleColor">, button.isOn());
    case ButtonKind::kAutomationLatch:
      return automationTitleColor(key<"automationLatchTitleColor">, button.isOn());
    case ButtonKind::kAutomationWrite:
      return automationTitleColor(key<"automationWriteTitleColor">, button.isOn());
    case ButtonKind::kPlain:
      return plainTitleColor(button);
    case ButtonKind::kInsert:
      return insertTitleColor(button, host);
    case ButtonKind::kEmpty:
      return button.isNamed<"input">() ? colorFor(key<"emptySlotButtonLabelColor">) : NSColor();
    default:
      return {};
  }
}

struct AttributedTitle : HostOverride<kClass, "attributedTitleForState:", NSObject(NSInteger)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);

  static NSObject themed(Button button, NSInteger state) {
    const NSObject title = callHost(button, state);
    const auto text = as<NSAttributedString>(title);
    if (text.length() == 0) return title;
    const NSColor color = titleColor(button, foregroundColorOf(text));
    return color ? inColor(text, color) : title;
  }
};

// ---- Groups of plug-ins -------------------------------------------------------------------------------

bool isPluginPath(NSString path) {
  return path.isEqualToString(literal<"Buttons.MIDIPlugIn">()) ||
         path.isEqualToString(literal<"Buttons.AudioPlugIn">());
}

/// The asset set in the place of the one that the host chose.
NSString themedPath(Button button, NSString path) {
  if (!isPluginPath(path)) return path;
  if (button.isNamed<"input">()) return literal<"Buttons.CustomInstrument">();
  if (!path.isEqualToString(literal<"Buttons.AudioPlugIn">())) return path;
  const NSString image = groupOf(button.representedObject()).image();
  return image ? call<"stringByAppendingString:", NSString>(literal<"Buttons.">().object, image) : path;
}

struct SetAssetSetPath : HostOverride<kClass, "setAssetSetPath:", void(NSString)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);

  static void themed(Button button, NSString path) { callHost(button, themedPath(button, path)); }
};

/// A plug-in may arrive after the path: the path is set once more, now that the group is known.
struct SetRepresentedObject : HostOverride<kClass, "setRepresentedObject:", void(NSObject)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);

  static void themed(Button button, NSObject represented) {
    callHost(button, represented);
    const NSString path = button.assetSetPath();
    if (path.isEqualToString(literal<"Buttons.AudioPlugIn">())) call<"setAssetSetPath:">(button, path);
  }
};

struct NumberOfSegments : HostOverride<kClass, "numberOfSegments", NSInteger()> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);

  static NSInteger themed(Button button) {
    constexpr NSInteger kSwitchTitleAndMenu = 3;
    const BriefUTF8 path(button.assetSetPath());
    const bool isOwnLook = path.view().ends_with(kInstrumentSuffix) || path.view().starts_with(kGroupedInsertPrefix);
    return isOwnLook ? kSwitchTitleAndMenu : callHost(button);
  }
};

struct ImageForState : HostOverride<kClass, "imageForState:", NSImage(NSInteger), "customimageForState:"> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);

  static NSImage themed(Button button, NSInteger state) {
    constexpr NSInteger kSymbol = 2;
    const NSImage image = callHost(button, state);
    if (state != kSymbol || !BriefUTF8(button.assetSetPath()).view().starts_with(kGroupedInsertPrefix)) return image;
    const PluginGroup group = groupOf(button.representedObject());
    if (!group.image()) return image;
    const NSColor tint = group.colorFromString(button.isOn() ? literal<"onIconColor">() : literal<"offIconColor">());
    if (!tint || !respondsTo<"imageWithColor:">(image)) return image;
    return call<"imageWithColor:", NSImage>(image, tint);
  }
};

struct UpdatePresentationObject : HostOverride<kClass, "updatePresentationObject:view:", void(NSObject, NSObject)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static void themed(Button button, NSObject presentation, NSObject view) {
    // The host keeps the title of a MIDI effect, whose colour follows the strip.
    if (buttonKindOf(button) == ButtonKind::kMidiInsert && respondsTo<"setNeedsUpdateContents:">(button) &&
        respondsTo<"invalidateCache">(button)) {
      button.invalidateCache();
      button.setNeedsUpdateContents(true);
    }
    callHost(button, presentation, view);
  }
};

NSString pluginID(Class /*self*/, std::uint32_t type, std::uint32_t subtype, std::uint32_t manufacturer) {
  return makePluginID({type, subtype, manufacturer});
}

void addMethods(CategoryDefinition& category) {
  category.classMethod<"makePluginID:subtype:manufacturer:", pluginID>();
}

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAButtonNode =
    OverridesOf<kClass, SetForegroundColor, ForegroundColor, AttributedTitle, SetAssetSetPath, NumberOfSegments,
                UpdatePresentationObject, SetRepresentedObject,
                ImageForState>::themedClass<InstallationRules{}, addMethods>();
}  // namespace overrides

}  // namespace velura
