#pragma once

#include "cocoa/AppKit.h"
#include "host/song/Song.h"

namespace host {

/// The grid of Live Loops: a row for each track, a column for each scene, a cell for what they play together.
class LiveLoopsWindow {
 public:
  /// `song` must outlive the window. `fenster` is what the song's arrange view belongs to.
  LiveLoopsWindow(const Song& song, NSObject fenster, double scale);
  ~LiveLoopsWindow();
  LiveLoopsWindow(const LiveLoopsWindow&) = delete;
  LiveLoopsWindow& operator=(const LiveLoopsWindow&) = delete;

  [[nodiscard]] NSWindow window() const { return window_; }

 private:
  cocoa::Ref<NSWindow> window_;
  cocoa::Ref<NSObject> controller_;
};

void defineLiveLoopsClasses();

}  // namespace host
