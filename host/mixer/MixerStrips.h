#pragma once

#include <vector>

#include "cocoa/AppKit.h"
#include "host/song/Song.h"

namespace host {

/// Channel strips side by side in a view of their own, and the controllers behind them.
class MixerStrips {
 public:
  /// Strips of some of the song's tracks, counted from 0. `song` must outlive them.
  MixerStrips(const Song& song, const std::vector<std::size_t>& tracks, CGRect frame);
  ~MixerStrips();
  MixerStrips(const MixerStrips&) = delete;
  MixerStrips& operator=(const MixerStrips&) = delete;

  [[nodiscard]] NSView view() const { return view_; }
  [[nodiscard]] NSObject viewController() const { return viewController_; }
  /// The node above the strips.
  [[nodiscard]] NSObject rootNode() const { return root_; }
  [[nodiscard]] NSArray strips() const;
  void updatePresentation() const;

 private:
  void buildNodes(const Song& song, const std::vector<std::size_t>& tracks);

  cocoa::Ref<NSView> view_;
  cocoa::Ref<NSObject> viewController_;
  cocoa::Ref<NSObject> contentsController_;
  cocoa::Ref<NSObject> delegate_;
  cocoa::Ref<NSObject> root_;
};

inline constexpr double kAboveStrips = 8;
inline constexpr double kBelowStrips = 6;

void defineMixerStrips();

}  // namespace host
