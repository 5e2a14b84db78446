#include "standin/imagefiles/Tiff.h"

#include <tiffio.h>

#include <cmath>
#include <cstring>

namespace standin {

namespace {

constexpr std::size_t kMostFrames = 256;
constexpr double kCentimetersPerInch = 2.54;

/// What the library reads from, or writes to, as it would a file.
struct MemoryFile {
  FileBytes source;
  std::vector<std::uint8_t> written;
  std::size_t at = 0;

  [[nodiscard]] std::size_t size() const { return source.data() != nullptr ? source.size() : written.size(); }
};

tmsize_t readFrom(thandle_t handle, void* to, tmsize_t count) {
  auto& file = *static_cast<MemoryFile*>(handle);
  const std::size_t left = file.at < file.size() ? file.size() - file.at : 0;
  const std::size_t taken = std::min(left, static_cast<std::size_t>(std::max<tmsize_t>(0, count)));
  const std::uint8_t* from = file.source.data() != nullptr ? file.source.data() : file.written.data();
  if (taken > 0) std::memcpy(to, from + file.at, taken);
  file.at += taken;
  return static_cast<tmsize_t>(taken);
}

tmsize_t writeTo(thandle_t handle, void* from, tmsize_t count) {
  auto& file = *static_cast<MemoryFile*>(handle);
  if (count <= 0 || file.source.data() != nullptr) return 0;
  const std::size_t end = file.at + static_cast<std::size_t>(count);
  if (end > file.written.size()) file.written.resize(end);
  std::memcpy(file.written.data() + file.at, from, static_cast<std::size_t>(count));
  file.at = end;
  return count;
}

toff_t seekIn(thandle_t handle, toff_t offset, int whence) {
  auto& file = *static_cast<MemoryFile*>(handle);
  if (whence == SEEK_CUR) offset += file.at;
  if (whence == SEEK_END) offset += file.size();
  return file.at = offset;
}

int closeNothing(thandle_t) { return 0; }
toff_t sizeOf(thandle_t handle) { return static_cast<MemoryFile*>(handle)->size(); }
int mapNothing(thandle_t, void**, toff_t*) { return 0; }
void unmapNothing(thandle_t, void*, toff_t) {}
int silent(TIFF*, void*, const char*, const char*, va_list) { return 1; }

struct Close {
  void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using Tiff = std::unique_ptr<TIFF, Close>;

Tiff opened(MemoryFile& file, const char* mode) {
  TIFFOpenOptions* options = TIFFOpenOptionsAlloc();
  TIFFOpenOptionsSetMaxSingleMemAlloc(options, kMostMemory);
  TIFFOpenOptionsSetErrorHandlerExtR(options, silent, nullptr);
  TIFFOpenOptionsSetWarningHandlerExtR(options, silent, nullptr);
  Tiff tiff(TIFFClientOpenExt("memory", mode, &file, readFrom, writeTo, seekIn, closeNothing, sizeOf, mapNothing,
                              unmapNothing, options));
  TIFFOpenOptionsFree(options);
  return tiff;
}

/// Pixels an inch; the platform's own where the file gives none.
double densityOf(TIFF* tiff, ttag_t tag) {
  float resolution = 0;
  std::uint16_t unit = RESUNIT_INCH;
  TIFFGetFieldDefaulted(tiff, TIFFTAG_RESOLUTIONUNIT, &unit);
  if (unit == RESUNIT_NONE || TIFFGetField(tiff, tag, &resolution) == 0) return kPointsPerInch;
  const double dpi = static_cast<double>(resolution) * (unit == RESUNIT_CENTIMETER ? kCentimetersPerInch : 1);
  return dpi >= 1 && dpi <= 1e5 ? dpi : kPointsPerInch;
}

bool hasAlpha(TIFF* tiff) {
  std::uint16_t count = 0;
  const std::uint16_t* kinds = nullptr;
  return TIFFGetField(tiff, TIFFTAG_EXTRASAMPLES, &count, &kinds) != 0 && count > 0;
}

struct Extent {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
};

/// Of the directory that is current.
Extent extentOf(TIFF* tiff) {
  Extent extent;
  TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &extent.width);
  TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &extent.height);
  return extent;
}

void writeFrame(TIFF* tiff, const ImageFrame& frame) {
  const Surface& pixels = *frame.pixels;
  const std::uint16_t samples = frame.hasAlpha ? 4 : 3;
  TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(pixels.width()));
  TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(pixels.height()));
  TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
  TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, samples);
  TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
  TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
  TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
  TIFFSetField(tiff, TIFFTAG_ORIENTATION, static_cast<std::uint16_t>(frame.orientation));
  TIFFSetField(tiff, TIFFTAG_XRESOLUTION, frame.dpiWidth);
  TIFFSetField(tiff, TIFFTAG_YRESOLUTION, frame.dpiHeight);
  TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
  TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(tiff, 0));
  if (frame.hasAlpha) {
    const std::uint16_t premultiplied = EXTRASAMPLE_ASSOCALPHA;
    TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &premultiplied);
  }
  std::vector<std::uint8_t> row(static_cast<std::size_t>(pixels.width()) * 4);
  for (int y = 0; y < pixels.height(); ++y) {
    std::uint8_t* to = row.data();
    for (int x = 0; x < pixels.width(); ++x, to += samples) {
      const Pixel stored = *pixels.view().at(x, y);
      const Pixel pixel = pixels.view().order == PixelOrder::kRgba ? stored : swappedRedBlue(stored);
      std::memcpy(to, &pixel, samples);
    }
    TIFFWriteScanline(tiff, row.data(), static_cast<std::uint32_t>(y));
  }
}

}  // namespace

std::size_t tiffFrameCount(FileBytes bytes) {
  MemoryFile file{bytes, {}, 0};
  const Tiff tiff = opened(file, "rm");
  if (tiff == nullptr) return 0;
  // Frames may share their bytes: together they may claim what one may.
  std::ptrdiff_t memory = 0;
  std::size_t count = 0;
  do {
    const Extent extent = extentOf(tiff.get());
    if (!isDecodable(extent.width, extent.height)) continue;
    memory += std::ptrdiff_t{extent.width} * extent.height * 4;
    if (memory > kMostMemory) break;
  } while (++count < kMostFrames && TIFFReadDirectory(tiff.get()) != 0);
  return count;
}

std::optional<ImageFrame> decodedTiffFrame(FileBytes bytes, std::size_t index) {
  MemoryFile file{bytes, {}, 0};
  const Tiff tiff = opened(file, "rm");
  if (tiff == nullptr || index >= kMostFrames) return std::nullopt;
  if (TIFFSetDirectory(tiff.get(), static_cast<tdir_t>(index)) == 0) return std::nullopt;
  const auto [width, height] = extentOf(tiff.get());
  if (!isDecodable(width, height)) return std::nullopt;
  const auto surface = Surface::make(static_cast<int>(width), static_cast<int>(height), PixelOrder::kRgba);
  if (surface == nullptr) return std::nullopt;
  std::uint16_t orientation = ORIENTATION_TOPLEFT;
  TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_ORIENTATION, &orientation);
  // The pixels stay as they are stored: turning them is for whoever shows them.
  TIFFSetField(tiff.get(), TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
  constexpr int kStopAtErrors = 1;
  if (TIFFReadRGBAImageOriented(tiff.get(), width, height, surface->view().at(0, 0), ORIENTATION_TOPLEFT,
                                kStopAtErrors) == 0) {
    return std::nullopt;
  }
  return ImageFrame{surface, densityOf(tiff.get(), TIFFTAG_XRESOLUTION), densityOf(tiff.get(), TIFFTAG_YRESOLUTION),
                    hasAlpha(tiff.get()), orientation};
}

std::vector<std::uint8_t> encodedTiff(std::span<const ImageFrame> frames) {
  MemoryFile file;
  {
    const Tiff tiff = opened(file, "wlm");
    if (tiff == nullptr) return {};
    for (const ImageFrame& frame : frames) {
      writeFrame(tiff.get(), frame);
      if (TIFFWriteDirectory(tiff.get()) == 0) return {};
    }
  }
  return std::move(file.written);
}

}  // namespace standin
