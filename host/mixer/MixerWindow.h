#pragma once

#include "cocoa/AppKit.h"
#include "host/Song.h"

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
  [[nodiscard]] NSObject rootNode() const { return root_; }
  [[nodiscard]] NSObject contentsView() const { return contents_; }
  /// The strips, from left to right.
  [[nodiscard]] NSArray strips() const;
  void updatePresentation() const;

 private:
  void buildNodes(const Song& song);
  void buildViews(const Song& song, double scale);

  cocoa::Ref<NSWindow> window_;
  cocoa::Ref<NSObject> windowController_;
  cocoa::Ref<NSObject> viewController_;
  cocoa::Ref<NSObject> contentsController_;
  cocoa::Ref<NSObject> root_;
  cocoa::Ref<NSObject> contents_;
};

void defineMixerWindow();

}  // namespace host
