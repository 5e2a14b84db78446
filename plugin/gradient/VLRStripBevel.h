#pragma once
// Bevel strings and the bevels that they describe.

#include <optional>
#include <string_view>

#include "cocoa/ClassDefinition.h"

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

/// The class `VLRStripBevel`. Made by `bevelFromString:` alone and never changed afterwards.
struct VLRStripBevel : cocoa::ObjectState, BevelData {
  /// A new bevel, autoreleased, or nil for anything that is no bevel string.
  static NSObject bevelFromString(NSObject value);

  [[nodiscard]] NSInteger styleForHighlighted(BOOL highlighted) const {
    return highlighted != 0 ? selectedStyle : style;
  }
};

/// Registers the class.
void defineVLRStripBevel();

}  // namespace velura
