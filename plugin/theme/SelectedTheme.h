#pragma once
// Which theme the user selected in the companion application.

#include "cocoa/Foundation.h"

namespace velura {

/// The name of the selected theme; "Default" when none was ever selected or the name is no string.
NSString VLRSelectedThemeName();

/// Whether a theme other than "Default" is selected: only then is the host themed at all.
bool VLRIsCustomThemeSelected();

}  // namespace velura
