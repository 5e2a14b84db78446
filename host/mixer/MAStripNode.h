#pragma once

#include <vector>

#include "host/drawing/Painter.h"
#include "host/mixer/MANode.h"

namespace host {

enum class EmptyElement { kSlot, kKnob };

/// A place of the strip that nothing fills yet: the strip draws its frame and title itself.
struct EmptySlot {
  EmptyElement element = EmptyElement::kSlot;
  CGRect rect;
  cocoa::Ref<NSString> title;
};

/// The colours that the host gives a strip of one kind.
struct StripLook {
  Palette background = Palette::kStripBackground;
  Palette highlight = Palette::kStripHighlight;
};

/// One channel strip: the column of sections of a track.
struct MAStripNode : cocoa::ObjectState {
  StripLook stripLook;
  std::vector<EmptySlot> emptySlots;
  CGRect emptyArea;  // bounds of the empty slots
  cocoa::Ref<CALayer> emptyLayer;
  cocoa::Ref<CALayer> borderLayer;
  double emptyScale = 0;

  id init();
  void setEmptySlots(std::vector<EmptySlot> slots);
  NSColor backgroundColor();
  NSColor highlightedBackgroundColor();
  NSColor borderColor();
  void setHighlightState(NSInteger state);
  void updatePresentationObject(NSObject presentation, NSObject view);
  void drawSlotFrame(CGRect rect, CGContextRef context);
  void drawKnobFrame(CGRect rect, CGContextRef context);
  CGImageRef cachedElementTitleImage(NSString title, CGSize size, double scale);

 private:
  void updateTexts();
  void updateEmptySlots(double scale);
  void drawEmptySlot(const EmptySlot& slot, CGContextRef context, double scale);
  void drawFrame(CGPathRef path, CGContextRef context);
};

void defineMAStripNode();

}  // namespace host
