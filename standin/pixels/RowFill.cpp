#include "standin/pixels/RowFill.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstring>

namespace standin {

namespace {

constexpr Pixel kRedBlue = 0x00FF00FFU;

/// Four pixels at once, also seen as eight halves of 16 bits that hold one channel each.
constexpr std::size_t kLanes = 4;
using Pixels = Pixel __attribute__((vector_size(kLanes * sizeof(Pixel))));
using Halves = std::uint16_t __attribute__((vector_size(kLanes * sizeof(Pixel))));

template <class To, class From>
To viewedAs(From from) {
  static_assert(sizeof(To) == sizeof(From));
  return reinterpret_cast<To>(from);
}

/// Each channel times `factor` / 255, rounded as the drawing library rounds it.
constexpr Pixel scaled(Pixel pixel, Pixel factor) {
  Pixel low = (pixel & kRedBlue) * factor + 0x00800080U;
  Pixel high = (pixel >> 8U & kRedBlue) * factor + 0x00800080U;
  low = (low + (low >> 8U & kRedBlue)) >> 8U & kRedBlue;
  high = (high + (high >> 8U & kRedBlue)) & ~kRedBlue;
  return low | high;
}

/// The same for four pixels; both halves of a pixel's word hold its factor.
Pixels scaled(Pixels pixels, Halves factors) {
  Halves low = viewedAs<Halves>(pixels & kRedBlue) * factors + 128;
  Halves high = viewedAs<Halves>(pixels >> 8U & kRedBlue) * factors + 128;
  low = (low + (low >> 8)) >> 8;
  high = (high + (high >> 8)) & 0xFF00;
  return viewedAs<Pixels>(low) | viewedAs<Pixels>(high);
}

constexpr Pixel over(Pixel source, Pixel destination) { return source + scaled(destination, 255 - alphaOf(source)); }

Pixels loaded(const Pixel* from) {
  Pixels pixels;
  std::memcpy(&pixels, from, sizeof pixels);
  return pixels;
}
void store(Pixel* to, Pixels pixels) { std::memcpy(to, &pixels, sizeof pixels); }

void overRow(Pixel* row, std::size_t count, Pixel source) {
  const Pixels sources = Pixels{} + source;
  const Halves inverse = Halves{} + static_cast<std::uint16_t>(255 - alphaOf(source));
  std::size_t i = 0;
  for (; i + kLanes <= count; i += kLanes) store(row + i, sources + scaled(loaded(row + i), inverse));
  for (; i < count; ++i) row[i] = over(source, row[i]);
}

void blitRow(Pixel* to, const Pixel* from, int width) {
  const auto count = static_cast<std::size_t>(width);
  std::size_t i = 0;
  for (; i + kLanes <= count; i += kLanes) {
    const Pixels source = loaded(from + i);
    const Pixels inverse = 255 - (source >> 24U);
    store(to + i, source + scaled(loaded(to + i), viewedAs<Halves>(inverse | inverse << 16U)));
  }
  for (; i < count; ++i) to[i] = over(from[i], to[i]);
}

constexpr int modulo(int value, int divisor) {
  const int rest = value % divisor;
  return rest < 0 ? rest + divisor : rest;
}
constexpr int floorDivided(int value, int divisor) { return (value - modulo(value, divisor)) / divisor; }

/// Writes `count` pixels of a tile's row, each `scale` pixels wide, from `phase` pixels into it.
void layPeriod(Pixel* to, int count, const Pixel* tileRow, int tileWidth, int phase, int scale) {
  if (scale == 1) {
    const int head = std::min(count, tileWidth - phase);
    std::copy_n(tileRow + phase, head, to);
    std::copy_n(tileRow, count - head, to + head);
    return;
  }
  int column = phase / scale;
  int within = phase % scale;
  for (int i = 0; i < count; ++i) {
    to[i] = tileRow[column];
    if (++within < scale) continue;
    within = 0;
    if (++column == tileWidth) column = 0;
  }
}

/// Writes a row that is no wider than the tile, from the tile's left edge: what lies between the ends of its
/// run of equal columns is filled without being read.
void layTileRowByRun(Pixel* to, int width, const Pixel* tileRow, const Tile& tile, int scale) {
  const int start = std::min(tile.runStart * scale, width);
  const int end = std::min(tile.runEnd * scale, width);
  for (int i = 0; i < start; ++i) to[i] = tileRow[i / scale];
  std::fill(to + start, to + end, tileRow[tile.runStart]);
  for (int i = end; i < width; ++i) to[i] = tileRow[i / scale];
}

/// Writes the tile's row across `width` pixels: one period is laid and then copied on.
void layTileRow(Pixel* to, int width, const Pixel* tileRow, int tileWidth, int phase, int scale) {
  const int period = tileWidth * scale;
  const int first = std::min(period, width);
  layPeriod(to, first, tileRow, tileWidth, phase, scale);
  for (int done = first; done < width;) {
    const int count = std::min(done, width - done);
    std::memcpy(to + done, to, static_cast<std::size_t>(count) * sizeof(Pixel));
    done += count;
  }
}

Rgba mixed(const GradientStop& a, const GradientStop& b, double at) {
  const double span = b.location - a.location;
  const double part = span > 0 ? (at - a.location) / span : 1;
  const auto mix = [part](double from, double to) { return from + (to - from) * part; };
  return {mix(a.color.red, b.color.red), mix(a.color.green, b.color.green), mix(a.color.blue, b.color.blue),
          mix(a.color.alpha, b.color.alpha)};
}

constexpr bool extends(GradientEnds ends, GradientEnds end) {
  return (static_cast<unsigned>(ends) & static_cast<unsigned>(end)) != 0;
}

/// One colour a row: rows of one pixel value.
void fillRowGradient(const PixelView& target, const PixelRect& area, std::span<const Pixel> colors) {
  const auto width = static_cast<std::size_t>(area.width());
  for (int y = area.top; y < area.bottom; ++y) {
    const Pixel color = colors[static_cast<std::size_t>(y - area.top)];
    Pixel* row = target.at(area.left, y);
    if (alphaOf(color) == 255) {
      std::fill_n(row, width, color);
    } else if (color != 0) {
      overRow(row, width, color);
    }
  }
}

/// One colour a column: every row is the same.
void fillColumnGradient(const PixelView& target, const PixelRect& area, std::span<const Pixel> colors) {
  const bool opaque = std::all_of(colors.begin(), colors.end(), [](Pixel p) { return alphaOf(p) == 255; });
  for (int y = area.top; y < area.bottom; ++y) {
    Pixel* row = target.at(area.left, y);
    if (opaque) {
      std::memcpy(row, colors.data(), colors.size_bytes());
    } else {
      blitRow(row, colors.data(), area.width());
    }
  }
}

/// Any direction: the colours are looked up in a ramp that is finer than the pixels along the gradient.
void fillObliqueGradient(const PixelView& target, const PixelRect& area, std::span<const GradientStop> stops,
                         const GradientLine& line, GradientEnds ends) {
  constexpr double kCoarsest = 1024;  // an eighth of a colour step off at most
  constexpr double kFinest = 4096;
  const double length = 1 / std::hypot(line.perX, line.perY);
  const auto steps = std::bit_ceil(static_cast<unsigned>(std::clamp(length * 2, kCoarsest, kFinest)));
  // The first and last entries stand for everything before and after the gradient.
  std::vector<Pixel> ramp(steps + 2);
  const double step = 1.0 / steps;
  gradientRamp(stops, -step / 2, step, ramp, target.order, GradientEnds::kBoth);
  if (!extends(ends, GradientEnds::kBefore)) ramp.front() = 0;
  if (!extends(ends, GradientEnds::kAfter)) ramp.back() = 0;
  const bool opaque = std::all_of(ramp.begin(), ramp.end(), [](Pixel p) { return alphaOf(p) == 255; });
  const double scale = steps;
  const double last = scale + 1;
  for (int y = area.top; y < area.bottom; ++y) {
    Pixel* row = target.at(area.left, y);
    const double first = (line.perX * (area.left + 0.5) + line.perY * (y + 0.5) + line.offset) * scale + 1;
    const double perPixel = line.perX * scale;
    const auto colorAt = [&](int i) {
      const double place = first + perPixel * i;
      return ramp[static_cast<std::size_t>(place > 0 ? (place < last ? place : last) : 0)];
    };
    for (int i = 0; i < area.width(); ++i) row[i] = opaque ? colorAt(i) : over(colorAt(i), row[i]);
  }
}

}  // namespace

void fillOver(const PixelView& target, const PixelRect& area, Pixel pixel) {
  if (alphaOf(pixel) == 255) return fillCopy(target, area, pixel);
  if (pixel == 0) return;
  for (int y = area.top; y < area.bottom; ++y) {
    overRow(target.at(area.left, y), static_cast<std::size_t>(area.width()), pixel);
  }
}

void fillCopy(const PixelView& target, const PixelRect& area, Pixel pixel) {
  for (int y = area.top; y < area.bottom; ++y) std::fill_n(target.at(area.left, y), area.width(), pixel);
}

void blitOver(const PixelView& target, const PixelRect& area, const PixelView& source, int left, int top) {
  for (int y = area.top; y < area.bottom; ++y) {
    blitRow(target.at(area.left, y), source.at(source.area.left + area.left - left, source.area.top + y - top),
            area.width());
  }
}

Pixel faded(Pixel pixel, Pixel factor) { return scaled(pixel, factor); }

void multiplyByAlpha(const PixelView& target, const PixelRect& area, const PixelView& mask) {
  for (int y = area.top; y < area.bottom; ++y) {
    Pixel* row = target.at(area.left, y);
    const Pixel* cover = mask.at(area.left, y);
    for (int x = 0; x < area.width(); ++x) row[x] = scaled(row[x], alphaOf(cover[x]));
  }
}

Tile::Tile(std::shared_ptr<const Surface> pixels) : surface(std::move(pixels)) {
  const int width = surface->width();
  std::vector<unsigned char> differs(static_cast<std::size_t>(width));  // from the column to the left, in some row
  for (int y = 0; y < surface->height(); ++y) {
    const Pixel* row = surface->view().at(0, y);
    for (int x = 0; x < width; ++x) {
      isOpaque = isOpaque && alphaOf(row[x]) == 255;
      if (row[x] != row[std::max(x - 1, 0)]) differs[static_cast<std::size_t>(x)] = 1;
    }
  }
  for (int x = 0, start = 0; x < width; ++x) {
    if (differs[static_cast<std::size_t>(x)] != 0) start = x;
    if (x + 1 - start > runEnd - runStart) {
      runStart = start;
      runEnd = x + 1;
    }
  }
  hasEqualColumns = runEnd - runStart == width;
}

void fillTiled(const PixelView& target, const PixelRect& area, const Tile& tile, const TilePlacement& placement) {
  const PixelView& pixels = tile.surface->view();
  const int tileWidth = tile.surface->width();
  const int tileHeight = tile.surface->height();
  const int width = area.width();
  const int phase = modulo(area.left - placement.left, tileWidth * placement.scaleX);
  std::vector<Pixel> scratch(tile.isOpaque || tile.hasEqualColumns ? 0 : static_cast<std::size_t>(width));
  const bool isMostlyRun = (tile.runEnd - tile.runStart) * 4 > tileWidth * 3;
  const bool byRun = isMostlyRun && tile.isOpaque && phase == 0 && width <= tileWidth * placement.scaleX;
  for (int y = area.top; y < area.bottom; ++y) {
    const int up = floorDivided(placement.bottom - 1 - y, placement.scaleY);
    const Pixel* tileRow = pixels.at(0, tileHeight - 1 - modulo(up, tileHeight));
    Pixel* row = target.at(area.left, y);
    if (tile.hasEqualColumns) {
      if (alphaOf(*tileRow) == 255) {
        std::fill_n(row, width, *tileRow);
      } else if (*tileRow != 0) {
        overRow(row, static_cast<std::size_t>(width), *tileRow);
      }
    } else if (byRun) {
      layTileRowByRun(row, width, tileRow, tile, placement.scaleX);
    } else if (tile.isOpaque) {
      layTileRow(row, width, tileRow, tileWidth, phase, placement.scaleX);
    } else {
      layTileRow(scratch.data(), width, tileRow, tileWidth, phase, placement.scaleX);
      blitRow(row, scratch.data(), width);
    }
  }
}

GradientStops normalized(GradientStops stops) {
  for (GradientStop& stop : stops) {
    if (std::isnan(stop.location)) return {};
    stop.location = clampedUnit(stop.location);
  }
  std::stable_sort(stops.begin(), stops.end(),
                   [](const GradientStop& a, const GradientStop& b) { return a.location < b.location; });
  return stops;
}

void gradientRamp(std::span<const GradientStop> stops, double start, double step, std::span<Pixel> out,
                  PixelOrder order, GradientEnds ends) {
  const Pixel before = extends(ends, GradientEnds::kBefore) ? packed(stops.front().color, order) : 0;
  const Pixel after = extends(ends, GradientEnds::kAfter) ? packed(stops.back().color, order) : 0;
  const bool ascending = step >= 0;
  std::size_t next = ascending ? 0 : stops.size();  // the first stop beyond the place
  for (std::size_t i = 0; i < out.size(); ++i) {
    const double at = start + step * static_cast<double>(i);
    while (next < stops.size() && stops[next].location <= at) ++next;
    while (next > 0 && stops[next - 1].location > at) --next;
    if (next == 0) {
      out[i] = at < 0 ? before : packed(stops.front().color, order);
    } else if (next == stops.size()) {
      out[i] = at > 1 ? after : packed(stops.back().color, order);
    } else {
      out[i] = packed(mixed(stops[next - 1], stops[next], at), order);
    }
  }
}

void fillGradient(const PixelView& target, const PixelRect& area, std::span<const GradientStop> stops,
                  const GradientLine& line, GradientEnds ends) {
  if (stops.empty() || area.isEmpty()) return;
  // A drift of less than a fiftieth of a colour step over the whole area counts as none.
  constexpr double kNoDrift = 1.0 / (255 * 50);
  const bool constantAlongX = std::abs(line.perX) * area.width() < kNoDrift;
  const bool constantAlongY = std::abs(line.perY) * area.height() < kNoDrift;
  if (!constantAlongX && !constantAlongY) return fillObliqueGradient(target, area, stops, line, ends);
  constexpr std::size_t kOnStack = 1024;
  std::array<Pixel, kOnStack> onStack;
  std::vector<Pixel> onHeap;
  const auto count = static_cast<std::size_t>(constantAlongX ? area.height() : area.width());
  if (count > kOnStack) onHeap.resize(count);
  const std::span<Pixel> colors = count > kOnStack ? std::span(onHeap) : std::span(onStack).first(count);
  if (constantAlongX) {
    gradientRamp(stops, line.perX * (area.left + area.width() / 2.0) + line.perY * (area.top + 0.5) + line.offset,
                 line.perY, colors, target.order, ends);
    fillRowGradient(target, area, colors);
  } else {
    gradientRamp(stops, line.perX * (area.left + 0.5) + line.perY * (area.top + area.height() / 2.0) + line.offset,
                 line.perX, colors, target.order, ends);
    fillColumnGradient(target, area, colors);
  }
}

}  // namespace standin
