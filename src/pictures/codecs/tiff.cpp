#include "pictures/codecs/tiff.h"

#include <algorithm>
#include <array>
#include <optional>

#include "pictures/alpha.h"
#include "pictures/codecs/tiff_bands.h"
#include "pictures/codecs/tiff_facts.h"
#include "pictures/codecs/tiff_file.h"
#include "pictures/codecs/tiff_range.h"
#include "pictures/codecs/tiff_rows.h"
#include "pictures/file_decoder.h"
#include "pictures/refusal.h"
#include "pictures/row_target.h"
#include "pictures/small_file.h"

namespace lumidex {
namespace {

constexpr int MostSamples = 16;

// No table, strip or tile of a sane file is larger than its pixels or itself.
std::int64_t MostAllocation(std::uint64_t fileBytes) {
  return (std::int64_t{128} << 20) +
         static_cast<std::int64_t>(std::min<std::uint64_t>(fileBytes, 1U << 30)) * 2;
}

bool IsConfigured(const TiffLayout& layout) {
  return TIFFIsCODECConfigured(static_cast<std::uint16_t>(layout.compression)) != 0;
}

// libtiff knows these best itself: it gives finished colours for them.
bool NeedsLibraryColours(const TiffLayout& layout) {
  const bool chromaTogether = layout.photometric == PHOTOMETRIC_YCBCR && !layout.separate &&
                              layout.compression != COMPRESSION_JPEG &&
                              (layout.chromaAcross > 1 || layout.chromaDown > 1);
  return layout.compression == COMPRESSION_OJPEG || layout.photometric == PHOTOMETRIC_LOGLUV ||
         layout.photometric == PHOTOMETRIC_LOGL || chromaTogether;
}

class TiffDecoder final : public FileDecoder {
 public:
  TiffDecoder(const PictureData& data, const OpenOptions& options) : FileDecoder(data, options, "TIFF") {
    std::optional<TiffFile> file;
    std::optional<TiffFacts> facts = ReadTiffFacts(Data());
    if (!facts || !IsConfigured(facts->layout)) facts = AskLibrary(file);
    layout_ = facts->layout;
    if (options.asStored) layout_.orientation = Orientation::Upright;
    stored_ = Checked(layout_.width, layout_.height);
    if (layout_.samples < 1 || layout_.samples > MostSamples)
      Refuse("TIFF: this number of samples is not known");
    if (!IsConfigured(layout_)) Refuse("TIFF: the compression is not known");
    if (!NeedsLibraryColours(layout_) && !TiffRowReader::CanRead(layout_))
      Refuse("TIFF: this kind of samples is not known");
    if (file && !NeedsLibraryColours(layout_) && !BandsOf(*file, layout_).IsReadable())
      Refuse("TIFF: the strips or tiles are too large");
    CheckWork(facts->hasProfile);
    SetShape(TurnedSize(stored_, layout_.orientation), layout_.bits * layout_.samples, layout_.samples);
    facts_.reducible = !NeedsLibraryColours(layout_);
  }

  Pixels Decode(const DecodeRequest& request) const override {
    const PixelFormat format = layout_.alpha == TiffAlpha::None ? PixelFormat::Rgb : PixelFormat::Argb;
    TiffFile file(Data().Source(), MostAllocation(Data().Size()));
    if (file.Handle() == nullptr) return Pixels::Make(facts_.size, PixelFormat::Rgb, blankPixel, Limits());
    Pixels pixels = NeedsLibraryColours(layout_)
                        ? ReadLibraryColours(file, format)
                        : ReadSamples(file, format, TurnedSize(SizeToMake(request), layout_.orientation));
    if (pixels.Format() == PixelFormat::Argb) DeclareOpaqueIfSo(pixels);
    return Turned(pixels, layout_.orientation);
  }

 private:
  // What is not plain to us is for libtiff to read or to refuse.
  TiffFacts AskLibrary(std::optional<TiffFile>& file) const {
    file.emplace(Data().Source(), MostAllocation(Data().Size()));
    if (file->Handle() == nullptr) Refuse("TIFF: " + file->Message());
    return LibraryTiffFacts(*file);
  }

  TiffBands BandsOf(const TiffFile& file, const TiffLayout& layout) const {
    return {file, layout, stored_, MostAllocation(Data().Size())};
  }

  // Numbers with a point are read twice, first for their range; Lab colours take as long, and so does a
  // profile, three times as long one for inks. Turning needs the pixels twice.
  void CheckWork(bool hasProfile) const {
    const bool slow = layout_.sampleFormat == SAMPLEFORMAT_IEEEFP ||
                      layout_.photometric == PHOTOMETRIC_CIELAB || layout_.photometric == PHOTOMETRIC_ICCLAB;
    const std::int64_t unpacked = (std::int64_t{stored_.width} * layout_.bits * layout_.samples + 7) / 8;
    const std::int64_t shown = std::int64_t{4} * stored_.width;
    const bool converts = hasProfile && !Options().asStored;
    const std::int64_t row =
        std::max(unpacked * (slow ? 2 : 1), shown * (layout_.orientation == Orientation::Upright ? 1 : 2)) +
        (converts ? shown * (layout_.colourSamples == 4 ? 3 : 1) : 0);
    CheckSmallFile(row * stored_.height, Data().Size());
  }

  Pixels ReadSamples(const TiffFile& file, PixelFormat format, Size wanted) const {
    TiffLayout layout = layout_;
    if (layout.compression == COMPRESSION_JPEG && layout.photometric == PHOTOMETRIC_YCBCR &&
        !layout.separate) {
      TIFFSetField(file.Handle(), TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
      layout.photometric = PHOTOMETRIC_RGB;
    }
    TiffRange range;
    if (layout.sampleFormat == SAMPLEFORMAT_IEEEFP) range = FindRange(file, layout);
    // A picture in inks made smaller is converted afterwards, when few pixels are left of it.
    const bool convertsLate =
        layout.colourSamples == 4 && format == PixelFormat::Rgb && IsReducedFor(stored_, wanted);
    const std::unique_ptr<ColourProfile> profile =
        Options().asStored ? nullptr : Profile(file, convertsLate ? wanted : stored_);
    const std::uint32_t blank = convertsLate ? 0 : blankPixel;
    TiffRowReader reader(file, layout, profile.get(), range);
    TiffBands bands = BandsOf(file, layout);
    RowTarget target(stored_, format,
                     {.wanted = wanted, .rowsAtOnce = bands.RowsInBand(), .limits = Limits()});
    std::vector<bool> seen(static_cast<std::size_t>(bands.RowsInBand()));
    while (target.RowsMissing() > 0) {
      std::fill(seen.begin(), seen.end(), false);
      bands.ReadNext([&](int row, int x, int width, std::span<const std::uint8_t* const> planes) {
        const auto words = target.Row(row);
        const auto place = seen.begin() + row;
        if (width < stored_.width && !*place) std::ranges::fill(words, blank);
        *place = true;
        const auto part = words.subspan(static_cast<std::size_t>(x), static_cast<std::size_t>(width));
        convertsLate ? reader.ReadInks(planes, part) : reader.Read(planes, part);
      });
      const int rows = std::min(bands.RowsInBand(), target.RowsMissing());
      for (int row = 0; row < rows; ++row)
        if (!seen[static_cast<std::size_t>(row)]) std::ranges::fill(target.Row(row), blank);
      target.Add(rows);
    }
    Pixels pixels = target.Finish(blank);
    for (int y = 0; convertsLate && y < pixels.Height(); ++y) reader.ConvertInks(pixels.Row(y));
    return pixels;
  }

  TiffRange FindRange(const TiffFile& file, const TiffLayout& layout) const {
    TiffRangeFinder finder(layout, stored_);
    TiffBands bands = BandsOf(file, layout);
    for (int row = 0; row < stored_.height; row += bands.RowsInBand())
      bands.ReadNext([&](int, int, int width, std::span<const std::uint8_t* const> planes) {
        finder.Add(planes, static_cast<std::size_t>(width));
      });
    return finder.Range();
  }

  std::unique_ptr<ColourProfile> Profile(const TiffFile& file, Size size) const {
    std::uint32_t count = 0;
    void* bytes = nullptr;
    if (TIFFGetField(file.Handle(), TIFFTAG_ICCPROFILE, &count, &bytes) != 1) return nullptr;
    ProfileInput input = TiffRowReader::IsDeep(layout_) ? ProfileInput::DeepWords : ProfileInput::Words;
    if (layout_.colourSamples == 4) input = ProfileInput::Cmyk;
    return ColourProfile::FromIcc({static_cast<const std::uint8_t*>(bytes), count}, input,
                                  std::int64_t{size.width} * size.height);
  }

  Pixels ReadLibraryColours(const TiffFile& file, PixelFormat format) const {
    Pixels pixels = Pixels::Make(stored_, format, blankPixel, Limits());
    TIFFRGBAImage image;
    std::array<char, 1024> message{};
    if (TIFFRGBAImageBegin(&image, file.Handle(), 0, message.data()) != 1) return pixels;
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
    return pixels;
  }

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
