#include "host/mixer/MAStripNode.h"

#include <algorithm>
#include <cstdio>

#include "host/mixer/MATextNode.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kSlotRadius = 4;
constexpr double kBorderWidth = 1;

CGRect unite(CGRect a, CGRect b) {
  if (a.isEmpty()) return b;
  const double x = std::min(a.minX(), b.minX());
  const double y = std::min(a.minY(), b.minY());
  return CGRectMake(x, y, std::max(a.maxX(), b.maxX()) - x, std::max(a.maxY(), b.maxY()) - y);
}

NSMutableDictionary titleImages() {
  static const Ref<NSMutableDictionary> images = make<NSMutableDictionary>();
  return images;
}

/// Fed by the few titles and sizes of empty slots: bounded without a rule.
NSString titleKey(NSString title, CGSize size, double scale) {
  char text[64];
  std::snprintf(text, sizeof text, "|%gx%g|%g", size.width, size.height, scale);
  return string(toStdString(title) + text);
}

}  // namespace

id MAStripNode::init() {
  superSend<MAStripNode, id>(self, selector<"init">());
  emptyLayer = CALayer::layer();
  borderLayer = CALayer::layer();
  const Ref<CALayer>& layer = stateOf<MANode>(self).layer;
  layer->addSublayer(emptyLayer);
  layer->addSublayer(borderLayer);
  borderLayer->setZPosition(1);
  return self;
}

void MAStripNode::setEmptySlots(std::vector<EmptySlot> slots) {
  emptySlots = std::move(slots);
  emptyArea = {};
  for (const EmptySlot& slot : emptySlots) emptyArea = unite(emptyArea, slot.rect.insetBy(-1, -1));
  stateOf<MANode>(self).needsUpdateContents = true;
}

NSColor MAStripNode::backgroundColor() { return paletteColor(stripLook.background); }
NSColor MAStripNode::highlightedBackgroundColor() { return paletteColor(stripLook.highlight); }
NSColor MAStripNode::borderColor() { return paletteColor(Palette::kStripBorder); }

void MAStripNode::setHighlightState(NSInteger state) {
  superSend<MAStripNode, void>(self, selector<"setHighlightState:">(), state);
  updateTexts();
}

/// A text that shows no track colour of its own is as bright as the strip behind it.
void MAStripNode::updateTexts() {
  const MANode& node = stateOf<MANode>(self);
  for (NSObject child : items(node.childrenArray)) {
    const MATextNode* text = stateIfKind<MATextNode>(child);
    if (text == nullptr || !text->backgroundColor) continue;
    const bool plain = text->backgroundColor.get() == paletteColor(stripLook.background) ||
                       text->backgroundColor.get() == paletteColor(stripLook.highlight);
    if (plain) {
      call<"setBackgroundColor:">(child,
                                  paletteColor(node.highlightState != 0 ? stripLook.highlight : stripLook.background));
    }
  }
}

void MAStripNode::updatePresentationObject(NSObject presentation, NSObject view) {
  const MANode& node = stateOf<MANode>(self);
  const double scale = call<"backingScale", double>(view);
  const bool stale = node.needsUpdateContents || emptyScale != scale;
  superSend<MAStripNode, void>(self, selector<"updatePresentationObject:view:">(), presentation, view);
  const NSColor background = node.highlightState != 0 ? call<"highlightedBackgroundColor", NSColor>(self)
                                                      : call<"backgroundColor", NSColor>(self);
  cast<CALayer>(presentation).setBackgroundColor(background.CGColor());
  borderLayer->setBackgroundColor(call<"borderColor", NSColor>(self).CGColor());
  borderLayer->setFrame(CGRectMake(node.frame.size.width - kBorderWidth, 0, kBorderWidth, node.frame.size.height));
  if (stale) updateEmptySlots(scale);
}

void MAStripNode::updateEmptySlots(double scale) {
  emptyScale = scale;
  emptyLayer->setFrame(emptyArea);
  const auto image = drawnImage(emptyArea.size, scale, [&](CGContextRef context) {
    CGContextTranslateCTM(context, -emptyArea.minX(), -emptyArea.minY());
    for (const EmptySlot& slot : emptySlots) drawEmptySlot(slot, context, scale);
  });
  emptyLayer->setContentsScale(scale);
  emptyLayer->setContents(bridged(image.get()));
}

void MAStripNode::drawEmptySlot(const EmptySlot& slot, CGContextRef context, double scale) {
  if (slot.element == EmptyElement::kKnob) {
    call<"drawKnobFrame:inContext:">(self, slot.rect, context);
    return;
  }
  call<"drawSlotFrame:inContext:">(self, slot.rect, context);
  if (!slot.title) return;
  const auto image = call<"cachedElementTitleImageForLocalizedTitle:imageSize:scale:", CGImageRef>(
      self, slot.title.get(), slot.rect.size, scale);
  if (image != nullptr) CGContextDrawImage(context, slot.rect, image);
}

void MAStripNode::drawFrame(CGPathRef path, CGContextRef context) {
  const bool highlighted = stateOf<MANode>(self).highlightState != 0;
  CGContextAddPath(context, path);
  CGContextSetFillColorWithColor(
      context, paletteColor(highlighted ? Palette::kEmptySlotSelected : Palette::kEmptySlot).CGColor());
  CGContextFillPath(context);
  CGContextAddPath(context, path);
  CGContextSetStrokeColorWithColor(context, NSColor::blackColor().colorWithAlphaComponent(0.05).CGColor());
  CGContextSetLineWidth(context, 1);
  CGContextStrokePath(context);
}

void MAStripNode::drawSlotFrame(CGRect rect, CGContextRef context) {
  const auto path = CFRef<CGPathRef>::adopt(CGPathCreateWithRoundedRect(rect, kSlotRadius, kSlotRadius, nullptr));
  drawFrame(path, context);
}

void MAStripNode::drawKnobFrame(CGRect rect, CGContextRef context) {
  const auto path = CFRef<CGPathRef>::adopt(CGPathCreateWithEllipseInRect(rect, nullptr));
  drawFrame(path, context);
}

CGImageRef MAStripNode::cachedElementTitleImage(NSString title, CGSize size, double scale) {
  const NSString key = titleKey(title, size, scale);
  if (const NSObject cached = titleImages().objectForKey(key)) return bridged<CGImageRef>(cached);
  const auto image = drawnImage(size, scale, [&](CGContextRef context) {
    Painter(context).text(title, {{0, 0}, size}, paletteColor(Palette::kEmptySlotTitle), {.size = 9.5});
  });
  if (image) titleImages().setObject(bridged(image.get()), key);
  return bridged<CGImageRef>(titleImages().objectForKey(key));
}

void defineMAStripNode() {
  ClassDefinition<MAStripNode>("MAStripNode", "MANode")
      .method<"init", &MAStripNode::init>()
      .method<"backgroundColor", &MAStripNode::backgroundColor>()
      .method<"highlightedBackgroundColor", &MAStripNode::highlightedBackgroundColor>()
      .method<"borderColor", &MAStripNode::borderColor>()
      .method<"setHighlightState:", &MAStripNode::setHighlightState>()
      .method<"updatePresentationObject:view:", &MAStripNode::updatePresentationObject>()
      .method<"drawSlotFrame:inContext:", &MAStripNode::drawSlotFrame>()
      .method<"drawKnobFrame:inContext:", &MAStripNode::drawKnobFrame>()
      .method<"cachedElementTitleImageForLocalizedTitle:imageSize:scale:", &MAStripNode::cachedElementTitleImage>()
      .registered();
}

}  // namespace host
