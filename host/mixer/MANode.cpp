#include "host/mixer/MANode.h"

#include <algorithm>

namespace host {
namespace {

using namespace cocoa;

MANode& nodeOf(NSObject node) { return stateOf<MANode>(node); }

/// Sections of one kind share the string that names them.
NSString sharedName(const char* name) {
  static const Ref<NSMutableDictionary> names = make<NSMutableDictionary>();
  const NSString key = string(name);
  if (const NSObject shared = names->objectForKey(key)) return cast<NSString>(shared);
  names->setObject(key, key);
  return key;
}

void update(NSObject node, NSObject view) {
  call<"willUpdatePresentationObject">(node);
  call<"updatePresentationObject:view:">(node, static_cast<NSObject>(nodeOf(node).layer.get()), view);
}

/// Brings up to date what is marked below a node.
void presentChildren(NSObject node, NSObject view) {
  for (NSObject child : items(nodeOf(node).childrenArray)) {
    const MANode& state = nodeOf(child);
    if (state.needsDisplay || state.needsUpdateContents) update(child, view);
    presentChildren(child, view);
  }
}

}  // namespace

MANode::~MANode() { removeAllChildren(); }

id MANode::init() {
  superSend<MANode, id>(self, selector<"init">());
  childrenArray = make<NSMutableArray>();
  layer = CALayer::layer();
  return self;
}

void MANode::addChild(NSObject child) {
  nodeOf(child).parent = NSObject(self);
  childrenArray->addObject(child);
  layer->addSublayer(nodeOf(child).layer);
}

void MANode::removeAllChildren() {
  for (NSObject child : items(childrenArray)) {
    nodeOf(child).parent = NSObject();
    nodeOf(child).layer->removeFromSuperlayer();
  }
  childrenArray->removeAllObjects();
}

NSObject MANode::childNodeWithName(NSString wanted) {
  for (NSObject child : items(childrenArray)) {
    if (nodeOf(child).name->isEqualToString(wanted)) return child;
  }
  return {};
}

NSObject MANode::controller() { return parent ? call<"controller", NSObject>(parent) : ownController; }
NSObject MANode::view() { return parent ? call<"view", NSObject>(parent) : ownView; }

void MANode::setFrame(CGRect newFrame) {
  if (!(newFrame.size == frame.size)) needsUpdateContents = true;
  frame = newFrame;
  needsDisplay = true;
}

void MANode::setHighlightState(NSInteger newState) {
  if (highlightState != newState) {
    highlightState = newState;
    needsDisplay = needsUpdateContents = true;
  }
  for (NSObject child : items(childrenArray)) call<"setHighlightState:">(child, newState);
}

void MANode::setState(NSInteger newState) {
  if (state == newState) return;
  state = newState;
  needsDisplay = needsUpdateContents = true;
}

void MANode::setTitle(NSString newTitle) {
  if (title && title->isEqualToString(newTitle)) return;
  title = newTitle;
  needsDisplay = needsUpdateContents = true;
}

void MANode::setNeedsDisplay(BOOL needs) { needsDisplay = needs != 0; }
void MANode::setNeedsUpdateContents(BOOL needs) { needsUpdateContents = needs != 0; }
void MANode::invalidateCache() { needsUpdateContents = true; }
void MANode::willUpdatePresentationObject() {}

void MANode::updatePresentationObject(NSObject presentation, NSObject presentingView) {
  const auto target = cast<CALayer>(presentation);
  target.setFrame(frame);
  const double scale = call<"backingScale", double>(presentingView);
  if (drawsContents && (needsUpdateContents || contentsScale != scale)) {
    const auto image = drawnImage(frame.size, scale,
                                  [&](CGContextRef context) { call<"drawRect:inContext:">(self, bounds(), context); });
    target.setContentsScale(scale);
    target.setContents(bridged(image.get()));
    contentsScale = scale;
  }
  needsDisplay = needsUpdateContents = false;
}

void MANode::drawRect(CGRect /*rect*/, CGContextRef /*context*/) {}

Ref<NSObject> makeNode(const char* className, const char* name, CGRect frame) {
  const id object = call<"init", id>(call<"alloc", id>(classNamed(className)));
  stateOf<MANode>(object).name = sharedName(name);
  call<"setFrame:">(object, frame);
  return Ref<NSObject>::adopt(NSObject(object));
}

void presentTree(NSObject root, NSObject view) {
  update(root, view);
  for (NSObject strip : items(nodeOf(root).childrenArray)) {
    const AutoreleasePool pool;  // a strip's leftovers go with the strip
    update(strip, view);
    presentChildren(strip, view);
  }
}

void defineMANode() {
  ClassDefinition<MANode>("MANode", "NSObject")
      .method<"init", &MANode::init>()
      .method<"addChild:", &MANode::addChild>()
      .method<"removeAllChildren", &MANode::removeAllChildren>()
      .method<"childNodeWithName:", &MANode::childNodeWithName>()
      .method<"controller", &MANode::controller>()
      .method<"view", &MANode::view>()
      .method<"setFrame:", &MANode::setFrame>()
      .method<"setHighlightState:", &MANode::setHighlightState>()
      .method<"setState:", &MANode::setState>()
      .method<"setTitle:", &MANode::setTitle>()
      .method<"setNeedsDisplay:", &MANode::setNeedsDisplay>()
      .method<"setNeedsUpdateContents:", &MANode::setNeedsUpdateContents>()
      .method<"invalidateCache", &MANode::invalidateCache>()
      .method<"willUpdatePresentationObject", &MANode::willUpdatePresentationObject>()
      .method<"updatePresentationObject:view:", &MANode::updatePresentationObject>()
      .method<"drawRect:inContext:", &MANode::drawRect>()
      .getter<"name", &MANode::name>()
      .getter<"frame", &MANode::frame>()
      .getter<"parent", &MANode::parent>()
      .getter<"childrenArray", &MANode::childrenArray>()
      .getter<"presentationObject", &MANode::layer>()
      .getter<"highlightState", &MANode::highlightState>()
      .getter<"state", &MANode::state>()
      .getter<"title", &MANode::title>()
      .getter<"needsDisplay", &MANode::needsDisplay>()
      .getter<"needsUpdateContents", &MANode::needsUpdateContents>()
      .property<"assetSetPath", "setAssetSetPath:", &MANode::assetSetPath>()
      .property<"representedObject", "setRepresentedObject:", &MANode::representedObject>()
      .registered();
}

}  // namespace host
