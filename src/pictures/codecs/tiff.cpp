#include "pictures/codecs/tiff.h"

#include <algorithm>
#include <array>
#include <functional>
#include <limits>

#include "base/run_time_error.h"
#include "pictures/alpha.h"
#include "pictures/codecs/tiff_file.h"
#include "pictures/codecs/tiff_rows.h"
#include "pictures/small_file.h"

namespace lumidex {
namespace {

constexpr int MostSamples = 16;

[[noreturn]] void Refuse(const std::string& text) {
  throw RunTimeError(ErrorNumber::InvalidPicture, "TIFF: " + text);
}

// No table, strip or tile of a sane file is larger than its pixels or itself.
std::int64_t MostAllocation(std::uint64_t fileBytes) {
  return (std::int64_t{128} << 20) +
         static_cast<std::int64_t>(std::min<std::uint64_t>(fileBytes, 1U << 30)) * 2;
}

int DepthOf(const TiffLayout& layout) {
  const int bits = layout.bits * layout.samples;
  for (const int depth : {1, 2, 4, 8, 16, 24, 32}) {
    if (bits <= depth) return depth;
  }
  return bits <= 48 && layout.samples <= 3 ? 24 : 32;
}

// libtiff knows these best itself: it gives finished colours for them.
bool NeedsLibraryColours(const TiffLayout& layout) {
  const bool chromaTogether = layout.photometric == PHOTOMETRIC_YCBCR && !layout.separate &&
                              layout.compression != COMPRESSION_JPEG &&
                              (layout.chromaAcross > 1 || layout.chromaDown > 1);
  return layout.compression == COMPRESSION_OJPEG || layout.photometric == PHOTOMETRIC_LOGLUV ||
         layout.photometric == PHOTOMETRIC_LOGL || chromaTogether;
}

class TiffDecoder final : public Decoder {
 public:
  TiffDecoder(const PictureData& data, const OpenOptions& options)
      : source_(data.SharedSource()), fileBytes_(data.Size()), options_(options) {
    const TiffFile file(*source_, MostAllocation(fileBytes_));
    if (file.Handle() == nullptr) Refuse(file.Message());
    layout_ = ReadTiffLayout(file);
    if (options.asStored) layout_.orientation = Orientation::Upright;
    stored_ = CheckedSize(layout_.width, layout_.height, options.limits, fileBytes_);
    if (layout_.samples < 1 || layout_.samples > MostSamples) Refuse("this number of samples is not known");
    if (TIFFIsCODECConfigured(static_cast<std::uint16_t>(layout_.compression)) == 0) {
      Refuse("the compression is not known");
    }
    if (!NeedsLibraryColours(layout_) && !TiffRowReader::CanRead(layout_))
      Refuse("this kind of samples is not known");
    if (TIFFIsTiled(file.Handle()) != 0) CheckTiles(file);
    CheckWork();
    facts_.size = TurnedSize(stored_, layout_.orientation);
    facts_.bitsPerPixel = DepthOf(layout_);
    facts_.format = "TIFF";
  }

  Pixels Decode(const DecodeRequest&) const override {
    const bool alpha = layout_.alpha != TiffAlpha::None;
    Pixels pixels =
        Pixels::MakeUnfilled(stored_, alpha ? PixelFormat::Argb : PixelFormat::Rgb, options_.limits);
    TiffFile file(*source_, MostAllocation(fileBytes_));
    if (file.Handle() == nullptr) {
      FillFrom(0, pixels);
    } else if (NeedsLibraryColours(layout_)) {
      ReadLibraryColours(file, pixels);
    } else {
      ReadSamples(file, pixels);
    }
    if (pixels.Format() == PixelFormat::Argb) DeclareOpaqueIfSo(pixels);
    return Turned(pixels, layout_.orientation);
  }

 private:
  // Called with the picture's row, its first column, and the samples there.
  using RowSink = std::function<void(int y, int x, int width, std::span<const std::uint8_t* const> planes)>;

  void CheckTiles(const TiffFile& file) const {
    const std::uint64_t bytes = TIFFTileSize64(file.Handle());
    const std::uint64_t planes = layout_.separate ? static_cast<std::uint64_t>(layout_.samples) : 1;
    if (bytes == 0 || bytes * planes > static_cast<std::uint64_t>(MostAllocation(fileBytes_))) {
      Refuse("the tiles are too large");
    }
  }

  // Numbers with a point are read twice, first for their range; Lab colours take as long. Turning needs the
  // pixels twice.
  void CheckWork() const {
    const bool slow = layout_.sampleFormat == SAMPLEFORMAT_IEEEFP ||
                      layout_.photometric == PHOTOMETRIC_CIELAB || layout_.photometric == PHOTOMETRIC_ICCLAB;
    const std::int64_t unpacked = static_cast<std::int64_t>(PackedBytes(stored_.width)) *
                                  (layout_.separate ? layout_.samples : 1) * (slow ? 2 : 1);
    const std::int64_t shown =
        std::int64_t{4} * stored_.width * (layout_.orientation == Orientation::Upright ? 1 : 2);
    CheckSmallFile(std::max(unpacked, shown) * stored_.height, fileBytes_);
  }

  static void FillFrom(int first, Pixels& pixels) {
    for (int y = first; y < pixels.Height(); ++y) std::ranges::fill(pixels.Row(y), blankPixel);
  }

  void ReadSamples(const TiffFile& file, Pixels& pixels) const {
    TiffLayout layout = layout_;
    if (layout.compression == COMPRESSION_JPEG && layout.photometric == PHOTOMETRIC_YCBCR &&
        !layout.separate) {
      TIFFSetField(file.Handle(), TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
      layout.photometric = PHOTOMETRIC_RGB;
    }
    double low = 0, high = 1;
    if (layout.sampleFormat == SAMPLEFORMAT_IEEEFP) FindRange(file, layout, low, high);
    const std::unique_ptr<ColourProfile> profile = options_.asStored ? nullptr : Profile(file);
    const bool inks = layout.colourSamples == 4;
    TiffRowReader reader(file, layout, inks ? profile.get() : nullptr, low, high);
    FillFrom(0, pixels);
    ReadRows(file, layout, [&](int y, int x, int width, std::span<const std::uint8_t* const> planes) {
      const auto row = pixels.Row(y).subspan(static_cast<std::size_t>(x), static_cast<std::size_t>(width));
      reader.Read(planes, row);
      if (profile && !inks) profile->Convert(row);
    });
  }

  // Numbers with a point usually run from 0 to 1; where they do not, the whole of their range is shown.
  void FindRange(const TiffFile& file, const TiffLayout& layout, double& low, double& high) const {
    double least = 0, most = 1;
    ReadRows(file, layout, [&](int, int, int width, std::span<const std::uint8_t* const> planes) {
      const std::size_t count =
          static_cast<std::size_t>(width) * (layout.separate ? 1U : static_cast<std::size_t>(layout.samples));
      for (const std::uint8_t* plane : planes) JoinRange(layout, plane, count, least, most);
    });
    low = least;
    high = most;
  }

  std::unique_ptr<ColourProfile> Profile(const TiffFile& file) const {
    std::uint32_t count = 0;
    void* bytes = nullptr;
    if (TIFFGetField(file.Handle(), TIFFTAG_ICCPROFILE, &count, &bytes) != 1) return nullptr;
    return ColourProfile::FromIcc({static_cast<const std::uint8_t*>(bytes), count},
                                  layout_.colourSamples == 4 ? ProfileInput::Cmyk : ProfileInput::Words,
                                  std::int64_t{stored_.width} * stored_.height);
  }

  void ReadRows(const TiffFile& file, const TiffLayout& layout, const RowSink& sink) const {
    if (TIFFIsTiled(file.Handle()) != 0) {
      ReadTiles(file, layout, sink);
    } else if (layout.separate) {
      ReadSeparateStrips(file, layout, sink);
    } else {
      ReadScanlines(file, sink);
    }
  }

  void ReadScanlines(const TiffFile& file, const RowSink& sink) const {
    TIFF* tiff = file.Handle();
    const std::uint64_t rowBytes =
        std::max<std::uint64_t>(TIFFScanlineSize64(tiff), PackedBytes(stored_.width));
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(rowBytes));
    const std::int64_t rowsPerStrip =
        std::max<std::int64_t>(file.Field<std::uint32_t>(TIFFTAG_ROWSPERSTRIP, 0xFFFFFFFF), 1);
    for (std::int64_t y = 0; y < stored_.height; ++y) {
      if (TIFFReadScanline(tiff, bytes.data(), static_cast<std::uint32_t>(y)) != 1) {
        // The rest of the strip is lost; the next one starts anew.
        y = (y / rowsPerStrip + 1) * rowsPerStrip - 1;
        continue;
      }
      const std::array<const std::uint8_t*, 1> planes = {bytes.data()};
      sink(static_cast<int>(y), 0, stored_.width, planes);
    }
  }

  // What `width` pixels take, whatever libtiff reckons.
  std::uint64_t PackedBytes(std::int64_t width) const {
    const int samples = layout_.separate ? 1 : layout_.samples;
    return (static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(layout_.bits * samples) + 7) / 8;
  }

  // Chroma planes may be smaller than the picture; their samples are then repeated.
  void ReadSeparateStrips(const TiffFile& file, const TiffLayout& layout, const RowSink& sink) const {
    TIFF* tiff = file.Handle();
    const auto samples = static_cast<std::size_t>(layout.samples);
    const std::int64_t stripRows = std::clamp<std::int64_t>(
        file.Field<std::uint32_t>(TIFFTAG_ROWSPERSTRIP, 0xFFFFFFFF), 1, stored_.height);
    const bool reduced = layout.chromaAcross > 1 || layout.chromaDown > 1;
    const std::uint64_t rowBytes = PackedBytes(stored_.width);
    if (rowBytes * static_cast<std::uint64_t>(stripRows) * samples >
        static_cast<std::uint64_t>(MostAllocation(fileBytes_)))
      return;
    std::vector<std::vector<std::uint8_t>> strips(samples);
    std::vector<std::vector<std::uint8_t>> wide(samples, std::vector<std::uint8_t>(reduced ? rowBytes : 0));
    std::vector<const std::uint8_t*> planes(samples);
    for (std::int64_t top = 0; top < stored_.height; top += stripRows) {
      const std::int64_t rows = std::min(stripRows, stored_.height - top);
      bool any = false;
      for (std::size_t sample = 0; sample < samples; ++sample) {
        const bool chroma = reduced && (sample == 1 || sample == 2);
        const std::int64_t across = chroma ? layout.chromaAcross : 1, down = chroma ? layout.chromaDown : 1;
        const std::uint64_t bytes = PackedBytes((stored_.width + across - 1) / across) *
                                    static_cast<std::uint64_t>((rows + down - 1) / down);
        strips[sample].assign(static_cast<std::size_t>(rowBytes) * static_cast<std::size_t>(rows), 0);
        const std::uint32_t strip =
            TIFFComputeStrip(tiff, static_cast<std::uint32_t>(top), static_cast<std::uint16_t>(sample));
        any =
            TIFFReadEncodedStrip(tiff, strip, strips[sample].data(), static_cast<tmsize_t>(bytes)) > 0 || any;
      }
      for (std::int64_t i = 0; any && i < rows; ++i) {
        for (std::size_t sample = 0; sample < samples; ++sample) {
          planes[sample] = strips[sample].data() + static_cast<std::size_t>(i) * rowBytes;
          if (reduced && (sample == 1 || sample == 2)) {
            Widen(layout, strips[sample], i, wide[sample]);
            planes[sample] = wide[sample].data();
          }
        }
        sink(static_cast<int>(top + i), 0, stored_.width, planes);
      }
    }
  }

  void Widen(const TiffLayout& layout, const std::vector<std::uint8_t>& plane, std::int64_t row,
             std::vector<std::uint8_t>& wide) const {
    const std::int64_t width = (stored_.width + layout.chromaAcross - 1) / layout.chromaAcross;
    const std::int64_t start = row / layout.chromaDown * width;
    for (std::size_t x = 0; x < wide.size(); ++x) {
      wide[x] = plane[static_cast<std::size_t>(start) + x / static_cast<std::size_t>(layout.chromaAcross)];
    }
  }

  void ReadTiles(const TiffFile& file, const TiffLayout& layout, const RowSink& sink) const {
    TIFF* tiff = file.Handle();
    const std::size_t planeCount = layout.separate ? static_cast<std::size_t>(layout.samples) : 1;
    const std::int64_t tileWidth = file.Field<std::uint32_t>(TIFFTAG_TILEWIDTH, 0);
    const std::int64_t tileHeight = file.Field<std::uint32_t>(TIFFTAG_TILELENGTH, 0);
    const std::uint64_t tileBytes = TIFFTileSize64(tiff), rowBytes = TIFFTileRowSize64(tiff);
    if (tileWidth < 1 || tileHeight < 1 || rowBytes < PackedBytes(tileWidth)) return;
    std::vector<std::vector<std::uint8_t>> tiles(
        planeCount, std::vector<std::uint8_t>(static_cast<std::size_t>(tileBytes)));
    std::vector<const std::uint8_t*> planes(planeCount);
    for (std::int64_t top = 0; top < stored_.height; top += tileHeight) {
      for (std::int64_t left = 0; left < stored_.width; left += tileWidth) {
        bool any = false;
        for (std::size_t plane = 0; plane < planeCount; ++plane) {
          std::ranges::fill(tiles[plane], std::uint8_t{0});
          any = TIFFReadTile(tiff, tiles[plane].data(), static_cast<std::uint32_t>(left),
                             static_cast<std::uint32_t>(top), 0, static_cast<std::uint16_t>(plane)) > 0 ||
                any;
        }
        const int width = static_cast<int>(std::min(tileWidth, stored_.width - left));
        for (std::int64_t i = 0; any && i < std::min(tileHeight, stored_.height - top); ++i) {
          const std::uint64_t offset = static_cast<std::uint64_t>(i) * rowBytes;
          if (offset + rowBytes > tileBytes) break;
          for (std::size_t plane = 0; plane < planeCount; ++plane)
            planes[plane] = tiles[plane].data() + offset;
          sink(static_cast<int>(top + i), static_cast<int>(left), width, planes);
        }
      }
    }
  }

  void ReadLibraryColours(const TiffFile& file, Pixels& pixels) const {
    FillFrom(0, pixels);
    TIFFRGBAImage image;
    std::array<char, 1024> message{};
    if (TIFFRGBAImageBegin(&image, file.Handle(), 0, message.data()) != 1) return;
    image.req_orientation = image.orientation;  // turning is done for all formats alike
    const bool got = TIFFRGBAImageGet(&image, pixels.Data(), static_cast<std::uint32_t>(stored_.width),
                                      static_cast<std::uint32_t>(stored_.height)) == 1;
    TIFFRGBAImageEnd(&image);
    // Red stands in the low byte.
    for (int y = 0; y < pixels.Height(); ++y) {
      for (std::uint32_t& word : pixels.Row(y)) {
        word = 0xFF000000U | (word & 0xFF) << 16 | (word & 0xFF00) | (word >> 16 & 0xFF);
      }
    }
    if (got) pixels.SetFormat(PixelFormat::Rgb);
  }

  std::shared_ptr<const ByteSource> source_;
  std::uint64_t fileBytes_;
  OpenOptions options_;
  TiffLayout layout_;
  Size stored_;
};

}  // namespace

Match MatchTiff(const PictureData& data) {
  const Bytes head = data.Head();
  if (head.size() < 8) return Match::No;
  const bool little = head[0] == 'I' && head[1] == 'I' && (head[2] == 42 || head[2] == 43) && head[3] == 0;
  const bool big = head[0] == 'M' && head[1] == 'M' && head[2] == 0 && (head[3] == 42 || head[3] == 43);
  return little || big ? Match::Sure : Match::No;
}

std::unique_ptr<Decoder> OpenTiff(const PictureData& data, const OpenOptions& options) {
  return std::make_unique<TiffDecoder>(data, options);
}

}  // namespace lumidex
