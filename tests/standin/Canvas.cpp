#include "Canvas.h"

namespace support {

using namespace cocoa;

namespace {

struct Letter {
  char name;
  std::uint32_t pixel;
};
constexpr Letter kLetters[] = {{'.', 0x00000000}, {'R', 0xff0000ff}, {'G', 0x00ff00ff},
                               {'B', 0x0000ffff}, {'W', 0xffffffff}, {'K', 0x000000ff}};

}  // namespace

Canvas::Canvas(int width, int height, double scale, RedByte red)
    : width_(width), height_(height), red_(red), memory_(std::size_t(width) * std::size_t(height) * 4) {
  const auto space = CFRef<CGColorSpaceRef>::adopt(CGColorSpaceCreateDeviceRGB());
  const CGBitmapInfo info = red == RedByte::kFirst ? kCGImageAlphaPremultipliedLast
                                                   : kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Little;
  context_ = CFRef<CGContextRef>::adopt(CGBitmapContextCreate(memory_.data(), std::size_t(width), std::size_t(height),
                                                              8, std::size_t(width) * 4, space, info));
  CGContextScaleCTM(context_, scale, scale);
  before_ = NSGraphicsContext::currentContext();
  NSGraphicsContext::setCurrentContext(NSGraphicsContext::graphicsContextWithCGContext(context_, false));
}

Canvas::~Canvas() { NSGraphicsContext::setCurrentContext(before_); }

void Canvas::fill(NSColor color, CGRect rect) const {
  CGContextSetFillColorWithColor(context_, color.CGColor());
  CGContextFillRect(context_, rect);
}

std::uint32_t Canvas::at(int x, int y) const {
  const unsigned char* p = memory_.data() + (std::size_t(y) * std::size_t(width_) + std::size_t(x)) * 4;
  const bool first = red_ == RedByte::kFirst;
  return std::uint32_t(p[first ? 0 : 2]) << 24U | std::uint32_t(p[1]) << 16U | std::uint32_t(p[first ? 2 : 0]) << 8U |
         p[3];
}

std::string Canvas::art() const {
  std::string text;
  for (int y = 0; y < height_; ++y) {
    for (int x = 0; x < width_; ++x) {
      char name = '-';
      for (const Letter& each : kLetters) {
        if (each.pixel == at(x, y)) name = each.name;
      }
      text += name;
    }
    text += '\n';
  }
  return text;
}

std::vector<std::uint32_t> Canvas::pixels() const {
  std::vector<std::uint32_t> all;
  for (int y = 0; y < height_; ++y) {
    for (int x = 0; x < width_; ++x) all.push_back(at(x, y));
  }
  return all;
}

NSColor letter(char name) {
  for (const Letter& each : kLetters) {
    if (each.name != name) continue;
    const auto channel = [&](unsigned shift) { return (each.pixel >> shift & 0xFFU) / 255.0; };
    return NSColor::colorWithSRGBRed(channel(24), channel(16), channel(8), channel(0));
  }
  return {};
}

Ref<NSImage> imageOf(const std::vector<std::string>& rows) {
  const double height = double(rows.size());
  auto image = NSImage::withSize({double(rows.front().size()), height});
  image->lockFocus();
  for (std::size_t y = 0; y < rows.size(); ++y) {
    for (std::size_t x = 0; x < rows[y].size(); ++x) {
      letter(rows[y][x]).set();
      NSRectFill({{double(x), height - 1 - double(y)}, {1, 1}});
    }
  }
  image->unlockFocus();
  return image;
}

}  // namespace support
