#pragma once
// The pixels of a GIF frame: palette indices in a dictionary code, cut into blocks of up to 255 bytes.

#include <array>
#include <span>

#include "pictures/byte_stream.h"

namespace lumidex {

class GifIndices {
 public:
  // `from` stands at the byte that says how many bits a plain index takes.
  explicit GifIndices(ByteStream from);

  // Fills the room and returns how many indices there were; fewer only at the end of the frame, wherever the
  // file or an error puts it.
  std::size_t Read(std::span<std::uint8_t> room);

 private:
  static constexpr std::size_t mostCodes = 4096;
  static constexpr int none = -1;

  // The next code; none at the end.
  int NextCode();
  bool NextBlock();
  void Clear();
  // The string of a known code, so that it ends at `end`.
  void Write(int code, std::uint8_t* end) const;

  ByteStream from_;
  Bytes block_;
  std::size_t blockPlace_ = 0;
  std::uint64_t bits_ = 0;
  int bitCount_ = 0;

  int plainBits_ = 0;
  int codeBits_ = 0;
  int clearCode_ = 0;
  int nextCode_ = 0;  // that is free
  int last_ = none;   // the code before, none after the dictionary was cleared
  bool ended_ = false;
  // Of each code its last index, the code of all before it, how many they are together, and the first.
  std::array<std::uint16_t, mostCodes> prefix_{};
  std::array<std::uint16_t, mostCodes> length_{};
  std::array<std::uint8_t, mostCodes> suffix_{}, first_{};
  // Of a string that began in the room before: what is left of it.
  std::array<std::uint8_t, mostCodes> rest_{};
  std::size_t restPlace_ = 0, restEnd_ = 0;
};

}  // namespace lumidex
