#include "standin/paths/Path.h"

#include <cmath>
#include <numbers>

namespace standin {

namespace {

/// How far the control points of a quarter circle lie from its ends, in radii.
constexpr double kQuarterHandle = 0.5522847498307936;

CGPoint at(CGPoint p, const CGAffineTransform& t) { return CGPointApplyAffineTransform(p, t); }

CGPoint onCubic(CGPoint a, const PathElement& e, double t) {
  const double u = 1 - t;
  const auto blend = [&](double p0, double p1, double p2, double p3) {
    return u * u * u * p0 + 3 * u * u * t * p1 + 3 * u * t * t * p2 + t * t * t * p3;
  };
  return {blend(a.x, e.control1.x, e.control2.x, e.end.x), blend(a.y, e.control1.y, e.control2.y, e.end.y)};
}

/// How often, and in which direction, the edge passes to the right of the point.
int crossing(CGPoint a, CGPoint b, CGPoint p) {
  if ((a.y <= p.y) == (b.y <= p.y)) return 0;
  const double x = a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x);
  if (x <= p.x) return 0;
  return b.y > a.y ? 1 : -1;
}

}  // namespace

void PathElements::add(const PathElement& element) {
  elements_.push_back(element);
  current_ = element.verb == PathVerb::kClose ? start_ : element.end;
  if (element.verb == PathVerb::kMove) start_ = element.end;
}

void PathElements::move(CGPoint to, const CGAffineTransform& t) { add({PathVerb::kMove, {}, {}, at(to, t)}); }

void PathElements::line(CGPoint to, const CGAffineTransform& t) {
  add({hasCurrentPoint() ? PathVerb::kLine : PathVerb::kMove, {}, {}, at(to, t)});
}

void PathElements::curve(CGPoint control1, CGPoint control2, CGPoint to, const CGAffineTransform& t) {
  if (!hasCurrentPoint()) move(control1, t);
  add({PathVerb::kCurve, at(control1, t), at(control2, t), at(to, t)});
}

void PathElements::quadCurve(CGPoint control, CGPoint to, const CGAffineTransform& t) {
  if (!hasCurrentPoint()) move(control, t);
  const CGPoint from = currentPoint();
  const CGPoint middle = at(control, t);
  const CGPoint end = at(to, t);
  const auto toward = [&](CGPoint a) {
    return CGPoint{a.x + 2.0 / 3 * (middle.x - a.x), a.y + 2.0 / 3 * (middle.y - a.y)};
  };
  add({PathVerb::kCurve, toward(from), toward(end), end});
}

void PathElements::arc(CGPoint center, double radius, double startAngle, double endAngle, bool clockwise,
                       const CGAffineTransform& t) {
  constexpr double kFull = 2 * std::numbers::pi;
  if (!std::isfinite(startAngle) || !std::isfinite(endAngle)) return;
  double sweep = clockwise ? startAngle - endAngle : endAngle - startAngle;
  // An angle that lies behind is reached by going on around; a whole turn or more is one whole turn.
  if (sweep < 0) sweep = std::fmod(sweep, kFull) + kFull;
  sweep = std::fmin(sweep, kFull) * (clockwise ? -1 : 1);
  const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / (std::numbers::pi / 2) - 1e-9)));
  const double step = sweep / pieces;
  const double handle = 4.0 / 3 * std::tan(step / 4) * radius;
  double angle = startAngle;
  line({center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)}, t);
  for (int i = 0; i < pieces; ++i, angle += step) {
    const double c0 = std::cos(angle);
    const double s0 = std::sin(angle);
    const double c1 = std::cos(angle + step);
    const double s1 = std::sin(angle + step);
    curve({center.x + radius * c0 - handle * s0, center.y + radius * s0 + handle * c0},
          {center.x + radius * c1 + handle * s1, center.y + radius * s1 - handle * c1},
          {center.x + radius * c1, center.y + radius * s1}, t);
  }
}

void PathElements::arcTo(CGPoint corner, CGPoint end, double radius, const CGAffineTransform& t) {
  if (!hasCurrentPoint()) return move(corner, t);
  const CGPoint from = at(currentPoint(), CGAffineTransformInvert(t));
  const CGPoint a{from.x - corner.x, from.y - corner.y};
  const CGPoint b{end.x - corner.x, end.y - corner.y};
  const double lengthA = std::hypot(a.x, a.y);
  const double lengthB = std::hypot(b.x, b.y);
  const double turn = a.x * b.y - a.y * b.x;
  if (lengthA == 0 || lengthB == 0 || turn == 0 || !(radius > 0)) return line(corner, t);
  const double half = std::acos(std::fmax(-1, std::fmin(1, (a.x * b.x + a.y * b.y) / (lengthA * lengthB)))) / 2;
  const double along = radius / std::tan(half);
  const CGPoint first{corner.x + a.x / lengthA * along, corner.y + a.y / lengthA * along};
  const CGPoint second{corner.x + b.x / lengthB * along, corner.y + b.y / lengthB * along};
  const double side = turn > 0 ? 1 : -1;
  const CGPoint center{first.x - side * a.y / lengthA * radius, first.y + side * a.x / lengthA * radius};
  arc(center, radius, std::atan2(first.y - center.y, first.x - center.x),
      std::atan2(second.y - center.y, second.x - center.x), turn > 0, t);
}

void PathElements::rect(CGRect r, const CGAffineTransform& t) {
  move({r.minX(), r.minY()}, t);
  line({r.maxX(), r.minY()}, t);
  line({r.maxX(), r.maxY()}, t);
  line({r.minX(), r.maxY()}, t);
  close();
}

void PathElements::roundedRect(CGRect r, double radiusX, double radiusY, const CGAffineTransform& t) {
  const double rx = std::fmin(radiusX, r.size.width / 2);
  const double ry = std::fmin(radiusY, r.size.height / 2);
  if (!(rx > 0) || !(ry > 0)) return rect(r, t);
  const double hx = rx * (1 - kQuarterHandle);
  const double hy = ry * (1 - kQuarterHandle);
  move({r.minX() + rx, r.minY()}, t);
  line({r.maxX() - rx, r.minY()}, t);
  curve({r.maxX() - hx, r.minY()}, {r.maxX(), r.minY() + hy}, {r.maxX(), r.minY() + ry}, t);
  line({r.maxX(), r.maxY() - ry}, t);
  curve({r.maxX(), r.maxY() - hy}, {r.maxX() - hx, r.maxY()}, {r.maxX() - rx, r.maxY()}, t);
  line({r.minX() + rx, r.maxY()}, t);
  curve({r.minX() + hx, r.maxY()}, {r.minX(), r.maxY() - hy}, {r.minX(), r.maxY() - ry}, t);
  line({r.minX(), r.minY() + ry}, t);
  curve({r.minX(), r.minY() + hy}, {r.minX() + hx, r.minY()}, {r.minX() + rx, r.minY()}, t);
  close();
}

void PathElements::ellipse(CGRect r, const CGAffineTransform& t) {
  if (r.isEmpty()) return;
  roundedRect(r, r.size.width / 2, r.size.height / 2, t);
}

void PathElements::append(const PathElements& other, const CGAffineTransform& t) {
  const std::size_t count = other.elements_.size();  // a path may be appended to itself
  for (std::size_t i = 0; i < count; ++i) {
    const PathElement e = other.elements_[i];
    add({e.verb, at(e.control1, t), at(e.control2, t), at(e.end, t)});
  }
}

void PathElements::close() {
  if (hasCurrentPoint() && elements_.back().verb != PathVerb::kClose) add({PathVerb::kClose, {}, {}, {}});
}

CGRect PathElements::boundingBox() const {
  bool first = true;
  CGPoint low;
  CGPoint high;
  const auto include = [&](CGPoint p) {
    low = first ? p : CGPoint{std::fmin(low.x, p.x), std::fmin(low.y, p.y)};
    high = first ? p : CGPoint{std::fmax(high.x, p.x), std::fmax(high.y, p.y)};
    first = false;
  };
  for (const PathElement& e : elements_) {
    if (e.verb == PathVerb::kClose) continue;
    if (e.verb == PathVerb::kCurve) {
      include(e.control1);
      include(e.control2);
    }
    include(e.end);
  }
  return {low, {high.x - low.x, high.y - low.y}};
}

bool PathElements::contains(CGPoint point, bool evenOdd) const {
  constexpr int kPieces = 32;
  int winding = 0;
  CGPoint from;
  CGPoint start;
  const auto edgeTo = [&](CGPoint to) {
    winding += crossing(from, to, point);
    from = to;
  };
  for (const PathElement& e : elements_) {
    if (e.verb == PathVerb::kMove) {
      edgeTo(start);  // an open figure counts as closed
      from = start = e.end;
    } else if (e.verb == PathVerb::kLine) {
      edgeTo(e.end);
    } else if (e.verb == PathVerb::kCurve) {
      const CGPoint begin = from;
      for (int i = 1; i <= kPieces; ++i) edgeTo(onCubic(begin, e, static_cast<double>(i) / kPieces));
    } else {
      edgeTo(start);
    }
  }
  edgeTo(start);
  return evenOdd ? winding % 2 != 0 : winding != 0;
}

}  // namespace standin
