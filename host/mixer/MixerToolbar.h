#pragma once

#include "cocoa/AppKit.h"
#include "host/song/Song.h"

namespace host {

inline constexpr double kMixerToolbarHeight = 34;

/// The bar above the mixer: menus at the left, the view modes in the middle, the menu of sends on faders at the right.
cocoa::Ref<NSView> newMixerToolbar(const Song& song, CGRect frame);

}  // namespace host
