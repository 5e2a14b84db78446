#include "plugin/language/TrackTypes.h"

namespace velura {

namespace {

std::string withHighlight(std::string name, Highlighted highlighted) {
  if (highlighted == Highlighted::kYes) name += "_sel";
  return name;
}

}  // namespace

std::string pannerImageName(std::string_view stem, Highlighted highlighted, TrackType type, ImageSet set) {
  std::string name(stem);
  const TrackTypeRow* row = set == ImageSet::kOwn ? rowOf(type) : nullptr;
  if (row != nullptr && row->pannerImages == OwnPannerImages::kYes) name.append("_").append(row->name);
  return withHighlight(std::move(name), highlighted);
}

std::optional<std::string> faderImageName(Highlighted highlighted, TrackType type, ImageSet set) {
  const TrackTypeRow* row = set == ImageSet::kOwn ? rowOf(type) : nullptr;
  if (row == nullptr) return std::nullopt;
  return withHighlight(std::string("mixer_fader_").append(row->name), highlighted);
}

}  // namespace velura
