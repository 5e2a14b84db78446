#pragma once
// The platform's plain geometry structs, in points unless a name says pixels.

#include <objc/objc.h>

using CGFloat = double;
using NSInteger = long;
using NSUInteger = unsigned long;

struct CGPoint {
  CGFloat x = 0;
  CGFloat y = 0;
  friend bool operator==(const CGPoint&, const CGPoint&) = default;
};

struct CGSize {
  CGFloat width = 0;
  CGFloat height = 0;
  friend bool operator==(const CGSize&, const CGSize&) = default;
};

struct CGRect {
  CGPoint origin;
  CGSize size;
  [[nodiscard]] CGFloat minX() const { return origin.x; }
  [[nodiscard]] CGFloat minY() const { return origin.y; }
  [[nodiscard]] CGFloat maxX() const { return origin.x + size.width; }
  [[nodiscard]] CGFloat maxY() const { return origin.y + size.height; }
  [[nodiscard]] CGFloat midX() const { return origin.x + size.width / 2; }
  [[nodiscard]] CGFloat midY() const { return origin.y + size.height / 2; }
  [[nodiscard]] CGRect insetBy(CGFloat dx, CGFloat dy) const {
    return {{origin.x + dx, origin.y + dy}, {size.width - 2 * dx, size.height - 2 * dy}};
  }
  [[nodiscard]] CGRect offsetBy(CGFloat dx, CGFloat dy) const { return {{origin.x + dx, origin.y + dy}, size}; }
  [[nodiscard]] bool isEmpty() const { return !(size.width > 0 && size.height > 0); }
  friend bool operator==(const CGRect&, const CGRect&) = default;
};

inline CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) { return {{x, y}, {width, height}}; }

struct NSRange {
  NSUInteger location = 0;
  NSUInteger length = 0;
  friend bool operator==(const NSRange&, const NSRange&) = default;
};

using NSPoint = CGPoint;
using NSSize = CGSize;
using NSRect = CGRect;

/// "Not found" as an index: the largest NSInteger.
inline constexpr NSInteger NSNotFound = 0x7fffffffffffffffL;
