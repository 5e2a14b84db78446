#include "plugin/theme/ThemeValues.h"

#include <cmath>
#include <limits>

#include "cocoa/Call.h"

namespace velura {

using namespace cocoa;

namespace {

bool holdsFraction(NSObject number) {
  if (!respondsTo<"objCType">(number)) return false;
  const char* type = send<const char*>(number.object, selector<"objCType">());
  return type != nullptr && (*type == 'd' || *type == 'f');
}

std::int64_t nearestInteger(double value) {
  using Limits = std::numeric_limits<std::int64_t>;
  constexpr double kTwoTo63 = 9223372036854775808.0;
  if (std::isnan(value)) return 0;
  if (value >= kTwoTo63) return Limits::max();
  return value < -kTwoTo63 ? Limits::min() : static_cast<std::int64_t>(value);
}

}  // namespace

NSObject ThemeValues::object(ThemeKey key) const { return theme_.objectForKey(string(rowOf(key).name)); }

std::optional<bool> ThemeValues::flag(ThemeKey key) const {
  const NSObject value = object(key);
  if (!respondsTo<"boolValue">(value)) return std::nullopt;
  return cast<NSNumber>(value).boolValue();
}

std::optional<std::int64_t> ThemeValues::number(ThemeKey key) const {
  const NSObject value = object(key);
  if (!respondsTo<"integerValue">(value)) return std::nullopt;
  const auto number = cast<NSNumber>(value);
  return holdsFraction(value) ? nearestInteger(number.doubleValue()) : number.integerValue();
}

}  // namespace velura
