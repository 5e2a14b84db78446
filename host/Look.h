#pragma once
// The host's own look: one table of named colours.

#include <cstddef>

#include "cocoa/AppKit.h"

namespace host {

/// Each colour is k/255 per component and n/100 in alpha, as the platform's colour panel would give it. Titles
/// and glyphs without a colour of their own are greys: of one component and alpha.
enum class Look : std::size_t {
  kMixerBackground,
  kToolbarBackground,
  kToolbarEdge,
  kToolbarText,
  kToolbarActive,
  kStripBackground,
  kStripHighlight,
  kFolderBackground,
  kFolderHighlight,
  kAuxBackground,
  kAuxHighlight,
  kStripBorder,
  kEmptySlot,
  kEmptySlotSelected,
  kEmptySlotTitle,
  kButtonTop,
  kButtonBottom,
  kButtonEdge,
  kTitleOn,
  kTitleOff,
  kTitleLowLatency,
  kTitleDimmed,
  kAutomationRead,
  kAutomationTouch,
  kAutomationLatch,
  kAutomationWrite,
  kGroupText,
  kDisplayBackground,
  kDisplayText,
  kPeakNormal,
  kPeakWarning,
  kPeakMaximum,
  kKnobRing,
  kKnobArc,
  kKnobFace,
  kKnobEdge,
  kKnobPointer,
  kSendArc,
  kSendPostPanArc,
  kSendBypassedArc,
  kInputGainArc,
  kSpreadArc,
  kSpreadInverseArc,
  kSurroundBackground,
  kSurroundGrid,
  kSurroundSpread,
  kSurroundBorder,
  kFaderTrack,
  kFaderTop,
  kFaderBottom,
  kFaderEdge,
  kFaderLine,
  kFaderGroupLine,
  kMeterBackground,
  kGainReductionOff,
  kGainReduction,
  kScaleTick,
  kScaleNumber,
  kScaleZero,
  kSymbolOff,
  kSymbolText,
  kSymbolTextOn,
  kMuteOn,
  kSoloOn,
  kRecordOn,
  kMonitorOn,
  kEqualizerBackground,
  kEqualizerGrid,
  kEqualizerCurve,
  kEqualizerTitle,
  kNameText,
  kNameTextOnColour,
  kNumberText,
  kLabelText,
  kReadoutText,
  kNotesText,
  kIcon,
  kIconBackground,
  kLibraryIndicator,
  kRowHeaderBackground,
  kRowHeaderText,
  kStepOff,
  kStepOn,
  kStepAccent,
  kArrangeWorkspace,
  kArrangeWorkspaceBright,
  kArrangeStrip,
  kArrangeStripSelected,
  kArrangeFolderStrip,
  kArrangeFolderStripSelected,
  kArrangeEmpty,
  kArrangeSeparator,
  kArrangeHeaderLine,
  kArrangeRowLine,
  kArrangeGridLine,
  kArrangeNoColour,
  kArrangeVolumeTrack,
  kArrangeVolume,
  kArrangePlayhead,
  kGlobalTracksContent,
  kRulerBackground,
  kRulerTick,
  kRulerNumber,
  kRulerText,
  kMarkerGap,
  kMarkerGrey,
  kCycleOn,
  kCycleOff,
  kRegionMuted,
  kRegionTextDark,
  kRegionTextLight,
  kMenuArrow,
  kCount
};

/// One colour of the host's own look. Lives as long as the process.
NSColor look(Look which);

/// The colour as the host's asset catalogue has it, which anyone may have changed by name.
NSColor catalogueColour(Look which);

/// The name under which the host's asset catalogue lists a colour, or null when it is drawn from code.
const char* catalogueName(Look which);

/// Fills the asset catalogue, so that `colorWithCatalogName:colorName:` finds the named colours.
void registerLook();

}  // namespace host
