#pragma once
// The borders between the sections of the mixer's strips, remembered.

#include <array>
#include <cstddef>
#include <optional>

#include "plugin/hostapi/MANode.h"
#include "plugin/theme/VLRStripGradient.h"

namespace velura {

/// Borders of one layout. A border is computed once for a parent of the strips, a strip height and a number
/// of strips, and no border is used for longer than two seconds.
///
/// Strips of another height ask for the borders anew. That they are walked for again, all strips for every
/// strip, is avoided: a border does not depend on the height, so one that was found less than two seconds
/// ago is taken over if the two sections that decided it, and the asking strip's own, still say the same.
class BoundaryCache {
 public:
  /// The border's y in the strip's coordinates.
  double boundary(MAStripNode strip, StripAnchor anchor);

 private:
  /// Where a section stands in the tree; looked up again before it is used, as it may be gone.
  struct Section {
    NSUInteger strip = 0;
    NSUInteger child = 0;
    NSObject node;
    double edge = 0;
  };
  struct Border {
    bool known = false;   // for the layout that is current
    bool walked = false;  // found by a walk at `walkedAt`, for any height
    double y = 0;
    double walkedAt = 0;
    std::optional<Section> lowestAbove;
    std::optional<Section> highestBelow;
  };
  struct Layout {
    NSObject parent;  // compared, never used: it may be gone
    double height = 0;
    NSUInteger strips = 0;
    double startedAt = 0;
  };

  void enter(MANode parent, double height, NSUInteger strips, double now);
  static void walk(NSArray strips, StripAnchor anchor, double now, Border& border);
  static bool stillHolds(NSArray strips, MAStripNode strip, StripAnchor anchor, double now, const Border& border);

  Layout layout_;
  bool started_ = false;
  std::array<Border, kStripAnchorNames.size()> borders_;
};

}  // namespace velura
