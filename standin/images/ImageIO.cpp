// Image I/O's functions.

#include "cocoa/ImageIO.h"
#include "standin/images/Registration.h"

#include <vector>

#include "standin/imagefiles/ImageFile.h"
#include "standin/pixels/Image.h"

using namespace cocoa;

namespace standin {

namespace {

/// State of a CGImageSource. Frames are decoded when they are first asked for.
struct ImageSource : ObjectState {
  Ref<NSData> data;
  std::size_t count = 0;
  std::vector<std::optional<std::optional<ImageFrame>>> frames;

  const std::optional<ImageFrame>& frame(std::size_t index) {
    static const std::optional<ImageFrame> none;
    if (index >= count) return none;
    frames.resize(count);
    auto& slot = frames[index];
    if (!slot) slot = decodedFrame(bytesOf(data), index);
    return *slot;
  }
};

/// State of a CGImageDestination.
struct ImageDestination : ObjectState {
  Ref<NSMutableData> data;
  ImageFileType type = ImageFileType::kNone;
  std::size_t count = 0;
  std::vector<ImageFrame> frames;
};

NSString nameOf(ImageFileType type) {
  return type == ImageFileType::kPng    ? literal<"public.png">()
         : type == ImageFileType::kTiff ? literal<"public.tiff">()
                                        : NSString();
}

ImageFileType typeNamed(NSString name) {
  for (const ImageFileType type : {ImageFileType::kPng, ImageFileType::kTiff}) {
    if (nameOf(type).isEqualToString(name)) return type;
  }
  return ImageFileType::kNone;
}

/// The number in a dictionary of properties, when it is there and lies from `low` to `high`.
double numberIn(NSDictionary properties, NSString key, double low, double high, double otherwise) {
  const auto number = as<NSNumber>(properties.objectForKey(key));
  const double value = number ? number.doubleValue() : otherwise;
  return value >= low && value <= high ? value : otherwise;
}

NSDictionary propertiesOf(const ImageFrame& frame) {
  const auto properties = NSMutableDictionary::dictionary();
  properties.setObject(NSNumber::numberWithLong(frame.pixels->width()), literal<"PixelWidth">());
  properties.setObject(NSNumber::numberWithLong(frame.pixels->height()), literal<"PixelHeight">());
  properties.setObject(NSNumber::numberWithDouble(frame.dpiWidth), literal<"DPIWidth">());
  properties.setObject(NSNumber::numberWithDouble(frame.dpiHeight), literal<"DPIHeight">());
  properties.setObject(NSNumber::numberWithBool(frame.hasAlpha), literal<"HasAlpha">());
  properties.setObject(NSNumber::numberWithLong(frame.orientation), literal<"Orientation">());
  properties.setObject(NSNumber::numberWithLong(8), literal<"Depth">());
  properties.setObject(literal<"RGB">(), literal<"ColorModel">());
  return properties;
}

}  // namespace

void registerImageIO() {
  ClassDefinition<ImageSource>("CGImageSource", "NSObject").registered();
  ClassDefinition<ImageDestination>("CGImageDestination", "NSObject").registered();
}

}  // namespace standin

using namespace standin;

extern "C" {

CGImageSourceRef CGImageSourceCreateWithData(CFDataRef data, CFDictionaryRef) {
  const auto bytes = as<NSData>(bridged(data));
  if (!bytes) return nullptr;
  const id made = newObject<ImageSource>();
  auto& source = stateOf<ImageSource>(made);
  source.data = Ref<NSData>::adopt(call<"copy", NSData>(bytes));
  source.count = frameCount(bytesOf(source.data));
  return bridged<CGImageSourceRef>(NSObject(made));
}

CFStringRef CGImageSourceGetType(CGImageSourceRef source) {
  if (source == nullptr) return nullptr;
  return bridged<CFStringRef>(nameOf(imageFileType(bytesOf(stateBehind<ImageSource>(source).data))));
}

size_t CGImageSourceGetCount(CGImageSourceRef source) {
  return source == nullptr ? 0 : stateBehind<ImageSource>(source).count;
}

CGImageRef CGImageSourceCreateImageAtIndex(CGImageSourceRef source, size_t index, CFDictionaryRef) {
  if (source == nullptr) return nullptr;
  const auto& frame = stateBehind<ImageSource>(source).frame(index);
  return frame ? makeImage(frame->pixels) : nullptr;
}

CFDictionaryRef CGImageSourceCopyPropertiesAtIndex(CGImageSourceRef source, size_t index, CFDictionaryRef) {
  if (source == nullptr) return nullptr;
  const auto& frame = stateBehind<ImageSource>(source).frame(index);
  if (!frame) return nullptr;
  return bridged<CFDictionaryRef>(Ref<NSDictionary>(propertiesOf(*frame)).detach());
}

CGImageDestinationRef CGImageDestinationCreateWithData(CFMutableDataRef data, CFStringRef type, size_t count,
                                                       CFDictionaryRef) {
  const ImageFileType known = typeNamed(as<NSString>(bridged(type)));
  const auto bytes = as<NSMutableData>(bridged(data));
  const std::size_t most = known == ImageFileType::kPng ? 1 : 256;
  if (!bytes || known == ImageFileType::kNone || count < 1 || count > most) return nullptr;
  const id made = newObject<ImageDestination>();
  auto& destination = stateOf<ImageDestination>(made);
  destination.data = bytes;
  destination.type = known;
  destination.count = count;
  return bridged<CGImageDestinationRef>(NSObject(made));
}

void CGImageDestinationAddImage(CGImageDestinationRef destination, CGImageRef image, CFDictionaryRef properties) {
  if (destination == nullptr || image == nullptr) return;
  auto& state = stateBehind<ImageDestination>(destination);
  if (state.frames.size() >= state.count) return;
  const auto values = as<NSDictionary>(bridged(properties));
  constexpr double kDensest = 1e5;
  ImageFrame frame{pixelsOf(image)};
  frame.dpiWidth = numberIn(values, literal<"DPIWidth">(), 1, kDensest, kPointsPerInch);
  frame.dpiHeight = numberIn(values, literal<"DPIHeight">(), 1, kDensest, kPointsPerInch);
  frame.orientation = static_cast<int>(numberIn(values, literal<"Orientation">(), 1, 8, 1));
  state.frames.push_back(std::move(frame));
}

bool CGImageDestinationFinalize(CGImageDestinationRef destination) {
  if (destination == nullptr) return false;
  auto& state = stateBehind<ImageDestination>(destination);
  if (state.frames.size() < state.count) return false;
  const auto bytes = encodedFrames(state.type, state.frames);
  if (bytes.empty()) return false;
  call<"appendBytes:length:">(state.data.get(), static_cast<const void*>(bytes.data()), NSUInteger(bytes.size()));
  return true;
}
}
