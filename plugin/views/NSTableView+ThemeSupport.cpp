// The library's search results, told from other tables by the name under which the host saves their columns.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/views/TableColors.h"

namespace velura {
namespace {

using namespace cocoa;

using SetAutosaveName = Override<"NSTableView", void(NSString), "setAutosaveName:", "customSetAutosaveName:">;

void customSetAutosaveName(NSView table, NSString name) {
  SetAutosaveName::callHost(table, name);
  if (!name.isEqualToString(literal<"LibrarySearchTableView">())) return;
  call<"setGridStyleMask:">(table, kColumnLinesOnly);
  colorTable(table, key<"TableViewSeparatorColor">, key<"TableviewColor">);
}

}  // namespace

void attachNSTableViewThemeSupport() {
  CategoryDefinition("NSTableView")
      .replacement<SetAutosaveName, customSetAutosaveName>()
      .classMethod<"addSwizzleMethod", installOnce<SetAutosaveName>>();
}

}  // namespace velura
