#include "plugin/theme/ThemeFiles.h"

#include "plugin/files/AtomicWrite.h"
#include "plugin/hostapi/Identifiers.h"
#include "plugin/language/ThemeKeys.h"
#include "plugin/plist/PropertyListReader.h"
#include "plugin/text/StringBytes.h"

namespace velura {

using namespace cocoa;

namespace {

/// "" when the user has no Application Support folder.
std::string settingsPath() {
  const std::string support = applicationSupportFolder();
  return support.empty() ? support : support + "/Velura/PluginHelper.plist";
}

std::string referencePath() {
  const NSBundle companion = NSBundle::bundleWithIdentifier(literal<kCompanionIdentifier>());
  return utf8Bytes(companion.pathForResource(literal<"PluginHelper">(), literal<"plist">()));
}

Ref<NSDictionary> readDictionary(const std::string& path) {
  const Ref<NSObject> list = readPropertyList(path.c_str());
  return as<NSDictionary>(list);
}

bool isKept(NSString key) {
  const auto known = keyNamed(utf8Bytes(key));
  return known && rowOf(*known).kept == Kept::kYes;
}

/// Equal character by character: `isEqualToString:` may take two spellings of an accented letter for one.
bool areSameString(NSObject a, NSObject b) {
  constexpr NSUInteger kLiteralSearch = 2;
  const auto first = as<NSString>(a);
  const auto second = as<NSString>(b);
  return first && second && first.length() == second.length() &&
         send<NSInteger>(first.object, selector<"compare:options:">(), second, kLiteralSearch) == 0;
}

}  // namespace

Ref<NSDictionary> readReferenceTheme() { return readDictionary(referencePath()); }

NSMutableDictionary loadThemeSettings() {
  const Ref<NSDictionary> settings = readDictionary(settingsPath());
  if (!settings) return {};
  const NSMutableDictionary theme = NSMutableDictionary::dictionaryWithDictionary(settings);
  removeUnchangedColors(theme);
  return theme;
}

void removeUnchangedColors(NSMutableDictionary theme) {
  const Ref<NSDictionary> reference = readReferenceTheme();
  for (const NSString key : items<NSString>(reference->allKeys())) {
    if (areSameString(reference->objectForKey(key), theme.objectForKey(key)) && !isKept(key)) {
      theme.removeObjectForKey(key);
    }
  }
}

}  // namespace velura
