#include "pictures/support/library_writers.h"

#include <png.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

#include "gallery/encoders/byte_writer.h"

namespace lumidex {
std::vector<std::uint8_t> WriteJpeg(Size size, const std::vector<std::uint8_t>& samples,
                                    const JpegKindOptions& options) {
  jpeg_compress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* out = nullptr;
  unsigned long count = 0;
  jpeg_mem_dest(&info, &out, &count);
  info.image_width = static_cast<JDIMENSION>(size.width);
  info.image_height = static_cast<JDIMENSION>(size.height);
  info.input_components = options.components;
  info.in_color_space = options.components == 1   ? JCS_GRAYSCALE
                        : options.components == 3 ? JCS_RGB
                                                  : JCS_CMYK;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, 100, TRUE);
  info.comp_info[0].h_samp_factor = info.comp_info[0].v_samp_factor = 1;
  info.arith_code = options.arithmetic ? TRUE : FALSE;
  if (options.components == 4) info.write_Adobe_marker = options.adobe ? TRUE : FALSE;
  if (options.progressive) jpeg_simple_progression(&info);
  jpeg_start_compress(&info, TRUE);
  if (!options.icc.empty()) {
    jpeg_write_icc_profile(&info, options.icc.data(), static_cast<unsigned>(options.icc.size()));
  }
  std::vector<std::uint8_t> row(static_cast<std::size_t>(size.width * options.components));
  for (int y = 0; y < size.height; ++y) {
    std::copy_n(samples.begin() + static_cast<std::ptrdiff_t>(row.size()) * y, row.size(), row.begin());
    JSAMPROW rows[] = {row.data()};
    jpeg_write_scanlines(&info, rows, 1);
  }
  jpeg_finish_compress(&info);
  jpeg_destroy_compress(&info);
  std::vector<std::uint8_t> bytes(out, out + count);
  std::free(out);
  return bytes;
}

std::vector<std::uint8_t> WithOrientation(const std::vector<std::uint8_t>& jpeg, int orientation,
                                          bool bigEndian) {
  ByteWriter block;
  const auto value = static_cast<std::uint32_t>(orientation);
  block.Text("Exif").Zeros(2);
  if (bigEndian) {
    block.Text("MM").U16Be(42).U32Be(8).U16Be(1).U16Be(0x0112).U16Be(3).U32Be(1).U16Be(value).U16Be(0).U32Be(
        0);
  } else {
    block.Text("II").U16Le(42).U32Le(8).U16Le(1).U16Le(0x0112).U16Le(3).U32Le(1).U16Le(value).U16Le(0).U32Le(
        0);
  }
  ByteWriter file;
  file.Append(std::span(jpeg).first(2));
  file.U8(0xFF).U8(0xE1).U16Be(static_cast<std::uint32_t>(block.Size() + 2)).Add(block.Bytes());
  file.Append(std::span(jpeg).subspan(2));
  return file.Take();
}

std::vector<std::uint8_t> WritePng(Size size, const std::vector<std::uint8_t>& rows,
                                   const PngKindOptions& options) {
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  std::vector<std::uint8_t> bytes;
  png_set_write_fn(
      png, &bytes,
      [](png_structp writer, png_bytep from, std::size_t count) {
        auto& into = *static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(writer));
        into.insert(into.end(), from, from + count);
      },
      nullptr);
  png_set_IHDR(png, info, static_cast<png_uint_32>(size.width), static_cast<png_uint_32>(size.height),
               options.bitDepth, options.colourType,
               options.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_BASE,
               PNG_FILTER_TYPE_BASE);
  if (!options.icc.empty()) {
    png_set_iCCP(png, info, "profile", PNG_COMPRESSION_TYPE_BASE, options.icc.data(),
                 static_cast<png_uint_32>(options.icc.size()));
  }
  if (!options.palette.empty()) {
    std::vector<png_color> entries;
    for (std::size_t i = 0; i + 2 < options.palette.size(); i += 3) {
      entries.push_back({options.palette[i], options.palette[i + 1], options.palette[i + 2]});
    }
    png_set_PLTE(png, info, entries.data(), static_cast<int>(entries.size()));
  }
  if (!options.transparency.empty()) {
    png_set_tRNS(png, info, options.transparency.data(), static_cast<int>(options.transparency.size()),
                 nullptr);
  }
  png_write_info(png, info);
  const std::size_t rowBytes = rows.size() / static_cast<std::size_t>(size.height);
  std::vector<std::uint8_t> copy = rows;
  std::vector<png_bytep> pointers;
  for (std::size_t y = 0; y < static_cast<std::size_t>(size.height); ++y)
    pointers.push_back(copy.data() + y * rowBytes);
  png_write_image(png, pointers.data());
  png_write_end(png, nullptr);
  png_destroy_write_struct(&png, &info);
  return bytes;
}

}  // namespace lumidex
