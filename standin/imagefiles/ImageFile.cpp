#include "standin/imagefiles/ImageFile.h"

#include <cmath>

#include "standin/imagefiles/Png.h"
#include "standin/imagefiles/Tiff.h"

namespace standin {

namespace {

bool startsWith(FileBytes bytes, std::span<const std::uint8_t> signature) {
  return bytes.size() >= signature.size() && std::equal(signature.begin(), signature.end(), bytes.begin());
}

std::optional<ImageFrame> pngFrame(FileBytes bytes) {
  ImageFrame frame;
  const auto picture = decodedPng(bytes, &frame.dpiWidth, &frame.dpiHeight);
  if (picture == nullptr) return std::nullopt;
  frame.pixels = picture;
  return frame;
}

}  // namespace

ImageFileType imageFileType(FileBytes bytes) {
  constexpr std::uint8_t kPng[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  constexpr std::uint8_t kTiffs[][4] = {{'I', 'I', 42, 0}, {'M', 'M', 0, 42}, {'I', 'I', 43, 0}, {'M', 'M', 0, 43}};
  if (startsWith(bytes, kPng)) return ImageFileType::kPng;
  for (const auto& signature : kTiffs) {
    if (startsWith(bytes, signature)) return ImageFileType::kTiff;
  }
  return ImageFileType::kNone;
}

std::size_t frameCount(FileBytes bytes) {
  const ImageFileType type = imageFileType(bytes);
  if (type == ImageFileType::kTiff) return tiffFrameCount(bytes);
  return type == ImageFileType::kPng ? 1 : 0;
}

std::optional<ImageFrame> decodedFrame(FileBytes bytes, std::size_t index) {
  const ImageFileType type = imageFileType(bytes);
  if (type == ImageFileType::kTiff) return decodedTiffFrame(bytes, index);
  return type == ImageFileType::kPng && index == 0 ? pngFrame(bytes) : std::nullopt;
}

std::vector<std::uint8_t> encodedFrames(ImageFileType type, std::span<const ImageFrame> frames) {
  for (const ImageFrame& frame : frames) {
    if (frame.pixels == nullptr) return {};
  }
  if (type == ImageFileType::kTiff && !frames.empty()) return encodedTiff(frames);
  if (type != ImageFileType::kPng || frames.size() != 1) return {};
  return encodedPng(*frames[0].pixels, frames[0].dpiWidth, frames[0].dpiHeight);
}

}  // namespace standin
