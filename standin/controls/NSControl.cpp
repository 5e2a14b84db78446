#include "standin/controls/Cell.h"
#include "standin/controls/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

Class cellClass(Class) { return classNamed<"NSCell">(); }

/// Without a target the action goes to the next responder that knows it.
BOOL sendAction(NSControl self, SEL action, NSObject target) {
  if (action == nullptr) return NO;
  NSObject receiver = target;
  if (!receiver) {
    NSResponder next = self.nextResponder();
    while (next && !next.respondsToSelector(action)) next = next.nextResponder();
    receiver = next;
  }
  if (!respondsTo(receiver.object, action)) return NO;
  const Ref<NSControl> kept = self;
  send<void>(receiver.object, action, NSObject(self.object));
  return YES;
}

void performClick(NSControl self, NSObject) {
  if (self.isEnabled()) call<"sendAction:to:", BOOL>(self, self.action(), self.target());
}

void drawCell(NSControl control, NSRect) { control.cell().drawWithFrame(control.bounds(), control); }

}  // namespace

ControlState::~ControlState() {
  if (cell && stateOf<CellState>(cell).controlView == self) stateOf<CellState>(cell).controlView = nullptr;
}

id ControlState::initWithFrame(NSRect frame) {
  const id made = superSend<ControlState, id>(self, selector<"initWithFrame:">(), frame);
  const auto cls = call<"cellClass", Class>(object_getClass(self));
  const auto fresh = Ref<NSCell>::adopt(call<"init", NSCell>(call<"alloc", id>(cls)));
  NSControl(self).setCell(fresh);
  return made;
}

void ControlState::setCell(NSCell changed) {
  if (cell && stateOf<CellState>(cell).controlView == self) stateOf<CellState>(cell).controlView = nullptr;
  cell = changed;
  cell->setControlView(NSView(self));
}

void registerControls() {
  ClassDefinition<ControlState>("NSControl", "NSView")
      .classMethod<"cellClass", cellClass>()
      .method<"initWithFrame:", &ControlState::initWithFrame>()
      .method<"cell", &ControlState::cellHandle>()
      .method<"setCell:", &ControlState::setCell>()
      .property<"tag", "setTag:", &ControlState::tag>()
      .registered();
  CategoryDefinition("NSControl")
      .method<"stringValue", fromCell<"stringValue", NSString>>()
      .method<"setStringValue:", toCell<"setStringValue:", NSString>>()
      .method<"attributedStringValue", fromCell<"attributedStringValue", NSAttributedString>>()
      .method<"setAttributedStringValue:", toCell<"setAttributedStringValue:", NSAttributedString>>()
      .method<"font", fromCell<"font", NSFont>>()
      .method<"setFont:", toCell<"setFont:", NSFont>>()
      .method<"alignment", fromCell<"alignment", NSTextAlignment>>()
      .method<"setAlignment:", toCell<"setAlignment:", NSTextAlignment>>()
      .method<"lineBreakMode", fromCell<"lineBreakMode", NSLineBreakMode>>()
      .method<"setLineBreakMode:", toCell<"setLineBreakMode:", NSLineBreakMode>>()
      .method<"target", fromCell<"target", NSObject>>()
      .method<"setTarget:", toCell<"setTarget:", NSObject>>()
      .method<"action", fromCell<"action", SEL>>()
      .method<"setAction:", toCell<"setAction:", SEL>>()
      .method<"isEnabled", fromCell<"isEnabled", BOOL>>()
      .method<"setEnabled:", toCell<"setEnabled:", BOOL>>()
      .method<"sendAction:to:", sendAction>()
      .method<"performClick:", performClick>()
      .method<"drawRect:", drawCell>();
}

}  // namespace standin
