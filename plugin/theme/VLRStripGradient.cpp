#include "plugin/theme/VLRStripGradient.h"

#include <algorithm>
#include <utility>

#include "plugin/text/StringBytes.h"

namespace velura {

using namespace cocoa;

namespace {

/// An array of what `make` makes of each value; null when it makes nothing of one.
template <class Values, class Make>
Ref<NSArray> arrayOf(const Values& values, Make make) {
  const auto array = cocoa::make<NSMutableArray>();
  for (const auto& value : values) {
    const NSObject made = make(value);
    if (!made) return {};
    array->addObject(made);
  }
  return NSArray(array.get().object);
}

NSColor colorOf(const StopColor& stop) {
  constexpr double kComponentScale = 255;
  constexpr double kAlphaScale = 100;
  return NSColor::colorWithSRGBRed(
      static_cast<double>(stop.red) / kComponentScale, static_cast<double>(stop.green) / kComponentScale,
      static_cast<double>(stop.blue) / kComponentScale, static_cast<double>(stop.alpha) / kAlphaScale);
}

NSObject anchorObject(const std::optional<StripAnchor>& anchor) {
  if (!anchor) return NSNull::null();
  return string(kStripAnchorNames[static_cast<std::size_t>(*anchor)]);
}

NSObject gradientFromStringMessage(Class /*self*/, NSObject value) {
  return VLRStripGradient::gradientFromString(value);
}

}  // namespace

NSObject VLRStripGradient::gradientFromString(NSObject value) {
  auto data = parseGradient(utf8Bytes(as<NSString>(value)));
  if (!data) return {};
  auto made = Ref<NSObject>::adopt(
      send<NSObject>(send<id>(DefinedClass<VLRStripGradient>::cls, selector<"alloc">()), selector<"init">()));
  return stateOf<VLRStripGradient>(made.get()).takeOver(std::move(*data)) ? autoreleased(std::move(made)) : NSObject();
}

bool VLRStripGradient::takeOver(GradientData data) {
  static_cast<GradientData&>(*this) = std::move(data);
  if (mode == GradientMode::kLinear) {
    stopColors = arrayOf(colors, colorOf);
    if (!stopColors) return false;
  } else {
    stopDeltas = arrayOf(deltas, NSNumber::numberWithLong);
  }
  stopLocations = arrayOf(locations, NSNumber::numberWithDouble);
  stopAnchors = arrayOf(anchors, anchorObject);
  return true;
}

NSArray VLRStripGradient::stopColorsForBase(NSColor base) const {
  if (mode == GradientMode::kLinear) return stopColors;
  if (!base) return {};
  return autoreleased(arrayOf(deltas, [&](std::int64_t delta) { return colorForBase(base, delta); }));
}

NSColor VLRStripGradient::colorForBase(NSColor base, NSInteger delta) const {
  constexpr double kPercent = 100;
  const NSColor components = base.colorUsingColorSpace(NSColorSpace::sRGBColorSpace());
  if (!components) return base;
  double hue = 0;
  double saturation = 0;
  double brightness = 0;
  double alpha = 1;
  components.getHue(&hue, &saturation, &brightness, &alpha);
  brightness = std::clamp(brightness + static_cast<double>(delta) / kPercent, 0.0, 1.0);
  return NSColor::colorWithHue(hue, saturation, brightness, alpha);
}

void defineVLRStripGradient() {
  if (DefinedClass<VLRStripGradient>::cls != nullptr) return;
  ClassDefinition<VLRStripGradient>("VLRStripGradient", "NSObject")
      .classMethod<"gradientFromString:", gradientFromStringMessage>()
      .method<"stopColorsForBase:", &VLRStripGradient::stopColorsForBase>()
      .method<"colorForBase:delta:", &VLRStripGradient::colorForBase>()
      .getter<"mode", &VLRStripGradient::mode>()
      .getter<"stopColors", &VLRStripGradient::stopColors>()
      .getter<"stopDeltas", &VLRStripGradient::stopDeltas>()
      .getter<"stopLocations", &VLRStripGradient::stopLocations>()
      .getter<"stopAnchors", &VLRStripGradient::stopAnchors>()
      .getter<"hasAnchors", &VLRStripGradient::hasAnchors>()
      .getter<"angleDegrees", &VLRStripGradient::angleDegrees>()
      .getter<"smoothingPoints", &VLRStripGradient::smoothingPoints>()
      .registered();
}

}  // namespace velura
