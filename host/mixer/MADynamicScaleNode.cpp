#include "host/mixer/MADynamicScaleNode.h"

#include <cmath>
#include <map>
#include <tuple>

#include "host/drawing/Painter.h"
#include "host/mixer/ScaleMarks.h"

namespace host {
namespace {

using namespace cocoa;

/// White marks and numbers; of a volume scale the mark of 0 dB is opaque.
CFRef<CGImageRef> drawnScale(NSInteger type, CGSize size, double scale) {
  return drawnImage(size, scale, [&](CGContextRef context) {
    const Painter painter(context);
    const ScaleColumns columns = scaleColumns(type, size.width);
    const double ticksFrom = std::ceil(columns.ticksFrom * scale) / scale;
    for (const ScaleMark& mark : scaleMarks(type)) {
      const bool zero = type == kVolumeScale && mark.position == kZeroDecibels;
      const NSColor color = paletteColor(zero ? Palette::kScaleZero : Palette::kScaleTick);
      const double y = markHeight(type, mark.position, size.height);
      painter.fill(CGRectMake(ticksFrom, y, size.width - ticksFrom, 1), color);
      painter.text(mark.label, CGRectMake(0, y - 5, columns.numbersTo, 11), color,
                   {.size = 7, .alignment = TextAlignment::kRight});
    }
  });
}

/// Kept for the life of the process: there are as many as there are sizes of scales on screens.
CGImageRef sharedScale(NSInteger type, CGSize size, double scale) {
  using Key = std::tuple<NSInteger, double, double, double>;
  static auto* pictures = new std::map<Key, CFRef<CGImageRef>>();
  CFRef<CGImageRef>& picture = (*pictures)[{type, size.width, size.height, scale}];
  if (!picture) picture = drawnScale(type, size, scale);
  return picture;
}

}  // namespace

/// The picture is there before the presentation is updated, and stays until the size or the screen changes.
void MADynamicScaleNode::willUpdatePresentationObject() {
  superSend<MADynamicScaleNode, void>(self, selector<"willUpdatePresentationObject">());
  const MANode& node = stateOf<MANode>(self);
  const NSObject view = call<"view", NSObject>(self);
  const double scale = view ? call<"backingScale", double>(view) : 1;
  if (shownScale == scale && shownSize == node.frame.size) return;
  shownScale = scale;
  shownSize = node.frame.size;
  const bool volume = node.name->isEqualToString(literal<"volumeScale">());
  call<"setContents:">(self, bridged(sharedScale(volume ? kVolumeScale : kLevelScale, shownSize, scale)));
}

void defineMADynamicScaleNode() {
  ClassDefinition<MADynamicScaleNode>(kDynamicScaleClass, "MAImageNode")
      .method<"willUpdatePresentationObject", &MADynamicScaleNode::willUpdatePresentationObject>()
      .registered();
}

}  // namespace host
