#pragma once
// Small icons of lists and buttons.

#include "host/drawing/Painter.h"

namespace host {

enum class Icon {
  kNone,
  kFolder,
  kAudioFile,
  kMidiFile,
  kProject,
  kAudioLoop,
  kMidiLoop,
  kDrumLoop,
  kPack,
  kStar,
  kPage,
  kCount
};

inline constexpr double kIconSize = 16;

/// A picture of an icon; nil for none.
NSImage iconImage(Icon which);

/// A magnifying glass, about 11 points wide.
void drawMagnifier(const Painter& painter, CGPoint centre, NSColor color);

/// The painter of what is drawn at the moment.
Painter currentPainter();

}  // namespace host
