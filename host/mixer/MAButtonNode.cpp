#include "host/mixer/MAButtonNode.h"

#include "host/drawing/Painter.h"
#include "host/drawing/ScreenImage.h"
#include "host/mixer/AssetMapping.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kRadius = 4;
constexpr double kSymbolSegment = 11;
constexpr double kArrowSegment = 8;
constexpr double kSymbolSize = 8;
constexpr NSInteger kLeftSymbol = 2;

constexpr std::string_view kInserts = "Buttons.AudioPlugIn";
constexpr std::string_view kEmpty = "Buttons.EmptyPlugIn";

struct Segments {
  std::string_view path;
  NSInteger count;
};
constexpr Segments kSegments[] = {{"Buttons.AudioPlugIn", 3}, {"Buttons.MIDIPlugIn", 3}, {"Buttons.InputSegment", 2}};

/// The colour of an automation button while its mode is on.
struct AutomationColor {
  std::string_view path;
  Palette color;
};
constexpr AutomationColor kAutomationColors[] = {{"Buttons.AutomationRead", Palette::kAutomationRead},
                                                 {"Buttons.AutomationTouch", Palette::kAutomationTouch},
                                                 {"Buttons.AutomationLatch", Palette::kAutomationLatch},
                                                 {"Buttons.AutomationWrite", Palette::kAutomationWrite}};

/// A circle with a bar through its open top: the power switch of a plug-in.
Ref<NSImage> powerSymbol(NSColor color) {
  return screenImage({kSymbolSize, kSymbolSize}, [&](CGContextRef context) {
    const Painter painter(context);
    constexpr double kMiddle = kSymbolSize / 2;
    painter.arc({kMiddle, kMiddle - 0.4}, 2.7, 50, -230, color, 1.1);
    painter.line({kMiddle, kMiddle + 0.1}, {kMiddle, kMiddle + 3.2}, color, 1.1);
  });
}

NSImage powerSymbol(bool on) {
  static const Ref<NSImage> symbols[] = {powerSymbol(paletteColor(Palette::kTitleOff)),
                                         powerSymbol(paletteColor(Palette::kTitleOn))};
  return symbols[on ? 1 : 0];
}

void drawSeparator(const Painter& painter, CGRect rect, double x) {
  painter.fill(CGRectMake(x, rect.minY() + 3, 1, rect.size.height - 6), faded(NSColor::blackColor(), 0.2));
}

/// Two small arrow heads: a menu opens here.
void drawMenuArrow(const Painter& painter, CGPoint middle, NSColor color) {
  CGContextRef context = painter.context();
  CGContextSetFillColorWithColor(context, color.CGColor());
  for (const double up : {1.0, -1.0}) {
    CGContextBeginPath(context);
    CGContextMoveToPoint(context, middle.x - 2, middle.y + up * 1.2);
    CGContextAddLineToPoint(context, middle.x + 2, middle.y + up * 1.2);
    CGContextAddLineToPoint(context, middle.x, middle.y + up * 3.8);
    CGContextClosePath(context);
    CGContextFillPath(context);
  }
}

}  // namespace

id MAButtonNode::init() {
  superSend<MAButtonNode, id>(self, selector<"init">());
  MANode& node = stateOf<MANode>(self);
  node.drawsContents = true;
  node.state = 1;
  foregroundColor = paletteColor(Palette::kTitleOn);
  return self;
}

void MAButtonNode::setAssetSetPath(NSString path) {
  superSend<MAButtonNode, void>(self, selector<"setAssetSetPath:">(), path);
  call<"setNeedsUpdateContents:">(self, BOOL(1));
}

void MAButtonNode::setRepresentedObject(NSObject object) {
  superSend<MAButtonNode, void>(self, selector<"setRepresentedObject:">(), object);
  call<"setNeedsUpdateContents:">(self, BOOL(1));
}

void MAButtonNode::setState(NSInteger state) {
  const bool changes = stateOf<MANode>(self).state != state;
  superSend<MAButtonNode, void>(self, selector<"setState:">(), state);
  if (changes) applyForeground();
}

void MAButtonNode::setHighlightState(NSInteger state) {
  const bool changes = stateOf<MANode>(self).highlightState != state;
  superSend<MAButtonNode, void>(self, selector<"setHighlightState:">(), state);
  if (changes) applyForeground();
}

void MAButtonNode::setMode(ButtonMode newMode) {
  if (mode == newMode) return;
  mode = newMode;
  applyForeground();
}

void MAButtonNode::setForegroundColor(NSColor color) {
  foregroundColor = color;
  call<"setNeedsUpdateContents:">(self, BOOL(1));
}

void MAButtonNode::applyForeground() { call<"setForegroundColor:">(self, ownColor()); }

NSColor MAButtonNode::ownColor() {
  const MANode& node = stateOf<MANode>(self);
  const std::string path = toStdString(node.assetSetPath);
  if (path == kEmpty) return paletteColor(Palette::kEmptySlotTitle);
  if (mode == ButtonMode::kLowLatency) return paletteColor(Palette::kTitleLowLatency);
  if (mode == ButtonMode::kDimmed) return paletteColor(Palette::kTitleDimmed);
  if (node.state == 0) return paletteColor(Palette::kTitleOff);
  for (const AutomationColor& row : kAutomationColors) {
    if (row.path == path) return paletteColor(row.color);
  }
  return paletteColor(Palette::kTitleOn);
}

NSInteger MAButtonNode::numberOfSegments() {
  const std::string path = toStdString(call<"assetSetPath", NSString>(self));
  for (const Segments& row : kSegments) {
    if (row.path == path) return row.count;
  }
  return 1;
}

NSObject MAButtonNode::attributedTitleForState(NSInteger /*state*/) {
  const MANode& node = stateOf<MANode>(self);
  if (node.name->isEqualToString(literal<"masteringAssistant">())) return node.title;
  const std::string path = toStdString(node.assetSetPath);
  const bool insert = path.starts_with(kInserts);
  const NSColor color = insert ? ownColor() : call<"foregroundColor", NSColor>(self);
  const bool narrow = call<"numberOfSegments", NSInteger>(self) > 1;
  const TextStyle style{.size = narrow ? 8.75 : 9.5, .weight = path == kEmpty ? 0 : NSFontWeightMedium};
  return autoreleased(
      NSAttributedString::withString(node.title ? node.title.get() : literal<"">(), lineAttributes(color, style)));
}

NSImage MAButtonNode::imageForState(NSInteger part) {
  const MANode& node = stateOf<MANode>(self);
  const bool plugIn = isPlugIn && part == kLeftSymbol;
  return plugIn ? powerSymbol(node.state != 0) : NSImage();
}

void MAButtonNode::drawBody(CGRect rect, CGContextRef context) {
  const MANode& node = stateOf<MANode>(self);
  const Painter painter(context);
  const std::string path = toStdString(call<"assetSetPath", NSString>(self));
  if (path == kEmpty) {
    painter.fillRounded(rect, kRadius,
                        paletteColor(node.highlightState != 0 ? Palette::kEmptySlotSelected : Palette::kEmptySlot));
    painter.strokeRounded(rect, kRadius, faded(NSColor::blackColor(), 0.05), 1);
    return;
  }
  const ButtonAsset& asset = buttonAsset(path);
  const ButtonBody& body = node.state != 0 ? asset.on : asset.off;
  painter.body(rect, kRadius, body.top, body.bottom, paletteColor(Palette::kButtonEdge));
}

void MAButtonNode::drawRect(CGRect rect, CGContextRef context) {
  drawBody(rect, context);
  const Painter painter(context);
  const NSInteger segments = call<"numberOfSegments", NSInteger>(self);
  CGRect room = rect.insetBy(segments == 1 ? 4 : 2, 0);
  const auto color = call<"foregroundColor", NSColor>(self);
  if (segments > 2) {
    const auto symbol = call<"imageForState:", NSImage>(self, kLeftSymbol);
    const CGSize size = symbol.size();
    if (symbol) {
      painter.image(symbol, CGRectMake(rect.minX() + 2 + (kSymbolSize - size.width) / 2, rect.midY() - size.height / 2,
                                       size.width, size.height));
    }
    drawSeparator(painter, rect, rect.minX() + kSymbolSegment);
    room = CGRectMake(rect.minX() + kSymbolSegment + 1, room.minY(), room.maxX() - rect.minX() - kSymbolSegment - 1,
                      room.size.height);
  }
  if (segments > 1) {
    drawSeparator(painter, rect, rect.maxX() - kArrowSegment);
    drawMenuArrow(painter, {rect.maxX() - kArrowSegment / 2, rect.midY()}, color);
    room.size.width = rect.maxX() - kArrowSegment - room.minX();
  }
  const auto title = call<"attributedTitleForState:", NSObject>(self, stateOf<MANode>(self).state);
  if (const auto styled = as<NSAttributedString>(title)) return painter.text(styled, room);
  painter.text(as<NSString>(title), room, color, {.size = 9.5, .weight = NSFontWeightMedium});
}

void defineMAButtonNode() {
  ClassDefinition<MAButtonNode>("MAButtonNode", "MANode")
      .method<"init", &MAButtonNode::init>()
      .method<"assetSetPath", &MAButtonNode::assetSetPath>()
      .method<"setAssetSetPath:", &MAButtonNode::setAssetSetPath>()
      .method<"representedObject", &MAButtonNode::representedObject>()
      .method<"setRepresentedObject:", &MAButtonNode::setRepresentedObject>()
      .method<"setState:", &MAButtonNode::setState>()
      .method<"setHighlightState:", &MAButtonNode::setHighlightState>()
      .getter<"foregroundColor", &MAButtonNode::foregroundColor>()
      .method<"setForegroundColor:", &MAButtonNode::setForegroundColor>()
      .method<"numberOfSegments", &MAButtonNode::numberOfSegments>()
      .method<"attributedTitleForState:", &MAButtonNode::attributedTitleForState>()
      .method<"imageForState:", &MAButtonNode::imageForState>()
      .method<"drawRect:inContext:", &MAButtonNode::drawRect>()
      .registered();
}

}  // namespace host
