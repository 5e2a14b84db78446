#include "plugin/loader/ThemedClasses.h"

#include <algorithm>
#include <array>

#include "cocoa/Call.h"
#include "plugin/theme/SelectedTheme.h"

namespace velura {

// Each is defined in the file of the class.
namespace overrides {
extern const ThemedClass MAView, MATextNode, MAScaleNode, MAStripNode, MAScaleTick, MAButtonNode, MAPlanarPannerNode,
    MADisplayNode, _MAStereoPannerSpreadNode, MAEQThumbnailNode, MAKnobNode, MAStereoPannerNode, _MAStereoPannerCapNode,
    _MACapNode, MATextField, MANodeView, MASymbolButtonNode, NSColor, MAKitTableView, MAKitTabView, MAKitOutlineView,
    NSButtonCell, NSButton, MASplitView, NSTableView, MAPopUpButton, MALoopBrowserSegmentedTextLabelCell,
    MAGainReductionMeterNode, MALevelNodeBackgroundTextureCache, MALevelNode, MALevelNodeTextureCache,
    LiveLoopsGridHeaderColors, LiveLoopsGeneralColors, LiveLoopsGridClockColors, LiveLoopsDividerHeaderAndFooterColors,
    LiveLoopsSceneTriggerColors, LiveLoopsRowTriggerColors, LiveLoopsRowTriggerColorUtility, MixerLegendView, NSView,
    MAShapeNode, MATextFieldCell, NSViewController, MAKitView, MAPopUpButtonCell, MAFaderNode,
    MixerLegendViewController, MAImageNode, NSString;
}  // namespace overrides

namespace {

using namespace cocoa;

/// A class, and when start-up sends it `addSwizzleMethod`.
struct StartUpRow {
  const ThemedClass* themed;
  Condition when = Condition::kAlways;
};

/// In the order in which start-up goes through them.
constexpr StartUpRow kStartUp[] = {
    {&overrides::NSString, Condition::kArrangeTrackColors},
    {&overrides::MAView},
    {&overrides::MATextNode},
    {&overrides::MAScaleNode},
    {&overrides::MAStripNode},
    {&overrides::MAScaleTick},
    {&overrides::MAButtonNode},
    {&overrides::MAPlanarPannerNode},
    {&overrides::MADisplayNode},
    {&overrides::_MAStereoPannerSpreadNode},
    {&overrides::MAEQThumbnailNode},
    {&overrides::MAKnobNode},
    {&overrides::MAStereoPannerNode},
    {&overrides::_MAStereoPannerCapNode},
    {&overrides::_MACapNode},
    {&overrides::MATextField},
    {&overrides::MANodeView},
    {&overrides::MASymbolButtonNode},
    {&overrides::NSColor},
    {&overrides::MAKitTableView},
    {&overrides::MAKitTabView},
    {&overrides::MAKitOutlineView},
    {&overrides::NSButtonCell},
    {&overrides::NSButton},
    {&overrides::MASplitView},
    {&overrides::NSTableView},
    {&overrides::MAPopUpButton},
    {&overrides::MALoopBrowserSegmentedTextLabelCell},
    {&overrides::MAGainReductionMeterNode},
    {&overrides::MALevelNodeBackgroundTextureCache},
    {&overrides::MALevelNode},
    {&overrides::MALevelNodeTextureCache},
    {&overrides::LiveLoopsGridHeaderColors},
    {&overrides::LiveLoopsGeneralColors},
    {&overrides::LiveLoopsGridClockColors},
    {&overrides::LiveLoopsDividerHeaderAndFooterColors},
    {&overrides::LiveLoopsSceneTriggerColors},
    {&overrides::LiveLoopsRowTriggerColors},
    {&overrides::LiveLoopsRowTriggerColorUtility},
    {&overrides::MixerLegendView},
    {&overrides::NSView},
    {&overrides::MAShapeNode},
    {&overrides::MATextFieldCell},
    {&overrides::NSViewController},
    {&overrides::MAKitView},
    {&overrides::MAPopUpButtonCell},
    {&overrides::MAFaderNode},
    {&overrides::MixerLegendViewController},
    {&overrides::MAImageNode, Condition::kSinceHost11_2},
};
static_assert(std::size(kStartUp) == 49, "47 classes always, and two on a condition");

/// Which rows were attached when the bundle was loaded: a class that the host brings along later has no category.
std::array<bool, std::size(kStartUp)> attached{};

/// Why an override that was never tried was not.
Outcome outcomeOfUntried(const StartUpRow& row, bool isAttached) {
  if (!isAttached) return Outcome::kNoClass;
  return VLRIsCustomThemeSelected() && !holds(row.when) ? outcomeWithout(row.when) : Outcome::kNotUnderThisTheme;
}

}  // namespace

void attachCategories() {
  std::ranges::transform(kStartUp, attached.begin(), [](const StartUpRow& row) {
    const bool isThere = classNamed(row.themed->name) != nullptr;
    if (isThere) row.themed->attach();
    return isThere;
  });
}

void installThemedClasses() {
  for (std::size_t i = 0; i < attached.size(); ++i) {
    const auto& [themed, when] = kStartUp[i];
    // The message itself cannot be asked for, since a subclass inherits it.
    if (attached[i] && holds(when)) call<"addSwizzleMethod">(classNamed(themed->name));
  }
}

std::vector<OverrideState> overrideStates() {
  std::vector<OverrideState> states;
  for (std::size_t i = 0; i < attached.size(); ++i) {
    for (const OverrideRow& row : kStartUp[i].themed->overrides) {
      const bool isUntried = *row.outcome == Outcome::kNotUnderThisTheme;
      states.push_back({&row, isUntried ? outcomeOfUntried(kStartUp[i], attached[i]) : *row.outcome});
    }
  }
  return states;
}

}  // namespace velura
