#include "gallery/encoders/png_encoder.h"

#include <png.h>

#include <stdexcept>

#include "pictures/pixels.h"

namespace lumidex {
namespace {

// One PNG being written into memory. libpng reports through the error callback, which throws: its frames
// hold nothing that needs unwinding.
class PngFile {
 public:
  PngFile() {
    png_ = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, Fail, nullptr);
    info_ = png_create_info_struct(png_);
    png_set_write_fn(png_, &bytes_, Write, nullptr);
    png_set_compression_level(png_, 9);
  }
  ~PngFile() { png_destroy_write_struct(&png_, &info_); }
  PngFile(const PngFile&) = delete;
  PngFile& operator=(const PngFile&) = delete;

  void Header(Size size, int bits, int kind) {
    png_set_IHDR(png_, info_, static_cast<png_uint_32>(size.width), static_cast<png_uint_32>(size.height),
                 bits, kind, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  }
  void Colours(const Colours& palette) {
    std::vector<png_color> colours;
    for (const std::uint32_t word : palette)
      colours.push_back(
          {static_cast<png_byte>(word >> 16), static_cast<png_byte>(word >> 8), static_cast<png_byte>(word)});
    png_set_PLTE(png_, info_, colours.data(), static_cast<int>(colours.size()));
    png_set_filter(png_, 0, PNG_FILTER_NONE);
  }
  void Begin() {
    png_write_info(png_, info_);
    png_set_packing(png_);
  }
  void Row(std::span<const std::uint8_t> row) { png_write_row(png_, row.data()); }
  std::vector<std::uint8_t> End() {
    png_write_end(png_, info_);
    return std::move(bytes_);
  }

 private:
  [[noreturn]] static void Fail(png_structp, png_const_charp text) { throw std::runtime_error(text); }
  static void Write(png_structp png, png_bytep data, std::size_t count) {
    auto& bytes = *static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(png));
    bytes.insert(bytes.end(), data, data + count);
  }

  std::vector<std::uint8_t> bytes_;
  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
};

}  // namespace

std::vector<std::uint8_t> EncodePng(const Pixels& pixels) {
  const bool alpha = pixels.Format() != PixelFormat::Rgb;
  PngFile file;
  file.Header(pixels.GetSize(), 8, alpha ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB);
  file.Begin();
  std::vector<std::uint8_t> row;
  for (int y = 0; y < pixels.Height(); ++y) {
    row.clear();
    for (const std::uint32_t word : pixels.Row(y)) {
      for (const int shift : {16, 8, 0}) row.push_back(static_cast<std::uint8_t>(word >> shift));
      if (alpha) row.push_back(static_cast<std::uint8_t>(word >> 24));
    }
    file.Row(row);
  }
  return file.End();
}

std::vector<std::uint8_t> EncodePng(const IndexedPicture& picture) {
  const std::size_t colours = picture.palette.size();
  PngFile file;
  file.Header(picture.size,
              colours <= 2    ? 1
              : colours <= 4  ? 2
              : colours <= 16 ? 4
                              : 8,
              PNG_COLOR_TYPE_PALETTE);
  file.Colours(picture.palette);
  file.Begin();
  for (int y = 0; y < picture.size.height; ++y) file.Row(picture.Row(y));
  return file.End();
}

}  // namespace lumidex
