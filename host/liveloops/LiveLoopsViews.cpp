#include "host/liveloops/LiveLoopsViews.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "cocoa/Call.h"
#include "host/drawing/Painter.h"
#include "host/kit/KitWindow.h"
#include "host/kit/Views.h"
#include "host/liveloops/LiveLoopsColors.h"

namespace host {
namespace {

using namespace cocoa;
using namespace liveloops;

NSColor sceneColor(const char* method) { return liveLoopsColor("LiveLoopsSceneTriggerColors", method); }
NSColor rowColor(const char* method) { return liveLoopsColor("LiveLoopsRowTriggerColors", method); }
NSColor rowButtonColor(const char* method) { return liveLoopsColor("LiveLoopsRowTriggerColorUtility", method); }
NSColor dividerColor(const char* method) { return liveLoopsColor("LiveLoopsDividerHeaderAndFooterColors", method); }
NSColor headerColor(const char* method) { return liveLoopsColor("LiveLoopsGridHeaderColors", method); }

Painter currentPainter() { return Painter(NSGraphicsContext::currentContext().CGContext()); }

void drawTriangle(const Painter& painter, CGPoint middle, double size, NSColor color) {
  CGContextRef context = painter.context();
  CGContextSetFillColorWithColor(context, color.CGColor());
  CGContextBeginPath(context);
  CGContextMoveToPoint(context, middle.x - size * 0.8, middle.y + size);
  CGContextAddLineToPoint(context, middle.x + size, middle.y);
  CGContextAddLineToPoint(context, middle.x - size * 0.8, middle.y - size);
  CGContextClosePath(context);
  CGContextFillPath(context);
}

void drawSquare(const Painter& painter, CGPoint middle, double size, NSColor color) {
  painter.fillRounded(CGRectMake(middle.x - size, middle.y - size, 2 * size, 2 * size), 1, color);
}

/// The base of the grid's parts.
struct LiveLoopsPartView : ObjectState {
  const LiveLoopsModel* model = nullptr;
};

/// What a part knows of itself.
struct Part : ObjectState {
  [[nodiscard]] CGRect bounds() const { return NSView(self).bounds(); }
  [[nodiscard]] const LiveLoopsModel& model() const { return *stateOf<LiveLoopsPartView>(self).model; }
};

// ---- Cells --------------------------------------------------------------------------------------------

void drawCell(const Painter& painter, const Region& region, const Track& track, CGRect frame) {
  const SongColor c = region.color.value_or(track.color.value_or(SongColor{120, 124, 130}));
  const NSColor body = NSColor::colorWithSRGBRed(c.red / 255.0, c.green / 255.0, c.blue / 255.0, 1);
  painter.fillRounded(frame, 5, body);
  painter.fillRounded(CGRectMake(frame.minX(), frame.maxY() - 14, frame.size.width, 14), 5,
                      faded(NSColor::blackColor(), 0.18));
  painter.text(region.name, CGRectMake(frame.minX() + 5, frame.maxY() - 14, frame.size.width - 10, 14),
               NSColor::whiteColor(), {.size = 9, .weight = 0.23, .alignment = TextAlignment::kLeft});
  const double middle = frame.minY() + (frame.size.height - 14) / 2;
  for (int i = 0; i < 34; ++i) {
    const double x = frame.minX() + 6 + i * (frame.size.width - 12) / 34;
    const double height = 2 + 9 * std::abs(std::sin(i * 0.9 + static_cast<double>(region.name.size())));
    painter.fill(CGRectMake(x, middle - height / 2, 1.4, height), faded(NSColor::blackColor(), 0.35));
  }
}

struct LiveLoopsGridView : Part {
  void drawRect(CGRect /*dirty*/) {
    const CGRect area = bounds();
    const Painter painter = currentPainter();
    painter.fill(area, liveLoopsColor("LiveLoopsGeneralColors", "backgroundColor"));
    for (std::size_t row = 0; row < model().rows.size(); ++row) drawRow(painter, row, area);
  }

 private:
  void drawRow(const Painter& painter, std::size_t row, CGRect area) const {
    const double y = area.size.height - kRowHeight * static_cast<double>(row + 1);
    if (model().rows[row].insideSubfolder) {
      painter.fill(CGRectMake(0, y, area.size.width, kRowHeight),
                   liveLoopsColor("LiveLoopsGeneralColors", "backgroundColorInsideSubfolder"));
    }
    for (std::size_t scene = 0; scene < model().scenes.size(); ++scene) {
      const CGRect frame =
          CGRectMake(kSceneWidth * static_cast<double>(scene), y, kSceneWidth, kRowHeight).insetBy(2, 2);
      if (const Region* region = model().cell(row, scene)) {
        drawCell(painter, *region, *model().rows[row].track, frame);
      } else {
        painter.strokeRounded(frame.insetBy(0.5, 0.5), 5, faded(NSColor::whiteColor(), 0.05), 1);
      }
    }
  }
};

// ---- Above the grid -----------------------------------------------------------------------------------

struct LiveLoopsGridHeaderControlsContainerView : Part {
  void drawRect(CGRect /*dirty*/) {
    const CGRect area = bounds();
    const Painter painter = currentPainter();
    painter.fill(area, headerColor("backgroundColor"));
    painter.fill(CGRectMake(0, 0, area.size.width, 1), headerColor("lineColor"));
    painter.fill(CGRectMake(area.size.width - 1, 0, 1, area.size.height), headerColor("lineColor"));
    painter.text("Quantize Start:  1 Bar", CGRectMake(12, 0, 150, area.size.height), NSColor::colorWithWhite(0.86, 1),
                 {.size = 11, .alignment = TextAlignment::kLeft});
  }
};

/// The place that the global tracks take while they are shown beside the grid.
struct LiveLoopsRulerView : Part {
  void drawRect(CGRect /*dirty*/) {
    const CGRect area = bounds();
    const Painter painter = currentPainter();
    painter.fill(area, headerColor("globalTrackPlaceholderBackgroundColor"));
    for (double x = kSceneWidth; x < area.size.width; x += kSceneWidth) {
      painter.fill(CGRectMake(x - 1, 1, 1, area.size.height - 1), headerColor("globalTrackPlaceholderLineColor"));
    }
    painter.fill(CGRectMake(0, 0, area.size.width, 1), headerColor("globalTrackPlaceholderBottomLineColor"));
  }
};

/// Shows how far the bar has come. It keeps its colours.
struct LiveLoopsGridClockView : Part {
  Ref<NSColor> background;
  Ref<NSColor> foreground;

  void commonInit() {
    background = liveLoopsColor("LiveLoopsGridClockColors", "backgroundColor");
    foreground = liveLoopsColor("LiveLoopsGridClockColors", "foregroundColor");
  }
  void drawRect(CGRect /*dirty*/) {
    const CGRect area = bounds();
    const Painter painter = currentPainter();
    const CGRect disc = area.insetBy(2, 2);
    painter.fillEllipse(disc, background);
    painter.arc({disc.midX(), disc.midY()}, disc.size.width / 2 - 3, 90, 90 - 230, foreground, 3);
    painter.line({disc.midX(), disc.midY()}, {disc.midX() - 5, disc.midY() - 6}, foreground, 1.5);
  }
};

// ---- Scenes -------------------------------------------------------------------------------------------

struct LiveLoopsSceneTriggersView : Part {
  void drawRect(CGRect /*dirty*/) {
    const CGRect area = bounds();
    const Painter painter = currentPainter();
    painter.fill(area, sceneColor("excessSceneTriggerBackgroundColor"));
    for (std::size_t i = 0; i < model().scenes.size(); ++i) {
      drawScene(painter, model().scenes[i],
                CGRectMake(kSceneWidth * static_cast<double>(i), 0, kSceneWidth, area.size.height));
    }
  }

 private:
  static const char* backgroundOf(TriggerState state) {
    switch (state) {
      case TriggerState::kSelected:
      case TriggerState::kFocused:
        return "backgroundSelectedColor";
      case TriggerState::kFlashing:
        return "flashColor";
      case TriggerState::kUnderMouse:
        return "mouseoverColor";
      default:
        return "backgroundColor";
    }
  }
  static void drawScene(const Painter& painter, const LiveLoopsScene& scene, CGRect frame) {
    painter.fill(frame, sceneColor(backgroundOf(scene.state)));
    painter.fill(CGRectMake(frame.maxX() - 1, frame.minY(), 1, frame.size.height), sceneColor("borderColor"));
    painter.fill(CGRectMake(frame.minX(), frame.maxY() - 1, frame.size.width, 1), sceneColor("borderColor"));
    const CGRect button = CGRectMake(frame.midX() - 13, frame.maxY() - 23, 26, 18);
    const bool pressed = scene.state == TriggerState::kPressed;
    if (scene.state == TriggerState::kUnderMouse || pressed) {
      painter.fillRounded(button, 4, sceneColor("mouseoverButtonBackgroundColor"));
    }
    if (scene.state == TriggerState::kFocused) {
      painter.fillRounded(button, 4, sceneColor("mouseoverButtonBackgroundColorForFocusScene"));
    }
    drawTriangle(painter, {button.midX(), button.midY()}, 4.5,
                 sceneColor(pressed ? "mousePressedButtonGlyphColor" : "buttonGlyphColor"));
    painter.text(scene.name, CGRectMake(frame.minX() + 4, frame.minY() + 3, frame.size.width - 8, 14),
                 sceneColor("foregroundTextColor"), {.size = 10, .weight = 0.23});
  }
};

// ---- Rows ---------------------------------------------------------------------------------------------

struct RowLook {
  const char* background;
  bool highlighted;
};

RowLook lookOf(TriggerState state) {
  switch (state) {
    case TriggerState::kSelected:
      return {"backgroundHighlightedColor", true};
    case TriggerState::kUnderMouse:
      return {"mouseoverBackgroundColor", false};
    case TriggerState::kFocused:
      return {"mouseoverBackgroundHighlightedColor", true};
    case TriggerState::kPressed:
      return {"pressedStateBackgroundColor", false};
    case TriggerState::kFlashing:
      return {"pressedStateBackgroundHighlightedColor", true};
    case TriggerState::kPlain:
      break;
  }
  return {"backgroundColor", false};
}

/// The triggers of the rows, left of the grid. Their glyphs are drawn ahead and kept.
struct LiveLoopsRowTriggerHeaderView : Part {
  Ref<NSColor> glyph;
  Ref<NSColor> highlightedGlyph;

  void prerenderGlyphs() {
    glyph = rowColor("glyphColor");
    highlightedGlyph = rowColor("glyphHighlightedColor");
  }
  void drawRect(CGRect /*dirty*/) {
    const CGRect area = bounds();
    const Painter painter = currentPainter();
    painter.fill(area, rowColor("excessBackgroundColor"));
    for (std::size_t i = 0; i < model().rows.size(); ++i) {
      drawRow(painter, model().rows[i],
              CGRectMake(0, area.size.height - kRowHeight * static_cast<double>(i + 1), area.size.width, kRowHeight));
    }
  }

 private:
  void drawRow(const Painter& painter, const LiveLoopsRow& row, CGRect frame) const {
    const RowLook look = lookOf(row.state);
    const bool on = look.highlighted;
    painter.fill(frame, rowColor(look.background));
    painter.fill(CGRectMake(0, frame.minY(), frame.size.width, 1),
                 rowColor(on ? "rowSeparatorHighlightedColor" : "rowSeparatorColor"));
    painter.fill(CGRectMake(frame.maxX() - 1, frame.minY(), 1, frame.size.height),
                 rowColor(on ? "borderHighlightedColor" : "borderColor"));
    if (row.track->color) {
      const SongColor c = *row.track->color;
      painter.fill(CGRectMake(0, frame.minY() + 1, 4, frame.size.height - 1),
                   NSColor::colorWithSRGBRed(c.red / 255.0, c.green / 255.0, c.blue / 255.0, 1));
    }
    painter.text(row.track->name, CGRectMake(12, frame.minY(), frame.size.width - 74, frame.size.height),
                 NSColor::colorWithWhite(on ? 1 : 0.85, 1), {.size = 11, .alignment = TextAlignment::kLeft});
    drawButton(painter, row.state, CGRectMake(frame.maxX() - 58, frame.midY() - 9, 22, 18));
    drawTriangle(painter, {frame.maxX() - 18, frame.midY()}, 5, on ? highlightedGlyph : glyph);
  }
  /// The button that stops a row.
  static void drawButton(const Painter& painter, TriggerState state, CGRect frame) {
    const char* const background = state == TriggerState::kUnderMouse ? "backgroundMouseoverColor"
                                   : state == TriggerState::kPressed  ? "backgroundPressedStateColor"
                                                                      : "basicBackgroundColor";
    painter.fillRounded(frame, 4, rowButtonColor(background));
    painter.strokeRounded(frame.insetBy(0.5, 0.5), 4, rowButtonColor("borderColor"), 1);
    drawSquare(painter, {frame.midX(), frame.midY()}, 3.5, rowButtonColor("glyphColor"));
  }
};

// ---- The divider --------------------------------------------------------------------------------------

/// The column between the grid and the arrangement. What its ends look like is kept by the controller.
struct LiveLoopsDividerViewController : ObjectState {
  struct End {
    Ref<NSColor> background;
    Ref<NSColor> glyph;
    Ref<NSColor> border;
  };
  End head;
  End middle;  // with the mouse over it
  End foot;    // pressed

  void reloadDividerView() {
    const auto end = [](const char* background) {
      return End{dividerColor(background), dividerColor("glyphColor"), dividerColor("borderColor")};
    };
    head = end("basicBackgroundColor");
    middle = end("backgroundMouseoverColor");
    foot = end("backgroundPressedStateColor");
    NSView(call<"view", NSView>(self)).setNeedsDisplay(true);
  }
};

struct LiveLoopsDividerBackgroundView : Part {
  void drawRect(CGRect /*dirty*/) {
    const auto* controller = stateIfKind<LiveLoopsDividerViewController>(call<"nextResponder", NSObject>(self));
    if (controller == nullptr) return;
    const CGRect area = bounds();
    const Painter painter = currentPainter();
    painter.fill(area, NSColor::colorWithWhite(0.11, 1));
    constexpr double kEnd = 44;
    drawEnd(painter, controller->head, CGRectMake(0, area.size.height - kEnd, area.size.width, kEnd));
    drawEnd(painter, controller->middle, CGRectMake(0, area.midY() - kEnd / 2, area.size.width, kEnd));
    drawEnd(painter, controller->foot, CGRectMake(0, 0, area.size.width, kEnd));
  }

 private:
  static void drawEnd(const Painter& painter, const LiveLoopsDividerViewController::End& end, CGRect frame) {
    const CGRect button = frame.insetBy(5, 8);
    painter.fillRounded(button, 5, end.background);
    painter.strokeRounded(button.insetBy(0.5, 0.5), 5, end.border, 1);
    drawTriangle(painter, {button.midX(), button.midY()}, 4.5, end.glyph);
  }
};

template <class View>
ClassDefinition<View> definePart(const char* className) {
  ClassDefinition<View> definition(className, "LiveLoopsPartView");
  definition.template method<"drawRect:", &View::drawRect>();
  return definition;
}

}  // namespace

LiveLoopsModel::LiveLoopsModel(const Song& song) {
  constexpr TriggerState kStates[] = {TriggerState::kPlain,      TriggerState::kSelected, TriggerState::kPlain,
                                      TriggerState::kUnderMouse, TriggerState::kPressed,  TriggerState::kPlain,
                                      TriggerState::kFocused,    TriggerState::kFlashing};
  bool insideSubfolder = false;
  for (std::size_t i = 0; i < std::min(song.loopRows, song.tracks.size()); ++i) {
    const Track& track = song.tracks[i];
    insideSubfolder = !track.folder && (insideSubfolder || (i > 0 && song.tracks[i - 1].folder)) && i < 5;
    rows.push_back({&track, kStates[i % std::size(kStates)], insideSubfolder});
  }
  for (std::size_t i = 0; i < std::min(song.loopScenes, song.arrange.markers.size()); ++i) {
    scenes.push_back({song.arrange.markers[i].name, kStates[i % std::size(kStates)]});
  }
}

const Region* LiveLoopsModel::cell(std::size_t row, std::size_t scene) const {
  const std::vector<Region>& regions = rows[row].track->regions;
  if (regions.empty() || (row * 5 + scene * 3) % 7 > 3) return nullptr;
  return &regions[(row + scene) % regions.size()];
}

namespace liveloops {

Ref<NSView> newPart(const char* className, CGRect frame, const LiveLoopsModel& model) {
  Ref<NSView> part = newView(className, frame);
  stateOf<LiveLoopsPartView>(part.get()).model = &model;
  return part;
}

void defineViews() {
  ClassDefinition<LiveLoopsPartView>("LiveLoopsPartView", "MAView").registered();
  definePart<LiveLoopsGridView>("LiveLoopsGridView").registered();
  definePart<LiveLoopsGridHeaderControlsContainerView>("LiveLoopsGridHeaderControlsContainerView").registered();
  definePart<LiveLoopsRulerView>("LiveLoopsRulerView").registered();
  definePart<LiveLoopsGridClockView>("LiveLoopsGridClockView")
      .method<"commonInit", &LiveLoopsGridClockView::commonInit>()
      .registered();
  definePart<LiveLoopsSceneTriggersView>("LiveLoopsSceneTriggersView").registered();
  definePart<LiveLoopsRowTriggerHeaderView>("LiveLoopsRowTriggerHeaderView")
      .method<"prerenderGlyphs", &LiveLoopsRowTriggerHeaderView::prerenderGlyphs>()
      .registered();
  definePart<LiveLoopsDividerBackgroundView>("LiveLoopsDividerBackgroundView").registered();
  ClassDefinition<LiveLoopsDividerViewController>("LiveLoopsDividerViewController", "NSViewController")
      .method<"reloadDividerView", &LiveLoopsDividerViewController::reloadDividerView>()
      .registered();
}

}  // namespace liveloops

}  // namespace host
