#include "plugin/imaging/ThemeImages.h"

#include <cstring>
#include <utility>
#include <vector>

#include "cocoa/ClassDefinition.h"
#include "cocoa/ImageIO.h"
#include "plugin/hostapi/Identifiers.h"
#include "plugin/imaging/MyNSBitmapImageRep.h"
#include "plugin/text/StringBytes.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

/// Exchanges the rows of a bitmap, top for bottom.
void mirrorRows(NSBitmapImageRep bitmap) {
  unsigned char* top = bitmap.bitmapData();
  if (top == nullptr || bitmap.isPlanar()) return;
  const auto length = static_cast<std::size_t>(bitmap.bytesPerRow());
  unsigned char* bottom = top + static_cast<std::size_t>(bitmap.pixelsHigh() - 1) * length;
  std::vector<unsigned char> row(length);
  for (; top < bottom; top += length, bottom -= length) {
    std::memcpy(row.data(), top, length);
    std::memcpy(top, bottom, length);
    std::memcpy(bottom, row.data(), length);
  }
}

/// Adds one mirrored frame, its properties kept. False when the frame cannot be read.
bool addMirrored(CGImageSourceRef source, std::size_t index, CGImageDestinationRef destination) {
  const auto frame = CFRef<CGImageRef>::adopt(CGImageSourceCreateImageAtIndex(source, index, nullptr));
  if (!frame) return false;
  const Ref<NSBitmapImageRep> bitmap = MyNSBitmapImageRep::withCGImage(frame);
  if (!bitmap) return false;
  const auto properties = CFRef<CFDictionaryRef>::adopt(CGImageSourceCopyPropertiesAtIndex(source, index, nullptr));
  mirrorRows(bitmap);
  CGImageDestinationAddImage(destination, bitmap->CGImage(), properties);
  return true;
}

NSImage flipImageVertically(NSObject /*theme*/, NSImage image) { return flippedVertically(image); }
NSImage getImage(NSObject /*theme*/, NSString name, CGSize size) { return themeImage(name, size); }

}  // namespace

NSImage flippedVertically(NSImage image) {
  const NSData tiff = image.TIFFRepresentation();
  if (!tiff) return {};
  const auto source = CFRef<CGImageSourceRef>::adopt(CGImageSourceCreateWithData(bridged<CFDataRef>(tiff), nullptr));
  const std::size_t count = source ? CGImageSourceGetCount(source) : 0;
  if (count == 0) return {};
  const NSMutableData data = NSMutableData::data();
  const auto destination = CFRef<CGImageDestinationRef>::adopt(
      CGImageDestinationCreateWithData(bridged<CFMutableDataRef>(data), CGImageSourceGetType(source), count, nullptr));
  if (!destination) return {};
  for (std::size_t i = 0; i < count; ++i) {
    if (!addMirrored(source, i, destination)) return {};
  }
  return CGImageDestinationFinalize(destination) ? autoreleased(NSImage::withData(data)) : NSImage();
}

NSImage themeImage(NSString name, CGSize size) {
  if (!name) return {};
  const NSMutableDictionary cache = ThemeUtility::shared().imageCache;
  if (const auto cached = cast<NSImage>(cache.objectForKey(name))) return cached;
  const NSBundle companion = NSBundle::bundleWithIdentifier(literal<kCompanionIdentifier>());
  const auto image = call<"imageForResource:", NSImage>(companion, name);
  if (!image) return {};
  if (size.width != 0 && size.height != 0) image.setSize(size);
  if (!utf8Bytes(name).starts_with("mixer_panner_pointer")) return image;
  const NSImage mirrored = flippedVertically(image);
  if (mirrored) cache.setObject(mirrored, name);
  return mirrored;
}

void attachThemeUtilityImages() {
  CategoryDefinition("ThemeUtility")
      .method<"getImage:size:", getImage>()
      .method<"flipImageVertically:", flipImageVertically>();
}

}  // namespace velura
