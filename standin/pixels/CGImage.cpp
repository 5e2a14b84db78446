#include <cmath>

#include "standin/pixels/Image.h"
#include "standin/pixels/Registration.h"

using namespace cocoa;

namespace standin {

CGImageRef makeImage(std::shared_ptr<const Surface> pixels) {
  if (pixels == nullptr) return nullptr;
  const id image = newObject<ImageState>();
  stateOf<ImageState>(image).pixels = std::move(pixels);
  return bridged<CGImageRef>(NSObject(image));
}

void registerCoreGraphicsImages() { ClassDefinition<ImageState>("CGImage", "NSObject").registered(); }

}  // namespace standin

using namespace standin;

extern "C" {

size_t CGImageGetWidth(CGImageRef image) {
  return image == nullptr ? 0 : static_cast<size_t>(pixelsOf(image)->width());
}
size_t CGImageGetHeight(CGImageRef image) {
  return image == nullptr ? 0 : static_cast<size_t>(pixelsOf(image)->height());
}
CGImageRef CGImageRetain(CGImageRef image) {
  CFRetain(image);
  return image;
}
void CGImageRelease(CGImageRef image) { CFRelease(image); }

CGImageRef CGImageCreateWithImageInRect(CGImageRef image, CGRect rect) {
  if (image == nullptr) return nullptr;
  const PixelView& view = pixelsOf(image)->view();
  const CGRect all = CGRectMake(0, 0, view.area.width(), view.area.height());
  const CGRect part = CGRectIntersection(rect, all);
  if (part.isEmpty()) return nullptr;
  PixelView window = view;
  window.area = {static_cast<int>(std::floor(part.minX())), static_cast<int>(std::floor(part.minY())),
                 static_cast<int>(std::ceil(part.maxX())), static_cast<int>(std::ceil(part.maxY()))};
  window.base = reinterpret_cast<std::byte*>(view.at(window.area.left, window.area.top));
  return makeImage(copied(window, view.order));
}
}
