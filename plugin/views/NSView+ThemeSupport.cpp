// The note pad.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/views/LayerColor.h"

namespace velura {
namespace {

using namespace cocoa;

using NotePadBackground = Override<"NotePadBackgroundView", NSColor(), "backgroundColor", "notePadViewBackgroundColor">;
using NotesListDrawRect = Override<"CLgDocwNotesListView", void(CGRect), "drawRect:", "clgDocwNotesListViewDrawRect:">;

NSColor notePadViewBackgroundColor(NSView view) {
  const NSColor themed = ThemeUtility::shared().colorForKey(key<"ListArea_NotePad_BG">);
  if (!themed) return NotePadBackground::callHost(view);
  if (view.wantsLayer()) view.layer().setBackgroundColor(themed.CGColor());
  return themed;
}

NSView decorationOf(NSView list) {
  for (const NSView view : items<NSView>(list.subviews())) {
    if (view.className().isEqualToString(literal<"NotePadDecorationView">())) return view;
  }
  return {};
}

void notesListDrawRect(NSView list, CGRect dirty) {
  NotesListDrawRect::callHost(list, dirty);
  const NSColor color = ThemeUtility::shared().colorForKey(key<"ListAreabuttonMatrixBackgroundColor">);
  const NSView decoration = color ? decorationOf(list) : NSView();
  if (!decoration) return;
  color.setFill();
  NSRectFill(decoration.convertRectToView(decoration.bounds(), list));
}

}  // namespace

void attachNSViewThemeSupport() {
  CategoryDefinition("NSView")
      .replacement<NotePadBackground, notePadViewBackgroundColor>()
      .replacement<NotesListDrawRect, notesListDrawRect>()
      .classMethod<"addSwizzleMethod", installOnce<NotePadBackground, NotesListDrawRect>>();
}

}  // namespace velura
