// CGColor, CGColorSpace and CGPattern.

#include <bit>

#include "standin/color/Color.h"
#include "standin/color/Registration.h"
#include "standin/pixels/Image.h"

using namespace cocoa;

namespace standin {

ColorValue converted(const ColorValue& value, ColorSpace space) {
  if (value.space == space) return value;
  const Rgba from = value.rgba();
  if (isRGB(space)) return {space, {from.red, from.green, from.blue, from.alpha}};
  // The weights with which the eye adds red, green and blue to brightness.
  const double gray = isGray(value.space) ? from.red : 0.2126 * from.red + 0.7152 * from.green + 0.0722 * from.blue;
  return {space, {gray, from.alpha}};
}

CGColorSpaceRef sharedColorSpace(ColorSpace space) {
  static std::array<id, static_cast<std::size_t>(ColorSpace::kPattern) + 1> shared{};
  id& slot = shared.at(static_cast<std::size_t>(space));
  if (slot == nullptr) {
    slot = newObject<ColorSpaceState>();
    stateOf<ColorSpaceState>(slot).space = space;
  }
  return bridged<CGColorSpaceRef>(NSObject(slot));
}

namespace {

/// What an image shows at one pixel a point; null for an image without pixels. Images draw with colours and lie above
/// them, so the image is asked as anybody would ask it.
std::shared_ptr<const Surface> shownBy(NSImage image) {
  const AutoreleasePool pool;
  const CGImageRef shown = image.CGImageForProposedRect(nullptr, {}, {});
  return shown == nullptr ? nullptr : pixelsOf(shown);
}

}  // namespace

const Tile* PatternState::tile(PixelOrder order) {
  Taken& taken = taken_.at(static_cast<std::size_t>(order));
  if (!taken.done) {
    taken.done = true;
    const auto pixels = shownBy(image);
    auto ordered = pixels == nullptr ? nullptr : pixels->inOrder(order, pixels);
    if (ordered != nullptr) taken.tile = std::make_unique<Tile>(std::move(ordered));
  }
  return taken.tile.get();
}

BOOL ColorState::isEqual(NSObject other) {
  const auto* color = stateIfKind<ColorState>(other);
  return static_cast<BOOL>(
      color != nullptr && color->value == value &&
      (pattern.get() == color->pattern.get() || (pattern && color->pattern &&
                                                 stateBehind<PatternState>(pattern.get()).image.get() ==
                                                     stateBehind<PatternState>(color->pattern.get()).image.get())));
}

NSUInteger ColorState::hash() {
  NSUInteger mixed = static_cast<NSUInteger>(value.space);
  for (const double component : value.components) mixed = mixed * 1000003U ^ std::bit_cast<std::uint64_t>(component);
  return mixed;
}

CGColorRef makeColor(const ColorValue& value) {
  const id color = newObject<ColorState>();
  stateOf<ColorState>(color).value = value;
  return bridged<CGColorRef>(NSObject(color));
}

CGColorRef makePatternColor(NSImage image, double alpha) {
  const id pattern = newObject<PatternState>();
  stateOf<PatternState>(pattern).image = image;
  stateOf<PatternState>(pattern).size = image.size();
  const CGColorRef color = makeColor({ColorSpace::kPattern, {alpha}});
  colorState(color).pattern = CFRef<CGPatternRef>::adopt(bridged<CGPatternRef>(NSObject(pattern)));
  return color;
}

Paint paintOf(CGColorRef color) {
  const ColorState& state = colorState(color);
  return {state.value.rgba(), state.pattern};
}

void registerCoreGraphicsColors() {
  ClassDefinition<ColorSpaceState>("CGColorSpace", "NSObject").registered();
  ClassDefinition<PatternState>("CGPattern", "NSObject").registered();
  ClassDefinition<ColorState>("CGColor", "NSObject")
      .method<"isEqual:", &ColorState::isEqual>()
      .method<"hash", &ColorState::hash>()
      .registered();
}

}  // namespace standin

using namespace standin;

namespace {

CGColorSpaceRef retained(ColorSpace space) {
  const CGColorSpaceRef shared = sharedColorSpace(space);
  CFRetain(shared);
  return shared;
}

}  // namespace

extern "C" {

CGColorSpaceRef CGColorSpaceCreateDeviceRGB() { return retained(ColorSpace::kDeviceRGB); }
CGColorSpaceRef CGColorSpaceCreateDeviceGray() { return retained(ColorSpace::kDeviceWhite); }

CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name) {
  struct Named {
    CFStringRef name;
    ColorSpace space;
  };
  const Named known[] = {{kCGColorSpaceSRGB, ColorSpace::kSRGB},
                         {kCGColorSpaceGenericRGB, ColorSpace::kCalibratedRGB},
                         {kCGColorSpaceGenericGrayGamma2_2, ColorSpace::kGenericGray}};
  for (const Named& entry : known) {
    if (name != nullptr && bridged(name).isEqual(bridged(entry.name))) return retained(entry.space);
  }
  return nullptr;
}

size_t CGColorSpaceGetNumberOfComponents(CGColorSpaceRef space) {
  if (space == nullptr) return 0;
  return isRGB(stateBehind<ColorSpaceState>(space).space) ? 3 : 1;
}

CGColorSpaceRef CGColorSpaceRetain(CGColorSpaceRef space) {
  CFRetain(space);
  return space;
}
void CGColorSpaceRelease(CGColorSpaceRef space) { CFRelease(space); }

CGColorRef CGColorCreate(CGColorSpaceRef space, const CGFloat* components) {
  if (space == nullptr || components == nullptr) return nullptr;
  ColorValue value{stateBehind<ColorSpaceState>(space).space, {}};
  if (value.space == ColorSpace::kPattern) return nullptr;
  std::copy_n(components, value.count(), value.components.begin());
  return makeColor(value);
}

CGColorRef CGColorCreateGenericRGB(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return makeColor({ColorSpace::kCalibratedRGB, {red, green, blue, alpha}});
}
CGColorRef CGColorCreateGenericGray(CGFloat gray, CGFloat alpha) {
  return makeColor({ColorSpace::kGenericGray, {gray, alpha}});
}
CGColorRef CGColorCreateSRGB(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return makeColor({ColorSpace::kSRGB, {red, green, blue, alpha}});
}

CGColorRef CGColorCreateCopyWithAlpha(CGColorRef color, CGFloat alpha) {
  if (color == nullptr) return nullptr;
  ColorValue value = colorState(color).value;
  value.components[value.count() - 1] = alpha;
  const CGColorRef copy = makeColor(value);
  colorState(copy).pattern = colorState(color).pattern;
  return copy;
}

CGColorRef CGColorRetain(CGColorRef color) {
  CFRetain(color);
  return color;
}
void CGColorRelease(CGColorRef color) { CFRelease(color); }

bool CGColorEqualToColor(CGColorRef a, CGColorRef b) {
  return a == b || (a != nullptr && b != nullptr && colorState(a).isEqual(bridged(b)) != 0);
}

size_t CGColorGetNumberOfComponents(CGColorRef color) { return color == nullptr ? 0 : colorState(color).value.count(); }
const CGFloat* CGColorGetComponents(CGColorRef color) {
  return color == nullptr ? nullptr : colorState(color).value.components.data();
}
CGFloat CGColorGetAlpha(CGColorRef color) { return color == nullptr ? 0 : colorState(color).value.alpha(); }
CGColorSpaceRef CGColorGetColorSpace(CGColorRef color) {
  return color == nullptr ? nullptr : sharedColorSpace(colorState(color).value.space);
}
CGPatternRef CGColorGetPattern(CGColorRef color) {
  return color == nullptr ? nullptr : colorState(color).pattern.get();
}
}
