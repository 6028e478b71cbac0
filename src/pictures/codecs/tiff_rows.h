#pragma once
// Makes pixels of a row of TIFF samples: any number of bits, integers or numbers with a point, and all the
// usual meanings of colour.

#include <optional>
#include <span>
#include <vector>

#include "pictures/codecs/tiff_file.h"
#include "pictures/colour_profile.h"
#include "pictures/planes.h"

namespace lumidex {

class TiffRowReader {
 public:
  // True when Read can make pixels of such samples.
  static bool CanRead(const TiffLayout& layout);

  // `inks` (may be null) converts pictures in four inks. Numbers with a point count from `low` to `high`.
  TiffRowReader(const TiffFile& file, const TiffLayout& layout, const ColourProfile* inks, double low,
                double high);
  ~TiffRowReader();

  // `planes`: one row of all samples, or of each sample when they are kept apart; long enough for all pixels.
  void Read(std::span<const std::uint8_t* const> planes, std::span<std::uint32_t> row);

 private:
  struct Conversion;
  void ReadWhole(const std::uint8_t* bytes, std::span<std::uint32_t> row) const;
  void Unpack(const std::uint8_t* bytes, std::size_t count, std::uint16_t* into) const;
  std::uint32_t Light(const std::uint16_t* samples) const;
  std::uint8_t Level(std::uint16_t value) const { return levels_[value]; }
  void ApplyAlpha(std::size_t step, std::span<std::uint32_t> row) const;

  TiffLayout layout_;
  const ColourProfile* inks_;
  double low_;
  double high_;
  std::vector<std::uint8_t> levels_;    // 8 bits for each value of a sample
  std::vector<std::uint32_t> colours_;  // of palette pictures
  std::optional<PackedRows> packed_;    // one sample of up to 8 bits
  std::vector<std::uint16_t> values_;
  std::unique_ptr<Conversion> conversion_;
};

// The least and the greatest of `count` numbers with a point, joined with what `low` and `high` hold.
void JoinRange(const TiffLayout& layout, const std::uint8_t* bytes, std::size_t count, double& low,
               double& high);

}  // namespace lumidex
