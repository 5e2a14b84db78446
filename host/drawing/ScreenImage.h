#pragma once
// Pictures of the host's own that suit every screen, and copies of them in other colours.

#include "cocoa/AppKit.h"

namespace host {

/// A bitmap of `size` points at `scale` pixels a point, drawn by `draw` as the current context, in pixels.
template <class Draw>
cocoa::Ref<NSBitmapImageRep> drawnBitmap(CGSize size, double scale, Draw&& draw);

/// An image of `size` points that `draw` draws in points, for one pixel a point and for two.
template <class Draw>
cocoa::Ref<NSImage> screenImage(CGSize size, Draw&& draw);

/// Gives images the copy in another colour that the controls ask for.
void attachImageTint();

template <class Draw>
cocoa::Ref<NSBitmapImageRep> drawnBitmap(CGSize size, double scale, Draw&& draw) {
  const auto pixels = [&](double points) {
    return std::max(NSInteger(1), static_cast<NSInteger>(std::ceil(points * scale)));
  };
  auto bitmap = NSBitmapImageRep::withBitmapDataPlanes(nullptr, pixels(size.width), pixels(size.height), 8, 4, true,
                                                       false, NSDeviceRGBColorSpace, 0, 0);
  if (!bitmap) return bitmap;
  NSGraphicsContext::saveGraphicsState();
  const NSGraphicsContext context = NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap);
  NSGraphicsContext::setCurrentContext(context);
  draw(context.CGContext());
  NSGraphicsContext::restoreGraphicsState();
  bitmap->setSize(size);  // not before: the context would draw in points
  return bitmap;
}

template <class Draw>
cocoa::Ref<NSImage> screenImage(CGSize size, Draw&& draw) {
  auto image = NSImage::withSize(size);
  for (const double scale : {1.0, 2.0}) {
    image->addRepresentation(drawnBitmap(size, scale, [&](CGContextRef context) {
      CGContextScaleCTM(context, scale, scale);
      draw(context);
    }));
  }
  return image;
}

}  // namespace host
