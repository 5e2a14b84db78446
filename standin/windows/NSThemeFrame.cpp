// The frame view of a window: title bar and contents.

#include <array>

#include "standin/windows/Registration.h"
#include "standin/windows/Window.h"

using namespace cocoa;

namespace standin {

namespace {

constexpr Rgba kBarColor{56 / 255.0, 56 / 255.0, 58 / 255.0, 1};
constexpr Rgba kBarEdgeColor{24 / 255.0, 24 / 255.0, 25 / 255.0, 1};
constexpr Rgba kTitleColor{222 / 255.0, 222 / 255.0, 223 / 255.0, 1};
constexpr Rgba kSubtitleColor{152 / 255.0, 152 / 255.0, 154 / 255.0, 1};
constexpr double kLightSide = 12;
constexpr double kFirstLight = 8;
constexpr double kLightStep = 20;
constexpr double kTitleMargin = 72;
constexpr double kTitleHeight = 16;
constexpr Rgba kLights[] = {{1, 95 / 255.0, 87 / 255.0, 1},
                            {254 / 255.0, 188 / 255.0, 46 / 255.0, 1},
                            {40 / 255.0, 200 / 255.0, 64 / 255.0, 1}};

NSColor colorFor(const Rgba& c) { return NSColor::colorWithSRGBRed(c.red, c.green, c.blue, c.alpha); }

/// A traffic light.
struct ThemeWidget : ObjectState {
  Rgba color;
  void drawRect(NSRect) {
    colorFor(color).set();
    NSBezierPath::bezierPathWithOvalInRect(NSView(self).bounds()).fill();
  }
};

/// Draws the bar; holds the title, the subtitle when there is one, and the traffic lights.
struct TitlebarView : ObjectState {
  Ref<NSTextField> title;
  Ref<NSTextField> subtitle;

  void drawRect(NSRect) {
    const NSRect bounds = NSView(self).bounds();
    colorFor(kBarColor).set();
    NSBezierPath::fillRect(bounds);
    colorFor(kBarEdgeColor).set();
    NSBezierPath::fillRect({bounds.origin, {bounds.size.width, 1}});
  }
};

struct TitlebarContainerView : ObjectState {
  NSView associatedThemeFrame() { return NSView(self).superview(); }
};

/// State of an NSThemeFrame.
struct ThemeFrame : ObjectState {
  Ref<NSView> container;
  Ref<NSView> bar;
  Ref<NSView> content;
  NSView titlebarView() { return bar; }
  void drawRect(NSRect) {
    if (const NSColor color = NSView(self).window().backgroundColor()) {
      color.set();
      NSBezierPath::fillRect(NSView(self).bounds());
    }
  }
};

template <class State>
Ref<NSView> newView(NSRect frame) {
  return Ref<NSView>::adopt(call<"initWithFrame:", NSView>(newObject<State>(), frame));
}

Ref<NSTextField> newLabel(NSFont font, const Rgba& color) {
  auto label = NSTextField::withFrame({});
  label->setFont(font);
  label->setTextColor(colorFor(color));
  label->setAlignment(NSTextAlignmentCenter);
  call<"setLineBreakMode:">(label.get(), NSLineBreakByTruncatingTail);
  return label;
}

void addTitlebar(ThemeFrame& frame) {
  const NSView self(frame.self);
  frame.container = newView<TitlebarContainerView>({});
  frame.bar = newView<TitlebarView>({});
  auto& bar = stateOf<TitlebarView>(frame.bar);
  bar.title = newLabel(NSFont::systemFontOfSize(NSFont::systemFontSize(), NSFontWeightSemibold), kTitleColor);
  frame.bar->addSubview(bar.title);
  double x = kFirstLight;
  for (const Rgba& light : kLights) {
    const auto widget = newView<ThemeWidget>({{x, (kTitleBarHeight - kLightSide) / 2}, {kLightSide, kLightSide}});
    stateOf<ThemeWidget>(widget).color = light;
    frame.bar->addSubview(widget);
    x += kLightStep;
  }
  frame.container->addSubview(frame.bar);
  self.addSubview(frame.container);
}

/// The title in the middle of the window; with a subtitle the two share the middle.
void layOutTitles(TitlebarView& bar, double width) {
  const double room = std::max(0.0, width - 2 * kTitleMargin);
  const double y = (kTitleBarHeight - kTitleHeight) / 2;
  if (!bar.subtitle) return bar.title->setFrame({{kTitleMargin, y}, {room, kTitleHeight}});
  bar.title->setFrame({{kTitleMargin, y}, {room / 2, kTitleHeight}});
  bar.subtitle->setFrame({{kTitleMargin + room / 2, y}, {room / 2, kTitleHeight}});
}

}  // namespace

NSView makeThemeFrame(NSSize size, bool titled) {
  auto frame = newView<ThemeFrame>({{}, size});
  if (titled) addTitlebar(stateOf<ThemeFrame>(frame));
  layOutFrame(frame, size);
  return frame.detach();
}

void layOutFrame(NSView view, NSSize size) {
  auto& frame = stateOf<ThemeFrame>(view);
  view.setFrame({{}, size});
  const double barHeight = frame.container ? kTitleBarHeight : 0;
  if (frame.container) {
    frame.container->setFrame({{0, size.height - barHeight}, {size.width, barHeight}});
    frame.bar->setFrame({{}, {size.width, barHeight}});
    layOutTitles(stateOf<TitlebarView>(frame.bar), size.width);
  }
  if (frame.content) frame.content->setFrame({{}, {size.width, size.height - barHeight}});
}

void setFrameContent(NSView view, NSView content) {
  auto& frame = stateOf<ThemeFrame>(view);
  if (frame.content) frame.content->removeFromSuperview();
  frame.content = content;
  if (content) view.addSubview(content, NSWindowBelow, NSView());
  layOutFrame(view, view.frame().size);
}

void setFrameTitles(NSView view, NSString title, NSString subtitle) {
  auto& frame = stateOf<ThemeFrame>(view);
  if (!frame.bar) return;
  auto& bar = stateOf<TitlebarView>(frame.bar);
  bar.title->setStringValue(title);
  if (subtitle.length() > 0 && !bar.subtitle) {
    bar.subtitle = newLabel(NSFont::systemFontOfSize(NSFont::smallSystemFontSize()), kSubtitleColor);
    frame.bar->addSubview(bar.subtitle, NSWindowAbove, bar.title);
  } else if (subtitle.length() == 0 && bar.subtitle) {
    bar.subtitle->removeFromSuperview();
    bar.subtitle = {};
  }
  if (bar.subtitle) bar.subtitle->setStringValue(subtitle);
  layOutTitles(bar, view.frame().size.width);
}

void registerThemeFrames() {
  ClassDefinition<ThemeWidget>("_NSThemeWidget", "NSButton").method<"drawRect:", &ThemeWidget::drawRect>().registered();
  ClassDefinition<TitlebarView>("NSTitlebarView", "NSView").method<"drawRect:", &TitlebarView::drawRect>().registered();
  ClassDefinition<TitlebarContainerView>("NSTitlebarContainerView", "NSView")
      .method<"associatedThemeFrame", &TitlebarContainerView::associatedThemeFrame>()
      .registered();
  ClassDefinition<ThemeFrame>("NSThemeFrame", "NSView")
      .method<"titlebarView", &ThemeFrame::titlebarView>()
      .method<"drawRect:", &ThemeFrame::drawRect>()
      .registered();
}

}  // namespace standin
