#include "gallery/encoders/emf_encoder.h"

#include <algorithm>
#include <bit>

namespace lumidex {
namespace {

// Colours are stored with red in the lowest byte.
std::uint32_t Stored(std::uint32_t colour) {
  return (colour >> 16 & 0xFF) | (colour & 0xFF00) | (colour & 0xFF) << 16;
}

constexpr int HundredthsOfMillimetre(int pixels) {
  return (pixels * 2540 + 48) / 96;
}

}  // namespace

EmfWriter& EmfWriter::Record(unsigned type, std::initializer_list<std::int64_t> words,
                             std::span<const std::uint8_t> tail) {
  ByteWriter writer;
  writer.U32Le(type);
  writer.U32Le(static_cast<std::uint32_t>(8 + 4 * words.size() + (tail.size() + 3) / 4 * 4));
  for (const std::int64_t word : words) writer.U32Le(static_cast<std::uint32_t>(word));
  writer.Append(tail);
  writer.PadTo(4);
  const std::vector<std::uint8_t> record = writer.Take();
  records_.insert(records_.end(), record.begin(), record.end());
  ++recordCount_;
  return *this;
}

EmfWriter& EmfWriter::Creation(unsigned type, int number, std::initializer_list<std::int64_t> words,
                               std::span<const std::uint8_t> tail) {
  highestNumber_ = std::max(highestNumber_, static_cast<std::uint32_t>(number));
  return Record(type, words, tail);
}

EmfWriter& EmfWriter::CreatePen(int number, unsigned style, int width, std::uint32_t colour) {
  return Creation(38, number, {number, style, width, 0, Stored(colour)});
}

EmfWriter& EmfWriter::CreateGeometricPen(int number, unsigned style, int width, std::uint32_t colour) {
  return Creation(95, number, {number, 0, 0, 0, 0, 0x10000 | style, width, 0, Stored(colour), 0, 0});
}

EmfWriter& EmfWriter::CreateBrush(int number, unsigned style, std::uint32_t colour, int hatch) {
  return Creation(39, number, {number, style, Stored(colour), hatch});
}

EmfWriter& EmfWriter::CreateFont(int number, int height, int escapement, std::string_view family) {
  ByteWriter name;
  for (const char letter : family) name.U16Le(static_cast<unsigned char>(letter));
  name.Zeros(64 - std::min<std::size_t>(name.Size(), 64));
  return Creation(82, number, {number, height, 0, escapement, escapement, 400, 0, 0}, name.Take());
}

EmfWriter& EmfWriter::Polygon(std::initializer_list<Corner> corners) {
  ByteWriter points;
  for (const auto& [x, y] : corners) {
    points.U32Le(static_cast<std::uint32_t>(x));
    points.U32Le(static_cast<std::uint32_t>(y));
  }
  return Record(3, {0, 0, 0, 0, static_cast<std::int64_t>(corners.size())}, points.Take());
}

EmfWriter& EmfWriter::Text(int x, int y, std::string_view text, std::initializer_list<int> advances) {
  constexpr std::int64_t textAt = 76;
  ByteWriter tail;
  for (const char letter : text) tail.U16Le(static_cast<unsigned char>(letter));
  tail.PadTo(4);
  const std::int64_t advancesAt = advances.size() != 0 ? textAt + static_cast<std::int64_t>(tail.Size()) : 0;
  for (const int advance : advances) tail.U32Le(static_cast<std::uint32_t>(advance));
  const std::int64_t one = std::bit_cast<std::uint32_t>(1.0F);
  return Record(84,
                {0, 0, 0, 0, 1, one, one, x, y, static_cast<std::int64_t>(text.size()), textAt, 0, 0, 0, 0, 0,
                 advancesAt},
                tail.Take());
}

EmfWriter& EmfWriter::WorldTransform(std::array<float, 6> matrix) {
  ByteWriter tail;
  for (const float part : matrix) tail.U32Le(std::bit_cast<std::uint32_t>(part));
  return Record(35, {}, tail.Take());
}

EmfWriter& EmfWriter::StretchDib(int x, int y, int width, int height, std::span<const std::uint8_t> header,
                                 std::span<const std::uint8_t> bits, int sourceWidth, int sourceHeight,
                                 std::uint32_t operation) {
  constexpr std::int64_t headerAt = 80;
  const auto headerBytes = static_cast<std::int64_t>(header.size()),
             bitsBytes = static_cast<std::int64_t>(bits.size());
  std::vector<std::uint8_t> tail(header.begin(), header.end());
  tail.insert(tail.end(), bits.begin(), bits.end());
  return Record(81,
                {0, 0, 0, 0, x, y, 0, 0, sourceWidth, sourceHeight, headerAt, headerBytes,
                 headerAt + headerBytes, bitsBytes, 0, operation, width, height},
                tail);
}

std::vector<std::uint8_t> EmfWriter::File() const {
  constexpr std::uint32_t headerBytes = 88, endBytes = 20;
  ByteWriter file;
  file.U32Le(1);
  file.U32Le(headerBytes);
  for (const int word :
       {0, 0, width_ - 1, height_ - 1, 0, 0, HundredthsOfMillimetre(width_), HundredthsOfMillimetre(height_)})
    file.U32Le(static_cast<std::uint32_t>(word));
  file.U32Le(0x464D4520);
  file.U32Le(0x10000);
  file.U32Le(headerBytes + endBytes + static_cast<std::uint32_t>(records_.size()));
  file.U32Le(recordCount_ + 2);
  file.U16Le(highestNumber_ + 1);
  file.U16Le(0);
  file.Zeros(12);
  // A device of 1440 by 960 pixels on 381 by 254 millimetres.
  for (const std::uint32_t word : {1440U, 960U, 381U, 254U}) file.U32Le(word);
  file.Append(records_);
  for (const std::uint32_t word : {14U, endBytes, 0U, 16U, endBytes}) file.U32Le(word);
  return file.Take();
}

}  // namespace lumidex
