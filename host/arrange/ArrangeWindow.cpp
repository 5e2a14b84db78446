#include "host/arrange/ArrangeWindow.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "host/arrange/ActionBar.h"
#include "host/arrange/ArrangeContentsSectionView.h"
#include "host/arrange/ArrangeTrackHeaderSectionView.h"
#include "host/arrange/CLgArrangeView.h"
#include "host/arrange/CLgDocumentManager.h"
#include "host/arrange/CLgDocwContentView.h"
#include "host/arrange/CLgFenster.h"
#include "host/arrange/CLgSectionView.h"
#include "host/arrange/CLgSong.h"
#include "host/arrange/CLgSongDocument.h"
#include "host/arrange/GCMALineEditorTextField.h"
#include "host/arrange/MAAccessibilityElement.h"
#include "host/arrange/MAMixerModelAdapter.h"
#include "host/arrange/Toolbars.h"
#include "host/arrange/TrackHeaderConfigController.h"
#include "host/kit/CLgArrangeWindowController.h"
#include "host/kit/KitWindow.h"
#include "standin/steering/Mouse.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kTransportHeight = 52;
constexpr double kSeparator = 1;

}  // namespace

ArrangeWindow::ArrangeWindow(Song& song, const HostOptions& options, const DocumentLayout& layout) : model_(song) {
  model_.flippedHeaders = options.flippedHeaders;
  model_.knowsControlSurfaces = options.modelAdapter;
  fenster_ = newObject("CLgFenster");
  stateOf<CLgFenster>(fenster_).model = &model_;
  song_ = newObject("CLgSong");
  stateOf<CLgSong>(song_).model = &model_;
  docManager_ = newObject("CLgDocumentManager");
  document_ = newObject("CLgSongDocument");
  auto& document = stateOf<CLgSongDocument>(document_);
  document.song = song_;
  document.unilibDocManager = docManager_;
  document.opened();
  stateOf<CLgDocumentManager>(docManager_).songDocument = document_;
  buildViews(options, layout);
  stateOf<CLgDocumentManager>(docManager_).view = arrange_;
}

CGRect ArrangeWindow::addPanes(NSView split, const HostOptions& options, const DocumentLayout& layout) {
  CGRect rest = split.bounds();
  auto& controller = stateOf<CLgArrangeWindowController>(controller_);
  const auto add = [&](PaneKind kind, CGRect frame) {
    panes_.push_back(makePane(kind, {frame, model_.song, options}));
    Pane& pane = *panes_.back();
    split.addSubview(pane.view());
    if (pane.browserView()) controller.browserUnilibView = pane.browserView();
    if (kind == PaneKind::kInspector) controller.inspector = &pane;
  };
  for (const auto& [kinds, atLeft] : {std::pair(layout.left, true), std::pair(layout.right, false)}) {
    for (const PaneKind kind : kinds) {
      const double width = paneExtent(kind, model_.song);
      add(kind, CGRectMake(atLeft ? rest.minX() : rest.maxX() - width, rest.minY(), width, rest.size.height));
      if (atLeft) rest.origin.x += width + kSeparator;
      rest.size.width -= width + kSeparator;
    }
  }
  if (layout.below) {
    const double height = paneExtent(*layout.below, model_.song);
    add(*layout.below, CGRectMake(rest.minX(), rest.minY(), rest.size.width, height));
    rest = CGRectMake(rest.minX(), height + kSeparator, rest.size.width, rest.size.height - height - kSeparator);
  }
  return rest;
}

void ArrangeWindow::buildViews(const HostOptions& options, const DocumentLayout& layout) {
  const Song& song = model_.song;
  const CGSize size = layout.content;
  window_ = openKitWindow("MAKitWindow", size, song.title + " - " + layout.title, options.scale);
  call<"setSubtitle:">(window_.get(), string(std::to_string(song.tracks.size()) + " tracks"));
  const Ref<NSView> content = newView("CLgDocwContentView", {{}, size});
  window_->setContentView(content);
  const double below = size.height - kTransportHeight;
  content->addSubview(
      drawnView(CGRectMake(0, below, size.width, kTransportHeight),
                [&song](CGRect bounds, CGContextRef context) { drawTransport(song.arrange, bounds, context); }));
  std::set<PaneKind> open(layout.left.begin(), layout.left.end());
  open.insert(layout.right.begin(), layout.right.end());
  if (layout.below) open.insert(*layout.below);
  const Ref<NSView> bar = newActionBar(
      CGRectMake(size.width - kActionBarWidth - 12, below, kActionBarWidth, kTransportHeight), std::move(open));
  content->addSubview(bar);
  const Ref<NSView> split = newView("MAView", CGRectMake(0, 0, size.width, below - kSeparator));
  content->addSubview(split);
  controller_ = newObject("CLgArrangeWindowController");
  stateOf<CLgArrangeWindowController>(controller_).mainSplitView = split;
  stateOf<CLgArrangeWindowController>(controller_).actionBarView = bar;
  arrange_ = newView("CLgArrangeView", addPanes(split, options, layout));
  split->addSubview(arrange_);
  stateOf<CLgArrangeView>(arrange_).build(model_, {fenster_, docManager_, song_});
  call<"setWindow:">(controller_.get(), window_.get());
}

ArrangeWindow::~ArrangeWindow() {
  const AutoreleasePool pool;
  // Others may hold on to these objects for longer than there is a song to show.
  stateOf<CLgArrangeView>(arrange_).closed();
  stateOf<CLgArrangeWindowController>(controller_).inspector = nullptr;
  stateOf<CLgFenster>(fenster_).model = nullptr;
  stateOf<CLgSong>(song_).model = nullptr;
  stateOf<CLgSongDocument>(document_).closed();
  stateOf<CLgSongDocument>(document_).unilibDocManager = {};
  stateOf<CLgDocumentManager>(docManager_).view = {};
  stateOf<CLgDocumentManager>(docManager_).songDocument = {};
  window_->close();
}

void ArrangeWindow::updatePresentation() const {
  for (const auto& pane : panes_) pane->updatePresentation();
}

NSView ArrangeWindow::ruler() const { return stateOf<CLgArrangeView>(arrange_).ruler(); }
NSView ArrangeWindow::headers() const { return stateOf<CLgArrangeView>(arrange_).headers(); }
NSView ArrangeWindow::contents() const { return stateOf<CLgArrangeView>(arrange_).contents(); }

void ArrangeWindow::setZoom(double zoom) {
  model_.song.arrange.zoom = std::isfinite(zoom) ? std::clamp(zoom, kSmallestZoom, kLargestZoom) : kSmallestZoom;
  songChanged();
}

void ArrangeWindow::setScroll(double right, double down) {
  model_.song.arrange.scroll = std::isfinite(right) ? right : 0;
  stateOf<CLgArrangeView>(arrange_).layOut(std::isfinite(down) ? down : 0);
}

void ArrangeWindow::songChanged() {
  auto& view = stateOf<CLgArrangeView>(arrange_);
  view.layOut(view.scrolledDown());
}

void ArrangeWindow::sendMouse(NSEventType type, CGPoint point, NSUInteger buttons) {
  const AutoreleasePool pool;
  standin::setPressedMouseButtons(buttons);
  window_->sendEvent(NSEvent::mouseEventWithType(type, point, 0, 0, 0, NSObject(), 0, 1, buttons == 0 ? 0.0F : 1.0F));
}

void ArrangeWindow::press(CGPoint point) { sendMouse(NSEventTypeLeftMouseDown, point, 1); }
void ArrangeWindow::drag(CGPoint point) { sendMouse(NSEventTypeLeftMouseDragged, point, 1); }
void ArrangeWindow::release(CGPoint point) { sendMouse(NSEventTypeLeftMouseUp, point, 0); }

bool ArrangeWindow::beginRename(std::size_t track) {
  const AutoreleasePool pool;
  endRename();
  if (track >= model_.song.tracks.size()) return false;
  renamedTrack_ = track;
  const CGRect name = stateOf<ArrangeTrackHeaderSectionView>(headers()).nameRect(track);
  nameEditor_ = cast<NSTextField>(newView("GCMALineEditorTextField", name).get());
  nameEditor_->setStringValue(string(model_.song.tracks[track].name));
  headers().addSubview(nameEditor_);
  return true;
}

void ArrangeWindow::endRename() {
  if (!nameEditor_) return;
  const AutoreleasePool pool;
  if (renamedTrack_ < model_.song.tracks.size()) {
    model_.song.tracks[renamedTrack_].name = toStdString(nameEditor_->stringValue());
  }
  nameEditor_->removeFromSuperview();
  nameEditor_ = {};
  stateOf<CLgArrangeView>(arrange_).contentsChanged();
}

void defineArrangeClasses(const HostOptions& options) {
  constexpr void (*kDefinitions[])() = {
      defineCLgFenster,
      defineCLgSong,
      defineCLgSongDocument,
      defineCLgDocumentManager,
      defineMAAccessibilityElement,
      defineTrackHeaderConfigController,
      defineGCMALineEditorTextField,
      defineCLgDocwContentView,
      defineCLgSectionView,
      defineArrangeTrackHeaderSectionView,
      defineArrangeContentsSectionView,
      defineCLgArrangeView,
      defineCLgArrangeWindowController,
      defineActionBar,
  };
  for (const auto define : kDefinitions) define();
  if (options.modelAdapter) defineMAMixerModelAdapter(options.adapterBySong);
}

}  // namespace host
