// The title of an equalizer thumbnail without a curve.

#include "cocoa/Override.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using DrawTitle = Override<"MAEQThumbnailNode", void(CGRect, CGContextRef),
                           "drawTitleInRect:inContext:", "customDrawTitleInRect:inContext:">;

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

void customDrawTitle(MAEQThumbnailNode thumbnail, CGRect rect, CGContextRef context) {
  const NSColor color = ThemeUtility::shared().colorForKey(key<"emptyEQLabelColor">);
  if (!color) return DrawTitle::callHost(thumbnail, rect, context);
  const NSString title = thumbnail.title();
  const SavedGraphicsState saved;
  if (title.length() > 0) drawTitle(title, rect, context, color);
}

}  // namespace

void attachMAEQThumbnailNodeThemeSupport() {
  CategoryDefinition("MAEQThumbnailNode")
      .replacement<DrawTitle, customDrawTitle>()
      .classMethod<"addSwizzleMethod", installOnce<DrawTitle>>();
}

}  // namespace velura
