#include "host/mixer/MAScaleNode.h"

#include "host/drawing/Painter.h"
#include "host/mixer/ScaleMarks.h"

namespace host {
namespace {

using namespace cocoa;

/// A tick of the type that its factory is for; `type` is what the scale wants of it.
NSObject newTick(Class cls, NSInteger type, CGColorRef color, CGColorRef highlighted, double position, NSString label) {
  const id made = call<"init", id>(call<"alloc", id>(cls));
  MAScaleTick& tick = stateOf<MAScaleTick>(made);
  tick.type = type;
  tick.color = color;
  tick.highlightedColor = highlighted;
  tick.defaultYPosition = position;
  tick.label = label;
  return autoreleased(Ref<NSObject>::adopt(NSObject(made)));
}

NSObject infinityTick(Class cls, NSInteger type, CGColorRef color, CGColorRef highlighted, double position,
                      NSString label) {
  return newTick(cls, type, color, highlighted, position, label);
}

NSObject tickFor(const ScaleMark& mark, NSInteger scaleType) {
  const bool zero = scaleType == kVolumeScale && mark.position == kZeroDecibels;
  const CGColorRef color = paletteColor(zero ? Palette::kScaleZero : Palette::kScaleTick).CGColor();
  const Class cls = classNamed("MAScaleTick");
  const NSString label = string(mark.label);
  const NSInteger type = mark.type;
  if (mark.type == kInfinityTick) {
    return call<"scaleInfinityTickWithType:color:highlightedColor:defaultYPosition:label:", NSObject>(
        cls, type, color, color, mark.position, label);
  }
  return call<"scaleTickWithType:color:highlightedColor:defaultYPosition:label:", NSObject>(cls, type, color, color,
                                                                                            mark.position, label);
}

}  // namespace

id MAScaleNode::init() {
  superSend<MAScaleNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  largeScaleTicks = make<NSMutableArray>();
  return self;
}

void MAScaleNode::setType(NSInteger newType) {
  if (type == newType) return;
  type = newType;
  largeScaleTicks->removeAllObjects();
  for (const ScaleMark& mark : scaleMarks(type)) largeScaleTicks->addObject(tickFor(mark, type));
  call<"setNeedsUpdateContents:">(self, BOOL(1));
}

CGColorRef MAScaleNode::labelColor() { return paletteColor(Palette::kScaleNumber).CGColor(); }
CGColorRef MAScaleNode::highlightedLabelColor() { return paletteColor(Palette::kScaleNumber).CGColor(); }

void MAScaleNode::drawRect(CGRect rect, CGContextRef context) {
  const Painter painter(context);
  const bool highlighted = stateOf<MANode>(self).highlightState != 0;
  const NSColor numbers = NSColor::colorWithCGColor(highlighted ? call<"highlightedLabelColor", CGColorRef>(self)
                                                                : call<"labelColor", CGColorRef>(self));
  const ScaleColumns columns = scaleColumns(type, rect.size.width);
  for (const NSObject each : items(largeScaleTicks)) {
    const MAScaleTick& tick = stateOf<MAScaleTick>(each);
    const double y = markHeight(type, tick.defaultYPosition, rect.size.height);
    const CGColorRef color = highlighted ? tick.highlightedColor : tick.color;
    painter.fill(CGRectMake(columns.ticksFrom, y, rect.size.width - columns.ticksFrom, 1),
                 NSColor::colorWithCGColor(color));
    painter.text(tick.label, CGRectMake(0, y - 5, columns.numbersTo, 11), numbers,
                 {.size = 7, .alignment = TextAlignment::kRight});
  }
}

void defineMAScaleNode() {
  ClassDefinition<MAScaleTick>("MAScaleTick", "NSObject")
      .classMethod<"scaleTickWithType:color:highlightedColor:defaultYPosition:label:", newTick>()
      .classMethod<"scaleInfinityTickWithType:color:highlightedColor:defaultYPosition:label:", infinityTick>()
      .getter<"type", &MAScaleTick::type>()
      .method<"color", &MAScaleTick::plain>()
      .method<"setColor:", &MAScaleTick::setColor>()
      .method<"highlightedColor", &MAScaleTick::highlighted>()
      .method<"setHighlightedColor:", &MAScaleTick::setHighlightedColor>()
      .getter<"defaultYPosition", &MAScaleTick::defaultYPosition>()
      .getter<"label", &MAScaleTick::label>()
      .registered();
  ClassDefinition<MAScaleNode>("MAScaleNode", "MANode")
      .method<"init", &MAScaleNode::init>()
      .getter<"type", &MAScaleNode::type>()
      .method<"setType:", &MAScaleNode::setType>()
      .getter<"largeScaleTicks", &MAScaleNode::largeScaleTicks>()
      .method<"labelColor", &MAScaleNode::labelColor>()
      .method<"highlightedLabelColor", &MAScaleNode::highlightedLabelColor>()
      .method<"drawRect:inContext:", &MAScaleNode::drawRect>()
      .registered();
}

}  // namespace host
