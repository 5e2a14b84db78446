#pragma once
// The parts of a document's window that open and close beside its tracks.

#include <memory>
#include <optional>
#include <vector>

#include "cocoa/AppKit.h"
#include "host/Song.h"
#include "host/app/HostOptions.h"

namespace host {

enum class PaneKind { kLibrary, kInspector, kBrowsers, kLists, kLoopBrowser, kMixer };

/// Where a pane lies and what it shows. The song outlives the pane.
struct PanePlace {
  CGRect frame;
  const Song& song;
  const HostOptions& options;
};

/// An open pane.
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

std::unique_ptr<Pane> makePane(PaneKind kind, const PanePlace& place);

/// The width of a pane beside the tracks, the height of one below them, in points.
double paneExtent(PaneKind kind, const Song& song);

/// Which panes a document's window shows: beside the tracks from the window's edge inwards, and below them.
struct DocumentLayout {
  const char* title = "Tracks";
  CGSize content{1180, 700};
  std::vector<PaneKind> left{};
  std::vector<PaneKind> right{};
  std::optional<PaneKind> below{};
};

void definePaneClasses();

}  // namespace host
