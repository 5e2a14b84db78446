#include "tests/goldens/SideBySide.h"

#include <algorithm>
#include <cstring>

#include "cli/Session.h"

namespace goldens {
namespace {

using session::PixelRect;

constexpr std::size_t kGap = 16;
constexpr unsigned char kFrame[] = {255, 0, 255, 255};

unsigned char* pixel(NSBitmapImageRep bitmap, std::size_t x, std::size_t y) {
  return bitmap.bitmapData() + y * static_cast<std::size_t>(bitmap.bytesPerRow()) + x * sizeof kFrame;
}

/// All changed rectangles, and a tile around them.
PixelRect surroundings(const std::vector<PixelRect>& changed, std::size_t side, NSBitmapImageRep picture) {
  std::size_t left = SIZE_MAX;
  std::size_t top = SIZE_MAX;
  std::size_t right = 0;
  std::size_t bottom = 0;
  for (const PixelRect& rect : changed) {
    left = std::min(left, rect.x);
    top = std::min(top, rect.y);
    right = std::max(right, rect.x + rect.width);
    bottom = std::max(bottom, rect.y + rect.height);
  }
  left -= std::min(left, side);
  top -= std::min(top, side);
  right = std::min(right + side, static_cast<std::size_t>(picture.pixelsWide()));
  bottom = std::min(bottom + side, static_cast<std::size_t>(picture.pixelsHigh()));
  return {left, top, right > left ? right - left : 0, bottom > top ? bottom - top : 0};
}

void copyPart(NSBitmapImageRep from, PixelRect part, NSBitmapImageRep to, std::size_t x) {
  const auto wide = static_cast<std::size_t>(from.pixelsWide());
  const auto high = static_cast<std::size_t>(from.pixelsHigh());
  if (part.x >= wide) return;
  for (std::size_t y = part.y; y < std::min(part.y + part.height, high); ++y) {
    std::memcpy(pixel(to, x, y - part.y), pixel(from, part.x, y), std::min(part.width, wide - part.x) * sizeof kFrame);
  }
}

/// `left` and `right` bound the picture that the frame belongs to.
void drawFrame(NSBitmapImageRep into, PixelRect rect, PixelRect part, std::size_t left) {
  for (std::size_t y = rect.y; y < std::min(rect.y + rect.height, part.y + part.height); ++y) {
    for (std::size_t x = rect.x; x < std::min(rect.x + rect.width, part.x + part.width); ++x) {
      const bool edge = y == rect.y || y + 1 == rect.y + rect.height || x == rect.x || x + 1 == rect.x + rect.width;
      if (edge) std::memcpy(pixel(into, left + x - part.x, y - part.y), kFrame, sizeof kFrame);
    }
  }
}

}  // namespace

std::string sideBySide(NSBitmapImageRep before, NSBitmapImageRep after, const Changes& changes) {
  const std::vector<PixelRect> changed = changes.rectangles();
  const PixelRect part = surroundings(changed, changes.side, after);
  const std::size_t second = before ? part.width + kGap : 0;
  const auto both = NSBitmapImageRep::withBitmapDataPlanes(nullptr, static_cast<NSInteger>(second + part.width),
                                                           static_cast<NSInteger>(part.height), 8, 4, true, false,
                                                           NSDeviceRGBColorSpace, 0, 32);
  if (!both) return {};
  if (before) copyPart(before, part, both, 0);
  copyPart(after, part, both, second);
  for (const PixelRect& rect : changed) {
    if (before) drawFrame(both, rect, part, 0);
    drawFrame(both, rect, part, second);
  }
  return session::pngOf(both);
}

}  // namespace goldens
