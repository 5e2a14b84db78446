#include <cmath>
#include <cstring>

#include "standin/BitmapImageRep.h"
#include "standin/Context.h"
#include "standin/Image.h"
#include "standin/Png.h"

using namespace cocoa;

namespace standin {

namespace {

constexpr NSInteger kMostMemory = NSInteger{256} << 20U;  // bytes

/// State of an NSBitmapImageRep. The common layout is red, green, blue and premultiplied alpha of 8 bits
/// each; its memory is drawn into and copied as it is.
struct Bitmap : ObjectState {
  std::byte* data = nullptr;
  std::shared_ptr<std::byte[]> owned;
  NSInteger bitsPerSample = 8;
  NSInteger samplesPerPixel = 4;
  NSInteger bitsPerPixel = 32;
  NSInteger bytesPerRow = 0;
  NSUInteger format = 0;
  Ref<NSString> colorSpaceName;

  ImageRepState& rep() { return stateOf<ImageRepState>(self); }

  id init(unsigned char** planes, NSInteger width, NSInteger height, NSInteger sampleBits, NSInteger samples,
          BOOL hasAlpha, BOOL planar, NSString space, NSInteger rowBytes, NSInteger pixelBits) {
    return initWithFormat(planes, width, height, sampleBits, samples, hasAlpha, planar, space, 0, rowBytes, pixelBits);
  }
  id initWithFormat(unsigned char** planes, NSInteger width, NSInteger height, NSInteger sampleBits, NSInteger samples,
                    BOOL hasAlpha, BOOL planar, NSString space, NSUInteger bitmapFormat, NSInteger rowBytes,
                    NSInteger pixelBits);
  id initWithImage(CGImageRef image) { return image == nullptr ? refused() : initWithSurface(*pixelsOf(image)); }
  id initWithData(NSData bytes) {
    const auto surface = decodedPng({static_cast<const std::uint8_t*>(bytes.bytes()), bytes.length()});
    return surface == nullptr ? refused() : initWithSurface(*surface);
  }
  id initWithSurface(const Surface& pixels);
  id refused() {
    send<void>(self, selector<"release">());
    return nullptr;
  }

  [[nodiscard]] bool isCommon() const {
    return bitsPerSample == 8 && bitsPerPixel == 32 && samplesPerPixel >= 3 &&
           (format & (NSBitmapFormatAlphaFirst | NSBitmapFormatAlphaNonpremultiplied)) == 0;
  }
  PixelView view() {
    return {data,
            bytesPerRow,
            {0, 0, static_cast<int>(rep().pixelsWide), static_cast<int>(rep().pixelsHigh)},
            PixelOrder::kRgba};
  }
  [[nodiscard]] std::byte* sampleAt(NSInteger x, NSInteger y) const {
    return data + y * bytesPerRow + x * (bitsPerPixel / 8);
  }
  bool holds(NSInteger x, NSInteger y) {
    return data != nullptr && x >= 0 && y >= 0 && x < rep().pixelsWide && y < rep().pixelsHigh;
  }
  double sample(const std::byte* at, NSInteger index) const;
  void setSample(std::byte* at, NSInteger index, double value) const;
  Rgba straightColor(NSInteger x, NSInteger y);
  std::shared_ptr<Surface> snapshot();

  unsigned char* bitmapData() { return reinterpret_cast<unsigned char*>(data); }
  CGImageRef cgImage() {
    const CGImageRef image = makeImage(snapshot());
    return image == nullptr ? nullptr : autoreleasedReference(image);
  }
  NSColor colorAt(NSInteger x, NSInteger y);
  void setColorAt(NSColor color, NSInteger x, NSInteger y);
  BOOL isPlanar() { return NO; }
  NSString spaceName() { return colorSpaceName; }
  NSData representation(NSBitmapImageFileType type, NSDictionary) {
    if (type != NSBitmapImageFileTypePNG) return {};
    const auto pixels = snapshot();
    if (pixels == nullptr) return {};
    const auto bytes = encodedPng(*pixels);
    return NSData::dataWithBytes(bytes.data(), bytes.size());
  }
};

id Bitmap::initWithFormat(unsigned char** planes, NSInteger width, NSInteger height, NSInteger sampleBits,
                          NSInteger samples, BOOL hasAlpha, BOOL planar, NSString space, NSUInteger bitmapFormat,
                          NSInteger rowBytes, NSInteger pixelBits) {
  const bool floating = (bitmapFormat & NSBitmapFormatFloatingPointSamples) != 0;
  const bool knownSamples = floating ? sampleBits == 32 : sampleBits == 8;
  const bool knownCount = samples >= 1 && samples <= 4 && (hasAlpha != 0) == (samples == 2 || samples == 4);
  if (width < 1 || height < 1 || width > kLongestSide || height > kLongestSide) return refused();
  if (!knownSamples || !knownCount || planar != 0) return refused();
  bitsPerSample = sampleBits;
  samplesPerPixel = samples;
  bitsPerPixel = pixelBits > 0 ? pixelBits : sampleBits * samples;
  bytesPerRow = rowBytes > 0 ? rowBytes : (width * bitsPerPixel / 8 + 3) / 4 * 4;
  const bool fits = bitsPerPixel % 8 == 0 && bitsPerPixel >= sampleBits * samples && bitsPerPixel <= 128 &&
                    bytesPerRow >= width * bitsPerPixel / 8 && bytesPerRow <= NSInteger{kLongestSide} * 32 &&
                    height <= kMostMemory / bytesPerRow;
  if (!fits) return refused();
  format = bitmapFormat;
  colorSpaceName = space;
  if (planes != nullptr && planes[0] != nullptr) {
    data = reinterpret_cast<std::byte*>(planes[0]);
  } else {
    std::byte* memory = allocatedPixels(static_cast<std::size_t>(height), static_cast<std::size_t>(bytesPerRow));
    if (memory == nullptr) return refused();
    owned = std::shared_ptr<std::byte[]>(memory, [](std::byte* kept) { std::free(kept); });
    data = memory;
  }
  rep().pixelsWide = width;
  rep().pixelsHigh = height;
  rep().size = {static_cast<double>(width), static_cast<double>(height)};
  rep().alpha = hasAlpha != 0;
  rep().pixels = [](id object) -> std::shared_ptr<const Surface> { return stateOf<Bitmap>(object).snapshot(); };
  return self;
}

id Bitmap::initWithSurface(const Surface& pixels) {
  const id made = init(nullptr, pixels.width(), pixels.height(), 8, 4, YES, NO, NSDeviceRGBColorSpace, 0, 0);
  if (made == nullptr) return nullptr;
  const bool reorder = pixels.view().order != PixelOrder::kRgba;
  for (int y = 0; y < pixels.height(); ++y) {
    const Pixel* from = pixels.view().at(0, y);
    Pixel* to = view().at(0, y);
    if (reorder) {
      std::transform(from, from + pixels.width(), to, swappedRedBlue);
    } else {
      std::copy_n(from, pixels.width(), to);
    }
  }
  return made;
}

double Bitmap::sample(const std::byte* at, NSInteger index) const {
  if (bitsPerSample == 8) return std::to_integer<int>(at[index]) / 255.0;
  float value = 0;
  std::memcpy(&value, at + index * static_cast<NSInteger>(sizeof value), sizeof value);
  return static_cast<double>(value);
}

void Bitmap::setSample(std::byte* at, NSInteger index, double value) const {
  if (bitsPerSample == 8) {
    at[index] = static_cast<std::byte>(byteOf(clampedUnit(value)));
    return;
  }
  const auto single = static_cast<float>(value);
  std::memcpy(at + index * static_cast<NSInteger>(sizeof single), &single, sizeof single);
}

/// Where the samples of one pixel lie.
struct SampleOrder {
  NSInteger red;
  NSInteger green;
  NSInteger blue;
  NSInteger alpha;  // below zero: none
};

SampleOrder orderOf(const Bitmap& bitmap, bool hasAlpha) {
  const bool alphaFirst = hasAlpha && (bitmap.format & NSBitmapFormatAlphaFirst) != 0;
  const NSInteger first = alphaFirst ? 1 : 0;
  const bool gray = bitmap.samplesPerPixel < 3;
  const NSInteger alpha = !hasAlpha ? -1 : alphaFirst ? 0 : bitmap.samplesPerPixel - 1;
  return {first, first + (gray ? 0 : 1), first + (gray ? 0 : 2), alpha};
}

Rgba Bitmap::straightColor(NSInteger x, NSInteger y) {
  const std::byte* at = sampleAt(x, y);
  const SampleOrder order = orderOf(*this, rep().alpha);
  Rgba c{sample(at, order.red), sample(at, order.green), sample(at, order.blue),
         order.alpha < 0 ? 1 : sample(at, order.alpha)};
  const bool premultiplied = (format & NSBitmapFormatAlphaNonpremultiplied) == 0;
  if (premultiplied && c.alpha != 1) {
    const auto divided = [&](double channel) { return c.alpha > 0 ? std::fmin(1, channel / c.alpha) : 0; };
    c = {divided(c.red), divided(c.green), divided(c.blue), c.alpha};
  }
  return c;
}

NSColor Bitmap::colorAt(NSInteger x, NSInteger y) {
  if (!holds(x, y)) return {};
  const Rgba c = straightColor(x, y);
  return NSColor::colorWithDeviceRed(c.red, c.green, c.blue, c.alpha);
}

void Bitmap::setColorAt(NSColor color, NSInteger x, NSInteger y) {
  const auto c = rgbaOf(color);
  if (!c || !holds(x, y)) return;
  std::byte* at = sampleAt(x, y);
  const SampleOrder order = orderOf(*this, rep().alpha);
  const bool premultiplied = order.alpha >= 0 && (format & NSBitmapFormatAlphaNonpremultiplied) == 0;
  const double factor = premultiplied ? clampedUnit(c->alpha) : 1;
  setSample(at, order.red, clampedUnit(c->red) * factor);
  setSample(at, order.green, clampedUnit(c->green) * factor);
  setSample(at, order.blue, clampedUnit(c->blue) * factor);
  if (order.alpha >= 0) setSample(at, order.alpha, clampedUnit(c->alpha));
}

std::shared_ptr<Surface> Bitmap::snapshot() {
  if (data == nullptr) return nullptr;
  const PixelView pixels = view();
  if (isCommon() && rep().alpha) return copied(pixels, PixelOrder::kRgba);
  auto surface = Surface::make(pixels.area.width(), pixels.area.height(), PixelOrder::kRgba);
  if (surface == nullptr) return nullptr;
  for (int y = 0; y < surface->height(); ++y) {
    for (int x = 0; x < surface->width(); ++x) {
      *surface->view().at(x, y) = packed(straightColor(x, y), PixelOrder::kRgba);
    }
  }
  return surface;
}

NSBitmapImageRep repWithData(Class cls, NSData bytes) {
  if (!bytes) return {};
  const auto made = call<"initWithData:", NSBitmapImageRep>(call<"alloc", id>(cls), bytes);
  return autoreleased(Ref<NSBitmapImageRep>::adopt(made));
}

}  // namespace

NSBitmapImageRep makeBitmapRep(const Surface& pixels) {
  return NSBitmapImageRep(stateOf<Bitmap>(newObject<Bitmap>()).initWithSurface(pixels));
}

CGContextRef makeBitmapContext(NSBitmapImageRep rep) {
  auto* bitmap = stateIfKind<Bitmap>(rep);
  if (bitmap == nullptr || bitmap->data == nullptr || !bitmap->isCommon() || bitmap->bytesPerRow % 4 != 0) {
    return nullptr;
  }
  const double wide = bitmap->rep().size.width;
  const double scale = wide > 0 ? static_cast<double>(bitmap->rep().pixelsWide) / wide : 1;
  return makeContext(bitmap->view(), bitmap->owned, scale);
}

void registerBitmapImageReps() {
  ClassDefinition<Bitmap>("NSBitmapImageRep", "NSImageRep")
      .classMethod<"imageRepWithData:", repWithData>()
      .method<
          "initWithBitmapDataPlanes:pixelsWide:pixelsHigh:bitsPerSample:samplesPerPixel:hasAlpha:isPlanar:"
          "colorSpaceName:bytesPerRow:bitsPerPixel:",
          &Bitmap::init>()
      .method<
          "initWithBitmapDataPlanes:pixelsWide:pixelsHigh:bitsPerSample:samplesPerPixel:hasAlpha:isPlanar:"
          "colorSpaceName:bitmapFormat:bytesPerRow:bitsPerPixel:",
          &Bitmap::initWithFormat>()
      .method<"initWithCGImage:", &Bitmap::initWithImage>()
      .method<"initWithData:", &Bitmap::initWithData>()
      .method<"bitmapData", &Bitmap::bitmapData>()
      .getter<"bytesPerRow", &Bitmap::bytesPerRow>()
      .getter<"bitmapFormat", &Bitmap::format>()
      .getter<"samplesPerPixel", &Bitmap::samplesPerPixel>()
      .getter<"bitsPerSample", &Bitmap::bitsPerSample>()
      .getter<"bitsPerPixel", &Bitmap::bitsPerPixel>()
      .method<"isPlanar", &Bitmap::isPlanar>()
      .method<"colorSpaceName", &Bitmap::spaceName>()
      .method<"CGImage", &Bitmap::cgImage>()
      .method<"colorAtX:y:", &Bitmap::colorAt>()
      .method<"setColor:atX:y:", &Bitmap::setColorAt>()
      .method<"representationUsingType:properties:", &Bitmap::representation>()
      .registered();
}

}  // namespace standin
