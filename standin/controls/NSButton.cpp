// NSButton and NSButtonCell.

#include "standin/controls/Cell.h"
#include "standin/controls/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

/// Parts of a button that show its state: its image and title, its shade, its ground.
constexpr NSUInteger kContents = 1;
constexpr NSUInteger kGray = 4;
constexpr NSUInteger kBackground = 8;

/// State of an NSButtonCell.
struct ButtonCell : ObjectState {
  Ref<NSString> title;
  Ref<NSAttributedString> attributedTitle;
  Ref<NSColor> backgroundColor;
  Ref<NSImage> alternateImage;
  NSUInteger showsStateBy = 0;  // which of its parts change while it is on

  CellState& cell() { return stateOf<CellState>(self); }
  NSString titleHandle() {
    if (attributedTitle) return attributedTitle->string();
    return title ? title.get() : literal<"">();
  }
  void setTitle(NSString text) {
    title = text;
    attributedTitle = {};
    cell().redraw();
  }
  NSAttributedString styledTitle() {
    if (attributedTitle) return attributedTitle;
    const auto color = NSColor::colorWithSRGBRed(1, 1, 1, cell().enabled ? 0.85 : 0.25);
    return attributed(title, cell().fontHandle(), color, NSTextAlignmentCenter, NSLineBreakByTruncatingTail);
  }
  void setStyledTitle(NSAttributedString text) {
    attributedTitle = text;
    cell().redraw();
  }
  void setAlternateImage(NSImage image) {
    alternateImage = image;
    cell().redraw();
  }
  void drawWithFrame(NSRect frame, NSView view) {
    call<"drawBezelWithFrame:inView:">(self, frame, view);
    NSCell(self).drawInteriorWithFrame(frame, view);
  }
  void drawBezel(NSRect frame, NSView) {
    Context* context = currentContext();
    if (context == nullptr) return;
    const SavedState saved(*context);
    if (backgroundColor) {
      backgroundColor->set();
      NSBezierPath::fillRect(frame);
    }
    if (!cell().bordered) return;
    constexpr double kRadius = 5;
    const double white = cell().highlighted || cell().state == 1 ? 0.3 : 0.15;
    NSColor::colorWithSRGBRed(1, 1, 1, white).set();
    NSBezierPath::bezierPathWithRoundedRect(frame.insetBy(0.5, 0.5), kRadius, kRadius).fill();
  }
  void drawInterior(NSRect frame, NSView view) {
    const bool exchanges = cell().state == NSControlStateValueOn && (showsStateBy & kContents) != 0 && alternateImage;
    if (const NSImage image = exchanges ? alternateImage.get() : NSCell(self).image()) {
      call<"drawImage:withFrame:inView:">(self, image, frame, view);
    } else if (titleHandle().length() > 0) {
      call<"drawTitle:withFrame:inView:", NSRect>(self, NSButtonCell(self).attributedTitle(), frame, view);
    }
  }
  void drawImage(NSImage image, NSRect frame, NSView) {
    const NSSize size = image.size();
    image.drawInRect({{frame.midX() - size.width / 2, frame.midY() - size.height / 2}, size});
  }
  NSRect drawTitle(NSAttributedString text, NSRect frame, NSView) {
    drawCentered(text, frame);
    return frame;
  }
};

enum ButtonType : NSUInteger { kPushOnPushOff = 1, kToggle = 2, kSwitch = 3, kRadio = 4, kOnOff = 6 };

/// What NSButton adds to its cell's state.
struct Button : ObjectState {
  NSUInteger type = 0;

  NSButton button() { return NSButton(self); }
  void setType(NSUInteger changed) {
    type = changed;
    const bool exchanges = type == kToggle || type == kSwitch || type == kRadio;
    const bool shades = type == kPushOnPushOff || type == kOnOff;
    call<"setShowsStateBy:">(button().cell(), exchanges ? kContents : shades ? kGray | kBackground : 0);
  }
  void performClick(NSObject sender) {
    if (!button().isEnabled()) return;
    const bool toggles = type == kPushOnPushOff || type == kToggle || type == kSwitch || type == kOnOff;
    if (toggles)
      button().setState(button().state() == NSControlStateValueOff ? NSControlStateValueOn : NSControlStateValueOff);
    if (type == kRadio) button().setState(NSControlStateValueOn);
    superSend<Button, void>(self, selector<"performClick:">(), sender);
  }
  void highlight(bool highlighted) {
    button().cell().setHighlighted(highlighted);
    button().setNeedsDisplay(true);
  }
  [[nodiscard]] bool isOver(NSEvent event) {
    return CGRectContainsPoint(button().bounds(), button().convertPointFromView(event.locationInWindow(), {}));
  }
  void mouseDown(NSEvent) {
    if (button().isEnabled()) highlight(true);
  }
  void mouseDragged(NSEvent event) {
    if (button().isEnabled()) highlight(isOver(event));
  }
  void mouseUp(NSEvent event) {
    highlight(false);
    if (isOver(event)) call<"performClick:">(self, NSObject());
  }
};

Class cellClass(Class) { return classNamed<"NSButtonCell">(); }

}  // namespace

void registerButtons() {
  ClassDefinition<ButtonCell>("NSButtonCell", "NSCell")
      .method<"title", &ButtonCell::titleHandle>()
      .method<"setTitle:", &ButtonCell::setTitle>()
      .method<"attributedTitle", &ButtonCell::styledTitle>()
      .method<"setAttributedTitle:", &ButtonCell::setStyledTitle>()
      .property<"backgroundColor", "setBackgroundColor:", &ButtonCell::backgroundColor>()
      .property<"showsStateBy", "setShowsStateBy:", &ButtonCell::showsStateBy>()
      .getter<"alternateImage", &ButtonCell::alternateImage>()
      .method<"setAlternateImage:", &ButtonCell::setAlternateImage>()
      .method<"drawWithFrame:inView:", &ButtonCell::drawWithFrame>()
      .method<"drawBezelWithFrame:inView:", &ButtonCell::drawBezel>()
      .method<"drawInteriorWithFrame:inView:", &ButtonCell::drawInterior>()
      .method<"drawImage:withFrame:inView:", &ButtonCell::drawImage>()
      .method<"drawTitle:withFrame:inView:", &ButtonCell::drawTitle>()
      .registered();
  ClassDefinition<Button>("NSButton", "NSControl")
      .classMethod<"cellClass", cellClass>()
      .method<"setButtonType:", &Button::setType>()
      .method<"performClick:", &Button::performClick>()
      .method<"mouseDown:", &Button::mouseDown>()
      .method<"mouseDragged:", &Button::mouseDragged>()
      .method<"mouseUp:", &Button::mouseUp>()
      .registered();
  CategoryDefinition("NSButton")
      .method<"title", fromCell<"title", NSString>>()
      .method<"setTitle:", toCell<"setTitle:", NSString>>()
      .method<"attributedTitle", fromCell<"attributedTitle", NSAttributedString>>()
      .method<"setAttributedTitle:", toCell<"setAttributedTitle:", NSAttributedString>>()
      .method<"image", fromCell<"image", NSImage>>()
      .method<"setImage:", toCell<"setImage:", NSImage>>()
      .method<"alternateImage", fromCell<"alternateImage", NSImage>>()
      .method<"setAlternateImage:", toCell<"setAlternateImage:", NSImage>>()
      .method<"state", fromCell<"state", NSInteger>>()
      .method<"setState:", toCell<"setState:", NSInteger>>()
      .method<"isBordered", fromCell<"isBordered", BOOL>>()
      .method<"setBordered:", toCell<"setBordered:", BOOL>>();
}

}  // namespace standin
