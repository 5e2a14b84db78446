#pragma once
// The fast fills: whole rows of pixels written directly. Rounding is that of the drawing library, so a
// fill gives the same bytes whichever of the two performs it.

#include <memory>
#include <span>
#include <vector>

#include "standin/pixels/Surface.h"

namespace standin {

/// `pixel` over what is there; an opaque pixel replaces it.
void fillOver(const PixelView& target, const PixelRect& area, Pixel pixel);
/// `pixel` instead of what is there.
void fillCopy(const PixelView& target, const PixelRect& area, Pixel pixel);

/// `source` over `target`, pixel on pixel: the pixel of `source` at its top left goes to (left, top) of the
/// target. Only `area` of the target is touched; `source` must cover it. Both have one order.
void blitOver(const PixelView& target, const PixelRect& area, const PixelView& source, int left, int top);

/// Keeps of the target what the mask covers. The mask covers `area`, in the target's coordinates.
void multiplyByAlpha(const PixelView& target, const PixelRect& area, const PixelView& mask);
/// Each channel times `factor` / 255.
Pixel faded(Pixel pixel, Pixel factor);

/// A tile as patterns use it, with what the fills want to know about it.
struct Tile {
  explicit Tile(std::shared_ptr<const Surface> pixels);
  std::shared_ptr<const Surface> surface;
  bool isOpaque = true;
  bool hasEqualColumns = true;
  /// The widest run of columns that are equal in every row: what lies between the edges of a bevel.
  int runStart = 0;
  int runEnd = 0;
};

/// Where tiles lie: the device position of a tile's bottom left corner, and the size of a tile pixel in
/// device pixels.
struct TilePlacement {
  int left = 0;
  int bottom = 0;
  int scaleX = 1;
  int scaleY = 1;
};

/// Tiles `area` with the tile, source-over.
void fillTiled(const PixelView& target, const PixelRect& area, const Tile& tile, const TilePlacement& placement);

/// One colour of a gradient.
struct GradientStop {
  double location = 0;
  Rgba color;
};
/// Ascending locations from 0 to 1.
using GradientStops = std::vector<GradientStop>;

/// Locations clamped and sorted, equal ones kept in their order. Empty when one is not a number.
GradientStops normalized(GradientStops stops);

/// The gradient's parameter at the centre of pixel (x, y) is `perX * (x + 0.5) + perY * (y + 0.5) + offset`.
struct GradientLine {
  double perX = 0;
  double perY = 0;
  double offset = 0;
};
enum class GradientEnds : std::uint8_t { kNone = 0, kBefore = 1, kAfter = 2, kBoth = 3 };

/// The colours at `count` places from `start` on, `step` apart.
void gradientRamp(std::span<const GradientStop> stops, double start, double step, std::span<Pixel> out,
                  PixelOrder order, GradientEnds ends);

/// Fills `area` with a linear gradient, source-over. Beyond an end that is not extended nothing is drawn.
void fillGradient(const PixelView& target, const PixelRect& area, std::span<const GradientStop> stops,
                  const GradientLine& line, GradientEnds ends);

}  // namespace standin
