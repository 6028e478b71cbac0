#include "pictures/codecs/tiff_rows.h"

#include <lcms2.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

#include "base/run_time_error.h"

namespace lumidex {
namespace {

template <class Number>
Number Load(const std::uint8_t* bytes, std::size_t index) {
  Number number;
  std::memcpy(&number, bytes + index * sizeof(Number), sizeof(Number));
  return number;
}

// Half-precision numbers: 1 sign, 5 exponent, 10 fraction bits. The same bits in a float's places count from
// another exponent, which one multiplication makes up for.
double FromHalf(std::uint16_t half) {
  const std::uint32_t sign = static_cast<std::uint32_t>(half & 0x8000) << 16;
  const std::uint32_t rest = static_cast<std::uint32_t>(half & 0x7FFF) << 13;
  return static_cast<double>(std::bit_cast<float>(sign | rest) * 0x1p112F);
}

// Runs `visit(index, value)` over numbers of so many bits.
template <class Visit>
void ForEachNumber(int bits, const std::uint8_t* bytes, std::size_t count, Visit visit) {
  switch (bits) {
    case 16:
      for (std::size_t i = 0; i < count; ++i) visit(i, FromHalf(Load<std::uint16_t>(bytes, i)));
      break;
    case 32:
      for (std::size_t i = 0; i < count; ++i) visit(i, static_cast<double>(Load<float>(bytes, i)));
      break;
    default:
      for (std::size_t i = 0; i < count; ++i) visit(i, Load<double>(bytes, i));
      break;
  }
}

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

TiffRowReader::TiffRowReader(const TiffFile& file, const TiffLayout& layout, const ColourProfile* inks,
                             double low, double high)
    : layout_(layout), inks_(inks), low_(low), high_(high), conversion_(std::make_unique<Conversion>()) {
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
  if (layout_.samples == 3) {
    for (std::uint32_t& word : row) {
      word = Rgb(bytes[0], bytes[1], bytes[2]);
      bytes += 3;
    }
    return;
  }
  for (std::uint32_t& word : row) {
    word = std::uint32_t{bytes[3]} << 24 | (Rgb(bytes[0], bytes[1], bytes[2]) & 0xFFFFFFU);
    bytes += 4;
  }
}

void TiffRowReader::Unpack(const std::uint8_t* bytes, std::size_t count, std::uint16_t* into) const {
  if (layout_.sampleFormat == SAMPLEFORMAT_IEEEFP) {
    const double low = low_, range = high_ - low_;
    ForEachNumber(layout_.bits, bytes, count, [&](std::size_t i, double value) {
      const double share = std::min(std::max(0.0, (value - low) / range), 1.0);       // no number gives 0
      into[i] = static_cast<std::uint16_t>((static_cast<int>(share * 510) + 1) / 2);  // rounded
    });
    return;
  }
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
        into[i] =
            static_cast<std::uint16_t>(std::uint64_t{Load<std::uint32_t>(bytes, i)} * 255 / 0xFFFFFFFFU);
      break;
    case 64:
      for (std::size_t i = 0; i < count; ++i)
        into[i] = static_cast<std::uint16_t>(Load<std::uint64_t>(bytes, i) >> 56);
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
  if (packed_) return packed_->Unpack({planes[0], RowBytes(static_cast<int>(row.size()), layout_.bits)}, row);
  const bool plainRgb = layout_.bits == 8 && layout_.photometric == PHOTOMETRIC_RGB && !layout_.separate &&
                        layout_.sampleFormat == SAMPLEFORMAT_UINT;
  if (plainRgb && (layout_.samples == 3 || (layout_.samples == 4 && layout_.alpha == TiffAlpha::Straight))) {
    return ReadWhole(planes[0], row);
  }
  const auto samples = static_cast<std::size_t>(layout_.samples);
  values_.resize(row.size() * samples);
  if (layout_.separate) {
    std::vector<std::uint16_t> plane(row.size());
    for (std::size_t sample = 0; sample < planes.size(); ++sample) {
      Unpack(planes[sample], row.size(), plane.data());
      for (std::size_t x = 0; x < row.size(); ++x) values_[x * samples + sample] = plane[x];
    }
  } else {
    Unpack(planes[0], values_.size(), values_.data());
  }
  if (layout_.colourSamples == 4) {
    auto* const inks = reinterpret_cast<std::uint8_t*>(row.data());
    for (std::size_t x = 0; x < row.size(); ++x) {
      for (std::size_t i = 0; i < 4; ++i) inks[4 * x + i] = Level(values_[x * samples + i]);
    }
    if (inks_ != nullptr) {
      inks_->Convert(row);
    } else {
      ConvertInksPlainly(false, row);
    }
  } else if (conversion_->lab != nullptr && layout_.colourSamples == 3) {
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
  } else {
    for (std::size_t x = 0; x < row.size(); ++x) row[x] = Light(values_.data() + x * samples);
  }
  if (layout_.alpha != TiffAlpha::None) ApplyAlpha(samples, row);
}

void TiffRowReader::ApplyAlpha(std::size_t step, std::span<std::uint32_t> row) const {
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

void JoinRange(const TiffLayout& layout, const std::uint8_t* bytes, std::size_t count, double& low,
               double& high) {
  double least = low, most = high;
  ForEachNumber(layout.bits, bytes, count, [&](std::size_t, double value) {
    if (!std::isfinite(value)) return;
    least = std::min(least, value);
    most = std::max(most, value);
  });
  low = least;
  high = most;
}

}  // namespace lumidex
