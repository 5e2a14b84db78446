#include "standin/imagefiles/Png.h"

#include <png.h>

#include <cmath>
#include <csetjmp>
#include <cstdlib>
#include <cstring>

namespace standin {

namespace {

/// What the decoder reads from.
struct Source {
  std::span<const std::uint8_t> rest;
};

constexpr png_alloc_size_t kLargestChunk = png_alloc_size_t{4} << 20U;

/// The decoder's memory. A chunk may claim any length, and the library asks for it all before it reads:
/// it passes over the chunk when there is none.
png_voidp allocate(png_structp, png_alloc_size_t size) {
  return size <= 2 * kLargestChunk ? std::malloc(size) : nullptr;
}
void release(png_structp, png_voidp memory) { std::free(memory); }

void readFrom(png_structp png, png_bytep to, png_size_t count) {
  auto* source = static_cast<Source*>(png_get_io_ptr(png));
  if (count > source->rest.size()) png_error(png, "truncated");
  std::memcpy(to, source->rest.data(), count);
  source->rest = source->rest.subspan(count);
}

void ignoreWarning(png_structp, png_const_charp) {}
[[noreturn]] void leave(png_structp png, png_const_charp) { png_longjmp(png, 1); }

/// Asks for 8-bit red, green, blue, alpha, whatever the file holds.
void askForRgba(png_structp png) {
  png_set_expand(png);
  png_set_strip_16(png);
  png_set_gray_to_rgb(png);
  png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
  png_set_interlace_handling(png);
}

/// Decodes into `surface`; false when the data is unsound. Nothing in here has a destructor: an error jumps.
bool decode(png_structp png, png_infop info, Source& source, std::shared_ptr<Surface>& surface,
            std::vector<png_bytep>& rows) {
  // NOLINTNEXTLINE(modernize-avoid-setjmp-longjmp): the library's way to report errors
  if (setjmp(png_jmpbuf(png)) != 0) return false;
  png_set_user_limits(png, static_cast<png_uint_32>(kLongestSide), static_cast<png_uint_32>(kLongestSide));
  png_set_chunk_cache_max(png, 64);
  png_set_chunk_malloc_max(png, kLargestChunk);
  png_set_read_fn(png, &source, readFrom);
  png_read_info(png, info);
  const png_uint_32 width = png_get_image_width(png, info);
  const png_uint_32 height = png_get_image_height(png, info);
  if (!isDecodable(width, height)) return false;
  askForRgba(png);
  png_read_update_info(png, info);
  if (png_get_rowbytes(png, info) != std::size_t{width} * 4) return false;
  surface = Surface::make(static_cast<int>(width), static_cast<int>(height), PixelOrder::kRgba);
  if (surface == nullptr) return false;
  rows.resize(height);
  for (png_uint_32 y = 0; y < height; ++y) {
    rows[y] = reinterpret_cast<png_bytep>(surface->view().at(0, static_cast<int>(y)));
  }
  png_read_image(png, rows.data());
  png_read_end(png, nullptr);
  return true;
}

constexpr double kInchesPerMeter = 100 / 2.54;

/// Whole pixels a metre are what files hold: the density that was meant is a whole number of pixels an inch.
double dpiOf(png_uint_32 perMeter) {
  constexpr double kRounding = 0.02;
  const double dpi = perMeter / kInchesPerMeter;
  return std::abs(dpi - std::round(dpi)) < kRounding ? std::round(dpi) : dpi;
}

void readDensity(png_structp png, png_infop info, double* dpiWidth, double* dpiHeight) {
  png_uint_32 x = 0;
  png_uint_32 y = 0;
  int unit = PNG_RESOLUTION_UNKNOWN;
  if (dpiWidth == nullptr || png_get_pHYs(png, info, &x, &y, &unit) == 0 || unit != PNG_RESOLUTION_METER) return;
  const double dpi[] = {dpiOf(x), dpiOf(y)};
  if (!(dpi[0] >= 1 && dpi[0] <= 1e5 && dpi[1] >= 1 && dpi[1] <= 1e5)) return;
  *dpiWidth = dpi[0];
  *dpiHeight = dpi[1];
}

constexpr Pixel premultiplied(Pixel channel, Pixel alpha) { return (channel * alpha + 127) / 255; }

void premultiply(const Surface& surface) {
  for (int y = 0; y < surface.height(); ++y) {
    Pixel* row = surface.view().at(0, y);
    for (int x = 0; x < surface.width(); ++x) {
      const Pixel p = row[x];
      const Pixel a = alphaOf(p);
      if (a == 255) continue;
      row[x] = a << 24U | premultiplied(p >> 16U & 0xFFU, a) << 16U | premultiplied(p >> 8U & 0xFFU, a) << 8U |
               premultiplied(p & 0xFFU, a);
    }
  }
}

void appendTo(png_structp png, png_bytep bytes, png_size_t count) {
  auto* out = static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(png));
  out->insert(out->end(), bytes, bytes + count);
}

void straightRow(const Pixel* from, int width, bool native, std::uint8_t* to) {
  for (int x = 0; x < width; ++x, to += 4) {
    const Pixel p = native ? swappedRedBlue(from[x]) : from[x];
    const Pixel a = alphaOf(p);
    to[0] = static_cast<std::uint8_t>(straight(p & 0xFFU, a));
    to[1] = static_cast<std::uint8_t>(straight(p >> 8U & 0xFFU, a));
    to[2] = static_cast<std::uint8_t>(straight(p >> 16U & 0xFFU, a));
    to[3] = static_cast<std::uint8_t>(a);
  }
}

}  // namespace

std::shared_ptr<Surface> decodedPng(std::span<const std::uint8_t> bytes, double* dpiWidth, double* dpiHeight) {
  constexpr std::size_t kSignature = 8;
  if (bytes.size() < kSignature || png_sig_cmp(bytes.data(), 0, kSignature) != 0) return nullptr;
  png_structp png =
      png_create_read_struct_2(PNG_LIBPNG_VER_STRING, nullptr, leave, ignoreWarning, nullptr, allocate, release);
  if (png == nullptr) return nullptr;
  png_infop info = png_create_info_struct(png);
  Source source{bytes};
  std::shared_ptr<Surface> surface;
  std::vector<png_bytep> rows;
  const bool sound = info != nullptr && decode(png, info, source, surface, rows);
  if (sound) readDensity(png, info, dpiWidth, dpiHeight);
  png_destroy_read_struct(&png, &info, nullptr);
  if (!sound) return nullptr;
  premultiply(*surface);
  return surface;
}

std::vector<std::uint8_t> encodedPng(const Surface& pixels, double dpiWidth, double dpiHeight) {
  constexpr int kCompression = 4;  // of 9: pictures of flat areas hardly gain from more
  std::vector<std::uint8_t> out;
  std::vector<std::uint8_t> row(static_cast<std::size_t>(pixels.width()) * 4);
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, leave, ignoreWarning);
  if (png == nullptr) return {};
  png_infop info = png_create_info_struct(png);
  // NOLINTNEXTLINE(modernize-avoid-setjmp-longjmp): the library's way to report errors
  if (info == nullptr || setjmp(png_jmpbuf(png)) != 0) {
    png_destroy_write_struct(&png, &info);
    return {};
  }
  png_set_write_fn(png, &out, appendTo, nullptr);
  png_set_user_limits(png, static_cast<png_uint_32>(kLongestSide), static_cast<png_uint_32>(kLongestSide));
  png_set_IHDR(png, info, static_cast<png_uint_32>(pixels.width()), static_cast<png_uint_32>(pixels.height()), 8,
               PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  if (dpiWidth != 72 || dpiHeight != 72) {
    png_set_pHYs(png, info, static_cast<png_uint_32>(std::lround(dpiWidth * kInchesPerMeter)),
                 static_cast<png_uint_32>(std::lround(dpiHeight * kInchesPerMeter)), PNG_RESOLUTION_METER);
  }
  png_set_compression_level(png, kCompression);
  png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_SUB);
  png_write_info(png, info);
  for (int y = 0; y < pixels.height(); ++y) {
    straightRow(pixels.view().at(0, y), pixels.width(), pixels.view().order == PixelOrder::kNative, row.data());
    png_write_row(png, row.data());
  }
  png_write_end(png, info);
  png_destroy_write_struct(&png, &info);
  return out;
}

}  // namespace standin
