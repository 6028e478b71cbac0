#pragma once
// Makes pixels of a row of TIFF samples: any number of bits, integers or numbers with a point, and all the
// usual meanings of colour.

#include <optional>
#include <span>
#include <vector>

#include "pictures/codecs/tiff_file.h"
#include "pictures/codecs/tiff_range.h"
#include "pictures/colour_profile.h"
#include "pictures/planes.h"

namespace lumidex {

class TiffRowReader {
 public:
  // True when Read can make pixels of such samples.
  static bool CanRead(const TiffLayout& layout);

  // True when a profile must be one for colours of 16 bits.
  static bool IsDeep(const TiffLayout& layout);

  // `profile` (may be null) must live as long. Numbers with a point are shown by the range.
  TiffRowReader(const TiffFile& file, const TiffLayout& layout, const ColourProfile* profile,
                const TiffRange& range);
  ~TiffRowReader();

  // `planes`: one row of all samples, or of each sample when they are kept apart; long enough for all pixels.
  void Read(std::span<const std::uint8_t* const> planes, std::span<std::uint32_t> row);

  // Pictures in four inks may be read in two steps: the inks as the four bytes of each word, and those made
  // colours of. Opaque ones only when something comes between the steps.
  bool IsInks() const { return layout_.colourSamples == 4; }
  void ReadInks(std::span<const std::uint8_t* const> planes, std::span<std::uint32_t> row);
  void ConvertInks(std::span<std::uint32_t> row) const;

 private:
  struct Conversion;
  void ReadWhole(const std::uint8_t* bytes, std::span<std::uint32_t> row) const;
  // `count` samples of planes that lie apart, all of them of plane `sample`, or else of whole pixels.
  void Unpack(const std::uint8_t* bytes, std::size_t count, std::size_t sample, std::uint16_t* into) const;
  // Of numbers with a point: colours by their range, transparency from 0 to 1.
  void UnpackNumbers(const std::uint8_t* bytes, std::size_t count, std::size_t sample,
                     std::uint16_t* into) const;
  std::uint32_t Light(const std::uint16_t* samples) const;
  std::uint8_t Level(std::uint16_t value) const { return levels_[value]; }
  void ReadValues(std::span<const std::uint8_t* const> planes, std::size_t width);
  void ConvertLab(std::span<std::uint32_t> row);
  void ConvertDeep(std::span<std::uint32_t> row);
  void ApplyAlpha(std::span<std::uint32_t> row) const;

  TiffLayout layout_;
  const ColourProfile* profile_;
  TiffRange range_;
  double most_;                         // what the greatest number of the range becomes
  std::vector<std::uint8_t> levels_;    // 8 bits for each value of a sample
  std::vector<std::uint32_t> colours_;  // of palette pictures
  std::optional<PackedRows> packed_;    // one sample of up to 8 bits
  std::vector<std::uint16_t> values_, plane_, deep_;
  std::unique_ptr<Conversion> conversion_;
};

}  // namespace lumidex
