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
void attachMAKnobNodeThemeSupport();
void attachMALevelNodeBackgroundTextureCacheThemeSupport();
void attachMALevelNodeTextureCacheThemeSupport();
void attachMALevelNodeThemeSupport();
void attachMAPlanarPannerNodeThemeSupport();
void attachMAScaleNodeThemeSupport();
void attachMAScaleTickThemeSupport();
void attachMAShapeNodeThemeSupport();
void attachMAStereoPannerCapNodeThemeSupport();
void attachMAStereoPannerNodeThemeSupport();
void attachMAStereoPannerSpreadNodeThemeSupport();
void attachMAStripNodeThemeSupport();
void attachMASymbolButtonNodeThemeSupport();
void attachMATextNodeThemeSupport();
void attachMAViewThemeSupport();
void attachNSColorThemeSupport();
void attachNSStringCompareToVersion();
void attachNSStringThemeSupport();

// What other folders add to the plug-in's own class `Utility`.
void attachUtilityRecolouring();
void attachUtilityTrackColourWarning();

}  // namespace velura
