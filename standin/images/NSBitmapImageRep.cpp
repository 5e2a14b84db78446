#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include "standin/drawing/Context.h"
#include "standin/images/BitmapImageRep.h"
#include "standin/images/Registration.h"
#include "standin/pixels/Image.h"

using namespace cocoa;

namespace standin {

/// How the samples of a bitmap lie in its memory.
struct BitmapLayout {
  NSInteger pixelsWide = 0;
  NSInteger pixelsHigh = 0;
  NSInteger bitsPerSample = 8;
  NSInteger samplesPerPixel = 4;
  NSInteger bitsPerPixel = 32;
  NSInteger bytesPerRow = 0;
  NSUInteger format = 0;
  bool hasAlpha = true;
  Ref<NSString> colorSpaceName;
};

/// What a CGImage keeps of a bitmap, so that a bitmap made of the image is the same again.
struct BitmapCopy {
  BitmapLayout layout;
  std::vector<std::byte> bytes;
};

namespace {

constexpr NSUInteger kLittleEndian = 1U << 8U | 1U << 9U;  // of 16 and of 32 bits: the order of this machine
constexpr NSUInteger kKnownFormats =
    NSBitmapFormatAlphaFirst | NSBitmapFormatAlphaNonpremultiplied | NSBitmapFormatFloatingPointSamples | kLittleEndian;

/// State of an NSBitmapImageRep. The common layout is red, green, blue and premultiplied alpha of 8 bits
/// each; its memory is drawn into and copied as it is. Planar bitmaps are refused.
struct Bitmap : ObjectState, BitmapLayout {
  std::byte* data = nullptr;
  std::shared_ptr<std::byte[]> owned;

  ImageRepState& rep() { return stateOf<ImageRepState>(self); }

  id init(unsigned char** planes, NSInteger width, NSInteger height, NSInteger sampleBits, NSInteger samples,
          BOOL alphaSample, BOOL planar, NSString space, NSInteger rowBytes, NSInteger pixelBits) {
    return initWithFormat(planes, width, height, sampleBits, samples, alphaSample, planar, space, 0, rowBytes,
                          pixelBits);
  }
  id initWithFormat(unsigned char** planes, NSInteger width, NSInteger height, NSInteger sampleBits, NSInteger samples,
                    BOOL alphaSample, BOOL planar, NSString space, NSUInteger bitmapFormat, NSInteger rowBytes,
                    NSInteger pixelBits);
  // Initialisers do not call each other through messages: a subclass may override every one of them.
  id initWithImage(CGImageRef image) {
    if (image == nullptr) return refused();
    const auto& original = stateBehind<ImageState>(image).original;
    return original != nullptr ? initWithCopy(*original) : initWithSurface(*pixelsOf(image));
  }
  id initWithCopy(const BitmapCopy& copy);
  id initWithData(NSData bytes) {
    const auto frame = decodedFrame(bytesOf(bytes), 0);
    return frame ? initWithFrame(*frame) : refused();
  }
  id initWithFrame(const ImageFrame& frame) {
    const id made = initWithSurface(*frame.pixels);
    if (made != nullptr) rep().size = frame.size();
    return made;
  }
  id initWithSurface(const Surface& pixels);
  id refused() {
    send<void>(self, selector<"release">());
    return nullptr;
  }

  [[nodiscard]] bool isCommon() const {
    const bool unusual = hasAlpha && (format & (NSBitmapFormatAlphaFirst | NSBitmapFormatAlphaNonpremultiplied)) != 0;
    return bitsPerSample == 8 && bitsPerPixel == 32 && samplesPerPixel >= 3 && !unusual;
  }
  [[nodiscard]] bool isFloating() const { return (format & NSBitmapFormatFloatingPointSamples) != 0; }
  [[nodiscard]] bool isGray() const { return samplesPerPixel < 3; }
  [[nodiscard]] bool isPremultiplied() const { return hasAlpha && (format & NSBitmapFormatAlphaNonpremultiplied) == 0; }
  [[nodiscard]] PixelView view() const {
    return {data, bytesPerRow, {0, 0, static_cast<int>(pixelsWide), static_cast<int>(pixelsHigh)}, PixelOrder::kRgba};
  }
  [[nodiscard]] std::byte* sampleAt(NSInteger x, NSInteger y) const {
    return data + y * bytesPerRow + x * (bitsPerPixel / 8);
  }
  [[nodiscard]] bool holds(NSInteger x, NSInteger y) const {
    return data != nullptr && x >= 0 && y >= 0 && x < pixelsWide && y < pixelsHigh;
  }
  double sample(const std::byte* at, NSInteger index) const;
  void setSample(std::byte* at, NSInteger index, double value) const;
  [[nodiscard]] Rgba straightColor(NSInteger x, NSInteger y) const;
  [[nodiscard]] std::shared_ptr<Surface> snapshot() const;

  unsigned char* bitmapData() { return reinterpret_cast<unsigned char*>(data); }
  CGImageRef cgImage() {
    const CGImageRef image = makeImage(snapshot());
    if (image == nullptr) return nullptr;
    if (!isCommon() || !hasAlpha) {
      std::byte* end = data + pixelsHigh * bytesPerRow;
      stateBehind<ImageState>(image).original =
          std::make_shared<const BitmapCopy>(BitmapCopy{*this, std::vector<std::byte>(data, end)});
    }
    return autoreleasedReference(image);
  }
  NSColor colorAt(NSInteger x, NSInteger y);
  void setColorAt(NSColor color, NSInteger x, NSInteger y);
  BOOL isPlanar() { return NO; }
  NSString spaceName() { return colorSpaceName; }
  NSData representation(NSBitmapImageFileType type, NSDictionary) {
    if (type == NSBitmapImageFileTypeTIFF) return tiff();
    if (type != NSBitmapImageFileTypePNG) return {};
    const ImageFrame frame{snapshot()};
    const auto bytes = encodedFrames(ImageFileType::kPng, {&frame, 1});
    return bytes.empty() ? NSData() : NSData::dataWithBytes(bytes.data(), bytes.size());
  }
  NSData tiff() {
    const auto frame = frameOf(NSImageRep(self));
    return frame ? tiffData({*frame}) : NSData();
  }
};

id Bitmap::initWithFormat(unsigned char** planes, NSInteger width, NSInteger height, NSInteger sampleBits,
                          NSInteger samples, BOOL alphaSample, BOOL planar, NSString space, NSUInteger bitmapFormat,
                          NSInteger rowBytes, NSInteger pixelBits) {
  const bool floating = (bitmapFormat & NSBitmapFormatFloatingPointSamples) != 0;
  const bool knownSamples = floating ? sampleBits == 32 : sampleBits == 8 || sampleBits == 16;
  const bool knownCount = samples >= 1 && samples <= 4 && (alphaSample != 0) == (samples == 2 || samples == 4);
  if (width < 1 || height < 1 || width > kLongestSide || height > kTallest) return refused();
  if (!knownSamples || !knownCount || planar != 0 || (bitmapFormat & ~kKnownFormats) != 0) return refused();
  pixelsWide = width;
  pixelsHigh = height;
  bitsPerSample = sampleBits;
  samplesPerPixel = samples;
  bitsPerPixel = pixelBits > 0 ? pixelBits : sampleBits * samples;
  if (bitsPerPixel % sampleBits != 0 || bitsPerPixel < sampleBits * samples || bitsPerPixel > 128) return refused();
  bytesPerRow = rowBytes > 0 ? rowBytes : (width * bitsPerPixel / 8 + 3) / 4 * 4;
  const bool fits = bytesPerRow >= width * bitsPerPixel / 8 && bytesPerRow <= NSInteger{kLongestSide} * 32 &&
                    height <= kMostMemory / bytesPerRow;
  if (!fits) return refused();
  format = bitmapFormat;
  hasAlpha = alphaSample != 0;
  colorSpaceName = space ? space : isGray() ? NSDeviceWhiteColorSpace : NSDeviceRGBColorSpace;
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
  rep().alpha = hasAlpha;
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

id Bitmap::initWithCopy(const BitmapCopy& copy) {
  const BitmapLayout& l = copy.layout;
  const id made =
      initWithFormat(nullptr, l.pixelsWide, l.pixelsHigh, l.bitsPerSample, l.samplesPerPixel,
                     static_cast<BOOL>(l.hasAlpha), NO, l.colorSpaceName, l.format, l.bytesPerRow, l.bitsPerPixel);
  if (made != nullptr) std::memcpy(data, copy.bytes.data(), copy.bytes.size());
  return made;
}

template <class T>
T readAs(const std::byte* at, NSInteger index) {
  T value{};
  std::memcpy(&value, at + index * static_cast<NSInteger>(sizeof value), sizeof value);
  return value;
}
template <class T>
void write(std::byte* at, NSInteger index, T value) {
  std::memcpy(at + index * static_cast<NSInteger>(sizeof value), &value, sizeof value);
}

double Bitmap::sample(const std::byte* at, NSInteger index) const {
  if (bitsPerSample == 8) return std::to_integer<int>(at[index]) / 255.0;
  if (bitsPerSample == 16) return readAs<std::uint16_t>(at, index) / 65535.0;
  return static_cast<double>(readAs<float>(at, index));
}

/// Integer samples end at 0 and 1; floating ones hold what lies beyond as well.
void Bitmap::setSample(std::byte* at, NSInteger index, double value) const {
  if (bitsPerSample == 8) {
    at[index] = static_cast<std::byte>(byteOf(clampedUnit(value)));
  } else if (bitsPerSample == 16) {
    write(at, index, static_cast<std::uint16_t>(clampedUnit(value) * 65535 + 0.5));
  } else {
    write(at, index, static_cast<float>(value));
  }
}

/// Where the samples of one pixel lie.
struct SampleOrder {
  NSInteger red;
  NSInteger green;
  NSInteger blue;
  NSInteger alpha;  // below zero: none
};

SampleOrder orderOf(const BitmapLayout& layout) {
  const bool alphaFirst = layout.hasAlpha && (layout.format & NSBitmapFormatAlphaFirst) != 0;
  const NSInteger first = alphaFirst ? 1 : 0;
  const bool gray = layout.samplesPerPixel < 3;
  const NSInteger alpha = !layout.hasAlpha ? -1 : alphaFirst ? 0 : layout.samplesPerPixel - 1;
  return {first, first + (gray ? 0 : 1), first + (gray ? 0 : 2), alpha};
}

Rgba Bitmap::straightColor(NSInteger x, NSInteger y) const {
  const std::byte* at = sampleAt(x, y);
  const SampleOrder order = orderOf(*this);
  const Rgba c{sample(at, order.red), sample(at, order.green), sample(at, order.blue),
               order.alpha < 0 ? 1 : sample(at, order.alpha)};
  if (!isPremultiplied() || c.alpha == 1) return c;
  const double most = isFloating() ? std::numeric_limits<double>::infinity() : 1;
  const auto divided = [&](double channel) { return c.alpha > 0 ? std::fmin(most, channel / c.alpha) : 0; };
  return {divided(c.red), divided(c.green), divided(c.blue), c.alpha};
}

/// In the bitmap's own space.
NSColor Bitmap::colorAt(NSInteger x, NSInteger y) {
  if (!holds(x, y)) return {};
  const Rgba c = straightColor(x, y);
  if (isGray()) {
    const bool calibrated = colorSpaceName->isEqualToString(NSCalibratedWhiteColorSpace);
    return calibrated ? NSColor::colorWithCalibratedWhite(c.red, c.alpha)
                      : NSColor::colorWithDeviceWhite(c.red, c.alpha);
  }
  const bool calibrated = colorSpaceName->isEqualToString(NSCalibratedRGBColorSpace);
  return calibrated ? NSColor::colorWithCalibratedRed(c.red, c.green, c.blue, c.alpha)
                    : NSColor::colorWithDeviceRed(c.red, c.green, c.blue, c.alpha);
}

void Bitmap::setColorAt(NSColor color, NSInteger x, NSInteger y) {
  auto c = rgbaOf(color);
  if (!c || !holds(x, y)) return;
  if (isGray()) {
    const ColorValue gray =
        converted({ColorSpace::kSRGB, {c->red, c->green, c->blue, c->alpha}}, ColorSpace::kDeviceWhite);
    if (c->red != c->green || c->green != c->blue) c->red = c->green = c->blue = gray.components[0];
  }
  std::byte* at = sampleAt(x, y);
  const SampleOrder order = orderOf(*this);
  const double alpha = clampedUnit(c->alpha);
  const double factor = isPremultiplied() ? alpha : 1;
  const auto stored = [&](double channel) { return (isFloating() ? channel : clampedUnit(channel)) * factor; };
  setSample(at, order.red, stored(c->red));
  setSample(at, order.green, stored(c->green));
  setSample(at, order.blue, stored(c->blue));
  if (order.alpha >= 0) setSample(at, order.alpha, alpha);
}

std::shared_ptr<Surface> Bitmap::snapshot() const {
  if (data == nullptr) return nullptr;
  const PixelView pixels = view();
  if (isCommon() && hasAlpha) return copied(pixels, PixelOrder::kRgba);
  auto surface = Surface::makeTall(pixels.area.width(), pixels.area.height(), PixelOrder::kRgba);
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

std::vector<Ref<NSBitmapImageRep>> bitmapReps(NSData data) {
  std::vector<Ref<NSBitmapImageRep>> reps;
  const FileBytes bytes = bytesOf(data);
  const std::size_t count = frameCount(bytes);
  for (std::size_t i = 0; i < count; ++i) {
    const auto frame = decodedFrame(bytes, i);
    if (!frame) continue;
    const id made = stateOf<Bitmap>(newObject<Bitmap>()).initWithFrame(*frame);
    if (made != nullptr) reps.push_back(Ref<NSBitmapImageRep>::adopt(NSBitmapImageRep(made)));
  }
  return reps;
}

std::optional<ImageFrame> frameOf(NSImageRep rep) {
  const auto* state = stateIfKind<ImageRepState>(rep);
  if (state == nullptr || state->pixels == nullptr) return std::nullopt;
  ImageFrame frame{state->pixels(rep.object)};
  if (frame.pixels == nullptr) return std::nullopt;
  frame.hasAlpha = state->alpha;
  if (!CGRect{{}, state->size}.isEmpty()) {
    frame.dpiWidth = frame.pixels->width() * kPointsPerInch / state->size.width;
    frame.dpiHeight = frame.pixels->height() * kPointsPerInch / state->size.height;
  }
  return frame;
}

NSData tiffData(const std::vector<ImageFrame>& frames) {
  const auto bytes = encodedFrames(ImageFileType::kTiff, frames);
  return bytes.empty() ? NSData() : NSData::dataWithBytes(bytes.data(), bytes.size());
}

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
      .method<"TIFFRepresentation", &Bitmap::tiff>()
      .method<"representationUsingType:properties:", &Bitmap::representation>()
      .registered();
}

}  // namespace standin
