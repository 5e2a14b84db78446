#include "standin/Surface.h"

#include <cstdlib>
#include <cstring>

namespace standin {

std::shared_ptr<Surface> Surface::make(int width, int height, PixelOrder order) {
  if (width < 1 || height < 1 || width > kLongestSide || height > kLongestSide) return nullptr;
  auto* memory =
      static_cast<std::byte*>(std::calloc(static_cast<std::size_t>(height), static_cast<std::size_t>(width) * 4));
  return memory == nullptr ? nullptr : std::make_shared<Surface>(width, height, order, memory);
}

Surface::Surface(int width, int height, PixelOrder order, std::byte* memory)
    : view_{memory, std::ptrdiff_t{width} * 4, {0, 0, width, height}, order} {}

Surface::~Surface() { std::free(view_.base); }

std::shared_ptr<const Surface> Surface::inOrder(PixelOrder order, const std::shared_ptr<const Surface>& self) const {
  if (order == view_.order) return self;
  if (reordered_ == nullptr) reordered_ = copied(view_, order);
  return reordered_;
}

std::shared_ptr<Surface> copied(const PixelView& source, PixelOrder order) {
  auto copy = Surface::make(source.area.width(), source.area.height(), order);
  if (copy == nullptr) return nullptr;
  const auto count = static_cast<std::size_t>(source.area.width());
  for (int y = 0; y < source.area.height(); ++y) {
    const Pixel* from = source.at(source.area.left, source.area.top + y);
    Pixel* to = copy->view().at(0, y);
    if (order == source.order) {
      std::memcpy(to, from, count * sizeof(Pixel));
    } else {
      std::transform(from, from + count, to, swappedRedBlue);
    }
  }
  return copy;
}

}  // namespace standin
