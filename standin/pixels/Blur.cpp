#include "standin/pixels/Blur.h"

#include <cmath>
#include <vector>

#include "standin/pixels/RowFill.h"

namespace standin {

namespace {

/// A plane of coverage bytes.
struct Plane {
  int width;
  int height;
  std::vector<std::uint8_t> bytes;
};

/// Averages each byte with its neighbours up to `reach` along a line whose bytes lie `step` apart.
void boxFilter(std::uint8_t* line, int count, int step, int reach, std::vector<std::uint8_t>& copy) {
  copy.resize(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) copy[static_cast<std::size_t>(i)] = line[i * step];
  const int width = 2 * reach + 1;
  const auto at = [&](int i) { return i >= 0 && i < count ? int{copy[static_cast<std::size_t>(i)]} : 0; };
  int sum = 0;
  for (int i = -reach; i < reach; ++i) sum += at(i);
  for (int i = 0; i < count; ++i) {
    sum += at(i + reach);
    line[i * step] = static_cast<std::uint8_t>((sum + width / 2) / width);
    sum -= at(i - reach);
  }
}

}  // namespace

std::shared_ptr<Surface> blurredShape(const Surface& picture, int margin, double radius, Pixel color) {
  auto result = Surface::make(picture.width() + 2 * margin, picture.height() + 2 * margin, picture.view().order);
  if (result == nullptr) return nullptr;
  const int width = result->width();
  const int height = result->height();
  Plane plane{width, height, {}};
  plane.bytes.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  const auto index = [&](int x, int y) {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
  };
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      plane.bytes[index(x + margin, y + margin)] = static_cast<std::uint8_t>(alphaOf(*picture.view().at(x, y)));
    }
  }
  constexpr int kPasses = 3;
  const int reach = static_cast<int>(std::lround(radius / 2));
  std::vector<std::uint8_t> line;
  for (int pass = 0; pass < kPasses && reach > 0; ++pass) {
    for (int y = 0; y < height; ++y) boxFilter(plane.bytes.data() + index(0, y), width, 1, reach, line);
    for (int x = 0; x < width; ++x) boxFilter(plane.bytes.data() + index(x, 0), height, width, reach, line);
  }
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) *result->view().at(x, y) = faded(color, plane.bytes[index(x, y)]);
  }
  return result;
}

}  // namespace standin
