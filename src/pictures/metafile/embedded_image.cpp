#include "pictures/metafile/embedded_image.h"

#include <utility>

#include "base/run_time_error.h"
#include "pictures/byte_reader.h"
#include "pictures/codec.h"
#include "pictures/dib.h"

namespace lumidex::metafile {
namespace {

// One image inside a drawing: more would be lost on any screen.
constexpr PictureLimits imageLimits{.side = 32767, .bytes = std::int64_t{64} << 20};

constexpr double perImage = 20000;
constexpr double perImagePixel = 12;

// The kinds of file that bitmap headers and pictures in records may hold. Metafiles are not among them: those
// are played, not decoded.
bool IsPlainPictureFile(Bytes bytes) {
  if (bytes.size() < 8) return false;
  const bool jpeg = bytes[0] == 0xFF && bytes[1] == 0xD8;
  const bool png = bytes[0] == 0x89 && bytes[1] == 'P' && bytes[2] == 'N' && bytes[3] == 'G';
  const bool gif = bytes[0] == 'G' && bytes[1] == 'I' && bytes[2] == 'F';
  const bool bmp = bytes[0] == 'B' && bytes[1] == 'M';
  return jpeg || png || gif || bmp;
}

}  // namespace

bool AffordImage(Size size, WorkBudget& budget) {
  const double pixels = static_cast<double>(size.width) * size.height;
  return size.width > 0 && size.height > 0 && pixels * 4 <= static_cast<double>(imageLimits.bytes) &&
         budget.Spend(perImage + perImagePixel * pixels);
}

std::optional<Pixels> DecodeFile(Bytes bytes, WorkBudget& budget) {
  if (!IsPlainPictureFile(bytes)) return std::nullopt;
  try {
    const PictureData data(std::make_shared<MemorySource>(std::vector(bytes.begin(), bytes.end())), "");
    const auto decoder = OpenDecoder(data, {.limits = imageLimits});
    if (decoder->Facts().scalable || !AffordImage(decoder->Facts().size, budget)) return std::nullopt;
    return decoder->Decode({});
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

std::optional<Pixels> KeptTile(std::optional<EmbeddedImage> image, WorkBudget& budget) {
  if (!image || !budget.Keep(static_cast<double>(image->pixels.ByteCount()))) return std::nullopt;
  return std::move(image->pixels);
}

bool IsBlackAndWhite(const Pixels& pixels) {
  for (int y = 0; y < pixels.Height(); ++y)
    for (const std::uint32_t word : pixels.Row(y))
      if ((word & 0xFFFFFF) != 0 && (word & 0xFFFFFF) != 0xFFFFFF) return false;
  return true;
}

std::optional<EmbeddedImage> DecodeBitmap(const BitmapSource& source, WorkBudget& budget) {
  ByteReader reader(source.header);
  const std::uint32_t headerBytes = reader.U32Le();
  reader.Skip(12);
  const std::uint32_t compression = reader.U32Le();
  if (headerBytes >= 40 && (compression == 4 || compression == 5)) {
    const Bytes file = source.bits
                           ? *source.bits
                           : source.header.subspan(std::min<std::size_t>(headerBytes, source.header.size()));
    auto pixels = DecodeFile(file, budget);
    if (!pixels) return std::nullopt;
    return EmbeddedImage{*std::move(pixels), false};
  }
  try {
    DibOptions options;
    options.limits = imageLimits;
    options.fileSize = source.header.size() + (source.bits ? source.bits->size() : 0);
    if (source.usesPalette)
      options.outsideColours =
          source.palette ? std::span<const std::uint32_t>(*source.palette) : std::span<const std::uint32_t>();
    const DibHeader header = ReadDibHeader(source.header, options);
    if (!AffordImage(header.size, budget)) return std::nullopt;
    const Bytes bits = source.bits
                           ? *source.bits
                           : source.header.subspan(std::min(header.pixelOffset, source.header.size()));
    return EmbeddedImage{DecodeDib(header, bits, imageLimits), header.topDown};
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

std::optional<Pixels> DecodeDeviceBitmap(Bytes bytes, std::size_t pixelOffset, std::uint32_t zeros,
                                         std::uint32_t ones, WorkBudget& budget) {
  ByteReader reader(bytes);
  reader.Skip(2);
  const Size size{reader.S16Le(), reader.S16Le()};
  const int rowBytes = reader.S16Le();
  reader.Skip(1);
  const int bits = reader.U8();
  const bool known = bits == 1 || bits == 16 || bits == 24 || bits == 32;
  if (!known || size.width < 1 || size.height < 1 || rowBytes < 1 || !AffordImage(size, budget))
    return std::nullopt;
  Pixels pixels = Pixels::Make(size, PixelFormat::Rgb, 0xFFFFFFFF, imageLimits);
  reader.Seek(pixelOffset);
  for (int y = 0; y < size.height && !reader.AtEnd(); ++y) {
    ByteReader row = reader.Sub(static_cast<std::size_t>(rowBytes));
    unsigned packed = 0;
    int x = 0;
    for (std::uint32_t& word : pixels.Row(y)) {
      if (row.AtEnd() && (bits != 1 || x % 8 == 0)) break;
      if (bits == 1) {
        if (x % 8 == 0) packed = row.U8();
        word = (packed >> (7 - x % 8) & 1 ? ones : zeros) | 0xFF000000u;
      } else if (bits == 16) {
        const std::uint32_t value = row.U16Le();
        const auto wide = [&](int shift) { return (value >> shift & 0x1F) * 255 / 31; };
        word = 0xFF000000u | wide(10) << 16 | wide(5) << 8 | wide(0);
      } else {
        const std::uint32_t blue = row.U8(), green = row.U8(), red = row.U8();
        if (bits == 32) row.Skip(1);
        word = 0xFF000000u | red << 16 | green << 8 | blue;
      }
      ++x;
    }
  }
  return pixels;
}

}  // namespace lumidex::metafile
