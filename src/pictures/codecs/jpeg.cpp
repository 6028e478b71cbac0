#include "pictures/codecs/jpeg.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "pictures/codecs/jpeg_colours.h"
#include "pictures/codecs/jpeg_reader.h"
#include "pictures/colour_profile.h"
#include "pictures/exif.h"
#include "pictures/file_decoder.h"
#include "pictures/refusal.h"
#include "pictures/row_target.h"
#include "pictures/small_file.h"
#include "pictures/srgb_profile.h"

namespace lumidex {
namespace {

constexpr std::size_t HeaderBlock = PictureData::HeadSize;
constexpr std::size_t PixelBlock = std::size_t{1} << 16;
constexpr int ExifMarker = JPEG_APP0 + 1;
constexpr int ProfileMarker = JPEG_APP0 + 2;

// Some writers leave bytes before the picture; they are looked for in the head only.
std::optional<std::size_t> FindStart(Bytes head) {
  // Files of every other kind are asked, too: most of their bytes are passed over at once, by the middle one
  // of the three, which of all of them stands least in pixels.
  for (std::size_t place = 1; place + 1 < head.size(); ++place) {
    const void* const mark = std::memchr(head.data() + place, 0xD8, head.size() - 1 - place);
    if (mark == nullptr) break;
    place = static_cast<std::size_t>(static_cast<const std::uint8_t*>(mark) - head.data());
    if (head[place - 1] == 0xFF && head[place + 1] == 0xFF) return place - 1;
  }
  return std::nullopt;
}

ExifMark FindExif(const jpeg_decompress_struct& info) {
  constexpr std::string_view name("Exif\0\0", 6);
  for (auto marker = info.marker_list; marker != nullptr; marker = marker->next) {
    const Bytes bytes(marker->data, marker->data_length);
    if (marker->marker != ExifMarker || bytes.size() < name.size()) continue;
    if (!std::equal(name.begin(), name.end(), bytes.begin())) continue;
    ExifMark mark = ReadExifOrientation(bytes.subspan(name.size()));
    mark.beyond = mark.beyond && marker->data_length < marker->original_length;
    return mark;
  }
  return {};
}

// A file may hold any number of scans, each of which costs a pass over all blocks however short it is.
// Real files have about ten.
std::int64_t MostBlockVisits(std::uint64_t fileBytes) {
  return (std::int64_t{16} << 20) + static_cast<std::int64_t>(fileBytes) * 48;
}

// In units of a visit by a Huffman coded scan. An arithmetic coded one works on every coefficient, also where
// the file has nothing left for it.
std::int64_t VisitCost(const jpeg_decompress_struct& info) {
  return info.arith_code ? 4 + (info.Se - info.Ss) / 2 : 1;
}

// What libjpeg takes over from a second frame header before it refuses it. The scans read until then belong
// to the first one.
struct FrameNumbers {
  explicit FrameNumbers(const jpeg_decompress_struct& info)
      : width(info.image_width),
        height(info.image_height),
        components(info.num_components),
        precision(info.data_precision),
        progressive(info.progressive_mode),
        arithmetic(info.arith_code) {}
  void PutBack(jpeg_decompress_struct& info) const {
    info.image_width = width;
    info.image_height = height;
    info.num_components = components;
    info.data_precision = precision;
    info.progressive_mode = progressive;
    info.arith_code = arithmetic;
  }

  JDIMENSION width, height;
  int components, precision;
  boolean progressive, arithmetic;
};

class JpegDecoder final : public FileDecoder {
 public:
  JpegDecoder(const PictureData& data, const OpenOptions& options)
      : FileDecoder(data, options, "JPEG"), start_(FindStart(data.Head()).value_or(0)) {
    constexpr unsigned usualExif = 2048, anyExif = 0xFFFF;
    if (ReadFacts(usualExif).beyond) ReadFacts(anyExif);
    facts_.reducible = true;
  }

  Pixels Decode(const DecodeRequest& request) const override {
    JpegReader reader(Data().Source(), start_, PixelBlock);
    const Size wanted = TurnedSize(request.wanted, orientation_);
    const bool ready = reader.Try([&] {
      jpeg_decompress_struct& info = reader.Info();
      if (!Options().asStored) jpeg_save_markers(&info, ProfileMarker, 0xFFFF);
      jpeg_read_header(&info, TRUE);
      ChooseDecoding(info, Options().decoder);
      Reduce(info, wanted);
    });
    if (!ready) return Turned(Pixels::Make(stored_, PixelFormat::Rgb, blankPixel, Limits()), orientation_);
    return Turned(ReadPixels(reader, request.fit == Fit::Exact ? wanted : Size{}), orientation_);
  }

  JpegMetadata Metadata() const override {
    JpegMetadata metadata = ReadJpegMetadata(Data().Source(), start_);
    if (metadata.profile.empty()) return metadata;
    const ProfileInput input = facts_.bitsPerPixel == 32 ? ProfileInput::Cmyk : ProfileInput::Words;
    if (!Options().asStored && ColourProfile::FromIcc(metadata.profile, input, 1)) {
      DescribeSrgb(metadata);
    } else if (facts_.bitsPerPixel != 24 || !IsRgbProfile(metadata.profile)) {
      metadata.profile.clear();  // it is none for the pixels
    }
    return metadata;
  }

 private:
  ExifMark ReadFacts(unsigned exifBytes) {
    JpegReader reader(Data().Source(), start_, HeaderBlock);
    const bool read = reader.Try([&] {
      if (!Options().asStored) jpeg_save_markers(&reader.Info(), ExifMarker, exifBytes);
      jpeg_read_header(&reader.Info(), TRUE);
    });
    if (!read) Refuse(std::string("JPEG: ") + reader.Message());
    jpeg_decompress_struct& info = reader.Info();
    if (info.num_components != 1 && info.num_components != 3 && info.num_components != 4) {
      Refuse("JPEG: this number of components is not known");
    }
    stored_ = Checked(info.image_width, info.image_height);
    const ExifMark mark = FindExif(info);
    orientation_ = mark.orientation;
    CheckMemory(info);
    SetShape(TurnedSize(stored_, orientation_), 8 * info.num_components, info.num_components);
    return mark;
  }

  // Several scans need all coefficients in memory beside the pixels, two bytes each; turning needs the pixels
  // twice.
  void CheckMemory(jpeg_decompress_struct& info) const {
    const int coefficients = jpeg_has_multiple_scans(&info) != 0 ? info.num_components : 0;
    const int copies = orientation_ == Orientation::Upright ? 1 : 2;
    const std::int64_t bytes = std::int64_t{stored_.width} * stored_.height * (4 * copies + 2 * coefficients);
    if (coefficients > 0 && bytes > std::max(Limits().bytes, std::int64_t{1} << 31))
      Refuse("JPEG: the picture is too large");
    CheckSmallFile(bytes, Data().Size());
  }

  // The smallest size that still covers the wanted one, of those that libjpeg is fast at: an eighth, a
  // quarter, half or all of it. The steps between take longer than the next larger one.
  static void Reduce(jpeg_decompress_struct& info, Size wanted) {
    info.scale_denom = 8;
    for (info.scale_num = wanted.width > 0 && wanted.height > 0 ? 1 : 8;; info.scale_num *= 2) {
      jpeg_calc_output_dimensions(&info);
      const bool covers = static_cast<std::int64_t>(info.output_width) >= wanted.width &&
                          static_cast<std::int64_t>(info.output_height) >= wanted.height;
      if (covers || info.scale_num >= 8) return;
    }
  }

  Pixels ReadPixels(JpegReader& reader, Size wanted) const {
    jpeg_decompress_struct& info = reader.Info();
    const bool several = jpeg_has_multiple_scans(&info) != 0;
    bool ready = true;
    if (several) {
      const FrameNumbers frame(info);
      if (!reader.Try([&] { ReadScans(info); })) {
        frame.PutBack(info);
        // Smoothing between blocks would ask for more of a file that has no more to give.
        info.do_block_smoothing = FALSE;
      }
      // Whatever ended the scans, what they gave so far can be shown.
      ready = reader.Try([&] { jpeg_start_output(&info, info.input_scan_number); });
    } else {
      ready = reader.Try([&] { jpeg_start_decompress(&info); });
    }
    const Size size{static_cast<int>(info.output_width), static_cast<int>(info.output_height)};
    RowTarget target(size, PixelFormat::Rgb, {.wanted = wanted, .limits = Limits()});
    if (!ready) return target.Finish(blankPixel);
    std::unique_ptr<ColourProfile> profile;
    if (!Options().asStored) profile = Profile(reader, IsReducedFor(size, wanted) ? wanted : size);
    if (info.quantize_colors) {
      ReadIndexedRows(reader, target, profile.get());
    } else if (info.num_components == 4) {
      return ReadInkRows(reader, target, profile.get());
    } else {
      ReadWordRows(reader, target, profile.get());
    }
    return target.Finish(blankPixel);
  }

  void ReadScans(jpeg_decompress_struct& info) const {
    info.buffered_image = TRUE;
    jpeg_start_decompress(&info);
    const std::int64_t blocksInRow = std::int64_t{info.MCUs_per_row} * info.max_h_samp_factor *
                                     info.max_v_samp_factor * info.num_components;
    std::int64_t visits = MostBlockVisits(Data().Size());
    while (visits > 0) {
      const int state = jpeg_consume_input(&info);
      if (state == JPEG_REACHED_EOI || state == JPEG_SUSPENDED) break;
      if (state == JPEG_ROW_COMPLETED || state == JPEG_SCAN_COMPLETED)
        visits -= blocksInRow * VisitCost(info);
    }
  }

  static std::unique_ptr<ColourProfile> Profile(JpegReader& reader, Size size) {
    jpeg_decompress_struct& info = reader.Info();
    JOCTET* bytes = nullptr;
    unsigned count = 0;
    if (!reader.Try([&] { jpeg_read_icc_profile(&info, &bytes, &count); }) || bytes == nullptr)
      return nullptr;
    const std::unique_ptr<JOCTET, decltype(&std::free)> owner(bytes, &std::free);
    ProfileInput input = ProfileInput::Words;
    if (info.num_components == 4)
      input = info.saw_Adobe_marker ? ProfileInput::CmykInverted : ProfileInput::Cmyk;
    return ColourProfile::FromIcc({bytes, count}, input, std::int64_t{size.width} * size.height);
  }

  // True as long as rows that the file still fills are left.
  static bool MoreRows(JpegReader& reader) {
    const jpeg_decompress_struct& info = reader.Info();
    return info.output_scanline < info.output_height &&
           (reader.FirstEmptyRow() == std::numeric_limits<unsigned>::max() ||
            info.output_scanline / static_cast<unsigned>(info.max_v_samp_factor * info.min_DCT_scaled_size) <=
                reader.FirstEmptyRow());
  }

  static void ReadWordRows(JpegReader& reader, RowTarget& target, const ColourProfile* profile) {
    reader.Try([&] {
      while (MoreRows(reader) && ReadSamples(reader, target.Row())) {
        if (profile != nullptr) profile->Convert(target.Row());
        target.Add();
      }
    });
  }

  // The samples of a row as they are, four bytes a pixel; false when there are none.
  static bool ReadSamples(JpegReader& reader, std::span<std::uint32_t> row) {
    JSAMPROW samples = reinterpret_cast<JSAMPROW>(row.data());
    return jpeg_read_scanlines(&reader.Info(), &samples, 1) != 0;
  }

  static void ReadIndexedRows(JpegReader& reader, RowTarget& target, const ColourProfile* profile) {
    jpeg_decompress_struct& info = reader.Info();
    Palette colours = ReducedColours(info);
    if (profile != nullptr) profile->Convert(colours);
    std::vector<std::uint8_t> indexes(target.Row().size());
    reader.Try([&] {
      while (MoreRows(reader) && ReadReducedRow(info, colours, indexes, target.Row())) target.Add();
    });
  }

  // A picture made smaller is converted afterwards, when few pixels are left of it.
  static Pixels ReadInkRows(JpegReader& reader, RowTarget& target, const ColourProfile* profile) {
    const bool inverted = reader.Info().saw_Adobe_marker != 0;
    const std::uint32_t withoutInk = inverted ? 0xFFFFFFFF : 0;
    const auto convert = [&](std::span<std::uint32_t> words) {
      if (profile != nullptr) return profile->Convert(words);
      ConvertInksPlainly(inverted, words);
    };
    const bool converted = !target.IsReduced();
    reader.Try([&] {
      while (MoreRows(reader) && ReadSamples(reader, target.Row())) {
        if (converted) convert(target.Row());
        target.Add();
      }
    });
    Pixels pixels = target.Finish(converted ? blankPixel : withoutInk);
    for (int y = 0; !converted && y < pixels.Height(); ++y) convert(pixels.Row(y));
    return pixels;
  }

  std::uint64_t start_;
  Size stored_;
  Orientation orientation_ = Orientation::Upright;
};

}  // namespace

Match MatchJpeg(const PictureData& data) {
  const Bytes head = data.Head();
  if (head.size() >= 3 && head[0] == 0xFF && head[1] == 0xD8)
    return head[2] == 0xFF ? Match::Sure : Match::Maybe;
  return FindStart(head) ? Match::Maybe : Match::No;
}

std::unique_ptr<Decoder> OpenJpeg(const PictureData& data, const OpenOptions& options) {
  return std::make_unique<JpegDecoder>(data, options);
}

}  // namespace lumidex
