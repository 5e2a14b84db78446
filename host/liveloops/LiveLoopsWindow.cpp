#include "host/liveloops/LiveLoopsWindow.h"

#include "cocoa/Call.h"
#include "host/arrange/CLgArrangeView.h"
#include "host/kit/CLgArrangeWindowController.h"
#include "host/kit/KitWindow.h"
#include "host/liveloops/LiveLoopsColors.h"
#include "host/liveloops/LiveLoopsViews.h"

namespace host {
namespace {

using namespace cocoa;
using namespace liveloops;

/// Holds the grid, and what it shows.
struct LiveLoopsContainerView : ObjectState {
  std::unique_ptr<LiveLoopsModel> model;
  Ref<NSObject> divider;  // the controller of the column at the right
};

struct Places {
  explicit Places(const LiveLoopsModel& model)
      : rows(kRowHeight * static_cast<double>(model.rows.size()) + kRowHeight),
        scenes(kSceneWidth * static_cast<double>(model.scenes.size()) + kSceneWidth / 2) {}
  double rows;    // the height of the grid, with some of what lies below its last row
  double scenes;  // the width of the grid, likewise
  [[nodiscard]] CGSize size() const {
    return {kHeaderWidth + scenes + kDividerWidth, kTriggerHeight + rows + kGlobalTracksHeight + kGridHeaderHeight};
  }
};

Ref<NSObject> addDivider(NSView container, CGRect frame, const LiveLoopsModel& model) {
  const Ref<NSView> view = newPart("LiveLoopsDividerBackgroundView", frame, model);
  Ref<NSObject> controller = newObject("LiveLoopsDividerViewController");
  cast<NSViewController>(controller).setView(view);
  call<"setNextResponder:">(view.get(), controller.get());
  call<"reloadDividerView">(controller.get());
  container.addSubview(view);
  return controller;
}

void addParts(NSView container, const LiveLoopsModel& model) {
  const Places places(model);
  const auto add = [&](const char* className, CGRect frame) {
    const Ref<NSView> part = newPart(className, frame, model);
    container.addSubview(part);
    return part;
  };
  const double above = kTriggerHeight + places.rows;
  const double top = above + kGlobalTracksHeight;
  add("LiveLoopsGridView", CGRectMake(kHeaderWidth, kTriggerHeight, places.scenes, places.rows));
  add("LiveLoopsSceneTriggersView", CGRectMake(kHeaderWidth, 0, places.scenes, kTriggerHeight));
  add("LiveLoopsRulerView", CGRectMake(0, above, kHeaderWidth + places.scenes, kGlobalTracksHeight));
  add("LiveLoopsGridHeaderControlsContainerView", CGRectMake(0, top, kHeaderWidth + places.scenes, kGridHeaderHeight));
  const Ref<NSView> rows =
      add("LiveLoopsRowTriggerHeaderView", CGRectMake(0, kTriggerHeight, kHeaderWidth, places.rows));
  call<"prerenderGlyphs">(rows.get());
  const Ref<NSView> clock = add("LiveLoopsGridClockView", CGRectMake(kHeaderWidth - 40, top + 8, 30, 30));
  call<"commonInit">(clock.get());
  stateOf<LiveLoopsContainerView>(container).divider =
      addDivider(container, CGRectMake(kHeaderWidth + places.scenes, 0, kDividerWidth, places.size().height), model);
}

}  // namespace

LiveLoopsWindow::LiveLoopsWindow(const Song& song, NSObject fenster, double scale) {
  auto model = std::make_unique<LiveLoopsModel>(song);
  const CGSize size = Places(*model).size();
  const CGRect whole{{}, size};
  window_ = openKitWindow("MAKitWindow", size, song.title + " - Live Loops", scale);
  const Ref<NSView> split = newView("MAView", whole);
  window_->contentView().addSubview(split);
  const Ref<NSView> arrange = newView("CLgArrangeView", whole);
  stateOf<CLgArrangeView>(arrange).fenster = fenster;
  split->addSubview(arrange);
  const Ref<NSView> container = newView("LiveLoopsContainerView", whole);
  arrange->addSubview(container);
  addParts(container, *model);
  stateOf<LiveLoopsContainerView>(container).model = std::move(model);
  controller_ = newObject("CLgArrangeWindowController");
  stateOf<CLgArrangeWindowController>(controller_).mainSplitView = split;
  call<"setWindow:">(controller_.get(), window_.get());
}

LiveLoopsWindow::~LiveLoopsWindow() { window_->close(); }

void defineLiveLoopsClasses() {
  defineLiveLoopsColors();
  defineViews();
  ClassDefinition<LiveLoopsContainerView>("LiveLoopsContainerView", "MAView").registered();
}

}  // namespace host
