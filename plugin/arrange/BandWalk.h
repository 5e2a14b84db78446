#pragma once
// Reads marker cells from the pixels of a ruler: the lane that they stand in, and the colours along it.

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "plugin/arrange/RulerPixels.h"

namespace velura {

struct BandColor {
  int red = 0;
  int green = 0;
  int blue = 0;
  friend bool operator==(const BandColor&, const BandColor&) = default;
};

/// A stretch of the lane from `start` (view x, points) to the next segment's start. Without a colour it is
/// grey, or no marker stands there.
struct BandSegment {
  double start = 0;
  std::optional<BandColor> color;
  friend bool operator==(const BandSegment&, const BandSegment&) = default;
};

/// Rows of a ruler in pixels, both inclusive.
struct BandRows {
  long top = 0;
  long bottom = 0;
  friend bool operator==(const BandRows&, const BandRows&) = default;
};

/// A run of rows with coloured pixels.
struct ColoredBand {
  BandRows rows;
  bool inTopStrip = false;  // skipped: no score
  int score = 0;            // distinct colours along it
};

/// What a ruler's pixels say about its marker lane.
struct MarkerLane {
  long rowThreshold = 0;           // coloured pixels among every second one that make a row coloured
  std::vector<ColoredBand> bands;  // of two rows and more, from the top
  std::optional<ColoredBand> chosen;
  std::vector<BandSegment> segments;
};

/// Whether a pixel has a colour, rather than a shade of grey: a spread of its channels above 22 steps,
/// brightness above 12 percent and saturation above 18 percent. Without branches or divisions.
inline bool isColored(const std::uint8_t* pixel) {
  const int red = pixel[0];
  const int green = pixel[1];
  const int blue = pixel[2];
  const int most = std::max(std::max(red, green), blue);
  const int spread = most - std::min(std::min(red, green), blue);
  return ((spread > 22) & (most > 30) & (spread * 50 > most * 9)) != 0;
}

/// Coloured pixels among every second one of a row.
long coloredPixelsIn(const RulerPixels& ruler, long y);

/// The segments of a band. `sectionLeft` is the screen x that segment starts are measured from.
std::vector<BandSegment> VLRMBWalkBand(const RulerPixels& ruler, BandRows band, double sectionLeft);

/// How many distinct colours stand along a band, counted in coarse steps, at most 24.
int distinctColorsAlong(const RulerPixels& ruler, BandRows band, double sectionLeft);

/// Finds the marker lane of a ruler and reads its segments.
MarkerLane readMarkerLane(const RulerPixels& ruler, double sectionLeft);

/// Starts in steps of two points and colours in sixteen levels a channel, as text: equal for segments that
/// look the same.
std::string signatureOf(const std::vector<BandSegment>& segments);

}  // namespace velura
