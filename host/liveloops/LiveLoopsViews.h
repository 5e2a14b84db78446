#pragma once
// The parts of the Live Loops grid. What they show follows from the song: its tracks are the rows, its markers the
// scenes.

#include <string>
#include <vector>

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"
#include "host/song/Song.h"

namespace host {

/// How a row or scene looks at the moment; each is shown somewhere in the grid.
enum class TriggerState { kPlain, kSelected, kUnderMouse, kPressed, kFlashing, kFocused };

struct LiveLoopsRow {
  const Track* track = nullptr;
  TriggerState state = TriggerState::kPlain;
  bool insideSubfolder = false;
};

struct LiveLoopsScene {
  std::string name;
  TriggerState state = TriggerState::kPlain;
};

/// What the grid shows. Shared by its views, and outlives them.
struct LiveLoopsModel {
  explicit LiveLoopsModel(const Song& song);
  std::vector<LiveLoopsRow> rows;
  std::vector<LiveLoopsScene> scenes;

  /// The region that a row plays in a scene; null for an empty cell.
  [[nodiscard]] const Region* cell(std::size_t row, std::size_t scene) const;
};

namespace liveloops {

inline constexpr double kRowHeight = 42;
inline constexpr double kSceneWidth = 104;
inline constexpr double kTriggerHeight = 44;
inline constexpr double kHeaderWidth = 190;
inline constexpr double kDividerWidth = 40;
inline constexpr double kGridHeaderHeight = 46;
inline constexpr double kGlobalTracksHeight = 24;

/// A view of one of the classes, over a place of the window, that shows a model.
cocoa::Ref<NSView> newPart(const char* className, CGRect frame, const LiveLoopsModel& model);

void defineViews();

}  // namespace liveloops

}  // namespace host
