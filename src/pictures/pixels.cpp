#include "pictures/pixels.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "base/run_time_error.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

struct GiveBack {
  void operator()(std::uint32_t* words) const { std::free(words); }
};

// On a line of the processor's cache. Large pages are not asked for: where they are left over they are a gain
// only for whole pictures, and a machine that lends its memory out clears each of them twice.
std::shared_ptr<std::uint32_t[]> AllocateWords(std::size_t bytes) {
  constexpr std::size_t line = 64;
  void* block = std::aligned_alloc(line, (bytes + line - 1) / line * line);
  if (!block) throw RunTimeError(ErrorNumber::OutOfMemory);
  return {static_cast<std::uint32_t*>(block), GiveBack{}};
}

}  // namespace

void CheckSize(Size size, const PictureLimits& limits, std::uint64_t fileSize) {
  if (size.width < 1 || size.height < 1) {
    Refuse("The picture has no size");
  }
  constexpr std::uint64_t smallFile = std::uint64_t{1} << 20;
  const std::int64_t most =
      fileSize <= smallFile ? std::min(limits.bytes, smallFilePixelBytes) : limits.bytes;
  // The sides come first: the product of two that no limit held would not fit.
  if (size.width > limits.side || size.height > limits.side ||
      std::int64_t{size.width} * size.height > most / 4) {
    Refuse("The picture is too large");
  }
}

Size CheckedSize(std::int64_t width, std::int64_t height, const PictureLimits& limits,
                 std::uint64_t fileSize) {
  const auto narrow = [](std::int64_t side) {
    return static_cast<int>(std::clamp<std::int64_t>(side, 0, std::numeric_limits<int>::max()));
  };
  const Size size{narrow(width), narrow(height)};
  CheckSize(size, limits, fileSize);
  return size;
}

Pixels Pixels::MakeUnfilled(Size size, PixelFormat format, const PictureLimits& limits) {
  CheckSize(size, limits, std::numeric_limits<std::uint64_t>::max());
  const std::int64_t bytes = std::int64_t{size.width} * size.height * 4;
  Pixels pixels;
  // Unfilled on purpose: filling costs as much as a copy, and most callers write every pixel.
  pixels.words_ = AllocateWords(static_cast<std::size_t>(bytes));
  pixels.size_ = size;
  pixels.format_ = format;
  return pixels;
}

Pixels Pixels::Make(Size size, PixelFormat format, std::uint32_t fill, const PictureLimits& limits) {
  Pixels pixels = MakeUnfilled(size, format, limits);
  std::fill_n(pixels.words_.get(), pixels.ByteCount() / 4, fill);
  return pixels;
}

std::size_t Pixels::ByteCount() const {
  return static_cast<std::size_t>(size_.width) * static_cast<std::size_t>(size_.height) * 4;
}

std::span<const std::uint32_t> Pixels::Row(int y) const {
  const auto width = static_cast<std::size_t>(size_.width);
  return {words_.get() + static_cast<std::size_t>(y) * width, width};
}

std::span<std::uint32_t> Pixels::Row(int y) {
  const auto width = static_cast<std::size_t>(size_.width);
  return {words_.get() + static_cast<std::size_t>(y) * width, width};
}

std::span<std::uint32_t> Pixels::RowsFrom(int first) {
  return std::span(words_.get(), ByteCount() / 4)
      .subspan(static_cast<std::size_t>(first) * static_cast<std::size_t>(size_.width));
}

}  // namespace lumidex
