#pragma once
// The theme settings file that the companion application writes, and the reference theme that it carries.

#include "cocoa/Foundation.h"

namespace velura {

/// The theme settings without the colours that the host shows anyway: a new dictionary at each call, nil
/// when there is no settings file or it holds no dictionary.
NSMutableDictionary loadThemeSettings();

/// The reference theme; nil when it cannot be read.
cocoa::Ref<NSDictionary> readReferenceTheme();

/// Removes the strings that equal the reference theme's, save for the kept keys. Removes nothing when the
/// reference theme cannot be read.
void removeUnchangedColors(NSMutableDictionary theme);

}  // namespace velura
