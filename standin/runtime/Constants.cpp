// The platform's constant strings, under their own names.

#include "cocoa/AppKit.h"
#include "standin/runtime/Objects.h"
#include "standin/runtime/Registration.h"

extern "C" {
NSString NSFontAttributeName;
NSString NSForegroundColorAttributeName;
NSString NSBackgroundColorAttributeName;
NSString NSParagraphStyleAttributeName;
NSString NSKernAttributeName;
NSString NSWindowDidUpdateNotification;
NSString NSWindowWillCloseNotification;
NSString NSViewFrameDidChangeNotification;
NSString NSCalibratedRGBColorSpace;
NSString NSDeviceRGBColorSpace;
NSString NSCalibratedWhiteColorSpace;
NSString NSDeviceWhiteColorSpace;
NSString NSNamedColorSpace;
NSString NSPatternColorSpace;
NSString NSAppearanceNameVibrantDark;
NSString NSAccessibilityLayoutItemRole;
NSString NSAccessibilityGroupRole;
NSString NSAccessibilityDisclosureTriangleRole;
NSString kCAGravityResize;
NSString kCAGravityResizeAspect;
NSString kCAGravityCenter;
NSString kCAGravityTop;
NSString kCAGravityBottom;
NSString kCAGravityLeft;
NSString kCAGravityRight;
NSString kCAGravityTopLeft;
NSString kCAGravityTopRight;
NSString kCAGravityBottomLeft;
NSString kCAGravityBottomRight;
NSString kCALineCapButt;
NSString kCALineCapRound;
NSString kCALineCapSquare;
NSString kCAFillRuleNonZero;
NSString kCAFillRuleEvenOdd;
CFStringRef kCGColorSpaceSRGB;
CFStringRef kCGColorSpaceGenericRGB;
CFStringRef kCGColorSpaceGenericGrayGamma2_2;
}

namespace standin {

namespace {

struct Constant {
  NSString* symbol;
  const char* value;
};

const Constant kConstants[] = {
    {&NSFontAttributeName, "NSFont"},
    {&NSForegroundColorAttributeName, "NSColor"},
    {&NSBackgroundColorAttributeName, "NSBackgroundColor"},
    {&NSParagraphStyleAttributeName, "NSParagraphStyle"},
    {&NSKernAttributeName, "NSKern"},
    {&NSWindowDidUpdateNotification, "NSWindowDidUpdateNotification"},
    {&NSWindowWillCloseNotification, "NSWindowWillCloseNotification"},
    {&NSViewFrameDidChangeNotification, "NSViewFrameDidChangeNotification"},
    {&NSCalibratedRGBColorSpace, "NSCalibratedRGBColorSpace"},
    {&NSDeviceRGBColorSpace, "NSDeviceRGBColorSpace"},
    {&NSCalibratedWhiteColorSpace, "NSCalibratedWhiteColorSpace"},
    {&NSDeviceWhiteColorSpace, "NSDeviceWhiteColorSpace"},
    {&NSNamedColorSpace, "NSNamedColorSpace"},
    {&NSPatternColorSpace, "NSPatternColorSpace"},
    {&NSAppearanceNameVibrantDark, "NSAppearanceNameVibrantDark"},
    {&NSAccessibilityLayoutItemRole, "AXLayoutItem"},
    {&NSAccessibilityGroupRole, "AXGroup"},
    {&NSAccessibilityDisclosureTriangleRole, "AXDisclosureTriangle"},
    {&kCAGravityResize, "resize"},
    {&kCAGravityResizeAspect, "resizeAspect"},
    {&kCAGravityCenter, "center"},
    {&kCAGravityTop, "top"},
    {&kCAGravityBottom, "bottom"},
    {&kCAGravityLeft, "left"},
    {&kCAGravityRight, "right"},
    {&kCAGravityTopLeft, "topLeft"},
    {&kCAGravityTopRight, "topRight"},
    {&kCAGravityBottomLeft, "bottomLeft"},
    {&kCAGravityBottomRight, "bottomRight"},
    {&kCALineCapButt, "butt"},
    {&kCALineCapRound, "round"},
    {&kCALineCapSquare, "square"},
    {&kCAFillRuleNonZero, "non-zero"},
    {&kCAFillRuleEvenOdd, "even-odd"},
};

struct CoreConstant {
  CFStringRef* symbol;
  const char* value;
};

const CoreConstant kCoreConstants[] = {
    {&kCGColorSpaceSRGB, "kCGColorSpaceSRGB"},
    {&kCGColorSpaceGenericRGB, "kCGColorSpaceGenericRGB"},
    {&kCGColorSpaceGenericGrayGamma2_2, "kCGColorSpaceGenericGrayGamma2_2"},
};

}  // namespace

void registerConstants() {
  for (const Constant& constant : kConstants) *constant.symbol = cocoa::makeString(constant.value).detach();
  for (const CoreConstant& constant : kCoreConstants) {
    *constant.symbol = cocoa::bridged<CFStringRef>(cocoa::makeString(constant.value).detach());
  }
}

}  // namespace standin
