#pragma once
// Pictures in files: PNG and TIFF in both directions. Unsound data gives nothing, quietly.

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "cocoa/AppKit.h"
#include "standin/pixels/Surface.h"

namespace standin {

using FileBytes = std::span<const std::uint8_t>;

inline constexpr double kPointsPerInch = 72;

/// One picture of a file.
struct ImageFrame {
  std::shared_ptr<const Surface> pixels;
  double dpiWidth = kPointsPerInch;
  double dpiHeight = kPointsPerInch;
  bool hasAlpha = true;
  int orientation = 1;

  /// In points.
  [[nodiscard]] NSSize size() const {
    return {pixels->width() * kPointsPerInch / dpiWidth, pixels->height() * kPointsPerInch / dpiHeight};
  }
};

enum class ImageFileType : std::uint8_t { kNone, kPng, kTiff };

ImageFileType imageFileType(FileBytes bytes);
/// 0 for what is no picture.
std::size_t frameCount(FileBytes bytes);
/// Nothing for a frame that is not there, that is unsound, or that is longer than `kLongestSide`.
std::optional<ImageFrame> decodedFrame(FileBytes bytes, std::size_t index);
/// Empty when the type cannot hold the frames. Equal frames give equal bytes.
std::vector<std::uint8_t> encodedFrames(ImageFileType type, std::span<const ImageFrame> frames);

inline FileBytes bytesOf(NSData data) { return {static_cast<const std::uint8_t*>(data.bytes()), data.length()}; }

}  // namespace standin
