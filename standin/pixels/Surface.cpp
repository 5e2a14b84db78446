#include "standin/pixels/Surface.h"

#include <sys/mman.h>

#include <cstdlib>
#include <cstring>

namespace standin {

std::byte* allocatedPixels(std::size_t rows, std::size_t bytesPerRow) {
  constexpr std::size_t kLargePage = std::size_t{1} << 21U;
  void* memory = std::calloc(rows, bytesPerRow);
  // A row of a wide window fills pages of its own, and drawing goes down the rows: large pages spare the
  // processor from looking a page up for every row.
  const std::size_t size = rows * bytesPerRow;
  if (memory != nullptr && size >= 2 * kLargePage) {
    const auto address = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t first = (address + kLargePage - 1) / kLargePage * kLargePage;
    const std::size_t whole = (address + size - first) / kLargePage * kLargePage;
    madvise(reinterpret_cast<void*>(first), whole, MADV_HUGEPAGE);
  }
  return static_cast<std::byte*>(memory);
}

std::shared_ptr<Surface> Surface::make(int width, int height, PixelOrder order) {
  return height > kLongestSide ? nullptr : makeTall(width, height, order);
}

std::shared_ptr<Surface> Surface::makeTall(int width, int height, PixelOrder order) {
  if (width < 1 || height < 1 || width > kLongestSide || height > kTallest) return nullptr;
  if (height > kLongestSide && height > kMostMemory / (std::ptrdiff_t{width} * 4)) return nullptr;
  std::byte* memory = allocatedPixels(static_cast<std::size_t>(height), static_cast<std::size_t>(width) * 4);
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
  auto copy = Surface::makeTall(source.area.width(), source.area.height(), order);
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
