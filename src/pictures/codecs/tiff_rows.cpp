#include "pictures/codecs/tiff_rows.h"

#include <algorithm>
#include <cstring>

#include "pictures/byte_pixels.h"
#include "pictures/codecs/tiff_numbers.h"
#include "pictures/late_lcms.h"

namespace lumidex {
namespace {

// Bits run through the row from the high end of each byte; `bits` is at most 16.
void UnpackBits(const std::uint8_t* bytes, unsigned bits, std::size_t count, std::uint16_t* into) {
  std::uint32_t pending = 0;
  unsigned have = 0;
  for (std::size_t i = 0; i < count; ++i) {
    while (have < bits) {
      pending = pending << 8 | *bytes++;
      have += 8;
    }
    have -= bits;
    into[i] = static_cast<std::uint16_t>(pending >> have & ((1U << bits) - 1));
  }
}

std::uint32_t Unmultiplied(std::uint32_t value, std::uint32_t alpha) {
  return alpha == 0 ? 0 : std::min<std::uint32_t>(value * 255 / alpha, 255);
}

// Samples between two bytes are taken as 16-bit ones with zeros below, as other readers do.
std::uint8_t LevelOf(std::uint32_t value, int bits, std::uint32_t most) {
  if (bits > 8 && bits < 16) return static_cast<std::uint8_t>((value << (16 - bits)) * 255 / 65535);
  return static_cast<std::uint8_t>((value * 255 + most / 2) / most);
}

bool IsLab(int photometric) {
  return photometric == PHOTOMETRIC_CIELAB || photometric == PHOTOMETRIC_ICCLAB;
}

}  // namespace

// What the rarer colour spaces need.
struct TiffRowReader::Conversion {
  TIFFYCbCrToRGB* chroma = nullptr;
  cmsHTRANSFORM lab = nullptr;
  std::vector<std::uint8_t> labBytes;

  Conversion() = default;
  Conversion(const Conversion&) = delete;
  Conversion& operator=(const Conversion&) = delete;
  ~Conversion() {
    if (chroma != nullptr) _TIFFfree(chroma);
    if (lab != nullptr) cmsDeleteTransform(lab);
  }

  void PrepareChroma(const TiffFile& file) {
    float* luma = nullptr;
    float* reference = nullptr;
    TIFFGetFieldDefaulted(file.Handle(), TIFFTAG_YCBCRCOEFFICIENTS, &luma);
    TIFFGetFieldDefaulted(file.Handle(), TIFFTAG_REFERENCEBLACKWHITE, &reference);
    if (luma == nullptr || reference == nullptr || !(luma[1] != 0.0F)) return;
    // The size of libtiff's tables, as its own reader reckons it.
    const auto bytes =
        static_cast<tmsize_t>(sizeof(TIFFYCbCrToRGB) + sizeof(long) + 4 * 256 * sizeof(TIFFRGBValue) +
                              2 * 256 * sizeof(int) + 3 * 256 * sizeof(std::int32_t));
    chroma = static_cast<TIFFYCbCrToRGB*>(_TIFFmalloc(bytes));
    if (chroma != nullptr && TIFFYCbCrToRGBInit(chroma, luma, reference) < 0) {
      _TIFFfree(chroma);
      chroma = nullptr;
    }
  }

  void PrepareLab() {
    if (!lcmsLibrary.IsThere()) return;
    const cmsHPROFILE from = cmsCreateLab4Profile(nullptr);
    const cmsHPROFILE to = cmsCreate_sRGBProfile();
    if (from != nullptr && to != nullptr) {
      lab = cmsCreateTransform(from, TYPE_Lab_8, to, TYPE_BGRA_8, INTENT_PERCEPTUAL, 0);
    }
    if (from != nullptr) cmsCloseProfile(from);
    if (to != nullptr) cmsCloseProfile(to);
  }
};

bool TiffRowReader::CanRead(const TiffLayout& layout) {
  const bool number = layout.sampleFormat == SAMPLEFORMAT_IEEEFP;
  const bool bits = number ? layout.bits == 16 || layout.bits == 32 || layout.bits == 64
                           : (layout.bits >= 1 && layout.bits <= 16) || layout.bits == 24 ||
                                 layout.bits == 32 || layout.bits == 64;
  if (!bits || layout.sampleFormat > SAMPLEFORMAT_VOID) return false;
  switch (layout.photometric) {
    case PHOTOMETRIC_MINISWHITE:
    case PHOTOMETRIC_MINISBLACK:
    case PHOTOMETRIC_MASK:
      return true;
    case PHOTOMETRIC_PALETTE:
      return layout.bits <= 16;
    case PHOTOMETRIC_RGB:
      return layout.colourSamples == 3;
    case PHOTOMETRIC_SEPARATED:
      return layout.colourSamples == 4;
    case PHOTOMETRIC_CIELAB:
    case PHOTOMETRIC_ICCLAB:
      return layout.bits == 8 || layout.bits == 16;
    case PHOTOMETRIC_YCBCR:
      return layout.colourSamples == 3 && layout.bits == 8;
    default:
      return false;
  }
}

bool TiffRowReader::IsDeep(const TiffLayout& layout) {
  const bool plain = layout.photometric == PHOTOMETRIC_RGB || layout.photometric == PHOTOMETRIC_MINISBLACK;
  const bool number = layout.sampleFormat == SAMPLEFORMAT_IEEEFP;
  return plain && (number || (layout.bits == 16 && layout.sampleFormat == SAMPLEFORMAT_UINT));
}

TiffRowReader::TiffRowReader(const TiffFile& file, const TiffLayout& layout, const ColourProfile* profile,
                             const TiffRange& range)
    : layout_(layout),
      profile_(profile),
      range_(range),
      most_(profile != nullptr && IsDeep(layout) ? 65535 : 255),
      conversion_(std::make_unique<Conversion>()) {
  const bool small = layout.bits <= 16 && layout.sampleFormat != SAMPLEFORMAT_IEEEFP;
  const std::uint32_t most = small ? (1U << layout.bits) - 1 : 255;
  levels_.resize(std::size_t{1} << 16, 255);
  for (std::uint32_t value = 0; value <= most; ++value) levels_[value] = LevelOf(value, layout.bits, most);
  if (layout.photometric == PHOTOMETRIC_PALETTE) {
    colours_.assign(std::size_t{1} << layout.bits, 0xFF000000U);
    std::uint16_t *red = nullptr, *green = nullptr, *blue = nullptr;
    if (TIFFGetField(file.Handle(), TIFFTAG_COLORMAP, &red, &green, &blue) == 1) {
      // Old writers gave 8 bits where 16 are due.
      std::uint32_t any = 0;
      for (std::size_t i = 0; i < colours_.size(); ++i) any |= red[i] | green[i] | blue[i];
      const int shift = any > 255 ? 8 : 0;
      for (std::size_t i = 0; i < colours_.size(); ++i) {
        const auto channel = [&](std::uint16_t value) { return static_cast<unsigned>(value) >> shift & 255; };
        colours_[i] = Rgb(channel(red[i]), channel(green[i]), channel(blue[i]));
      }
    } else {
      for (std::size_t i = 0; i < colours_.size(); ++i) colours_[i] = Rgb(levels_[i], levels_[i], levels_[i]);
    }
  }
  // Signed samples are shown as they lie in the file, which suits the common case that none is negative.
  const bool power = layout.bits == 1 || layout.bits == 2 || layout.bits == 4 || layout.bits == 8;
  if (power && small && layout.samples == 1 && layout.colourSamples == 1) {
    Palette palette = BlackPalette();
    for (std::size_t i = 0; i <= most; ++i) {
      const unsigned grey = layout.photometric == PHOTOMETRIC_MINISWHITE ? 255U - levels_[i] : levels_[i];
      palette[i] = colours_.empty() ? Rgb(grey, grey, grey) : colours_[i];
    }
    packed_.emplace(layout.bits, palette);
  }
  if (layout.photometric == PHOTOMETRIC_YCBCR) conversion_->PrepareChroma(file);
  if (IsLab(layout.photometric)) conversion_->PrepareLab();
}

TiffRowReader::~TiffRowReader() = default;

// Rows of whole bytes that need no more than another order.
void TiffRowReader::ReadWhole(const std::uint8_t* bytes, std::span<std::uint32_t> row) const {
  if (layout_.samples == 3) return JoinRgb({bytes, row.size() * 3}, row);
  for (std::uint32_t& word : row) {
    word = std::uint32_t{bytes[3]} << 24 | (Rgb(bytes[0], bytes[1], bytes[2]) & 0xFFFFFFU);
    bytes += 4;
  }
}

void TiffRowReader::UnpackNumbers(const std::uint8_t* bytes, std::size_t count, std::size_t sample,
                                  std::uint16_t* into) const {
  const auto samples = static_cast<std::size_t>(layout_.samples);
  const auto colours = static_cast<std::size_t>(layout_.colourSamples);
  ForEachNumber(layout_.bits, bytes, count, [&](std::size_t i, double value) {
    const bool isColour = samples == colours || (layout_.separate ? sample : i % samples) < colours;
    const TiffRange range = isColour ? range_ : TiffRange{};
    // What is no number gives 0.
    const double share = std::min(std::max(0.0, (value - range.low) / (range.high - range.low)), 1.0);
    into[i] = static_cast<std::uint16_t>(share * most_ + 0.5);
  });
}

void TiffRowReader::Unpack(const std::uint8_t* bytes, std::size_t count, std::size_t sample,
                           std::uint16_t* into) const {
  if (layout_.sampleFormat == SAMPLEFORMAT_IEEEFP) return UnpackNumbers(bytes, count, sample, into);
  switch (layout_.bits) {
    case 8:
      std::copy_n(bytes, count, into);
      break;
    case 16:
      std::memcpy(into, bytes, count * 2);
      break;
    case 24:
      for (std::size_t i = 0; i < count; ++i) into[i] = bytes[3 * i + 2];
      break;
    case 32:
      for (std::size_t i = 0; i < count; ++i)
        into[i] = static_cast<std::uint16_t>(std::uint64_t{LoadNumber<std::uint32_t>(bytes, i)} * 255 /
                                             0xFFFFFFFFU);
      break;
    case 64:
      for (std::size_t i = 0; i < count; ++i)
        into[i] = static_cast<std::uint16_t>(LoadNumber<std::uint64_t>(bytes, i) >> 56);
      break;
    default:
      UnpackBits(bytes, static_cast<unsigned>(layout_.bits), count, into);
      break;
  }
}

std::uint32_t TiffRowReader::Light(const std::uint16_t* samples) const {
  switch (layout_.photometric) {
    case PHOTOMETRIC_RGB:
      return Rgb(Level(samples[0]), Level(samples[1]), Level(samples[2]));
    case PHOTOMETRIC_PALETTE:
      return colours_[std::min<std::size_t>(samples[0], colours_.size() - 1)];
    case PHOTOMETRIC_YCBCR: {
      std::uint32_t red = samples[0], green = samples[0], blue = samples[0];
      if (conversion_->chroma != nullptr) {
        TIFFYCbCrtoRGB(conversion_->chroma, samples[0], samples[1], samples[2], &red, &green, &blue);
      }
      return Rgb(red, green, blue);
    }
    case PHOTOMETRIC_MINISWHITE: {
      const unsigned grey = 255U - Level(samples[0]);
      return Rgb(grey, grey, grey);
    }
    default: {
      const unsigned grey = Level(samples[0]);
      return Rgb(grey, grey, grey);
    }
  }
}

void TiffRowReader::Read(std::span<const std::uint8_t* const> planes, std::span<std::uint32_t> row) {
  const bool plainRgb = layout_.bits == 8 && layout_.photometric == PHOTOMETRIC_RGB && !layout_.separate &&
                        layout_.sampleFormat == SAMPLEFORMAT_UINT;
  if (packed_) {
    packed_->Unpack({planes[0], RowBytes(static_cast<int>(row.size()), layout_.bits)}, row);
  } else if (plainRgb &&
             (layout_.samples == 3 || (layout_.samples == 4 && layout_.alpha == TiffAlpha::Straight))) {
    ReadWhole(planes[0], row);
  } else if (IsInks()) {
    ReadInks(planes, row);
    return ConvertInks(row);
  } else {
    ReadValues(planes, row.size());
    if (most_ == 65535) return ConvertDeep(row);
    if (conversion_->lab != nullptr && layout_.colourSamples == 3) {
      ConvertLab(row);
    } else {
      const auto samples = static_cast<std::size_t>(layout_.samples);
      for (std::size_t x = 0; x < row.size(); ++x) row[x] = Light(values_.data() + x * samples);
    }
    ApplyAlpha(row);
  }
  if (profile_ != nullptr) profile_->Convert(row);
}

void TiffRowReader::ReadValues(std::span<const std::uint8_t* const> planes, std::size_t width) {
  const auto samples = static_cast<std::size_t>(layout_.samples);
  values_.resize(width * samples);
  if (!layout_.separate) return Unpack(planes[0], values_.size(), 0, values_.data());
  plane_.resize(width);
  for (std::size_t sample = 0; sample < planes.size(); ++sample) {
    Unpack(planes[sample], width, sample, plane_.data());
    for (std::size_t x = 0; x < width; ++x) values_[x * samples + sample] = plane_[x];
  }
}

void TiffRowReader::ReadInks(std::span<const std::uint8_t* const> planes, std::span<std::uint32_t> row) {
  if (layout_.bits == 8 && layout_.samples == 4 && !layout_.separate) {
    std::memcpy(row.data(), planes[0], row.size_bytes());
    return;
  }
  ReadValues(planes, row.size());
  const auto samples = static_cast<std::size_t>(layout_.samples);
  auto* const inks = reinterpret_cast<std::uint8_t*>(row.data());
  for (std::size_t x = 0; x < row.size(); ++x)
    for (std::size_t i = 0; i < 4; ++i) inks[4 * x + i] = Level(values_[x * samples + i]);
}

void TiffRowReader::ConvertInks(std::span<std::uint32_t> row) const {
  if (profile_ != nullptr) {
    profile_->Convert(row);
  } else {
    ConvertInksPlainly(false, row);
  }
  ApplyAlpha(row);
}

void TiffRowReader::ConvertLab(std::span<std::uint32_t> row) {
  const auto samples = static_cast<std::size_t>(layout_.samples);
  auto& bytes = conversion_->labBytes;
  bytes.resize(row.size() * 3);
  // In this meaning of Lab the two colour samples are signed, in the ICC's they are not.
  const unsigned sign = layout_.photometric == PHOTOMETRIC_CIELAB ? 0x80 : 0;
  const int shift = layout_.bits - 8;
  for (std::size_t x = 0; x < row.size(); ++x) {
    for (std::size_t i = 0; i < 3; ++i) {
      const unsigned value = static_cast<unsigned>(values_[x * samples + i]) >> shift;
      bytes[3 * x + i] = static_cast<std::uint8_t>(i == 0 ? value : value ^ sign);
    }
  }
  cmsDoTransform(conversion_->lab, bytes.data(), row.data(), static_cast<cmsUInt32Number>(row.size()));
  for (std::uint32_t& word : row) word |= 0xFF000000U;
}

void TiffRowReader::ConvertDeep(std::span<std::uint32_t> row) {
  const auto samples = static_cast<std::size_t>(layout_.samples);
  const auto alphaPlace = static_cast<std::size_t>(layout_.colourSamples);
  deep_.resize(row.size() * 4);
  for (std::size_t x = 0; x < row.size(); ++x) {
    const std::uint16_t* const from = values_.data() + x * samples;
    std::uint16_t* const into = deep_.data() + 4 * x;
    for (std::size_t i = 0; i < 3; ++i) into[i] = from[layout_.colourSamples == 3 ? i : 0];
    into[3] = layout_.alpha == TiffAlpha::None ? std::uint16_t{65535} : from[alphaPlace];
    for (std::size_t i = 0; layout_.alpha == TiffAlpha::Premultiplied && into[3] != 0 && i < 3; ++i)
      into[i] = static_cast<std::uint16_t>(std::min(into[i] * 65535U / into[3], 65535U));
  }
  profile_->ConvertDeep(deep_, row);
}

void TiffRowReader::ApplyAlpha(std::span<std::uint32_t> row) const {
  if (layout_.alpha == TiffAlpha::None) return;
  const auto step = static_cast<std::size_t>(layout_.samples);
  const auto place = static_cast<std::size_t>(layout_.colourSamples);
  const bool divides =
      layout_.alpha == TiffAlpha::Premultiplied &&
      (layout_.photometric == PHOTOMETRIC_RGB || layout_.photometric == PHOTOMETRIC_MINISBLACK);
  for (std::size_t x = 0; x < row.size(); ++x) {
    const std::uint16_t* samples = values_.data() + x * step;
    const std::uint32_t alpha = Level(samples[place]);
    std::uint32_t word = row[x] & 0xFFFFFFU;
    if (divides && layout_.bits == 16) {
      // Cut to bytes before the division, as other readers do; once blended nothing of it is seen.
      const std::uint32_t cut = samples[place] >> 8;
      const auto channel = [&](std::size_t i) {
        return Unmultiplied(samples[layout_.colourSamples == 3 ? i : 0] >> 8, cut);
      };
      word = channel(0) << 16 | channel(1) << 8 | channel(2);
    } else if (divides) {
      word = Unmultiplied(word >> 16, alpha) << 16 | Unmultiplied(word >> 8 & 255, alpha) << 8 |
             Unmultiplied(word & 255, alpha);
    }
    row[x] = alpha << 24 | word;
  }
}

}  // namespace lumidex
