#include "gallery/encoders/tiff_encoder.h"

#include <tiffio.h>

#include <algorithm>
#include <cstdio>

#include "pictures/pixels.h"

namespace lumidex {
namespace {

// A file in memory, as the library's client calls want it.
struct MemoryFile {
  std::vector<std::uint8_t> bytes;
  std::size_t position = 0;
};

MemoryFile& File(thandle_t handle) {
  return *static_cast<MemoryFile*>(handle);
}

tmsize_t Read(thandle_t handle, void* into, tmsize_t count) {
  MemoryFile& file = File(handle);
  const std::size_t have = std::min(static_cast<std::size_t>(count), file.bytes.size() - file.position);
  std::copy_n(file.bytes.data() + file.position, have, static_cast<std::uint8_t*>(into));
  file.position += have;
  return static_cast<tmsize_t>(have);
}

tmsize_t Write(thandle_t handle, void* from, tmsize_t count) {
  MemoryFile& file = File(handle);
  const auto length = static_cast<std::size_t>(count);
  file.bytes.resize(std::max(file.bytes.size(), file.position + length));
  std::copy_n(static_cast<const std::uint8_t*>(from), length, file.bytes.data() + file.position);
  file.position += length;
  return count;
}

toff_t Seek(thandle_t handle, toff_t offset, int whence) {
  MemoryFile& file = File(handle);
  const toff_t base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? file.position : file.bytes.size();
  file.position = static_cast<std::size_t>(base + offset);
  file.bytes.resize(std::max(file.bytes.size(), file.position));
  return file.position;
}

int Close(thandle_t) {
  return 0;
}

toff_t FileSize(thandle_t handle) {
  return File(handle).bytes.size();
}

}  // namespace

std::vector<std::uint8_t> EncodeTiff(const Pixels& pixels) {
  MemoryFile file;
  TIFF* tiff = TIFFClientOpen("memory", "w", &file, Read, Write, Seek, Close, FileSize, nullptr, nullptr);
  TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, pixels.Width());
  TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, pixels.Height());
  TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
  TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 3);
  TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
  TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
  TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
  TIFFSetField(tiff, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL);
  TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, 64);
  std::vector<std::uint8_t> row;
  for (int y = 0; y < pixels.Height(); ++y) {
    row.clear();
    for (const std::uint32_t word : pixels.Row(y))
      for (const int shift : {16, 8, 0}) row.push_back(static_cast<std::uint8_t>(word >> shift));
    TIFFWriteScanline(tiff, row.data(), static_cast<std::uint32_t>(y), 0);
  }
  TIFFClose(tiff);
  return std::move(file.bytes);
}

}  // namespace lumidex
