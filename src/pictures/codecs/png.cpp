#include "pictures/codecs/png.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <csetjmp>

#include "base/run_time_error.h"
#include "pictures/alpha.h"
#include "pictures/colour_profile.h"
#include "pictures/small_file.h"

namespace lumidex {
namespace {

constexpr std::array<std::uint8_t, 8> signature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

// One run of libpng over a byte source; errors are turned into a false answer.
class PngReader {
 public:
  PngReader(const ByteSource& source, std::size_t blockBytes) : source_(source), block_(blockBytes) {
    png_ = png_create_read_struct(PNG_LIBPNG_VER_STRING, this, Fail, Ignore);
    if (png_ != nullptr) info_ = png_create_info_struct(png_);
    if (info_ == nullptr) {
      png_destroy_read_struct(&png_, nullptr, nullptr);
      throw RunTimeError(ErrorNumber::OutOfMemory);
    }
    png_set_read_fn(png_, this, Read);
    constexpr png_uint_32 mostSide = 0x7FFFFFFF;  // the program's own limits are checked by the caller
    constexpr png_alloc_size_t mostChunk = 16U << 20;
    constexpr png_uint_32 mostCached = 128;
    png_set_user_limits(png_, mostSide, mostSide);
    png_set_chunk_malloc_max(png_, mostChunk);
    png_set_chunk_cache_max(png_, mostCached);
    // Nobody asks for these, and of some libpng makes room for as much as they say they hold.
    constexpr char skipped[] = "tEXt\0zTXt\0iTXt\0eXIf\0sPLT\0pCAL\0sCAL\0hIST\0bKGD\0oFFs\0pHYs\0tIME";
    constexpr int nameBytes = 5;
    png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_NEVER, reinterpret_cast<png_const_bytep>(skipped),
                                static_cast<int>(sizeof skipped) / nameBytes);
    // A wrong check sum in a chunk that the picture does not need is no reason to lose the picture, nor is
    // one at the very end of the pixels.
    png_set_crc_action(png_, PNG_CRC_WARN_USE, PNG_CRC_WARN_DISCARD);
    png_set_option(png_, PNG_SKIP_sRGB_CHECK_PROFILE, PNG_OPTION_ON);
  }
  ~PngReader() { png_destroy_read_struct(&png_, &info_, nullptr); }
  PngReader(const PngReader&) = delete;
  PngReader& operator=(const PngReader&) = delete;

  // Runs steps of libpng; false when they ended in an error. The steps must own nothing that needs
  // destroying, since an error jumps out of them.
  template <class Steps>
  bool Try(Steps steps) {
    if (setjmp(jump_) != 0) return false;
    steps();
    return true;
  }

  png_structp Png() const { return png_; }
  png_infop Info() const { return info_; }
  const std::string& Message() const { return message_; }

 private:
  static void Fail(png_structp png, png_const_charp text) {
    auto& self = *static_cast<PngReader*>(png_get_error_ptr(png));
    self.message_ = text;
    std::longjmp(self.jump_, 1);
  }
  static void Ignore(png_structp, png_const_charp) {}

  static void Read(png_structp png, png_bytep into, std::size_t count) {
    auto& self = *static_cast<PngReader*>(png_get_io_ptr(png));
    while (count > 0) {
      if (self.place_ == self.filled_) {
        self.filled_ = self.source_.ReadAt(self.offset_, self.block_);
        self.offset_ += self.filled_;
        self.place_ = 0;
        if (self.filled_ == 0) png_error(png, "the file ends early");
      }
      const std::size_t part = std::min(count, self.filled_ - self.place_);
      std::copy_n(self.block_.begin() + static_cast<std::ptrdiff_t>(self.place_), part, into);
      self.place_ += part;
      into += part;
      count -= part;
    }
  }

  const ByteSource& source_;
  std::vector<std::uint8_t> block_;
  std::uint64_t offset_ = 0;
  std::size_t place_ = 0;
  std::size_t filled_ = 0;
  std::jmp_buf jump_{};
  std::string message_;
  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
};

// The stored depth as a bitmap can hold it; channels of 16 bits are decoded to 8.
int DepthOf(int channels, int bitDepth) {
  switch (channels * bitDepth) {
    case 48:
      return 24;
    case 64:
      return 32;
    default:
      return channels == 2 && bitDepth == 16 ? 32 : channels * bitDepth;
  }
}

class PngDecoder final : public Decoder {
 public:
  PngDecoder(const PictureData& data, const OpenOptions& options)
      : source_(data.SharedSource()), options_(options) {
    // Everything that counts stands in the first chunk; the libpng run below would read up to the pixels.
    const Bytes head = data.Head();
    constexpr std::string_view firstChunk = "IHDR";
    if (head.size() < 33 || !std::equal(firstChunk.begin(), firstChunk.end(), head.begin() + 12)) {
      throw RunTimeError(ErrorNumber::InvalidPicture, "PNG: the header is missing");
    }
    PngReader reader(*source_, PictureData::HeadSize);
    if (!reader.Try([&] { png_read_info(reader.Png(), reader.Info()); })) {
      throw RunTimeError(ErrorNumber::InvalidPicture, "PNG: " + reader.Message());
    }
    facts_.size = CheckedSize(png_get_image_width(reader.Png(), reader.Info()),
                              png_get_image_height(reader.Png(), reader.Info()), options.limits, data.Size());
    const bool interlaced = png_get_interlace_type(reader.Png(), reader.Info()) != PNG_INTERLACE_NONE;
    const auto storedRow = static_cast<std::int64_t>(png_get_rowbytes(reader.Png(), reader.Info()));
    CheckSmallFile(
        std::max(storedRow, std::int64_t{4} * facts_.size.width) * facts_.size.height * (interlaced ? 2 : 1),
        data.Size());
    facts_.bitsPerPixel = DepthOf(png_get_channels(reader.Png(), reader.Info()),
                                  png_get_bit_depth(reader.Png(), reader.Info()));
    facts_.format = "PNG";
  }

  Pixels Decode(const DecodeRequest&) const override {
    constexpr std::size_t block = std::size_t{1} << 16;
    PngReader reader(*source_, block);
    png_structp png = reader.Png();
    png_infop info = reader.Info();
    bool alpha = false;
    int passes = 1;
    const bool ready = reader.Try([&] {
      png_read_info(png, info);
      alpha = (png_get_color_type(png, info) & PNG_COLOR_MASK_ALPHA) != 0 ||
              png_get_valid(png, info, PNG_INFO_tRNS) != 0;
      png_set_scale_16(png);
      png_set_expand(png);
      png_set_gray_to_rgb(png);
      png_set_bgr(png);
      if (!alpha) png_set_filler(png, 0xFF, PNG_FILLER_AFTER);
      passes = png_set_interlace_handling(png);
      png_read_update_info(png, info);
    });
    const std::uint32_t blank = alpha ? 0 : blankPixel;
    const PixelFormat format = alpha ? PixelFormat::Argb : PixelFormat::Rgb;
    if (!ready || png_get_rowbytes(png, info) != static_cast<std::size_t>(facts_.size.width) * 4) {
      return Pixels::Make(facts_.size, format, blank, options_.limits);
    }
    // Passes of an interlaced picture leave pixels out, which must not stay undefined when the file is cut.
    Pixels pixels = passes > 1 ? Pixels::Make(facts_.size, format, blank, options_.limits)
                               : Pixels::MakeUnfilled(facts_.size, format, options_.limits);
    const int rows = ReadRows(reader, pixels, passes);
    if (passes == 1) {
      for (int y = rows; y < pixels.Height(); ++y) std::ranges::fill(pixels.Row(y), blank);
    }
    if (alpha) DeclareOpaqueIfSo(pixels);
    return pixels;
  }

 private:
  // Returns how many rows the last pass wrote.
  int ReadRows(PngReader& reader, Pixels& pixels, int passes) const {
    const std::unique_ptr<ColourProfile> profile = options_.asStored ? nullptr : Profile(reader);
    volatile int rows = 0;
    reader.Try([&] {
      for (int pass = 0; pass < passes; ++pass) {
        for (int y = 0; y < pixels.Height(); ++y) {
          rows = y;
          // The display row makes each pass fill the gaps that later ones have not reached.
          const auto row = reinterpret_cast<png_bytep>(pixels.Row(y).data());
          png_read_row(reader.Png(), passes > 1 ? nullptr : row, passes > 1 ? row : nullptr);
          if (passes == 1 && profile) profile->Convert(pixels.Row(y));
        }
      }
      rows = pixels.Height();
    });
    for (int y = 0; passes > 1 && profile && y < pixels.Height(); ++y) profile->Convert(pixels.Row(y));
    return rows;
  }

  std::unique_ptr<ColourProfile> Profile(PngReader& reader) const {
    png_charp name = nullptr;
    int compression = 0;
    png_bytep bytes = nullptr;
    png_uint_32 count = 0;
    if (png_get_valid(reader.Png(), reader.Info(), PNG_INFO_sRGB) != 0) return nullptr;
    if (png_get_iCCP(reader.Png(), reader.Info(), &name, &compression, &bytes, &count) == 0) return nullptr;
    return ColourProfile::FromIcc({bytes, count}, ProfileInput::Words,
                                  std::int64_t{facts_.size.width} * facts_.size.height);
  }

  std::shared_ptr<const ByteSource> source_;
  OpenOptions options_;
};

}  // namespace

Match MatchPng(const PictureData& data) {
  const Bytes head = data.Head();
  const bool starts =
      head.size() >= signature.size() && std::equal(signature.begin(), signature.end(), head.begin());
  return starts ? Match::Sure : Match::No;
}

std::unique_ptr<Decoder> OpenPng(const PictureData& data, const OpenOptions& options) {
  return std::make_unique<PngDecoder>(data, options);
}

}  // namespace lumidex
