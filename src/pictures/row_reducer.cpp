#include "pictures/row_reducer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lumidex {
namespace {

// All of a row, in the numbers that shares of it are told in.
constexpr std::uint32_t whole = 65536;

bool HasAlpha(std::span<const std::uint32_t> row) {
  constexpr std::uint32_t alphaMask = 0xFF000000U;
  std::uint32_t all = alphaMask;
  for (const std::uint32_t word : row) all &= word;
  return all != alphaMask;
}

// A channel in the numbers of a line.
std::uint32_t InLine(std::uint8_t channel) {
  return static_cast<std::uint32_t>(channel) << 8;
}
std::uint32_t InLine(std::uint16_t channel) {
  return channel;
}

std::uint16_t Part(std::uint32_t number, std::uint32_t share) {
  return static_cast<std::uint16_t>(static_cast<std::uint16_t>(number) * share >> 16);
}

// Plain loops over numbers that lie side by side, which the compiler turns into steps of many at once.
template <class Channel>
void Begin(const Channel* from, std::uint16_t share, std::uint16_t* line, std::size_t count) {
  // Each part that joins is cut off behind the point; this makes up for it.
  constexpr std::uint16_t cutOff = 1;
  for (std::size_t i = 0; i < count; ++i)
    line[i] = static_cast<std::uint16_t>(Part(InLine(from[i]), share) + cutOff);
}

template <class Channel>
void Join(const Channel* from, std::uint16_t share, std::uint16_t* line, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i)
    line[i] = static_cast<std::uint16_t>(line[i] + Part(InLine(from[i]), share));
}

template <class Channel>
void AddUp(const Channel* from, std::uint16_t* sum, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) sum[i] = static_cast<std::uint16_t>(sum[i] + from[i]);
}

// How a plain sum is brought to the numbers of a line: so many times itself, then so many 65536ths of that,
// and where `once` is all ones the whole of it besides.
struct Factor {
  std::uint16_t times = 1, once = 0, part = 0;

  explicit Factor(double factor) {
    for (; times < 256 && factor >= 2; factor /= 2) times = static_cast<std::uint16_t>(times * 2);
    once = factor >= 1 ? 0xFFFF : 0;
    part = static_cast<std::uint16_t>(std::min((factor >= 1 ? factor - 1 : factor) * whole, whole - 1.0));
  }
};

// Adds the plain sum to the line and clears it.
void JoinSum(std::uint16_t* sum, Factor factor, std::uint16_t* line, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const auto number = static_cast<std::uint16_t>(sum[i] * factor.times);
    line[i] = static_cast<std::uint16_t>(line[i] + (number & factor.once) + Part(number, factor.part));
    sum[i] = 0;
  }
}

}  // namespace

RowReducer::RowReducer(Size from, Pixels& into, bool bottomUp, int first)
    : into_(&into),
      bottomUp_(bottomUp),
      across_(from.width, into.Width(), into.Format()),
      rowParts_(into.Height()),
      mostParts_(from.height),
      done_(first),
      elsewhere_(first * mostParts_ % rowParts_),
      line_(static_cast<std::size_t>(from.width) * 4) {
  constexpr std::int64_t mostInSum = 65535 / 255;
  mostInSum_ = static_cast<int>(std::min(mostInSum, mostParts_ / rowParts_));
  // It costs a pass of its own in the end, which pays from a few rows on.
  if (mostInSum_ > 2) sum_.resize(line_.size());
  if (!bottomUp) pages_ = PagesAhead(std::as_writable_bytes(into.RowsFrom(first)));
  if (into.Format() == PixelFormat::Argb) weighed_.resize(line_.size());
}

void RowReducer::Add(std::span<const std::uint32_t> row) {
  if (into_->Format() == PixelFormat::Argb && HasAlpha(row)) {
    WeighChannels(row, PixelFormat::Argb, weighed_);
    AddChannels(weighed_.data());
  } else {
    AddChannels(reinterpret_cast<const std::uint8_t*>(row.data()));
  }
}

std::uint16_t RowReducer::Share(std::int64_t parts) const {
  const double share = static_cast<double>(parts * whole) / static_cast<double>(mostParts_);
  return static_cast<std::uint16_t>(std::min(std::lround(share), whole - 1L));
}

template <class Channel>
void RowReducer::AddChannels(const Channel* channels) {
  const std::int64_t own = rowParts_ - std::exchange(elsewhere_, 0);
  const std::int64_t here = std::min(mostParts_ - parts_, own);
  if (parts_ == 0) {
    Begin(channels, Share(here), line_.data(), line_.size());
  } else if (here == rowParts_ && !sum_.empty() && sizeof(Channel) == 1) {
    AddUp(channels, sum_.data(), sum_.size());
    if (++inSum_ == mostInSum_) JoinTheSum();
  } else {
    Join(channels, Share(here), line_.data(), line_.size());
  }
  parts_ += here;
  if (parts_ < mostParts_) return;
  JoinTheSum();
  const std::span<std::uint32_t> row = into_->Row(bottomUp_ ? into_->Height() - 1 - done_ : done_);
  pages_.Reach(row.data() + row.size());
  across_.Write(line_, row);
  ++done_;
  parts_ = own - here;
  if (parts_ > 0) Begin(channels, Share(parts_), line_.data(), line_.size());
}

void RowReducer::JoinTheSum() {
  if (inSum_ == 0) return;
  inSum_ = 0;
  const Factor factor(256.0 * static_cast<double>(rowParts_) / static_cast<double>(mostParts_));
  JoinSum(sum_.data(), factor, line_.data(), line_.size());
}

}  // namespace lumidex
