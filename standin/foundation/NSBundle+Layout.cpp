// Bundles in the platform's layout, with everything in a folder "Contents", which Foundation does not know
// here; bundles found again by identifier or by their classes; and a main bundle that a host can describe.

#include <filesystem>
#include <map>

#include "cocoa/Override.h"
#include "standin/foundation/Registration.h"
#include "standin/runtime/Objects.h"
#include "standin/steering/MainBundle.h"

using namespace cocoa;

namespace standin {

namespace {

using BundleWithPath =
    Override<"NSBundle", "bundleWithPath:", NSBundle(NSString), "standinBundleWithPath:", MethodKind::kClass>;
using BundleWithIdentifier = Override<"NSBundle", "bundleWithIdentifier:", NSBundle(NSString),
                                      "standinBundleWithIdentifier:", MethodKind::kClass>;
using BundleForClass =
    Override<"NSBundle", "bundleForClass:", NSBundle(Class), "standinBundleForClass:", MethodKind::kClass>;
using InfoDictionary = Override<"NSBundle", "infoDictionary", NSDictionary(), "standinInfoDictionary">;
using BundleIdentifier = Override<"NSBundle", "bundleIdentifier", NSString(), "standinBundleIdentifier">;
using ResourcePath = Override<"NSBundle", "resourcePath", NSString(), "standinResourcePath">;
using PathForResource =
    Override<"NSBundle", "pathForResource:ofType:", NSString(NSString, NSString), "standinPathForResource:ofType:">;

/// What is known of a bundle that was opened. Bundles are never closed again.
struct Opened {
  Ref<NSBundle> bundle;
  Ref<NSDictionary> info;  // null for a bundle in Foundation's own layout
};
std::map<id, Opened>& opened() {
  static auto* bundles = new std::map<id, Opened>();  // outlives every late release
  return *bundles;
}

Ref<NSDictionary>& mainInfo() {
  static auto* info = new Ref<NSDictionary>();
  return *info;
}

std::filesystem::path contentsOf(NSBundle bundle) {
  return std::filesystem::path(toStdString(call<"bundlePath", NSString>(bundle))) / "Contents";
}

bool isThere(const std::filesystem::path& path) {
  std::error_code ignored;
  return std::filesystem::exists(path, ignored);
}

const Opened& remembered(NSBundle bundle) {
  const auto found = opened().find(bundle.object);
  if (found != opened().end()) return found->second;
  Opened entry{bundle, {}};
  const auto list = contentsOf(bundle) / "Info.plist";
  if (isThere(list)) {
    entry.info = call<"dictionaryWithContentsOfFile:", NSDictionary>(classOf<NSDictionary>(), string(list.string()));
  }
  return opened().emplace(bundle.object, std::move(entry)).first->second;
}

NSBundle bundleWithPath(Class cls, NSString path) {
  const NSBundle bundle = BundleWithPath::callHost(cls, path);
  if (bundle) remembered(bundle);
  return bundle;
}

NSBundle bundleWithIdentifier(Class cls, NSString identifier) {
  for (const auto& [object, entry] : opened()) {
    const NSString own = call<"bundleIdentifier", NSString>(object);
    if (own && own.isEqual(identifier)) return entry.bundle;
  }
  return BundleWithIdentifier::callHost(cls, identifier);
}

/// Classes that a program makes at run time, and the bundles that they are said to come from.
std::map<Class, Ref<NSBundle>>& homes() {
  static auto* bundles = new std::map<Class, Ref<NSBundle>>();  // outlives every late release
  return *bundles;
}

NSBundle bundleForClass(Class cls, Class asked) {
  const auto found = homes().find(asked);
  return found == homes().end() ? BundleForClass::callHost(cls, asked) : found->second.get();
}

NSDictionary infoDictionary(NSBundle self) {
  if (mainInfo() && self == NSBundle::mainBundle()) return mainInfo();
  if (const Ref<NSDictionary>& info = remembered(self).info) return info;
  return InfoDictionary::callHost(self);
}

NSString bundleIdentifier(NSBundle self) {
  const auto own = as<NSString>(self.infoDictionary().objectForKey(literal<"CFBundleIdentifier">()));
  return own ? own : BundleIdentifier::callHost(self);
}

NSString resourcePath(NSBundle self) {
  const auto folder = contentsOf(self) / "Resources";
  return isThere(folder) ? string(folder.string()) : ResourcePath::callHost(self);
}

NSString pathForResource(NSBundle self, NSString name, NSString type) {
  const std::string extension = toStdString(type);
  const std::string file = toStdString(name) + (extension.empty() ? "" : "." + extension);
  const auto path = contentsOf(self) / "Resources" / file;
  return !file.empty() && isThere(path) ? string(path.string()) : PathForResource::callHost(self, name, type);
}

}  // namespace

void setMainBundleInfo(NSDictionary info) { mainInfo() = info; }

void setBundleOfClass(Class cls, NSBundle bundle) { homes()[cls] = bundle; }

void registerBundles() {
  CategoryDefinition("NSBundle")
      .replacement<BundleWithPath, bundleWithPath>()
      .replacement<BundleWithIdentifier, bundleWithIdentifier>()
      .replacement<BundleForClass, bundleForClass>()
      .replacement<InfoDictionary, infoDictionary>()
      .replacement<BundleIdentifier, bundleIdentifier>()
      .replacement<ResourcePath, resourcePath>()
      .replacement<PathForResource, pathForResource>();
  BundleWithPath::install();
  BundleWithIdentifier::install();
  BundleForClass::install();
  InfoDictionary::install();
  BundleIdentifier::install();
  ResourcePath::install();
  PathForResource::install();
}

}  // namespace standin
