#include "plugin/mixer/KnobDrawing.h"
#include "plugin/imaging/ThemeImages.h"

#include <numbers>

#include "cocoa/QuartzCore.h"
#include "plugin/language/TrackTypes.h"
#include "plugin/text/StringBytes.h"
#include "plugin/theme/Utility.h"

namespace velura {

using namespace cocoa;

namespace {

constexpr double kDegree = std::numbers::pi / 180;

NSImage pannerImage(const ImageLayer& what, MANode node, bool isHighlighted, CGSize size) {
  ThemeUtility& theme = ThemeUtility::shared();
  const TrackType type = trackTypeOf(node);
  const bool shared = theme.useSharedPannerType(static_cast<NSInteger>(type)) != 0;
  const std::string name =
      pannerImageName(what.image, isHighlighted, type, shared ? ImageSet::kShared : ImageSet::kOwn);
  return themeImage(string(name), size);
}

CALayer newImageLayer(const ImageLayer& what, CALayer presentation) {
  const CALayer layer = CALayer::layer();
  layer.setName(what.name());
  layer.setContentsGravity(kCAGravityResize);
  layer.setMasksToBounds(true);
  presentation.addSublayer(layer);
  return layer;
}

}  // namespace

bool isPannerKnob(MANode knob) {
  constexpr std::string_view kAssignable = "midiAssignKnob";
  const BriefUTF8 name(knob.name());
  return name.view() == "pan" || name.view().starts_with(kAssignable);
}

void updateImageLayer(const ImageLayer& what, MANode node, NSObject presentation, bool isHighlighted) {
  const auto below = cast<CALayer>(presentation);
  const CALayer known = sublayerNamed(below, what.name());
  const CALayer layer = known ? known : newImageLayer(what, below);
  layer.setContents(pannerImage(what, node, isHighlighted, below.frame().size));
  layer.setBounds(below.bounds());
  if (what.setsPosition) layer.setPosition(below.position());
  layer.setAnchorPoint(below.anchorPoint());
  layer.setBackgroundColor(nullptr);
  layer.setContentsScale(below.contentsScale());
}

void updatePointer(MANode cap, NSObject presentation) {
  if (!isPannerKnob(cap.parent())) return;
  const auto below = cast<CALayer>(presentation);
  below.setContents({});
  updateImageLayer(kKnobPointer, cap, presentation, cap.isHighlighted());
  // Others may have changed these since the layer was made.
  const CALayer pointer = sublayerNamed(below, kKnobPointer.name());
  pointer.setMasksToBounds(true);
  pointer.setContentsGravity(kCAGravityResize);
  for (const MANode child : items<MANode>(cap.childrenArray())) {
    if (!respondsTo<"invalidateCache">(child)) continue;
    child.invalidateCache();
    child.setNeedsDisplay(true);
    child.setNeedsUpdateContents(true);
  }
}

bool drawImage(const ImagePair& images, MANode node, CGRect rect, CGContextRef context) {
  const NSString name = (node.isHighlighted() ? images.highlighted : images.plain)();
  const NSImage image = themeImage(name, node.frame().size);
  if (!image) return false;
  const SavedGraphicsState saved;
  NSGraphicsContext::setCurrentContext(NSGraphicsContext::graphicsContextWithCGContext(context, false));
  NSGraphicsContext::currentContext().setImageInterpolation(NSImageInterpolationHigh);
  const NSSize size = image.size();
  const NSPoint corner{rect.origin.x - (size.width - rect.size.width) * 0.5,
                       rect.origin.y - (size.height - rect.size.height) * 0.5};
  image.drawAtPoint(corner, {}, NSCompositingOperationCopy, 1);
  return true;
}

void drawRing(CGRect rect, CGContextRef context, NSColor color) {
  constexpr double kInset = 2.5;
  constexpr double kWidth = 3.5;
  constexpr double kStart = -65 * kDegree;
  constexpr double kEnd = 245 * kDegree;
  const CGRect ring = rect.insetBy(kInset, kInset);
  if (ring.isEmpty()) return;
  CGContextSaveGState(context);
  CGContextSetLineWidth(context, kWidth);
  CGContextSetStrokeColorWithColor(context, color.CGColor());
  CGContextBeginPath(context);
  CGContextAddArc(context, ring.midX(), ring.midY(), ring.size.width * 0.5, kStart, kEnd, 0);
  CGContextStrokePath(context);
  CGContextRestoreGState(context);
}

void fillDisc(CGRect rect, CGContextRef context, NSColor color) {
  if (rect.isEmpty()) return;
  CGContextSaveGState(context);
  CGContextSetFillColorWithColor(context, color.CGColor());
  CGContextBeginPath(context);
  CGContextAddEllipseInRect(context, rect);
  CGContextDrawPath(context, kCGPathFill);
  CGContextRestoreGState(context);
}

}  // namespace velura
