// The note pad.

#include "cocoa/AppKit.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/views/LayerColor.h"

namespace velura {
namespace {

using namespace cocoa;

struct NotePadBackground
    : HostOverride<"NotePadBackgroundView", "backgroundColor", NSColor(), "notePadViewBackgroundColor"> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kListArea);

  static NSColor themed(NSView view) {
    const NSColor themed = ThemeUtility::shared().colorForKey(key<"ListArea_NotePad_BG">);
    if (!themed) return callHost(view);
    if (view.wantsLayer()) view.layer().setBackgroundColor(themed.CGColor());
    return themed;
  }
};

NSView decorationOf(NSView list) {
  for (const NSView view : items<NSView>(list.subviews())) {
    if (view.className().isEqualToString(literal<"NotePadDecorationView">())) return view;
  }
  return {};
}

struct NotesListDrawRect
    : HostOverride<"CLgDocwNotesListView", "drawRect:", void(CGRect), "clgDocwNotesListViewDrawRect:"> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kListArea);

  static void themed(NSView list, CGRect dirty) {
    callHost(list, dirty);
    const NSColor color = ThemeUtility::shared().colorForKey(key<"ListAreabuttonMatrixBackgroundColor">);
    const NSView decoration = color ? decorationOf(list) : NSView();
    if (!decoration) return;
    color.setFill();
    NSRectFill(decoration.convertRectToView(decoration.bounds(), list));
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass NSView =
    OverridesOf<"NSView", NotePadBackground, NotesListDrawRect>::themedClass<>();
}  // namespace overrides

}  // namespace velura
