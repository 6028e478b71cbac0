#pragma once
// What every decoder's fuzz target does with an input.

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lumidex {

// Opens the bytes with the codec of this name, whatever they look like, and decodes them at full and at
// reduced size. Every pixel is read, so that one left unwritten shows under a memory checker. Returns 0.
int FuzzDecoder(std::string_view codecName, const std::uint8_t* data, std::size_t size);

}  // namespace lumidex
