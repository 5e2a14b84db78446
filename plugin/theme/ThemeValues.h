#pragma once
// Values of a theme dictionary, read by checked kind: a value of another kind counts as absent.

#include <cstdint>
#include <optional>

#include "cocoa/Foundation.h"
#include "plugin/language/ThemeKeys.h"

namespace velura {

class ThemeValues {
 public:
  explicit ThemeValues(NSDictionary theme) : theme_(theme) {}

  [[nodiscard]] NSObject object(ThemeKey key) const;
  /// What `boolValue` says of a number or a string.
  [[nodiscard]] std::optional<bool> flag(ThemeKey key) const;
  /// What `integerValue` says of a number or a string. A fraction beyond the range of an integer gives the
  /// nearest one, and no number 0.
  [[nodiscard]] std::optional<std::int64_t> number(ThemeKey key) const;

 private:
  NSDictionary theme_;
};

}  // namespace velura
