// Names in the file browser and in the project bin.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using SetTextAttributes =
    Override<"MATextFieldCell", void(NSDictionary), "setTextAttributes:", "customSetTextAttributes:">;
using SetTextColor = Override<"BinTextFieldCell", void(NSColor), "setTextColor:", "customSetTextColor:">;
using SetAttributesPlain =
    Override<"BinProEditableInfoFieldCell", void(NSDictionary), "setAttributesPlain:", "customSetAttributesPlain:">;
using SetAttributesBold =
    Override<"BinProEditableInfoFieldCell", void(NSDictionary), "setAttributesBold:", "customSetAttributesBold:">;

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

void customSetTextAttributes(NSCell cell, NSDictionary attributes) {
  SetTextAttributes::callHost(cell, isFileBrowserCell(cell) ? inNameColor(attributes) : attributes);
}

void customSetTextColor(NSCell cell, NSColor color) {
  const NSColor themed = nameColor();
  SetTextColor::callHost(cell, themed ? themed : color);
}

void customSetAttributesPlain(NSCell cell, NSDictionary attributes) {
  SetAttributesPlain::callHost(cell, inNameColor(attributes));
}
void customSetAttributesBold(NSCell cell, NSDictionary attributes) {
  SetAttributesBold::callHost(cell, inNameColor(attributes));
}

void addSwizzleMethod(Class /*self*/) {
  SetTextAttributes::install();
  SetTextColor::install();
  SetAttributesPlain::install();
  SetAttributesBold::install();
}

}  // namespace

void attachMATextFieldCellThemeSupport() {
  CategoryDefinition("MATextFieldCell")
      .replacement<SetTextAttributes, customSetTextAttributes>()
      .replacement<SetTextColor, customSetTextColor>()
      .replacement<SetAttributesPlain, customSetAttributesPlain>()
      .replacement<SetAttributesBold, customSetAttributesBold>()
      .classMethod<"addSwizzleMethod", addSwizzleMethod>();
}

}  // namespace velura
