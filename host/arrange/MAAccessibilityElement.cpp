#include "host/arrange/MAAccessibilityElement.h"

namespace host {

using namespace cocoa;

namespace {

NSObject roleOf(MAAccessibilityElement& element) { return element.role; }
NSObject descriptionOf(MAAccessibilityElement& element) { return element.accessibilityDescription(); }
NSObject childrenOf(MAAccessibilityElement& element) { return element.accessibilityChildren(); }
NSObject selectionOf(MAAccessibilityElement& element) { return NSNumber::numberWithBool(element.selected); }
NSObject sizeOf(MAAccessibilityElement& element) { return NSValue::valueWithSize(element.frame.size); }
NSObject positionOf(MAAccessibilityElement& element) {
  return element.view == nullptr ? NSObject() : NSValue::valueWithPoint(element.accessibilityFrame().origin);
}

struct Attribute {
  std::string_view name;
  NSObject (*value)(MAAccessibilityElement& element);
};
constexpr Attribute kAttributes[] = {
    {"AXRole", roleOf}, {"AXDescription", descriptionOf}, {"AXChildren", childrenOf}, {"AXSelected", selectionOf},
    {"AXSize", sizeOf}, {"AXPosition", positionOf},
};

}  // namespace

NSString MAAccessibilityElement::accessibilityDescription() {
  if (description_.get().length() == 0 && makeDescription) description_ = makeDescription();
  return description_;
}

NSArray MAAccessibilityElement::accessibilityChildren() {
  if (!children_) children_ = makeChildren ? makeChildren() : Ref<NSArray>(NSArray::array());
  return children_;
}

NSObject MAAccessibilityElement::attributeValue(NSString name) {
  const std::string wanted = toStdString(name);
  for (const Attribute& attribute : kAttributes) {
    if (attribute.name == wanted) return attribute.value(*this);
  }
  return {};
}

CGRect MAAccessibilityElement::accessibilityFrame() {
  const NSView inside(view);
  return inside.window().convertRectToScreen(inside.convertRectToView(frame, NSView()));
}

void MAAccessibilityElement::detach() {
  view = nullptr;
  makeDescription = nullptr;
  makeChildren = nullptr;
  if (children_) detachElements(children_);
}

Ref<NSObject> makeAccessibilityElement(NSView view, NSString role, CGRect frame) {
  const id made = send<id>(asObject(DefinedClass<MAAccessibilityElement>::cls), selector<"new">());
  auto& element = stateOf<MAAccessibilityElement>(made);
  element.view = view.object;
  element.role = role;
  element.frame = frame;
  return Ref<NSObject>::adopt(NSObject(made));
}

void detachElements(NSArray elements) {
  for (const NSObject each : items(elements)) stateOf<MAAccessibilityElement>(each).detach();
}

void defineMAAccessibilityElement() {
  ClassDefinition<MAAccessibilityElement>("MAAccessibilityElement", "NSObject")
      .getter<"accessibilityRole", &MAAccessibilityElement::role>()
      .getter<"isSelected", &MAAccessibilityElement::selected>()
      .method<"accessibilityDescription", &MAAccessibilityElement::accessibilityDescription>()
      .method<"accessibilityChildren", &MAAccessibilityElement::accessibilityChildren>()
      .method<"accessibilityFrame", &MAAccessibilityElement::accessibilityFrame>()
      .method<"accessibilityAttributeValue:", &MAAccessibilityElement::attributeValue>()
      .registered();
}

}  // namespace host
