#include "plugin/language/TrackTypes.h"

namespace velura {

namespace {

std::string withHighlight(std::string name, bool isHighlighted) {
  if (isHighlighted) name += "_sel";
  return name;
}

}  // namespace

std::string pannerImageName(std::string_view stem, bool isHighlighted, TrackType type, ImageSet set) {
  std::string name(stem);
  const TrackTypeRow* row = set == ImageSet::kOwn ? rowOf(type) : nullptr;
  if (row != nullptr && row->pannerImages == OwnPannerImages::kYes) name.append("_").append(row->name);
  return withHighlight(std::move(name), isHighlighted);
}

std::optional<std::string> faderImageName(bool isHighlighted, TrackType type, ImageSet set) {
  const TrackTypeRow* row = set == ImageSet::kOwn ? rowOf(type) : nullptr;
  if (row == nullptr) return std::nullopt;
  return withHighlight(std::string("mixer_fader_").append(row->name), isHighlighted);
}

}  // namespace velura
