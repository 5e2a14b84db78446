#include "plugin/imaging/Recoloring.h"

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
std::optional<Pattern> patternOf(const RecolorRule& rule, std::size_t index) {
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
  const RecolorRule* rule;
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
void forEachArea(long width, long height, std::span<const RecolorRule> rules, Visit&& visit) {
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
constexpr std::size_t kGroup = 16;  // pixels that are looked through at once
constexpr std::array<int, 3> kWhite{kFull, kFull, kFull};

/// Red in the lowest byte, alpha in the highest.
inline std::uint32_t wordOf(const std::uint8_t* pixel) {
  std::uint32_t word = 0;
  std::memcpy(&word, pixel, sizeof word);
  return word;
}

// What follows says whether a group of pixels may hold a source colour: no when it surely does not, which is
// the answer for most of a picture. It is free of branches, and looks through several pixels at once.

using Bytes = std::uint8_t __attribute__((vector_size(16)));
using Words = std::uint32_t __attribute__((vector_size(16)));

/// White: no channel is below its alpha. Red is enough to go by, and stands where the alpha is moved to; the bytes
/// beside it are compared with zero. A transparent pixel is compared with what no byte reaches.
bool mayHoldWhite(const std::uint8_t* group) {
  Words found{};
  for (std::size_t i = 0; i < 4 * kGroup; i += sizeof(Bytes)) {
    Words words;
    std::memcpy(&words, group + i, sizeof words);
    const Words least = (words >> 24U) | Words(words == 0);
    found |= Words(Words(Bytes(words) >= Bytes(least)) == ~0U);
  }
  std::array<std::uint64_t, 2> halves{};
  std::memcpy(halves.data(), &found, sizeof halves);
  return (halves[0] | halves[1]) != 0;
}

/// Any colour. A channel rounds to the source only if 255 times the channel lies within half an alpha of the
/// source times the alpha.
bool mayHoldColor(const std::uint8_t* group, const std::array<int, 3>& source) {
  constexpr std::uint32_t kByte = 0xFF;
  const auto isNear = [](std::uint32_t channel, std::uint32_t alpha, int wanted) {
    const int a = static_cast<int>(alpha);
    const int off = kFull * static_cast<int>(std::min(channel, alpha)) - wanted * a;
    return static_cast<int>(2 * off <= a) & static_cast<int>(-2 * off <= a);
  };
  int found = 0;
  for (std::size_t i = 0; i < kGroup; ++i) {
    const std::uint32_t word = wordOf(group + 4 * i);
    const std::uint32_t alpha = word >> 24U;
    found |= isNear(word & kByte, alpha, source[0]) & isNear(word >> 8U & kByte, alpha, source[1]) &
             isNear(word >> 16U & kByte, alpha, source[2]) & static_cast<int>(alpha != 0);
  }
  return found != 0;
}

/// The colours that the rules of an area look for.
struct Sources {
  explicit Sources(const std::vector<Pattern>& patterns) {
    for (const Pattern& pattern : patterns) {
      if (pattern.source == kWhite) {
        white = true;
      } else if (std::ranges::find(others, pattern.source) == others.end()) {
        others.push_back(pattern.source);
      }
    }
  }
  bool white = false;
  std::vector<std::array<int, 3>> others;

  [[nodiscard]] bool mayBeIn(const std::uint8_t* group) const {
    if (white && mayHoldWhite(group)) return true;
    return std::ranges::any_of(others, [group](const auto& source) { return mayHoldColor(group, source); });
  }
};

/// Writes the colours of rules. A colour depends on its rule and on the alpha of the pixel, so the platform is
/// asked once for each pair; the bytes that it wrote are copied from then on.
class Brush {
 public:
  Brush(const BitmapPixels& bitmap, std::span<const RecolorRule> rules, const PaintPixel& paint)
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
  std::span<const RecolorRule> rules_;
  const PaintPixel& paint_;
  std::size_t size_;  // bytes that hold samples; what else a pixel has stays its own
  bool isByteWise_;
  std::vector<Bytes> known_;
};

class Recolorer {
 public:
  Recolorer(const BitmapPixels& bitmap, std::span<const RecolorRule> rules, const PaintPixel& paint)
      : bitmap_(bitmap), order_(bitmap), brush_(bitmap, rules, paint) {}

  void recolor(const Area& area, const std::vector<Pattern>& patterns) {
    const bool inGroups = bitmap_.bitsPerPixel == 32 && order_.premultiplied && order_.alpha == 3;
    const Sources sources(patterns);
    known_ = {};
    for (long y = area.rows.first; y < area.rows.end; ++y) {
      const long first = inGroups ? recolorGroups(area.columns, y, patterns, sources) : area.columns.first;
      for (long x = first; x < area.columns.end; ++x) recolorPixel(pixelAt(bitmap_, x, y), x, y, patterns);
    }
  }

 private:
  /// What a pixel became in the area at hand. White marks differ in their alpha alone, so one entry an alpha
  /// holds them all.
  struct Known {
    std::uint32_t before = 0;  // a transparent pixel: none yet
    std::uint32_t after = 0;
  };

  /// Recolours the groups of a row, and says where the rest of it begins.
  long recolorGroups(const Extent& columns, long y, const std::vector<Pattern>& patterns, const Sources& sources) {
    constexpr long kStep = kGroup;
    long x = columns.first;
    std::uint8_t* group = pixelAt(bitmap_, x, y);
    for (; x + kStep <= columns.end; x += kStep, group += 4 * kGroup) {
      if (!sources.mayBeIn(group)) continue;
      for (std::size_t i = 0; i < kGroup; ++i) recolorWord(group + 4 * i, x + static_cast<long>(i), y, patterns);
    }
    return x;
  }

  void recolorWord(std::uint8_t* pixel, long x, long y, const std::vector<Pattern>& patterns) {
    const std::uint32_t word = wordOf(pixel);
    Known& known = known_[word >> 24U];
    if (known.before == word) {
      std::memcpy(pixel, &known.after, sizeof known.after);
      return;
    }
    recolorPixel(pixel, x, y, patterns);
    known = {word, wordOf(pixel)};
  }

  void recolorPixel(std::uint8_t* pixel, long x, long y, const std::vector<Pattern>& patterns) {
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

void recolor(const BitmapPixels& bitmap, std::span<const RecolorRule> rules, const PaintPixel& paint) {
  if (!bitmap.isReadable()) return;
  Recolorer recolorer(bitmap, rules, paint);
  forEachArea(bitmap.width, bitmap.height, rules,
              [&](const Area& area, const std::vector<Pattern>& patterns) { recolorer.recolor(area, patterns); });
}

void recolorByColors(long width, long height, std::span<const RecolorRule> rules, const ReadPixel& read,
                     const PaintPixel& paint) {
  const auto isByte = [](long component) { return component >= 0 && component <= kFull; };
  const auto recolorPixel = [&](long x, long y, const std::vector<Pattern>& patterns) {
    const std::array<long, 4> color = read(x, y);
    if (color[3] == 0 || !std::ranges::all_of(color, isByte)) return;
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(color[i]); };
    const PixelValue value{byte(0), byte(1), byte(2), byte(3)};
    const auto match = std::ranges::find_if(patterns, [&](const Pattern& each) { return each.matches(value); });
    if (match == patterns.end() || !rules[match->rule].suggested) return;
    const auto& [red, green, blue, alpha] = *rules[match->rule].suggested;
    paint({red, green, blue, outputAlpha(alpha, rules[match->rule].ignoreAlpha, value[3])}, x, y);
  };
  forEachArea(width, height, rules, [&](const Area& area, const std::vector<Pattern>& patterns) {
    for (long y = area.rows.first; y < area.rows.end; ++y) {
      for (long x = area.columns.first; x < area.columns.end; ++x) recolorPixel(x, y, patterns);
    }
  });
}

}  // namespace velura
