#include "host/panes/MixerPane.h"

#include <cmath>

#include "cocoa/QuartzCore.h"
#include "host/kit/KitWindow.h"
#include "host/mixer/MixerToolbar.h"
#include "host/mixer/MixerView.h"
#include "host/mixer/StripBuilder.h"

namespace host {
namespace {

using namespace cocoa;

class MixerPane : public Pane {
 public:
  explicit MixerPane(const PanePlace& place)
      : view_(newView("MAView", place.frame)),
        mixer_(place.song, CGRectMake(0, 0, place.frame.size.width, MixerView::height(place.song)),
               static_cast<std::size_t>(std::ceil(place.frame.size.width / kStripWidth))) {
    // What lies beyond the strips that there is room for is scrolled out of sight.
    mixer_.strips().view().layer().setMasksToBounds(true);
    view_->addSubview(mixer_.view());
    view_->addSubview(newMixerToolbar(
        place.song, CGRectMake(0, MixerView::height(place.song), place.frame.size.width, kMixerToolbarHeight)));
  }
  [[nodiscard]] NSView view() const override { return view_; }
  void updatePresentation() const override { mixer_.strips().updatePresentation(); }

 private:
  Ref<NSView> view_;
  MixerView mixer_;
};

}  // namespace

std::unique_ptr<Pane> makeMixerPane(const PanePlace& place) { return std::make_unique<MixerPane>(place); }
double mixerPaneHeight(const Song& song) { return MixerView::height(song) + kMixerToolbarHeight; }

}  // namespace host
