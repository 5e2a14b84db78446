#include "host/arrange/ActionBar.h"

#include <cmath>
#include <functional>

#include "cocoa/ClassDefinition.h"
#include "host/drawing/Painter.h"
#include "host/drawing/ScreenImage.h"
#include "host/kit/KitWindow.h"
#include "host/kit/Views.h"

namespace host {
namespace {

using namespace cocoa;

constexpr CGSize kGlyphSize{18, 18};

/// Lines and rectangles of a glyph, in points of a square of 18.
using DrawGlyph = void (*)(const Painter&, NSColor);

void drawLibrary(const Painter& painter, NSColor color) {
  painter.strokeRounded(CGRectMake(2.5, 3.5, 13, 11), 2, color, 1.25);
  painter.fill(CGRectMake(6.5, 3.5, 1.25, 11), color);
  for (const double y : {6.0, 8.5, 11.0}) painter.fill(CGRectMake(9.5, y, 4, 1.25), color);
}
void drawInspector(const Painter& painter, NSColor color) {
  painter.fillEllipse(CGRectMake(7.75, 12.25, 2.5, 2.5), color);
  painter.fill(CGRectMake(8.25, 3.5, 1.75, 7), color);
  painter.fill(CGRectMake(6.25, 9.25, 3, 1.25), color);
  painter.fill(CGRectMake(6.25, 3.25, 5.75, 1.25), color);
}
void drawMixer(const Painter& painter, NSColor color) {
  constexpr double kCaps[] = {9.5, 5.5, 7.5};
  for (int i = 0; i < 3; ++i) {
    const double x = 4 + 5 * i;
    painter.fill(CGRectMake(x - 0.5, 3, 1, 12), color);
    painter.fillRounded(CGRectMake(x - 2, kCaps[i], 4, 3), 1, color);
  }
}
void drawLists(const Painter& painter, NSColor color) {
  for (const double y : {4.0, 8.25, 12.5}) {
    painter.fillEllipse(CGRectMake(2.5, y, 2, 2), color);
    painter.fill(CGRectMake(6.5, y + 0.35, 9, 1.3), color);
  }
}
void drawLoops(const Painter& painter, NSColor color) {
  painter.strokeEllipse(CGRectMake(1.5, 5.5, 7, 7), color, 1.5);
  painter.strokeEllipse(CGRectMake(9, 5.5, 7, 7), color, 1.5);
}
void drawUndo(const Painter& painter, NSColor color) {
  painter.arc({9, 8}, 5, 150, -90, color, 1.5);
  painter.line({3.25, 12.5}, {4.5, 9.5}, color, 1.5);
  painter.line({4.5, 9.5}, {8, 10.75}, color, 1.5);
}
void drawSplit(const Painter& painter, NSColor color) {
  painter.fillRounded(CGRectMake(2, 5, 6, 8), 1.5, color);
  painter.fillRounded(CGRectMake(10, 5, 6, 8), 1.5, color);
  painter.fill(CGRectMake(8.5, 2.5, 1, 13), color);
}
void drawNotePad(const Painter& painter, NSColor color) {
  painter.strokeRounded(CGRectMake(4, 2.5, 10, 13), 1.5, color, 1.25);
  for (const double y : {6.0, 8.5, 11.0}) painter.fill(CGRectMake(6.5, y, 5, 1), color);
}
void drawShare(const Painter& painter, NSColor color) {
  painter.strokeRounded(CGRectMake(4, 2.5, 10, 8), 1.5, color, 1.25);
  painter.line({9, 6}, {9, 15.5}, color, 1.25);
  painter.line({9, 15.5}, {6.5, 13}, color, 1.25);
  painter.line({9, 15.5}, {11.5, 13}, color, 1.25);
}

struct Button {
  const char* className;
  DrawGlyph glyph;
  std::optional<PaneKind> pane;  // that a switch stands for
};
constexpr const char* kSwitch = "MAABButton";
constexpr const char* kOneClick = "MAActionBarButton";
const Button kButtons[] = {
    {kSwitch, drawLibrary, PaneKind::kLibrary},
    {kSwitch, drawInspector, PaneKind::kInspector},
    {kSwitch, drawMixer, PaneKind::kMixer},
    {kSwitch, drawLists, PaneKind::kLists},
    {kSwitch, drawLoops, PaneKind::kLoopBrowser},
    {kOneClick, drawUndo, {}},
    {kOneClick, drawSplit, {}},
    {kOneClick, drawNotePad, {}},
    {kOneClick, drawShare, {}},
};

/// A glyph is of one colour, so that a copy in another one is as good.
Ref<NSImage> glyphImage(DrawGlyph draw) {
  return screenImage(kGlyphSize,
                     [=](CGContextRef context) { draw(Painter(context), paletteColor(Palette::kActionBarGlyph)); });
}

/// Off, a button has a bezel; on, a background of its own or the host's.
struct ActionBarCell : ObjectState {
  void drawBezel(CGRect frame, NSView /*view*/) {
    constexpr double kRadius = 7;
    const NSButtonCell cell(self);
    const Painter painter(NSGraphicsContext::currentContext().CGContext());
    if (cell.state() == NSControlStateValueOn) {
      const NSColor own = cell.backgroundColor();
      painter.fillRounded(frame, kRadius, own ? own : paletteColor(Palette::kActionBarOn));
    } else if (call<"isBordered", BOOL>(cell) != 0) {
      painter.fillRounded(frame, kRadius, paletteColor(Palette::kActionBarOff));
    }
  }
};

struct MAABButton : ObjectState {
  id initWithFrame(CGRect frame) {
    superSend<MAABButton, id>(self, selector<"initWithFrame:">(), frame);
    NSButton(self).setWantsLayer(true);
    return self;
  }
  static Class cellClass(Class /*cls*/) { return classNamed<"MAActionBarButtonCell">(); }
};

struct CLgActionBarView : ObjectState {
  std::set<PaneKind> open;

  /// Has the switches show which panes are open.
  void updateActionBar() {
    std::size_t at = 0;
    for (const NSView place : items<NSView>(NSView(self).subviews())) {
      const Button& row = kButtons[at++];
      const auto button = cast<NSButton>(place.subviews().objectAtIndex(0));
      if (row.pane) button.setState(open.contains(*row.pane) ? NSControlStateValueOn : NSControlStateValueOff);
    }
  }
};

Ref<NSView> newPlace(const Button& row, CGRect frame) {
  constexpr NSUInteger kPushOnPushOff = 1;
  constexpr NSUInteger kMomentary = 0;
  Ref<NSView> place = newView("MAView", frame);
  const Ref<NSView> view = newView(row.className, place->bounds());
  const auto button = cast<NSButton>(view.get());
  call<"setButtonType:">(button, row.pane ? kPushOnPushOff : kMomentary);
  call<"setBordered:">(button, BOOL(1));
  button.setImage(glyphImage(row.glyph));
  place->addSubview(button);
  return place;
}

}  // namespace

Ref<NSView> newActionBar(CGRect frame, std::set<PaneKind> open) {
  constexpr double kPitch = 40;
  constexpr CGSize kSize{36, 28};
  Ref<NSView> bar = newView("CLgActionBarView", frame);
  double x = 0;
  for (const Button& row : kButtons) {
    if (!row.pane && x < kPitch * 5.1) x = kPitch * 5.3;  // the two groups stand apart
    bar->addSubview(newPlace(row, {{x, std::floor((frame.size.height - kSize.height) / 2)}, kSize}));
    x += kPitch;
  }
  stateOf<CLgActionBarView>(bar).open = std::move(open);
  call<"updateActionBar">(bar.get());
  return bar;
}

void defineActionBar() {
  ClassDefinition<ActionBarCell>("MAActionBarButtonCell", "NSButtonCell")
      .method<"drawBezelWithFrame:inView:", &ActionBarCell::drawBezel>()
      .registered();
  ClassDefinition<MAABButton>(kSwitch, "NSButton")
      .classMethod<"cellClass", MAABButton::cellClass>()
      .method<"initWithFrame:", &MAABButton::initWithFrame>()
      .registered();
  definePlainClass<"MAActionBarButton">(kSwitch);  // looks like a switch, and is never on
  ClassDefinition<CLgActionBarView>("CLgActionBarView", "MAView")
      .method<"updateActionBar", &CLgActionBarView::updateActionBar>()
      .registered();
}

}  // namespace host
