#include "host/Look.h"

#include <array>

#include "standin/Catalogue.h"

namespace host {
namespace {

using namespace cocoa;

enum class Model { kRGB, kGrey };

struct Row {
  Look which;
  int red;
  int green;
  int blue;
  int alpha;
  const char* catalogueName;
  Model model = Model::kRGB;
};

constexpr auto kCount = static_cast<std::size_t>(Look::kCount);

constexpr std::array<Row, kCount> kRows{{
    {Look::kMixerBackground, 28, 28, 30, 100, nullptr},
    {Look::kToolbarBackground, 44, 44, 47, 100, "MixerToolbarBackground"},
    {Look::kToolbarEdge, 18, 18, 20, 100, "MixerToolbarEdge"},
    {Look::kToolbarText, 196, 196, 201, 100, "MixerToolbarText"},
    {Look::kToolbarActive, 88, 106, 140, 100, "MixerToolbarActive"},
    {Look::kStripBackground, 62, 63, 66, 100, nullptr},
    {Look::kStripHighlight, 92, 95, 102, 100, nullptr},
    {Look::kFolderBackground, 52, 54, 60, 100, nullptr},
    {Look::kFolderHighlight, 82, 86, 98, 100, nullptr},
    {Look::kAuxBackground, 58, 60, 64, 100, nullptr},
    {Look::kAuxHighlight, 88, 92, 100, 100, nullptr},
    {Look::kStripBorder, 24, 24, 26, 100, nullptr},
    {Look::kEmptySlot, 50, 51, 54, 100, nullptr},
    {Look::kEmptySlotSelected, 74, 77, 83, 100, nullptr},
    {Look::kEmptySlotTitle, 132, 134, 140, 100, nullptr},
    {Look::kButtonTop, 92, 93, 97, 100, nullptr},
    {Look::kButtonBottom, 76, 77, 81, 100, nullptr},
    {Look::kButtonEdge, 34, 34, 36, 100, nullptr},
    {Look::kTitleOn, 236, 236, 236, 100, nullptr, Model::kGrey},
    {Look::kTitleOff, 150, 150, 150, 100, nullptr, Model::kGrey},
    {Look::kTitleLowLatency, 255, 176, 74, 100, nullptr},
    {Look::kTitleDimmed, 206, 214, 226, 50, nullptr},
    {Look::kAutomationRead, 96, 184, 110, 100, nullptr},
    {Look::kAutomationTouch, 222, 188, 80, 100, nullptr},
    {Look::kAutomationLatch, 226, 150, 72, 100, nullptr},
    {Look::kAutomationWrite, 218, 88, 82, 100, nullptr},
    {Look::kGroupText, 214, 190, 104, 100, nullptr},
    {Look::kDisplayBackground, 22, 23, 24, 100, nullptr},
    {Look::kDisplayText, 198, 200, 204, 100, nullptr},
    {Look::kPeakNormal, 102, 255, 127, 100, nullptr},
    {Look::kPeakWarning, 255, 214, 51, 100, nullptr},
    {Look::kPeakMaximum, 255, 255, 255, 100, nullptr},
    {Look::kKnobRing, 36, 37, 39, 100, nullptr},
    {Look::kKnobArc, 96, 190, 112, 100, nullptr},
    {Look::kKnobFace, 104, 106, 111, 100, nullptr},
    {Look::kKnobEdge, 30, 31, 33, 100, nullptr},
    {Look::kKnobPointer, 236, 237, 240, 100, nullptr},
    {Look::kSendArc, 92, 158, 230, 100, nullptr},
    {Look::kSendPostPanArc, 98, 196, 176, 100, nullptr},
    {Look::kSendBypassedArc, 122, 122, 122, 100, nullptr, Model::kGrey},
    {Look::kInputGainArc, 232, 168, 74, 100, nullptr},
    {Look::kSpreadArc, 96, 190, 112, 100, nullptr},
    {Look::kSpreadInverseArc, 226, 150, 72, 100, nullptr},
    {Look::kSurroundBackground, 34, 35, 37, 100, nullptr},
    {Look::kSurroundGrid, 86, 88, 93, 100, nullptr},
    {Look::kSurroundSpread, 96, 190, 112, 35, nullptr},
    {Look::kSurroundBorder, 122, 216, 138, 100, nullptr},
    {Look::kFaderTrack, 22, 22, 24, 100, nullptr},
    {Look::kFaderTop, 214, 215, 219, 100, nullptr},
    {Look::kFaderBottom, 148, 150, 156, 100, nullptr},
    {Look::kFaderEdge, 30, 30, 32, 100, nullptr},
    {Look::kFaderLine, 44, 45, 48, 100, nullptr},
    {Look::kFaderGroupLine, 196, 132, 40, 100, nullptr},
    {Look::kMeterBackground, 22, 23, 24, 100, nullptr},
    {Look::kGainReductionOff, 44, 45, 47, 100, nullptr},
    {Look::kGainReduction, 240, 176, 72, 100, nullptr},
    {Look::kScaleTick, 255, 255, 255, 40, nullptr},
    {Look::kScaleNumber, 255, 255, 255, 40, nullptr},
    {Look::kScaleZero, 255, 255, 255, 100, nullptr},
    {Look::kSymbolOff, 82, 83, 88, 100, nullptr},
    {Look::kSymbolText, 208, 208, 208, 100, nullptr, Model::kGrey},
    {Look::kSymbolTextOn, 14, 14, 14, 100, nullptr, Model::kGrey},
    {Look::kMuteOn, 76, 168, 214, 100, nullptr},
    {Look::kSoloOn, 226, 196, 62, 100, nullptr},
    {Look::kRecordOn, 220, 66, 60, 100, nullptr},
    {Look::kMonitorOn, 230, 150, 60, 100, nullptr},
    {Look::kEqualizerBackground, 30, 31, 33, 100, nullptr},
    {Look::kEqualizerGrid, 255, 255, 255, 8, nullptr},
    {Look::kEqualizerCurve, 120, 190, 232, 100, nullptr},
    {Look::kEqualizerTitle, 128, 130, 136, 100, nullptr},
    {Look::kNameText, 230, 231, 234, 100, nullptr},
    {Look::kNameTextOnColor, 16, 16, 18, 100, nullptr},
    {Look::kNumberText, 168, 170, 176, 100, nullptr},
    {Look::kLabelText, 150, 152, 158, 100, nullptr},
    {Look::kReadoutText, 196, 198, 203, 100, nullptr},
    {Look::kNotesText, 182, 184, 190, 100, nullptr},
    {Look::kIcon, 188, 190, 196, 100, nullptr},
    {Look::kIconBackground, 48, 49, 52, 100, nullptr},
    {Look::kLibraryIndicator, 120, 180, 240, 100, nullptr},
    {Look::kRowHeaderBackground, 52, 53, 56, 100, "StepSequencerRowHeader"},
    {Look::kRowHeaderText, 214, 215, 219, 100, "StepSequencerRowText"},
    {Look::kStepOff, 70, 72, 77, 100, "StepSequencerStepOff"},
    {Look::kStepOn, 102, 176, 226, 100, "StepSequencerStepOn"},
    {Look::kStepAccent, 236, 196, 92, 100, "StepSequencerStepAccent"},
    {Look::kArrangeWorkspace, 44, 45, 47, 100, nullptr},
    {Look::kArrangeWorkspaceBright, 92, 93, 96, 100, nullptr},
    {Look::kArrangeStrip, 66, 67, 70, 100, nullptr},
    {Look::kArrangeStripSelected, 104, 107, 114, 100, nullptr},
    {Look::kArrangeFolderStrip, 56, 58, 64, 100, nullptr},
    {Look::kArrangeFolderStripSelected, 90, 94, 106, 100, nullptr},
    {Look::kArrangeEmpty, 97, 97, 97, 100, nullptr},
    {Look::kArrangeSeparator, 20, 20, 22, 100, nullptr},
    {Look::kArrangeHeaderLine, 40, 41, 43, 100, nullptr},
    {Look::kArrangeRowLine, 34, 35, 37, 100, nullptr},
    {Look::kArrangeGridLine, 255, 255, 255, 4, nullptr},
    {Look::kArrangeNoColor, 124, 124, 124, 100, nullptr},
    {Look::kArrangeVolumeTrack, 34, 35, 37, 100, nullptr},
    {Look::kArrangeVolume, 108, 186, 120, 100, nullptr},
    {Look::kArrangePlayhead, 240, 240, 242, 100, nullptr},
    {Look::kGlobalTracksContent, 58, 59, 61, 100, nullptr},
    {Look::kRulerBackground, 50, 50, 50, 100, nullptr},
    {Look::kRulerTick, 142, 142, 142, 100, nullptr},
    {Look::kRulerNumber, 200, 200, 200, 100, nullptr},
    {Look::kRulerText, 178, 178, 178, 100, nullptr},
    {Look::kMarkerGap, 60, 60, 60, 100, nullptr},
    {Look::kMarkerGrey, 108, 108, 108, 100, nullptr},
    {Look::kCycleOn, 222, 186, 58, 100, nullptr},
    {Look::kCycleOff, 86, 86, 86, 100, nullptr},
    {Look::kRegionMuted, 112, 113, 116, 100, nullptr},
    {Look::kRegionTextDark, 18, 18, 20, 100, nullptr},
    {Look::kRegionTextLight, 244, 244, 246, 100, nullptr},
    {Look::kMenuArrow, 190, 192, 197, 100, nullptr},
    {Look::kListBackground, 34, 35, 37, 100, nullptr},
    {Look::kListGrid, 58, 59, 62, 100, nullptr},
    {Look::kListText, 214, 215, 219, 100, nullptr},
    {Look::kListTextDim, 168, 170, 176, 100, nullptr},
    {Look::kListBackgroundBright, 58, 59, 62, 100, nullptr},
    {Look::kListGridBright, 82, 83, 87, 100, nullptr},
    {Look::kListTextBright, 240, 241, 243, 100, nullptr},
    {Look::kListHeader, 46, 47, 50, 100, nullptr},
    {Look::kListHeaderText, 160, 162, 168, 100, nullptr},
    {Look::kPaneBackground, 42, 43, 46, 100, nullptr},
    {Look::kPaneBar, 52, 53, 56, 100, nullptr},
    {Look::kPaneBarText, 200, 201, 206, 100, nullptr},
    {Look::kPaneLine, 24, 24, 26, 100, nullptr},
    {Look::kTabOff, 62, 63, 67, 100, nullptr},
    {Look::kTabOn, 96, 98, 104, 100, nullptr},
    {Look::kTabText, 206, 207, 211, 100, nullptr},
    {Look::kActionBarGlyph, 206, 207, 212, 100, nullptr},
    {Look::kActionBarOn, 74, 114, 186, 100, nullptr},
    {Look::kActionBarOff, 62, 63, 67, 100, nullptr},
    {Look::kToggleOff, 66, 67, 71, 100, nullptr},
    {Look::kToggleOn, 74, 118, 184, 100, nullptr},
    {Look::kToggleTitleOff, 208, 209, 213, 100, nullptr},
    {Look::kToggleTitleOn, 255, 255, 255, 100, nullptr},
    {Look::kToggleRowOff, 142, 144, 150, 100, nullptr},
    {Look::kToggleRowOn, 196, 214, 240, 100, nullptr},
    {Look::kLoopHeader, 38, 39, 41, 100, nullptr},
    {Look::kLoopPaneHeader, 46, 47, 50, 100, nullptr},
    {Look::kNotePad, 62, 60, 52, 100, nullptr},
    {Look::kNotePadText, 226, 223, 210, 100, nullptr},
    {Look::kNotesList, 48, 49, 52, 100, nullptr},
    {Look::kNotesButton, 78, 79, 84, 100, nullptr},
    {Look::kFolderIcon, 104, 164, 220, 100, nullptr},
    {Look::kAudioIcon, 92, 146, 226, 100, nullptr},
    {Look::kMidiIcon, 104, 188, 112, 100, nullptr},
    {Look::kDrumIcon, 226, 188, 76, 100, nullptr},
    {Look::kPlainIcon, 166, 168, 174, 100, nullptr},
    {Look::kLibraryBackground, 42, 43, 46, 100, "LibraryBackground"},
    {Look::kLibraryHeader, 50, 51, 55, 100, "LibraryHeader"},
    {Look::kLibraryTitle, 236, 237, 240, 100, "LibraryTitle"},
    {Look::kLibraryText, 190, 191, 197, 100, "LibraryText"},
    {Look::kLibraryPicture, 70, 84, 112, 100, "LibraryPicture"},
    {Look::kLibrarySearch, 28, 29, 31, 100, "LibrarySearchField"},
    {Look::kLibrarySearchText, 136, 138, 144, 100, "LibrarySearchText"},
    {Look::kLibrarySeparator, 26, 26, 28, 100, "LibrarySeparator"},
}};

constexpr bool rowsFollowTheNames() {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (kRows[i].which != static_cast<Look>(i)) return false;
  }
  return true;
}
static_assert(rowsFollowTheNames());

Ref<NSColor> made(const Row& row) {
  if (row.model == Model::kGrey) return NSColor::colorWithCalibratedWhite(row.red / 255.0, row.alpha / 100.0);
  return NSColor::colorWithSRGBRed(row.red / 255.0, row.green / 255.0, row.blue / 255.0, row.alpha / 100.0);
}

}  // namespace

NSColor look(Look which) {
  static const std::array<Ref<NSColor>, kCount> colors = [] {
    std::array<Ref<NSColor>, kCount> all;
    for (std::size_t i = 0; i < kCount; ++i) all[i] = made(kRows[i]);
    return all;
  }();
  return colors[static_cast<std::size_t>(which)];
}

NSColor catalogueColor(Look which) {
  return NSColor::colorWithCatalogName(literal<"#$assets-mainBundleID">(), string(catalogueName(which)));
}

const char* catalogueName(Look which) { return kRows[static_cast<std::size_t>(which)].catalogueName; }

void registerLook() {
  for (const Row& row : kRows) {
    if (row.catalogueName != nullptr) {
      standin::registerCatalogueColor("#$assets-mainBundleID", row.catalogueName, look(row.which));
    }
  }
}

}  // namespace host
