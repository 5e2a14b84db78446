#pragma once
// The class `Utility`: helpers that host classes reach by message.

#include "cocoa/ClassDefinition.h"
#include "cocoa/QuartzCore.h"
#include "plugin/language/TrackTypes.h"

namespace velura {

/// The type of the strip that a node of the mixer belongs to; `kNone` outside of a strip. A code that the
/// host alone knows is passed on as it is.
TrackType trackTypeOf(NSObject node);

/// The first of a layer's own sublayers that has the name; nil when none has.
CALayer sublayerNamed(CALayer layer, NSString name);

struct Utility : cocoa::ObjectState {
  [[nodiscard]] NSMutableDictionary getColorCollection() const;
};

/// Registers the class.
void defineUtility();

}  // namespace velura
