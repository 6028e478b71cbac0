#pragma once
// Gives out rows of bytes from a file, plain or in a run-length code where a code byte stands before a value
// and everything else stands for itself. Runs may go on from one row into the next.

#include <algorithm>
#include <span>

#include "pictures/byte_stream.h"

namespace lumidex {

struct CodedRun {
  std::size_t codeBytes = 0;  // that the code takes; 0 when the bytes at hand do not hold all of it
  std::size_t count = 0;
  std::uint8_t value = 0;
};

// `Code` has the functions IsLiteral(byte) and Read(bytes), which reads the run that begins there, and the
// length of its longest code.
template <class Code>
class RunRows {
 public:
  RunRows(ByteStream from, bool packed) : from_(std::move(from)), packed_(packed) {}

  // The next row, in `room` or elsewhere, valid until the next call; shorter than `room` only at the end of
  // the input.
  Bytes Next(std::span<std::uint8_t> room) {
    if (!packed_) return from_.Take(room.size());
    std::size_t done = PutRun(room, 0);
    while (done < room.size()) {
      const Bytes ahead = from_.Ahead(Code::longest);
      std::size_t at = 0;
      while (done < room.size() && at < ahead.size()) {
        if (Code::IsLiteral(ahead[at])) {
          room[done++] = ahead[at++];
          continue;
        }
        const CodedRun run = Code::Read(ahead.subspan(at));
        if (run.codeBytes == 0) break;
        at += run.codeBytes;
        left_ = run.count;
        value_ = run.value;
        done = PutRun(room, done);
      }
      if (at == 0) break;
      from_.Advance(at);
    }
    return room.first(done);
  }

  // The place in the file of the next code.
  std::uint64_t Position() const { return from_.Position(); }

 private:
  // Puts what is left of the run from `done` on; returns where it ends.
  std::size_t PutRun(std::span<std::uint8_t> room, std::size_t done) {
    const std::size_t count = std::min(left_, room.size() - done);
    std::fill_n(room.begin() + static_cast<std::ptrdiff_t>(done), count, value_);
    left_ -= count;
    return done + count;
  }

  ByteStream from_;
  bool packed_;
  std::size_t left_ = 0;
  std::uint8_t value_ = 0;
};

}  // namespace lumidex
