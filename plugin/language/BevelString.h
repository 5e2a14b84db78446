#pragma once
// The grammar of bevel strings.

#include <optional>
#include <string_view>

#include "cocoa/Geometry.h"

namespace velura {

enum class BevelStyle : NSInteger { kNone = 0, kRaised = 1, kSunk = 2 };

struct BevelData {
  NSInteger style = 0;          // codes of BevelStyle
  NSInteger selectedStyle = 0;  // the same, for a selected strip
  double width = 1;             // 1 to 6
  double strength = 0;          // opacity in percent, above 0
};

/// The bevel that a string such as "Bevel:{R,2,30,D}" describes; nothing when the string is malformed or
/// the bevel would have no strength.
std::optional<BevelData> parseBevel(std::string_view text);

}  // namespace velura
