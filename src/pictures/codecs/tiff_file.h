#pragma once
// A TIFF file open in libtiff, read through a byte source, and what its first page says about its samples.

#include <cstdint>
#include <string>

#include "pictures/late_tiff.h"
#include "pictures/orientation.h"
#include "pictures/picture_data.h"

namespace lumidex {

class TiffFile {
 public:
  // Reads the first directory; Handle() is null when that fails. No single allocation exceeds `mostBytes`.
  TiffFile(const ByteSource& source, std::int64_t mostBytes);
  ~TiffFile();
  TiffFile(const TiffFile&) = delete;
  TiffFile& operator=(const TiffFile&) = delete;

  TIFF* Handle() const { return tiff_; }
  const std::string& Message() const { return message_; }

  template <class Value>
  Value Field(std::uint32_t tag, Value otherwise) const {
    Value value = otherwise;
    return TIFFGetField(tiff_, tag, &value) == 1 ? value : otherwise;
  }
  bool HasProfile() const;
  // With libtiff's own default where the file has none.
  std::uint16_t FieldOrDefault(std::uint32_t tag) const;

 private:
  static int Fail(TIFF*, void* self, const char* module, const char* format, va_list arguments);
  static tmsize_t Read(thandle_t self, void* into, tmsize_t count);
  static toff_t Seek(thandle_t self, toff_t offset, int whence);

  const ByteSource& source_;
  std::uint64_t place_ = 0;
  std::string message_;
  TIFF* tiff_ = nullptr;
};

enum class TiffAlpha { None, Straight, Premultiplied };

// What the first of the samples beyond those of the colour is, by its number in the file.
TiffAlpha TiffAlphaOf(std::uint32_t kind);

struct TiffLayout {
  std::int64_t width = 0;
  std::int64_t height = 0;
  int bits = 1;           // a sample
  int samples = 1;        // a pixel, with alpha and whatever else there is
  int colourSamples = 1;  // those that make the colour: 1, 3 or 4
  int photometric = PHOTOMETRIC_MINISBLACK;
  int compression = COMPRESSION_NONE;
  int sampleFormat = SAMPLEFORMAT_UINT;
  bool separate = false;  // each sample in a plane of its own
  TiffAlpha alpha = TiffAlpha::None;
  Orientation orientation = Orientation::Upright;
  int chromaAcross = 1, chromaDown = 1;  // pixels for one pair of chroma samples
  bool operator==(const TiffLayout&) const = default;
};

TiffLayout ReadTiffLayout(const TiffFile& file);

}  // namespace lumidex
