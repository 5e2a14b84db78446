// The host's scale pictures, recoloured to the theme: white marks and numbers beside a fader.

#include <array>
#include <string_view>

#include "cocoa/Association.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/imaging/RectToSourceColorData.h"
#include "plugin/imaging/Utility+Recoloring.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

/// A rule over the part of the picture between two columns, in percent of its width.
struct ScaleRule {
  std::string_view scale;
  std::size_t fromPercent;
  std::size_t toPercent;
  double sourceAlpha;  // of white
  ThemeKey normal;
  ThemeKey highlighted;
  double ignoreAlpha;
  bool compareAlpha;
};
constexpr ScaleRule kScaleRules[] = {
    {"volumeScale", 0, 100, 1, key<"scale0DBTickMarkColor">, key<"scale0DBTickMarkHighlightColor">, 1, true},
    {"volumeScale", 0, 100, 0.4, key<"scaleTickMarkColor">, key<"scaleTickMarkHighlightColor">, 0.4, false},
    {"levelScale", 0, 80, 0.4, key<"scaleNumberColor">, key<"scaleNumberHighlightColor">, 0.4, false},
    {"levelScale", 80, 100, 0.4, key<"scaleTickMarkColor">, key<"scaleTickMarkHighlightColor">, 0.4, false},
};

/// From the identity of a picture to an array of its normal and its highlighted version. Never emptied.
struct ScaleImages {
  Ref<NSMutableDictionary> byPicture = make<NSMutableDictionary>();
};

CGRect rectOf(const ScaleRule& rule, CGImageRef image) {
  constexpr std::size_t kWhole = 100;
  const std::size_t width = CGImageGetWidth(image);
  const std::size_t left = width * rule.fromPercent / kWhole;
  const std::size_t right = width * rule.toPercent / kWhole;
  return CGRectMake(static_cast<double>(left), 0, static_cast<double>(right - left),
                    static_cast<double>(CGImageGetHeight(image)));
}

/// Empty for a node that is no scale.
NSMutableArray rulesFor(std::string_view name, CGImageRef image, ThemeKey ScaleRule::*suggestion) {
  const NSMutableArray rules = NSMutableArray::array();
  for (const ScaleRule& rule : kScaleRules) {
    if (rule.scale != name) continue;
    const NSColor white = NSColor::colorWithDeviceRed(1, 1, 1, rule.sourceAlpha);
    const NSColor suggested = ThemeUtility::shared().colorForKey(rule.*suggestion);
    rules.addObject(
        RectToSourceColorData::make(rectOf(rule, image), white, suggested, rule.ignoreAlpha, rule.compareAlpha));
  }
  return rules;
}

/// The picture's versions, normal first; fewer than two where recolouring fails. nil for another node.
NSArray recolored(std::string_view name, CGImageRef image) {
  const NSMutableArray normalRules = rulesFor(name, image, &ScaleRule::normal);
  if (normalRules.count() == 0) return {};
  const NSMutableArray versions = NSMutableArray::array();
  const auto normal = CFRef<CGImageRef>::adopt(applyTransformation(image, normalRules));
  if (!normal) return versions;
  versions.addObject(bridged(normal.get()));
  const auto highlighted =
      CFRef<CGImageRef>::adopt(applyTransformation(image, rulesFor(name, image, &ScaleRule::highlighted)));
  if (highlighted) versions.addObject(bridged(highlighted.get()));
  return versions;
}

/// The versions of a picture. The node may show one of them already: they are known as well.
NSArray cachedVersions(std::string_view name, CGImageRef image) {
  static const char kOriginal = 0;
  const NSMutableDictionary cache = ThemeUtility::shared().derived<ScaleImages>().byPicture;
  const NSValue key = NSValue::valueWithPointer(image);
  if (const auto known = cast<NSArray>(cache.objectForKey(key))) return known;
  const NSArray versions = recolored(name, image);
  if (!versions) return {};
  cache.setObject(versions, key);
  for (const NSObject version : items(versions)) cache.setObject(versions, NSValue::valueWithPointer(version.object));
  // The picture stays, so that no other one takes its place in memory and its entry with it.
  associate(versions, &kOriginal, bridged(image));
  return versions;
}

struct UpdatePresentationObject
    : HostOverride<"MAGUI.MADynamicScaleNode", "updatePresentationObject:view:", void(NSObject, NSObject)> {
  static constexpr OpenWindow kOpenWindow =
      notReached(kPassedOver, "MAGUI.MADynamicScaleNode levelScale, MAGUI.MADynamicScaleNode volumeScale");

  static void themed(MAImageNode node, NSObject presentation, NSObject view) {
    if (const auto image = bridged<CGImageRef>(node.contents())) {
      const NSArray versions = cachedVersions(toStdString(node.name()), image);
      const std::size_t wanted = node.isHighlighted() && versions.count() > 1 ? 1 : 0;
      if (wanted < versions.count()) node.setContents(versions.objectAtIndex(wanted));
    }
    callHost(node, presentation, view);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAImageNode =
    OverridesOf<"MAImageNode",
                UpdatePresentationObject>::themedClass<InstallationRules{.repetition = Repetition::kEveryTime}>();
}  // namespace overrides

}  // namespace velura
