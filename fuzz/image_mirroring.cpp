// Any bytes as an image file: what can be read is mirrored, frame by frame, and mirrored twice is as before.

#include "fuzz/Fuzzing.h"
#include "plugin/imaging/ThemeImages.h"

namespace {

using namespace cocoa;

constexpr NSInteger kLargestCompared = 64;  // pixels a side: time is better spent on other inputs

bool haveSamePixels(NSImage a, NSImage b) {
  const NSArray first = a.representations();
  const NSArray second = b.representations();
  if (first.count() != second.count()) return false;
  for (NSUInteger i = 0; i < first.count(); ++i) {
    const auto one = cast<NSBitmapImageRep>(first.objectAtIndex(i));
    const auto other = cast<NSBitmapImageRep>(second.objectAtIndex(i));
    if (one.pixelsWide() != other.pixelsWide() || one.pixelsHigh() != other.pixelsHigh()) return false;
    if (one.pixelsWide() > kLargestCompared || one.pixelsHigh() > kLargestCompared) continue;
    for (NSInteger y = 0; y < one.pixelsHigh(); ++y) {
      for (NSInteger x = 0; x < one.pixelsWide(); ++x) {
        if (!one.colorAtX(x, y).isEqual(other.colorAtX(x, y))) return false;
      }
    }
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const AutoreleasePool pool;
  const Ref<NSImage> image = NSImage::withData(NSData::dataWithBytes(data, size));
  if (!image) return 0;

  const NSImage once = velura::flippedVertically(image);
  if (!once) return 0;
  const NSImage twice = velura::flippedVertically(once);
  fuzzing::require(twice && haveSamePixels(velura::flippedVertically(twice), once));
  return 0;
}
