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
    {"MATextField", attachMATextFieldThemeSupport},
    {"MANodeView", attachMANodeViewThemeSupport},
    {"MASymbolButtonNode", attachMASymbolButtonNodeThemeSupport},
    {"NSColor", attachNSColorThemeSupport},
    {"MAKitTableView", attachMAKitTableViewThemeSupport},
    {"MAKitTabView", attachMAKitTabViewThemeSupport},
    {"MAKitOutlineView", attachMAKitOutlineViewThemeSupport},
    {"NSButtonCell", attachNSButtonCellThemeSupport},
    {"NSButton", attachNSButtonThemeSupport},
    {"MASplitView", attachMASplitViewThemeSupport},
    {"NSTableView", attachNSTableViewThemeSupport},
    {"MAPopUpButton", attachMAPopUpButtonThemeSupport},
    {"MALoopBrowserSegmentedTextLabelCell", attachMALoopBrowserSegmentedTextLabelCellThemeSupport},
    {"MAGainReductionMeterNode", attachMAGainReductionMeterNodeThemeSupport},
    {"MALevelNodeBackgroundTextureCache", attachMALevelNodeBackgroundTextureCacheThemeSupport},
    {"MALevelNode", attachMALevelNodeThemeSupport},
    {"MALevelNodeTextureCache", attachMALevelNodeTextureCacheThemeSupport},
    {"LiveLoopsGridHeaderColors", attachLiveLoopsGridHeaderColors},
    {"LiveLoopsGeneralColors", attachLiveLoopsGeneralColors},
    {"LiveLoopsGridClockColors", attachLiveLoopsGridClockColors},
    {"LiveLoopsDividerHeaderAndFooterColors", attachLiveLoopsDividerHeaderAndFooterColors},
    {"LiveLoopsSceneTriggerColors", attachLiveLoopsSceneTriggerColors},
    {"LiveLoopsRowTriggerColors", attachLiveLoopsRowTriggerColors},
    {"LiveLoopsRowTriggerColorUtility", attachLiveLoopsRowTriggerColorUtility},
    {"MixerLegendView", attachMixerLegendViewThemeSupport},
    {"NSView", attachNSViewThemeSupport},
    {"MAShapeNode", attachMAShapeNodeThemeSupport},
    {"MATextFieldCell", attachMATextFieldCellThemeSupport},
    {"NSViewController", attachNSViewControllerThemeSupport},
    {"MAKitView", attachMAKitViewThemeSupport},
    {"MAPopUpButtonCell", attachMAPopUpButtonCellThemeSupport},
    {"MAFaderNode", attachMAFaderNodeThemeSupport},
    {"MixerLegendViewController", attachMixerLegendViewControllerThemeSupport},
};
static_assert(std::size(kThemedClasses) == 47, "start-up themes 47 classes");

constexpr ThemedClass kImageNode{"MAImageNode", attachMAImageNodeThemeSupport};
constexpr ThemedClass kString{"NSString", attachNSStringThemeSupport};

/// What was attached when the bundle was loaded: a class that the host brings along later has no category.
std::array<const ThemedClass*, std::size(kThemedClasses) + 2> attachedClasses{};

void attach(const ThemedClass& themed, const ThemedClass*& slot) {
  if (cocoa::classNamed(themed.name) == nullptr) return;
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
