#include "cli/Picture.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>

namespace session {
namespace {

constexpr std::size_t kMostColors = 256;

using Color = std::uint32_t;  // 0xRRGGBB

Color colorAt(const std::uint8_t* pixel) { return Color{pixel[0]} << 16U | Color{pixel[1]} << 8U | Color{pixel[2]}; }

int distance(Color a, Color b) {
  int sum = 0;
  for (const unsigned shift : {0U, 8U, 16U}) {
    const int difference = static_cast<int>(a >> shift & 0xFFU) - static_cast<int>(b >> shift & 0xFFU);
    sum += difference * difference;
  }
  return sum;
}

/// Colours that are shown as one.
struct ColorGroup {
  std::array<std::uint64_t, 3> sums{};
  std::uint64_t count = 0;

  void add(const std::uint8_t* pixel) {
    for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += pixel[i];
    ++count;
  }
  [[nodiscard]] Color mean() const {
    Color color = 0;
    for (const std::uint64_t sum : sums) color = color << 8U | static_cast<Color>((sum + count / 2) / count);
    return color;
  }
};

/// All colours of a picture; similar ones count as one, ever more of them until a palette holds all.
std::vector<Color> paletteOf(const Picture& picture) {
  constexpr unsigned kMostIgnoredBits = 6;
  std::map<Color, ColorGroup> groups;
  for (unsigned ignoredBits = 0; ignoredBits <= kMostIgnoredBits; ++ignoredBits) {
    const Color kept = 0x010101U * (0xFFU << ignoredBits & 0xFFU);
    groups.clear();
    for (std::size_t i = 0; i < picture.samples.size(); i += 3) {
      groups[colorAt(&picture.samples[i]) & kept].add(&picture.samples[i]);
    }
    if (groups.size() <= kMostColors) break;
  }
  std::vector<Color> palette;
  for (const auto& [key, group] : groups) palette.push_back(group.mean());
  return palette;
}

std::uint8_t nearest(const std::vector<Color>& palette, Color color) {
  const auto closest = std::min_element(palette.begin(), palette.end(),
                                        [&](Color a, Color b) { return distance(a, color) < distance(b, color); });
  return static_cast<std::uint8_t>(closest - palette.begin());
}

bool differ(const std::uint8_t* a, const std::uint8_t* b, int atLeast) {
  for (int i = 0; i < 3; ++i) {
    if (std::abs(a[i] - b[i]) >= atLeast) return true;
  }
  return false;
}

/// How many pixels of a kind lie above and to the left of each place.
class PixelCounts {
 public:
  template <class IsCounted>
  PixelCounts(const Picture& picture, IsCounted isCounted)
      : width_(picture.width + 1), sums_(width_ * (picture.height + 1)) {
    for (std::size_t y = 0; y < picture.height; ++y) {
      std::uint32_t inRow = 0;
      for (std::size_t x = 0; x < picture.width; ++x) {
        if (isCounted(x, y)) ++inRow;
        sums_[(y + 1) * width_ + x + 1] = sums_[y * width_ + x + 1] + inRow;
      }
    }
  }
  [[nodiscard]] std::uint32_t in(PixelRect part) const {
    const auto at = [&](std::size_t x, std::size_t y) { return sums_[y * width_ + x]; };
    return at(part.x + part.width, part.y + part.height) - at(part.x, part.y + part.height) -
           at(part.x + part.width, part.y) + at(part.x, part.y);
  }
  [[nodiscard]] double shareOf(PixelRect part) const {
    return in(part) / static_cast<double>(part.width * part.height);
  }

 private:
  std::size_t width_;
  std::vector<std::uint32_t> sums_;
};

PixelCounts changedPixels(const Picture& before, const Picture& after) {
  constexpr int kVisible = 6;
  return {after, [&](std::size_t x, std::size_t y) { return differ(before.pixel(x, y), after.pixel(x, y), kVisible); }};
}

/// Pixels that stand out from the next: text, symbols, edges of controls.
PixelCounts detailsOf(const Picture& picture) {
  constexpr int kContrast = 40;
  return {picture, [&](std::size_t x, std::size_t y) {
            return x > 0 && differ(picture.pixel(x - 1, y), picture.pixel(x, y), kContrast);
          }};
}

/// How well a part shows what has changed, from the shares of changed pixels and of details in it. Beyond some
/// details more do not help.
double tellingness(double changed, double details) {
  constexpr double kEnough = 0.08;
  constexpr double kWithoutAny = 0.01;
  return changed * (1 - changed) * (kWithoutAny + std::min(details, kEnough));
}

/// Moves a part so that what has changed inside of it lies in its middle, as far as the picture reaches.
PixelRect centred(PixelRect part, const PixelCounts& changes, const Picture& picture) {
  std::size_t left = part.x, right = part.x + part.width, top = part.y, bottom = part.y + part.height;
  while (changes.in({left, part.y, 1, part.height}) == 0) ++left;
  while (changes.in({right - 1, part.y, 1, part.height}) == 0) --right;
  while (changes.in({part.x, top, part.width, 1}) == 0) ++top;
  while (changes.in({part.x, bottom - 1, part.width, 1}) == 0) --bottom;
  const auto start = [](std::size_t from, std::size_t to, std::size_t length, std::size_t whole) {
    const std::size_t middle = (from + to) / 2;
    return std::min(middle > length / 2 ? middle - length / 2 : 0, whole - length);
  };
  return {start(left, right, part.width, picture.width), start(top, bottom, part.height, picture.height), part.width,
          part.height};
}

}  // namespace

std::optional<Picture> readPicture(const std::string& path) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_file(&image, path.c_str()) == 0) return std::nullopt;
  image.format = PNG_FORMAT_RGB;
  Picture picture{image.width, image.height, std::vector<std::uint8_t>(PNG_IMAGE_SIZE(image))};
  const png_color black{};
  if (png_image_finish_read(&image, &black, picture.samples.data(), 0, nullptr) == 0) return std::nullopt;
  return picture;
}

Picture cut(const Picture& whole, PixelRect part) {
  Picture result{part.width, part.height, {}};
  for (std::size_t y = 0; y < part.height; ++y) {
    const std::uint8_t* row = whole.pixel(part.x, part.y + y);
    result.samples.insert(result.samples.end(), row, row + part.width * 3);
  }
  return result;
}

std::string palettePng(const Picture& picture) {
  const std::vector<Color> palette = paletteOf(picture);
  std::vector<std::uint8_t> entries, indices;
  for (const Color color : palette) {
    for (const unsigned shift : {16U, 8U, 0U}) entries.push_back(static_cast<std::uint8_t>(color >> shift & 0xFFU));
  }
  std::map<Color, std::uint8_t> known;
  for (std::size_t i = 0; i < picture.samples.size(); i += 3) {
    const Color color = colorAt(&picture.samples[i]);
    const auto found = known.find(color);
    indices.push_back(found != known.end() ? found->second : known[color] = nearest(palette, color));
  }
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(picture.width);
  image.height = static_cast<png_uint_32>(picture.height);
  image.format = PNG_FORMAT_RGB_COLORMAP;
  image.colormap_entries = static_cast<png_uint_32>(palette.size());
  png_alloc_size_t size = 0;
  std::string bytes;
  if (png_image_write_to_memory(&image, nullptr, &size, 0, indices.data(), 0, entries.data()) == 0) return bytes;
  bytes.resize(size);
  if (png_image_write_to_memory(&image, bytes.data(), &size, 0, indices.data(), 0, entries.data()) == 0) return {};
  bytes.resize(size);
  return bytes;
}

std::optional<PixelRect> mostTellingPart(const Picture& before, const Picture& after, std::size_t width,
                                         std::size_t height) {
  if (before.width != after.width || before.height != after.height) return std::nullopt;
  if (after.width < width || after.height < height) return std::nullopt;
  constexpr std::size_t kStep = 4;
  const PixelCounts changes = changedPixels(before, after);
  const PixelCounts details = detailsOf(before);
  PixelRect best{0, 0, width, height};
  double mostTelling = 0;
  for (std::size_t y = 0; y + height <= after.height; y += kStep) {
    for (std::size_t x = 0; x + width <= after.width; x += kStep) {
      const PixelRect part{x, y, width, height};
      const double telling = tellingness(changes.shareOf(part), details.shareOf(part));
      if (telling <= mostTelling) continue;
      mostTelling = telling;
      best = part;
    }
  }
  if (changes.in(best) == 0) return std::nullopt;
  return centred(best, changes, after);
}

}  // namespace session
