#include "host/mixer/MixerView.h"

#include <algorithm>
#include <numeric>

#include "host/kit/KitWindow.h"
#include "host/kit/Views.h"
#include "host/mixer/MixerLegend.h"
#include "host/mixer/StripBuilder.h"

namespace host {
namespace {

using namespace cocoa;

struct Places {
  Places(CGSize size, double legendWidth)
      : legend(CGRectMake(0, 0, legendWidth, size.height)),
        strips(CGRectMake(legendWidth, 0, std::max(0.0, size.width - legendWidth), size.height)) {}
  CGRect legend;
  CGRect strips;
};

/// Lays out the legend and the strips beside it.
struct CLgRupertView : ObjectState {
  Ref<NSView> contentSectionView;
  Ref<NSObject> legendViewController;  // nil while there is no legend
  double legendWidth = 0;

  void setFrame(CGRect frame) {
    superSend<CLgRupertView, void>(self, selector<"setFrame:">(), frame);
    if (!contentSectionView) return;
    const Places places(frame.size, legendWidth);
    contentSectionView->setFrame(places.strips);
    contentSectionView->setNeedsDisplay(true);
    if (!legendViewController) return;
    const NSView legend = cast<NSViewController>(legendViewController).view();
    legend.setFrame(places.legend);
    legend.setNeedsDisplay(true);
  }
};

std::vector<std::size_t> firstTracks(const Song& song, std::size_t most) {
  std::vector<std::size_t> tracks(std::min(most, song.tracks.size()));
  std::iota(tracks.begin(), tracks.end(), std::size_t{0});
  return tracks;
}

}  // namespace

double MixerView::legendWidth(const Song& song) {
  constexpr double kWidth = 132;
  return song.legend ? kWidth : 0;
}

double MixerView::height(const Song& song) { return stripHeight(song) + kBelowStrips + kAboveStrips; }

MixerView::MixerView(const Song& song, CGRect frame, std::size_t strips)
    : view_(newView("CLgRupertView", frame)),
      strips_(song, firstTracks(song, strips), Places(frame.size, legendWidth(song)).strips) {
  auto& state = stateOf<CLgRupertView>(view_);
  state.contentSectionView = strips_.view();
  state.legendWidth = legendWidth(song);
  view_->addSubview(strips_.view());
  if (!song.legend) return;
  state.legendViewController =
      newLegendController(song, strips_.viewController(), Places(frame.size, state.legendWidth).legend);
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
