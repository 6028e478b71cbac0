#include "animation/avi_encoder.h"

#include <algorithm>
#include <stdexcept>

#include "gallery/encoders/bmp_encoder.h"
#include "gallery/encoders/byte_writer.h"

namespace lumidex {
namespace {

constexpr std::size_t fileHeader = 14;  // of a bitmap, in front of what an animation takes over

std::uint32_t U32(const std::vector<std::uint8_t>& bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;) value = value << 8 | bytes[at + i];
  return value;
}

// A bitmap taken apart: its header with the palette, and its coded rows.
struct CodedFrame {
  explicit CodedFrame(const IndexedPicture& picture) {
    const auto bitmap = EncodeRunLengthBmp(picture);
    const auto rows = static_cast<std::ptrdiff_t>(U32(bitmap, 10));
    header.assign(bitmap.begin() + fileHeader, bitmap.begin() + rows);
    data.assign(bitmap.begin() + rows, bitmap.end());
  }
  std::vector<std::uint8_t> header, data;
};

void Chunk(ByteWriter& into, std::string_view kind, const std::vector<std::uint8_t>& bytes) {
  into.Append(kind).U32Le(static_cast<std::uint32_t>(bytes.size())).Append(bytes).PadTo(2);
}

void List(ByteWriter& into, std::string_view name, const std::vector<std::uint8_t>& bytes,
          std::string_view kind = "LIST") {
  into.Append(kind).U32Le(static_cast<std::uint32_t>(bytes.size() + 4)).Append(name).Append(bytes);
}

std::uint32_t LongestFrame(const std::vector<CodedFrame>& frames) {
  std::size_t longest = 0;
  for (const CodedFrame& frame : frames) longest = std::max(longest, frame.data.size());
  return static_cast<std::uint32_t>(longest);
}

}  // namespace

std::vector<std::uint8_t> EncodeAvi(const std::vector<IndexedPicture>& pictures, int millisecondsPerFrame) {
  if (pictures.empty()) throw std::invalid_argument("an animation without frames");
  const std::vector<CodedFrame> frames(pictures.begin(), pictures.end());
  const auto width = static_cast<std::uint32_t>(pictures.front().size.width);
  const auto height = static_cast<std::uint32_t>(pictures.front().size.height);
  const auto count = static_cast<std::uint32_t>(frames.size());
  const auto pace = static_cast<std::uint32_t>(millisecondsPerFrame);
  const std::uint32_t longest = LongestFrame(frames);
  constexpr std::uint32_t hasIndex = 0x10, isWhole = 0x10;

  ByteWriter main;
  main.U32Le(pace * 1000)
      .U32Le(longest * 1000 / pace)
      .U32Le(0)
      .U32Le(hasIndex)
      .U32Le(count)
      .U32Le(0)
      .U32Le(1);
  main.U32Le(longest).U32Le(width).U32Le(height).Zeros(16);
  ByteWriter stream;
  stream.Append("vidsmrle").Zeros(12).U32Le(pace).U32Le(1000).U32Le(0).U32Le(count).U32Le(longest);
  stream.U32Le(0xFFFFFFFF).U32Le(0).Zeros(4).U16Le(width).U16Le(height);
  ByteWriter streams;
  Chunk(streams, "strh", stream.Bytes());
  Chunk(streams, "strf", frames.front().header);
  ByteWriter headers;
  Chunk(headers, "avih", main.Bytes());
  List(headers, "strl", streams.Bytes());

  ByteWriter film, index;
  for (const CodedFrame& frame : frames) {
    // Places are counted from the list's name on.
    index.Append("00dc").U32Le(isWhole).U32Le(static_cast<std::uint32_t>(film.Size() + 4));
    index.U32Le(static_cast<std::uint32_t>(frame.data.size()));
    Chunk(film, "00dc", frame.data);
  }
  ByteWriter body, file;
  List(body, "hdrl", headers.Bytes());
  List(body, "movi", film.Bytes());
  Chunk(body, "idx1", index.Bytes());
  List(file, "AVI ", body.Bytes(), "RIFF");
  return file.Take();
}

}  // namespace lumidex
