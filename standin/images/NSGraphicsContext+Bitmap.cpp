#include "cocoa/AppKit.h"
#include "standin/drawing/Context.h"
#include "standin/images/BitmapImageRep.h"
#include "standin/images/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

NSGraphicsContext withBitmap(Class, NSBitmapImageRep rep) {
  const auto context = CFRef<CGContextRef>::adopt(makeBitmapContext(rep));
  return graphicsContext(context, false, NSObject(rep.object));
}

}  // namespace

void registerBitmapContexts() {
  CategoryDefinition("NSGraphicsContext").classMethod<"graphicsContextWithBitmapImageRep:", withBitmap>();
}

}  // namespace standin
