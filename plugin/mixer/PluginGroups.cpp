#include "plugin/mixer/PluginGroups.h"

#include <cstdio>

#include "cocoa/Call.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {

using namespace cocoa;

namespace {

bool isPlugin(NSObject represented) {
  return respondsTo<"type">(represented) && respondsTo<"subType">(represented) &&
         respondsTo<"manufacturer">(represented);
}

}  // namespace

NSString makePluginID(const PluginID& plugin) {
  char text[40];
  std::snprintf(text, sizeof text, "0x%08X:0x%08X:0x%08X", plugin.type, plugin.subtype, plugin.manufacturer);
  return string(text);
}

NSString PluginGroup::image() const {
  const auto image = as<NSString>(entries.objectForKey(literal<"image">()));
  return image.length() > 0 ? image : NSString();
}

NSColor PluginGroup::color(NSString entry) const { return as<NSColor>(entries.objectForKey(entry)); }

NSColor PluginGroup::colorFromString(NSString entry) const {
  return ThemeUtility::shared().fromString(as<NSString>(entries.objectForKey(entry)));
}

PluginGroup groupOf(NSObject represented) {
  const NSDictionary groups = ThemeUtility::shared().pluginGroupsMap;
  if (groups.count() == 0 || !isPlugin(represented)) return {};
  const PluginID plugin{call<"type", std::uint32_t>(represented), call<"subType", std::uint32_t>(represented),
                        call<"manufacturer", std::uint32_t>(represented)};
  return {as<NSDictionary>(groups.objectForKey(makePluginID(plugin)))};
}

}  // namespace velura
