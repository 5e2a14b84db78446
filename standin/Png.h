#pragma once
// PNG in both directions.

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "standin/Surface.h"

namespace standin {

/// The picture in `bytes`; null for anything but a sound PNG of at most `kLongestSide` pixels a side.
std::shared_ptr<Surface> decodedPng(std::span<const std::uint8_t> bytes);

/// The pixels as a PNG with straight alpha. Equal pixels give equal bytes.
std::vector<std::uint8_t> encodedPng(const Surface& pixels);

}  // namespace standin
