#include "plugin/imaging/MyNSBitmapImageRep.h"

namespace velura {

using namespace cocoa;

namespace {

constexpr FixedString kInitWithPlanes{
    "initWithBitmapDataPlanes:pixelsWide:pixelsHigh:bitsPerSample:samplesPerPixel:hasAlpha:isPlanar:"
    "colorSpaceName:bytesPerRow:bitsPerPixel:"};

id allocated() { return call<"alloc", id>(DefinedClass<MyNSBitmapImageRep>::cls); }

}  // namespace

Ref<NSBitmapImageRep> MyNSBitmapImageRep::withCGImage(CGImageRef image) {
  return Ref<NSBitmapImageRep>::adopt(call<"initWithCGImage:", NSBitmapImageRep>(allocated(), image));
}

Ref<NSBitmapImageRep> MyNSBitmapImageRep::withSize(NSInteger width, NSInteger height) {
  constexpr NSInteger kBitsPerSample = 8;
  constexpr NSInteger kSamples = 4;
  constexpr NSInteger kAsTheSystemLikes = 0;
  constexpr unsigned char** kOwnMemory = nullptr;
  return Ref<NSBitmapImageRep>::adopt(call<kInitWithPlanes, NSBitmapImageRep>(
      allocated(), kOwnMemory, width, height, kBitsPerSample, kSamples, BOOL(1), BOOL(0), NSCalibratedRGBColorSpace,
      kAsTheSystemLikes, kAsTheSystemLikes));
}

id MyNSBitmapImageRep::initWithCGImage(CGImageRef image) {
  savedColorSpaceName = {};
  return superSend<MyNSBitmapImageRep, id>(self, selector<"initWithCGImage:">(), image);
}

id MyNSBitmapImageRep::initWithPlanes(unsigned char** planes, NSInteger width, NSInteger height,
                                      NSInteger bitsPerSample, NSInteger samplesPerPixel, BOOL hasAlpha, BOOL isPlanar,
                                      NSString space, NSInteger bytesPerRow, NSInteger bitsPerPixel) {
  savedColorSpaceName = {};
  return superSend<MyNSBitmapImageRep, id>(self, selector<kInitWithPlanes>(), planes, width, height, bitsPerSample,
                                           samplesPerPixel, hasAlpha, isPlanar, space, bytesPerRow, bitsPerPixel);
}

NSString MyNSBitmapImageRep::colorSpaceName() {
  if (!savedColorSpaceName) {
    savedColorSpaceName = superSend<MyNSBitmapImageRep, NSString>(self, selector<"colorSpaceName">());
  }
  return savedColorSpaceName;
}

void defineMyNSBitmapImageRep() {
  if (DefinedClass<MyNSBitmapImageRep>::cls != nullptr) return;
  ClassDefinition<MyNSBitmapImageRep>("MyNSBitmapImageRep", "NSBitmapImageRep")
      .method<"initWithCGImage:", &MyNSBitmapImageRep::initWithCGImage>()
      .method<kInitWithPlanes, &MyNSBitmapImageRep::initWithPlanes>()
      .method<"colorSpaceName", &MyNSBitmapImageRep::colorSpaceName>()
      .property<"savedColorSpaceName", "setSavedColorSpaceName:", &MyNSBitmapImageRep::savedColorSpaceName>()
      .registered();
}

}  // namespace velura
