#include "pictures/codecs/png.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <bit>
#include <csetjmp>

#include "base/run_time_error.h"
#include "pictures/alpha.h"
#include "pictures/byte_pixels.h"
#include "pictures/byte_stream.h"
#include "pictures/colour_profile.h"
#include "pictures/file_decoder.h"
#include "pictures/refusal.h"
#include "pictures/row_target.h"
#include "pictures/small_file.h"

namespace lumidex {
namespace {

constexpr std::array<std::uint8_t, 8> signature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

// One run of libpng over a byte source; errors are turned into a false answer.
class PngReader {
 public:
  PngReader(const ByteSource& source, std::size_t blockBytes) : from_(source, 0, blockBytes) {
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
    // one of the pixels. What nobody asks for is not reckoned either.
    png_set_crc_action(png_, PNG_CRC_QUIET_USE, PNG_CRC_WARN_DISCARD);
    png_set_option(png_, PNG_IGNORE_ADLER32, PNG_OPTION_ON);
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
    if (self.from_.Read({into, count}) < count) png_error(png, "the file ends early");
  }

  ByteStream from_;
  std::jmp_buf jump_{};
  std::string message_;
  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
};

class PngDecoder final : public FileDecoder {
 public:
  PngDecoder(const PictureData& data, const OpenOptions& options) : FileDecoder(data, options, "PNG") {
    // Everything that counts stands in the first chunk; the libpng run below would read up to the pixels.
    const Bytes head = data.Head();
    constexpr std::string_view firstChunk = "IHDR";
    if (head.size() < 33 || !std::equal(firstChunk.begin(), firstChunk.end(), head.begin() + 12)) {
      Refuse("PNG: the header is missing");
    }
    PngReader reader(Data().Source(), PictureData::HeadSize);
    if (!reader.Try([&] { png_read_info(reader.Png(), reader.Info()); })) {
      Refuse("PNG: " + reader.Message());
    }
    const int channels = png_get_channels(reader.Png(), reader.Info());
    SetShape(Checked(png_get_image_width(reader.Png(), reader.Info()),
                     png_get_image_height(reader.Png(), reader.Info())),
             channels * png_get_bit_depth(reader.Png(), reader.Info()), channels);
    const bool interlaced = png_get_interlace_type(reader.Png(), reader.Info()) != PNG_INTERLACE_NONE;
    CheckWork(reader, interlaced);
    facts_.reducible = !interlaced;
  }

  Pixels Decode(const DecodeRequest& request) const override {
    PngReader reader(Data().Source(), ByteStream::blockSize);
    Transform transform;
    if (!reader.Try([&] { transform = Prepare(reader); }) || transform == Transform::None)
      return Pixels::Make(facts_.size, PixelFormat::Rgb, blankPixel, Limits());
    const bool alpha = HasAlpha(reader);
    const std::uint32_t blank = alpha ? 0 : blankPixel;
    const PixelFormat format = alpha ? PixelFormat::Argb : PixelFormat::Rgb;
    const std::unique_ptr<ColourProfile> profile = Profile(reader, transform);
    Pixels pixels;
    if (facts_.reducible) {
      RowTarget target(facts_.size, format, {.wanted = SizeToMake(request), .limits = Limits()});
      ReadRows(reader, target, transform, profile.get());
      pixels = target.Finish(blank);
    } else {
      // Passes leave pixels out, which must not stay undefined when the file is cut.
      pixels = Pixels::Make(facts_.size, format, blank, Limits());
      ReadPasses(reader, pixels, profile.get());
    }
    if (alpha) DeclareOpaqueIfSo(pixels);
    return pixels;
  }

 private:
  // What libpng is to make of a row: words, the three bytes of a pixel, or four channels of 16 bits.
  enum class Transform { None, Words, Bytes, Deep };

  // What is unpacked, and a second time for passes that are put together; a profile is another pass over
  // them.
  void CheckWork(const PngReader& reader, bool interlaced) const {
    const auto storedRow = static_cast<std::int64_t>(png_get_rowbytes(reader.Png(), reader.Info()));
    const std::int64_t shownRow = std::int64_t{4} * facts_.size.width;
    const bool converts =
        !Options().asStored && png_get_valid(reader.Png(), reader.Info(), PNG_INFO_iCCP) != 0;
    CheckSmallFile((std::max(storedRow, shownRow) * (interlaced ? 2 : 1) + (converts ? shownRow : 0)) *
                       facts_.size.height,
                   Data().Size());
  }

  static bool HasAlpha(const PngReader& reader) {
    return (png_get_color_type(reader.Png(), reader.Info()) & PNG_COLOR_MASK_ALPHA) != 0 ||
           png_get_valid(reader.Png(), reader.Info(), PNG_INFO_tRNS) != 0;
  }

  // Reads the header and says what rows are to be like.
  Transform Prepare(const PngReader& reader) const {
    png_structp png = reader.Png();
    png_infop info = reader.Info();
    png_read_info(png, info);
    const bool alpha = HasAlpha(reader);
    const bool profiled = !Options().asStored && png_get_valid(png, info, PNG_INFO_iCCP) != 0;
    Transform transform = Transform::Words;
    if (png_get_bit_depth(png, info) == 16 && profiled && facts_.reducible) {
      transform = Transform::Deep;
    } else if (png_get_color_type(png, info) == PNG_COLOR_TYPE_RGB && png_get_bit_depth(png, info) == 8 &&
               !alpha && facts_.reducible) {
      transform = Transform::Bytes;
    }
    png_set_expand(png);
    png_set_gray_to_rgb(png);
    if (transform == Transform::Deep) {
      if constexpr (std::endian::native == std::endian::little) png_set_swap(png);
      if (!alpha) png_set_add_alpha(png, 0xFFFF, PNG_FILLER_AFTER);
    } else if (transform == Transform::Words) {
      png_set_scale_16(png);
      png_set_bgr(png);
      if (!alpha) png_set_filler(png, 0xFF, PNG_FILLER_AFTER);
    }
    png_set_interlace_handling(png);
    png_read_update_info(png, info);
    const std::size_t pixelBytes = transform == Transform::Deep ? 8 : transform == Transform::Bytes ? 3 : 4;
    const bool asExpected =
        png_get_rowbytes(png, info) == static_cast<std::size_t>(facts_.size.width) * pixelBytes;
    return asExpected ? transform : Transform::None;
  }

  static void ReadRows(PngReader& reader, RowTarget& target, Transform transform,
                       const ColourProfile* profile) {
    std::vector<std::uint16_t> deep(transform == Transform::Deep ? target.Row().size() * 4 : 0);
    std::vector<std::uint8_t> bytes(transform == Transform::Bytes ? target.Row().size() * 3 : 0);
    reader.Try([&] {
      while (target.RowsMissing() > 0) {
        const auto row = target.Row();
        if (transform == Transform::Deep) {
          png_read_row(reader.Png(), reinterpret_cast<png_bytep>(deep.data()), nullptr);
          ConvertDeep(deep, row, profile);
        } else if (transform == Transform::Bytes) {
          png_read_row(reader.Png(), bytes.data(), nullptr);
          JoinRgb(bytes, row);
        } else {
          png_read_row(reader.Png(), reinterpret_cast<png_bytep>(row.data()), nullptr);
        }
        if (transform != Transform::Deep && profile != nullptr) profile->Convert(row);
        target.Add();
      }
    });
  }

  // A profile that changes nothing is none.
  static void ConvertDeep(std::span<const std::uint16_t> deep, std::span<std::uint32_t> row,
                          const ColourProfile* profile) {
    if (profile != nullptr) return profile->ConvertDeep(deep, row);
    for (std::size_t x = 0; x < row.size(); ++x) {
      const auto byte = [&](std::size_t i) { return (deep[4 * x + i] * 255U + 32895U) >> 16; };
      row[x] = byte(3) << 24 | byte(0) << 16 | byte(1) << 8 | byte(2);
    }
  }

  static void ReadPasses(PngReader& reader, Pixels& pixels, const ColourProfile* profile) {
    reader.Try([&] {
      for (int pass = 0; pass < PNG_INTERLACE_ADAM7_PASSES; ++pass) {
        for (int y = 0; y < pixels.Height(); ++y) {
          // The display row makes each pass fill the gaps that later ones have not reached.
          png_read_row(reader.Png(), nullptr, reinterpret_cast<png_bytep>(pixels.Row(y).data()));
        }
      }
    });
    for (int y = 0; profile != nullptr && y < pixels.Height(); ++y) profile->Convert(pixels.Row(y));
  }

  std::unique_ptr<ColourProfile> Profile(PngReader& reader, Transform transform) const {
    png_charp name = nullptr;
    int compression = 0;
    png_bytep bytes = nullptr;
    png_uint_32 count = 0;
    if (Options().asStored || png_get_valid(reader.Png(), reader.Info(), PNG_INFO_sRGB) != 0) return nullptr;
    if (png_get_iCCP(reader.Png(), reader.Info(), &name, &compression, &bytes, &count) == 0) return nullptr;
    return ColourProfile::FromIcc(
        {bytes, count}, transform == Transform::Deep ? ProfileInput::DeepWords : ProfileInput::Words,
        std::int64_t{facts_.size.width} * facts_.size.height);
  }
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
