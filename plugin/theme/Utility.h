#pragma once
// The class `Utility`: helpers that host classes reach by message.

#include "cocoa/ClassDefinition.h"
#include "plugin/theme/TrackTypes.h"

namespace velura {

/// The type of the strip that a node of the mixer belongs to; `kNone` outside of a strip. A code that the
/// host alone knows is passed on as it is.
TrackType trackTypeOf(NSObject node);

struct Utility : cocoa::ObjectState {
  [[nodiscard]] NSMutableDictionary getColorCollection() const;
};

/// Registers the class.
void defineUtility();

}  // namespace velura
