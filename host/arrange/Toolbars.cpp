#include "host/arrange/Toolbars.h"

#include <cmath>
#include <cstdio>

#include "host/arrange/CLgSectionView.h"
#include "host/drawing/Painter.h"

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
  painter.fillRounded(display, 6, paletteColor(Palette::kDisplayBackground));
  painter.text(positionText(arrange), upper, paletteColor(Palette::kDisplayText), kLarge);
  painter.text("bar  beat  div  tick", CGRectMake(display.minX(), display.minY() + 2, kPositionWidth, 10),
               paletteColor(Palette::kEmptySlotTitle), {.size = 7});
  const CGRect tempo = CGRectMake(upper.maxX(), upper.minY(), kPositionWidth / 2, upper.size.height);
  painter.text("104.0", tempo, paletteColor(Palette::kDisplayText), kLarge);
  painter.text(std::to_string(arrange.beatsPerBar) + "/4", tempo.offsetBy(kPositionWidth / 2, 0),
               paletteColor(Palette::kDisplayText), kLarge);
}

}  // namespace

void drawTransport(const Arrangement& arrange, CGRect bounds, CGContextRef context) {
  constexpr double kButtonPitch = 46;
  const Painter painter(context);
  painter.fill(bounds, catalogueColor(Palette::kToolbarBackground));
  painter.fill(CGRectMake(0, 0, bounds.size.width, 1), catalogueColor(Palette::kToolbarEdge));
  drawDisplay(painter, arrange, CGRectMake(std::floor(bounds.midX()) - 130, 8, 260, 36));
  double x = 16;
  for (const Palette color : {Palette::kSymbolText, Palette::kArrangeVolume, Palette::kRecordOn}) {
    painter.fillRounded(CGRectMake(x, 12, 40, 28), 6, faded(NSColor::blackColor(), 0.2));
    painter.fillEllipse(CGRectMake(x + 14, 20, 12, 12), paletteColor(color));
    x += kButtonPitch;
  }
  if (arrange.cycle.on) {
    painter.fillRounded(CGRectMake(x, 12, 40, 28), 6, paletteColor(Palette::kCycleOn));
    painter.strokeRounded(CGRectMake(x + 11, 20, 18, 12), 6, paletteColor(Palette::kRegionTextDark), 2);
  }
}

void drawArrangeMenu(CGRect bounds, CGContextRef context) {
  constexpr double kWidth = 66;
  const Painter painter(context);
  painter.fill(bounds, catalogueColor(Palette::kToolbarBackground));
  double x = kMargin;
  for (const char* menu : {"Edit", "Functions", "View"}) {
    painter.text(menu, CGRectMake(x, 0, kWidth, bounds.size.height), catalogueColor(Palette::kToolbarText),
                 {.size = 11.5});
    x += kWidth;
  }
  const CGRect snap = CGRectMake(bounds.maxX() - 150, 4, 140, bounds.size.height - 8);
  painter.fillRounded(snap, 5, faded(NSColor::blackColor(), 0.25));
  painter.text("Snap: Beat", snap, catalogueColor(Palette::kToolbarText), {.size = 11});
}

void drawGlobalTracksCorner(CGRect bounds, CGContextRef context) {
  const Painter painter(context);
  const double top = bounds.maxY();
  painter.fill(bounds, paletteColor(Palette::kRulerBackground));
  const auto lane = [&](const char* name, double from, double to) {
    painter.fill(CGRectMake(0, top - from - 1, bounds.size.width, 1), paletteColor(Palette::kArrangeSeparator));
    painter.text(name, CGRectMake(kMargin, top - to, bounds.size.width - 2 * kMargin, to - from),
                 paletteColor(Palette::kRulerText), {.size = 10, .alignment = TextAlignment::kLeft});
  };
  painter.text("Global Tracks", CGRectMake(kMargin, top - kRulerBaseline, 140, kRulerBaseline),
               paletteColor(Palette::kRulerText), {.size = 11, .weight = 0.23, .alignment = TextAlignment::kLeft});
  lane("Marker", kMarkerLaneTop - 1, kMarkerLaneBottom);
  lane("Signature", kMarkerLaneBottom, kRulerHeight);
}

}  // namespace host
