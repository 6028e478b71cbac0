#include "pictures/codecs/tiff_bands.h"

#include <algorithm>
#include <array>
#include <limits>

namespace lumidex {
namespace {

// Strips beyond this are read line by line: nothing is won by holding more.
constexpr std::uint64_t largestStrip = std::uint64_t{1} << 20;

bool IsReducedPlane(const TiffLayout& layout, int sample) {
  return (layout.chromaAcross > 1 || layout.chromaDown > 1) && (sample == 1 || sample == 2);
}

// Each sample is kept as its difference from the one before in its row.
void AddUpDifferences(std::span<std::uint8_t> row) {
  for (std::size_t x = 1; x < row.size(); ++x) row[x] = static_cast<std::uint8_t>(row[x] + row[x - 1]);
}

}  // namespace

TiffBands::TiffBands(const TiffFile& file, const TiffLayout& layout, Size size, std::int64_t mostBytes)
    : file_(file), layout_(layout), size_(size), tiled_(TIFFIsTiled(file.Handle()) != 0) {
  TIFF* tiff = file.Handle();
  const std::uint64_t most = static_cast<std::uint64_t>(mostBytes);
  const std::size_t planes = layout.separate ? static_cast<std::size_t>(layout.samples) : 1;
  std::uint64_t planeBytes = 0;
  if (tiled_) {
    const std::int64_t width = file.Field<std::uint32_t>(TIFFTAG_TILEWIDTH, 0);
    const std::int64_t height = file.Field<std::uint32_t>(TIFFTAG_TILELENGTH, 0);
    planeBytes = TIFFTileSize64(tiff);
    const std::uint64_t rowBytes = TIFFTileRowSize64(tiff);
    if (width < 1 || height < 1 || rowBytes == 0 || planeBytes == 0 || planeBytes > most / planes) return;
    if (rowBytes < PackedBytes(width)) return;
    rowBytes_ = static_cast<std::size_t>(rowBytes);
    bandRows_ = static_cast<int>(std::min<std::int64_t>(height, size.height));
  } else {
    stripRows_ = static_cast<int>(std::clamp<std::int64_t>(
        file.Field<std::uint32_t>(TIFFTAG_ROWSPERSTRIP, 0xFFFFFFFF), 1, size.height));
    rowBytes_ = layout.separate ? PackedBytes(size.width)
                                : std::max<std::size_t>(static_cast<std::size_t>(TIFFScanlineSize64(tiff)),
                                                        PackedBytes(size.width));
    bandRows_ = stripRows_;
    planeBytes = std::uint64_t{rowBytes_} * static_cast<std::uint64_t>(stripRows_);
    if (layout.separate && planeBytes > most / planes) return;
    if (!layout.separate && planeBytes > largestStrip) {
      bandRows_ = 1;
      planeBytes = rowBytes_;
    }
    // What the JPEG decoder is told of colours would not survive starting anew after an error.
    byLines_ = bandRows_ == 1 || layout.compression == COMPRESSION_JPEG;
    // The library would add up over the width of the picture, also where a plane is narrower.
    differs_ = layout.separate && (IsReducedPlane(layout, 1) || IsReducedPlane(layout, 2)) &&
               layout.bits == 8 && file.FieldOrDefault(TIFFTAG_PREDICTOR) == PREDICTOR_HORIZONTAL;
    if (differs_) TIFFSetField(tiff, TIFFTAG_PREDICTOR, PREDICTOR_NONE);
  }
  planes_.resize(planes);
  planeBytes_ = static_cast<std::size_t>(planeBytes);
  isReadable_ = true;
}

// What `width` pixels take, whatever libtiff reckons.
std::size_t TiffBands::PackedBytes(std::int64_t width) const {
  const int samples = layout_.separate ? 1 : layout_.samples;
  return static_cast<std::size_t>(
      (static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(layout_.bits * samples) + 7) / 8);
}

void TiffBands::ReadNext(const Sink& sink) {
  for (std::vector<std::uint8_t>& plane : planes_) plane.resize(planeBytes_);
  const int rows = std::min(bandRows_, size_.height - top_);
  if (tiled_) {
    ReadTiles(rows, sink);
  } else if (layout_.separate) {
    ReadPlanes(rows, sink);
  } else {
    ReadStrip(rows, sink);
  }
  top_ += rows;
}

void TiffBands::ReadStrip(int rows, const Sink& sink) {
  if (byLines_) return ReadLines(rows, sink);
  TIFF* tiff = file_.Handle();
  const auto bytes = static_cast<tmsize_t>(rowBytes_ * static_cast<std::size_t>(rows));
  const std::uint32_t strip = TIFFComputeStrip(tiff, static_cast<std::uint32_t>(top_), 0);
  if (TIFFReadEncodedStrip(tiff, strip, planes_[0].data(), bytes) != bytes) {
    // A damaged one is shown as far as it goes, which reading it from its start again by lines tells.
    byLines_ = true;
    if (TIFFSetDirectory(tiff, 0) == 1) ReadLines(rows, sink);
    return;
  }
  for (int row = 0; row < rows; ++row) {
    const std::array planes = {static_cast<const std::uint8_t*>(planes_[0].data()) +
                               rowBytes_ * static_cast<std::size_t>(row)};
    sink(row, 0, size_.width, planes);
  }
}

void TiffBands::ReadLines(int rows, const Sink& sink) {
  for (int row = 0; row < rows && top_ + row >= lostBefore_; ++row) {
    const int y = top_ + row;
    if (TIFFReadScanline(file_.Handle(), planes_[0].data(), static_cast<std::uint32_t>(y), 0) != 1) {
      lostBefore_ = (y / stripRows_ + 1) * stripRows_;
      return;
    }
    const std::array planes = {static_cast<const std::uint8_t*>(planes_[0].data())};
    sink(row, 0, size_.width, planes);
  }
}

bool TiffBands::ReadPlane(int sample, int rows, std::vector<std::uint8_t>& plane) {
  TIFF* tiff = file_.Handle();
  const bool reduced = IsReducedPlane(layout_, sample);
  const int across = reduced ? layout_.chromaAcross : 1, down = reduced ? layout_.chromaDown : 1;
  const std::size_t width = PackedBytes((size_.width + across - 1) / across);
  const std::size_t bytes = width * static_cast<std::size_t>((rows + down - 1) / down);
  std::ranges::fill(plane, std::uint8_t{0});
  const std::uint32_t strip =
      TIFFComputeStrip(tiff, static_cast<std::uint32_t>(top_), static_cast<std::uint16_t>(sample));
  if (TIFFReadEncodedStrip(tiff, strip, plane.data(), static_cast<tmsize_t>(bytes)) <= 0) return false;
  if (differs_)
    for (std::size_t at = 0; at < bytes; at += width) AddUpDifferences(std::span(plane).subspan(at, width));
  return true;
}

void TiffBands::ReadPlanes(int rows, const Sink& sink) {
  bool any = false;
  for (int sample = 0; sample < layout_.samples; ++sample)
    any = ReadPlane(sample, rows, planes_[static_cast<std::size_t>(sample)]) || any;
  if (!any) return;
  std::vector<const std::uint8_t*> planes(planes_.size());
  for (int row = 0; row < rows; ++row) {
    for (int sample = 0; sample < layout_.samples; ++sample) {
      const auto& plane = planes_[static_cast<std::size_t>(sample)];
      const std::uint8_t*& place = planes[static_cast<std::size_t>(sample)];
      place = plane.data() + rowBytes_ * static_cast<std::size_t>(row);
      if (!IsReducedPlane(layout_, sample)) continue;
      // Each sample stands for several pixels.
      auto& wide = wide_[sample - 1];
      wide.resize(rowBytes_);
      const int width = (size_.width + layout_.chromaAcross - 1) / layout_.chromaAcross;
      const std::uint8_t* const narrow =
          plane.data() +
          std::size_t{static_cast<unsigned>(row / layout_.chromaDown)} * static_cast<unsigned>(width);
      for (std::size_t x = 0; x < wide.size(); ++x)
        wide[x] = narrow[x / static_cast<std::size_t>(layout_.chromaAcross)];
      place = wide.data();
    }
    sink(row, 0, size_.width, planes);
  }
}

void TiffBands::ReadTiles(int rows, const Sink& sink) {
  TIFF* tiff = file_.Handle();
  const int tileWidth = static_cast<int>(std::min<std::int64_t>(
      file_.Field<std::uint32_t>(TIFFTAG_TILEWIDTH, 0), std::numeric_limits<int>::max() - size_.width));
  std::vector<const std::uint8_t*> planes(planes_.size());
  for (int left = 0; left < size_.width; left += tileWidth) {
    bool any = false;
    for (std::size_t i = 0; i < planes_.size(); ++i) {
      std::ranges::fill(planes_[i], std::uint8_t{0});
      any = TIFFReadTile(tiff, planes_[i].data(), static_cast<std::uint32_t>(left),
                         static_cast<std::uint32_t>(top_), 0, static_cast<std::uint16_t>(i)) > 0 ||
            any;
    }
    const int width = std::min(tileWidth, size_.width - left);
    for (int row = 0; any && row < rows; ++row) {
      const std::size_t offset = static_cast<std::size_t>(row) * rowBytes_;
      if (offset + rowBytes_ > planes_[0].size()) break;
      for (std::size_t i = 0; i < planes_.size(); ++i) planes[i] = planes_[i].data() + offset;
      sink(row, left, width, planes);
    }
  }
}

}  // namespace lumidex
