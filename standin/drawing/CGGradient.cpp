#include "standin/color/Color.h"
#include "standin/drawing/Gradient.h"
#include "standin/drawing/Registration.h"

using namespace cocoa;

namespace standin {

void registerCoreGraphicsGradients() { ClassDefinition<GradientState>("CGGradient", "NSObject").registered(); }

namespace {

double locationOf(const CGFloat* locations, size_t index, size_t count) {
  if (locations != nullptr) return locations[index];
  return count < 2 ? 0 : static_cast<double>(index) / static_cast<double>(count - 1);
}

CGGradientRef makeGradient(GradientStops stops) {
  stops = normalized(std::move(stops));
  if (stops.empty()) return nullptr;
  const id gradient = newObject<GradientState>();
  stateOf<GradientState>(gradient).stops = std::move(stops);
  return bridged<CGGradientRef>(NSObject(gradient));
}

}  // namespace

}  // namespace standin

using namespace standin;

extern "C" {

CGGradientRef CGGradientCreateWithColors(CGColorSpaceRef, CFArrayRef colors, const CGFloat* locations) {
  const auto array = cast<NSArray>(bridged(colors));
  const size_t count = array.count();
  GradientStops stops;
  for (size_t i = 0; i < count; ++i) {
    const auto* color = stateIfKind<ColorState>(array.objectAtIndex(i));
    if (color == nullptr || color->pattern) return nullptr;
    stops.push_back({locationOf(locations, i, count), color->value.rgba()});
  }
  return makeGradient(std::move(stops));
}

CGGradientRef CGGradientCreateWithColorComponents(CGColorSpaceRef space, const CGFloat* components,
                                                  const CGFloat* locations, size_t count) {
  if (space == nullptr || components == nullptr) return nullptr;
  ColorValue value{stateBehind<ColorSpaceState>(space).space, {}};
  GradientStops stops;
  for (size_t i = 0; i < count; ++i) {
    std::copy_n(components + i * value.count(), value.count(), value.components.begin());
    stops.push_back({locationOf(locations, i, count), value.rgba()});
  }
  return makeGradient(std::move(stops));
}

CGGradientRef CGGradientRetain(CGGradientRef gradient) {
  CFRetain(gradient);
  return gradient;
}
void CGGradientRelease(CGGradientRef gradient) { CFRelease(gradient); }
}
