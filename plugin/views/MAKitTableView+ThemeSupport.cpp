// The table of the loop browser: its lines and its colours.

#include "cocoa/AppKit.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/views/TableColors.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MAKitTableView"};

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

struct SetThemeVariant : HostOverride<kClass, "setThemeVariant:", void(NSInteger)> {
  static constexpr OpenWindow kOpenWindow = notReached(kSetWithVariant, "MALoopBrowserTableView, NSTableHeaderView");

  static void themed(NSView table, NSInteger variant) {
    callHost(table, variant);
    if (showsLoopBrowserColors(table)) colorLoopBrowserList(table);
  }
};

struct SetGridStyleMask : HostOverride<kClass, "setGridStyleMask:", void(NSUInteger)> {
  static constexpr OpenWindow kOpenWindow = notReached(kSetWithVariant);

  static void themed(NSView table, NSUInteger mask) {
    callHost(table, isLoopBrowserTable(table) ? kColumnLinesOnly : mask);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAKitTableView =
    OverridesOf<kClass, SetThemeVariant, SetGridStyleMask>::themedClass<>();
}  // namespace overrides

}  // namespace velura
