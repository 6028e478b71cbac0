#include "pictures/codecs/iff_columns.h"

#include <algorithm>
#include <span>

#include "pictures/byte_reader.h"

namespace lumidex {
namespace {

// Writes words of 16 pixels down one column after the other.
class ColumnWriter {
 public:
  ColumnWriter(std::span<std::uint8_t> plane, std::size_t stride) : plane_(plane), stride_(stride) {}

  bool IsFull() const { return column_ >= stride_; }

  void Write(std::uint16_t word) {
    if (IsFull()) return;
    plane_[place_ + column_] = static_cast<std::uint8_t>(word >> 8);
    plane_[place_ + column_ + 1] = static_cast<std::uint8_t>(word);
    place_ += stride_;
    if (place_ < plane_.size()) return;
    place_ = 0;
    column_ += 2;
  }

 private:
  std::span<std::uint8_t> plane_;
  std::size_t stride_;
  std::size_t column_ = 0;  // in bytes
  std::size_t place_ = 0;   // where the row begins
};

// The commands stand first, the words they use behind them. Command 0 copies and 1 repeats as often as the
// next word says; from 2 on the command itself is the number of repeats, and a negative one that of copies.
void UnpackPlane(ByteReader chunk, ColumnWriter writer) {
  const std::size_t commandBytes = chunk.U16Be();
  ByteReader commands = chunk.Sub(std::max<std::size_t>(commandBytes, 2) - 2);
  ByteReader& words = chunk;
  while (!commands.AtEnd() && !words.AtEnd() && !writer.IsFull()) {
    const int command = static_cast<std::int8_t>(commands.U8());
    const bool repeats = command >= 1;
    int count = command < 0 ? -command : command;
    if (command == 0 || command == 1) count = words.U16Be();
    const std::uint16_t value = repeats ? words.U16Be() : std::uint16_t{0};
    for (; count > 0 && !writer.IsFull(); --count) {
      if (!repeats && words.AtEnd()) return;
      writer.Write(repeats ? value : words.U16Be());
    }
  }
}

}  // namespace

std::vector<std::uint8_t> UnpackColumns(Bytes body, int planes, std::size_t stride, int height) {
  const std::size_t planeBytes = stride * static_cast<std::size_t>(height);
  std::vector<std::uint8_t> unpacked(planeBytes * static_cast<std::size_t>(planes));
  ByteReader reader(body);
  constexpr std::uint32_t columnChunk = 0x56444154;  // VDAT
  for (int plane = 0; plane < planes && !reader.AtEnd();) {
    const std::uint32_t id = reader.U32Be();
    const std::uint32_t length = reader.U32Be();
    const ByteReader chunk = reader.Sub(length);
    if (length % 2 != 0) reader.Skip(1);
    if (id != columnChunk) continue;
    UnpackPlane(chunk, ColumnWriter(std::span(unpacked).subspan(planeBytes * static_cast<std::size_t>(plane),
                                                                planeBytes),
                                    stride));
    ++plane;
  }
  return unpacked;
}

}  // namespace lumidex
