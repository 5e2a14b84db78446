#include "host/arrange/ArrangeContentsSectionView.h"

#include <algorithm>
#include <cmath>

#include "host/arrange/CLgArrangeView.h"
#include "host/arrange/CLgSectionView.h"
#include "host/arrange/MAAccessibilityElement.h"
#include "host/arrange/RegionDrawing.h"
#include "host/drawing/Painter.h"
#include "host/kit/Views.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kNarrowest = 2;  // what is shown of a region without length

CGPoint pointOf(NSView view, NSEvent event) { return view.convertPointFromView(event.locationInWindow(), NSView()); }

void selectAlone(Song& song, const Region& only) {
  for (Track& track : song.tracks) {
    for (Region& region : track.regions) region.selected = &region == &only;
  }
}

}  // namespace

CGRect ArrangeContentsSectionView::regionRect(std::size_t row, const Region& region) {
  const ArrangeModel& model = *stateOf<CLgSectionView>(self).model;
  const double left = model.timeline.x(region.start);
  const double width = model.timeline.x(region.end()) - left;
  return CGRectMake(left, model.rows.top(row), std::max(kNarrowest, width), model.rows.height(row) - 1);
}

void ArrangeContentsSectionView::drawGrid(CGRect dirty) {
  const auto& section = stateOf<CLgSectionView>(self);
  const ArrangeModel& model = *section.model;
  const double scale = stateOf<MAView>(self).backingScale();
  const Painter painter(NSGraphicsContext::currentContext().CGContext());
  for (const Tick& tick : model.timeline.ticks(dirty.minX(), dirty.maxX())) {
    if (tick.kind != TickKind::kBar) continue;
    const double x = std::floor(tick.x * scale) / scale;
    painter.fill(CGRectMake(x, dirty.minY(), 1, dirty.size.height), paletteColor(Palette::kArrangeGridLine));
  }
  const auto [first, end] = model.rows.rowsIn(dirty.minY(), dirty.maxY());
  for (std::size_t row = first; row < end; ++row) {
    const double bottom = model.rows.top(row) + model.rows.height(row);
    painter.fill(CGRectMake(dirty.minX(), bottom - 1, dirty.size.width, 1), paletteColor(Palette::kArrangeRowLine));
  }
}

void ArrangeContentsSectionView::drawRect(CGRect dirty) {
  const auto& section = stateOf<CLgSectionView>(self);
  if (section.model == nullptr) return;
  const ArrangeModel& model = *section.model;
  drawGrid(dirty);
  const NSGraphicsContext graphics = NSGraphicsContext::currentContext();
  const Painter painter(graphics.CGContext(), graphics.isFlipped());
  const RegionDrawing drawing(painter, model.timeline, dirty, stateOf<MAView>(self).backingScale());
  const auto [first, end] = model.rows.rowsIn(dirty.minY(), dirty.maxY());
  for (std::size_t row = first; row < end; ++row) {
    const AutoreleasePool pool;
    const Track& track = model.song.tracks[row];
    for (const Region& region : track.regions) {
      const CGRect frame = regionRect(row, region);
      if (frame.maxX() > dirty.minX() && frame.minX() < dirty.maxX()) drawing.draw({region, track, frame});
    }
  }
  const double x = std::floor(model.timeline.x(model.song.arrange.playhead));
  painter.fill(CGRectMake(x, dirty.minY(), 1, dirty.size.height), paletteColor(Palette::kArrangePlayhead));
}

/// The uppermost region at a place.
std::optional<ArrangeContentsSectionView::Drag> ArrangeContentsSectionView::regionAt(CGPoint point) {
  const ArrangeModel& model = *stateOf<CLgSectionView>(self).model;
  const std::size_t row = model.rows.rowAt(point.y);
  if (point.y < 0 || row >= model.rows.count()) return std::nullopt;
  const auto& regions = model.song.tracks[row].regions;
  for (std::size_t i = regions.size(); i-- > 0;) {
    const CGRect frame = regionRect(row, regions[i]);
    if (point.x >= frame.minX() && point.x < frame.maxX()) return Drag{row, i, regions[i].start, point.x};
  }
  return std::nullopt;
}

void ArrangeContentsSectionView::mouseDown(NSEvent event) {
  auto& section = stateOf<CLgSectionView>(self);
  if (section.model == nullptr) return;
  drag_ = regionAt(pointOf(NSView(self), event));
  if (!drag_) return;
  selectAlone(section.model->song, section.model->song.tracks[drag_->row].regions[drag_->region]);
  section.forgetElements();
  NSView(self).setNeedsDisplay(true);
}

/// The region follows the pointer in steps of a beat.
void ArrangeContentsSectionView::mouseDragged(NSEvent event) {
  auto& section = stateOf<CLgSectionView>(self);
  if (section.model == nullptr || !drag_) return;
  const Timeline& timeline = section.model->timeline;
  const double bars = timeline.bar(pointOf(NSView(self), event).x) - timeline.bar(drag_->fromX);
  const double steps = std::round(bars / timeline.beat());
  Region& region = section.model->song.tracks[drag_->row].regions[drag_->region];
  region.start = std::clamp(drag_->startBar + steps * timeline.beat(), 1.0, kFurthestBar);
  section.forgetElements();
  NSView(self).setNeedsDisplay(true);
}

void ArrangeContentsSectionView::mouseUp(NSEvent /*event*/) {
  auto& section = stateOf<CLgSectionView>(self);
  if (section.model == nullptr || !drag_) return;
  auto& regions = section.model->song.tracks[drag_->row].regions;
  std::stable_sort(regions.begin(), regions.end(), [](const Region& a, const Region& b) { return a.start < b.start; });
  drag_.reset();
  section.forgetElements();
  NSView(self).setNeedsDisplay(true);
}

Ref<NSArray> ArrangeContentsSectionView::makeRegions(std::size_t row) {
  const ArrangeModel& model = *stateOf<CLgSectionView>(self).model;
  const auto list = NSMutableArray::array();
  for (const Region& region : model.song.tracks[row].regions) {
    const auto made = makeAccessibilityElement(NSView(self), NSAccessibilityLayoutItemRole, regionRect(row, region));
    auto& element = stateOf<MAAccessibilityElement>(made);
    element.selected = region.selected;
    element.makeDescription = [&region] { return string(region.name); };
    list.addObject(made);
  }
  return list;
}

Ref<NSObject> ArrangeContentsSectionView::makeRow(std::size_t row) {
  const ArrangeModel& model = *stateOf<CLgSectionView>(self).model;
  const CGRect frame = CGRectMake(0, model.rows.top(row), NSView(self).frame().size.width, model.rows.height(row));
  const auto made = makeAccessibilityElement(NSView(self), NSAccessibilityGroupRole, frame);
  auto& element = stateOf<MAAccessibilityElement>(made);
  element.makeDescription = [&model, row] { return string(model.song.tracks[row].name); };
  element.makeChildren = [this, row] { return makeRegions(row); };
  return made;
}

/// The group of the cycle, which lies over all tracks.
Ref<NSObject> ArrangeContentsSectionView::makeCycle() {
  const ArrangeModel& model = *stateOf<CLgSectionView>(self).model;
  const NSView view(self);
  const Cycle& cycle = model.song.arrange.cycle;
  const double left = model.timeline.x(cycle.start);
  const CGRect frame = CGRectMake(left, 0, model.timeline.x(cycle.end) - left, view.frame().size.height);
  const auto made = makeAccessibilityElement(view, NSAccessibilityGroupRole, frame);
  stateOf<MAAccessibilityElement>(made).makeChildren = [view, frame]() -> Ref<NSArray> {
    const auto item = makeAccessibilityElement(view, NSAccessibilityLayoutItemRole, frame);
    stateOf<MAAccessibilityElement>(item).makeDescription = [] { return literal<"cycle region">(); };
    const id only = item.get().object;
    return NSArray::arrayWithObjects(&only, 1);
  };
  return made;
}

NSArray ArrangeContentsSectionView::accessibilityChildren() {
  auto& section = stateOf<CLgSectionView>(self);
  if (section.model == nullptr) return NSArray::array();
  return section.elements([&]() -> Ref<NSArray> {
    const auto list = NSMutableArray::array();
    for (std::size_t row = 0; row < section.model->rows.count(); ++row) list.addObject(makeRow(row));
    if (section.model->song.arrange.cycle.on) list.addObject(makeCycle());
    return list;
  });
}

void defineArrangeContentsSectionView() {
  using View = ArrangeContentsSectionView;
  ClassDefinition<View>("ArrangeContentsSectionView", "CLgSectionView")
      .method<"drawRect:", &View::drawRect>()
      .method<"mouseDown:", &View::mouseDown>()
      .method<"mouseDragged:", &View::mouseDragged>()
      .method<"mouseUp:", &View::mouseUp>()
      .method<"accessibilityChildren", &View::accessibilityChildren>()
      .registered();
}

}  // namespace host
