#pragma once

#include "cocoa/AppKit.h"

namespace velura {

/// Gives a menu of the library its arrow in the host's menu colour and its title in the theme's.
void colorLibraryMenu(NSObject popUpButton);

}  // namespace velura
