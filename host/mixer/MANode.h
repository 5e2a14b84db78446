#pragma once
// The base of everything that a mixer strip shows: a node of a tree, with a layer that presents it.

#include "cocoa/AppKit.h"
#include "cocoa/Call.h"
#include "cocoa/ClassDefinition.h"
#include "cocoa/QuartzCore.h"

namespace host {

/// Frames are in points of the parent, y upwards.
struct MANode : cocoa::ObjectState {
  cocoa::Ref<NSString> name;
  cocoa::Ref<NSString> title;
  cocoa::Ref<NSString> assetSetPath;
  cocoa::Ref<NSObject> representedObject;
  cocoa::Ref<NSMutableArray> childrenArray;
  cocoa::Ref<CALayer> layer;
  NSObject parent;         // owns this node
  NSObject ownController;  // set on the root; owns the tree
  NSObject ownView;        // likewise
  CGRect frame;
  NSInteger highlightState = 0;
  NSInteger state = 0;
  double contentsScale = 0;
  bool drawsContents = false;
  bool hidden = false;
  bool needsDisplay = true;
  bool needsUpdateContents = true;

  ~MANode();
  id init();
  void addChild(NSObject child);
  void removeAllChildren();
  NSObject childNodeWithName(NSString wanted);
  NSObject controller();
  NSObject view();
  void setFrame(CGRect newFrame);
  void setHighlightState(NSInteger newState);
  void setState(NSInteger newState);
  void setTitle(NSString newTitle);
  void setNeedsDisplay(BOOL needs);
  void setNeedsUpdateContents(BOOL needs);
  void invalidateCache();
  void willUpdatePresentationObject();
  void updatePresentationObject(NSObject presentation, NSObject presentingView);
  void drawRect(CGRect rect, CGContextRef context);

  [[nodiscard]] CGRect bounds() const { return {{0, 0}, frame.size}; }
};

/// A picture of what a node draws into `size` points at `scale` pixels per point; null for an empty size.
template <class Draw>
cocoa::CFRef<CGImageRef> drawnImage(CGSize size, double scale, Draw&& draw);

/// Makes a node of the named class.
cocoa::Ref<NSObject> makeNode(const char* className, const char* name, CGRect frame);

/// Presents a mixer: its root and every strip at each frame, of their sections those that are marked. Parents
/// come first.
void presentTree(NSObject root, NSObject view);

void defineMANode();

template <class Draw>
cocoa::CFRef<CGImageRef> drawnImage(CGSize size, double scale, Draw&& draw) {
  using cocoa::CFRef;
  const auto width = static_cast<std::size_t>(std::ceil(size.width * scale));
  const auto height = static_cast<std::size_t>(std::ceil(size.height * scale));
  const auto space = CFRef<CGColorSpaceRef>::adopt(CGColorSpaceCreateDeviceRGB());
  const auto context = CFRef<CGContextRef>::adopt(
      CGBitmapContextCreate(nullptr, width, height, 8, 0, space, kCGImageAlphaPremultipliedLast));
  if (!context) return {};
  CGContextScaleCTM(context, scale, scale);
  draw(context.get());
  return CFRef<CGImageRef>::adopt(CGBitmapContextCreateImage(context));
}

}  // namespace host
