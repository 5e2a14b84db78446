#pragma once

#include "cocoa/AppKit.h"
#include "host/Song.h"

namespace host {

/// The window of the song's document: the transport, and the list of its tracks.
class DocumentWindow {
 public:
  /// `song` must outlive the window.
  DocumentWindow(const Song& song, double scale);
  ~DocumentWindow();
  DocumentWindow(const DocumentWindow&) = delete;
  DocumentWindow& operator=(const DocumentWindow&) = delete;

  [[nodiscard]] NSWindow window() const { return window_; }

 private:
  cocoa::Ref<NSWindow> window_;
};

}  // namespace host
