#pragma once
// Core Animation's classes as handles. A layer's geometry is y-up unless `geometryFlipped` is set on its
// superlayer. Colours and paths are Core Graphics objects and are retained by the layer.

#include "cocoa/Call.h"
#include "cocoa/CoreGraphics.h"

extern "C" {
extern NSString kCAGravityResize;
extern NSString kCAGravityResizeAspect;
extern NSString kCAGravityCenter;
extern NSString kCAGravityTop;
extern NSString kCAGravityBottom;
extern NSString kCAGravityLeft;
extern NSString kCAGravityRight;
extern NSString kCAGravityTopLeft;
extern NSString kCAGravityTopRight;
extern NSString kCAGravityBottomLeft;
extern NSString kCAGravityBottomRight;
extern NSString kCALineCapButt;
extern NSString kCALineCapRound;
extern NSString kCALineCapSquare;
extern NSString kCAFillRuleNonZero;
extern NSString kCAFillRuleEvenOdd;
}

struct CALayer : NSObject {
  static constexpr cocoa::FixedString kClassName{"CALayer"};
  using NSObject::NSObject;
  static CALayer layer() { return cocoa::callClass<CALayer, "layer">(); }

  [[nodiscard]] CGRect bounds() const { return cocoa::call<"bounds", CGRect>(object); }
  void setBounds(CGRect bounds) const { cocoa::call<"setBounds:">(object, bounds); }
  [[nodiscard]] CGPoint position() const { return cocoa::call<"position", CGPoint>(object); }
  void setPosition(CGPoint position) const { cocoa::call<"setPosition:">(object, position); }
  [[nodiscard]] CGPoint anchorPoint() const { return cocoa::call<"anchorPoint", CGPoint>(object); }
  void setAnchorPoint(CGPoint anchor) const { cocoa::call<"setAnchorPoint:">(object, anchor); }
  [[nodiscard]] CGRect frame() const { return cocoa::call<"frame", CGRect>(object); }
  void setFrame(CGRect frame) const { cocoa::call<"setFrame:">(object, frame); }
  /// About the anchor point. While it is not the identity, `frame` must not be set.
  [[nodiscard]] CGAffineTransform affineTransform() const {
    return cocoa::call<"affineTransform", CGAffineTransform>(object);
  }
  void setAffineTransform(CGAffineTransform transform) const { cocoa::call<"setAffineTransform:">(object, transform); }
  [[nodiscard]] CGFloat zPosition() const { return cocoa::call<"zPosition", CGFloat>(object); }
  void setZPosition(CGFloat z) const { cocoa::call<"setZPosition:">(object, z); }
  [[nodiscard]] bool isGeometryFlipped() const { return cocoa::callBool<"isGeometryFlipped">(object); }
  void setGeometryFlipped(bool flipped) const { cocoa::call<"setGeometryFlipped:">(object, BOOL(flipped)); }

  [[nodiscard]] NSString name() const { return cocoa::call<"name", NSString>(object); }
  void setName(NSString name) const { cocoa::call<"setName:">(object, name); }
  [[nodiscard]] NSObject delegate() const { return cocoa::call<"delegate", NSObject>(object); }
  void setDelegate(NSObject delegate) const { cocoa::call<"setDelegate:">(object, delegate); }

  /// nil while there is none. A snapshot: walking it allows changes.
  [[nodiscard]] NSArray sublayers() const { return cocoa::call<"sublayers", NSArray>(object); }
  void setSublayers(NSArray sublayers) const { cocoa::call<"setSublayers:">(object, sublayers); }
  [[nodiscard]] CALayer superlayer() const { return cocoa::call<"superlayer", CALayer>(object); }
  void addSublayer(CALayer layer) const { cocoa::call<"addSublayer:">(object, layer); }
  void insertSublayer(CALayer layer, unsigned index) const {
    cocoa::call<"insertSublayer:atIndex:">(object, layer, index);
  }
  void removeFromSuperlayer() const { cocoa::call<"removeFromSuperlayer">(object); }

  /// An image of Core Graphics or an NSImage.
  [[nodiscard]] NSObject contents() const { return cocoa::call<"contents", NSObject>(object); }
  void setContents(NSObject contents) const { cocoa::call<"setContents:">(object, contents); }
  [[nodiscard]] CGFloat contentsScale() const { return cocoa::call<"contentsScale", CGFloat>(object); }
  void setContentsScale(CGFloat scale) const { cocoa::call<"setContentsScale:">(object, scale); }
  [[nodiscard]] NSString contentsGravity() const { return cocoa::call<"contentsGravity", NSString>(object); }
  void setContentsGravity(NSString gravity) const { cocoa::call<"setContentsGravity:">(object, gravity); }

  [[nodiscard]] CGColorRef backgroundColor() const { return cocoa::call<"backgroundColor", CGColorRef>(object); }
  void setBackgroundColor(CGColorRef color) const { cocoa::call<"setBackgroundColor:">(object, color); }
  [[nodiscard]] CGColorRef borderColor() const { return cocoa::call<"borderColor", CGColorRef>(object); }
  void setBorderColor(CGColorRef color) const { cocoa::call<"setBorderColor:">(object, color); }
  [[nodiscard]] CGFloat borderWidth() const { return cocoa::call<"borderWidth", CGFloat>(object); }
  void setBorderWidth(CGFloat width) const { cocoa::call<"setBorderWidth:">(object, width); }
  [[nodiscard]] CGFloat cornerRadius() const { return cocoa::call<"cornerRadius", CGFloat>(object); }
  void setCornerRadius(CGFloat radius) const { cocoa::call<"setCornerRadius:">(object, radius); }
  [[nodiscard]] float opacity() const { return cocoa::call<"opacity", float>(object); }
  void setOpacity(float opacity) const { cocoa::call<"setOpacity:">(object, opacity); }
  [[nodiscard]] bool isHidden() const { return cocoa::callBool<"isHidden">(object); }
  void setHidden(bool hidden) const { cocoa::call<"setHidden:">(object, BOOL(hidden)); }
  [[nodiscard]] bool masksToBounds() const { return cocoa::callBool<"masksToBounds">(object); }
  void setMasksToBounds(bool masks) const { cocoa::call<"setMasksToBounds:">(object, BOOL(masks)); }
  [[nodiscard]] CALayer mask() const { return cocoa::call<"mask", CALayer>(object); }
  void setMask(CALayer mask) const { cocoa::call<"setMask:">(object, mask); }

  [[nodiscard]] bool needsDisplay() const { return cocoa::callBool<"needsDisplay">(object); }
  void setNeedsDisplay() const { cocoa::call<"setNeedsDisplay">(object); }
  void display() const { cocoa::call<"display">(object); }
  void displayIfNeeded() const { cocoa::call<"displayIfNeeded">(object); }
  void drawInContext(CGContextRef context) const { cocoa::call<"drawInContext:">(object, context); }
  /// Draws the layer and its sublayers with the origin of its bounds at the origin of the context.
  void renderInContext(CGContextRef context) const { cocoa::call<"renderInContext:">(object, context); }
};

struct CAShapeLayer : CALayer {
  static constexpr cocoa::FixedString kClassName{"CAShapeLayer"};
  using CALayer::CALayer;
  static CAShapeLayer layer() { return cocoa::callClass<CAShapeLayer, "layer">(); }
  [[nodiscard]] CGPathRef path() const { return cocoa::call<"path", CGPathRef>(object); }
  void setPath(CGPathRef path) const { cocoa::call<"setPath:">(object, path); }
  [[nodiscard]] CGColorRef fillColor() const { return cocoa::call<"fillColor", CGColorRef>(object); }
  void setFillColor(CGColorRef color) const { cocoa::call<"setFillColor:">(object, color); }
  [[nodiscard]] CGColorRef strokeColor() const { return cocoa::call<"strokeColor", CGColorRef>(object); }
  void setStrokeColor(CGColorRef color) const { cocoa::call<"setStrokeColor:">(object, color); }
  [[nodiscard]] CGFloat lineWidth() const { return cocoa::call<"lineWidth", CGFloat>(object); }
  void setLineWidth(CGFloat width) const { cocoa::call<"setLineWidth:">(object, width); }
  [[nodiscard]] NSString lineCap() const { return cocoa::call<"lineCap", NSString>(object); }
  void setLineCap(NSString cap) const { cocoa::call<"setLineCap:">(object, cap); }
  [[nodiscard]] NSString fillRule() const { return cocoa::call<"fillRule", NSString>(object); }
  void setFillRule(NSString rule) const { cocoa::call<"setFillRule:">(object, rule); }
};

struct CAGradientLayer : CALayer {
  static constexpr cocoa::FixedString kClassName{"CAGradientLayer"};
  using CALayer::CALayer;
  static CAGradientLayer layer() { return cocoa::callClass<CAGradientLayer, "layer">(); }
  /// CGColors.
  [[nodiscard]] NSArray colors() const { return cocoa::call<"colors", NSArray>(object); }
  void setColors(NSArray colors) const { cocoa::call<"setColors:">(object, colors); }
  /// Numbers, or nil for an even spread.
  [[nodiscard]] NSArray locations() const { return cocoa::call<"locations", NSArray>(object); }
  void setLocations(NSArray locations) const { cocoa::call<"setLocations:">(object, locations); }
  /// In the unit square of the layer, y up.
  [[nodiscard]] CGPoint startPoint() const { return cocoa::call<"startPoint", CGPoint>(object); }
  void setStartPoint(CGPoint point) const { cocoa::call<"setStartPoint:">(object, point); }
  [[nodiscard]] CGPoint endPoint() const { return cocoa::call<"endPoint", CGPoint>(object); }
  void setEndPoint(CGPoint point) const { cocoa::call<"setEndPoint:">(object, point); }
};

struct CATransaction : NSObject {
  static constexpr cocoa::FixedString kClassName{"CATransaction"};
  using NSObject::NSObject;
  static void begin() { cocoa::callClass<CATransaction, "begin", void>(); }
  static void commit() { cocoa::callClass<CATransaction, "commit", void>(); }
  static void flush() { cocoa::callClass<CATransaction, "flush", void>(); }
  static void setDisableActions(bool disable) {
    cocoa::callClass<CATransaction, "setDisableActions:", void>(BOOL(disable));
  }
};
