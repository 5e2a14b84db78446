#include "host/arrange/CLgSectionView.h"

#include <algorithm>
#include <cmath>

#include "host/arrange/Colors.h"
#include "host/arrange/MAAccessibilityElement.h"
#include "host/drawing/Painter.h"
#include "host/kit/Views.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kCycleTop = 1;
constexpr double kCycleHeight = 7;
constexpr double kNumbersTop = 8;  // clear of the ticks of the bars between two numbers
constexpr double kNumbersHeight = 9;
constexpr double kTextMargin = 5;

/// Draws what of the ruler lies between two x.
class RulerDrawing {
 public:
  RulerDrawing(const Painter& painter, const ArrangeModel& model, CGRect dirty, double scale)
      : painter_(painter),
        arrange_(model.song.arrange),
        timeline_(model.timeline),
        from_(dirty.minX()),
        to_(dirty.maxX()),
        scale_(scale) {}

  void draw() const {
    painter_.fill(across(0, kRulerBaseline), paletteColor(Palette::kRulerBackground));
    painter_.fill(across(kRulerBaseline, kMarkerLaneTop), paletteColor(Palette::kRulerTick));
    drawCycle();
    drawTicks();
    drawNumbers();
    drawPlayhead();
    drawMarkers();
    drawSignature();
  }

 private:
  [[nodiscard]] CGRect across(double top, double bottom) const { return {{from_, top}, {to_ - from_, bottom - top}}; }
  /// The pixel column that a place lies in, so that edges are sharp.
  [[nodiscard]] double snapped(double x) const { return std::floor(x * scale_) / scale_; }
  [[nodiscard]] bool isVisible(double left, double right) const { return right > from_ && left < to_; }

  void drawCycle() const {
    const double left = timeline_.x(arrange_.cycle.start);
    const double right = timeline_.x(arrange_.cycle.end);
    if (!isVisible(left, right)) return;
    painter_.fillRounded(CGRectMake(left, kCycleTop, right - left, kCycleHeight), 3,
                         paletteColor(arrange_.cycle.on ? Palette::kCycleOn : Palette::kCycleOff));
  }

  void drawTicks() const {
    for (const Tick& tick : timeline_.ticks(from_, to_)) {
      const double height = tick.kind == TickKind::kBar    ? kBarTickHeight
                            : tick.kind == TickKind::kBeat ? kBeatTickHeight
                                                           : kDivisionTickHeight;
      painter_.fill(CGRectMake(snapped(tick.x), kRulerBaseline - height, 1, height), paletteColor(Palette::kRulerTick));
    }
  }

  void drawNumbers() const {
    constexpr double kGap = 3;
    constexpr double kWidth = 44;  // a number may begin this far to the left of what is drawn
    const long interval = timeline_.numberInterval();
    const auto bar = static_cast<long>(std::floor(timeline_.bar(std::max(0.0, from_ - kWidth)))) - 1;
    const long last = std::min(static_cast<long>(std::ceil(timeline_.bar(to_))), static_cast<long>(arrange_.bars));
    for (long number = std::max(0L, bar / interval) * interval + 1; number <= last; number += interval) {
      const double x = snapped(timeline_.x(static_cast<double>(number)));
      painter_.text(std::to_string(number), CGRectMake(x + kGap, kNumbersTop, kWidth, kNumbersHeight),
                    paletteColor(Palette::kRulerNumber),
                    {.size = 9, .weight = 0.23, .alignment = TextAlignment::kLeft});
    }
  }

  /// A thumb in the cycle strip: above what tells bars and beats.
  void drawPlayhead() const {
    constexpr double kHalfWidth = 5;
    const double x = timeline_.x(arrange_.playhead);
    if (!isVisible(x - kHalfWidth, x + kHalfWidth)) return;
    CGContextBeginPath(painter_.context());
    CGContextMoveToPoint(painter_.context(), x - kHalfWidth, 0);
    CGContextAddLineToPoint(painter_.context(), x + kHalfWidth, 0);
    CGContextAddLineToPoint(painter_.context(), x, 9);
    CGContextClosePath(painter_.context());
    CGContextSetFillColorWithColor(painter_.context(), paletteColor(Palette::kArrangePlayhead).CGColor());
    CGContextFillPath(painter_.context());
  }

  void drawMarkers() const {
    painter_.fill(across(kMarkerLaneTop, kMarkerLaneBottom), paletteColor(Palette::kMarkerGap));
    for (const Marker& marker : arrange_.markers) {
      const double left = snapped(timeline_.x(marker.start));
      const double right = snapped(timeline_.x(marker.end));
      if (isVisible(left, right)) drawMarker(marker, left, right);
    }
  }

  void drawMarker(const Marker& marker, double left, double right) const {
    const CGRect cell = CGRectMake(left, kMarkerLaneTop, right - left, kMarkerLaneBottom - kMarkerLaneTop);
    painter_.fill(cell, marker.color ? asColor(*marker.color) : paletteColor(Palette::kMarkerGrey));
    const bool bright = marker.color && luminance(*marker.color) > kBright;
    const CGRect room = CGRectMake(left + kTextMargin, cell.minY(), right - left - kTextMargin, cell.size.height);
    if (room.isEmpty()) return;
    painter_.text(marker.name, room, bright ? NSColor::blackColor() : NSColor::whiteColor(),
                  {.size = 9, .weight = 0.23, .alignment = TextAlignment::kLeft});
  }

  /// The signature at the song's beginning; the lane around it is see-through.
  void drawSignature() const {
    constexpr double kWidth = 60;
    if (!isVisible(0, kWidth)) return;
    painter_.text(std::to_string(arrange_.beatsPerBar) + "/4   C major",
                  CGRectMake(kTextMargin, kMarkerLaneBottom, kWidth, kRulerHeight - kMarkerLaneBottom),
                  paletteColor(Palette::kRulerText), {.size = 9, .alignment = TextAlignment::kLeft});
  }

  const Painter& painter_;
  const Arrangement& arrange_;
  const Timeline& timeline_;
  double from_;
  double to_;
  double scale_;
};

}  // namespace

void CLgSectionView::drawRect(CGRect dirty) {
  if (model == nullptr || section != kRulerSection) return;
  const NSGraphicsContext graphics = NSGraphicsContext::currentContext();
  RulerDrawing(Painter(graphics.CGContext(), graphics.isFlipped()), *model, dirty, stateOf<MAView>(self).backingScale())
      .draw();
}

NSString CLgSectionView::accessibilityRole() { return literal<"AXLayoutArea">(); }

NSObject CLgSectionView::accessibilityAttributeValue(NSString name) {
  const std::string wanted = toStdString(name);
  if (wanted == "AXRole") return call<"accessibilityRole", NSObject>(self);
  if (wanted == "AXChildren") return call<"accessibilityChildren", NSObject>(self);
  return {};
}

void CLgSectionView::forgetElements() {
  if (elements_) detachElements(elements_);
  elements_ = {};
}

void CLgSectionView::closed() {
  forgetElements();
  parentView = docManager = song = {};
  model = nullptr;
}

void defineCLgSectionView() {
  ClassDefinition<CLgSectionView>("CLgSectionView", "MAView")
      .getter<"section", &CLgSectionView::section>()
      .getter<"parentView", &CLgSectionView::parentView>()
      .getter<"docManager", &CLgSectionView::docManager>()
      .getter<"song", &CLgSectionView::song>()
      .method<"isFlipped", &CLgSectionView::isFlipped>()
      .method<"drawRect:", &CLgSectionView::drawRect>()
      .method<"accessibilityRole", &CLgSectionView::accessibilityRole>()
      .method<"accessibilityChildren", &CLgSectionView::accessibilityChildren>()
      .method<"accessibilityAttributeValue:", &CLgSectionView::accessibilityAttributeValue>()
      .registered();
}

}  // namespace host
