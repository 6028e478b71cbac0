#include "pictures/row_target.h"

#include <algorithm>

#include "pictures/pace.h"

namespace lumidex {

bool IsReducedFor(Size size, Size wanted) {
  return wanted.width > 0 && wanted.height > 0 && wanted.width <= size.width &&
         wanted.height <= size.height && wanted != size;
}

RowTarget::RowTarget(Size size, PixelFormat format, const Options& options)
    : size_(size), order_(options.order) {
  if (IsReducedFor(size, options.wanted)) {
    pixels_ = Pixels::MakeUnfilled(options.wanted, format, options.limits);
    rows_ = Pixels::MakeUnfilled({size.width, std::min(options.rowsAtOnce, size.height)}, format);
    reducer_.emplace(size, pixels_, order_ == RowOrder::BottomUp);
  } else {
    pixels_ = Pixels::MakeUnfilled(size, format, options.limits);
    if (order_ == RowOrder::TopDown) pages_ = PagesAhead(std::as_writable_bytes(pixels_.RowsFrom(0)));
  }
}

std::span<std::uint32_t> RowTarget::Row(int ahead) {
  if (reducer_) return rows_.Row(ahead);
  const int y = added_ + ahead;
  const std::span<std::uint32_t> row = pixels_.Row(order_ == RowOrder::TopDown ? y : size_.height - 1 - y);
  pages_.Reach(row.data() + row.size());
  return row;
}

void RowTarget::Add(int count) {
  for (int i = 0; reducer_ && i < count; ++i) reducer_->Add(rows_.Row(i));
  added_ += count;
  constexpr int pixelsAtATime = 1 << 14;
  sincePause_ += count * std::min(size_.width, pixelsAtATime);
  if (sincePause_ < pixelsAtATime) return;
  sincePause_ = 0;
  Pace::Pause();
}

void RowTarget::AddBlank(int count, std::uint32_t word) {
  for (int i = 0; i < count; ++i) {
    if (i == 0 || !reducer_) std::ranges::fill(Row(), word);
    Add();
  }
}

Pixels RowTarget::Finish(std::uint32_t blank) {
  AddBlank(RowsMissing(), blank);
  reducer_.reset();
  return std::move(pixels_);
}

}  // namespace lumidex
