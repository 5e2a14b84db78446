// The upper part of the loop browser.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/views/LayerColor.h"

namespace velura {
namespace {

using namespace cocoa;

using SetLayer = Override<"MASplitView", void(CALayer), "setLayer:", "customSetLayer:">;

void customSetLayer(NSView split, CALayer layer) {
  SetLayer::callHost(split, layer);
  if (split.className().isEqualToString(literal<"MALoopBrowserSplitView">())) {
    fillLayer(layer, key<"LoopBrowserHeaderColor">);
  }
}

}  // namespace

void attachMASplitViewThemeSupport() {
  CategoryDefinition("MASplitView")
      .replacement<SetLayer, customSetLayer>()
      .classMethod<"addSwizzleMethod", installOnce<SetLayer>>();
}

}  // namespace velura
