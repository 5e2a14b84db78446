// Images among a bundle's resources.

#include <string>

#include "cocoa/AppKit.h"
#include "standin/images/Registration.h"
#include "standin/runtime/Objects.h"

using namespace cocoa;

namespace standin {

namespace {

constexpr const char* kExtensions[] = {"png", "tiff", "tif"};

Ref<NSImage> imageAt(NSBundle bundle, const std::string& stem, const std::string& extension) {
  const NSString path = bundle.pathForResource(string(stem), string(extension));
  return path ? NSImage::withContentsOfFile(path) : Ref<NSImage>();
}

/// The file and its sibling of twice the density, whichever is there.
Ref<NSImage> imageWithSibling(NSBundle bundle, const std::string& stem, const std::string& extension) {
  Ref<NSImage> image = imageAt(bundle, stem, extension);
  const Ref<NSImage> dense = imageAt(bundle, stem + "@2x", extension);
  if (!image || !dense) return image ? image : dense;
  for (const NSImageRep rep : items<NSImageRep>(dense->representations())) image->addRepresentation(rep);
  return image;
}

NSImage imageForResource(NSBundle self, NSString name) {
  const std::string wanted = toStdString(name);
  if (wanted.empty()) return {};
  const auto dot = wanted.rfind('.');
  if (dot != std::string::npos) {
    const auto image = imageWithSibling(self, wanted.substr(0, dot), wanted.substr(dot + 1));
    if (image) return autoreleased(image);
  }
  for (const char* extension : kExtensions) {
    const auto image = imageWithSibling(self, wanted, extension);
    if (image) return autoreleased(image);
  }
  return {};
}

}  // namespace

void registerBundleImages() { CategoryDefinition("NSBundle").method<"imageForResource:", imageForResource>(); }

}  // namespace standin
