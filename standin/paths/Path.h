#pragma once
// Paths: a list of elements, shared by Core Graphics' paths and AppKit's.

#include <cstdint>
#include <vector>

#include "standin/runtime/Objects.h"

namespace standin {

enum class PathVerb : std::uint8_t { kMove, kLine, kCurve, kClose };

/// A line or a move ends at `end`; a curve passes by its control points as well.
struct PathElement {
  PathVerb verb = PathVerb::kMove;
  CGPoint control1;
  CGPoint control2;
  CGPoint end;
  friend bool operator==(const PathElement&, const PathElement&) = default;
};

class PathElements {
 public:
  /// What is added is transformed first.
  void move(CGPoint to, const CGAffineTransform& t = {});
  /// Without a current point a line or a curve begins where it ends.
  void line(CGPoint to, const CGAffineTransform& t = {});
  void curve(CGPoint control1, CGPoint control2, CGPoint to, const CGAffineTransform& t = {});
  void quadCurve(CGPoint control, CGPoint to, const CGAffineTransform& t = {});
  /// Radians, counter-clockwise unless `clockwise`; a line joins the current point to the arc's start.
  void arc(CGPoint center, double radius, double startAngle, double endAngle, bool clockwise,
           const CGAffineTransform& t = {});
  /// The arc of a circle that touches the lines from the current point to `corner` and on to `end`.
  /// `t` must be the one that the current point was added with.
  void arcTo(CGPoint corner, CGPoint end, double radius, const CGAffineTransform& t = {});
  void rect(CGRect rect, const CGAffineTransform& t = {});
  /// Radii above half a side are cut to it.
  void roundedRect(CGRect rect, double radiusX, double radiusY, const CGAffineTransform& t = {});
  void ellipse(CGRect rect, const CGAffineTransform& t = {});
  void append(const PathElements& other, const CGAffineTransform& t = {});
  void close();
  void clear() { elements_.clear(); }

  [[nodiscard]] bool isEmpty() const { return elements_.empty(); }
  [[nodiscard]] const std::vector<PathElement>& elements() const { return elements_; }
  /// Of all points, control points included; empty at zero for an empty path.
  [[nodiscard]] CGRect boundingBox() const;
  [[nodiscard]] bool contains(CGPoint point, bool evenOdd) const;
  friend bool operator==(const PathElements& a, const PathElements& b) { return a.elements_ == b.elements_; }

 private:
  [[nodiscard]] bool hasCurrentPoint() const { return !elements_.empty(); }
  [[nodiscard]] CGPoint currentPoint() const { return current_; }
  void add(const PathElement& element);

  std::vector<PathElement> elements_;
  CGPoint current_;
  CGPoint start_;
};

/// State of a CGPath.
struct PathState : cocoa::ObjectState {
  PathElements path;
  BOOL isEqual(NSObject other);
  NSUInteger hash();
};
inline PathElements& elementsOf(CGPathRef path) { return stateBehind<PathState>(path).path; }
/// Owned by the caller.
CGMutablePathRef makePath(PathElements elements = {});

}  // namespace standin
