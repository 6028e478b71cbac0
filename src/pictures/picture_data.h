#pragma once
// The bytes of one picture file, wherever they lie. Decoders ask for the head first, so that telling
// what a file is costs one short read, and for the rest only when they need it.

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace lumidex {

using Bytes = std::span<const std::uint8_t>;

// Random access to bytes; a file that is deleted while open stays readable.
// Reading is allowed from several threads at once.
class ByteSource {
 public:
  virtual ~ByteSource() = default;
  virtual std::uint64_t Size() const = 0;
  // Fills `into` from `offset` on and returns how many bytes there were; never raises, a read error is a
  // short read.
  virtual std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const = 0;
  // All of them where they lie in memory for as long as the source lives, or nothing.
  virtual Bytes InMemory() const { return {}; }
};

// Bytes of its own.
class MemorySource final : public ByteSource {
 public:
  explicit MemorySource(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {}
  std::uint64_t Size() const override { return bytes_.size(); }
  std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const override;
  Bytes InMemory() const override { return bytes_; }

 private:
  std::vector<std::uint8_t> bytes_;
};

// Bytes that outlive it, such as those that are part of the program.
class LastingSource final : public ByteSource {
 public:
  explicit LastingSource(Bytes bytes) : bytes_(bytes) {}
  std::uint64_t Size() const override { return bytes_.size(); }
  std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const override;
  Bytes InMemory() const override { return bytes_; }

 private:
  Bytes bytes_;
};

// `count` bytes of another source from `offset` on, as a source of their own; shorter where that one ends.
std::shared_ptr<const ByteSource> StretchOf(std::shared_ptr<const ByteSource> source, std::uint64_t offset,
                                            std::uint64_t count);

// What a decoder is opened with.
class PictureData {
 public:
  static constexpr std::size_t HeadSize = 4096;
  // Files longer than this are read up to here and then count as cut.
  static constexpr std::uint64_t MostBytes = std::uint64_t{1} << 30;

  // `extension` is the file name's ending with its point, in lower case (".pcx"), empty when there is none.
  PictureData(std::shared_ptr<const ByteSource> source, std::string extension);

  std::uint64_t Size() const { return size_; }
  const std::string& Extension() const { return extension_; }
  // The first bytes of the file, at most HeadSize.
  Bytes Head() const { return head_; }
  // Another stretch, shorter than asked at the end of the file.
  std::vector<std::uint8_t> Stretch(std::uint64_t offset, std::size_t count) const;
  // The whole file; read anew on each call, so keep the result for as long as the decode lasts.
  std::vector<std::uint8_t> All() const;
  const ByteSource& Source() const { return *source_; }
  std::shared_ptr<const ByteSource> SharedSource() const { return source_; }
  // While it is set the file ends where it is being read, so a decoder soon comes to its end; what that one
  // gives then is of no use.
  const std::shared_ptr<std::atomic<bool>>& StopMark() const { return stop_; }

  // A palette kept in a file of its own beside the picture, set by whoever opened the file; may be empty.
  std::vector<std::uint8_t> paletteFile;

 private:
  std::shared_ptr<const ByteSource> source_;
  std::string extension_;
  std::uint64_t size_ = 0;
  Bytes head_;
  std::shared_ptr<const void> headOwner_;
  std::shared_ptr<std::atomic<bool>> stop_;
};

}  // namespace lumidex
