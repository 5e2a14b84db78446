// The label of the volume in the mixer's legend.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/text/StringBytes.h"
#include "plugin/views/LayerColor.h"

namespace velura {
namespace {

using namespace cocoa;

using ViewDidMoveToWindow = Override<"MATextField", void(), "viewDidMoveToWindow", "customViewDidMoveToWindow">;

void customViewDidMoveToWindow(NSView field) {
  constexpr std::string_view kVolumeLabel = "MAMixerLegendVolumeLabelItem";
  if (BriefUTF8(call<"identifier", NSString>(field)).view().starts_with(kVolumeLabel)) {
    fillLayer(field.superview().layer(), key<"componentsLabelBackgroundColor">);
  }
  ViewDidMoveToWindow::callHost(field);
}

}  // namespace

void attachMATextFieldThemeSupport() {
  CategoryDefinition("MATextField")
      .replacement<ViewDidMoveToWindow, customViewDidMoveToWindow>()
      .classMethod<"addSwizzleMethod", installOnce<ViewDidMoveToWindow>>();
}

}  // namespace velura
