#pragma once
// The kinds of mixer strips, and the names of the images that each kind may have of its own.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "cocoa/Geometry.h"
#include "plugin/theme/ThemeKeys.h"

namespace velura {

/// Codes of the host's mixer, save for `kNone` and `kFolder`, which are the plug-in's own. A host may
/// answer other codes: they have no name and no images of their own.
enum class TrackType : NSInteger {
  kNone = -1,
  kAudio = 0,
  kInstrument = 1,
  kAux = 2,
  kBus = 3,
  kStereoOut = 7,
  kMaster = 8,
  kFolder = 100
};

enum class OwnPannerImages : bool { kNo, kYes };

struct TrackTypeRow {
  TrackType type;
  std::string_view name;  // in theme keys and image names
  unsigned sharedBit;     // in the records of shared panner and fader images
  OwnPannerImages pannerImages;
  ThemeKey sharedPanner;
  ThemeKey sharedFader;
  ThemeKey sharedMeter;
  ThemeKey lowestMeterColour;  // the other four follow
};

inline constexpr auto kTrackTypes = [] {
  using enum ThemeKey;
  return std::to_array<TrackTypeRow>({
      {TrackType::kAudio, "audio", 0, OwnPannerImages::kYes, kUseSharedPannerAudio, kUseSharedFaderAudio,
       kUseSharedLevelMeterAudio, kLevelMeterColor0Audio},
      {TrackType::kInstrument, "instrument", 1, OwnPannerImages::kYes, kUseSharedPannerInstrument,
       kUseSharedFaderInstrument, kUseSharedLevelMeterInstrument, kLevelMeterColor0Instrument},
      {TrackType::kAux, "aux", 2, OwnPannerImages::kYes, kUseSharedPannerAux, kUseSharedFaderAux,
       kUseSharedLevelMeterAux, kLevelMeterColor0Aux},
      {TrackType::kBus, "bus", 3, OwnPannerImages::kYes, kUseSharedPannerBus, kUseSharedFaderBus,
       kUseSharedLevelMeterBus, kLevelMeterColor0Bus},
      {TrackType::kMaster, "master", 4, OwnPannerImages::kNo, kUseSharedPannerMaster, kUseSharedFaderMaster,
       kUseSharedLevelMeterMaster, kLevelMeterColor0Master},
      {TrackType::kFolder, "folder", 5, OwnPannerImages::kYes, kUseSharedPannerFolder, kUseSharedFaderFolder,
       kUseSharedLevelMeterFolder, kLevelMeterColor0Folder},
      {TrackType::kStereoOut, "stereo_out", 6, OwnPannerImages::kYes, kUseSharedPannerStereoOut,
       kUseSharedFaderStereoOut, kUseSharedLevelMeterStereoOut, kLevelMeterColor0StereoOut},
  });
}();

/// The row of a type; null for a code without a name.
constexpr const TrackTypeRow* rowOf(TrackType type) {
  const auto* const found = std::ranges::find(kTrackTypes, type, &TrackTypeRow::type);
  return found == kTrackTypes.end() ? nullptr : found;
}

enum class Highlighted : bool { kNo, kYes };
enum class ImageSet : bool { kOwn, kShared };

/// The image of a part of a panner: the stem, with the type's name unless all types share one set.
std::string pannerImageName(std::string_view stem, Highlighted highlighted, TrackType type, ImageSet set);

/// The image of a fader cap; nothing where the host's own cap stays.
std::optional<std::string> faderImageName(Highlighted highlighted, TrackType type, ImageSet set);

}  // namespace velura
