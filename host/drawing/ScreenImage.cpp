#include "host/drawing/ScreenImage.h"

#include "cocoa/ClassDefinition.h"

namespace host {
namespace {

using namespace cocoa;

/// The representation in one colour, as transparent as it was.
Ref<NSBitmapImageRep> tinted(NSBitmapImageRep rep, NSColor color) {
  const CGRect whole = CGRectMake(0, 0, static_cast<double>(rep.pixelsWide()), static_cast<double>(rep.pixelsHigh()));
  const Ref<NSBitmapImageRep> copy = drawnBitmap(whole.size, 1, [&](CGContextRef context) {
    CGContextDrawImage(context, whole, rep.CGImage());
    CGContextSetBlendMode(context, kCGBlendModeSourceAtop);
    CGContextSetFillColorWithColor(context, color.CGColor());
    CGContextFillRect(context, whole);
  });
  copy->setSize(rep.size());
  return copy;
}

NSImage imageWithColor(NSImage image, NSColor color) {
  if (!color) return image;
  const Ref<NSImage> copy = NSImage::withSize(image.size());
  for (const NSObject rep : items(image.representations())) {
    if (const auto bitmap = as<NSBitmapImageRep>(rep)) copy->addRepresentation(tinted(bitmap, color));
  }
  return autoreleased(copy);
}

}  // namespace

void attachImageTint() { CategoryDefinition("NSImage").method<"imageWithColor:", imageWithColor>(); }

}  // namespace host
