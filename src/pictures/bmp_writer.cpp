#include "pictures/bmp_writer.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

#include "base/run_time_error.h"
#include "pictures/alpha.h"
#include "pictures/word_blocks.h"

namespace lumidex {
namespace {

constexpr std::uint32_t fileHeaderBytes = 14;
constexpr std::uint32_t plainHeaderBytes = 40;
constexpr std::uint32_t alphaHeaderBytes = 108;
constexpr std::uint32_t dotsPerMetre = 3780;  // 96 to the inch
// What is handed on at once: small enough to stay in the processor's cache, large enough for few calls.
constexpr std::size_t blockBytes = 262144;

class Block {
 public:
  explicit Block(ByteSink& sink) : sink_(sink), bytes_(std::make_unique<std::uint8_t[]>(blockBytes)) {}
  void Number(std::uint32_t value, std::size_t bytes) {
    for (std::uint8_t* out = Extend(bytes); bytes > 0; --bytes, value >>= 8) *out++ = value & 0xFF;
  }
  // Room for `count` bytes more, at most blockBytes; all of them must be written.
  std::uint8_t* Extend(std::size_t count) {
    if (used_ + count > blockBytes) Flush();
    used_ += count;
    return bytes_.get() + used_ - count;
  }
  void Flush() {
    if (used_ > 0) sink_.Write({bytes_.get(), used_});
    used_ = 0;
  }

 private:
  ByteSink& sink_;
  std::unique_ptr<std::uint8_t[]> bytes_;
  std::size_t used_ = 0;
};

#if LUMIDEX_WORD_BLOCKS
// As many pixels as can be packed by fours without writing behind the row. Returns how many.
std::size_t PackFours(std::span<const std::uint32_t> row, std::uint8_t* out) {
  const WordBlock even = _mm_set1_epi64x(0x0000000000FFFFFF), odd = _mm_set1_epi64x(0x0000FFFFFF000000);
  const WordBlock lower = _mm_set_epi64x(0, 0x0000FFFFFFFFFFFF);
  std::size_t done = 0;
  // A block is stored whole, its last four bytes to be written over by the next two pixels.
  for (; done + 6 <= row.size(); done += 4, out += 12) {
    if (done % 16 == 0) FetchAhead(row.data() + done);
    const WordBlock four = LoadBlock(row.data() + done);
    const WordBlock pairs =
        _mm_or_si128(_mm_and_si128(four, even), _mm_and_si128(_mm_srli_epi64(four, 8), odd));
    const WordBlock packed =
        _mm_or_si128(_mm_and_si128(pairs, lower), _mm_andnot_si128(lower, _mm_srli_si128(pairs, 2)));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), packed);
  }
  return done;
}
#else
std::size_t PackFours(std::span<const std::uint32_t>, std::uint8_t*) {
  return 0;
}
#endif

void PackThreeBytes(std::span<const std::uint32_t> row, std::uint8_t* out) {
  const std::size_t done = PackFours(row, out);
  out += done * 3;
  for (const std::uint32_t pixel : row.subspan(done)) {
    for (const int shift : {0, 8, 16}) *out++ = static_cast<std::uint8_t>(pixel >> shift);
  }
}

void PackFourBytes(std::span<const std::uint32_t> row, std::uint8_t* out) {
  for (const std::uint32_t pixel : row) {
    for (const int shift : {0, 8, 16, 24}) *out++ = static_cast<std::uint8_t>(pixel >> shift);
  }
}

void AppendHeaders(Block& block, Size size, bool alpha, std::uint32_t pixelBytes) {
  constexpr std::uint32_t plain = 0, bitFields = 3, standardColours = 0x73524742;
  const std::uint32_t headerBytes = alpha ? alphaHeaderBytes : plainHeaderBytes;
  block.Number(0x4D42, 2);  // "BM"
  block.Number(fileHeaderBytes + headerBytes + pixelBytes, 4);
  block.Number(0, 4);
  block.Number(fileHeaderBytes + headerBytes, 4);
  block.Number(headerBytes, 4);
  block.Number(static_cast<std::uint32_t>(size.width), 4);
  block.Number(static_cast<std::uint32_t>(size.height), 4);
  block.Number(1, 2);                // planes
  block.Number(alpha ? 32 : 24, 2);  // bits a pixel
  block.Number(alpha ? bitFields : plain, 4);
  block.Number(pixelBytes, 4);
  block.Number(dotsPerMetre, 4);
  block.Number(dotsPerMetre, 4);
  block.Number(0, 4);  // colours in the table, and of these important
  block.Number(0, 4);
  if (!alpha) return;
  for (const std::uint32_t mask : {0x00FF0000U, 0x0000FF00U, 0x000000FFU, 0xFF000000U}) block.Number(mask, 4);
  block.Number(standardColours, 4);
  for (std::uint32_t bytes = plainHeaderBytes + 5 * 4; bytes < alphaHeaderBytes; bytes += 4)
    block.Number(0, 4);
}

}  // namespace

void WriteBmp(const Pixels& pixels, ByteSink& sink) {
  if (pixels.IsEmpty()) throw RunTimeError(ErrorNumber::InvalidPicture);
  const bool alpha = pixels.Format() == PixelFormat::Argb;
  const auto width = static_cast<std::size_t>(pixels.Width());
  const std::size_t rowBytes = alpha ? width * 4 : (width * 3 + 3) / 4 * 4;
  const std::uint64_t pixelBytes = std::uint64_t{rowBytes} * static_cast<std::uint64_t>(pixels.Height());
  constexpr std::uint64_t most =
      std::numeric_limits<std::uint32_t>::max() - fileHeaderBytes - alphaHeaderBytes;
  if (pixelBytes > most) throw RunTimeError(ErrorNumber::InvalidPicture);
  Block block(sink);
  AppendHeaders(block, pixels.GetSize(), alpha, static_cast<std::uint32_t>(pixelBytes));
  std::vector<std::uint32_t> blended;
  for (int y = pixels.Height() - 1; y >= 0; --y) {
    std::uint8_t* out = block.Extend(rowBytes);
    std::span<const std::uint32_t> row = pixels.Row(y);
    if (alpha) {
      PackFourBytes(row, out);
      continue;
    }
    if (pixels.Format() != PixelFormat::Rgb) {
      blended.resize(width);
      BlendOverWhite(row, pixels.Format(), blended);
      row = blended;
    }
    PackThreeBytes(row, out);
    std::fill(out + width * 3, out + rowBytes, std::uint8_t{0});
  }
  block.Flush();
}

}  // namespace lumidex
