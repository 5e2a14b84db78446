#pragma once
// The kinds of mixer strips, and the names of the images that each kind may have of its own.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "cocoa/Geometry.h"
#include "plugin/language/ThemeKeys.h"

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
  ThemeKey lowestMeterColor;  // the other four follow
};

inline constexpr auto kTrackTypes = [] {
  return std::to_array<TrackTypeRow>({
      {TrackType::kAudio, "audio", 0, OwnPannerImages::kYes, key<"useSharedPanner?audio">, key<"useSharedFader?audio">,
       key<"useSharedLevelMeter?audio">, key<"levelMeterColor0?audio">},
      {TrackType::kInstrument, "instrument", 1, OwnPannerImages::kYes, key<"useSharedPanner?instrument">,
       key<"useSharedFader?instrument">, key<"useSharedLevelMeter?instrument">, key<"levelMeterColor0?instrument">},
      {TrackType::kAux, "aux", 2, OwnPannerImages::kYes, key<"useSharedPanner?aux">, key<"useSharedFader?aux">,
       key<"useSharedLevelMeter?aux">, key<"levelMeterColor0?aux">},
      {TrackType::kBus, "bus", 3, OwnPannerImages::kYes, key<"useSharedPanner?bus">, key<"useSharedFader?bus">,
       key<"useSharedLevelMeter?bus">, key<"levelMeterColor0?bus">},
      {TrackType::kMaster, "master", 4, OwnPannerImages::kNo, key<"useSharedPanner?master">,
       key<"useSharedFader?master">, key<"useSharedLevelMeter?master">, key<"levelMeterColor0?master">},
      {TrackType::kFolder, "folder", 5, OwnPannerImages::kYes, key<"useSharedPanner?folder">,
       key<"useSharedFader?folder">, key<"useSharedLevelMeter?folder">, key<"levelMeterColor0?folder">},
      {TrackType::kStereoOut, "stereo_out", 6, OwnPannerImages::kYes, key<"useSharedPanner?stereo_out">,
       key<"useSharedFader?stereo_out">, key<"useSharedLevelMeter?stereo_out">, key<"levelMeterColor0?stereo_out">},
  });
}();

/// The row of a type; null for a code without a name.
constexpr const TrackTypeRow* rowOf(TrackType type) {
  const auto* const found = std::ranges::find(kTrackTypes, type, &TrackTypeRow::type);
  return found == kTrackTypes.end() ? nullptr : found;
}

enum class ImageSet : bool { kOwn, kShared };

/// The image of a part of a panner: the stem, with the type's name unless all types share one set.
std::string pannerImageName(std::string_view stem, bool isHighlighted, TrackType type, ImageSet set);

/// The image of a fader cap; nothing where the host's own cap stays.
std::optional<std::string> faderImageName(bool isHighlighted, TrackType type, ImageSet set);

}  // namespace velura
