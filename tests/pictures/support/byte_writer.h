#pragma once
// Builds small picture files byte by byte, and opens them.

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "pictures/codec.h"

namespace lumidex {

class ByteWriter {
 public:
  ByteWriter& U8(unsigned value);
  ByteWriter& U16Le(unsigned value);
  ByteWriter& U32Le(std::uint32_t value);
  ByteWriter& U16Be(unsigned value);
  ByteWriter& U32Be(std::uint32_t value);
  ByteWriter& Text(std::string_view text);
  ByteWriter& Add(std::initializer_list<unsigned> values);
  ByteWriter& Add(const std::vector<std::uint8_t>& bytes);
  ByteWriter& Fill(std::size_t count, unsigned value = 0);

  std::size_t Size() const { return bytes_.size(); }
  const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

 private:
  std::vector<std::uint8_t> bytes_;
};

PictureData DataOf(std::vector<std::uint8_t> bytes, std::string extension = {});
std::unique_ptr<Decoder> OpenBytes(const std::vector<std::uint8_t>& bytes, const std::string& extension = {},
                                   const OpenOptions& options = {});
Pixels DecodeBytes(const std::vector<std::uint8_t>& bytes, const std::string& extension = {},
                   const OpenOptions& options = {});

// All pixels of a row or of a picture, for comparing with a list.
std::vector<std::uint32_t> WordsOf(const Pixels& pixels);
std::vector<std::uint32_t> RowOf(const Pixels& pixels, int y);

}  // namespace lumidex
