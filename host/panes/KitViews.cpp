#include "host/panes/KitViews.h"

#include "cocoa/Call.h"
#include "host/Look.h"
#include "host/mixer/Painter.h"

namespace host {
namespace {

using namespace cocoa;

/// Its looks are kept by its cell.
struct MAPopUpButton : ObjectState {
  Ref<NSObject> quickHelpID;

  MAPopUpButtonCell& cell() { return stateOf<MAPopUpButtonCell>(NSControl(self).cell()); }
  NSColor titleColor() { return cell().titleColor; }
  void setTitleColor(NSColor colour) { cell().setTitleColor(colour); }
};

Class popUpCellClass(Class /*cls*/) { return classNamed<"MAPopUpButtonCell">(); }

}  // namespace

// ---- Pop-up buttons -----------------------------------------------------------------------------------

id MAPopUpButtonCell::init() {
  constexpr NSUInteger kNoArrow = 0;
  superSend<MAPopUpButtonCell, id>(self, selector<"init">());
  call<"setArrowPosition:">(self, kNoArrow);
  NSCell(self).setFont(NSFont::systemFontOfSize(11));
  return self;
}

void MAPopUpButtonCell::sendsOnFaderHackState(NSInteger state) {
  sendsOnFader = state;
  NSCell(self).controlView().setNeedsDisplay(true);
}

void MAPopUpButtonCell::setMenuArrowColor(NSColor colour) {
  menuArrowColor = colour;
  NSCell(self).controlView().setNeedsDisplay(true);
}

void MAPopUpButtonCell::setTitleColor(NSColor colour) {
  titleColor = colour;
  NSCell(self).controlView().setNeedsDisplay(true);
}

NSAttributedString MAPopUpButtonCell::attributedTitle() {
  const auto title = superSend<MAPopUpButtonCell, NSAttributedString>(self, selector<"attributedTitle">());
  if (!titleColor || title.length() == 0) return title;
  const auto coloured = Ref<NSMutableAttributedString>::adopt(call<"mutableCopy", NSMutableAttributedString>(title));
  coloured->addAttribute(NSForegroundColorAttributeName, titleColor, {0, title.length()});
  return autoreleased(coloured);
}

void MAPopUpButtonCell::drawInterior(CGRect frame, NSView view) {
  constexpr double kArrow = 14;
  const CGRect beside{frame.origin, {frame.size.width - kArrow, frame.size.height}};
  superSend<MAPopUpButtonCell, void>(self, selector<"drawInteriorWithFrame:inView:">(), beside, view);
  const NSGraphicsContext graphics = NSGraphicsContext::currentContext();
  const Painter painter(graphics.CGContext(), graphics.isFlipped());
  const double down = graphics.isFlipped() ? 1 : -1;
  const CGPoint tip{frame.maxX() - 11, frame.midY() + down * 1.75};
  const NSColor colour = menuArrowColor ? menuArrowColor.get() : look(Look::kMenuArrow);
  painter.line({tip.x - 3.25, tip.y - down * 3.5}, tip, colour, 1.5);
  painter.line(tip, {tip.x + 3.25, tip.y - down * 3.5}, colour, 1.5);
}

Ref<NSPopUpButton> newPopUpButton(const char* className, CGRect frame, std::initializer_list<std::string_view> items) {
  const auto button = Ref<NSPopUpButton>::adopt(
      NSPopUpButton(call<"initWithFrame:pullsDown:", id>(call<"alloc", id>(classNamed(className)), frame, BOOL(0))));
  for (const std::string_view item : items) button->addItemWithTitle(string(item));
  return button;
}

void defineKitViews() {
  ClassDefinition<MAPopUpButtonCell>("MAPopUpButtonCell", "NSPopUpButtonCell")
      .method<"init", &MAPopUpButtonCell::init>()
      .method<"sendsOnFaderHackState:", &MAPopUpButtonCell::sendsOnFaderHackState>()
      .getter<"menuArrowColor", &MAPopUpButtonCell::menuArrowColor>()
      .method<"setMenuArrowColor:", &MAPopUpButtonCell::setMenuArrowColor>()
      .method<"attributedTitle", &MAPopUpButtonCell::attributedTitle>()
      .method<"drawInteriorWithFrame:inView:", &MAPopUpButtonCell::drawInterior>()
      .registered();
  ClassDefinition<MAPopUpButton>("MAPopUpButton", "NSPopUpButton")
      .classMethod<"cellClass", popUpCellClass>()
      .method<"titleColor", &MAPopUpButton::titleColor>()
      .method<"setTitleColor:", &MAPopUpButton::setTitleColor>()
      .property<"quickHelpID", "setQuickHelpID:", &MAPopUpButton::quickHelpID>()
      .registered();
}

}  // namespace host
