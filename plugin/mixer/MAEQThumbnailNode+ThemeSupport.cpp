// The title of an equalizer thumbnail without a curve.

#include "plugin/hostapi/MANode.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using Thumbnail = MAEQThumbnailNode;
constexpr FixedString kClass = Thumbnail::kClassName;

void drawTitle(NSString title, CGRect rect, CGContextRef context, NSColor color) {
  const NSFont font = NSFont::systemFontOfSize(NSFont::smallSystemFontSize());
  const auto string = makeWith<NSMutableAttributedString, "initWithString:">(title);
  const NSRange whole{0, string->length()};
  text::setAlignment(string, NSTextAlignmentCenter, whole);
  string->addAttribute(NSFontAttributeName, font, whole);
  string->addAttribute(NSForegroundColorAttributeName, color, whole);
  CGContextSetShouldSmoothFonts(context, false);
  NSGraphicsContext::setCurrentContext(NSGraphicsContext::graphicsContextWithCGContext(context, false));
  const double height = font.pointSize();
  text::drawWithRect(string, CGRectMake(0, (rect.size.height - height) * 0.5, rect.size.width, height),
                     NSStringDrawingOptions(0));
}

struct DrawTitle : HostOverride<kClass, "drawTitleInRect:inContext:", void(CGRect, CGContextRef)> {
  static constexpr OpenWindow kOpenWindow = notReached(kPassedOver, "MAEQThumbnailNode equalizerThumbnail");

  static void themed(Thumbnail thumbnail, CGRect rect, CGContextRef context) {
    const NSColor color = ThemeUtility::shared().colorForKey(key<"emptyEQLabelColor">);
    if (!color) return callHost(thumbnail, rect, context);
    const NSString title = thumbnail.title();
    const SavedGraphicsState saved;
    if (title.length() > 0) drawTitle(title, rect, context, color);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAEQThumbnailNode = OverridesOf<kClass, DrawTitle>::themedClass<>();
}  // namespace overrides

}  // namespace velura
