#pragma once

#include "cocoa/AppKit.h"

namespace velura {

/// Whether the host shows colour bars in the track headers of an arrange view. False when it cannot tell.
bool isArrangeColorBarVisible(NSObject arrangeView);

/// Tells the user, once the main queue comes to it, how to switch the colour bars on; not if the user has
/// asked not to be told again.
void showArrangeUseTrackColorAlert();

/// Adds the messages of the warning to the class `Utility`, and has the theme warn of documents that are opened.
void attachUtilityTrackColorWarning();

}  // namespace velura
