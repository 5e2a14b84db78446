#pragma once

#include "host/mixer/MixerStrips.h"

namespace host {

/// The mixer: the strips of all tracks, and the legend at their left if the song shows it.
class MixerView {
 public:
  /// `song` must outlive the view.
  MixerView(const Song& song, CGRect frame);
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
