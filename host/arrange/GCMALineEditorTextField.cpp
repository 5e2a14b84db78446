#include "host/arrange/GCMALineEditorTextField.h"

namespace host {

using namespace cocoa;

id GCMALineEditorTextField::initWithFrame(CGRect frame) {
  constexpr double kBackgroundAlpha = 0.9;
  constexpr double kTextSize = 11;
  superSend<GCMALineEditorTextField, id>(self, selector<"initWithFrame:">(), frame);
  const NSTextField field(self);
  field.setFont(NSFont::systemFontOfSize(kTextSize));
  field.setTextColor(NSColor::blackColor());
  field.setBackgroundColor(NSColor::colorWithSRGBRed(1, 1, 1, kBackgroundAlpha));
  field.setDrawsBackground(true);
  return self;
}

void defineGCMALineEditorTextField() {
  ClassDefinition<GCMALineEditorTextField>("GCMALineEditorTextField", "NSTextField")
      .method<"initWithFrame:", &GCMALineEditorTextField::initWithFrame>()
      .registered();
}

}  // namespace host
