#include "host/drawing/Icons.h"

#include <array>

#include "cocoa/Call.h"

namespace host {
namespace {

using namespace cocoa;

// All within 16 x 16 points, y up.

void drawFolder(const Painter& painter) {
  painter.fillRounded(CGRectMake(1.5, 9, 6, 4.5), 1.2, faded(paletteColor(Palette::kFolderIcon), 0.8));
  painter.fillRounded(CGRectMake(1.5, 3, 13, 8.8), 1.4, paletteColor(Palette::kFolderIcon));
  painter.fill(CGRectMake(2.5, 10, 11, 0.8), faded(NSColor::whiteColor(), 0.35));
}

void drawWave(const Painter& painter, double x, double width, double tallest, NSColor color) {
  constexpr double kHeights[] = {0.3, 0.65, 1, 0.55, 0.8, 0.35};
  const double step = width / std::size(kHeights);
  for (const double height : kHeights) {
    painter.fillRounded(CGRectMake(x, 8 - tallest * height / 2, step * 0.6, tallest * height), step * 0.3, color);
    x += step;
  }
}

void drawTile(const Painter& painter, NSColor color) { painter.fillRounded(CGRectMake(1.5, 1.5, 13, 13), 3, color); }

void drawNoteSign(const Painter& painter, NSColor color) {
  painter.fillEllipse(CGRectMake(4, 3.6, 3.8, 3), color);
  painter.fillEllipse(CGRectMake(9, 4.6, 3.8, 3), color);
  painter.line({7.3, 5.4}, {7.3, 11.2}, color, 1);
  painter.line({12.3, 6.4}, {12.3, 12.2}, color, 1);
  painter.line({7.3, 11.2}, {12.3, 12.2}, color, 1.6);
}

void drawAudioFile(const Painter& painter) { drawWave(painter, 1.5, 13.5, 11, paletteColor(Palette::kAudioIcon)); }
void drawMidiFile(const Painter& painter) { drawNoteSign(painter, paletteColor(Palette::kMidiIcon)); }

void drawProject(const Painter& painter) {
  painter.fillRounded(CGRectMake(1.5, 2, 13, 12), 2, paletteColor(Palette::kPlainIcon));
  painter.fillRounded(CGRectMake(3, 9.8, 6, 2.4), 0.8, paletteColor(Palette::kAudioIcon));
  painter.fillRounded(CGRectMake(6, 6.6, 7, 2.4), 0.8, paletteColor(Palette::kMidiIcon));
  painter.fillRounded(CGRectMake(4, 3.4, 5, 2.4), 0.8, paletteColor(Palette::kDrumIcon));
}

void drawAudioLoop(const Painter& painter) {
  drawTile(painter, paletteColor(Palette::kAudioIcon));
  drawWave(painter, 3.4, 10, 8, NSColor::whiteColor());
}
void drawMidiLoop(const Painter& painter) {
  drawTile(painter, paletteColor(Palette::kMidiIcon));
  drawNoteSign(painter, NSColor::whiteColor());
}
void drawDrumLoop(const Painter& painter) {
  drawTile(painter, paletteColor(Palette::kDrumIcon));
  painter.fillRounded(CGRectMake(4, 4, 8, 7), 2, paletteColor(Palette::kListBackground));
  painter.fillEllipse(CGRectMake(4, 8.6, 8, 3.6), NSColor::whiteColor());
}

void drawPack(const Painter& painter) {
  painter.fillRounded(CGRectMake(2, 2, 12, 8.4), 1.4, paletteColor(Palette::kPlainIcon));
  painter.fillRounded(CGRectMake(1.4, 9.8, 13.2, 3.6), 1.2, faded(paletteColor(Palette::kPlainIcon), 0.75));
  painter.fill(CGRectMake(6.6, 2, 2.8, 11.2), paletteColor(Palette::kListBackground));
}

void drawStar(const Painter& painter) {
  constexpr CGPoint kPoints[] = {{8, 14.2}, {9.9, 10}, {14.4, 9.6}, {11, 6.6},  {12, 2.2},
                                 {8, 4.5},  {4, 2.2},  {5, 6.6},    {1.6, 9.6}, {6.1, 10}};
  const CGContextRef context = painter.context();
  CGContextSetFillColorWithColor(context, paletteColor(Palette::kDrumIcon).CGColor());
  CGContextBeginPath(context);
  CGContextMoveToPoint(context, kPoints[0].x, kPoints[0].y);
  for (const CGPoint point : kPoints) CGContextAddLineToPoint(context, point.x, point.y);
  CGContextClosePath(context);
  CGContextFillPath(context);
}

void drawPage(const Painter& painter) {
  painter.fillRounded(CGRectMake(3, 1.5, 10, 13), 1.4, paletteColor(Palette::kPlainIcon));
  for (int line = 0; line < 4; ++line) {
    painter.fill(CGRectMake(5, 4 + 2.4 * line, line == 0 ? 4 : 6, 1), paletteColor(Palette::kListBackground));
  }
}

using Draw = void (*)(const Painter&);
constexpr std::array<Draw, static_cast<std::size_t>(Icon::kCount)> kDrawings{
    nullptr,      drawFolder,   drawAudioFile, drawMidiFile, drawProject, drawAudioLoop,
    drawMidiLoop, drawDrumLoop, drawPack,      drawStar,     drawPage};

/// Of more pixels than any screen shows of it.
Ref<NSImage> drawnIcon(Draw draw) {
  constexpr NSInteger kPixels = 64;
  const AutoreleasePool pool;
  const auto bitmap =
      NSBitmapImageRep::withBitmapDataPlanes(nullptr, kPixels, kPixels, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 0);
  bitmap->setSize({kIconSize, kIconSize});
  draw(Painter(NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap).CGContext()));
  Ref<NSImage> image = NSImage::withSize({kIconSize, kIconSize});
  image->addRepresentation(bitmap);
  return image;
}

}  // namespace

NSImage iconImage(Icon which) {
  static auto* images = new std::array<Ref<NSImage>, kDrawings.size()>();  // outlives every late release
  const auto index = static_cast<std::size_t>(which);
  if (kDrawings[index] == nullptr) return {};
  Ref<NSImage>& image = (*images)[index];
  if (!image) image = drawnIcon(kDrawings[index]);
  return image;
}

void drawMagnifier(const Painter& painter, CGPoint centre, NSColor color) {
  painter.strokeEllipse(CGRectMake(centre.x - 4.5, centre.y - 2.5, 7, 7), color, 1.3);
  painter.line({centre.x + 1.6, centre.y - 1.6}, {centre.x + 4.6, centre.y - 4.6}, color, 1.5);
}

Painter currentPainter() {
  const NSGraphicsContext graphics = NSGraphicsContext::currentContext();
  return Painter(graphics.CGContext(), graphics.isFlipped());
}

}  // namespace host
