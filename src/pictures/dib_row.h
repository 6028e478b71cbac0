#pragma once
// One row of an uncompressed device-independent bitmap: packed positions, bit fields, or whole bytes.

#include <optional>
#include <span>

#include "pictures/dib.h"
#include "pictures/planes.h"

namespace lumidex {

class DibRowReader {
 public:
  explicit DibRowReader(const DibHeader& header);
  // Pixels beyond the end of `bytes` become blank.
  void Read(Bytes bytes, std::span<std::uint32_t> row) const;

 private:
  struct Field {
    std::uint32_t mask = 0;
    int shift = 0;
    std::uint32_t most = 0;                  // the field's greatest value
    std::array<std::uint8_t, 256> scaled{};  // for fields of up to 8 bits
    std::uint32_t Value(std::uint32_t word) const;
  };
  void ReadFields(Bytes bytes, std::span<std::uint32_t> row) const;

  std::size_t bits_;
  std::optional<PackedRows> positions_;
  std::array<Field, 4> fields_;
  bool plainWords_ = false;  // 32 bits with the usual masks
};

}  // namespace lumidex
