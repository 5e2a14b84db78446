#pragma once
// PNG in both directions.

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "standin/pixels/Surface.h"

namespace standin {

/// The picture in `bytes`; null for anything but a sound PNG of at most `kLongestSide` pixels a side.
/// The densities are set where the file tells any, in pixels an inch.
std::shared_ptr<Surface> decodedPng(std::span<const std::uint8_t> bytes, double* dpiWidth = nullptr,
                                    double* dpiHeight = nullptr);

/// The pixels as a PNG with straight alpha. Equal pixels give equal bytes. A density of 72 pixels an
/// inch is not written.
std::vector<std::uint8_t> encodedPng(const Surface& pixels, double dpiWidth = 72, double dpiHeight = 72);

}  // namespace standin
