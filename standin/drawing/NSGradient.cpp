#include <cmath>
#include <numbers>

#include "cocoa/AppKit.h"
#include "standin/drawing/Context.h"
#include "standin/drawing/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

/// A gradient line over a rectangle: it runs through the middle, and the outer colours just reach the
/// corners.
struct Ends {
  CGPoint start;
  CGPoint end;
};

Ends endsOver(CGRect rect, double degrees) {
  // Quarter turns are taken exactly, so that the colours of a row or a column come out equal.
  const double turned = std::fmod(std::fmod(degrees, 360) + 360, 360);
  const double quarters = turned / 90;
  const double radians = turned * std::numbers::pi / 180;
  constexpr double kCosines[] = {1, 0, -1, 0, 1};
  constexpr double kSines[] = {0, 1, 0, -1, 0};
  const bool exact = quarters == std::floor(quarters);
  const auto quarter = exact ? static_cast<std::size_t>(quarters) : 0;
  const double cosine = exact ? kCosines[quarter] : std::cos(radians);
  const double sine = exact ? kSines[quarter] : std::sin(radians);
  const double half = (std::abs(rect.size.width * cosine) + std::abs(rect.size.height * sine)) / 2;
  return {{rect.midX() - cosine * half, rect.midY() - sine * half},
          {rect.midX() + cosine * half, rect.midY() + sine * half}};
}

/// State of an NSGradient.
struct Gradient : ObjectState {
  GradientStops stops;

  id init(NSArray colors, const CGFloat* locations, NSColorSpace) {
    const NSUInteger count = colors.count();
    for (NSUInteger i = 0; locations != nullptr && i < count; ++i) {
      const auto color = rgbaOf(cast<NSColor>(colors.objectAtIndex(i)));
      if (!color) return refused();
      stops.push_back({locations[i], *color});
    }
    stops = normalized(std::move(stops));
    return stops.empty() ? refused() : self;
  }
  id initWithColors(NSArray colors) {
    const NSUInteger count = colors.count();
    std::vector<CGFloat> locations;
    for (NSUInteger i = 0; i < count; ++i) {
      locations.push_back(count < 2 ? 0 : static_cast<CGFloat>(i) / static_cast<CGFloat>(count - 1));
    }
    return init(colors, locations.data(), {});
  }
  id initWithEnds(NSColor start, NSColor end) {
    const auto first = rgbaOf(start);
    const auto last = rgbaOf(end);
    if (!first || !last) return refused();
    stops = {{0, *first}, {1, *last}};
    return self;
  }
  id refused() {
    send<void>(self, selector<"release">());
    return nullptr;
  }

  void drawInRect(NSRect rect, CGFloat angle) {
    Context* context = currentContext();
    if (context == nullptr || rect.isEmpty() || !std::isfinite(angle)) return;
    const Ends ends = endsOver(rect, angle);
    context->fillRectWithGradient(rect, stops, ends.start, ends.end);
  }
  void drawInBezierPath(NSBezierPath path, CGFloat angle) {
    Context* context = currentContext();
    const NSRect bounds = path.bounds();
    if (context == nullptr || bounds.isEmpty() || !std::isfinite(angle)) return;
    const SavedState saved(*context);
    path.addClip();
    const Ends ends = endsOver(bounds, angle);
    context->fillRectWithGradient(bounds, stops, ends.start, ends.end);
  }
  void draw(NSPoint start, NSPoint end, NSUInteger options) {
    if (Context* context = currentContext()) {
      context->drawLinearGradient(stops, start, end, static_cast<GradientEnds>(options & 3U));
    }
  }
  NSInteger numberOfColorStops() { return static_cast<NSInteger>(stops.size()); }
};

}  // namespace

void registerGradients() {
  ClassDefinition<Gradient>("NSGradient", "NSObject")
      .method<"initWithColors:atLocations:colorSpace:", &Gradient::init>()
      .method<"initWithColors:", &Gradient::initWithColors>()
      .method<"initWithStartingColor:endingColor:", &Gradient::initWithEnds>()
      .method<"drawInRect:angle:", &Gradient::drawInRect>()
      .method<"drawInBezierPath:angle:", &Gradient::drawInBezierPath>()
      .method<"drawFromPoint:toPoint:options:", &Gradient::draw>()
      .method<"numberOfColorStops", &Gradient::numberOfColorStops>()
      .registered();
}

}  // namespace standin
