#pragma once
// Builds enhanced metafiles that hold nothing but the later "plus" records.

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

#include "gallery/encoders/emf_encoder.h"

namespace lumidex {

inline constexpr std::uint32_t opaque = 0xFF000000;
inline constexpr unsigned colourInstead = 0x8000, narrow = 0x4000;
inline constexpr unsigned brushKind = 1, penKind = 2, pathKind = 3, regionKind = 4, imageKind = 5,
                          fontKind = 6;
inline constexpr std::uint32_t inPixels = 2;

inline std::uint32_t Float(float value) {
  return std::bit_cast<std::uint32_t>(value);
}

// Collects records and puts them into a comment of a square drawing.
class PlusWriter {
 public:
  explicit PlusWriter(bool dual = false, int side = 100) : side_(side) {
    Record(0x4001, dual ? 1 : 0, {0xDBC01002, 1, 96, 96});
  }

  PlusWriter& Record(unsigned type, unsigned flags, std::initializer_list<std::uint32_t> words,
                     std::span<const std::uint8_t> tail = {}) {
    ByteWriter data;
    for (const std::uint32_t word : words) data.U32Le(word);
    data.Append(tail);
    data.PadTo(4);
    const auto bytes = static_cast<std::uint32_t>(data.Size());
    records_.U16Le(type).U16Le(flags).U32Le(12 + bytes).U32Le(bytes).Append(data.Take());
    return *this;
  }
  PlusWriter& Object(unsigned kind, unsigned number, const std::vector<std::uint8_t>& bytes) {
    return Record(0x4008, kind << 8 | number, {}, bytes);
  }
  PlusWriter& FillBox(std::uint32_t colour, int left, int top, int width, int height) {
    ByteWriter box;
    for (const int side : {left, top, width, height}) box.U16Le(static_cast<std::uint16_t>(side));
    return Record(0x400A, colourInstead | narrow, {colour, 1}, box.Take());
  }

  // The bytes of the records so far.
  std::size_t Size() const { return records_.Size(); }

  std::vector<std::uint8_t> File() const {
    ByteWriter comment;
    comment.Append("EMF+").Append(records_.Bytes());
    EmfWriter writer(side_, side_);
    writer.Record(70, {static_cast<std::int64_t>(comment.Size())}, comment.Bytes());
    return writer.File();
  }

 private:
  int side_;
  ByteWriter records_;
};

inline std::vector<std::uint8_t> Words(std::initializer_list<std::uint32_t> words) {
  ByteWriter writer;
  for (const std::uint32_t word : words) writer.U32Le(word);
  return writer.Take();
}

}  // namespace lumidex
