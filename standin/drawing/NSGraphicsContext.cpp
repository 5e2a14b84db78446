#include <vector>

#include "standin/drawing/Context.h"
#include "standin/drawing/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

/// State of an NSGraphicsContext.
struct Graphics : ObjectState {
  CFRef<CGContextRef> context;
  Ref<NSObject> keeps;  // the bitmap whose memory is drawn into
  bool flipped = false;

  CGContextRef cgContext() { return context; }
  void save() { CGContextSaveGState(context); }
  void restore() { CGContextRestoreGState(context); }
  void flush() { CGContextFlush(context); }
  void setShouldAntialias(BOOL antialias) { CGContextSetShouldAntialias(context, antialias != 0); }
  void setCompositingOperation(NSCompositingOperation operation) {
    CGContextSetBlendMode(context, blendModeFor(operation));
  }
  void setImageInterpolation(NSImageInterpolation interpolation) {
    CGContextSetInterpolationQuality(context, static_cast<CGInterpolationQuality>(interpolation));
  }
};

Ref<NSGraphicsContext>& current() {
  static auto* context = new Ref<NSGraphicsContext>();  // outlives every late release
  return *context;
}
std::vector<Ref<NSGraphicsContext>>& savedContexts() {
  static auto* saved = new std::vector<Ref<NSGraphicsContext>>();
  return *saved;
}

NSGraphicsContext currentGraphics(Class) { return current(); }
void setCurrentGraphics(Class, NSGraphicsContext context) { current() = context; }

void saveGraphicsState(Class) {
  savedContexts().push_back(current());
  current()->saveState();
}
void restoreGraphicsState(Class) {
  if (savedContexts().empty()) return;
  current() = std::move(savedContexts().back());
  savedContexts().pop_back();
  current()->restoreState();
}

NSGraphicsContext withCGContext(Class, CGContextRef context, BOOL flipped) {
  return graphicsContext(context, flipped != 0);
}

}  // namespace

Context* currentContext() {
  const NSGraphicsContext graphics = current();
  const CGContextRef context = graphics ? stateOf<Graphics>(graphics).context.get() : nullptr;
  return context == nullptr ? nullptr : &contextState(context);
}

NSGraphicsContext graphicsContext(CGContextRef context, bool flipped, NSObject keeps) {
  if (context == nullptr) return {};
  const id made = newObject<Graphics>();
  auto& graphics = stateOf<Graphics>(made);
  graphics.context = context;
  graphics.flipped = flipped;
  graphics.keeps = keeps;
  return autoreleased(Ref<NSGraphicsContext>::adopt(NSGraphicsContext(made)));
}

CGBlendMode blendModeFor(NSCompositingOperation operation) {
  struct Pair {
    NSCompositingOperation operation;
    CGBlendMode mode;
  };
  constexpr Pair kPairs[] = {
      {NSCompositingOperationClear, kCGBlendModeClear},
      {NSCompositingOperationCopy, kCGBlendModeCopy},
      {NSCompositingOperationSourceOver, kCGBlendModeNormal},
      {NSCompositingOperationSourceIn, kCGBlendModeSourceIn},
      {NSCompositingOperationSourceOut, kCGBlendModeSourceOut},
      {NSCompositingOperationSourceAtop, kCGBlendModeSourceAtop},
      {NSCompositingOperationDestinationOver, kCGBlendModeDestinationOver},
      {NSCompositingOperationDestinationIn, kCGBlendModeDestinationIn},
      {NSCompositingOperationDestinationOut, kCGBlendModeDestinationOut},
      {NSCompositingOperationDestinationAtop, kCGBlendModeDestinationAtop},
      {NSCompositingOperationXOR, kCGBlendModeXOR},
      {NSCompositingOperationPlusDarker, kCGBlendModePlusDarker},
      {NSCompositingOperationPlusLighter, kCGBlendModePlusLighter},
      {NSCompositingOperationMultiply, kCGBlendModeMultiply},
      {NSCompositingOperationScreen, kCGBlendModeScreen},
  };
  for (const Pair& pair : kPairs) {
    if (pair.operation == operation) return pair.mode;
  }
  return kCGBlendModeNormal;
}

void registerGraphicsContexts() {
  ClassDefinition<Graphics>("NSGraphicsContext", "NSObject")
      .classMethod<"currentContext", currentGraphics>()
      .classMethod<"setCurrentContext:", setCurrentGraphics>()
      .classMethod<"saveGraphicsState", saveGraphicsState>()
      .classMethod<"restoreGraphicsState", restoreGraphicsState>()
      .classMethod<"graphicsContextWithCGContext:flipped:", withCGContext>()
      .method<"CGContext", &Graphics::cgContext>()
      .getter<"isFlipped", &Graphics::flipped>()
      .method<"saveGraphicsState", &Graphics::save>()
      .method<"restoreGraphicsState", &Graphics::restore>()
      .method<"flushGraphics", &Graphics::flush>()
      .method<"setShouldAntialias:", &Graphics::setShouldAntialias>()
      .method<"setCompositingOperation:", &Graphics::setCompositingOperation>()
      .method<"setImageInterpolation:", &Graphics::setImageInterpolation>()
      .registered();
}

}  // namespace standin
