#pragma once
// The parts of a document's window that open and close beside its tracks.

#include <memory>
#include <optional>
#include <vector>

#include "host/kit/Pane.h"

namespace host {

enum class PaneKind { kLibrary, kInspector, kBrowsers, kLists, kLoopBrowser, kMixer };

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
