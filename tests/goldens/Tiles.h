#pragma once
// Pictures as the hashes of their tiles: small enough to be kept, and a change is told by its place.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "cli/Picture.h"
#include "cocoa/AppKit.h"

namespace goldens {

/// A picture in square tiles, row by row from its top left.
struct Tiles {
  std::string name;
  std::size_t width = 0;  // in pixels, as all sizes here
  std::size_t height = 0;
  std::size_t side = 1;
  std::vector<std::uint32_t> hashes;

  [[nodiscard]] std::size_t columns() const { return (width + side - 1) / side; }
  [[nodiscard]] std::size_t rows() const { return (height + side - 1) / side; }
};

/// The smaller a tile, the more exact the place.
Tiles tilesOf(std::string name, NSBitmapImageRep bitmap, std::size_t side);

/// A file of pictures: a line with the name and size of each, then a line of hashes for each row of tiles.
std::string textOf(const std::vector<Tiles>& pictures);
/// What `textOf` made; pictures that are none of it are left out, which shows as their change.
std::vector<Tiles> tilesFrom(const std::string& text);

/// Which tiles of a picture have changed.
struct Changes {
  std::size_t side = 1;
  std::size_t columns = 0;
  std::size_t rows = 0;
  std::vector<bool> changed;

  [[nodiscard]] std::size_t count() const;
  [[nodiscard]] bool at(std::size_t column, std::size_t row) const { return changed[row * columns + column]; }
  /// In pixels; neighbours joined to few.
  [[nodiscard]] std::vector<session::PixelRect> rectangles() const;
};

/// Tiles that only one of the two has count as changed.
Changes changesBetween(const Tiles& before, const Tiles& after);

}  // namespace goldens
