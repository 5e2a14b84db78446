#include "plugin/arrange/RegionWalk.h"

#include <utility>

#include "plugin/hostapi/Accessibility.h"
#include "plugin/hostapi/ArrangeView.h"

namespace velura {
namespace {

using namespace cocoa;

/// A tree of the host's can be as wide as it likes: this many of its elements are looked at.
constexpr int kMostElements = 1 << 18;

class RegionWalk {
 public:
  RegionWalk(NSView view, const RegionRules& rules) : view_(view), rules_(rules) {}

  void visit(NSObject element, int depth) {
    if (depth > rules_.deepest || --elementsLeft_ < 0) return;
    if (rules_.isRegion(element, depth)) return add(element);
    if (depth == rules_.deepest) return;
    for (const NSObject child : items(accessibilityChildrenOf(element))) visit(child, depth + 1);
  }

  std::vector<CGRect> take() { return std::move(regions_); }

 private:
  void add(NSObject element) {
    const auto frame = accessibilityFrame(element);
    if (!frame || rules_.describe(element).isEqualToString(literal<"cycle region">())) return;
    regions_.push_back(rectFromScreen(*frame, view_));
  }

  NSView view_;
  const RegionRules& rules_;
  int elementsLeft_ = kMostElements;
  std::vector<CGRect> regions_;
};

}  // namespace

std::vector<CGRect> regionsBelow(NSObject element, NSView view, const RegionRules& rules, int depth) {
  RegionWalk walk(view, rules);
  walk.visit(element, depth);
  return walk.take();
}

}  // namespace velura
