// NSPopUpButton and NSPopUpButtonCell.

#include "standin/controls/Cell.h"
#include "standin/controls/Menu.h"
#include "standin/controls/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

/// Whether the cell draws the two arrows that tell a pop-up button from others.
enum ArrowPosition : NSUInteger { kNoArrow = 0, kArrowAtBottom = 2 };

/// What a pop-up button's cell adds to that of a button.
struct PopUpButtonCell : ObjectState {
  Ref<NSMenu> menu = make<NSMenu>();
  Ref<NSMenuItem> selected;
  NSUInteger arrowPosition = kArrowAtBottom;

  ~PopUpButtonCell() { stateOf<MenuState>(menu).cell = nullptr; }
  CellState& cell() { return stateOf<CellState>(self); }

  id init() {
    superSend<PopUpButtonCell, id>(self, selector<"init">());
    stateOf<MenuState>(menu).cell = self;
    cell().bordered = true;
    return self;
  }
  void addItem(NSString title) {
    menu->addItemWithTitle(title, nullptr, literal<"">());
    if (!selected) select(menu->itemAtIndex(0));
  }
  void select(NSMenuItem item) {
    if (selected) selected->setState(NSControlStateValueOff);
    selected = item;
    if (item) item.setState(NSControlStateValueOn);
    cell().redraw();
  }
  /// An index that no item has selects nothing.
  void selectIndex(NSInteger index) { select(menu->itemAtIndex(index)); }
  NSInteger selectedIndex() {
    for (NSInteger i = 0; i < menu->numberOfItems(); ++i) {
      if (menu->itemAtIndex(i) == selected) return i;
    }
    return -1;
  }
  NSString title() { return selected ? selected->title() : literal<"">(); }
  /// The item's own look, in the cell's font where it names none.
  NSAttributedString attributedTitle() {
    const NSAttributedString own = selected ? selected->attributedTitle() : NSAttributedString();
    const auto color = NSColor::colorWithSRGBRed(1, 1, 1, cell().enabled ? 0.85 : 0.25);
    const auto plain = attributed(own ? own.string() : title(), cell().fontHandle(), color, NSTextAlignmentLeft,
                                  NSLineBreakByTruncatingTail);
    if (!own || own.length() == 0) return plain;
    const auto styled = Ref<NSMutableAttributedString>::adopt(call<"mutableCopy", NSMutableAttributedString>(plain));
    for (NSRange run; run.location < own.length(); run.location += run.length) {
      const auto attributes =
          call<"attributesAtIndex:effectiveRange:", NSDictionary>(own, NSUInteger(run.location), &run);
      call<"addAttributes:range:">(styled.get(), attributes, run);
    }
    return autoreleased(styled);
  }
  void drawBezel(NSRect frame, NSView) {
    Context* context = currentContext();
    if (context == nullptr || !cell().bordered) return;
    const SavedState saved(*context);
    constexpr double kRadius = 5;
    NSColor::colorWithSRGBRed(1, 1, 1, cell().highlighted ? 0.26 : 0.13).set();
    NSBezierPath::bezierPathWithRoundedRect(frame.insetBy(0.5, 0.5), kRadius, kRadius).fill();
  }
  void drawInterior(NSRect frame, NSView view) {
    if (currentContext() == nullptr) return;
    constexpr double kMargin = 8;
    constexpr double kArrows = 16;
    const double right = arrowPosition == kNoArrow ? kMargin : kArrows;
    drawCentered(NSButtonCell(self).attributedTitle(),
                 {{frame.minX() + kMargin, frame.minY()}, {frame.size.width - kMargin - right, frame.size.height}});
    if (arrowPosition != kNoArrow) drawArrows({frame.maxX() - kArrows / 2 - 1, frame.midY()}, view);
  }
  void drawArrows(NSPoint middle, NSView view) {
    const auto tint =
        respondsTo(view.object, selector<"contentTintColor">()) ? call<"contentTintColor", NSColor>(view) : NSColor();
    const SavedState saved(*currentContext());
    (tint ? tint : NSColor::colorWithSRGBRed(1, 1, 1, cell().enabled ? 0.7 : 0.25)).set();
    for (const double up : {-1.0, 1.0}) {
      const auto arrow = NSBezierPath::bezierPath();
      arrow.moveToPoint({middle.x - 2.75, middle.y + up * 2});
      arrow.lineToPoint({middle.x, middle.y + up * 5});
      arrow.lineToPoint({middle.x + 2.75, middle.y + up * 2});
      arrow.setLineWidth(1.5);
      arrow.setLineCapStyle(NSLineCapStyleRound);
      arrow.setLineJoinStyle(NSLineJoinStyleRound);
      arrow.stroke();
    }
  }
};

struct PopUpButton : ObjectState {
  Ref<NSColor> contentTintColor;

  id initPullsDown(NSRect frame, BOOL) { return call<"initWithFrame:", id>(self, frame); }
  void setContentTintColor(NSColor color) {
    contentTintColor = color;
    NSView(self).setNeedsDisplay(true);
  }
};

Class cellClass(Class) { return classNamed<"NSPopUpButtonCell">(); }
NSArray itemArray(NSPopUpButton button) { return button.menu().itemArray(); }

}  // namespace

void registerPopUpButtons() {
  ClassDefinition<PopUpButtonCell>("NSPopUpButtonCell", "NSButtonCell")
      .method<"init", &PopUpButtonCell::init>()
      .getter<"menu", &PopUpButtonCell::menu>()
      .method<"addItemWithTitle:", &PopUpButtonCell::addItem>()
      .getter<"selectedItem", &PopUpButtonCell::selected>()
      .method<"selectItem:", &PopUpButtonCell::select>()
      .method<"selectItemAtIndex:", &PopUpButtonCell::selectIndex>()
      .method<"indexOfSelectedItem", &PopUpButtonCell::selectedIndex>()
      .property<"arrowPosition", "setArrowPosition:", &PopUpButtonCell::arrowPosition>()
      .method<"title", &PopUpButtonCell::title>()
      .method<"attributedTitle", &PopUpButtonCell::attributedTitle>()
      .method<"drawBezelWithFrame:inView:", &PopUpButtonCell::drawBezel>()
      .method<"drawInteriorWithFrame:inView:", &PopUpButtonCell::drawInterior>()
      .registered();
  ClassDefinition<PopUpButton>("NSPopUpButton", "NSButton")
      .classMethod<"cellClass", cellClass>()
      .method<"initWithFrame:pullsDown:", &PopUpButton::initPullsDown>()
      .getter<"contentTintColor", &PopUpButton::contentTintColor>()
      .method<"setContentTintColor:", &PopUpButton::setContentTintColor>()
      .registered();
  CategoryDefinition("NSPopUpButton")
      .method<"menu", fromCell<"menu", NSMenu>>()
      .method<"itemArray", itemArray>()
      .method<"addItemWithTitle:", toCell<"addItemWithTitle:", NSString>>()
      .method<"selectedItem", fromCell<"selectedItem", NSMenuItem>>()
      .method<"selectItem:", toCell<"selectItem:", NSMenuItem>>()
      .method<"selectItemAtIndex:", toCell<"selectItemAtIndex:", NSInteger>>()
      .method<"indexOfSelectedItem", fromCell<"indexOfSelectedItem", NSInteger>>();
}

}  // namespace standin
