#pragma once

#include <array>

#include "cocoa/AppKit.h"
#include "host/mixer/MixerView.h"
#include "host/song/Song.h"

namespace host {

/// The window that shows the mixer of a song, and what it holds.
class MixerWindow {
 public:
  /// `song` must outlive the window.
  MixerWindow(const Song& song, double scale);
  ~MixerWindow();
  MixerWindow(const MixerWindow&) = delete;
  MixerWindow& operator=(const MixerWindow&) = delete;

  [[nodiscard]] NSWindow window() const { return window_; }
  /// The node above the strips.
  [[nodiscard]] NSObject rootNode() const { return mixer_.strips().rootNode(); }
  [[nodiscard]] NSObject contentsView() const { return mixer_.strips().view(); }
  /// The strips, from left to right.
  [[nodiscard]] NSArray strips() const { return mixer_.strips().strips(); }
  void updatePresentation() const { mixer_.strips().updatePresentation(); }

  // What happens to a strip while it is shown; the next frame shows it. Strips count from 0, from left to right;
  // what a strip does not have stays as it is.
  void setLevels(std::size_t strip, const std::array<double, 2>& levels) const;
  void setPeak(std::size_t strip, double decibels) const;
  void setVolume(std::size_t strip, double decibels) const;
  /// From -64 to 63.
  void setPan(std::size_t strip, double pan) const;
  void setSelected(std::size_t strip, bool selected) const;
  /// A button by its name ("mute", "solo", "record", "monitoring", "automation", …): 0 off, 1 on, 2 blinking.
  void setButton(std::size_t strip, const char* name, NSInteger state) const;
  /// What sits in an audio insert, counted from 0, and how.
  void setPlugIn(std::size_t strip, std::size_t slot, const PlugInSlot& plugIn) const;
  void setSend(std::size_t strip, std::size_t slot, double level, bool bypassed) const;

 private:
  /// The strip's section of that name, the `index`-th of several; nil when there is none.
  [[nodiscard]] NSObject section(std::size_t strip, const char* name, std::size_t index = 0) const;

  MixerView mixer_;
  cocoa::Ref<NSWindow> window_;
  cocoa::Ref<NSObject> controller_;
};

}  // namespace host
