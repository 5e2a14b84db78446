// Names in the file browser and in the project bin.

#include "cocoa/AppKit.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MATextFieldCell"};

NSColor nameColor() { return ThemeUtility::shared().colorForKey(key<"FileBrowserCellTextColor">); }

/// The attributes with the theme's colour, if it has one.
NSDictionary inNameColor(NSDictionary attributes) {
  const NSColor color = nameColor();
  if (!color || !attributes) return attributes;
  const NSMutableDictionary themed = NSMutableDictionary::dictionaryWithDictionary(attributes);
  themed.setObject(color, NSForegroundColorAttributeName);
  return themed;
}

bool isNamed(NSObject object, NSString className) { return object && object.className().isEqualToString(className); }

/// A cell of the file browser. Cells with an icon serve other lists as well.
bool isFileBrowserCell(NSCell cell) {
  if (isNamed(cell, literal<"LGFileBrowserTextFieldCell">())) return true;
  if (!isNamed(cell, literal<"ImageAndTextCell">())) return false;
  const NSView table = cell.controlView();
  return isNamed(table, literal<"MyMAKitTableView">()) &&
         isNamed(call<"dataSource", NSObject>(table), literal<"LGMediaBrowserViewController">());
}

struct SetTextAttributes : HostOverride<kClass, "setTextAttributes:", void(NSDictionary)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kFileBrowsers);

  static void themed(NSCell cell, NSDictionary attributes) {
    callHost(cell, isFileBrowserCell(cell) ? inNameColor(attributes) : attributes);
  }
};

struct SetTextColor : HostOverride<"BinTextFieldCell", "setTextColor:", void(NSColor)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kFileBrowsers);

  static void themed(NSCell cell, NSColor color) {
    const NSColor themed = nameColor();
    callHost(cell, themed ? themed : color);
  }
};

struct SetAttributesPlain : HostOverride<"BinProEditableInfoFieldCell", "setAttributesPlain:", void(NSDictionary)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kFileBrowsers);

  static void themed(NSCell cell, NSDictionary attributes) { callHost(cell, inNameColor(attributes)); }
};

struct SetAttributesBold : HostOverride<"BinProEditableInfoFieldCell", "setAttributesBold:", void(NSDictionary)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kFileBrowsers);

  static void themed(NSCell cell, NSDictionary attributes) { callHost(cell, inNameColor(attributes)); }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MATextFieldCell =
    OverridesOf<kClass, SetTextAttributes, SetTextColor, SetAttributesPlain,
                SetAttributesBold>::themedClass<InstallationRules{.repetition = Repetition::kEveryTime}>();
}  // namespace overrides

}  // namespace velura
