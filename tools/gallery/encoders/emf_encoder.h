#pragma once
// Builds enhanced metafiles record by record.

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "gallery/encoders/byte_writer.h"

namespace lumidex {

class EmfWriter {
 public:
  using Corner = std::pair<int, int>;

  // The picture's size in pixels of a device with 96 to the inch.
  EmfWriter(int width, int height) : width_(width), height_(height) {}

  // A record of 32-bit words in the order of the file, followed by `tail`.
  EmfWriter& Record(unsigned type, std::initializer_list<std::int64_t> words,
                    std::span<const std::uint8_t> tail = {});

  // Objects have the number they are given, from 1 on; colours are 0xRRGGBB.
  EmfWriter& CreatePen(int number, unsigned style, int width, std::uint32_t colour);
  EmfWriter& CreateGeometricPen(int number, unsigned style, int width, std::uint32_t colour);
  EmfWriter& CreateBrush(int number, unsigned style, std::uint32_t colour, int hatch = 0);
  EmfWriter& CreateFont(int number, int height, int escapement, std::string_view family);
  EmfWriter& Select(int number) { return Record(37, {number}); }
  EmfWriter& SelectStock(int number) { return Record(37, {0x80000000LL + number}); }
  EmfWriter& MoveTo(int x, int y) { return Record(27, {x, y}); }
  EmfWriter& LineTo(int x, int y) { return Record(54, {x, y}); }
  EmfWriter& Rectangle(int left, int top, int right, int bottom) {
    return Record(43, {left, top, right, bottom});
  }
  EmfWriter& Ellipse(int left, int top, int right, int bottom) {
    return Record(42, {left, top, right, bottom});
  }
  EmfWriter& Polygon(std::initializer_list<Corner> corners);
  EmfWriter& Text(int x, int y, std::string_view text, std::initializer_list<int> advances = {});
  EmfWriter& WorldTransform(std::array<float, 6> matrix);
  EmfWriter& StretchDib(int x, int y, int width, int height, std::span<const std::uint8_t> header,
                        std::span<const std::uint8_t> bits, int sourceWidth, int sourceHeight,
                        std::uint32_t operation = 0x00CC0020);

  std::vector<std::uint8_t> File() const;
  // The bytes of the records so far.
  std::size_t Size() const { return records_.size(); }

 private:
  // A record that makes object `number`.
  EmfWriter& Creation(unsigned type, int number, std::initializer_list<std::int64_t> words,
                      std::span<const std::uint8_t> tail = {});

  int width_;
  int height_;
  std::vector<std::uint8_t> records_;
  std::uint32_t recordCount_ = 0;
  std::uint32_t highestNumber_ = 0;
};

}  // namespace lumidex
