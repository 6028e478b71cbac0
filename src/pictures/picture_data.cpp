#include "pictures/picture_data.h"

#include <algorithm>
#include <utility>

namespace lumidex {
namespace {

// As ByteSource::ReadAt.
std::size_t CopyFrom(Bytes bytes, std::uint64_t offset, std::span<std::uint8_t> into) {
  if (offset >= bytes.size()) return 0;
  const Bytes rest = bytes.subspan(static_cast<std::size_t>(offset));
  const Bytes read = rest.first(std::min(rest.size(), into.size()));
  std::ranges::copy(read, into.begin());
  return read.size();
}

class StretchSource final : public ByteSource {
 public:
  StretchSource(std::shared_ptr<const ByteSource> source, std::uint64_t offset, std::uint64_t count)
      : source_(std::move(source)), offset_(std::min(offset, source_->Size())) {
    size_ = std::min(count, source_->Size() - offset_);
  }
  std::uint64_t Size() const override { return size_; }
  std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const override {
    if (offset >= size_) return 0;
    const std::uint64_t left = size_ - offset;
    return source_->ReadAt(offset_ + offset,
                           into.first(static_cast<std::size_t>(std::min<std::uint64_t>(into.size(), left))));
  }

 private:
  std::shared_ptr<const ByteSource> source_;
  std::uint64_t offset_;
  std::uint64_t size_;
};

// Answers from the head what lies in it, since readers of headers ask for it again in small pieces. Ends the
// file while it is stopped.
class HeadKeeper final : public ByteSource {
 public:
  HeadKeeper(std::shared_ptr<const ByteSource> source, Bytes head, std::shared_ptr<const void> headOwner,
             std::shared_ptr<const std::atomic<bool>> stop)
      : source_(std::move(source)), head_(head), headOwner_(std::move(headOwner)), stop_(std::move(stop)) {}
  std::uint64_t Size() const override { return source_->Size(); }
  std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const override {
    if (stop_->load(std::memory_order_relaxed)) return 0;
    const std::size_t done = CopyFrom(head_, offset, into);
    if (done == into.size() || offset + done >= source_->Size()) return done;
    return done + source_->ReadAt(offset + done, into.subspan(done));
  }

 private:
  std::shared_ptr<const ByteSource> source_;
  Bytes head_;
  std::shared_ptr<const void> headOwner_;
  std::shared_ptr<const std::atomic<bool>> stop_;
};

}  // namespace

std::shared_ptr<const ByteSource> StretchOf(std::shared_ptr<const ByteSource> source, std::uint64_t offset,
                                            std::uint64_t count) {
  return std::make_shared<StretchSource>(std::move(source), offset, count);
}

std::size_t MemorySource::ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const {
  return CopyFrom(bytes_, offset, into);
}

std::size_t LastingSource::ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const {
  return CopyFrom(bytes_, offset, into);
}

PictureData::PictureData(std::shared_ptr<const ByteSource> source, std::string extension)
    : source_(std::move(source)),
      extension_(std::move(extension)),
      size_(std::min(source_->Size(), MostBytes)),
      stop_(std::make_shared<std::atomic<bool>>(false)) {
  if (const Bytes all = source_->InMemory(); !all.empty()) {
    head_ = all.first(std::min(all.size(), HeadSize));
    headOwner_ = source_;
  } else {
    const auto read = std::make_shared<const std::vector<std::uint8_t>>(Stretch(0, HeadSize));
    head_ = *read;
    headOwner_ = read;
  }
  source_ = std::make_shared<HeadKeeper>(std::move(source_), head_, headOwner_, stop_);
}

std::vector<std::uint8_t> PictureData::Stretch(std::uint64_t offset, std::size_t count) const {
  if (offset >= size_) return {};
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - offset)));
  bytes.resize(source_->ReadAt(offset, bytes));
  return bytes;
}

std::vector<std::uint8_t> PictureData::All() const {
  return Stretch(0, static_cast<std::size_t>(size_));
}

}  // namespace lumidex
