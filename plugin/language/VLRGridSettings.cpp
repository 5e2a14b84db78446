#include "plugin/language/VLRGridSettings.h"

#include <algorithm>

#include "cocoa/Call.h"

namespace velura {
namespace {

using namespace cocoa;

/// Takes a value over into a field of the settings, as far as the value has one to give: strings and numbers
/// do, a list or data does not.
struct TakeOver {
  VLRGridSettings& settings;
  const GridKeyRow& row;
  NSObject value;

  void operator()(bool VLRGridSettings::*field) const {
    if (respondsTo<"boolValue">(value)) settings.*field = callBool<"boolValue">(value.object);
  }
  void operator()(double VLRGridSettings::*field) const {
    if (!respondsTo<"doubleValue">(value)) return;
    const auto number = call<"doubleValue", double>(value);
    settings.*field = row.outOfRange == OutOfRange::kStays ? number : limited(number);
  }
  void operator()(std::int32_t VLRGridSettings::*field) const {
    if (!respondsTo<"integerValue">(value)) return;
    const auto number = call<"integerValue", NSInteger>(value);
    const bool inRange = number >= 0 && number <= static_cast<NSInteger>(row.most);
    settings.*field = inRange ? static_cast<std::int32_t>(number) : 0;
  }

 private:
  /// 0 for what is no number.
  [[nodiscard]] double limited(double number) const { return number > 0 ? std::min(number, row.most) : 0; }
};

}  // namespace

VLRGridSettings gridSettingsFrom(NSDictionary stored) {
  VLRGridSettings settings;
  if (!stored) return settings;
  for (const GridKeyRow& row : kGridKeys) {
    const NSObject value = stored.objectForKey(string(row.key));
    if (value) std::visit(TakeOver{settings, row, value}, row.field);
  }
  return settings;
}

}  // namespace velura
