#include "host/arrange/CLgArrangeView.h"

#include <algorithm>
#include <cmath>

#include "host/arrange/CLgSectionView.h"
#include "host/arrange/Toolbars.h"
#include "host/drawing/Painter.h"
#include "host/kit/KitWindow.h"
#include "host/kit/Views.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kMenuHeight = 26;
constexpr double kHeaderWidth = 220;
constexpr double kSeparator = 1;

/// Where the parts of the view lie, for its size.
struct Areas {
  explicit Areas(CGSize size) {
    const double rulerBottom = size.height - kMenuHeight - kSeparator - kRulerHeight;
    const double contentsLeft = kHeaderWidth + kSeparator;
    const double contentsWidth = std::max(0.0, size.width - contentsLeft);
    menu = CGRectMake(0, size.height - kMenuHeight, size.width, kMenuHeight);
    corner = CGRectMake(0, rulerBottom, kHeaderWidth, kRulerHeight);
    ruler = CGRectMake(contentsLeft, rulerBottom, contentsWidth, kRulerHeight);
    headers = CGRectMake(0, 0, kHeaderWidth, rulerBottom - kSeparator);
    contents = CGRectMake(contentsLeft, 0, contentsWidth, rulerBottom - kSeparator);
  }
  CGRect menu;
  CGRect corner;
  CGRect ruler;
  CGRect headers;
  CGRect contents;
};

/// What the user has chosen to see behind the regions.
NSColor workspaceColor() {
  constexpr NSInteger kBrightMode = 1;
  const auto mode =
      as<NSNumber>(NSUserDefaults::standardUserDefaults().objectForKey(literal<"TracksBackgroundMode">()));
  return paletteColor(mode.integerValue() == kBrightMode ? Palette::kArrangeWorkspaceBright
                                                         : Palette::kArrangeWorkspace);
}

NSColor stripColor(const Track& track) {
  if (track.folder) {
    return paletteColor(track.selected ? Palette::kArrangeFolderStripSelected : Palette::kArrangeFolderStrip);
  }
  return paletteColor(track.selected ? Palette::kArrangeStripSelected : Palette::kArrangeStrip);
}

/// Gives a section its size inside its clip, and what of it shows: `down` from its top, `right` from its left.
void place(NSView section, CGSize size, double right, double down) {
  const NSView clip = section.superview();
  const CGSize shown = clip.frame().size;
  const CGSize whole{std::max(size.width, shown.width), std::max(size.height, shown.height)};
  section.setFrame({{}, whole});
  clip.setBoundsOrigin({right, whole.height - shown.height - down});
}

}  // namespace

NSView CLgArrangeView::addSection(const char* className, NSInteger section, CGRect area, const Belonging& belonging) {
  const Ref<NSView> clip = newView("MAView", area);
  const Ref<NSView> view = newView(className, {{}, area.size});
  auto& state = stateOf<CLgSectionView>(view);
  state.section = section;
  state.parentView = NSObject(self);
  state.docManager = belonging.docManager;
  state.song = belonging.song;
  state.model = model_;
  clip->addSubview(view);
  NSView(self).addSubview(clip);
  return view;
}

void CLgArrangeView::build(ArrangeModel& shown, const Belonging& belonging) {
  model_ = &shown;
  fenster = belonging.fenster;
  const NSView view(self);
  const Areas areas(view.bounds().size);
  view.addSubview(drawnView(areas.menu, drawArrangeMenu));
  view.addSubview(drawnView(areas.corner, drawGlobalTracksCorner));
  ruler_ = addSection("CLgSectionView", kRulerSection, areas.ruler, belonging);
  headers_ = addSection("ArrangeTrackHeaderSectionView", kHeaderSection, areas.headers, belonging);
  contents_ = addSection("ArrangeContentsSectionView", kContentsSection, areas.contents, belonging);
  layOut(0);
}

void CLgArrangeView::closed() {
  for (const auto& section : {ruler_, headers_, contents_}) stateOf<CLgSectionView>(section).closed();
  model_ = nullptr;
}

NSView CLgArrangeView::sectionView(NSInteger section) {
  switch (section) {
    case kHeaderSection:
      return headers_;
    case kContentsSection:
      return contents_;
    case kRulerSection:
      return ruler_;
    default:
      return {};
  }
}

void CLgArrangeView::layOut(double scrollDown) {
  const CGSize shown = contents_->superview().frame().size;
  const double scale = stateOf<MAView>(self).backingScale();
  // On whole pixels, so that what is sharp at one place is so at every other.
  const auto within = [scale](double scroll, double most) {
    return std::floor(std::clamp(scroll, 0.0, std::max(0.0, most)) * scale) / scale;
  };
  model_->update();
  const double width = std::ceil(model_->timeline.width());
  const double right = within(model_->song.arrange.scroll, width - shown.width);
  model_->song.arrange.scroll = right;
  scrolledDown_ = within(scrollDown, model_->rows.total() - shown.height);
  place(ruler_, {width, kRulerHeight}, right, 0);
  place(headers_, {kHeaderWidth, model_->rows.total()}, 0, scrolledDown_);
  place(contents_, {width, model_->rows.total()}, right, scrolledDown_);
  contentsChanged();
}

void CLgArrangeView::contentsChanged() {
  for (const auto& section : {ruler_, headers_, contents_}) {
    stateOf<CLgSectionView>(section).forgetElements();
    section->setNeedsDisplay(true);
  }
  NSView(self).setNeedsDisplay(true);
}

void CLgArrangeView::drawRect(CGRect dirty) {
  if (model_ == nullptr) return;
  const Painter painter(NSGraphicsContext::currentContext().CGContext());
  const Areas areas(NSView(self).bounds().size);
  painter.fill(areas.ruler, paletteColor(Palette::kGlobalTracksContent));
  painter.fill(areas.contents, workspaceColor());
  paintHeaders(dirty);
}

/// The headers draw themselves on what is painted here.
void CLgArrangeView::paintHeaders(CGRect dirty) const {
  const CGContextRef context = NSGraphicsContext::currentContext().CGContext();
  const Painter painter(context);
  const CGRect area = Areas(NSView(self).bounds().size).headers;
  CGContextSaveGState(context);
  CGContextClipToRect(context, area);
  painter.fill(area, paletteColor(Palette::kArrangeEmpty));
  const double top = area.maxY() + scrolledDown_;
  const auto [first, end] = model_->rows.rowsIn(top - std::min(area.maxY(), dirty.maxY()), top - dirty.minY());
  for (std::size_t row = first; row < end; ++row) {
    const double height = model_->rows.height(row);
    painter.fill(CGRectMake(area.minX(), top - model_->rows.top(row) - height, area.size.width, height),
                 stripColor(model_->song.tracks[row]));
  }
  CGContextRestoreGState(context);
}

void defineCLgArrangeView() {
  ClassDefinition<CLgArrangeView>("CLgArrangeView", "MAView")
      .getter<"fenster", &CLgArrangeView::fenster>()
      .method<"sectionView:", &CLgArrangeView::sectionView>()
      .method<"drawRect:", &CLgArrangeView::drawRect>()
      .registered();
}

}  // namespace host
