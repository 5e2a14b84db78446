#include "host/palette/Palette.h"

#include <array>

#include "standin/steering/Catalogue.h"

namespace host {
namespace {

using namespace cocoa;

enum class Model { kRGB, kGrey };

struct Row {
  Palette which;
  int red;
  int green;
  int blue;
  int alpha;
  const char* catalogueName;
  Model model = Model::kRGB;
};

constexpr auto kCount = static_cast<std::size_t>(Palette::kCount);

constexpr std::array<Row, kCount> kRows{{
    {Palette::kMixerBackground, 28, 28, 30, 100, nullptr},
    {Palette::kToolbarBackground, 44, 44, 47, 100, "MixerToolbarBackground"},
    {Palette::kToolbarEdge, 18, 18, 20, 100, "MixerToolbarEdge"},
    {Palette::kToolbarText, 196, 196, 201, 100, "MixerToolbarText"},
    {Palette::kToolbarActive, 88, 106, 140, 100, "MixerToolbarActive"},
    {Palette::kStripBackground, 62, 63, 66, 100, nullptr},
    {Palette::kStripHighlight, 92, 95, 102, 100, nullptr},
    {Palette::kFolderBackground, 52, 54, 60, 100, nullptr},
    {Palette::kFolderHighlight, 82, 86, 98, 100, nullptr},
    {Palette::kAuxBackground, 58, 60, 64, 100, nullptr},
    {Palette::kAuxHighlight, 88, 92, 100, 100, nullptr},
    {Palette::kStripBorder, 24, 24, 26, 100, nullptr},
    {Palette::kEmptySlot, 50, 51, 54, 100, nullptr},
    {Palette::kEmptySlotSelected, 74, 77, 83, 100, nullptr},
    {Palette::kEmptySlotTitle, 132, 134, 140, 100, nullptr},
    {Palette::kButtonTop, 92, 93, 97, 100, nullptr},
    {Palette::kButtonBottom, 76, 77, 81, 100, nullptr},
    {Palette::kButtonEdge, 34, 34, 36, 100, nullptr},
    {Palette::kTitleOn, 236, 236, 236, 100, nullptr, Model::kGrey},
    {Palette::kTitleOff, 150, 150, 150, 100, nullptr, Model::kGrey},
    {Palette::kTitleLowLatency, 255, 176, 74, 100, nullptr},
    {Palette::kTitleDimmed, 206, 214, 226, 50, nullptr},
    {Palette::kAutomationRead, 96, 184, 110, 100, nullptr},
    {Palette::kAutomationTouch, 222, 188, 80, 100, nullptr},
    {Palette::kAutomationLatch, 226, 150, 72, 100, nullptr},
    {Palette::kAutomationWrite, 218, 88, 82, 100, nullptr},
    {Palette::kGroupText, 214, 190, 104, 100, nullptr},
    {Palette::kDisplayBackground, 22, 23, 24, 100, nullptr},
    {Palette::kDisplayText, 198, 200, 204, 100, nullptr},
    {Palette::kPeakNormal, 102, 255, 127, 100, nullptr},
    {Palette::kPeakWarning, 255, 214, 51, 100, nullptr},
    {Palette::kPeakMaximum, 255, 255, 255, 100, nullptr},
    {Palette::kKnobRing, 36, 37, 39, 100, nullptr},
    {Palette::kKnobArc, 96, 190, 112, 100, nullptr},
    {Palette::kKnobFace, 104, 106, 111, 100, nullptr},
    {Palette::kKnobEdge, 30, 31, 33, 100, nullptr},
    {Palette::kKnobPointer, 236, 237, 240, 100, nullptr},
    {Palette::kSendArc, 92, 158, 230, 100, nullptr},
    {Palette::kSendPostPanArc, 98, 196, 176, 100, nullptr},
    {Palette::kSendBypassedArc, 122, 122, 122, 100, nullptr, Model::kGrey},
    {Palette::kInputGainArc, 232, 168, 74, 100, nullptr},
    {Palette::kSpreadArc, 96, 190, 112, 100, nullptr},
    {Palette::kSpreadInverseArc, 226, 150, 72, 100, nullptr},
    {Palette::kSurroundBackground, 34, 35, 37, 100, nullptr},
    {Palette::kSurroundGrid, 86, 88, 93, 100, nullptr},
    {Palette::kSurroundSpread, 96, 190, 112, 35, nullptr},
    {Palette::kSurroundBorder, 122, 216, 138, 100, nullptr},
    {Palette::kFaderTrack, 22, 22, 24, 100, nullptr},
    {Palette::kFaderTop, 214, 215, 219, 100, nullptr},
    {Palette::kFaderBottom, 148, 150, 156, 100, nullptr},
    {Palette::kFaderEdge, 30, 30, 32, 100, nullptr},
    {Palette::kFaderLine, 44, 45, 48, 100, nullptr},
    {Palette::kFaderGroupLine, 196, 132, 40, 100, nullptr},
    {Palette::kMeterBackground, 22, 23, 24, 100, nullptr},
    {Palette::kGainReductionOff, 44, 45, 47, 100, nullptr},
    {Palette::kGainReduction, 240, 176, 72, 100, nullptr},
    {Palette::kScaleTick, 255, 255, 255, 40, nullptr},
    {Palette::kScaleNumber, 255, 255, 255, 40, nullptr},
    {Palette::kScaleZero, 255, 255, 255, 100, nullptr},
    {Palette::kSymbolOff, 82, 83, 88, 100, nullptr},
    {Palette::kSymbolText, 208, 208, 208, 100, nullptr, Model::kGrey},
    {Palette::kSymbolTextOn, 14, 14, 14, 100, nullptr, Model::kGrey},
    {Palette::kMuteOn, 76, 168, 214, 100, nullptr},
    {Palette::kSoloOn, 226, 196, 62, 100, nullptr},
    {Palette::kRecordOn, 220, 66, 60, 100, nullptr},
    {Palette::kMonitorOn, 230, 150, 60, 100, nullptr},
    {Palette::kEqualizerBackground, 30, 31, 33, 100, nullptr},
    {Palette::kEqualizerGrid, 255, 255, 255, 8, nullptr},
    {Palette::kEqualizerCurve, 120, 190, 232, 100, nullptr},
    {Palette::kEqualizerTitle, 128, 130, 136, 100, nullptr},
    {Palette::kNameText, 230, 231, 234, 100, nullptr},
    {Palette::kNameTextOnColor, 16, 16, 18, 100, nullptr},
    {Palette::kNumberText, 168, 170, 176, 100, nullptr},
    {Palette::kLabelText, 150, 152, 158, 100, nullptr},
    {Palette::kReadoutText, 196, 198, 203, 100, nullptr},
    {Palette::kNotesText, 182, 184, 190, 100, nullptr},
    {Palette::kIcon, 188, 190, 196, 100, nullptr},
    {Palette::kIconBackground, 48, 49, 52, 100, nullptr},
    {Palette::kLibraryIndicator, 120, 180, 240, 100, nullptr},
    {Palette::kRowHeaderBackground, 52, 53, 56, 100, "StepSequencerRowHeader"},
    {Palette::kRowHeaderText, 214, 215, 219, 100, "StepSequencerRowText"},
    {Palette::kStepOff, 70, 72, 77, 100, "StepSequencerStepOff"},
    {Palette::kStepOn, 102, 176, 226, 100, "StepSequencerStepOn"},
    {Palette::kStepAccent, 236, 196, 92, 100, "StepSequencerStepAccent"},
    {Palette::kArrangeWorkspace, 44, 45, 47, 100, nullptr},
    {Palette::kArrangeWorkspaceBright, 92, 93, 96, 100, nullptr},
    {Palette::kArrangeStrip, 66, 67, 70, 100, nullptr},
    {Palette::kArrangeStripSelected, 104, 107, 114, 100, nullptr},
    {Palette::kArrangeFolderStrip, 56, 58, 64, 100, nullptr},
    {Palette::kArrangeFolderStripSelected, 90, 94, 106, 100, nullptr},
    {Palette::kArrangeEmpty, 97, 97, 97, 100, nullptr},
    {Palette::kArrangeSeparator, 20, 20, 22, 100, nullptr},
    {Palette::kArrangeHeaderLine, 40, 41, 43, 100, nullptr},
    {Palette::kArrangeRowLine, 34, 35, 37, 100, nullptr},
    {Palette::kArrangeGridLine, 255, 255, 255, 4, nullptr},
    {Palette::kArrangeNoColor, 124, 124, 124, 100, nullptr},
    {Palette::kArrangeVolumeTrack, 34, 35, 37, 100, nullptr},
    {Palette::kArrangeVolume, 108, 186, 120, 100, nullptr},
    {Palette::kArrangePlayhead, 240, 240, 242, 100, nullptr},
    {Palette::kGlobalTracksContent, 58, 59, 61, 100, nullptr},
    {Palette::kRulerBackground, 50, 50, 50, 100, nullptr},
    {Palette::kRulerTick, 142, 142, 142, 100, nullptr},
    {Palette::kRulerNumber, 200, 200, 200, 100, nullptr},
    {Palette::kRulerText, 178, 178, 178, 100, nullptr},
    {Palette::kMarkerGap, 60, 60, 60, 100, nullptr},
    {Palette::kMarkerGrey, 108, 108, 108, 100, nullptr},
    {Palette::kCycleOn, 222, 186, 58, 100, nullptr},
    {Palette::kCycleOff, 86, 86, 86, 100, nullptr},
    {Palette::kRegionMuted, 112, 113, 116, 100, nullptr},
    {Palette::kRegionTextDark, 18, 18, 20, 100, nullptr},
    {Palette::kRegionTextLight, 244, 244, 246, 100, nullptr},
    {Palette::kMenuArrow, 190, 192, 197, 100, nullptr},
    {Palette::kListBackground, 34, 35, 37, 100, nullptr},
    {Palette::kListGrid, 58, 59, 62, 100, nullptr},
    {Palette::kListText, 214, 215, 219, 100, nullptr},
    {Palette::kListTextDim, 168, 170, 176, 100, nullptr},
    {Palette::kListBackgroundBright, 58, 59, 62, 100, nullptr},
    {Palette::kListGridBright, 82, 83, 87, 100, nullptr},
    {Palette::kListTextBright, 240, 241, 243, 100, nullptr},
    {Palette::kListHeader, 46, 47, 50, 100, nullptr},
    {Palette::kListHeaderText, 160, 162, 168, 100, nullptr},
    {Palette::kPaneBackground, 42, 43, 46, 100, nullptr},
    {Palette::kPaneBar, 52, 53, 56, 100, nullptr},
    {Palette::kPaneBarText, 200, 201, 206, 100, nullptr},
    {Palette::kPaneLine, 24, 24, 26, 100, nullptr},
    {Palette::kTabOff, 62, 63, 67, 100, nullptr},
    {Palette::kTabOn, 96, 98, 104, 100, nullptr},
    {Palette::kTabText, 206, 207, 211, 100, nullptr},
    {Palette::kActionBarGlyph, 206, 207, 212, 100, nullptr},
    {Palette::kActionBarOn, 74, 114, 186, 100, nullptr},
    {Palette::kActionBarOff, 62, 63, 67, 100, nullptr},
    {Palette::kToggleOff, 66, 67, 71, 100, nullptr},
    {Palette::kToggleOn, 74, 118, 184, 100, nullptr},
    {Palette::kToggleTitleOff, 208, 209, 213, 100, nullptr},
    {Palette::kToggleTitleOn, 255, 255, 255, 100, nullptr},
    {Palette::kToggleRowOff, 142, 144, 150, 100, nullptr},
    {Palette::kToggleRowOn, 196, 214, 240, 100, nullptr},
    {Palette::kLoopHeader, 38, 39, 41, 100, nullptr},
    {Palette::kLoopPaneHeader, 46, 47, 50, 100, nullptr},
    {Palette::kNotePad, 62, 60, 52, 100, nullptr},
    {Palette::kNotePadText, 226, 223, 210, 100, nullptr},
    {Palette::kNotesList, 48, 49, 52, 100, nullptr},
    {Palette::kNotesButton, 78, 79, 84, 100, nullptr},
    {Palette::kFolderIcon, 104, 164, 220, 100, nullptr},
    {Palette::kAudioIcon, 92, 146, 226, 100, nullptr},
    {Palette::kMidiIcon, 104, 188, 112, 100, nullptr},
    {Palette::kDrumIcon, 226, 188, 76, 100, nullptr},
    {Palette::kPlainIcon, 166, 168, 174, 100, nullptr},
    {Palette::kLibraryBackground, 42, 43, 46, 100, "LibraryBackground"},
    {Palette::kLibraryHeader, 50, 51, 55, 100, "LibraryHeader"},
    {Palette::kLibraryTitle, 236, 237, 240, 100, "LibraryTitle"},
    {Palette::kLibraryText, 190, 191, 197, 100, "LibraryText"},
    {Palette::kLibraryPicture, 70, 84, 112, 100, "LibraryPicture"},
    {Palette::kLibrarySearch, 28, 29, 31, 100, "LibrarySearchField"},
    {Palette::kLibrarySearchText, 136, 138, 144, 100, "LibrarySearchText"},
    {Palette::kLibrarySeparator, 26, 26, 28, 100, "LibrarySeparator"},
}};

constexpr bool rowsFollowTheNames() {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (kRows[i].which != static_cast<Palette>(i)) return false;
  }
  return true;
}
static_assert(rowsFollowTheNames());

Ref<NSColor> made(const Row& row) {
  if (row.model == Model::kGrey) return NSColor::colorWithCalibratedWhite(row.red / 255.0, row.alpha / 100.0);
  return NSColor::colorWithSRGBRed(row.red / 255.0, row.green / 255.0, row.blue / 255.0, row.alpha / 100.0);
}

}  // namespace

NSColor paletteColor(Palette which) {
  static const std::array<Ref<NSColor>, kCount> colors = [] {
    std::array<Ref<NSColor>, kCount> all;
    for (std::size_t i = 0; i < kCount; ++i) all[i] = made(kRows[i]);
    return all;
  }();
  return colors[static_cast<std::size_t>(which)];
}

NSColor catalogueColor(Palette which) {
  return NSColor::colorWithCatalogName(literal<"#$assets-mainBundleID">(), string(catalogueName(which)));
}

const char* catalogueName(Palette which) { return kRows[static_cast<std::size_t>(which)].catalogueName; }

void registerPalette() {
  for (const Row& row : kRows) {
    if (row.catalogueName != nullptr) {
      standin::registerCatalogueColor("#$assets-mainBundleID", row.catalogueName, paletteColor(row.which));
    }
  }
}

}  // namespace host
