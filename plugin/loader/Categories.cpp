#include "plugin/loader/Categories.h"

#include <algorithm>
#include <array>

#include "cocoa/Selector.h"
#include "plugin/loader/Attach.h"

namespace velura {
namespace {

constexpr ThemedClass kThemedClasses[] = {
    {"MAView", attachMAViewThemeSupport},
    {"MATextNode", attachMATextNodeThemeSupport},
    {"MAScaleNode", attachMAScaleNodeThemeSupport},
    {"MAStripNode", attachMAStripNodeThemeSupport},
    {"MAScaleTick", attachMAScaleTickThemeSupport},
    {"MAButtonNode", attachMAButtonNodeThemeSupport},
    {"MAPlanarPannerNode", attachMAPlanarPannerNodeThemeSupport},
    {"MADisplayNode", attachMADisplayNodeThemeSupport},
    {"_MAStereoPannerSpreadNode", attachMAStereoPannerSpreadNodeThemeSupport},
    {"MAEQThumbnailNode", attachMAEQThumbnailNodeThemeSupport},
    {"MAKnobNode", attachMAKnobNodeThemeSupport},
    {"MAStereoPannerNode", attachMAStereoPannerNodeThemeSupport},
    {"_MAStereoPannerCapNode", attachMAStereoPannerCapNodeThemeSupport},
    {"_MACapNode", attachMACapNodeThemeSupport},
    {"MATextField", nullptr},
    {"MANodeView", nullptr},
    {"MASymbolButtonNode", attachMASymbolButtonNodeThemeSupport},
    {"NSColor", attachNSColorThemeSupport},
    {"MAKitTableView", nullptr},
    {"MAKitTabView", nullptr},
    {"MAKitOutlineView", nullptr},
    {"NSButtonCell", nullptr},
    {"NSButton", nullptr},
    {"MASplitView", nullptr},
    {"NSTableView", nullptr},
    {"MAPopUpButton", nullptr},
    {"MALoopBrowserSegmentedTextLabelCell", nullptr},
    {"MAGainReductionMeterNode", attachMAGainReductionMeterNodeThemeSupport},
    {"MALevelNodeBackgroundTextureCache", attachMALevelNodeBackgroundTextureCacheThemeSupport},
    {"MALevelNode", attachMALevelNodeThemeSupport},
    {"MALevelNodeTextureCache", attachMALevelNodeTextureCacheThemeSupport},
    {"LiveLoopsGridHeaderColors", nullptr},
    {"LiveLoopsGeneralColors", nullptr},
    {"LiveLoopsGridClockColors", nullptr},
    {"LiveLoopsDividerHeaderAndFooterColors", nullptr},
    {"LiveLoopsSceneTriggerColors", nullptr},
    {"LiveLoopsRowTriggerColors", nullptr},
    {"LiveLoopsRowTriggerColorUtility", nullptr},
    {"MixerLegendView", nullptr},
    {"NSView", nullptr},
    {"MAShapeNode", attachMAShapeNodeThemeSupport},
    {"MATextFieldCell", nullptr},
    {"NSViewController", nullptr},
    {"MAKitView", nullptr},
    {"MAPopUpButtonCell", nullptr},
    {"MAFaderNode", attachMAFaderNodeThemeSupport},
    {"MixerLegendViewController", nullptr},
};
static_assert(std::size(kThemedClasses) == 47, "start-up themes 47 classes");

constexpr ThemedClass kImageNode{"MAImageNode", attachMAImageNodeThemeSupport};
constexpr ThemedClass kString{"NSString", attachNSStringThemeSupport};

/// What was attached when the bundle was loaded: a class that the host brings along later has no category.
std::array<const ThemedClass*, std::size(kThemedClasses) + 2> attachedClasses{};

void attach(const ThemedClass& themed, const ThemedClass*& slot) {
  if (themed.attach == nullptr || cocoa::classNamed(themed.name) == nullptr) return;
  themed.attach();
  slot = &themed;
}

}  // namespace

std::span<const ThemedClass> themedClasses() { return kThemedClasses; }
const ThemedClass& themedImageNode() { return kImageNode; }
const ThemedClass& themedString() { return kString; }

void attachCategories() {
  auto* slot = attachedClasses.begin();
  for (const ThemedClass& themed : kThemedClasses) attach(themed, *slot++);
  attach(kImageNode, *slot++);
  attach(kString, *slot);
}

bool isAttached(const ThemedClass& themed) {
  return std::find(attachedClasses.begin(), attachedClasses.end(), &themed) != attachedClasses.end();
}

}  // namespace velura
