#pragma once
// The states of NSResponder and NSView, for the classes that build on them.

#include <vector>

#include "cocoa/AppKit.h"
#include "standin/drawing/Context.h"
#include "standin/layers/Layer.h"

namespace standin {

/// State of an NSResponder. The next responder is not owned.
struct ResponderState : cocoa::ObjectState {
  id next = nullptr;
  NSResponder nextResponder() { return NSResponder(next); }
  void setNextResponder(NSResponder responder) { next = responder.object; }
};

/// State of an NSView. Places are in the superview's bounds, y up unless that one is flipped.
struct ViewState : cocoa::ObjectState {
  NSRect frame;
  NSPoint boundsOrigin;
  CGFloat alphaValue = 1;
  id superview = nullptr;
  id window = nullptr;
  id controller = nullptr;  // the view controller that this is the view of
  std::vector<cocoa::Ref<NSView>> subviews;
  cocoa::Ref<NSArray> subviewsSnapshot;  // until the subviews change
  cocoa::Ref<CALayer> layer;
  cocoa::Ref<NSString> identifier;
  NSUInteger autoresizingMask = 0;
  bool hidden = false;
  bool wantsLayer = false;
  bool needsDisplay = true;
  NSRect marked;  // what of the bounds needs display; empty for everything
  bool postsFrameChanges = true;
  bool changingFrame = false;  // origin and size are one change, told of once

  ~ViewState();

  id initWithFrame(NSRect rect);
  id init() { return cocoa::call<"initWithFrame:", id>(self, NSRect{}); }
  NSView view() { return NSView(self); }

  NSRect bounds() { return {boundsOrigin, frame.size}; }
  void setFrame(NSRect rect);
  void setFrameSize(NSSize size);
  void setFrameOrigin(NSPoint origin);
  /// The scale of a view never changes: only the origin is taken.
  void setBounds(NSRect rect) { setBoundsOrigin(rect.origin); }
  void setBoundsOrigin(NSPoint origin);
  NSRect visibleRect();

  NSView superviewHandle() { return NSView(superview); }
  NSWindow windowHandle() { return NSWindow(window); }
  NSArray subviewArray();
  void setSubviews(NSArray views);
  void addSubview(NSView added);
  void addSubviewPositioned(NSView added, NSWindowOrderingMode place, NSView other);
  void insertSubview(NSView added, std::size_t index);
  void removeFromSuperview();
  BOOL isDescendantOf(NSView other);
  void moveToWindow(id changed);
  NSView viewWithTag(NSInteger tag);

  void setWantsLayer(BOOL wants);
  CALayer layerHandle() { return layer; }
  void setLayer(CALayer changed);
  void placeLayer();

  void setHidden(BOOL hides);
  void setAlphaValue(CGFloat alpha);
  void setNeedsDisplay(BOOL needs);
  void setNeedsDisplayInRect(NSRect rect);
  BOOL needsToDrawRect(NSRect rect);
  /// What of the bounds needs display; empty when nothing does.
  NSRect dirty();
  /// The place that the view takes in its superview shows something else now.
  void markPlace();
  void frameChanged();
  void displayIfNeeded();
  void display();
  void displayRect(NSRect rect, NSGraphicsContext graphics);
  NSBitmapImageRep bitmapForCaching(NSRect rect);
  void cacheDisplay(NSRect rect, NSBitmapImageRep bitmap);

  /// `point` in the superview's space.
  NSView hitTest(NSPoint point);
  NSPoint pointTo(NSPoint point, NSView other);
  NSPoint pointFrom(NSPoint point, NSView other);
  NSRect rectTo(NSRect rect, NSView other);
  NSRect rectFrom(NSRect rect, NSView other);
};

/// Whether drawing settles what was marked as needing display. A copy made off the screen does not.
enum class Marks : std::uint8_t { kSettle, kKeep };

/// Draws a view and its descendants. `toDevice` leads from the view's lower left corner, y up, to the device.
void renderView(ViewState& view, Context& context, CGContextRef target, const CGAffineTransform& toDevice, Marks marks);

}  // namespace standin
