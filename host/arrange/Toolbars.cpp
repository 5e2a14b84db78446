#include "host/arrange/Toolbars.h"

#include <cmath>
#include <cstdio>

#include "host/arrange/CLgSectionView.h"
#include "host/mixer/Painter.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kMargin = 10;

/// A place in a song as a transport shows it.
std::string positionText(const Arrangement& arrange) {
  const double beats = (arrange.playhead - 1) * arrange.beatsPerBar;
  const double divisions = beats * arrange.division;
  const auto within = [](double count, int size) { return static_cast<int>(std::fmod(std::floor(count), size)) + 1; };
  char text[48];
  std::snprintf(text, sizeof text, "%03d  %d  %d  001", static_cast<int>(arrange.playhead),
                within(beats, arrange.beatsPerBar), within(divisions, arrange.division));
  return text;
}

void drawDisplay(const Painter& painter, const Arrangement& arrange, CGRect display) {
  constexpr double kPositionWidth = 130;
  constexpr TextStyle kLarge{.size = 15, .weight = 0.23};
  const CGRect upper = CGRectMake(display.minX(), display.minY() + 12, kPositionWidth, 22);
  painter.fillRounded(display, 6, look(Look::kDisplayBackground));
  painter.text(positionText(arrange), upper, look(Look::kDisplayText), kLarge);
  painter.text("bar  beat  div  tick", CGRectMake(display.minX(), display.minY() + 2, kPositionWidth, 10),
               look(Look::kEmptySlotTitle), {.size = 7});
  const CGRect tempo = CGRectMake(upper.maxX(), upper.minY(), kPositionWidth / 2, upper.size.height);
  painter.text("104.0", tempo, look(Look::kDisplayText), kLarge);
  painter.text(std::to_string(arrange.beatsPerBar) + "/4", tempo.offsetBy(kPositionWidth / 2, 0),
               look(Look::kDisplayText), kLarge);
}

}  // namespace

void drawTransport(const Arrangement& arrange, CGRect bounds, CGContextRef context) {
  constexpr double kButtonPitch = 46;
  const Painter painter(context);
  painter.fill(bounds, catalogueColor(Look::kToolbarBackground));
  painter.fill(CGRectMake(0, 0, bounds.size.width, 1), catalogueColor(Look::kToolbarEdge));
  drawDisplay(painter, arrange, CGRectMake(std::floor(bounds.midX()) - 130, 8, 260, 36));
  double x = 16;
  for (const Look color : {Look::kSymbolText, Look::kArrangeVolume, Look::kRecordOn}) {
    painter.fillRounded(CGRectMake(x, 12, 40, 28), 6, faded(NSColor::blackColor(), 0.2));
    painter.fillEllipse(CGRectMake(x + 14, 20, 12, 12), look(color));
    x += kButtonPitch;
  }
  if (arrange.cycle.on) {
    painter.fillRounded(CGRectMake(x, 12, 40, 28), 6, look(Look::kCycleOn));
    painter.strokeRounded(CGRectMake(x + 11, 20, 18, 12), 6, look(Look::kRegionTextDark), 2);
  }
}

void drawArrangeMenu(CGRect bounds, CGContextRef context) {
  constexpr double kWidth = 66;
  const Painter painter(context);
  painter.fill(bounds, catalogueColor(Look::kToolbarBackground));
  double x = kMargin;
  for (const char* menu : {"Edit", "Functions", "View"}) {
    painter.text(menu, CGRectMake(x, 0, kWidth, bounds.size.height), catalogueColor(Look::kToolbarText),
                 {.size = 11.5});
    x += kWidth;
  }
  const CGRect snap = CGRectMake(bounds.maxX() - 150, 4, 140, bounds.size.height - 8);
  painter.fillRounded(snap, 5, faded(NSColor::blackColor(), 0.25));
  painter.text("Snap: Beat", snap, catalogueColor(Look::kToolbarText), {.size = 11});
}

void drawGlobalTracksCorner(CGRect bounds, CGContextRef context) {
  const Painter painter(context);
  const double top = bounds.maxY();
  painter.fill(bounds, look(Look::kRulerBackground));
  const auto lane = [&](const char* name, double from, double to) {
    painter.fill(CGRectMake(0, top - from - 1, bounds.size.width, 1), look(Look::kArrangeSeparator));
    painter.text(name, CGRectMake(kMargin, top - to, bounds.size.width - 2 * kMargin, to - from),
                 look(Look::kRulerText), {.size = 10, .alignment = TextAlignment::kLeft});
  };
  painter.text("Global Tracks", CGRectMake(kMargin, top - kRulerBaseline, 140, kRulerBaseline), look(Look::kRulerText),
               {.size = 11, .weight = 0.23, .alignment = TextAlignment::kLeft});
  lane("Marker", kMarkerLaneTop - 1, kMarkerLaneBottom);
  lane("Signature", kMarkerLaneBottom, kRulerHeight);
}

}  // namespace host
