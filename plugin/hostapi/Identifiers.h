#pragma once
// Identifiers that the plug-in shares with the companion application and the host.

#include "cocoa/Selector.h"

namespace velura {

/// The companion application: its bundle, which carries the reference theme and the theme images, and
/// the user-defaults suite in which it records the selected theme.
inline constexpr cocoa::FixedString kCompanionIdentifier{"com.velura.companion"};
inline constexpr cocoa::FixedString kCompanionSuite{"com.velura.companion"};

/// The bundle `MAResources`, in which the host keeps its colours and images. The simulated host's; a
/// build for another host names that host's.
inline constexpr cocoa::FixedString kHostResourcesIdentifier{"com.velura.simulated-host.MAResources"};

}  // namespace velura
