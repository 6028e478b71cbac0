# Writes the bytes of INPUT into the source file OUTPUT, under NAME.
file(READ ${INPUT} bytes HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
file(WRITE ${OUTPUT} "#include <cstdint>
#include <span>

namespace lumidex::embedded {

namespace {
constexpr std::uint8_t bytes[] = {${bytes}};
}

extern const std::span<const std::uint8_t> ${NAME}Bytes;
const std::span<const std::uint8_t> ${NAME}Bytes = bytes;

}  // namespace lumidex::embedded
")
