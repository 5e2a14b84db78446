#include "plugin/arrange/TickDetection.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>

namespace velura {
namespace {

constexpr int kLevels = 256;

/// The strip in shades of grey, one byte a pixel; rows that nobody asks for are never converted.
class GreyPlane {
 public:
  explicit GreyPlane(const RulerPixels& strip)
      : width(strip.width),
        height(strip.height),
        strip_(strip),
        levels_(new std::uint8_t[static_cast<std::size_t>(strip.width * strip.height)]),
        converted_(static_cast<std::size_t>(strip.height)) {}

  [[nodiscard]] const std::uint8_t* row(long y) {
    std::uint8_t* out = levels_.get() + y * width;
    if (!converted_[static_cast<std::size_t>(y)]) {
      converted_[static_cast<std::size_t>(y)] = true;
      if (strip_.bytesPerPixel == 4) {
        convert<4>(strip_.row(y), out);
      } else {
        convert<0>(strip_.row(y), out);
      }
    }
    return out;
  }

  const long width;
  const long height;

 private:
  /// `Step` is the number of bytes a pixel where the compiler is to know it, else 0.
  template <long Step>
  void convert(const std::uint8_t* pixels, std::uint8_t* out) const {
    const long step = Step > 0 ? Step : strip_.bytesPerPixel;
    for (long x = 0; x < width; ++x) {
      const std::uint8_t* pixel = pixels + x * step;
      const unsigned sum = static_cast<unsigned>(pixel[0]) + pixel[1] + pixel[2];
      // A third, rounded down; exact for every sum of three bytes.
      out[x] = static_cast<std::uint8_t>(sum * 0xAAABU >> 17U);
    }
  }

  const RulerPixels& strip_;
  std::unique_ptr<std::uint8_t[]> levels_;
  std::vector<bool> converted_;
};

/// Rows in which ticks are looked for: from the row that they stand on (or hang from) to the last one.
struct Band {
  long start;
  long end;
  bool dropsFullHeight = false;  // a line through the whole band is no tick
  [[nodiscard]] long step() const { return end < start ? -1 : 1; }
  [[nodiscard]] long length() const { return std::abs(end - start) + 1; }
  [[nodiscard]] bool isInside(long height) const { return start > 5 && end >= 0 && end < height; }
};

std::array<Band, 3> bandsOf(long height) {
  constexpr double kHangingShare = 0.62;
  const long hanging = height / 2 - 2;
  const long reach = static_cast<long>(kHangingShare * static_cast<double>(height - hanging));
  return {{{height - 1, height / 2}, {height / 2 - 1, height / 4}, {hanging, hanging + reach, true}}};
}

/// The median grey of every second pixel of the band.
std::uint8_t backgroundOf(GreyPlane& plane, const Band& band) {
  std::array<long, kLevels> histogram{};
  long total = 0;
  for (long i = 0; i < band.length(); i += 2) {
    const std::uint8_t* row = plane.row(band.start + i * band.step());
    for (long x = 0; x < plane.width; x += 2) ++histogram[row[x]];
    total += (plane.width + 1) / 2;
  }
  long running = 0;
  for (int level = 0; level < kLevels; ++level) {
    running += histogram[static_cast<std::size_t>(level)];
    if (2 * running >= total) return static_cast<std::uint8_t>(level);
  }
  return kLevels / 2;
}

/// For each column, the pixels that stand out from the background, walking into the band until four in a row
/// do not. All columns advance a row at a time, in the smallest numbers that hold a count, so that the work is
/// done on many columns at once.
template <class Count>
std::vector<std::uint16_t> columnHeightsIn(GreyPlane& plane, const Band& band, std::uint8_t background,
                                           std::uint8_t threshold) {
  constexpr Count kEndingGap = 4;
  const auto width = static_cast<std::size_t>(plane.width);
  std::vector<Count> heights(width);
  std::vector<Count> gaps(width);
  for (long i = 0; i < band.length(); ++i) {
    const std::uint8_t* row = plane.row(band.start + i * band.step());
    Count* height = heights.data();
    Count* gap = gaps.data();
    for (std::size_t x = 0; x < width; ++x) {
      const std::uint8_t level = row[x];
      const auto difference = static_cast<std::uint8_t>(level > background ? level - background : background - level);
      const auto standsOut = static_cast<Count>(difference > threshold);
      const auto walks = static_cast<Count>(gap[x] < kEndingGap);
      const auto longer = static_cast<Count>(standsOut != 0 ? 0 : gap[x] + 1);
      height[x] = static_cast<Count>(height[x] + (walks & standsOut));
      gap[x] = walks != 0 ? longer : gap[x];
    }
  }
  return {heights.begin(), heights.end()};
}

std::vector<std::uint16_t> columnHeights(GreyPlane& plane, const Band& band, std::uint8_t background,
                                         std::uint8_t threshold) {
  constexpr long kLargestByte = 255;
  auto heights = band.length() <= kLargestByte ? columnHeightsIn<std::uint8_t>(plane, band, background, threshold)
                                               : columnHeightsIn<std::uint16_t>(plane, band, background, threshold);
  if (band.dropsFullHeight) {
    std::replace(heights.begin(), heights.end(), static_cast<std::uint16_t>(band.length()), std::uint16_t{0});
  }
  return heights;
}

struct Tick {
  double x;
  int height;
};

struct Search {
  std::vector<Tick> ticks;
  long shortTicks = 0;
  int tallest = 0;
};

/// Whether no other column within `reach` is higher, and none on its left as high.
bool isPeak(std::span<const std::uint16_t> heights, std::size_t x, std::size_t reach) {
  const std::size_t first = x > reach ? x - reach : 0;
  const std::size_t last = std::min(heights.size() - 1, x + reach);
  for (std::size_t i = first; i < x; ++i) {
    if (heights[i] >= heights[x]) return false;
  }
  for (std::size_t i = x + 1; i <= last; ++i) {
    if (heights[i] > heights[x]) return false;
  }
  return true;
}

Search ticksAt(GreyPlane& plane, const Band& band, std::uint8_t background, std::uint8_t threshold,
               const RulerPixels& strip, double leftEdge) {
  constexpr int kNoTick = 2;
  constexpr double kReach = 1.5;       // points
  constexpr double kLeftMargin = 2;    // points
  constexpr double kWidestReach = 64;  // pixels: keeps hostile scales harmless
  const std::vector<std::uint16_t> heights = columnHeights(plane, band, background, threshold);
  const auto reach = static_cast<std::size_t>(std::clamp(kReach * strip.pixelsPerPoint, 1.0, kWidestReach));
  Search found;
  for (std::size_t x = 0; x < heights.size(); ++x) {
    if (heights[x] <= kNoTick || !isPeak(heights, x, reach)) continue;
    const Tick tick{strip.screenX(static_cast<long>(x)), heights[x]};
    if (tick.x < leftEdge - kLeftMargin) continue;
    found.ticks.push_back(tick);
    found.tallest = std::max(found.tallest, tick.height);
    if (tick.height < band.length()) ++found.shortTicks;
  }
  return found;
}

Search searchBand(GreyPlane& plane, const Band& band, const RulerPixels& strip, double leftEdge) {
  constexpr std::uint8_t kThreshold = 55;
  constexpr std::uint8_t kFaintThreshold = 28;
  constexpr long kFewTicks = 3;
  const std::uint8_t background = backgroundOf(plane, band);
  Search found = ticksAt(plane, band, background, kThreshold, strip, leftEdge);
  if (found.shortTicks >= kFewTicks) return found;
  return ticksAt(plane, band, background, kFaintThreshold, strip, leftEdge);
}

/// The search that found the most short ticks, an earlier one before a later one.
Search bestSearch(const RulerPixels& strip, double leftEdge) {
  constexpr long kPlenty = 5;
  GreyPlane plane(strip);
  const auto bands = bandsOf(strip.height);
  std::optional<Search> best;
  for (const Band& band : bands) {
    if (!band.isInside(strip.height)) continue;
    Search found = searchBand(plane, band, strip, leftEdge);
    const bool plenty = &band == bands.data() && found.shortTicks > kPlenty;
    if (!best || found.shortTicks > best->shortTicks) best = std::move(found);
    if (plenty) break;
  }
  return best.value_or(Search{});
}

/// Heights that lie close together: the marks of one kind.
struct Group {
  int top;
  int bottom;
  long count;
  [[nodiscard]] int centre() const { return (top + bottom) / 2; }
};

/// Tallest first.
std::vector<Group> groupsOf(const Search& search) {
  constexpr int kShortestHeight = 3;
  constexpr std::size_t kMostGroups = 16;
  constexpr double kSmallestGap = 2;
  constexpr double kGapShare = 0.08;
  std::vector<Group> groups;
  if (search.tallest < kShortestHeight) return groups;
  const int gap = static_cast<int>(std::max(kSmallestGap, kGapShare * search.tallest));
  std::vector<long> histogram(static_cast<std::size_t>(search.tallest) + 1);
  for (const Tick& tick : search.ticks) ++histogram[static_cast<std::size_t>(tick.height)];
  for (int height = search.tallest; height >= kShortestHeight; --height) {
    const long count = histogram[static_cast<std::size_t>(height)];
    if (count == 0) continue;
    if (!groups.empty() && groups.back().bottom - height <= gap) {
      groups.back().bottom = height;
      groups.back().count += count;
    } else if (groups.size() < kMostGroups) {
      groups.push_back({height, height, count});
    } else {
      break;
    }
  }
  return groups;
}

/// The heights around which bars, beats, divisions and what is smaller lie. A group of a few stray marks does
/// not count, save for the tallest.
std::vector<int> levelCentres(const Search& search) {
  constexpr std::size_t kMostLevels = 8;
  constexpr long kFewest = 2;
  constexpr long kShare = 50;
  const std::vector<Group> groups = groupsOf(search);
  const long needed = std::max(kFewest, static_cast<long>(search.ticks.size()) / kShare);
  std::vector<int> centres;
  for (std::size_t i = 0; i < groups.size() && centres.size() < kMostLevels; ++i) {
    if (i == 0 || groups[i].count >= needed) centres.push_back(groups[i].centre());
  }
  return centres;
}

}  // namespace

RulerTicks detectTicks(const RulerPixels& strip, double leftEdge) {
  RulerTicks ticks;
  if (strip.bytes == nullptr || strip.width < 1 || strip.height < 1 || !(strip.pixelsPerPoint > 0)) return ticks;
  const Search search = bestSearch(strip, leftEdge);
  const std::vector<int> centres = levelCentres(search);
  const std::array<std::vector<double>*, 3> levels{&ticks.bars, &ticks.beats, &ticks.divisions};
  for (const Tick& tick : search.ticks) {
    const auto distance = [&](int centre) { return std::abs(centre - tick.height); };
    const auto nearest = std::ranges::min_element(centres, {}, distance);  // the tallest of equals
    const auto level = centres.empty() ? 0 : static_cast<std::size_t>(nearest - centres.begin());
    if (level < levels.size()) levels[level]->push_back(tick.x);
  }
  return ticks;
}

}  // namespace velura
