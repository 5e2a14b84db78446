#include "host/mixer/MAScaleNode.h"

#include <cmath>
#include <span>

#include "host/mixer/MAFaderNode.h"
#include "host/mixer/Painter.h"

namespace host {
namespace {

using namespace cocoa;

struct Mark {
  double decibels;
  const char* label;
};
constexpr Mark kVolumeMarks[] = {{6, "6"},  {3, "3"},    {0, "0"},    {-3, "3"},
                                 {-6, "6"}, {-12, "12"}, {-18, "18"}, {-30, "30"}};
constexpr Mark kLevelMarks[] = {{6, "0"}, {0, "6"}, {-6, "12"}, {-15, "24"}, {-30, "48"}};
constexpr double kInset = 19;  // the middle of a fader cap at the end of its travel

}  // namespace

id MAScaleNode::init() {
  superSend<MAScaleNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  return self;
}

void MAScaleNode::drawRect(CGRect rect, CGContextRef context) {
  const Painter painter(context);
  const bool volume = type == 2;
  const double inset = volume ? kInset : 4;
  const std::span<const Mark> marks = volume ? std::span<const Mark>(kVolumeMarks) : std::span<const Mark>(kLevelMarks);
  for (const Mark& mark : marks) {
    const double y = std::round(inset + (rect.size.height - 2 * inset) * faderPosition(mark.decibels));
    const double width = rect.size.width;
    painter.fill(CGRectMake(volume ? width - 4 : 0, y, volume ? 4 : 2, 1), look(Look::kScaleTick));
    painter.text(mark.label, CGRectMake(volume ? 0 : 3, y - 5, width - 5, 11), look(Look::kScaleNumber),
                 {.size = 7, .alignment = volume ? TextAlignment::kRight : TextAlignment::kLeft});
  }
}

void defineMAScaleNode() {
  ClassDefinition<MAScaleNode>("MAScaleNode", "MANode")
      .method<"init", &MAScaleNode::init>()
      .property<"type", "setType:", &MAScaleNode::type>()
      .method<"drawRect:inContext:", &MAScaleNode::drawRect>()
      .registered();
}

}  // namespace host
