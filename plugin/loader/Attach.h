#pragma once
// One function per category of the plug-in: it adds the category's methods to its class. Each is defined
// in the file that is named after the category.

namespace velura {

void attachMAButtonNodeThemeSupport();
void attachMACapNodeThemeSupport();
void attachMADisplayNodeThemeSupport();
void attachMAEQThumbnailNodeThemeSupport();
void attachMAFaderNodeThemeSupport();
void attachMAGainReductionMeterNodeThemeSupport();
void attachMAImageNodeThemeSupport();
void attachMAKitOutlineViewThemeSupport();
void attachMAKitTabViewThemeSupport();
void attachMAKitTableViewThemeSupport();
void attachMAKitViewThemeSupport();
void attachMAKnobNodeThemeSupport();
void attachMALevelNodeBackgroundTextureCacheThemeSupport();
void attachMALevelNodeTextureCacheThemeSupport();
void attachMALevelNodeThemeSupport();
void attachMALoopBrowserSegmentedTextLabelCellThemeSupport();
void attachMANodeViewThemeSupport();
void attachMAPlanarPannerNodeThemeSupport();
void attachMAPopUpButtonCellThemeSupport();
void attachMAPopUpButtonThemeSupport();
void attachMAScaleNodeThemeSupport();
void attachMAScaleTickThemeSupport();
void attachMAShapeNodeThemeSupport();
void attachMASplitViewThemeSupport();
void attachMAStereoPannerCapNodeThemeSupport();
void attachMAStereoPannerNodeThemeSupport();
void attachMAStereoPannerSpreadNodeThemeSupport();
void attachMAStripNodeThemeSupport();
void attachMASymbolButtonNodeThemeSupport();
void attachMATextFieldCellThemeSupport();
void attachMATextFieldThemeSupport();
void attachMATextNodeThemeSupport();
void attachMAViewThemeSupport();
void attachMixerLegendViewControllerThemeSupport();
void attachMixerLegendViewThemeSupport();
void attachNSButtonCellThemeSupport();
void attachNSButtonThemeSupport();
void attachNSColorThemeSupport();
void attachNSStringCompareToVersion();
void attachNSStringThemeSupport();
void attachNSTableViewThemeSupport();
void attachNSViewControllerThemeSupport();
void attachNSViewThemeSupport();

// The classes that answer the colours of Live Loops.
void attachLiveLoopsGeneralColors();
void attachLiveLoopsGridHeaderColors();
void attachLiveLoopsGridClockColors();
void attachLiveLoopsDividerHeaderAndFooterColors();
void attachLiveLoopsSceneTriggerColors();
void attachLiveLoopsRowTriggerColors();
void attachLiveLoopsRowTriggerColorUtility();

// What other folders add to the plug-in's own class `Utility`.
void attachUtilityRecoloring();
void attachUtilityTrackColorWarning();

}  // namespace velura
