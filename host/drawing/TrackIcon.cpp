#include "host/drawing/TrackIcon.h"

#include <algorithm>
#include <cmath>

#include "cocoa/CoreGraphics.h"

namespace host {
namespace {

enum class Shape { kDrum, kCymbal, kStrings, kKeys, kWave, kMicrophone, kDots };

struct IconRow {
  std::string_view name;
  Shape shape;
};
constexpr IconRow kIcons[] = {
    {"drums", Shape::kDrum},     {"kick", Shape::kDrum},       {"snare", Shape::kDrum},
    {"hat", Shape::kCymbal},     {"overhead", Shape::kCymbal}, {"bass", Shape::kStrings},
    {"guitar", Shape::kStrings}, {"strings", Shape::kStrings}, {"piano", Shape::kKeys},
    {"keys", Shape::kKeys},      {"synth", Shape::kWave},      {"reverb", Shape::kWave},
    {"delay", Shape::kDots},     {"mic", Shape::kMicrophone},  {"bus", Shape::kDots},
    {"out", Shape::kWave},
};

Shape shapeFor(std::string_view name) {
  const auto* found =
      std::find_if(std::begin(kIcons), std::end(kIcons), [&](const auto& row) { return row.name == name; });
  return found == std::end(kIcons) ? Shape::kDots : found->shape;
}

void drawDrum(const Painter& painter, double x, double y) {
  painter.fillEllipse(CGRectMake(x - 8, y - 6, 16, 13), paletteColor(Palette::kIcon));
  painter.fillEllipse(CGRectMake(x - 6.5, y - 1, 13, 7), paletteColor(Palette::kIconBackground));
  painter.strokeEllipse(CGRectMake(x - 6.5, y - 1, 13, 7), paletteColor(Palette::kIcon), 1.2);
}

void drawCymbal(const Painter& painter, double x, double y) {
  painter.fillEllipse(CGRectMake(x - 10, y + 2, 20, 4), paletteColor(Palette::kIcon));
  painter.fillEllipse(CGRectMake(x - 2.5, y + 4, 5, 4), paletteColor(Palette::kIcon));
  painter.line({x, y + 2}, {x, y - 8}, paletteColor(Palette::kIcon), 1.4);
}

void drawStrings(const Painter& painter, double x, double y) {
  painter.fillEllipse(CGRectMake(x - 8, y - 8, 10, 10), paletteColor(Palette::kIcon));
  painter.fillEllipse(CGRectMake(x - 4, y - 4, 8, 8), paletteColor(Palette::kIcon));
  painter.line({x - 1, y - 1}, {x + 8, y + 8}, paletteColor(Palette::kIcon), 2);
}

void drawKeys(const Painter& painter, double x, double y) {
  painter.fillRounded(CGRectMake(x - 9, y - 6, 18, 12), 1.5, paletteColor(Palette::kIcon));
  for (int key = 0; key < 3; ++key) {
    painter.fill(CGRectMake(x - 6 + 4.6 * key, y - 1, 2.6, 7), paletteColor(Palette::kIconBackground));
  }
}

void drawWave(const Painter& painter, double x, double y) {
  constexpr double kHeights[] = {3, 7, 12, 16, 11, 6, 9, 4};
  for (std::size_t bar = 0; bar < std::size(kHeights); ++bar) {
    painter.fillRounded(CGRectMake(x - 10 + 2.6 * static_cast<double>(bar), y - kHeights[bar] / 2, 1.6, kHeights[bar]),
                        0.8, paletteColor(Palette::kIcon));
  }
}

void drawMicrophone(const Painter& painter, double x, double y) {
  painter.fillRounded(CGRectMake(x - 3, y - 2, 6, 11), 3, paletteColor(Palette::kIcon));
  painter.arc({x, y + 2}, 5.5, 0, -180, paletteColor(Palette::kIcon), 1.3);
  painter.line({x, y - 4}, {x, y - 8}, paletteColor(Palette::kIcon), 1.4);
}

void drawDots(const Painter& painter, double x, double y) {
  for (int dot = -1; dot <= 1; ++dot) {
    painter.fillEllipse(CGRectMake(x + 6.5 * dot - 2, y - 2, 4, 4),
                        faded(paletteColor(Palette::kIcon), 0.7 - 0.2 * dot));
  }
}

using DrawShape = void (*)(const Painter&, double, double);
constexpr DrawShape kShapes[] = {drawDrum, drawCymbal, drawStrings, drawKeys, drawWave, drawMicrophone, drawDots};

}  // namespace

void drawTrackIcon(const Painter& painter, std::string_view name, CGPoint centre, double scale) {
  CGContextSaveGState(painter.context());
  CGContextTranslateCTM(painter.context(), centre.x, centre.y);
  CGContextScaleCTM(painter.context(), scale, painter.isFlipped() ? -scale : scale);
  kShapes[static_cast<std::size_t>(shapeFor(name))](painter, 0, 0);
  CGContextRestoreGState(painter.context());
}

}  // namespace host
