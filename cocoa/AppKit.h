#pragma once
// AppKit's classes as handles, its constants and its C functions. Sizes are in points; component values,
// alphas and gradient locations run from 0 to 1.

#include "cocoa/Call.h"
#include "cocoa/CoreGraphics.h"
#include "cocoa/QuartzCore.h"

struct NSAppearance;
struct NSApplication;
struct NSBitmapImageRep;
struct NSBezierPath;
struct NSEvent;
struct NSFont;
struct NSGraphicsContext;
struct NSImage;
struct NSView;
struct NSWindow;
struct NSWindowController;

// ---- Constants ------------------------------------------------------------------------------------

enum NSColorType : NSInteger { NSColorTypeComponentBased = 0, NSColorTypePattern = 1, NSColorTypeCatalog = 2 };

enum NSCompositingOperation : NSUInteger {
  NSCompositingOperationClear = 0,
  NSCompositingOperationCopy = 1,
  NSCompositingOperationSourceOver = 2,
  NSCompositingOperationSourceIn = 3,
  NSCompositingOperationSourceOut = 4,
  NSCompositingOperationSourceAtop = 5,
  NSCompositingOperationDestinationOver = 6,
  NSCompositingOperationDestinationIn = 7,
  NSCompositingOperationDestinationOut = 8,
  NSCompositingOperationDestinationAtop = 9,
  NSCompositingOperationXOR = 10,
  NSCompositingOperationPlusDarker = 11,
  NSCompositingOperationPlusLighter = 13,
  NSCompositingOperationMultiply = 14,
  NSCompositingOperationScreen = 15
};

/// Bits of a bitmap's format.
inline constexpr NSUInteger NSBitmapFormatAlphaFirst = 1U << 0U;
inline constexpr NSUInteger NSBitmapFormatAlphaNonpremultiplied = 1U << 1U;
inline constexpr NSUInteger NSBitmapFormatFloatingPointSamples = 1U << 2U;

enum NSBitmapImageFileType : NSUInteger { NSBitmapImageFileTypeTIFF = 0, NSBitmapImageFileTypePNG = 4 };

enum NSImageInterpolation : NSUInteger {
  NSImageInterpolationDefault = 0,
  NSImageInterpolationNone = 1,
  NSImageInterpolationLow = 2,
  NSImageInterpolationHigh = 3,
  NSImageInterpolationMedium = 4
};

enum NSTextAlignment : NSInteger {
  NSTextAlignmentLeft = 0,
#if defined(__APPLE__) && !defined(__aarch64__)
  NSTextAlignmentRight = 1,
  NSTextAlignmentCenter = 2,
#else
  NSTextAlignmentCenter = 1,
  NSTextAlignmentRight = 2,
#endif
  NSTextAlignmentJustified = 3,
  NSTextAlignmentNatural = 4
};

enum NSLineBreakMode : NSUInteger {
  NSLineBreakByWordWrapping = 0,
  NSLineBreakByCharWrapping = 1,
  NSLineBreakByClipping = 2,
  NSLineBreakByTruncatingHead = 3,
  NSLineBreakByTruncatingTail = 4,
  NSLineBreakByTruncatingMiddle = 5
};

enum NSStringDrawingOptions : NSInteger { NSStringDrawingUsesBaseline = 0, NSStringDrawingUsesLineFragmentOrigin = 1 };

enum NSWindingRule : NSUInteger { NSWindingRuleNonZero = 0, NSWindingRuleEvenOdd = 1 };
enum NSLineCapStyle : NSUInteger { NSLineCapStyleButt = 0, NSLineCapStyleRound = 1, NSLineCapStyleSquare = 2 };
enum NSLineJoinStyle : NSUInteger { NSLineJoinStyleMiter = 0, NSLineJoinStyleRound = 1, NSLineJoinStyleBevel = 2 };

inline constexpr NSUInteger NSGradientDrawsBeforeStartingLocation = 1;
inline constexpr NSUInteger NSGradientDrawsAfterEndingLocation = 2;

enum NSWindowOrderingMode : NSInteger { NSWindowBelow = -1, NSWindowOut = 0, NSWindowAbove = 1 };
inline constexpr NSUInteger NSWindowStyleMaskBorderless = 0;
inline constexpr NSUInteger NSWindowStyleMaskTitled = 1;
inline constexpr NSUInteger NSWindowStyleMaskClosable = 2;
inline constexpr NSUInteger NSWindowStyleMaskMiniaturizable = 4;
inline constexpr NSUInteger NSWindowStyleMaskResizable = 8;
inline constexpr NSUInteger NSBackingStoreBuffered = 2;

enum NSEventType : NSUInteger {
  NSEventTypeLeftMouseDown = 1,
  NSEventTypeLeftMouseUp = 2,
  NSEventTypeLeftMouseDragged = 6
};

enum NSAlertStyle : NSUInteger { NSAlertStyleWarning = 0, NSAlertStyleInformational = 1, NSAlertStyleCritical = 2 };
inline constexpr NSInteger NSAlertFirstButtonReturn = 1000;
inline constexpr NSInteger NSAlertSecondButtonReturn = 1001;
inline constexpr NSInteger NSControlStateValueOff = 0;
inline constexpr NSInteger NSControlStateValueOn = 1;

inline constexpr CGFloat NSFontWeightUltraLight = -0.8;
inline constexpr CGFloat NSFontWeightThin = -0.6;
inline constexpr CGFloat NSFontWeightLight = -0.4;
inline constexpr CGFloat NSFontWeightRegular = 0;
inline constexpr CGFloat NSFontWeightMedium = 0.23;
inline constexpr CGFloat NSFontWeightSemibold = 0.3;
inline constexpr CGFloat NSFontWeightBold = 0.4;
inline constexpr CGFloat NSFontWeightHeavy = 0.56;
inline constexpr CGFloat NSFontWeightBlack = 0.62;

extern "C" {
extern NSString NSFontAttributeName;
extern NSString NSForegroundColorAttributeName;
extern NSString NSBackgroundColorAttributeName;
extern NSString NSParagraphStyleAttributeName;
extern NSString NSKernAttributeName;
extern NSString NSWindowDidUpdateNotification;
extern NSString NSWindowWillCloseNotification;
extern NSString NSViewFrameDidChangeNotification;
extern NSString NSCalibratedRGBColorSpace;
extern NSString NSDeviceRGBColorSpace;
extern NSString NSCalibratedWhiteColorSpace;
extern NSString NSDeviceWhiteColorSpace;
extern NSString NSNamedColorSpace;
extern NSString NSPatternColorSpace;
extern NSString NSAppearanceNameVibrantDark;
extern NSString NSAccessibilityLayoutItemRole;
extern NSString NSAccessibilityGroupRole;
extern NSString NSAccessibilityDisclosureTriangleRole;
extern NSApplication NSApp;

/// Replaces what is there by the current colour.
void NSRectFill(NSRect rect);
void NSRectFillUsingOperation(NSRect rect, NSCompositingOperation operation);
void NSFrameRect(NSRect rect);
void NSFrameRectWithWidth(NSRect rect, CGFloat width);
void NSRectClip(NSRect rect);
}

// ---- Colours and gradients ------------------------------------------------------------------------

struct NSColorSpace : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSColorSpace"};
  using NSObject::NSObject;
  static NSColorSpace sRGBColorSpace() { return cocoa::callClass<NSColorSpace, "sRGBColorSpace">(); }
  static NSColorSpace deviceRGBColorSpace() { return cocoa::callClass<NSColorSpace, "deviceRGBColorSpace">(); }
  static NSColorSpace genericRGBColorSpace() { return cocoa::callClass<NSColorSpace, "genericRGBColorSpace">(); }
  static NSColorSpace genericGrayColorSpace() { return cocoa::callClass<NSColorSpace, "genericGrayColorSpace">(); }
  [[nodiscard]] NSInteger numberOfColorComponents() const {
    return cocoa::call<"numberOfColorComponents", NSInteger>(object);
  }
};

struct NSColor : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSColor"};
  using NSObject::NSObject;
  static NSColor colorWithSRGBRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    return cocoa::callClass<NSColor, "colorWithSRGBRed:green:blue:alpha:">(red, green, blue, alpha);
  }
  /// In sRGB.
  static NSColor colorWithRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    return cocoa::callClass<NSColor, "colorWithRed:green:blue:alpha:">(red, green, blue, alpha);
  }
  static NSColor colorWithCalibratedRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    return cocoa::callClass<NSColor, "colorWithCalibratedRed:green:blue:alpha:">(red, green, blue, alpha);
  }
  static NSColor colorWithDeviceRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    return cocoa::callClass<NSColor, "colorWithDeviceRed:green:blue:alpha:">(red, green, blue, alpha);
  }
  static NSColor colorWithHue(CGFloat hue, CGFloat saturation, CGFloat brightness, CGFloat alpha) {
    return cocoa::callClass<NSColor, "colorWithHue:saturation:brightness:alpha:">(hue, saturation, brightness, alpha);
  }
  static NSColor colorWithCalibratedHue(CGFloat hue, CGFloat saturation, CGFloat brightness, CGFloat alpha) {
    return cocoa::callClass<NSColor, "colorWithCalibratedHue:saturation:brightness:alpha:">(hue, saturation, brightness,
                                                                                            alpha);
  }
  static NSColor colorWithWhite(CGFloat white, CGFloat alpha) {
    return cocoa::callClass<NSColor, "colorWithWhite:alpha:">(white, alpha);
  }
  static NSColor colorWithCalibratedWhite(CGFloat white, CGFloat alpha) {
    return cocoa::callClass<NSColor, "colorWithCalibratedWhite:alpha:">(white, alpha);
  }
  static NSColor colorWithDeviceWhite(CGFloat white, CGFloat alpha) {
    return cocoa::callClass<NSColor, "colorWithDeviceWhite:alpha:">(white, alpha);
  }
  static NSColor colorWithPatternImage(NSImage image);
  static NSColor colorWithCGColor(CGColorRef color) { return cocoa::callClass<NSColor, "colorWithCGColor:">(color); }
  /// nil for a name that the catalogue lacks.
  static NSColor colorWithCatalogName(NSString catalog, NSString name) {
    return cocoa::callClass<NSColor, "colorWithCatalogName:colorName:">(catalog, name);
  }
  static NSColor colorNamed(NSString name, NSBundle bundle) {
    return cocoa::callClass<NSColor, "colorNamed:bundle:">(name, bundle);
  }
  static NSColor blackColor() { return cocoa::callClass<NSColor, "blackColor">(); }
  static NSColor whiteColor() { return cocoa::callClass<NSColor, "whiteColor">(); }
  static NSColor clearColor() { return cocoa::callClass<NSColor, "clearColor">(); }
  static NSColor grayColor() { return cocoa::callClass<NSColor, "grayColor">(); }
  static NSColor darkGrayColor() { return cocoa::callClass<NSColor, "darkGrayColor">(); }
  static NSColor lightGrayColor() { return cocoa::callClass<NSColor, "lightGrayColor">(); }
  static NSColor redColor() { return cocoa::callClass<NSColor, "redColor">(); }
  static NSColor greenColor() { return cocoa::callClass<NSColor, "greenColor">(); }
  static NSColor blueColor() { return cocoa::callClass<NSColor, "blueColor">(); }

  [[nodiscard]] NSColorType type() const { return cocoa::call<"type", NSColorType>(object); }
  [[nodiscard]] NSString catalogNameComponent() const { return cocoa::call<"catalogNameComponent", NSString>(object); }
  [[nodiscard]] NSString colorNameComponent() const { return cocoa::call<"colorNameComponent", NSString>(object); }
  [[nodiscard]] NSString colorSpaceName() const { return cocoa::call<"colorSpaceName", NSString>(object); }
  [[nodiscard]] NSColorSpace colorSpace() const { return cocoa::call<"colorSpace", NSColorSpace>(object); }
  /// nil for a colour that the space cannot hold, such as a pattern.
  [[nodiscard]] NSColor colorUsingColorSpace(NSColorSpace space) const {
    return cocoa::call<"colorUsingColorSpace:", NSColor>(object, space);
  }
  [[nodiscard]] NSColor colorWithAlphaComponent(CGFloat alpha) const {
    return cocoa::call<"colorWithAlphaComponent:", NSColor>(object, alpha);
  }
  /// 1 for a pattern.
  [[nodiscard]] CGFloat alphaComponent() const { return cocoa::call<"alphaComponent", CGFloat>(object); }
  /// Raises for a colour that is not RGB.
  [[nodiscard]] CGFloat redComponent() const { return cocoa::call<"redComponent", CGFloat>(object); }
  [[nodiscard]] CGFloat greenComponent() const { return cocoa::call<"greenComponent", CGFloat>(object); }
  [[nodiscard]] CGFloat blueComponent() const { return cocoa::call<"blueComponent", CGFloat>(object); }
  [[nodiscard]] CGFloat hueComponent() const { return cocoa::call<"hueComponent", CGFloat>(object); }
  [[nodiscard]] CGFloat saturationComponent() const { return cocoa::call<"saturationComponent", CGFloat>(object); }
  [[nodiscard]] CGFloat brightnessComponent() const { return cocoa::call<"brightnessComponent", CGFloat>(object); }
  /// Raises for a colour that is not grey.
  [[nodiscard]] CGFloat whiteComponent() const { return cocoa::call<"whiteComponent", CGFloat>(object); }
  void getRed(CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) const {
    cocoa::call<"getRed:green:blue:alpha:">(object, red, green, blue, alpha);
  }
  void getHue(CGFloat* hue, CGFloat* saturation, CGFloat* brightness, CGFloat* alpha) const {
    cocoa::call<"getHue:saturation:brightness:alpha:">(object, hue, saturation, brightness, alpha);
  }
  void getWhite(CGFloat* white, CGFloat* alpha) const { cocoa::call<"getWhite:alpha:">(object, white, alpha); }
  /// The alpha counts as a component: 4 for RGB, 2 for grey. Raises for a pattern.
  [[nodiscard]] NSInteger numberOfComponents() const { return cocoa::call<"numberOfComponents", NSInteger>(object); }
  void getComponents(CGFloat* components) const { cocoa::call<"getComponents:">(object, components); }
  [[nodiscard]] NSImage patternImage() const;
  /// Lives as long as this colour.
  [[nodiscard]] CGColorRef CGColor() const { return cocoa::call<"CGColor", CGColorRef>(object); }

  void set() const { cocoa::call<"set">(object); }
  void setFill() const { cocoa::call<"setFill">(object); }
  void setStroke() const { cocoa::call<"setStroke">(object); }
};

struct NSGradient : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSGradient"};
  using NSObject::NSObject;
  /// Null for fewer than one colour or a colour without components. `locations` has one entry a colour.
  static cocoa::Ref<NSGradient> withColors(NSArray colors, const CGFloat* locations, NSColorSpace space) {
    return cocoa::makeWith<NSGradient, "initWithColors:atLocations:colorSpace:">(colors, locations, space);
  }
  static cocoa::Ref<NSGradient> withStartingColor(NSColor start, NSColor end) {
    return cocoa::makeWith<NSGradient, "initWithStartingColor:endingColor:">(start, end);
  }
  /// `angle` in degrees, counter-clockwise from the positive x axis; the outer colours reach the corners.
  void drawInRect(NSRect rect, CGFloat angle) const { cocoa::call<"drawInRect:angle:">(object, rect, angle); }
  void drawInBezierPath(NSBezierPath path, CGFloat angle) const;
  void drawFromPoint(NSPoint start, NSPoint end, NSUInteger options) const {
    cocoa::call<"drawFromPoint:toPoint:options:">(object, start, end, options);
  }
  [[nodiscard]] NSInteger numberOfColorStops() const { return cocoa::call<"numberOfColorStops", NSInteger>(object); }
};

// ---- Paths ----------------------------------------------------------------------------------------

struct NSBezierPath : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSBezierPath"};
  using NSObject::NSObject;
  static NSBezierPath bezierPath() { return cocoa::callClass<NSBezierPath, "bezierPath">(); }
  static NSBezierPath bezierPathWithRect(NSRect rect) {
    return cocoa::callClass<NSBezierPath, "bezierPathWithRect:">(rect);
  }
  static NSBezierPath bezierPathWithRoundedRect(NSRect rect, CGFloat xRadius, CGFloat yRadius) {
    return cocoa::callClass<NSBezierPath, "bezierPathWithRoundedRect:xRadius:yRadius:">(rect, xRadius, yRadius);
  }
  static NSBezierPath bezierPathWithOvalInRect(NSRect rect) {
    return cocoa::callClass<NSBezierPath, "bezierPathWithOvalInRect:">(rect);
  }
  static void fillRect(NSRect rect) { cocoa::callClass<NSBezierPath, "fillRect:", void>(rect); }
  static void strokeRect(NSRect rect) { cocoa::callClass<NSBezierPath, "strokeRect:", void>(rect); }
  static void clipRect(NSRect rect) { cocoa::callClass<NSBezierPath, "clipRect:", void>(rect); }
  static void strokeLineFromPoint(NSPoint from, NSPoint to) {
    cocoa::callClass<NSBezierPath, "strokeLineFromPoint:toPoint:", void>(from, to);
  }

  void moveToPoint(NSPoint point) const { cocoa::call<"moveToPoint:">(object, point); }
  void lineToPoint(NSPoint point) const { cocoa::call<"lineToPoint:">(object, point); }
  void curveToPoint(NSPoint end, NSPoint control1, NSPoint control2) const {
    cocoa::call<"curveToPoint:controlPoint1:controlPoint2:">(object, end, control1, control2);
  }
  /// Angles in degrees, counter-clockwise.
  void appendBezierPathWithArcWithCenter(NSPoint center, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                                         bool clockwise = false) const {
    cocoa::call<"appendBezierPathWithArcWithCenter:radius:startAngle:endAngle:clockwise:">(
        object, center, radius, startAngle, endAngle, BOOL(clockwise));
  }
  void appendBezierPathWithRect(NSRect rect) const { cocoa::call<"appendBezierPathWithRect:">(object, rect); }
  void appendBezierPathWithOvalInRect(NSRect rect) const {
    cocoa::call<"appendBezierPathWithOvalInRect:">(object, rect);
  }
  void appendBezierPath(NSBezierPath path) const { cocoa::call<"appendBezierPath:">(object, path); }
  void closePath() const { cocoa::call<"closePath">(object); }
  void fill() const { cocoa::call<"fill">(object); }
  void stroke() const { cocoa::call<"stroke">(object); }
  void addClip() const { cocoa::call<"addClip">(object); }
  [[nodiscard]] CGFloat lineWidth() const { return cocoa::call<"lineWidth", CGFloat>(object); }
  void setLineWidth(CGFloat width) const { cocoa::call<"setLineWidth:">(object, width); }
  void setLineCapStyle(NSLineCapStyle style) const { cocoa::call<"setLineCapStyle:">(object, style); }
  void setLineJoinStyle(NSLineJoinStyle style) const { cocoa::call<"setLineJoinStyle:">(object, style); }
  void setLineDash(const CGFloat* pattern, NSInteger count, CGFloat phase) const {
    cocoa::call<"setLineDash:count:phase:">(object, pattern, count, phase);
  }
  void setWindingRule(NSWindingRule rule) const { cocoa::call<"setWindingRule:">(object, rule); }
  [[nodiscard]] bool isEmpty() const { return cocoa::callBool<"isEmpty">(object); }
  [[nodiscard]] NSRect bounds() const { return cocoa::call<"bounds", NSRect>(object); }
  [[nodiscard]] bool containsPoint(NSPoint point) const { return cocoa::callBool<"containsPoint:">(object, point); }
};

inline void NSGradient::drawInBezierPath(NSBezierPath path, CGFloat angle) const {
  cocoa::call<"drawInBezierPath:angle:">(object, path, angle);
}

// ---- Images ---------------------------------------------------------------------------------------

struct NSImageRep : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSImageRep"};
  using NSObject::NSObject;
  [[nodiscard]] NSSize size() const { return cocoa::call<"size", NSSize>(object); }
  void setSize(NSSize size) const { cocoa::call<"setSize:">(object, size); }
  [[nodiscard]] NSInteger pixelsWide() const { return cocoa::call<"pixelsWide", NSInteger>(object); }
  [[nodiscard]] NSInteger pixelsHigh() const { return cocoa::call<"pixelsHigh", NSInteger>(object); }
  [[nodiscard]] bool hasAlpha() const { return cocoa::callBool<"hasAlpha">(object); }
};

struct NSBitmapImageRep : NSImageRep {
  static constexpr cocoa::FixedString kClassName{"NSBitmapImageRep"};
  using NSImageRep::NSImageRep;
  /// Null planes, bytesPerRow 0 and bitsPerPixel 0 leave memory and layout to the bitmap.
  static cocoa::Ref<NSBitmapImageRep> withBitmapDataPlanes(unsigned char** planes, NSInteger width, NSInteger height,
                                                           NSInteger bitsPerSample, NSInteger samplesPerPixel,
                                                           bool hasAlpha, bool isPlanar, NSString colorSpaceName,
                                                           NSInteger bytesPerRow, NSInteger bitsPerPixel) {
    return cocoa::makeWith<NSBitmapImageRep,
                           "initWithBitmapDataPlanes:pixelsWide:pixelsHigh:bitsPerSample:samplesPerPixel:hasAlpha:"
                           "isPlanar:colorSpaceName:bytesPerRow:bitsPerPixel:">(
        planes, width, height, bitsPerSample, samplesPerPixel, BOOL(hasAlpha), BOOL(isPlanar), colorSpaceName,
        bytesPerRow, bitsPerPixel);
  }
  static cocoa::Ref<NSBitmapImageRep> withBitmapDataPlanes(unsigned char** planes, NSInteger width, NSInteger height,
                                                           NSInteger bitsPerSample, NSInteger samplesPerPixel,
                                                           bool hasAlpha, bool isPlanar, NSString colorSpaceName,
                                                           NSUInteger bitmapFormat, NSInteger bytesPerRow,
                                                           NSInteger bitsPerPixel) {
    return cocoa::makeWith<NSBitmapImageRep,
                           "initWithBitmapDataPlanes:pixelsWide:pixelsHigh:bitsPerSample:samplesPerPixel:hasAlpha:"
                           "isPlanar:colorSpaceName:bitmapFormat:bytesPerRow:bitsPerPixel:">(
        planes, width, height, bitsPerSample, samplesPerPixel, BOOL(hasAlpha), BOOL(isPlanar), colorSpaceName,
        bitmapFormat, bytesPerRow, bitsPerPixel);
  }
  static cocoa::Ref<NSBitmapImageRep> withCGImage(CGImageRef image) {
    return cocoa::makeWith<NSBitmapImageRep, "initWithCGImage:">(image);
  }
  /// nil for anything that is no sound image of at most 16384 pixels a side.
  static NSBitmapImageRep imageRepWithData(NSData data) {
    return cocoa::callClass<NSBitmapImageRep, "imageRepWithData:">(data);
  }
  [[nodiscard]] unsigned char* bitmapData() const { return cocoa::call<"bitmapData", unsigned char*>(object); }
  [[nodiscard]] NSInteger bytesPerRow() const { return cocoa::call<"bytesPerRow", NSInteger>(object); }
  [[nodiscard]] NSUInteger bitmapFormat() const { return cocoa::call<"bitmapFormat", NSUInteger>(object); }
  [[nodiscard]] NSInteger samplesPerPixel() const { return cocoa::call<"samplesPerPixel", NSInteger>(object); }
  [[nodiscard]] NSInteger bitsPerSample() const { return cocoa::call<"bitsPerSample", NSInteger>(object); }
  [[nodiscard]] NSInteger bitsPerPixel() const { return cocoa::call<"bitsPerPixel", NSInteger>(object); }
  /// Autoreleased; a copy of the pixels as they are now.
  [[nodiscard]] CGImageRef CGImage() const { return cocoa::call<"CGImage", CGImageRef>(object); }
  /// From the top left. nil outside the bitmap.
  [[nodiscard]] NSColor colorAtX(NSInteger x, NSInteger y) const {
    return cocoa::call<"colorAtX:y:", NSColor>(object, x, y);
  }
  void setColor(NSColor color, NSInteger x, NSInteger y) const { cocoa::call<"setColor:atX:y:">(object, color, x, y); }
  [[nodiscard]] NSString colorSpaceName() const { return cocoa::call<"colorSpaceName", NSString>(object); }
  [[nodiscard]] bool isPlanar() const { return cocoa::callBool<"isPlanar">(object); }
  [[nodiscard]] NSData TIFFRepresentation() const { return cocoa::call<"TIFFRepresentation", NSData>(object); }
  [[nodiscard]] NSData representationUsingType(NSBitmapImageFileType type, NSDictionary properties) const {
    return cocoa::call<"representationUsingType:properties:", NSData>(object, type, properties);
  }
};

struct NSImage : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSImage"};
  using NSObject::NSObject;
  static cocoa::Ref<NSImage> withSize(NSSize size) { return cocoa::makeWith<NSImage, "initWithSize:">(size); }
  static cocoa::Ref<NSImage> withContentsOfFile(NSString path) {
    return cocoa::makeWith<NSImage, "initWithContentsOfFile:">(path);
  }
  static cocoa::Ref<NSImage> withData(NSData data) { return cocoa::makeWith<NSImage, "initWithData:">(data); }
  /// A zero size stands for one point a pixel.
  static cocoa::Ref<NSImage> withCGImage(CGImageRef image, NSSize size) {
    return cocoa::makeWith<NSImage, "initWithCGImage:size:">(image, size);
  }
  static NSImage imageNamed(NSString name) { return cocoa::callClass<NSImage, "imageNamed:">(name); }
  [[nodiscard]] NSSize size() const { return cocoa::call<"size", NSSize>(object); }
  void setSize(NSSize size) const { cocoa::call<"setSize:">(object, size); }
  [[nodiscard]] bool isValid() const { return cocoa::callBool<"isValid">(object); }
  [[nodiscard]] NSArray representations() const { return cocoa::call<"representations", NSArray>(object); }
  void addRepresentation(NSImageRep rep) const { cocoa::call<"addRepresentation:">(object, rep); }
  void lockFocus() const { cocoa::call<"lockFocus">(object); }
  void unlockFocus() const { cocoa::call<"unlockFocus">(object); }
  void drawInRect(NSRect rect) const { cocoa::call<"drawInRect:">(object, rect); }
  /// A zero `source` stands for the whole image.
  void drawInRect(NSRect rect, NSRect source, NSCompositingOperation operation, CGFloat fraction) const {
    cocoa::call<"drawInRect:fromRect:operation:fraction:">(object, rect, source, operation, fraction);
  }
  void drawAtPoint(NSPoint point, NSRect source, NSCompositingOperation operation, CGFloat fraction) const {
    cocoa::call<"drawAtPoint:fromRect:operation:fraction:">(object, point, source, operation, fraction);
  }
  /// Autoreleased. All arguments may be null.
  CGImageRef CGImageForProposedRect(NSRect* rect, NSGraphicsContext context, NSDictionary hints) const;
  /// All representations, one frame each; nil for an image without any.
  [[nodiscard]] NSData TIFFRepresentation() const { return cocoa::call<"TIFFRepresentation", NSData>(object); }
  [[nodiscard]] bool isTemplate() const { return cocoa::callBool<"isTemplate">(object); }
  void setTemplate(bool isTemplate) const { cocoa::call<"setTemplate:">(object, BOOL(isTemplate)); }
};

inline NSColor NSColor::colorWithPatternImage(NSImage image) {
  return cocoa::callClass<NSColor, "colorWithPatternImage:">(image);
}
inline NSImage NSColor::patternImage() const { return cocoa::call<"patternImage", NSImage>(object); }

struct NSGraphicsContext : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSGraphicsContext"};
  using NSObject::NSObject;
  static NSGraphicsContext currentContext() { return cocoa::callClass<NSGraphicsContext, "currentContext">(); }
  static void setCurrentContext(NSGraphicsContext context) {
    cocoa::callClass<NSGraphicsContext, "setCurrentContext:", void>(context);
  }
  /// The class messages keep and bring back the current context together with its state.
  static void saveGraphicsState() { cocoa::callClass<NSGraphicsContext, "saveGraphicsState", void>(); }
  static void restoreGraphicsState() { cocoa::callClass<NSGraphicsContext, "restoreGraphicsState", void>(); }
  static NSGraphicsContext graphicsContextWithCGContext(CGContextRef context, bool flipped) {
    return cocoa::callClass<NSGraphicsContext, "graphicsContextWithCGContext:flipped:">(context, BOOL(flipped));
  }
  /// nil for a bitmap that cannot be drawn into.
  static NSGraphicsContext graphicsContextWithBitmapImageRep(NSBitmapImageRep rep) {
    return cocoa::callClass<NSGraphicsContext, "graphicsContextWithBitmapImageRep:">(rep);
  }
  [[nodiscard]] CGContextRef CGContext() const { return cocoa::call<"CGContext", CGContextRef>(object); }
  [[nodiscard]] bool isFlipped() const { return cocoa::callBool<"isFlipped">(object); }
  void saveState() const { cocoa::call<"saveGraphicsState">(object); }
  void restoreState() const { cocoa::call<"restoreGraphicsState">(object); }
  void flushGraphics() const { cocoa::call<"flushGraphics">(object); }
  void setShouldAntialias(bool antialias) const { cocoa::call<"setShouldAntialias:">(object, BOOL(antialias)); }
  void setCompositingOperation(NSCompositingOperation operation) const {
    cocoa::call<"setCompositingOperation:">(object, operation);
  }
  void setImageInterpolation(NSImageInterpolation interpolation) const {
    cocoa::call<"setImageInterpolation:">(object, interpolation);
  }
};

namespace cocoa {

/// Saves the current context and its state, and brings both back at the end of the scope.
class SavedGraphicsState {
 public:
  SavedGraphicsState() { NSGraphicsContext::saveGraphicsState(); }
  SavedGraphicsState(const SavedGraphicsState&) = delete;
  SavedGraphicsState& operator=(const SavedGraphicsState&) = delete;
  ~SavedGraphicsState() { NSGraphicsContext::restoreGraphicsState(); }
};

}  // namespace cocoa

inline CGImageRef NSImage::CGImageForProposedRect(NSRect* rect, NSGraphicsContext context, NSDictionary hints) const {
  return cocoa::call<"CGImageForProposedRect:context:hints:", CGImageRef>(object, rect, context, hints);
}

// ---- Text -----------------------------------------------------------------------------------------

struct NSFont : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSFont"};
  using NSObject::NSObject;
  static NSFont systemFontOfSize(CGFloat size) { return cocoa::callClass<NSFont, "systemFontOfSize:">(size); }
  static NSFont systemFontOfSize(CGFloat size, CGFloat weight) {
    return cocoa::callClass<NSFont, "systemFontOfSize:weight:">(size, weight);
  }
  static NSFont boldSystemFontOfSize(CGFloat size) { return cocoa::callClass<NSFont, "boldSystemFontOfSize:">(size); }
  static NSFont monospacedDigitSystemFontOfSize(CGFloat size, CGFloat weight) {
    return cocoa::callClass<NSFont, "monospacedDigitSystemFontOfSize:weight:">(size, weight);
  }
  static CGFloat systemFontSize() { return cocoa::callClass<NSFont, "systemFontSize", CGFloat>(); }
  static CGFloat smallSystemFontSize() { return cocoa::callClass<NSFont, "smallSystemFontSize", CGFloat>(); }
  static CGFloat labelFontSize() { return cocoa::callClass<NSFont, "labelFontSize", CGFloat>(); }
  [[nodiscard]] CGFloat pointSize() const { return cocoa::call<"pointSize", CGFloat>(object); }
  [[nodiscard]] CGFloat ascender() const { return cocoa::call<"ascender", CGFloat>(object); }
  /// Negative.
  [[nodiscard]] CGFloat descender() const { return cocoa::call<"descender", CGFloat>(object); }
  [[nodiscard]] NSRect boundingRectForFont() const { return cocoa::call<"boundingRectForFont", NSRect>(object); }
  [[nodiscard]] NSString fontName() const { return cocoa::call<"fontName", NSString>(object); }
};

struct NSParagraphStyle : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSParagraphStyle"};
  using NSObject::NSObject;
  static NSParagraphStyle defaultParagraphStyle() {
    return cocoa::callClass<NSParagraphStyle, "defaultParagraphStyle">();
  }
  [[nodiscard]] NSTextAlignment alignment() const { return cocoa::call<"alignment", NSTextAlignment>(object); }
  [[nodiscard]] NSLineBreakMode lineBreakMode() const { return cocoa::call<"lineBreakMode", NSLineBreakMode>(object); }
};

struct NSMutableParagraphStyle : NSParagraphStyle {
  static constexpr cocoa::FixedString kClassName{"NSMutableParagraphStyle"};
  using NSParagraphStyle::NSParagraphStyle;
  void setAlignment(NSTextAlignment alignment) const { cocoa::call<"setAlignment:">(object, alignment); }
  void setLineBreakMode(NSLineBreakMode mode) const { cocoa::call<"setLineBreakMode:">(object, mode); }
};

/// What AppKit adds to strings.
namespace cocoa::text {

inline void drawInRect(NSString text, NSRect rect, NSDictionary attributes) {
  call<"drawInRect:withAttributes:">(text, rect, attributes);
}
inline void drawAtPoint(NSString text, NSPoint point, NSDictionary attributes) {
  call<"drawAtPoint:withAttributes:">(text, point, attributes);
}
inline NSSize sizeWithAttributes(NSString text, NSDictionary attributes) {
  return call<"sizeWithAttributes:", NSSize>(text, attributes);
}
inline void drawInRect(NSAttributedString text, NSRect rect) { call<"drawInRect:">(text, rect); }
inline void drawAtPoint(NSAttributedString text, NSPoint point) { call<"drawAtPoint:">(text, point); }
/// Without the line-fragment option the rectangle's origin is the baseline of a single line.
inline void drawWithRect(NSAttributedString text, NSRect rect, NSStringDrawingOptions options) {
  call<"drawWithRect:options:context:">(text, rect, options, static_cast<id>(nullptr));
}
inline NSSize size(NSAttributedString text) { return call<"size", NSSize>(text); }
inline void setAlignment(NSMutableAttributedString text, NSTextAlignment alignment, NSRange range) {
  call<"setAlignment:range:">(text, alignment, range);
}

}  // namespace cocoa::text

// ---- Views and controls ---------------------------------------------------------------------------

struct NSResponder : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSResponder"};
  using NSObject::NSObject;
  [[nodiscard]] NSResponder nextResponder() const { return cocoa::call<"nextResponder", NSResponder>(object); }
  void setNextResponder(NSResponder next) const { cocoa::call<"setNextResponder:">(object, next); }
  void mouseDown(NSEvent event) const;
  void mouseDragged(NSEvent event) const;
  void mouseUp(NSEvent event) const;
};

struct NSView : NSResponder {
  static constexpr cocoa::FixedString kClassName{"NSView"};
  using NSResponder::NSResponder;
  static cocoa::Ref<NSView> withFrame(NSRect frame) { return cocoa::makeWith<NSView, "initWithFrame:">(frame); }

  [[nodiscard]] NSRect frame() const { return cocoa::call<"frame", NSRect>(object); }
  void setFrame(NSRect frame) const { cocoa::call<"setFrame:">(object, frame); }
  void setFrameSize(NSSize size) const { cocoa::call<"setFrameSize:">(object, size); }
  void setFrameOrigin(NSPoint origin) const { cocoa::call<"setFrameOrigin:">(object, origin); }
  [[nodiscard]] NSRect bounds() const { return cocoa::call<"bounds", NSRect>(object); }
  void setBounds(NSRect bounds) const { cocoa::call<"setBounds:">(object, bounds); }
  void setBoundsOrigin(NSPoint origin) const { cocoa::call<"setBoundsOrigin:">(object, origin); }
  [[nodiscard]] NSRect visibleRect() const { return cocoa::call<"visibleRect", NSRect>(object); }

  [[nodiscard]] NSView superview() const { return cocoa::call<"superview", NSView>(object); }
  /// A snapshot: walking it allows changes.
  [[nodiscard]] NSArray subviews() const { return cocoa::call<"subviews", NSArray>(object); }
  void setSubviews(NSArray subviews) const { cocoa::call<"setSubviews:">(object, subviews); }
  void addSubview(NSView view) const { cocoa::call<"addSubview:">(object, view); }
  void addSubview(NSView view, NSWindowOrderingMode place, NSView other) const {
    cocoa::call<"addSubview:positioned:relativeTo:">(object, view, place, other);
  }
  void removeFromSuperview() const { cocoa::call<"removeFromSuperview">(object); }
  [[nodiscard]] bool isDescendantOf(NSView other) const { return cocoa::callBool<"isDescendantOf:">(object, other); }
  [[nodiscard]] NSWindow window() const;
  void viewWillMoveToWindow(NSWindow window) const;
  void viewDidMoveToWindow() const { cocoa::call<"viewDidMoveToWindow">(object); }
  /// The view that shows at a point of the superview's coordinates; nil outside of this one.
  [[nodiscard]] NSView hitTest(NSPoint point) const { return cocoa::call<"hitTest:", NSView>(object, point); }
  [[nodiscard]] NSInteger tag() const { return cocoa::call<"tag", NSInteger>(object); }
  [[nodiscard]] NSView viewWithTag(NSInteger tag) const { return cocoa::call<"viewWithTag:", NSView>(object, tag); }

  [[nodiscard]] bool wantsLayer() const { return cocoa::callBool<"wantsLayer">(object); }
  void setWantsLayer(bool wants) const { cocoa::call<"setWantsLayer:">(object, BOOL(wants)); }
  [[nodiscard]] CALayer layer() const { return cocoa::call<"layer", CALayer>(object); }
  void setLayer(CALayer layer) const { cocoa::call<"setLayer:">(object, layer); }

  [[nodiscard]] bool isFlipped() const { return cocoa::callBool<"isFlipped">(object); }
  [[nodiscard]] bool isHidden() const { return cocoa::callBool<"isHidden">(object); }
  void setHidden(bool hidden) const { cocoa::call<"setHidden:">(object, BOOL(hidden)); }
  [[nodiscard]] CGFloat alphaValue() const { return cocoa::call<"alphaValue", CGFloat>(object); }
  void setAlphaValue(CGFloat alpha) const { cocoa::call<"setAlphaValue:">(object, alpha); }
  [[nodiscard]] bool isOpaque() const { return cocoa::callBool<"isOpaque">(object); }

  [[nodiscard]] bool needsDisplay() const { return cocoa::callBool<"needsDisplay">(object); }
  void setNeedsDisplay(bool needs) const { cocoa::call<"setNeedsDisplay:">(object, BOOL(needs)); }
  void setNeedsDisplayInRect(NSRect rect) const { cocoa::call<"setNeedsDisplayInRect:">(object, rect); }
  void display() const { cocoa::call<"display">(object); }
  void displayIfNeeded() const { cocoa::call<"displayIfNeeded">(object); }
  void drawRect(NSRect dirty) const { cocoa::call<"drawRect:">(object, dirty); }
  /// Draws the view and its descendants, the origin of its bounds at the origin of the context.
  void displayRectIgnoringOpacity(NSRect rect, NSGraphicsContext context) const {
    cocoa::call<"displayRectIgnoringOpacity:inContext:">(object, rect, context);
  }

  /// An empty bitmap that fits what `cacheDisplayInRect` draws: at the window's pixels a point, nil for an
  /// empty rectangle.
  [[nodiscard]] NSBitmapImageRep bitmapImageRepForCachingDisplayInRect(NSRect rect) const {
    return cocoa::call<"bitmapImageRepForCachingDisplayInRect:", NSBitmapImageRep>(object, rect);
  }
  /// Draws the view and its descendants, the rectangle filling the bitmap.
  void cacheDisplayInRect(NSRect rect, NSBitmapImageRep bitmap) const {
    cocoa::call<"cacheDisplayInRect:toBitmapImageRep:">(object, rect, bitmap);
  }

  /// A nil view stands for the window.
  [[nodiscard]] NSRect convertRectToView(NSRect rect, NSView view) const {
    return cocoa::call<"convertRect:toView:", NSRect>(object, rect, view);
  }
  [[nodiscard]] NSRect convertRectFromView(NSRect rect, NSView view) const {
    return cocoa::call<"convertRect:fromView:", NSRect>(object, rect, view);
  }
  [[nodiscard]] NSPoint convertPointToView(NSPoint point, NSView view) const {
    return cocoa::call<"convertPoint:toView:", NSPoint>(object, point, view);
  }
  [[nodiscard]] NSPoint convertPointFromView(NSPoint point, NSView view) const {
    return cocoa::call<"convertPoint:fromView:", NSPoint>(object, point, view);
  }
};

struct NSCell : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSCell"};
  using NSObject::NSObject;
  [[nodiscard]] NSString stringValue() const { return cocoa::call<"stringValue", NSString>(object); }
  void setStringValue(NSString text) const { cocoa::call<"setStringValue:">(object, text); }
  [[nodiscard]] NSImage image() const { return cocoa::call<"image", NSImage>(object); }
  void setImage(NSImage image) const { cocoa::call<"setImage:">(object, image); }
  [[nodiscard]] NSFont font() const { return cocoa::call<"font", NSFont>(object); }
  void setFont(NSFont font) const { cocoa::call<"setFont:">(object, font); }
  [[nodiscard]] bool isEnabled() const { return cocoa::callBool<"isEnabled">(object); }
  void setEnabled(bool enabled) const { cocoa::call<"setEnabled:">(object, BOOL(enabled)); }
  [[nodiscard]] bool isHighlighted() const { return cocoa::callBool<"isHighlighted">(object); }
  void setHighlighted(bool highlighted) const { cocoa::call<"setHighlighted:">(object, BOOL(highlighted)); }
  [[nodiscard]] NSInteger state() const { return cocoa::call<"state", NSInteger>(object); }
  void setState(NSInteger state) const { cocoa::call<"setState:">(object, state); }
  [[nodiscard]] NSView controlView() const { return cocoa::call<"controlView", NSView>(object); }
  void setControlView(NSView view) const { cocoa::call<"setControlView:">(object, view); }
  void drawWithFrame(NSRect frame, NSView view) const { cocoa::call<"drawWithFrame:inView:">(object, frame, view); }
  void drawInteriorWithFrame(NSRect frame, NSView view) const {
    cocoa::call<"drawInteriorWithFrame:inView:">(object, frame, view);
  }
};

struct NSButtonCell : NSCell {
  static constexpr cocoa::FixedString kClassName{"NSButtonCell"};
  using NSCell::NSCell;
  [[nodiscard]] NSString title() const { return cocoa::call<"title", NSString>(object); }
  void setTitle(NSString title) const { cocoa::call<"setTitle:">(object, title); }
  [[nodiscard]] NSAttributedString attributedTitle() const {
    return cocoa::call<"attributedTitle", NSAttributedString>(object);
  }
  void setAttributedTitle(NSAttributedString title) const { cocoa::call<"setAttributedTitle:">(object, title); }
  [[nodiscard]] NSColor backgroundColor() const { return cocoa::call<"backgroundColor", NSColor>(object); }
  void setBackgroundColor(NSColor color) const { cocoa::call<"setBackgroundColor:">(object, color); }
};

struct NSControl : NSView {
  static constexpr cocoa::FixedString kClassName{"NSControl"};
  using NSView::NSView;
  [[nodiscard]] NSCell cell() const { return cocoa::call<"cell", NSCell>(object); }
  void setCell(NSCell cell) const { cocoa::call<"setCell:">(object, cell); }
  [[nodiscard]] NSObject target() const { return cocoa::call<"target", NSObject>(object); }
  void setTarget(NSObject target) const { cocoa::call<"setTarget:">(object, target); }
  [[nodiscard]] SEL action() const { return cocoa::call<"action", SEL>(object); }
  void setAction(SEL action) const { cocoa::call<"setAction:">(object, action); }
  [[nodiscard]] bool isEnabled() const { return cocoa::callBool<"isEnabled">(object); }
  void setEnabled(bool enabled) const { cocoa::call<"setEnabled:">(object, BOOL(enabled)); }
  [[nodiscard]] NSString stringValue() const { return cocoa::call<"stringValue", NSString>(object); }
  void setStringValue(NSString text) const { cocoa::call<"setStringValue:">(object, text); }
  [[nodiscard]] NSAttributedString attributedStringValue() const {
    return cocoa::call<"attributedStringValue", NSAttributedString>(object);
  }
  void setAttributedStringValue(NSAttributedString text) const {
    cocoa::call<"setAttributedStringValue:">(object, text);
  }
  [[nodiscard]] NSFont font() const { return cocoa::call<"font", NSFont>(object); }
  void setFont(NSFont font) const { cocoa::call<"setFont:">(object, font); }
  [[nodiscard]] NSTextAlignment alignment() const { return cocoa::call<"alignment", NSTextAlignment>(object); }
  void setAlignment(NSTextAlignment alignment) const { cocoa::call<"setAlignment:">(object, alignment); }
  void setTag(NSInteger tag) const { cocoa::call<"setTag:">(object, tag); }
  /// Does what a click of the user does, unless the control is disabled.
  void performClick(NSObject sender) const { cocoa::call<"performClick:">(object, sender); }
};

struct NSTextField : NSControl {
  static constexpr cocoa::FixedString kClassName{"NSTextField"};
  using NSControl::NSControl;
  static cocoa::Ref<NSTextField> withFrame(NSRect frame) {
    return cocoa::makeWith<NSTextField, "initWithFrame:">(frame);
  }
  [[nodiscard]] NSColor textColor() const { return cocoa::call<"textColor", NSColor>(object); }
  void setTextColor(NSColor color) const { cocoa::call<"setTextColor:">(object, color); }
  [[nodiscard]] NSColor backgroundColor() const { return cocoa::call<"backgroundColor", NSColor>(object); }
  void setBackgroundColor(NSColor color) const { cocoa::call<"setBackgroundColor:">(object, color); }
  [[nodiscard]] bool drawsBackground() const { return cocoa::callBool<"drawsBackground">(object); }
  void setDrawsBackground(bool draws) const { cocoa::call<"setDrawsBackground:">(object, BOOL(draws)); }
};

struct NSButton : NSControl {
  static constexpr cocoa::FixedString kClassName{"NSButton"};
  using NSControl::NSControl;
  static cocoa::Ref<NSButton> withFrame(NSRect frame) { return cocoa::makeWith<NSButton, "initWithFrame:">(frame); }
  [[nodiscard]] NSString title() const { return cocoa::call<"title", NSString>(object); }
  void setTitle(NSString title) const { cocoa::call<"setTitle:">(object, title); }
  [[nodiscard]] NSAttributedString attributedTitle() const {
    return cocoa::call<"attributedTitle", NSAttributedString>(object);
  }
  void setAttributedTitle(NSAttributedString title) const { cocoa::call<"setAttributedTitle:">(object, title); }
  [[nodiscard]] NSImage image() const { return cocoa::call<"image", NSImage>(object); }
  void setImage(NSImage image) const { cocoa::call<"setImage:">(object, image); }
  [[nodiscard]] NSInteger state() const { return cocoa::call<"state", NSInteger>(object); }
  void setState(NSInteger state) const { cocoa::call<"setState:">(object, state); }
};

struct NSMenuItem : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSMenuItem"};
  using NSObject::NSObject;
  [[nodiscard]] NSString title() const { return cocoa::call<"title", NSString>(object); }
  void setTitle(NSString title) const { cocoa::call<"setTitle:">(object, title); }
  /// Shown instead of the title when there is one.
  [[nodiscard]] NSAttributedString attributedTitle() const {
    return cocoa::call<"attributedTitle", NSAttributedString>(object);
  }
  void setAttributedTitle(NSAttributedString title) const { cocoa::call<"setAttributedTitle:">(object, title); }
  [[nodiscard]] NSInteger state() const { return cocoa::call<"state", NSInteger>(object); }
  void setState(NSInteger state) const { cocoa::call<"setState:">(object, state); }
};

struct NSMenu : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSMenu"};
  using NSObject::NSObject;
  [[nodiscard]] NSArray itemArray() const { return cocoa::call<"itemArray", NSArray>(object); }
  [[nodiscard]] NSInteger numberOfItems() const { return cocoa::call<"numberOfItems", NSInteger>(object); }
  [[nodiscard]] NSMenuItem itemAtIndex(NSInteger index) const {
    return cocoa::call<"itemAtIndex:", NSMenuItem>(object, index);
  }
  NSMenuItem addItemWithTitle(NSString title, SEL action, NSString keyEquivalent) const {
    return cocoa::call<"addItemWithTitle:action:keyEquivalent:", NSMenuItem>(object, title, action, keyEquivalent);
  }
};

struct NSPopUpButton : NSButton {
  static constexpr cocoa::FixedString kClassName{"NSPopUpButton"};
  using NSButton::NSButton;
  [[nodiscard]] NSMenu menu() const { return cocoa::call<"menu", NSMenu>(object); }
  [[nodiscard]] NSArray itemArray() const { return cocoa::call<"itemArray", NSArray>(object); }
  /// The first item is selected as soon as it is added.
  void addItemWithTitle(NSString title) const { cocoa::call<"addItemWithTitle:">(object, title); }
  [[nodiscard]] NSMenuItem selectedItem() const { return cocoa::call<"selectedItem", NSMenuItem>(object); }
  [[nodiscard]] NSInteger indexOfSelectedItem() const { return cocoa::call<"indexOfSelectedItem", NSInteger>(object); }
  void selectItemAtIndex(NSInteger index) const { cocoa::call<"selectItemAtIndex:">(object, index); }
  /// Of the arrows.
  [[nodiscard]] NSColor contentTintColor() const { return cocoa::call<"contentTintColor", NSColor>(object); }
  void setContentTintColor(NSColor color) const { cocoa::call<"setContentTintColor:">(object, color); }
};

struct NSTableColumn : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSTableColumn"};
  using NSObject::NSObject;
  static cocoa::Ref<NSTableColumn> withIdentifier(NSString identifier) {
    return cocoa::makeWith<NSTableColumn, "initWithIdentifier:">(identifier);
  }
  [[nodiscard]] NSString identifier() const { return cocoa::call<"identifier", NSString>(object); }
  [[nodiscard]] NSCell dataCell() const { return cocoa::call<"dataCell", NSCell>(object); }
  void setDataCell(NSCell cell) const { cocoa::call<"setDataCell:">(object, cell); }
  [[nodiscard]] NSCell headerCell() const { return cocoa::call<"headerCell", NSCell>(object); }
  [[nodiscard]] CGFloat width() const { return cocoa::call<"width", CGFloat>(object); }
  void setWidth(CGFloat width) const { cocoa::call<"setWidth:">(object, width); }
};

/// Lines of a table: bits of its grid's style.
inline constexpr NSUInteger NSTableViewSolidVerticalGridLineMask = 1;
inline constexpr NSUInteger NSTableViewSolidHorizontalGridLineMask = 2;

struct NSTableView : NSControl {
  static constexpr cocoa::FixedString kClassName{"NSTableView"};
  using NSControl::NSControl;
  static cocoa::Ref<NSTableView> withFrame(NSRect frame) {
    return cocoa::makeWith<NSTableView, "initWithFrame:">(frame);
  }
  [[nodiscard]] NSArray tableColumns() const { return cocoa::call<"tableColumns", NSArray>(object); }
  void addTableColumn(NSTableColumn column) const { cocoa::call<"addTableColumn:">(object, column); }
  /// Neither is retained.
  [[nodiscard]] NSObject dataSource() const { return cocoa::call<"dataSource", NSObject>(object); }
  void setDataSource(NSObject source) const { cocoa::call<"setDataSource:">(object, source); }
  void setDelegate(NSObject delegate) const { cocoa::call<"setDelegate:">(object, delegate); }
  /// The view of the column titles, which lies where it is put.
  [[nodiscard]] NSView headerView() const { return cocoa::call<"headerView", NSView>(object); }
  void reloadData() const { cocoa::call<"reloadData">(object); }
  [[nodiscard]] NSInteger numberOfRows() const { return cocoa::call<"numberOfRows", NSInteger>(object); }
  [[nodiscard]] CGFloat rowHeight() const { return cocoa::call<"rowHeight", CGFloat>(object); }
  void setRowHeight(CGFloat height) const { cocoa::call<"setRowHeight:">(object, height); }
  [[nodiscard]] NSRect rectOfRow(NSInteger row) const { return cocoa::call<"rectOfRow:", NSRect>(object, row); }
  [[nodiscard]] NSRect frameOfCellAtColumn(NSInteger column, NSInteger row) const {
    return cocoa::call<"frameOfCellAtColumn:row:", NSRect>(object, column, row);
  }
  /// -1 while none is.
  [[nodiscard]] NSInteger selectedRow() const { return cocoa::call<"selectedRow", NSInteger>(object); }
  [[nodiscard]] bool isRowSelected(NSInteger row) const { return cocoa::callBool<"isRowSelected:">(object, row); }
  void selectRow(NSInteger row) const {
    cocoa::call<"selectRowIndexes:byExtendingSelection:">(
        object,
        cocoa::call<"indexSetWithIndex:", NSObject>(cocoa::asObject(cocoa::classNamed<"NSIndexSet">()),
                                                    static_cast<NSUInteger>(row)),
        BOOL(0));
  }
  [[nodiscard]] NSUInteger gridStyleMask() const { return cocoa::call<"gridStyleMask", NSUInteger>(object); }
  void setGridStyleMask(NSUInteger mask) const { cocoa::call<"setGridStyleMask:">(object, mask); }
  [[nodiscard]] NSColor gridColor() const { return cocoa::call<"gridColor", NSColor>(object); }
  void setGridColor(NSColor color) const { cocoa::call<"setGridColor:">(object, color); }
  [[nodiscard]] NSColor backgroundColor() const { return cocoa::call<"backgroundColor", NSColor>(object); }
  void setBackgroundColor(NSColor color) const { cocoa::call<"setBackgroundColor:">(object, color); }
  void setUsesAlternatingRowBackgroundColors(bool uses) const {
    cocoa::call<"setUsesAlternatingRowBackgroundColors:">(object, BOOL(uses));
  }
  void setAutosaveName(NSString name) const { cocoa::call<"setAutosaveName:">(object, name); }
};

struct NSOutlineView : NSTableView {
  static constexpr cocoa::FixedString kClassName{"NSOutlineView"};
  using NSTableView::NSTableView;
  static cocoa::Ref<NSOutlineView> withFrame(NSRect frame) {
    return cocoa::makeWith<NSOutlineView, "initWithFrame:">(frame);
  }
  void expandItem(NSObject item) const { cocoa::call<"expandItem:">(object, item); }
  void collapseItem(NSObject item) const { cocoa::call<"collapseItem:">(object, item); }
  [[nodiscard]] bool isItemExpanded(NSObject item) const { return cocoa::callBool<"isItemExpanded:">(object, item); }
  /// nil for a row that is not there.
  [[nodiscard]] NSObject itemAtRow(NSInteger row) const { return cocoa::call<"itemAtRow:", NSObject>(object, row); }
  [[nodiscard]] NSInteger levelForRow(NSInteger row) const {
    return cocoa::call<"levelForRow:", NSInteger>(object, row);
  }
};

struct NSBox : NSView {
  static constexpr cocoa::FixedString kClassName{"NSBox"};
  using NSView::NSView;
  static cocoa::Ref<NSBox> withFrame(NSRect frame) { return cocoa::makeWith<NSBox, "initWithFrame:">(frame); }
  [[nodiscard]] NSColor fillColor() const { return cocoa::call<"fillColor", NSColor>(object); }
  void setFillColor(NSColor color) const { cocoa::call<"setFillColor:">(object, color); }
  [[nodiscard]] NSColor borderColor() const { return cocoa::call<"borderColor", NSColor>(object); }
  void setBorderColor(NSColor color) const { cocoa::call<"setBorderColor:">(object, color); }
  [[nodiscard]] CGFloat borderWidth() const { return cocoa::call<"borderWidth", CGFloat>(object); }
  void setBorderWidth(CGFloat width) const { cocoa::call<"setBorderWidth:">(object, width); }
  [[nodiscard]] CGFloat cornerRadius() const { return cocoa::call<"cornerRadius", CGFloat>(object); }
  void setCornerRadius(CGFloat radius) const { cocoa::call<"setCornerRadius:">(object, radius); }
};

struct NSViewController : NSResponder {
  static constexpr cocoa::FixedString kClassName{"NSViewController"};
  using NSResponder::NSResponder;
  [[nodiscard]] NSView view() const { return cocoa::call<"view", NSView>(object); }
  void setView(NSView view) const { cocoa::call<"setView:">(object, view); }
  void loadView() const { cocoa::call<"loadView">(object); }
  void viewDidLoad() const { cocoa::call<"viewDidLoad">(object); }
  [[nodiscard]] bool isViewLoaded() const { return cocoa::callBool<"isViewLoaded">(object); }
  [[nodiscard]] NSString title() const { return cocoa::call<"title", NSString>(object); }
  void setTitle(NSString title) const { cocoa::call<"setTitle:">(object, title); }
};

// ---- Windows and the application ------------------------------------------------------------------

struct NSWindow : NSResponder {
  static constexpr cocoa::FixedString kClassName{"NSWindow"};
  using NSResponder::NSResponder;
  static cocoa::Ref<NSWindow> withContentRect(NSRect rect, NSUInteger styleMask, NSUInteger backing, bool defer) {
    return cocoa::makeWith<NSWindow, "initWithContentRect:styleMask:backing:defer:">(rect, styleMask, backing,
                                                                                     BOOL(defer));
  }
  [[nodiscard]] NSRect frame() const { return cocoa::call<"frame", NSRect>(object); }
  void setFrame(NSRect frame, bool display) const { cocoa::call<"setFrame:display:">(object, frame, BOOL(display)); }
  [[nodiscard]] NSView contentView() const { return cocoa::call<"contentView", NSView>(object); }
  void setContentView(NSView view) const { cocoa::call<"setContentView:">(object, view); }
  [[nodiscard]] NSString title() const { return cocoa::call<"title", NSString>(object); }
  void setTitle(NSString title) const { cocoa::call<"setTitle:">(object, title); }
  [[nodiscard]] NSString subtitle() const { return cocoa::call<"subtitle", NSString>(object); }
  void setSubtitle(NSString subtitle) const { cocoa::call<"setSubtitle:">(object, subtitle); }
  [[nodiscard]] NSWindowController windowController() const;
  void setWindowController(NSWindowController controller) const;
  [[nodiscard]] NSObject delegate() const { return cocoa::call<"delegate", NSObject>(object); }
  void setDelegate(NSObject delegate) const { cocoa::call<"setDelegate:">(object, delegate); }
  [[nodiscard]] NSColor backgroundColor() const { return cocoa::call<"backgroundColor", NSColor>(object); }
  void setBackgroundColor(NSColor color) const { cocoa::call<"setBackgroundColor:">(object, color); }
  [[nodiscard]] NSUInteger styleMask() const { return cocoa::call<"styleMask", NSUInteger>(object); }
  [[nodiscard]] NSInteger level() const { return cocoa::call<"level", NSInteger>(object); }
  void setLevel(NSInteger level) const { cocoa::call<"setLevel:">(object, level); }
  [[nodiscard]] CGFloat backingScaleFactor() const { return cocoa::call<"backingScaleFactor", CGFloat>(object); }
  [[nodiscard]] bool isVisible() const { return cocoa::callBool<"isVisible">(object); }
  [[nodiscard]] bool isKeyWindow() const { return cocoa::callBool<"isKeyWindow">(object); }
  [[nodiscard]] bool isMainWindow() const { return cocoa::callBool<"isMainWindow">(object); }
  /// Between the window's base coordinates and the screen's, y up in both.
  [[nodiscard]] NSRect convertRectToScreen(NSRect rect) const {
    return cocoa::call<"convertRectToScreen:", NSRect>(object, rect);
  }
  [[nodiscard]] NSRect convertRectFromScreen(NSRect rect) const {
    return cocoa::call<"convertRectFromScreen:", NSRect>(object, rect);
  }
  [[nodiscard]] NSAppearance appearance() const;
  void setAppearance(NSAppearance appearance) const;
  /// Brings a mouse event to the view under it, and what follows until the release to the same view.
  void sendEvent(NSEvent event) const;
  void orderFront(NSObject sender) const { cocoa::call<"orderFront:">(object, sender); }
  void orderOut(NSObject sender) const { cocoa::call<"orderOut:">(object, sender); }
  void makeKeyAndOrderFront(NSObject sender) const { cocoa::call<"makeKeyAndOrderFront:">(object, sender); }
  /// Posts NSWindowDidUpdateNotification with the window.
  void update() const { cocoa::call<"update">(object); }
  /// Whether any view that shows in the window needs display.
  [[nodiscard]] bool viewsNeedDisplay() const { return cocoa::callBool<"viewsNeedDisplay">(object); }
  void display() const { cocoa::call<"display">(object); }
  void close() const { cocoa::call<"close">(object); }
};

struct NSPanel : NSWindow {
  static constexpr cocoa::FixedString kClassName{"NSPanel"};
  using NSWindow::NSWindow;
};

struct NSWindowController : NSResponder {
  static constexpr cocoa::FixedString kClassName{"NSWindowController"};
  using NSResponder::NSResponder;
  static cocoa::Ref<NSWindowController> withWindow(NSWindow window) {
    return cocoa::makeWith<NSWindowController, "initWithWindow:">(window);
  }
  [[nodiscard]] NSWindow window() const { return cocoa::call<"window", NSWindow>(object); }
  void setWindow(NSWindow window) const { cocoa::call<"setWindow:">(object, window); }
};

struct NSApplication : NSResponder {
  static constexpr cocoa::FixedString kClassName{"NSApplication"};
  using NSResponder::NSResponder;
  static NSApplication sharedApplication() { return cocoa::callClass<NSApplication, "sharedApplication">(); }
  /// Front to back.
  [[nodiscard]] NSArray windows() const { return cocoa::call<"windows", NSArray>(object); }
  [[nodiscard]] NSWindow keyWindow() const { return cocoa::call<"keyWindow", NSWindow>(object); }
  [[nodiscard]] NSWindow mainWindow() const { return cocoa::call<"mainWindow", NSWindow>(object); }
  /// Sends `update` to every visible window.
  void updateWindows() const { cocoa::call<"updateWindows">(object); }
};

// ---- Events, alerts, the workspace ------------------------------------------------------------------

struct NSEvent : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSEvent"};
  using NSObject::NSObject;
  /// Bit 0 is the primary button.
  static NSUInteger pressedMouseButtons() { return cocoa::callClass<NSEvent, "pressedMouseButtons", NSUInteger>(); }
  static NSEvent mouseEventWithType(NSEventType type, NSPoint location, NSUInteger modifierFlags, double timestamp,
                                    NSInteger windowNumber, NSObject context, NSInteger eventNumber,
                                    NSInteger clickCount, float pressure) {
    return cocoa::callClass<NSEvent,
                            "mouseEventWithType:location:modifierFlags:timestamp:windowNumber:context:eventNumber:"
                            "clickCount:pressure:">(type, location, modifierFlags, timestamp, windowNumber, context,
                                                    eventNumber, clickCount, pressure);
  }
  [[nodiscard]] NSEventType type() const { return cocoa::call<"type", NSEventType>(object); }
  /// In the window's base coordinates.
  [[nodiscard]] NSPoint locationInWindow() const { return cocoa::call<"locationInWindow", NSPoint>(object); }
  [[nodiscard]] NSInteger clickCount() const { return cocoa::call<"clickCount", NSInteger>(object); }
};

struct NSAppearance : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSAppearance"};
  using NSObject::NSObject;
  static NSAppearance appearanceNamed(NSString name) {
    return cocoa::callClass<NSAppearance, "appearanceNamed:">(name);
  }
  [[nodiscard]] NSString name() const { return cocoa::call<"name", NSString>(object); }
};

struct NSAlert : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSAlert"};
  using NSObject::NSObject;
  /// The first button added is the default one. Without a target of its own a button ends the alert.
  NSButton addButtonWithTitle(NSString title) const {
    return cocoa::call<"addButtonWithTitle:", NSButton>(object, title);
  }
  [[nodiscard]] NSArray buttons() const { return cocoa::call<"buttons", NSArray>(object); }
  [[nodiscard]] NSString messageText() const { return cocoa::call<"messageText", NSString>(object); }
  void setMessageText(NSString text) const { cocoa::call<"setMessageText:">(object, text); }
  [[nodiscard]] NSString informativeText() const { return cocoa::call<"informativeText", NSString>(object); }
  void setInformativeText(NSString text) const { cocoa::call<"setInformativeText:">(object, text); }
  [[nodiscard]] NSAlertStyle alertStyle() const { return cocoa::call<"alertStyle", NSAlertStyle>(object); }
  void setAlertStyle(NSAlertStyle style) const { cocoa::call<"setAlertStyle:">(object, style); }
  [[nodiscard]] bool showsSuppressionButton() const { return cocoa::callBool<"showsSuppressionButton">(object); }
  void setShowsSuppressionButton(bool shows) const { cocoa::call<"setShowsSuppressionButton:">(object, BOOL(shows)); }
  [[nodiscard]] NSButton suppressionButton() const { return cocoa::call<"suppressionButton", NSButton>(object); }
  [[nodiscard]] NSWindow window() const { return cocoa::call<"window", NSWindow>(object); }
  /// `NSAlertFirstButtonReturn` and upwards, by the button that ended the alert.
  [[nodiscard]] NSInteger runModal() const { return cocoa::call<"runModal", NSInteger>(object); }
};

struct NSWorkspace : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSWorkspace"};
  using NSObject::NSObject;
  static NSWorkspace sharedWorkspace() { return cocoa::callClass<NSWorkspace, "sharedWorkspace">(); }
  [[nodiscard]] bool openURL(NSURL url) const { return cocoa::callBool<"openURL:">(object, url); }
};

inline void NSResponder::mouseDown(NSEvent event) const { cocoa::call<"mouseDown:">(object, event); }
inline void NSResponder::mouseDragged(NSEvent event) const { cocoa::call<"mouseDragged:">(object, event); }
inline void NSResponder::mouseUp(NSEvent event) const { cocoa::call<"mouseUp:">(object, event); }
inline NSAppearance NSWindow::appearance() const { return cocoa::call<"appearance", NSAppearance>(object); }
inline void NSWindow::setAppearance(NSAppearance appearance) const {
  cocoa::call<"setAppearance:">(object, appearance);
}
inline void NSWindow::sendEvent(NSEvent event) const { cocoa::call<"sendEvent:">(object, event); }

inline NSWindow NSView::window() const { return cocoa::call<"window", NSWindow>(object); }
inline void NSView::viewWillMoveToWindow(NSWindow window) const {
  cocoa::call<"viewWillMoveToWindow:">(object, window);
}
inline NSWindowController NSWindow::windowController() const {
  return cocoa::call<"windowController", NSWindowController>(object);
}
inline void NSWindow::setWindowController(NSWindowController controller) const {
  cocoa::call<"setWindowController:">(object, controller);
}
