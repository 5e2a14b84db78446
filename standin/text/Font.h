#pragma once
// Fonts: the system font in its sizes and weights.

#include <pango/pango.h>

#include "cocoa/AppKit.h"
#include "standin/runtime/Objects.h"

namespace standin {

/// What tells fonts apart.
struct FontKey {
  double size = 0;
  int weight = 400;  // as the font's own scale counts it, 100 to 1000
  bool monospacedDigits = false;
  auto operator<=>(const FontKey&) const = default;
};

/// State of an NSFont. Metrics are in points.
struct FontState : cocoa::ObjectState {
  FontKey key;
  double ascender = 0;
  double descender = 0;  // negative
  double widest = 0;

  CGFloat pointSize() { return key.size; }
  NSRect boundingRect() { return {{0, descender}, {widest, ascender - descender}}; }
  NSString fontName();
  NSString description();
  BOOL isEqual(NSObject other);
  NSUInteger hash();
  id copy(void*) { return cocoa::send<id>(self, cocoa::selector<"retain">()); }
};

/// The key of an NSFont; the system font at 12 points, the platform's default, for nil.
FontKey fontKeyOf(NSFont font);

/// The text context that all layouts are made in: grey edges, no hinting, one point a unit.
PangoContext* textContext();
/// The caller frees it.
PangoFontDescription* describe(const FontKey& key);

}  // namespace standin
