#include "pictures/bmp_writer.h"

#include <limits>

#include "base/run_time_error.h"
#include "pictures/alpha.h"

namespace lumidex {
namespace {

constexpr std::uint32_t fileHeaderBytes = 14;
constexpr std::uint32_t infoHeaderBytes = 40;
constexpr std::uint32_t dotsPerMetre = 3780;  // 96 to the inch

void AppendNumber(std::string& file, std::uint32_t value, int bytes) {
  for (; bytes > 0; --bytes, value >>= 8) file += static_cast<char>(value & 0xFF);
}

void AppendHeaders(std::string& file, Size size, std::uint32_t pixelBytes) {
  constexpr std::uint32_t headerBytes = fileHeaderBytes + infoHeaderBytes;
  file += "BM";
  AppendNumber(file, headerBytes + pixelBytes, 4);
  AppendNumber(file, 0, 4);
  AppendNumber(file, headerBytes, 4);
  AppendNumber(file, infoHeaderBytes, 4);
  AppendNumber(file, static_cast<std::uint32_t>(size.width), 4);
  AppendNumber(file, static_cast<std::uint32_t>(size.height), 4);
  AppendNumber(file, 1, 2);   // planes
  AppendNumber(file, 24, 2);  // bits a pixel
  AppendNumber(file, 0, 4);   // not compressed
  AppendNumber(file, pixelBytes, 4);
  AppendNumber(file, dotsPerMetre, 4);
  AppendNumber(file, dotsPerMetre, 4);
  AppendNumber(file, 0, 4);  // colours in the table, and of these important
  AppendNumber(file, 0, 4);
}

}  // namespace

std::string BmpFile(const Pixels& pixels) {
  const Pixels opaque = BlendedOverWhite(pixels);
  const std::size_t rowBytes = (static_cast<std::size_t>(opaque.Width()) * 3 + 3) / 4 * 4;
  const std::uint64_t pixelBytes = std::uint64_t{rowBytes} * static_cast<std::uint64_t>(opaque.Height());
  constexpr std::uint64_t most =
      std::numeric_limits<std::uint32_t>::max() - fileHeaderBytes - infoHeaderBytes;
  if (pixelBytes > most) throw RunTimeError(ErrorNumber::InvalidPicture);
  std::string file;
  file.reserve(fileHeaderBytes + infoHeaderBytes + pixelBytes);
  AppendHeaders(file, opaque.GetSize(), static_cast<std::uint32_t>(pixelBytes));
  for (int y = opaque.Height() - 1; y >= 0; --y) {
    const std::size_t start = file.size();
    for (const std::uint32_t pixel : opaque.Row(y)) AppendNumber(file, pixel & 0xFFFFFF, 3);
    file.resize(start + rowBytes);
  }
  return file;
}

}  // namespace lumidex
