#pragma once
// CALayer's state, for the classes that build on it and for the compositing.

#include <cstdint>
#include <memory>
#include <vector>

#include "cocoa/AppKit.h"
#include "standin/drawing/Context.h"

namespace standin {

enum class Gravity : std::uint8_t {
  kResize,
  kResizeAspect,
  kCenter,
  kTop,
  kBottom,
  kLeft,
  kRight,
  kTopLeft,
  kTopRight,
  kBottomLeft,
  kBottomRight
};

struct LayerState : cocoa::ObjectState {
  CGRect bounds;
  CGPoint position;
  CGPoint anchorPoint{0.5, 0.5};
  CGAffineTransform transform;  // about the anchor point
  CGFloat zPosition = 0;
  CGFloat contentsScale = 1;
  CGFloat borderWidth = 0;
  CGFloat cornerRadius = 0;
  float opacity = 1;
  Gravity gravity = Gravity::kResize;
  bool hidden = false;
  bool masksToBounds = false;
  bool geometryFlipped = false;
  bool needsDisplay = false;
  bool wantsDisplayOnResize = false;
  id superlayer = nullptr;
  id delegate = nullptr;
  cocoa::CFRef<CGColorRef> backgroundColor;
  cocoa::CFRef<CGColorRef> borderColor;
  cocoa::Ref<NSObject> contents;
  cocoa::Ref<CALayer> mask;
  cocoa::Ref<NSString> name;
  std::vector<cocoa::Ref<CALayer>> sublayers;
  cocoa::Ref<NSArray> sublayersSnapshot;  // until the sublayers change
  std::shared_ptr<const Surface> pixels;  // of the contents, taken when first drawn
  /// What a subclass draws between the background and the contents, in the context's layer space.
  void (*paintOwn)(LayerState& layer, Context& context, bool flipped) = nullptr;

  ~LayerState();

  void setBounds(CGRect changed);
  [[nodiscard]] CGRect untransformedFrame() const {
    return {{position.x - anchorPoint.x * bounds.size.width, position.y - anchorPoint.y * bounds.size.height},
            bounds.size};
  }
  /// The smallest upright rectangle around the layer as it is transformed.
  [[nodiscard]] CGRect frame() {
    const CGRect still = untransformedFrame().offsetBy(-position.x, -position.y);
    return CGRectApplyAffineTransform(still, transform).offsetBy(position.x, position.y);
  }
  void setFrame(CGRect frame);
  void setContents(NSObject contents);
  void setContentsScale(CGFloat scale);
  NSString contentsGravity();
  void setContentsGravity(NSString gravity);
  CGColorRef background() { return backgroundColor; }
  void setBackground(CGColorRef color) { backgroundColor = color; }
  CGColorRef border() { return borderColor; }
  void setBorder(CGColorRef color) { borderColor = color; }
  CALayer superlayerHandle() { return CALayer(superlayer); }
  NSObject delegateHandle() { return NSObject(delegate); }
  void setDelegate(NSObject object) { delegate = object.object; }
  void setMask(CALayer layer) { mask = layer; }

  NSArray sublayerArray();
  void setSublayers(NSArray layers);
  void addSublayer(CALayer layer) { insertSublayer(layer, static_cast<unsigned>(sublayers.size())); }
  void insertSublayer(CALayer layer, unsigned index);
  void insertSublayerAbove(CALayer layer, CALayer sibling);
  void insertSublayerBelow(CALayer layer, CALayer sibling);
  void removeFromSuperlayer();
  [[nodiscard]] std::ptrdiff_t indexOf(CALayer layer) const;

  void markNeedsDisplay() { needsDisplay = true; }
  BOOL isNeedingDisplay() { return static_cast<BOOL>(needsDisplay); }
  void displayIfNeeded();
  void display();
  void drawInContext(CGContextRef context);
  void renderInContext(CGContextRef context);
};

/// Draws a layer and its sublayers. `toDevice` leads from the layer's space, its bottom left corner at zero,
/// y up, to the device; `flipped` says whether the sublayers are laid out from the top.
void renderLayer(LayerState& layer, Context& context, const CGAffineTransform& toDevice, bool flipped);

}  // namespace standin
