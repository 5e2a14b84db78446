#include "plugin/arrange/OffScreen.h"

#include "plugin/hostapi/ArrangeView.h"

namespace velura {

using namespace cocoa;

CGRect visibleOrBounds(NSView view) {
  const CGRect visible = view.visibleRect();
  return visible.isEmpty() ? view.bounds() : visible;
}

Ref<NSBitmapImageRep> drawnOffScreen(NSView view, CGRect rect) {
  if (!view || rect.isEmpty()) return {};
  const Ref<NSBitmapImageRep> bitmap = view.bitmapImageRepForCachingDisplayInRect(rect);
  if (bitmap) view.cacheDisplayInRect(rect, bitmap);
  return bitmap;
}

std::optional<RulerRendering> renderRuler(NSView ruler, CGRect rect) {
  RulerRendering rendering{drawnOffScreen(ruler, rect), {}};
  const NSBitmapImageRep bitmap = rendering.bitmap;
  if (!bitmap || bitmap.bitmapData() == nullptr) return std::nullopt;
  if (bitmap.bitsPerSample() != 8 || bitmap.samplesPerPixel() < 3 || bitmap.isPlanar()) return std::nullopt;
  if ((bitmap.bitmapFormat() & NSBitmapFormatAlphaFirst) != 0) return std::nullopt;
  const NSInteger width = bitmap.pixelsWide();
  const NSInteger height = bitmap.pixelsHigh();
  if (width < 1 || height < 1) return std::nullopt;
  rendering.pixels = {.bytes = bitmap.bitmapData(),
                      .width = width,
                      .height = height,
                      .bytesPerRow = bitmap.bytesPerRow(),
                      .bytesPerPixel = bitmap.bitsPerPixel() / 8,
                      .pixelsPerPoint = static_cast<double>(width) / rect.size.width,
                      .screenLeft = rectToScreen(rect, ruler).minX()};
  return rendering;
}

}  // namespace velura
