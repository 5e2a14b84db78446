#include "plugin/imaging/Recolouring.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include "cocoa/AppKit.h"

namespace velura {
namespace {

constexpr int kFull = 255;

/// The byte that a component stands for, exactly; below zero when it stands for none.
int exactByte(double component) {
  const double scaled = component * kFull;
  return scaled >= 0 && scaled <= kFull && scaled == std::floor(scaled) ? static_cast<int>(scaled) : -1;
}

/// What a rule looks for, in bytes.
struct Pattern {
  std::array<int, 3> source;
  int alpha;  // below zero: any
  std::size_t rule;
  [[nodiscard]] bool matches(const PixelValue& pixel) const {
    return pixel[0] == source[0] && pixel[1] == source[1] && pixel[2] == source[2] && (alpha < 0 || pixel[3] == alpha);
  }
};

/// Nothing for a rule that no pixel can match.
std::optional<Pattern> patternOf(const RecolourRule& rule, std::size_t index) {
  Pattern pattern{{}, -1, index};
  for (std::size_t i = 0; i < pattern.source.size(); ++i) {
    pattern.source[i] = exactByte(rule.source[i]);
    if (pattern.source[i] < 0) return std::nullopt;
  }
  if (!rule.sourceAlpha) return pattern;
  pattern.alpha = exactByte(*rule.sourceAlpha);
  return pattern.alpha < 0 ? std::nullopt : std::optional(pattern);
}

/// Columns or rows from `first` up to, not including, `end`.
struct Extent {
  long first;
  long end;
  [[nodiscard]] bool contains(long at) const { return at >= first && at < end; }
};

/// The whole numbers from `low` up to `high`, exclusive, that lie in 0 to `size`.
Extent extentOf(double low, double high, long size) {
  const auto limited = [size](double edge) {
    return edge > 0 ? static_cast<long>(std::min(std::ceil(edge), static_cast<double>(size))) : 0L;
  };
  return low < high ? Extent{limited(low), limited(high)} : Extent{0, 0};
}

struct PlacedRule {
  Extent columns;
  Extent rows;
  const RecolourRule* rule;
  std::size_t index;
};

/// Where the set of rules in force changes, ends included.
std::vector<long> edgesOf(const std::vector<PlacedRule>& placed, Extent PlacedRule::*side, long size) {
  std::vector<long> edges{0, size};
  for (const PlacedRule& each : placed) {
    edges.push_back((each.*side).first);
    edges.push_back((each.*side).end);
  }
  std::ranges::sort(edges);
  edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
  return edges;
}

struct Area {
  Extent columns;
  Extent rows;
};

/// Calls `visit` with every rectangle over which the same rules are in force, and with those.
template <class Visit>
void forEachArea(long width, long height, std::span<const RecolourRule> rules, Visit&& visit) {
  std::vector<PlacedRule> placed;
  for (std::size_t i = 0; i < rules.size(); ++i) {
    const CGRect& rect = rules[i].rect;
    placed.push_back(
        {extentOf(rect.minX(), rect.maxX(), width), extentOf(rect.minY(), rect.maxY(), height), &rules[i], i});
  }
  const std::vector<long> columns = edgesOf(placed, &PlacedRule::columns, width);
  const std::vector<long> rows = edgesOf(placed, &PlacedRule::rows, height);
  for (std::size_t r = 0; r + 1 < rows.size(); ++r) {
    for (std::size_t c = 0; c + 1 < columns.size(); ++c) {
      std::vector<Pattern> patterns;
      for (const PlacedRule& each : placed) {
        if (!each.rows.contains(rows[r]) || !each.columns.contains(columns[c])) continue;
        if (const auto pattern = patternOf(*each.rule, each.index)) patterns.push_back(*pattern);
      }
      if (!patterns.empty()) visit(Area{{columns[c], columns[c + 1]}, {rows[r], rows[r + 1]}}, patterns);
    }
  }
}

/// `round(channel / alpha * 255)` for every alpha and channel.
using StraightTable = std::array<std::array<std::uint8_t, 256>, 256>;
const StraightTable& straightTable() {
  static const auto table = [] {
    auto made = std::make_unique<StraightTable>();
    for (int alpha = 1; alpha <= kFull; ++alpha) {
      for (int channel = 0; channel <= kFull; ++channel) {
        const double straight = std::round(static_cast<double>(channel) / alpha * kFull);
        (*made)[static_cast<std::size_t>(alpha)][static_cast<std::size_t>(channel)] =
            static_cast<std::uint8_t>(std::min<double>(straight, kFull));
      }
    }
    return made;
  }();
  return *table;
}

/// Where the bytes of one pixel lie, and what they mean.
struct ByteOrder {
  explicit ByteOrder(const BitmapPixels& bitmap)
      : hasAlpha(bitmap.hasAlpha),
        premultiplied(bitmap.hasAlpha && (bitmap.format & NSBitmapFormatAlphaNonpremultiplied) == 0),
        red(bitmap.hasAlpha && (bitmap.format & NSBitmapFormatAlphaFirst) != 0 ? 1 : 0),
        alpha(red == 1 ? 0 : 3) {}
  bool hasAlpha;
  bool premultiplied;
  std::size_t red;  // green and blue follow
  std::size_t alpha;

  [[nodiscard]] PixelValue value(const std::uint8_t* pixel) const {
    const std::uint8_t a = hasAlpha ? pixel[alpha] : std::uint8_t{kFull};
    if (!premultiplied) return {pixel[red], pixel[red + 1], pixel[red + 2], a};
    const auto& straight = straightTable()[a];
    return {straight[pixel[red]], straight[pixel[red + 1]], straight[pixel[red + 2]], a};
  }
};

std::uint8_t* pixelAt(const BitmapPixels& bitmap, long x, long y) {
  return bitmap.bytes + y * bitmap.bytesPerRow + bitmap.bitsPerPixel * x / 8;
}

static_assert(std::endian::native == std::endian::little, "words of pixels are taken apart by their bits");
constexpr std::size_t kBlock = 256;  // pixels that are looked through at once
using Flags = std::array<std::uint8_t, kBlock>;
constexpr std::uint64_t kAllRaised = 0x0101010101010101;  // of eight flags
constexpr std::array<int, 3> kWhite{kFull, kFull, kFull};

/// Red in the lowest byte, alpha in the highest.
inline std::uint32_t wordOf(const std::uint8_t* pixel) {
  std::uint32_t word = 0;
  std::memcpy(&word, pixel, sizeof word);
  return word;
}

// What follows raises the flag of every pixel that may have a source colour, and of a few more. It is free of
// branches: the compiler looks through several pixels at once.

/// White: no channel is below its alpha. Compared as one number, blue first, which where no channel is above
/// its alpha is the same.
void flagWhite(const std::uint8_t* pixels, std::size_t count, Flags& flags) {
  constexpr std::uint32_t kChannels = 0xFFFFFF;
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint32_t word = wordOf(pixels + 4 * i);
    const std::uint32_t alpha = word >> 24U;
    const auto white = static_cast<std::int32_t>(alpha | alpha << 8U | alpha << 16U);
    const auto channels = static_cast<std::int32_t>(word & kChannels);
    flags[i] = static_cast<std::uint8_t>(static_cast<int>(channels >= white) & static_cast<int>(alpha != 0));
  }
}

/// Any colour. A channel rounds to the source only if 255 times the channel lies within half an alpha of the
/// source times the alpha.
void flagColour(const std::uint8_t* pixels, std::size_t count, const std::array<int, 3>& source, Flags& flags) {
  constexpr std::uint32_t kByte = 0xFF;
  const auto isNear = [](std::uint32_t channel, std::uint32_t alpha, int wanted) {
    const int a = static_cast<int>(alpha);
    const int off = kFull * static_cast<int>(std::min(channel, alpha)) - wanted * a;
    return static_cast<int>(2 * off <= a) & static_cast<int>(-2 * off <= a);
  };
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint32_t word = wordOf(pixels + 4 * i);
    const std::uint32_t alpha = word >> 24U;
    const int found = isNear(word & kByte, alpha, source[0]) & isNear(word >> 8U & kByte, alpha, source[1]) &
                      isNear(word >> 16U & kByte, alpha, source[2]) & static_cast<int>(alpha != 0);
    flags[i] = static_cast<std::uint8_t>(flags[i] | found);
  }
}

/// The sources come without repetition, white first.
void flagSources(const std::uint8_t* pixels, std::size_t count, const std::vector<std::array<int, 3>>& sources,
                 Flags& flags) {
  for (const auto& source : sources) {
    if (source == kWhite) {
      flagWhite(pixels, count, flags);
    } else {
      flagColour(pixels, count, source, flags);
    }
  }
}

/// Writes the colours of rules. A colour depends on its rule and on the alpha of the pixel, so the platform is
/// asked once for each pair; the bytes that it wrote are copied from then on.
class Brush {
 public:
  Brush(const BitmapPixels& bitmap, std::span<const RecolourRule> rules, const PaintPixel& paint)
      : rules_(rules),
        paint_(paint),
        size_(bitmap.hasAlpha ? 4 : 3),
        isByteWise_(bitmap.bitsPerPixel == 24 || bitmap.bitsPerPixel == 32),
        known_(rules.size() * kAlphas) {}

  void apply(std::size_t rule, int alpha, std::uint8_t* pixel, long x, long y) {
    const auto& suggested = rules_[rule].suggested;
    if (!suggested) return;
    Bytes& bytes = known_[rule * kAlphas + static_cast<std::size_t>(alpha)];
    if (bytes.isKnown) {
      std::memcpy(pixel, bytes.values.data(), size_);
      return;
    }
    const auto& [red, green, blue, full] = *suggested;
    paint_({red, green, blue, outputAlpha(full, rules_[rule].ignoreAlpha, alpha)}, x, y);
    if (!isByteWise_) return;
    std::memcpy(bytes.values.data(), pixel, size_);
    bytes.isKnown = true;
  }

 private:
  static constexpr std::size_t kAlphas = 256;
  struct Bytes {
    std::array<std::uint8_t, 4> values{};
    bool isKnown = false;
  };
  std::span<const RecolourRule> rules_;
  const PaintPixel& paint_;
  std::size_t size_;  // bytes that hold samples; what else a pixel has stays its own
  bool isByteWise_;
  std::vector<Bytes> known_;
};

class Recolourer {
 public:
  Recolourer(const BitmapPixels& bitmap, std::span<const RecolourRule> rules, const PaintPixel& paint)
      : bitmap_(bitmap), order_(bitmap), brush_(bitmap, rules, paint) {}

  void recolour(const Area& area, const std::vector<Pattern>& patterns) {
    const bool blocks = bitmap_.bitsPerPixel == 32 && order_.premultiplied && order_.alpha == 3;
    const std::vector<std::array<int, 3>> sources = distinctSources(patterns);
    known_ = {};
    for (long y = area.rows.first; y < area.rows.end; ++y) {
      if (blocks) {
        recolourBlocks(area.columns, y, patterns, sources);
      } else {
        for (long x = area.columns.first; x < area.columns.end; ++x)
          recolourPixel(pixelAt(bitmap_, x, y), x, y, patterns);
      }
    }
  }

 private:
  static std::vector<std::array<int, 3>> distinctSources(const std::vector<Pattern>& patterns) {
    std::vector<std::array<int, 3>> sources;
    for (const Pattern& pattern : patterns) {
      if (std::ranges::find(sources, pattern.source) == sources.end()) sources.push_back(pattern.source);
    }
    if (const auto white = std::ranges::find(sources, kWhite); white != sources.end())
      std::iter_swap(sources.begin(), white);
    return sources;
  }

  /// What a pixel became in the area at hand. White marks differ in their alpha alone, so one entry an alpha
  /// holds them all.
  struct Known {
    std::uint32_t before = 0;  // a transparent pixel: none yet
    std::uint32_t after = 0;
  };

  void recolourBlocks(const Extent& columns, long y, const std::vector<Pattern>& patterns,
                      const std::vector<std::array<int, 3>>& sources) {
    for (long first = columns.first; first < columns.end; first += static_cast<long>(kBlock)) {
      const auto count = std::min(kBlock, static_cast<std::size_t>(columns.end - first));
      std::uint8_t* pixels = pixelAt(bitmap_, first, y);
      if (first + 2 * static_cast<long>(kBlock) <= columns.end) fetchAhead(pixels + 4 * kBlock);
      Flags flags{};
      flagSources(pixels, count, sources, flags);
      // Eight flags at a time: most pixels of a picture match nothing, and those that do stand together.
      for (std::size_t i = 0; i < count; i += sizeof(std::uint64_t)) {
        std::uint64_t raised = 0;
        std::memcpy(&raised, flags.data() + i, sizeof raised);
        if (raised == kAllRaised) {
          for (std::size_t j = i; j < i + sizeof raised; ++j) {
            recolourWord(pixels + 4 * j, first + static_cast<long>(j), y, patterns);
          }
          continue;
        }
        for (; raised != 0; raised &= raised - 1) {
          const std::size_t j = i + static_cast<std::size_t>(std::countr_zero(raised)) / 8;
          recolourWord(pixels + 4 * j, first + static_cast<long>(j), y, patterns);
        }
      }
    }
  }

  /// Has the block at an address brought to the cache meanwhile.
  static void fetchAhead(const std::uint8_t* pixels) {
    constexpr std::size_t kCacheLine = 64;
    for (std::size_t i = 0; i < 4 * kBlock; i += kCacheLine) __builtin_prefetch(pixels + i);
  }

  void recolourWord(std::uint8_t* pixel, long x, long y, const std::vector<Pattern>& patterns) {
    const std::uint32_t word = wordOf(pixel);
    Known& known = known_[word >> 24U];
    if (known.before == word) {
      std::memcpy(pixel, &known.after, sizeof known.after);
      return;
    }
    recolourPixel(pixel, x, y, patterns);
    known = {word, wordOf(pixel)};
  }

  void recolourPixel(std::uint8_t* pixel, long x, long y, const std::vector<Pattern>& patterns) {
    const PixelValue value = order_.value(pixel);
    if (value[3] == 0) return;
    for (const Pattern& pattern : patterns) {
      if (pattern.matches(value)) return brush_.apply(pattern.rule, value[3], pixel, x, y);
    }
  }

  const BitmapPixels& bitmap_;
  ByteOrder order_;
  Brush brush_;
  std::array<Known, 256> known_{};
};

}  // namespace

bool BitmapPixels::isReadable() const {
  const long read = hasAlpha ? 32 : 24;
  return bytes != nullptr && width > 0 && height > 0 && bitsPerPixel >= read &&
         (bitsPerPixel * width + 7) / 8 <= bytesPerRow;
}

PixelValue pixelValue(const BitmapPixels& bitmap, long x, long y) {
  return ByteOrder(bitmap).value(pixelAt(bitmap, x, y));
}

double outputAlpha(double suggested, double ignoreAlpha, int a) {
  if (!(ignoreAlpha > 0)) return suggested;
  const auto offset = static_cast<float>(ignoreAlpha - static_cast<double>(a) / kFull);
  return static_cast<double>(static_cast<float>(suggested - static_cast<double>(offset)));
}

void recolour(const BitmapPixels& bitmap, std::span<const RecolourRule> rules, const PaintPixel& paint) {
  if (!bitmap.isReadable()) return;
  Recolourer recolourer(bitmap, rules, paint);
  forEachArea(bitmap.width, bitmap.height, rules,
              [&](const Area& area, const std::vector<Pattern>& patterns) { recolourer.recolour(area, patterns); });
}

void recolourByColours(long width, long height, std::span<const RecolourRule> rules, const ReadPixel& read,
                       const PaintPixel& paint) {
  const auto isByte = [](long component) { return component >= 0 && component <= kFull; };
  const auto recolourPixel = [&](long x, long y, const std::vector<Pattern>& patterns) {
    const std::array<long, 4> colour = read(x, y);
    if (colour[3] == 0 || !std::ranges::all_of(colour, isByte)) return;
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(colour[i]); };
    const PixelValue value{byte(0), byte(1), byte(2), byte(3)};
    const auto match = std::ranges::find_if(patterns, [&](const Pattern& each) { return each.matches(value); });
    if (match == patterns.end() || !rules[match->rule].suggested) return;
    const auto& [red, green, blue, alpha] = *rules[match->rule].suggested;
    paint({red, green, blue, outputAlpha(alpha, rules[match->rule].ignoreAlpha, value[3])}, x, y);
  };
  forEachArea(width, height, rules, [&](const Area& area, const std::vector<Pattern>& patterns) {
    for (long y = area.rows.first; y < area.rows.end; ++y) {
      for (long x = area.columns.first; x < area.columns.end; ++x) recolourPixel(x, y, patterns);
    }
  });
}

}  // namespace velura
