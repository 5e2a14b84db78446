// The library's search results, told from other tables by the name under which the host saves their columns.

#include "cocoa/AppKit.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/views/TableColors.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"NSTableView"};

struct SetAutosaveName : HostOverride<kClass, "setAutosaveName:", void(NSString)> {
  static constexpr OpenWindow kOpenWindow = notReached(kSetOnce, "NSTableView, NSTableHeaderView");

  static void themed(NSView table, NSString name) {
    callHost(table, name);
    if (!name.isEqualToString(literal<"LibrarySearchTableView">())) return;
    call<"setGridStyleMask:">(table, kColumnLinesOnly);
    colorTable(table, key<"TableViewSeparatorColor">, key<"TableviewColor">);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass NSTableView = OverridesOf<kClass, SetAutosaveName>::themedClass<>();
}  // namespace overrides

}  // namespace velura
