#pragma once

#include "cocoa/AppKit.h"
#include "host/kit/HostOptions.h"
#include "host/song/Song.h"

namespace host {

/// Where a pane lies and what it shows. The song outlives the pane.
struct PanePlace {
  CGRect frame;
  const Song& song;
  const HostOptions& options;
};

/// An open part of a document's window, beside its tracks or below them.
class Pane {
 public:
  Pane() = default;
  virtual ~Pane() = default;
  Pane(const Pane&) = delete;
  Pane& operator=(const Pane&) = delete;

  /// What lies in the window, of the place's frame.
  [[nodiscard]] virtual NSView view() const = 0;
  /// The view of files that the window's controller answers; nil in other panes.
  [[nodiscard]] virtual NSView browserView() const { return {}; }
  /// Closes a pane that can be closed while its window stays as it is, or opens it, built anew.
  virtual void toggle() {}
  [[nodiscard]] virtual bool isOpen() const { return true; }
  /// Once a frame, before the window is drawn.
  virtual void updatePresentation() const {}
};

}  // namespace host
