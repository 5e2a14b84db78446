#pragma once
// Drawing helpers of the host's controls, in the points of a node or view: y up, unless it is flipped.

#include <string_view>

#include "cocoa/AppKit.h"
#include "host/palette/Palette.h"

namespace host {

enum class TextAlignment { kLeft, kCentre, kRight };

struct TextStyle {
  double size = 9;
  double weight = 0;  // the platform's font weights: 0 regular, 0.23 medium, 0.3 semibold
  TextAlignment alignment = TextAlignment::kCentre;
};

/// Draws into one context. The context outlives it.
class Painter {
 public:
  explicit Painter(CGContextRef context, bool flipped = false) : context_(context), flipped_(flipped) {}

  void fill(CGRect rect, NSColor color) const;
  void fillRounded(CGRect rect, double radius, NSColor color) const;
  void strokeRounded(CGRect rect, double radius, NSColor color, double width) const;
  /// A rounded body lit from above, with an edge and a highlight along its top: how every button looks.
  void body(CGRect rect, double radius, NSColor top, NSColor bottom, NSColor edge) const;
  void verticalGradient(CGRect rect, double radius, NSColor top, NSColor bottom) const;
  void fillEllipse(CGRect rect, NSColor color) const;
  void strokeEllipse(CGRect rect, NSColor color, double width) const;
  void line(CGPoint from, CGPoint to, NSColor color, double width) const;
  /// An arc with round ends; angles in degrees, counter-clockwise from the positive x axis, drawn clockwise.
  void arc(CGPoint centre, double radius, double fromDegrees, double toDegrees, NSColor color, double width) const;
  /// One line of text, centred vertically in the rectangle; what does not fit is cut off.
  void text(std::string_view text, CGRect rect, NSColor color, const TextStyle& style) const;
  void text(NSString text, CGRect rect, NSColor color, const TextStyle& style) const;
  /// The same for text that brings its own colour and font.
  void text(NSAttributedString text, CGRect rect) const;
  /// The same on the lower edge of the rectangle.
  void baselineText(NSAttributedString text, CGRect rect) const;
  void image(NSImage image, CGRect rect) const;
  [[nodiscard]] CGContextRef context() const { return context_; }
  [[nodiscard]] bool isFlipped() const { return flipped_; }

 private:
  void addRounded(CGRect rect, double radius) const;
  CGContextRef context_;
  bool flipped_;
};

/// The attributes of one line of text, shortened to fit its rectangle.
NSMutableDictionary textAttributes(NSColor color, double size, double weight,
                                   NSTextAlignment alignment = NSTextAlignmentLeft);

/// The same, centred between the sides of the rectangle.
NSMutableDictionary lineAttributes(NSColor color, const TextStyle& style);

/// The palette's colour at another alpha.
NSColor faded(NSColor color, double alpha);

}  // namespace host
