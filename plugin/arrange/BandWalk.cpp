#include "plugin/arrange/BandWalk.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "plugin/text/Truncated.h"

namespace velura {
namespace {

constexpr double kLeftmostStart = -2;     // points: segments that start further left are out of sight
constexpr int kOtherColor = 51;           // sum of channel differences at which two colours are different
constexpr std::size_t kMostSamples = 96;  // pixels that decide a column's colour

int distance(const BandColor& a, const BandColor& b) {
  return std::abs(a.red - b.red) + std::abs(a.green - b.green) + std::abs(a.blue - b.blue);
}

/// Columns from `first` to the next stretch's that have the same colour, or none.
struct ColumnStretch {
  long first = 0;
  std::optional<BandColor> color;
};

/// The colours of the columns of a band. Most columns look like the one before, and share its colour: a few columns
/// at a time are compared row by row, as the pixels lie in memory.
class ColumnColors {
 public:
  ColumnColors(const RulerPixels& ruler, BandRows band) : ruler_(ruler), band_(band) {
    constexpr long kMostSteps = 80;
    step_ = std::max(1L, (band.bottom - band.top + 1) / kMostSteps);
    tested_ = static_cast<std::size_t>((band.bottom - band.top) / step_ + 1);
  }

  std::vector<ColumnStretch> stretches() {
    std::vector<ColumnStretch> all{{0, colorOf(0)}};
    for (long first = 1; first < ruler_.width; first += kBlock) {
      const long count = std::min(kBlock, ruler_.width - first);
      findChanges(first, count);
      for (long i = 0; i < count; ++i) {
        if (changes_[static_cast<std::size_t>(i)] == 0) continue;
        const auto color = colorOf(first + i);
        if (color != all.back().color) all.push_back({first + i, color});
      }
    }
    return all;
  }

 private:
  static constexpr long kBlock = 1024;

  /// Marks which columns differ from the one before in any row that is looked at.
  void findChanges(long first, long count) {
    const long size = ruler_.bytesPerPixel;
    changes_.fill(0);
    for (long y = band_.top; y <= band_.bottom; y += step_) {
      const std::uint8_t* row = ruler_.row(y) + first * size;
      if (size == 4) {
        compareWords(row, static_cast<std::size_t>(count));
        continue;
      }
      for (long i = 0; i < count; ++i) {
        const std::uint8_t* pixel = row + i * size;
        changes_[static_cast<std::size_t>(i)] |= static_cast<std::uint32_t>(std::memcmp(pixel, pixel - size, 3) != 0);
      }
    }
  }

  void compareWords(const std::uint8_t* row, std::size_t count) {
    constexpr std::uint32_t kColor = 0x00FF'FFFF;  // the fourth byte says nothing
    static_assert(std::endian::native == std::endian::little, "words of pixels are taken apart by their bits");
    for (std::size_t i = 0; i < count; ++i) {
      std::uint32_t word = 0;
      std::uint32_t before = 0;
      std::memcpy(&word, row + 4 * i, sizeof word);
      std::memcpy(&before, row + 4 * i - 4, sizeof before);
      changes_[i] |= (word ^ before) & kColor;
    }
  }

  std::optional<BandColor> colorOf(long column) {
    constexpr std::size_t kFewest = 2;
    constexpr std::size_t kShare = 4;
    std::size_t count = 0;
    for (long y = band_.top; y <= band_.bottom && count < kMostSamples; y += step_) {
      const std::uint8_t* pixel = ruler_.row(y) + column * ruler_.bytesPerPixel;
      if (!isColored(pixel)) continue;
      for (std::size_t channel = 0; channel < samples_.size(); ++channel) samples_[channel][count] = pixel[channel];
      ++count;
    }
    if (count < std::max(kFewest, tested_ / kShare)) return std::nullopt;
    return BandColor{median(0, count), median(1, count), median(2, count)};
  }

  int median(std::size_t channel, std::size_t count) {
    const auto first = samples_[channel].begin();
    const auto middle = first + static_cast<std::ptrdiff_t>(count / 2);
    std::nth_element(first, middle, first + static_cast<std::ptrdiff_t>(count));
    return *middle;
  }

  const RulerPixels& ruler_;
  BandRows band_;
  long step_ = 1;
  std::size_t tested_ = 1;                                           // rows that are looked at
  std::array<std::uint32_t, kBlock> changes_{};                      // by column; 0 where it is like the one before
  std::array<std::array<std::uint8_t, kMostSamples>, 3> samples_{};  // of one column, by channel
};

/// Follows the colours from left to right and tells the sink where a stretch begins. A colour must hold for a
/// few columns before it ends the run before it: a marker's name does not split its cell.
template <class Sink>
class Walk {
 public:
  Walk(long persistence, Sink& sink) : persistence_(persistence), sink_(sink) {}

  void uncolored(long column) {
    if (run_.isOpen()) emitRun();
    if (gapCount_ == 0) gapStart_ = column;
    ++gapCount_;
  }

  void colored(long column, const BandColor& color) {
    if (gapCount_ > 0) {
      endGap();
      candidate_ = {};
      run_ = {column, color, 1};
    } else if (!run_.isOpen()) {
      run_ = {column, color, 1};
    } else if (distance(color, run_.color) < kOtherColor) {
      candidate_ = {};
    } else if (candidate_.isOpen() && distance(color, candidate_.color) < kOtherColor) {
      if (++candidate_.count >= persistence_) takeOverCandidate();
    } else {
      candidate_ = {column, color, 1};
    }
  }

  void end() {
    if (run_.isOpen()) emitRun();
    endGap();
  }

 private:
  struct Run {
    long start = 0;
    BandColor color;
    long count = 0;  // 0 while there is none
    [[nodiscard]] bool isOpen() const { return count > 0; }
  };

  void emitRun() {
    sink_.run(run_.start, run_.color);
    run_ = {};
    candidate_ = {};
  }
  void takeOverCandidate() {
    const Run next = candidate_;
    emitRun();
    run_ = next;
  }
  void endGap() {
    if (gapCount_ >= persistence_) sink_.gap(gapStart_);
    gapCount_ = 0;
  }

  long persistence_;
  Sink& sink_;
  Run run_;
  Run candidate_;
  long gapStart_ = 0;
  long gapCount_ = 0;
};

/// Columns that a colour or a gap must hold for.
long persistenceOf(const RulerPixels& ruler) {
  constexpr double kPoints = 5;
  constexpr double kFewest = 2;
  constexpr double kMost = 1e6;  // keeps hostile scales harmless
  return static_cast<long>(std::clamp(kPoints * ruler.pixelsPerPoint, kFewest, kMost));
}

template <class Sink>
void walk(const RulerPixels& ruler, const std::vector<ColumnStretch>& stretches, Sink& sink) {
  Walk<Sink> state(persistenceOf(ruler), sink);
  for (std::size_t i = 0; i < stretches.size(); ++i) {
    const auto& [first, color] = stretches[i];
    const long end = i + 1 < stretches.size() ? stretches[i + 1].first : ruler.width;
    for (long column = first; column < end; ++column) {
      if (color) {
        state.colored(column, *color);
      } else {
        state.uncolored(column);
      }
    }
  }
  state.uncolored(ruler.width);  // closes what is open
  state.end();
}

/// View x of a column.
double startOf(const RulerPixels& ruler, long column, double sectionLeft) {
  return ruler.screenX(column) - sectionLeft;
}

struct SegmentSink {
  const RulerPixels& ruler;
  double sectionLeft;
  std::vector<BandSegment> segments;
  void run(long column, const BandColor& color) { add(column, color); }
  void gap(long column) { add(column, std::nullopt); }

 private:
  void add(long column, std::optional<BandColor> color) {
    const double start = startOf(ruler, column, sectionLeft);
    if (!(start < kLeftmostStart)) segments.push_back({start, color});
  }
};

struct ColorCounter {
  const RulerPixels& ruler;
  double sectionLeft;
  std::vector<BandColor> colors;
  void run(long column, const BandColor& color) {
    constexpr int kStep = 48;
    constexpr std::size_t kMost = 24;
    if (startOf(ruler, column, sectionLeft) < kLeftmostStart) return;
    const BandColor coarse{color.red / kStep, color.green / kStep, color.blue / kStep};
    if (colors.size() < kMost && std::ranges::find(colors, coarse) == colors.end()) colors.push_back(coarse);
  }
  void gap(long) {}
};

std::vector<BandSegment> segmentsOf(const RulerPixels& ruler, const std::vector<ColumnStretch>& stretches,
                                    double sectionLeft) {
  SegmentSink sink{ruler, sectionLeft, {}};
  walk(ruler, stretches, sink);
  return std::move(sink.segments);
}

int scoreOf(const RulerPixels& ruler, const std::vector<ColumnStretch>& stretches, double sectionLeft) {
  ColorCounter counter{ruler, sectionLeft, {}};
  walk(ruler, stretches, counter);
  return static_cast<int>(counter.colors.size());
}

bool isUsable(const RulerPixels& ruler) {
  return ruler.bytes != nullptr && ruler.width > 0 && ruler.height > 0 && ruler.pixelsPerPoint > 0;
}

bool isInside(const RulerPixels& ruler, BandRows band) {
  return isUsable(ruler) && band.top >= 0 && band.top <= band.bottom && band.bottom < ruler.height;
}

long rowThresholdOf(long width) {
  constexpr double kShare = 0.02;
  constexpr long kFewest = 5;
  constexpr long kSmall = 4;
  const auto threshold = static_cast<long>(static_cast<double>((width + 1) / 2) * kShare);
  return threshold < kFewest ? kSmall : threshold;
}

/// Runs of two coloured rows and more.
std::vector<ColoredBand> bandsOf(const RulerPixels& ruler, long rowThreshold) {
  std::vector<ColoredBand> bands;
  long top = -1;
  for (long y = 0; y <= ruler.height; ++y) {
    const bool colored = y < ruler.height && coloredPixelsIn(ruler, y) >= rowThreshold;
    if (colored && top < 0) top = y;
    if (colored || top < 0) continue;
    if (y - top > 1) bands.push_back({{top, y - 1}});
    top = -1;
  }
  return bands;
}

// By value: a reference would keep the compiler from looking through several pixels at once.
inline int larger(int a, int b) { return a > b ? a : b; }
inline int smaller(int a, int b) { return a < b ? a : b; }

/// The channels of a few pixels, each in a list of its own: what the compiler can look through eight at a time.
struct Channels {
  static constexpr std::size_t kMost = 512;
  std::array<std::int16_t, kMost> red;
  std::array<std::int16_t, kMost> green;
  std::array<std::int16_t, kMost> blue;

  /// Whether pixels of four bytes each are shades of grey, every one of them.
  static bool areGrey(const std::uint8_t* pixels, std::size_t count) {
    std::uint32_t differences = 0;
    for (std::size_t i = 0; i < count; ++i) {
      std::uint32_t word = 0;
      std::memcpy(&word, pixels + 4 * i, sizeof word);
      differences |= word ^ word >> 8U;
    }
    constexpr std::uint32_t kRedAndGreen = 0xFFFF;  // where green and blue have been taken from red and green
    return (differences & kRedAndGreen) == 0;
  }

  /// Takes over every second pixel of four bytes each.
  void load(const std::uint8_t* pixels, std::size_t count) {
    constexpr std::uint32_t kByte = 0xFF;
    static_assert(std::endian::native == std::endian::little, "words of pixels are taken apart by their bits");
    for (std::size_t i = 0; i < count; ++i) {
      std::uint32_t word = 0;
      std::memcpy(&word, pixels + 8 * i, sizeof word);
      red[i] = static_cast<std::int16_t>(word & kByte);
      green[i] = static_cast<std::int16_t>(word >> 8U & kByte);
      blue[i] = static_cast<std::int16_t>(word >> 16U & kByte);
    }
  }

  [[nodiscard]] long colored(std::size_t count) const {
    std::int16_t found = 0;
    for (std::size_t i = 0; i < count; ++i) {
      const int most = larger(larger(red[i], green[i]), blue[i]);
      const int spread = most - smaller(smaller(red[i], green[i]), blue[i]);
      const int isOne =
          static_cast<int>(spread > 22) & static_cast<int>(most > 30) & static_cast<int>(spread * 50 > most * 9);
      found = static_cast<std::int16_t>(found + isOne);
    }
    return found;
  }
};

}  // namespace

long coloredPixelsIn(const RulerPixels& ruler, long y) {
  const std::uint8_t* row = ruler.row(y);
  const auto pairs = static_cast<std::size_t>((ruler.width + 1) / 2);
  long found = 0;
  if (ruler.bytesPerPixel == 4) {
    Channels channels;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled as far as it is read
    for (std::size_t first = 0; first < pairs; first += Channels::kMost) {
      const std::size_t count = std::min(Channels::kMost, pairs - first);
      if (Channels::areGrey(row + 8 * first, 2 * count - 1)) continue;
      channels.load(row + 8 * first, count);
      found += channels.colored(count);
    }
    return found;
  }
  for (std::size_t i = 0; i < pairs; ++i)
    found += int{isColored(row + 2 * i * static_cast<std::size_t>(ruler.bytesPerPixel))};
  return found;
}

std::vector<BandSegment> VLRMBWalkBand(const RulerPixels& ruler, BandRows band, double sectionLeft) {
  if (!isInside(ruler, band)) return {};
  return segmentsOf(ruler, ColumnColors(ruler, band).stretches(), sectionLeft);
}

int distinctColorsAlong(const RulerPixels& ruler, BandRows band, double sectionLeft) {
  if (!isInside(ruler, band)) return 0;
  return scoreOf(ruler, ColumnColors(ruler, band).stretches(), sectionLeft);
}

MarkerLane readMarkerLane(const RulerPixels& ruler, double sectionLeft) {
  constexpr double kTopStrip = 15;  // points
  MarkerLane lane;
  if (!isUsable(ruler)) return lane;
  lane.rowThreshold = rowThresholdOf(ruler.width);
  lane.bands = bandsOf(ruler, lane.rowThreshold);
  const double firstRow = std::floor(kTopStrip * ruler.pixelsPerPoint);
  std::vector<ColumnStretch> chosen;
  for (ColoredBand& band : lane.bands) {
    band.inTopStrip = static_cast<double>(band.rows.top) < firstRow;
    if (band.inTopStrip) continue;
    auto stretches = ColumnColors(ruler, band.rows).stretches();
    band.score = scoreOf(ruler, stretches, sectionLeft);
    if (band.score <= (lane.chosen ? lane.chosen->score : 0)) continue;
    lane.chosen = band;
    chosen = std::move(stretches);
  }
  if (lane.chosen) lane.segments = segmentsOf(ruler, chosen, sectionLeft);
  return lane;
}

std::string signatureOf(const std::vector<BandSegment>& segments) {
  constexpr int kColorStep = 16;
  std::string signature;
  std::array<char, 96> text{};
  for (const BandSegment& segment : segments) {
    const auto start = truncated(segment.start * 0.5);
    int length = 0;
    if (const auto& color = segment.color) {
      length = std::snprintf(text.data(), text.size(), "%ld:%d,%d,%d;", start, color->red / kColorStep,
                             color->green / kColorStep, color->blue / kColorStep);
    } else {
      length = std::snprintf(text.data(), text.size(), "%ld:n;", start);
    }
    signature.append(text.data(), static_cast<std::size_t>(length));
  }
  return signature;
}

}  // namespace velura
