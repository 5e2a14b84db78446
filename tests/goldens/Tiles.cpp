#include "tests/goldens/Tiles.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace goldens {
namespace {

constexpr std::size_t kBytesPerPixel = 4;
constexpr std::size_t kDigits = 5;
constexpr std::uint32_t kBase = 36;
constexpr std::uint32_t kHashes = kBase * kBase * kBase * kBase * kBase;

std::uint32_t hashOf(const unsigned char* first, std::size_t bytesPerRow, std::size_t width, std::size_t height) {
  std::uint64_t hash = 14695981039346656037U;
  for (std::size_t y = 0; y < height; ++y) {
    for (std::size_t i = 0; i < width * kBytesPerPixel; ++i)
      hash = (hash ^ first[y * bytesPerRow + i]) * 1099511628211U;
  }
  return static_cast<std::uint32_t>((hash ^ (hash >> 32U)) % kHashes);
}

std::string digits(std::uint32_t hash) {
  std::string text(kDigits, '0');
  for (auto place = text.rbegin(); place != text.rend(); ++place) {
    *place = "0123456789abcdefghijklmnopqrstuvwxyz"[hash % kBase];
    hash /= kBase;
  }
  return text;
}

bool readRows(std::istream& in, Tiles& picture) {
  for (std::string word; picture.hashes.size() < picture.columns() * picture.rows() && in >> word;) {
    picture.hashes.push_back(static_cast<std::uint32_t>(std::strtoul(word.c_str(), nullptr, kBase)));
  }
  return picture.hashes.size() == picture.columns() * picture.rows();
}

}  // namespace

Tiles tilesOf(std::string name, NSBitmapImageRep bitmap, std::size_t side) {
  Tiles tiles{std::move(name),
              static_cast<std::size_t>(bitmap.pixelsWide()),
              static_cast<std::size_t>(bitmap.pixelsHigh()),
              side,
              {}};
  const auto bytesPerRow = static_cast<std::size_t>(bitmap.bytesPerRow());
  for (std::size_t y = 0; y < tiles.height; y += side) {
    for (std::size_t x = 0; x < tiles.width; x += side) {
      tiles.hashes.push_back(hashOf(bitmap.bitmapData() + y * bytesPerRow + x * kBytesPerPixel, bytesPerRow,
                                    std::min(side, tiles.width - x), std::min(side, tiles.height - y)));
    }
  }
  return tiles;
}

std::string textOf(const std::vector<Tiles>& pictures) {
  std::ostringstream text;
  for (const Tiles& picture : pictures) {
    text << picture.name << ' ' << picture.width << " x " << picture.height << " tiles " << picture.side << '\n';
    for (std::size_t i = 0; i < picture.hashes.size(); ++i) {
      text << digits(picture.hashes[i]) << ((i + 1) % picture.columns() == 0 ? '\n' : ' ');
    }
  }
  return text.str();
}

std::vector<Tiles> tilesFrom(const std::string& text) {
  std::vector<Tiles> pictures;
  std::istringstream in(text);
  for (std::string name; in >> name;) {
    Tiles picture{.name = name, .hashes = {}};
    std::string between;
    in >> picture.width >> between >> picture.height >> between >> picture.side;
    if (!in || picture.side == 0 || !readRows(in, picture)) break;
    pictures.push_back(std::move(picture));
  }
  return pictures;
}

std::size_t Changes::count() const { return static_cast<std::size_t>(std::ranges::count(changed, true)); }

std::vector<session::PixelRect> Changes::rectangles() const {
  std::vector<session::PixelRect> found;
  for (std::size_t y = 0; y < rows; ++y) {
    for (std::size_t x = 0; x < columns; ++x) {
      if (!at(x, y)) continue;
      const std::size_t first = x;
      while (x < columns && at(x, y)) ++x;
      // A run of tiles below a run of the same width makes that one higher.
      const auto above = std::ranges::find_if(found, [&](const session::PixelRect& rect) {
        return rect.x == first * side && rect.width == (x - first) * side && rect.y + rect.height == y * side;
      });
      if (above == found.end()) {
        found.push_back({first * side, y * side, (x - first) * side, side});
      } else {
        above->height += side;
      }
    }
  }
  return found;
}

Changes changesBetween(const Tiles& before, const Tiles& after) {
  Changes changes{after.side, std::max(before.columns(), after.columns()), std::max(before.rows(), after.rows()), {}};
  const auto hash = [](const Tiles& of, std::size_t column, std::size_t row) {
    return column < of.columns() && row < of.rows() ? of.hashes[row * of.columns() + column] : kHashes;
  };
  const bool sameSize = before.width == after.width && before.height == after.height && before.side == after.side;
  for (std::size_t y = 0; y < changes.rows; ++y) {
    for (std::size_t x = 0; x < changes.columns; ++x) {
      const bool edge = x + 1 == changes.columns || y + 1 == changes.rows;
      changes.changed.push_back((edge && !sameSize) || hash(before, x, y) != hash(after, x, y));
    }
  }
  return changes;
}

}  // namespace goldens
