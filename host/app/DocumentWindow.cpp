#include "host/app/DocumentWindow.h"

#include <algorithm>

#include "cocoa/Call.h"
#include "host/app/KitWindow.h"
#include "host/mixer/MixerData.h"
#include "host/mixer/Painter.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kWidth = 760;
constexpr double kTransportHeight = 52;
constexpr double kRowHeight = 32;
constexpr std::size_t kMostRows = 64;  // what lies below is scrolled out of sight

void drawTransport(CGRect bounds, CGContextRef context) {
  const Painter painter(context);
  painter.fill(bounds, catalogueColour(Look::kToolbarBackground));
  painter.fill(CGRectMake(0, 0, bounds.size.width, 1), catalogueColour(Look::kToolbarEdge));
  const CGRect display = CGRectMake(bounds.midX() - 130, 8, 260, 36);
  painter.fillRounded(display, 6, look(Look::kDisplayBackground));
  painter.text("017  2  1  001", CGRectMake(display.minX(), display.minY() + 12, 130, 22), look(Look::kDisplayText),
               {.size = 15, .weight = 0.23});
  painter.text("bar  beat  div  tick", CGRectMake(display.minX(), display.minY() + 2, 130, 10),
               look(Look::kEmptySlotTitle), {.size = 7});
  painter.text("104.0", CGRectMake(display.minX() + 130, display.minY() + 12, 65, 22), look(Look::kDisplayText),
               {.size = 15, .weight = 0.23});
  painter.text("4/4", CGRectMake(display.minX() + 195, display.minY() + 12, 65, 22), look(Look::kDisplayText),
               {.size = 15, .weight = 0.23});
  double x = 16;
  for (const Look colour : {Look::kSymbolText, Look::kMeterGreen, Look::kRecordOn}) {
    painter.fillRounded(CGRectMake(x, 12, 40, 28), 6, faded(NSColor::blackColor(), 0.2));
    painter.fillEllipse(CGRectMake(x + 14, 20, 12, 12), look(colour));
    x += 46;
  }
}

void drawTrack(const Painter& painter, const Track& track, std::size_t number, CGRect row) {
  painter.fill(row, look(track.selected ? Look::kStripHighlight : Look::kStripBackground));
  painter.fill(CGRectMake(row.minX(), row.minY(), row.size.width, 1), look(Look::kStripBorder));
  if (const NSColor colour = trackColour(track)) {
    painter.fillRounded(CGRectMake(8, row.minY() + 5, 4, row.size.height - 9), 2, colour);
  }
  painter.text(std::to_string(number), CGRectMake(18, row.minY(), 26, row.size.height), look(Look::kNumberText),
               {.size = 10.5, .alignment = TextAlignment::kRight});
  painter.text(track.name, CGRectMake(56, row.minY(), 240, row.size.height), look(Look::kNameText),
               {.size = 12, .alignment = TextAlignment::kLeft});
  painter.text(track.notes, CGRectMake(300, row.minY(), 300, row.size.height), look(Look::kNotesText),
               {.size = 10.5, .alignment = TextAlignment::kLeft});
  painter.text(track.output, CGRectMake(row.maxX() - 110, row.minY(), 96, row.size.height), look(Look::kLabelText),
               {.size = 10.5, .alignment = TextAlignment::kRight});
}

void drawTracks(const Song& song, CGRect bounds, CGContextRef context) {
  const Painter painter(context);
  painter.fill(bounds, look(Look::kMixerBackground));
  double y = bounds.maxY();
  for (std::size_t i = 0; i < std::min(song.tracks.size(), kMostRows); ++i) {
    y -= kRowHeight;
    drawTrack(painter, song.tracks[i], i + 1, CGRectMake(0, y, bounds.size.width, kRowHeight));
  }
}

}  // namespace

DocumentWindow::DocumentWindow(const Song& song, double scale) {
  const double rows = static_cast<double>(std::clamp<std::size_t>(song.tracks.size(), 4, kMostRows)) * kRowHeight;
  window_ = openKitWindow("MAKitWindow", {kWidth, rows + kTransportHeight}, song.title + " - Tracks", scale);
  call<"setSubtitle:">(window_.get(), string(std::to_string(song.tracks.size()) + " tracks"));
  const NSView content = window_->contentView();
  content.addSubview(drawnView(CGRectMake(0, 0, kWidth, rows),
                               [&song](CGRect bounds, CGContextRef context) { drawTracks(song, bounds, context); }));
  content.addSubview(drawnView(CGRectMake(0, rows, kWidth, kTransportHeight), drawTransport));
}

DocumentWindow::~DocumentWindow() { window_->close(); }

}  // namespace host
