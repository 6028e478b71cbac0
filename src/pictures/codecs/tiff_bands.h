#pragma once
// Reads the samples of a TIFF from top to bottom, in bands of as many rows as the file keeps together:
// strips, rows of tiles, with the samples of a pixel side by side or in planes of their own.

#include <functional>
#include <span>
#include <vector>

#include "pictures/codecs/tiff_file.h"
#include "pictures/pixels.h"

namespace lumidex {

class TiffBands {
 public:
  // `mostBytes` is what a band may take in memory. The file must outlive this.
  TiffBands(const TiffFile& file, const TiffLayout& layout, Size size, std::int64_t mostBytes);

  // False when the file's layout makes no sense or a band would take too much.
  bool IsReadable() const { return isReadable_; }
  // Rows of a band; the last one may have fewer.
  int RowsInBand() const { return bandRows_; }

  // Where samples go: those of `width` pixels from column `x` of row `row` of the band, in one row of bytes
  // or in one for each plane. Places for which the file has no samples are left out.
  using Sink = std::function<void(int row, int x, int width, std::span<const std::uint8_t* const> planes)>;
  // Reads the next band, up to the last; calls the sink from the top row to the bottom one, with the tiles of
  // a row one after the other.
  void ReadNext(const Sink& sink);

 private:
  std::size_t PackedBytes(std::int64_t width) const;
  void ReadStrip(int rows, const Sink& sink);
  void ReadLines(int rows, const Sink& sink);
  void ReadPlanes(int rows, const Sink& sink);
  bool ReadPlane(int sample, int rows, std::vector<std::uint8_t>& plane);
  void ReadTiles(int rows, const Sink& sink);

  const TiffFile& file_;
  TiffLayout layout_;
  Size size_;
  bool isReadable_ = false;
  bool tiled_ = false;
  bool byLines_ = false;  // strips are not read whole
  bool differs_ = false;  // planes hold differences that are added up here
  int bandRows_ = 1;
  int stripRows_ = 1;
  int top_ = 0;
  int lostBefore_ = 0;        // the row at which a strip begins again after one that was damaged
  std::size_t rowBytes_ = 0;  // of a strip's or tile's row
  std::size_t planeBytes_ = 0;
  std::vector<std::vector<std::uint8_t>> planes_;  // of the band; empty until one is read
  std::vector<std::uint8_t> wide_[2];  // a row of each chroma plane, brought to the picture's width
};

}  // namespace lumidex
