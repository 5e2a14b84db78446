#pragma once
// The class `VLRStripBevel`: a bevel string as an object.

#include "cocoa/ClassDefinition.h"
#include "plugin/language/BevelString.h"

namespace velura {

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
