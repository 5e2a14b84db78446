#include "host/app/Application.h"

#include <dlfcn.h>

#include <cmath>
#include <cstdio>

#include "host/arrange/CLgSongDocument.h"
#include "host/drawing/ScreenImage.h"
#include "host/kit/Views.h"
#include "host/mixer/AssetMapping.h"
#include "host/mixer/MAButtonNode.h"
#include "host/mixer/MADisplayNode.h"
#include "host/mixer/MADynamicScaleNode.h"
#include "host/mixer/MAEQThumbnailNode.h"
#include "host/mixer/MAFaderNode.h"
#include "host/mixer/MAGainReductionMeterNode.h"
#include "host/mixer/MAImageNode.h"
#include "host/mixer/MAKnobNode.h"
#include "host/mixer/MALevelNode.h"
#include "host/mixer/MANode.h"
#include "host/mixer/MANodeView.h"
#include "host/mixer/MAPannerNode.h"
#include "host/mixer/MAScaleNode.h"
#include "host/mixer/MAStripNode.h"
#include "host/mixer/MASymbolButtonNode.h"
#include "host/mixer/MATextNode.h"
#include "host/mixer/MixerData.h"
#include "host/mixer/MixerLegend.h"
#include "host/mixer/MixerView.h"
#include "host/mixer/PlugIn.h"
#include "host/palette/Palette.h"
#include "standin/steering/Clock.h"
#include "standin/steering/Display.h"
#include "standin/steering/MainBundle.h"
#include "standin/steering/RunLoop.h"

namespace host {
namespace {

using namespace cocoa;

constexpr void (*kDefinitions[])() = {
    defineViews,
    defineMANodeView,
    definePlugIns,
    defineMixerData,
    defineMixerStrips,
    defineMixerView,
    defineMixerLegend,
    defineMANode,
    defineMATextNode,
    defineMAStripNode,
    defineMAButtonNode,
    defineMASymbolButtonNode,
    defineMAKnobNode,
    defineMAPannerNodes,
    defineMAFaderNode,
    defineMALevelNode,
    defineMAScaleNode,
    defineMADisplayNode,
    defineMAEQThumbnailNode,
    defineMAGainReductionMeterNode,
    defineMAImageNode,
    attachImageTint,
    attachStepSequencerColors,
    registerPalette,
};

/// From version 11.2 on.
bool hasScalePictures(const std::string& version) {
  int major = 0;
  int minor = 0;
  std::sscanf(version.c_str(), "%d.%d", &major, &minor);
  return major > 11 || (major == 11 && minor >= 2);
}

void defineClasses(const HostOptions& options) {
  static const bool defined = [&] {
    for (const auto define : kDefinitions) define();
    if (hasScalePictures(options.version)) defineMADynamicScaleNode();
    placeMixerClasses();
    defineArrangeClasses(options);
    defineLiveLoopsClasses();
    definePaneClasses();
    return true;
  }();
  static_cast<void>(defined);
}

NSDictionary mainBundleInfo(const HostOptions& options) {
  const auto info = NSMutableDictionary::dictionary();
  info.setObject(literal<"com.velura.simulated-host">(), literal<"CFBundleIdentifier">());
  info.setObject(string(options.version), literal<"CFBundleShortVersionString">());
  return info;
}

}  // namespace

namespace {

/// The panes of each window of the document that has some.
const std::map<WindowKind, DocumentLayout>& documentLayouts() {
  using enum PaneKind;
  static const std::map<WindowKind, DocumentLayout> layouts{
      {WindowKind::kLibrary, {.title = "Library", .left = {kLibrary}, .right = {kBrowsers}}},
      {WindowKind::kLoopBrowser, {.title = "Loops", .right = {kLoopBrowser}}},
      {WindowKind::kLists, {.title = "Lists", .right = {kLists}}},
      {WindowKind::kInspector, {.title = "Inspector", .content = {1180, 1000}, .left = {kInspector}}},
      {WindowKind::kOverview,
       {.title = "Overview",
        .content = {1680, 1280},
        .left = {kLibrary, kInspector},
        .right = {kLoopBrowser},
        .below = kMixer}},
  };
  return layouts;
}

}  // namespace

Application::Application(HostOptions options) : options_(std::move(options)) {
  const AutoreleasePool pool;
  defineClasses(options_);
  standin::setMainBundleInfo(mainBundleInfo(options_));
  NSApplication::sharedApplication();
}

Application::~Application() {
  const AutoreleasePool pool;
  documents_.clear();
  liveLoops_.reset();
  sequencer_.reset();
  arrange_.reset();
  mixer_.reset();
}

bool Application::loadBundle(const std::string& path, std::string& error) {
  const AutoreleasePool pool;
  if (::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL) == nullptr) {
    const char* reason = ::dlerror();
    error = reason == nullptr ? path + ": cannot be loaded" : reason;
    return false;
  }
  const Class loader = classNamed("LoaderClass");
  if (loader == nullptr) {
    error = path + ": has no LoaderClass";
    return false;
  }
  // The loader lives as long as the process, like the bundle.
  const id instance = call<"init", id>(call<"alloc", id>(loader));
  call<"initialize">(instance);
  return true;
}

void Application::open(Song song) {
  const AutoreleasePool pool;
  song_ = std::move(song);
  mixer_ = std::make_unique<MixerWindow>(song_, options_.scale);
  arrange_ = std::make_unique<ArrangeWindow>(song_, options_);
  sequencer_ = std::make_unique<StepSequencerPanel>(options_.scale);
  liveLoops_ = std::make_unique<LiveLoopsWindow>(song_, arrange_->fenster(), options_.scale);
  announceOpened(arrange_->document());
}

void Application::openWindow(WindowKind kind) {
  if (isOpen(kind)) return;
  const AutoreleasePool pool;
  documents_[kind] = std::make_unique<ArrangeWindow>(song_, options_, documentLayouts().at(kind));
  announceOpened(documents_[kind]->document());
}

bool Application::isOpen(WindowKind kind) const {
  return !documentLayouts().contains(kind) || documents_.contains(kind);
}

void Application::runFrame() {
  const AutoreleasePool pool;
  NSApplication::sharedApplication().updateWindows();
  mixer_->updatePresentation();
  for (const auto& [kind, document] : documents_) document->updatePresentation();
}

void Application::settle(WindowKind kind) {
  constexpr int kMostTurns = 200;
  standin::setClock(CFAbsoluteTimeGetCurrent());
  for (int turn = 0; turn < kMostTurns; ++turn) {
    const AutoreleasePool pool;
    runFrame();
    const bool ran = standin::runMainQueue() > 0;
    const bool drew = standin::windowNeedsDisplay(window(kind));
    if (drew) static_cast<void>(draw(kind));
    const auto wait = standin::timeUntilMainQueueWork();
    if (wait) standin::setClock(CFAbsoluteTimeGetCurrent() + *wait);
    if (!ran && !drew && !wait) return;
  }
}

NSWindow Application::window(WindowKind kind) const {
  switch (kind) {
    case WindowKind::kMixer:
      return mixer_->window();
    case WindowKind::kArrange:
      return arrange_->window();
    case WindowKind::kStepSequencer:
      return sequencer_->window();
    case WindowKind::kLiveLoops:
      return liveLoops_->window();
    default:
      return documents_.at(kind)->window();
  }
}

Ref<NSBitmapImageRep> Application::draw(WindowKind kind) {
  const AutoreleasePool pool;
  const NSView frame = window(kind).contentView().superview();
  const CGSize size = frame.bounds().size;
  const auto pixels = [&](double points) { return static_cast<NSInteger>(std::ceil(points * options_.scale)); };
  const Ref<NSBitmapImageRep> bitmap = NSBitmapImageRep::withBitmapDataPlanes(
      nullptr, pixels(size.width), pixels(size.height), 8, 4, true, false, NSDeviceRGBColorSpace, 0, 32);
  if (!bitmap) return bitmap;
  bitmap->setSize(size);
  draw(kind, bitmap);
  return bitmap;
}

void Application::draw(WindowKind kind, NSBitmapImageRep bitmap) {
  const AutoreleasePool pool;
  const NSView frame = window(kind).contentView().superview();
  frame.displayRectIgnoringOpacity(frame.bounds(), NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap));
}

}  // namespace host
