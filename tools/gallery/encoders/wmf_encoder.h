#pragma once
// Builds Windows metafiles record by record.

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "gallery/encoders/byte_writer.h"

namespace lumidex {

class WmfWriter {
 public:
  using Corner = std::pair<int, int>;

  // A record of 16-bit words in the order of the file, followed by `tail`.
  WmfWriter& Record(unsigned function, std::initializer_list<int> words,
                    std::span<const std::uint8_t> tail = {});

  WmfWriter& Window(int left, int top, int width, int height);
  // Objects take the lowest free number; colours are 0xRRGGBB.
  WmfWriter& CreatePen(unsigned style, int width, std::uint32_t colour);
  WmfWriter& CreateBrush(unsigned style, std::uint32_t colour, int hatch = 0);
  WmfWriter& CreateFont(int height, int escapement, std::string_view family);
  WmfWriter& Select(int object) { return Record(0x012D, {object}); }
  WmfWriter& Delete(int object) { return Record(0x01F0, {object}); }
  WmfWriter& MoveTo(int x, int y) { return Record(0x0214, {y, x}); }
  WmfWriter& LineTo(int x, int y) { return Record(0x0213, {y, x}); }
  WmfWriter& Rectangle(int left, int top, int right, int bottom) {
    return Record(0x041B, {bottom, right, top, left});
  }
  WmfWriter& Ellipse(int left, int top, int right, int bottom) {
    return Record(0x0418, {bottom, right, top, left});
  }
  WmfWriter& Polygon(std::initializer_list<Corner> corners);
  WmfWriter& Text(int x, int y, std::string_view text);
  // The bitmap is a header, its colours and its pixels.
  WmfWriter& StretchDib(int x, int y, int width, int height, std::span<const std::uint8_t> bitmap,
                        int sourceWidth, int sourceHeight, std::uint32_t operation = 0x00CC0020);

  // The whole file; with a placing header when the picture's box and its units are given.
  struct Placing {
    int left = 0, top = 0, right = 0, bottom = 0;
    int unitsPerInch = 96;
  };
  std::vector<std::uint8_t> File(std::optional<Placing> placing = std::nullopt) const;
  // The bytes of the records so far.
  std::size_t Size() const { return records_.size(); }

 private:
  std::vector<std::uint8_t> records_;
  std::uint32_t longestWords_ = 3;
  std::uint32_t objects_ = 0;  // made so far
};

}  // namespace lumidex
