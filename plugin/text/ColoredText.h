#pragma once
// Texts of the host with the colour of their letters.

#include "cocoa/AppKit.h"

namespace velura {

/// The colour of the first character; nil when it has none, as for an empty text.
inline NSColor foregroundColorOf(NSAttributedString text) {
  if (text.length() == 0) return {};
  return cocoa::as<NSColor>(text.attribute(NSForegroundColorAttributeName, 0, nullptr));
}

/// A copy of the text whose letters all have one colour.
inline NSAttributedString inColor(NSAttributedString text, NSColor color) {
  const auto copy =
      cocoa::Ref<NSMutableAttributedString>::adopt(cocoa::call<"mutableCopy", NSMutableAttributedString>(text));
  copy->addAttribute(NSForegroundColorAttributeName, color, {0, text.length()});
  return cocoa::autoreleased(copy);
}

}  // namespace velura
