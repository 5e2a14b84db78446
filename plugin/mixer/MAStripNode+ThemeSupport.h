#pragma once

#include "plugin/hostapi/MANode.h"

namespace velura {

/// What the host itself would paint behind a strip, whatever the theme says.
NSColor hostBackgroundColor(MAStripNode strip);
NSColor hostHighlightedBackgroundColor(MAStripNode strip);

/// The track colour to show on a strip, or nil.
NSColor stripColor(MAStripNode strip);

}  // namespace velura
