// The table of the loop browser: its lines and its colours.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/views/TableColors.h"

namespace velura {
namespace {

using namespace cocoa;

using SetThemeVariant = Override<"MAKitTableView", void(NSInteger), "setThemeVariant:", "customSetThemeVariant:">;
using SetGridStyleMask = Override<"MAKitTableView", void(NSUInteger), "setGridStyleMask:", "customSetGridStyleMask:">;

bool isLoopBrowserTable(NSView table) { return table.className().isEqualToString(literal<"MALoopBrowserTableView">()); }

/// The tables of the browsers live in several windows: those in the loop browser take its colours.
bool showsLoopBrowserColors(NSView table) {
  if (isLoopBrowserTable(table)) return true;
  if (!table.className().isEqualToString(literal<"MyMAKitTableView">())) return false;
  for (NSView view = table.superview(); view; view = view.superview()) {
    if (view.className().isEqualToString(literal<"MALoopBrowserView">())) return true;
  }
  return false;
}

void customSetThemeVariant(NSView table, NSInteger variant) {
  SetThemeVariant::callHost(table, variant);
  if (showsLoopBrowserColors(table)) colorLoopBrowserList(table);
}

void customSetGridStyleMask(NSView table, NSUInteger mask) {
  SetGridStyleMask::callHost(table, isLoopBrowserTable(table) ? kColumnLinesOnly : mask);
}

}  // namespace

void attachMAKitTableViewThemeSupport() {
  CategoryDefinition("MAKitTableView")
      .replacement<SetThemeVariant, customSetThemeVariant>()
      .replacement<SetGridStyleMask, customSetGridStyleMask>()
      .classMethod<"addSwizzleMethod", installOnce<SetThemeVariant, SetGridStyleMask>>();
}

}  // namespace velura
