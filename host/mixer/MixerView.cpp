#include "host/mixer/MixerView.h"

#include <numeric>

#include "host/app/KitWindow.h"
#include "host/app/Views.h"
#include "host/mixer/MixerLegend.h"
#include "host/mixer/StripBuilder.h"

namespace host {
namespace {

using namespace cocoa;

/// Lays out the legend and the strips beside it.
struct CLgRupertView : ObjectState {
  Ref<NSView> contentSectionView;
  Ref<NSObject> legendViewController;  // nil while there is no legend
  double legendWidth = 0;

  void setFrame(CGRect frame) {
    superSend<CLgRupertView, void>(self, selector<"setFrame:">(), frame);
    if (!contentSectionView) return;
    const CGSize size = NSView(self).bounds().size;
    contentSectionView->setFrame(CGRectMake(legendWidth, 0, std::max(0.0, size.width - legendWidth), size.height));
    contentSectionView->setNeedsDisplay(true);
    if (!legendViewController) return;
    const NSView legend = cast<NSViewController>(legendViewController).view();
    legend.setFrame(CGRectMake(0, 0, legendWidth, size.height));
    legend.setNeedsDisplay(true);
  }
};

std::vector<std::size_t> allTracks(const Song& song) {
  std::vector<std::size_t> tracks(song.tracks.size());
  std::iota(tracks.begin(), tracks.end(), std::size_t{0});
  return tracks;
}

CGRect besideLegend(const Song& song, CGRect frame) {
  const double legend = MixerView::legendWidth(song);
  return CGRectMake(legend, 0, std::max(0.0, frame.size.width - legend), frame.size.height);
}

}  // namespace

double MixerView::legendWidth(const Song& song) {
  constexpr double kWidth = 132;
  return song.legend ? kWidth : 0;
}

double MixerView::height(const Song& song) { return stripHeight(song) + kBelowStrips + kAboveStrips; }

MixerView::MixerView(const Song& song, CGRect frame)
    : view_(newView("CLgRupertView", frame)), strips_(song, allTracks(song), besideLegend(song, frame)) {
  auto& state = stateOf<CLgRupertView>(view_);
  state.contentSectionView = strips_.view();
  state.legendWidth = legendWidth(song);
  view_->addSubview(strips_.view());
  if (!song.legend) return;
  state.legendViewController =
      newLegendController(song, strips_.viewController(), CGRectMake(0, 0, state.legendWidth, frame.size.height));
  view_->addSubview(cast<NSViewController>(state.legendViewController).view());
}

MixerView::~MixerView() {
  if (const NSObject legend = stateOf<CLgRupertView>(view_).legendViewController) closeLegend(legend);
}

void defineMixerView() {
  ClassDefinition<CLgRupertView>("CLgRupertView", "MAView")
      .method<"setFrame:", &CLgRupertView::setFrame>()
      .getter<"contentSectionView", &CLgRupertView::contentSectionView>()
      .getter<"legendViewController", &CLgRupertView::legendViewController>()
      .registered();
}

}  // namespace host
