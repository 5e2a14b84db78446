#pragma once

#include <cstdint>

#include "host/mixer/MixerStrips.h"

namespace host {

/// The mixer: the strips of tracks, and the legend at their left if the song shows it.
class MixerView {
 public:
  /// Strips of the first tracks, at most `strips` of them. `song` must outlive the view.
  MixerView(const Song& song, CGRect frame, std::size_t strips = SIZE_MAX);
  ~MixerView();
  MixerView(const MixerView&) = delete;
  MixerView& operator=(const MixerView&) = delete;

  [[nodiscard]] NSView view() const { return view_; }
  [[nodiscard]] const MixerStrips& strips() const { return strips_; }
  /// The width that the legend takes; 0 when there is none.
  static double legendWidth(const Song& song);
  static double height(const Song& song);

 private:
  cocoa::Ref<NSView> view_;
  MixerStrips strips_;
};

void defineMixerView();

}  // namespace host
