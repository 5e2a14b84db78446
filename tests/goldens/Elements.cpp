#include "tests/goldens/Elements.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "cocoa/Call.h"
#include "host/mixer/MANode.h"

namespace goldens {
namespace {

using namespace cocoa;

/// All elements of one class and name.
struct Kind {
  std::set<std::size_t> tiles;  // that their frames meet
  std::size_t hit = 0;          // of these have changed
  int depth = 0;                // of the innermost
};

/// How well the frames of a kind fit what changed: 1 for a perfect fit, 0 for none.
double fit(const Kind& kind, const Changes& changes) {
  return 2 * static_cast<double>(kind.hit) / static_cast<double>(kind.tiles.size() + changes.count());
}

class Survey {
 public:
  Survey(NSView frame, const Changes& changes, double scale) : frame_(frame), changes_(changes), scale_(scale) {}

  void addView(NSView view, int depth) {
    if (view.isHidden()) return;
    add(toStdString(view.className()), view.convertRectToView(view.bounds(), frame_), depth);
    if (view.respondsToSelector(selector<"node">())) addNode(call<"node", NSObject>(view), view, {}, depth + 1);
    for (const NSView subview : items<NSView>(view.subviews())) addView(subview, depth + 1);
  }
  [[nodiscard]] const std::map<std::string, Kind>& kinds() const { return kinds_; }

 private:
  /// Frames of nodes count from the lower left of their parents.
  void addNode(NSObject node, NSView view, CGPoint origin, int depth) {
    if (!node) return;
    const auto& state = stateOf<host::MANode>(node);
    if (state.hidden) return;
    const CGRect place = state.frame.offsetBy(origin.x, origin.y);
    add(toStdString(node.className()) + " \"" + toStdString(state.name.get()) + "\"",
        view.convertRectToView(place, frame_), depth);
    for (const NSObject child : items(state.childrenArray)) addNode(child, view, place.origin, depth + 1);
  }

  /// `rect` is in points of the window's frame, whose origin is the lower left.
  void add(const std::string& name, CGRect rect, int depth) {
    const double side = static_cast<double>(changes_.side) / scale_;
    const double top = frame_.bounds().maxY();
    const auto index = [&](double place, std::size_t most) {
      return static_cast<std::size_t>(std::clamp(place / side, 0.0, static_cast<double>(most)));
    };
    if (rect.isEmpty()) return;
    Kind& kind = kinds_[name];
    kind.depth = std::max(kind.depth, depth);
    const std::size_t right = index(std::ceil(rect.maxX() + side) - 1, changes_.columns);
    const std::size_t bottom = index(std::ceil(top - rect.minY() + side) - 1, changes_.rows);
    for (std::size_t y = index(top - rect.maxY(), changes_.rows); y < bottom; ++y) {
      for (std::size_t x = index(rect.minX(), changes_.columns); x < right; ++x) {
        if (kind.tiles.insert(y * changes_.columns + x).second && changes_.at(x, y)) ++kind.hit;
      }
    }
  }

  NSView frame_;
  const Changes& changes_;
  double scale_;
  std::map<std::string, Kind> kinds_;
};

}  // namespace

std::vector<std::string> elementsAt(NSWindow window, const Changes& changes, double scale) {
  constexpr std::size_t kMost = 6;
  const AutoreleasePool pool;
  const NSView frame = window.contentView().superview();
  Survey survey(frame, changes, scale);
  survey.addView(frame, 0);
  std::vector<std::pair<std::string, Kind>> ranked;
  for (const auto& entry : survey.kinds()) {
    if (entry.second.hit > 0) ranked.push_back(entry);
  }
  std::ranges::stable_sort(ranked, [&](const auto& a, const auto& b) {
    return std::pair(fit(a.second, changes), a.second.depth) > std::pair(fit(b.second, changes), b.second.depth);
  });
  std::vector<std::string> names;
  for (const auto& [name, kind] : ranked) {
    if (names.size() < kMost) names.push_back(name);
  }
  return names;
}

}  // namespace goldens
