#include "plugin/hostapi/Accessibility.h"

#include <cmath>
#include <string_view>

namespace velura {

using namespace cocoa;

namespace {

/// The attribute as a value that holds a structure of the given name, such as "Point".
NSValue structure(NSObject element, NSString attribute, std::string_view name) {
  const auto value = as<NSValue>(accessibilityAttribute(element, attribute));
  const char* encoding = value ? value.objCType() : nullptr;
  if (encoding == nullptr || *encoding != '{') return {};
  const std::string_view text(encoding);
  const std::string_view structName = text.substr(0, text.find('='));
  return structName.ends_with(name) ? value : NSValue();
}

}  // namespace

NSArray accessibilityChildrenOf(NSObject element) {
  if (respondsTo<"accessibilityChildren">(element)) {
    return as<NSArray>(call<"accessibilityChildren", NSObject>(element));
  }
  return as<NSArray>(accessibilityAttribute(element, literal<"AXChildren">()));
}

NSObject accessibilityAttribute(NSObject element, NSString attribute) {
  return respondsTo<"accessibilityAttributeValue:">(element)
             ? call<"accessibilityAttributeValue:", NSObject>(element, attribute)
             : NSObject();
}

NSString accessibilityRole(NSObject element) {
  if (!respondsTo<"accessibilityRole">(element)) return {};
  return as<NSString>(call<"accessibilityRole", NSObject>(element));
}

NSString accessibilityText(NSObject element, NSString attribute) {
  return as<NSString>(accessibilityAttribute(element, attribute));
}

std::optional<CGSize> accessibilitySize(NSObject element) {
  const NSValue value = structure(element, literal<"AXSize">(), "Size");
  return value ? std::optional(value.sizeValue()) : std::nullopt;
}

std::optional<CGRect> accessibilityFrame(NSObject element) {
  const NSValue position = structure(element, literal<"AXPosition">(), "Point");
  const auto size = position ? accessibilitySize(element) : std::nullopt;
  if (!size || !(size->width > 0) || !(size->height > 0)) return std::nullopt;
  const CGRect frame{position.pointValue(), *size};
  const bool finite = std::isfinite(frame.minX()) && std::isfinite(frame.minY()) && std::isfinite(frame.maxX()) &&
                      std::isfinite(frame.maxY());
  return finite ? std::optional(frame) : std::nullopt;
}

}  // namespace velura
