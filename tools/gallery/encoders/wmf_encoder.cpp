#include "gallery/encoders/wmf_encoder.h"

#include <algorithm>

namespace lumidex {
namespace {

// Colours are stored with red in the lowest byte.
int LowWord(std::uint32_t colour) {
  return static_cast<int>((colour >> 16 & 0xFF) | (colour & 0xFF00));
}
int HighWord(std::uint32_t colour) {
  return static_cast<int>(colour & 0xFF);
}

}  // namespace

WmfWriter& WmfWriter::Record(unsigned function, std::initializer_list<int> words,
                             std::span<const std::uint8_t> tail) {
  const std::size_t bytes = 6 + 2 * words.size() + tail.size() + tail.size() % 2;
  ByteWriter writer;
  writer.U32Le(static_cast<std::uint32_t>(bytes / 2));
  writer.U16Le(function);
  for (const int word : words) writer.U16Le(static_cast<std::uint16_t>(word));
  writer.Append(tail);
  writer.PadTo(2);
  const std::vector<std::uint8_t> record = writer.Take();
  records_.insert(records_.end(), record.begin(), record.end());
  longestWords_ = std::max(longestWords_, static_cast<std::uint32_t>(bytes / 2));
  return *this;
}

WmfWriter& WmfWriter::Window(int left, int top, int width, int height) {
  Record(0x020B, {top, left});
  return Record(0x020C, {height, width});
}

WmfWriter& WmfWriter::CreatePen(unsigned style, int width, std::uint32_t colour) {
  ++objects_;
  return Record(0x02FA, {static_cast<int>(style), width, 0, LowWord(colour), HighWord(colour)});
}

WmfWriter& WmfWriter::CreateBrush(unsigned style, std::uint32_t colour, int hatch) {
  ++objects_;
  return Record(0x02FC, {static_cast<int>(style), LowWord(colour), HighWord(colour), hatch});
}

WmfWriter& WmfWriter::CreateFont(int height, int escapement, std::string_view family) {
  ++objects_;
  ByteWriter name;
  name.Append(family);
  name.U8(0);
  return Record(0x02FB, {height, 0, escapement, escapement, 400, 0, 0, 0, 0}, name.Take());
}

WmfWriter& WmfWriter::Polygon(std::initializer_list<Corner> corners) {
  ByteWriter points;
  for (const auto& [x, y] : corners) {
    points.U16Le(static_cast<std::uint16_t>(x));
    points.U16Le(static_cast<std::uint16_t>(y));
  }
  return Record(0x0324, {static_cast<int>(corners.size())}, points.Take());
}

WmfWriter& WmfWriter::Text(int x, int y, std::string_view text) {
  ByteWriter tail;
  tail.Append(text);
  tail.PadTo(2);
  tail.U16Le(static_cast<std::uint16_t>(y));
  tail.U16Le(static_cast<std::uint16_t>(x));
  return Record(0x0521, {static_cast<int>(text.size())}, tail.Take());
}

WmfWriter& WmfWriter::StretchDib(int x, int y, int width, int height, std::span<const std::uint8_t> bitmap,
                                 int sourceWidth, int sourceHeight, std::uint32_t operation) {
  return Record(0x0F43,
                {static_cast<int>(operation & 0xFFFF), static_cast<int>(operation >> 16), 0, sourceHeight,
                 sourceWidth, 0, 0, height, width, y, x},
                bitmap);
}

std::vector<std::uint8_t> WmfWriter::File(std::optional<Placing> placing) const {
  ByteWriter file;
  if (placing) {
    const int words[] = {
        0, placing->left, placing->top, placing->right, placing->bottom, placing->unitsPerInch, 0, 0};
    unsigned sum = 0xCDD7 ^ 0x9AC6;
    file.U32Le(0x9AC6CDD7);
    for (const int word : words) {
      file.U16Le(static_cast<std::uint16_t>(word));
      sum ^= static_cast<std::uint16_t>(word);
    }
    file.U16Le(sum);
  }
  constexpr std::uint32_t headerWords = 9, endWords = 3;
  file.U16Le(1);
  file.U16Le(headerWords);
  file.U16Le(0x0300);
  file.U32Le(headerWords + endWords + static_cast<std::uint32_t>(records_.size() / 2));
  file.U16Le(objects_);
  file.U32Le(longestWords_);
  file.U16Le(0);
  file.Append(records_);
  file.U32Le(endWords);
  file.U16Le(0);
  return file.Take();
}

}  // namespace lumidex
