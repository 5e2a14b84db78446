#include <cmath>
#include <limits>
#include <vector>

#include "standin/drawing/Context.h"
#include "standin/images/BitmapImageRep.h"
#include "standin/images/Contents.h"
#include "standin/images/Registration.h"
#include "standin/pixels/Image.h"

using namespace cocoa;

namespace standin {

namespace {

/// State of an NSImage: representations, or the picture that was drawn with the focus locked.
struct ImageObject : ObjectState {
  NSSize size;
  std::vector<Ref<NSImageRep>> reps;
  std::shared_ptr<Surface> drawn;
  Ref<NSGraphicsContext> before;  // current before the focus was locked
  Ref<NSString> name;
  bool isTemplate = false;
  bool locked = false;

  id initWithSize(NSSize wanted) {
    size = wanted;
    return self;
  }
  id initWithImage(CGImageRef image, NSSize wanted) {
    if (image == nullptr) return refused();
    const auto& pixels = pixelsOf(image);
    const bool natural = !(wanted.width > 0 && wanted.height > 0);
    size = natural ? NSSize{static_cast<double>(pixels->width()), static_cast<double>(pixels->height())} : wanted;
    reps.push_back(Ref<NSImageRep>::adopt(makeBitmapRep(*pixels)));
    reps.back()->setSize(size);
    return self;
  }
  /// The first frame says how large the image is.
  id initWithData(NSData bytes) {
    for (const auto& rep : bitmapReps(bytes)) reps.emplace_back(rep.get());
    if (reps.empty()) return refused();
    size = reps.front()->size();
    return self;
  }
  id initWithContentsOfFile(NSString path);
  id refused() {
    send<void>(self, selector<"release">());
    return nullptr;
  }

  BOOL isValid() { return static_cast<BOOL>(drawn != nullptr || !reps.empty()); }
  void addRepresentation(NSImageRep rep) {
    if (!rep) return;
    if (drawn != nullptr && !locked) {  // what was drawn becomes one of several
      static_cast<void>(representations());
      drawn = nullptr;
    }
    if (!(size.width > 0 && size.height > 0)) size = rep.size();
    reps.emplace_back(rep);
  }
  void removeRepresentation(NSImageRep rep) {
    std::erase_if(reps, [rep](const Ref<NSImageRep>& each) { return each.get() == rep; });
  }
  NSArray representations();
  std::shared_ptr<const Surface> raster(double scale);
  std::shared_ptr<Surface> blank() const {
    const double width = std::ceil(size.width);
    const double height = std::ceil(size.height);
    if (!(width >= 1 && height >= 1 && width <= kLongestSide && height <= kLongestSide)) return nullptr;
    return Surface::make(static_cast<int>(width), static_cast<int>(height), PixelOrder::kNative);
  }
  void lockFocus();
  void unlockFocus();

  void drawIn(NSRect rect, NSRect source, NSCompositingOperation operation, CGFloat fraction, bool upright);
  void drawInRect(NSRect rect) { drawIn(rect, {}, NSCompositingOperationSourceOver, 1, true); }
  void drawInRectFrom(NSRect rect, NSRect source, NSCompositingOperation operation, CGFloat fraction) {
    drawIn(rect, source, operation, fraction, false);
  }
  void drawRespectingFlipped(NSRect rect, NSRect source, NSCompositingOperation operation, CGFloat fraction,
                             BOOL respect, NSDictionary) {
    drawIn(rect, source, operation, fraction, respect != 0);
  }
  void drawAtPoint(NSPoint point, NSRect source, NSCompositingOperation operation, CGFloat fraction) {
    const NSSize drawnSize = source.isEmpty() ? size : source.size;
    drawIn({point, drawnSize}, source, operation, fraction, false);
  }
  CGImageRef cgImage(NSRect*, NSGraphicsContext, NSDictionary) {
    const CGImageRef image = makeImage(raster(1));
    return image == nullptr ? nullptr : autoreleasedReference(image);
  }
  NSData tiff();
  id copy(void*);
};

/// The scale that a file's name asks for: "knob@2x.png" holds two pixels a point.
double scaleFromName(std::string_view path) {
  const auto dot = path.rfind('.');
  const std::string_view stem = path.substr(0, dot);
  return stem.ends_with("@2x") ? 2 : stem.ends_with("@3x") ? 3 : 1;
}

id ImageObject::initWithContentsOfFile(NSString path) {
  const auto bytes = call<"dataWithContentsOfFile:", NSData>(classOf<NSData>(), path);
  if (!bytes) return refused();
  if (initWithData(bytes) == nullptr) return nullptr;
  const double scale = scaleFromName(toStdString(path));
  if (scale == 1) return self;
  const auto& rep = reps.front();
  size = {static_cast<double>(rep->pixelsWide()) / scale, static_cast<double>(rep->pixelsHigh()) / scale};
  rep->setSize(size);
  return self;
}

NSData ImageObject::tiff() {
  std::vector<ImageFrame> frames;
  for (const NSImageRep rep : items<NSImageRep>(representations())) {
    if (auto frame = frameOf(rep)) frames.push_back(*std::move(frame));
  }
  return tiffData(frames);
}

NSArray ImageObject::representations() {
  if (reps.empty() && drawn != nullptr) {
    reps.push_back(Ref<NSImageRep>::adopt(makeBitmapRep(*drawn)));
    reps.back()->setSize(size);
  }
  std::vector<id> objects;
  for (const auto& rep : reps) objects.push_back(rep.get().object);
  return NSArray::arrayWithObjects(objects.data(), objects.size());
}

/// Of the representations, the one whose density comes nearest to the scale, a denser one before a coarser.
std::shared_ptr<const Surface> ImageObject::raster(double scale) {
  if (drawn != nullptr) return drawn;
  id best = nullptr;
  double bestDistance = std::numeric_limits<double>::infinity();
  for (const auto& rep : reps) {
    const auto* state = stateIfKind<ImageRepState>(rep);
    if (state == nullptr || state->pixels == nullptr) continue;
    const double density = size.width > 0 ? static_cast<double>(state->pixelsWide) / size.width : 1;
    const double distance = density >= scale ? density - scale : (scale - density) * 1000;
    if (distance < bestDistance) {
      bestDistance = distance;
      best = rep.get().object;
    }
  }
  return best == nullptr ? nullptr : stateOf<ImageRepState>(best).pixels(best);
}

void ImageObject::lockFocus() {
  if (locked) return;
  const auto earlier = raster(1);
  drawn = blank();  // what was taken of an earlier picture stays as it was
  locked = true;
  before = NSGraphicsContext::currentContext();
  const auto context = CFRef<CGContextRef>::adopt(makeContext(drawn));
  if (context && earlier != nullptr) {
    contextState(context).drawSurface({{}, size}, earlier);
  }
  reps.clear();
  NSGraphicsContext::setCurrentContext(NSGraphicsContext::graphicsContextWithCGContext(context, false));
}

void ImageObject::unlockFocus() {
  if (!locked) return;
  locked = false;
  NSGraphicsContext::setCurrentContext(before);
  before = {};
}

void ImageObject::drawIn(NSRect rect, NSRect source, NSCompositingOperation operation, CGFloat fraction, bool upright) {
  Context* context = currentContext();
  if (context == nullptr || rect.isEmpty()) return;
  const auto pixels = raster(std::abs(context->state().ctm.a));
  if (pixels == nullptr) return;
  const SavedState saved(*context);
  context->state().blendMode = blendModeFor(operation);
  context->state().alpha *= clampedUnit(fraction);
  if (upright && NSGraphicsContext::currentContext().isFlipped()) {
    context->concat({1, 0, 0, -1, 0, rect.minY() + rect.maxY()});
  }
  if (source.isEmpty()) return context->drawSurface(rect, pixels);
  const double scaleX = pixels->width() / size.width;
  const double scaleY = pixels->height() / size.height;
  context->drawSurface(rect, pixels,
                       {{source.minX() * scaleX, (size.height - source.maxY()) * scaleY},
                        {source.size.width * scaleX, source.size.height * scaleY}});
}

id ImageObject::copy(void*) {
  const id other = newObject<ImageObject>();
  auto& state = stateOf<ImageObject>(other);
  state.size = size;
  state.reps = reps;
  if (drawn != nullptr) state.drawn = copied(drawn->view(), drawn->view().order);
  state.isTemplate = isTemplate;
  return other;
}

/// Looked for among the main bundle's resources.
NSImage imageNamed(Class cls, NSString name) {
  NSString path = NSBundle::mainBundle().pathForResource(name, literal<"png">());
  if (!path) path = NSBundle::mainBundle().pathForResource(name, {});
  if (!path) return {};
  return autoreleased(Ref<NSImage>::adopt(call<"initWithContentsOfFile:", NSImage>(call<"alloc", id>(cls), path)));
}

}  // namespace

std::shared_ptr<const Surface> contentsPixels(NSObject contents, double scale) {
  if (const auto* image = stateIfKind<ImageState>(contents)) return image->pixels;
  auto* image = stateIfKind<ImageObject>(contents);
  return image == nullptr ? nullptr : image->raster(scale);
}

void registerImages() {
  ClassDefinition<ImageObject>("NSImage", "NSObject")
      .classMethod<"imageNamed:", imageNamed>()
      .method<"initWithSize:", &ImageObject::initWithSize>()
      .method<"initWithCGImage:size:", &ImageObject::initWithImage>()
      .method<"initWithData:", &ImageObject::initWithData>()
      .method<"initWithContentsOfFile:", &ImageObject::initWithContentsOfFile>()
      .property<"size", "setSize:", &ImageObject::size>()
      .property<"name", "setName:", &ImageObject::name>()
      .property<"isTemplate", "setTemplate:", &ImageObject::isTemplate>()
      .method<"isValid", &ImageObject::isValid>()
      .method<"representations", &ImageObject::representations>()
      .method<"addRepresentation:", &ImageObject::addRepresentation>()
      .method<"removeRepresentation:", &ImageObject::removeRepresentation>()
      .method<"lockFocus", &ImageObject::lockFocus>()
      .method<"unlockFocus", &ImageObject::unlockFocus>()
      .method<"drawInRect:", &ImageObject::drawInRect>()
      .method<"drawInRect:fromRect:operation:fraction:", &ImageObject::drawInRectFrom>()
      .method<"drawInRect:fromRect:operation:fraction:respectFlipped:hints:", &ImageObject::drawRespectingFlipped>()
      .method<"drawAtPoint:fromRect:operation:fraction:", &ImageObject::drawAtPoint>()
      .method<"CGImageForProposedRect:context:hints:", &ImageObject::cgImage>()
      .method<"TIFFRepresentation", &ImageObject::tiff>()
      .method<"copyWithZone:", &ImageObject::copy>()
      .registered();
}

}  // namespace standin
