#pragma once
// Opens small picture files that tests build byte by byte.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "gallery/encoders/byte_writer.h"
#include "pictures/codec.h"

namespace lumidex {

PictureData DataOf(std::vector<std::uint8_t> bytes, std::string extension = {});
std::unique_ptr<Decoder> OpenBytes(const std::vector<std::uint8_t>& bytes, const std::string& extension = {},
                                   const OpenOptions& options = {});
Pixels DecodeBytes(const std::vector<std::uint8_t>& bytes, const std::string& extension = {},
                   const OpenOptions& options = {});

// All pixels of a row or of a picture, for comparing with a list.
std::vector<std::uint32_t> WordsOf(const Pixels& pixels);
std::vector<std::uint32_t> RowOf(const Pixels& pixels, int y);

}  // namespace lumidex
