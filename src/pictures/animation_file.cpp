#include "pictures/animation_file.h"

#include <algorithm>

#include "pictures/byte_reader.h"
#include "pictures/dib_run_length.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

constexpr int deepestList = 4;
constexpr std::size_t mostFrames = 10000;

constexpr std::uint32_t Code(const char (&text)[5]) {
  std::uint32_t code = 0;
  for (int i = 3; i >= 0; --i) code = code << 8 | static_cast<unsigned char>(text[i]);
  return code;
}

// "00db" and "00dc": the pictures of the first stream.
bool IsFrame(std::uint32_t kind) {
  return kind == Code("00db") || kind == Code("00dc");
}

}  // namespace

AnimationFile::AnimationFile(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {
  ByteReader reader(bytes_);
  const bool isRiff = reader.U32Le() == Code("RIFF");
  reader.Skip(4);
  if (!isRiff || reader.U32Le() != Code("AVI ") || reader.WasCut()) Refuse("no animation file");
  ReadList({reader.Position(), reader.Remaining()}, 0);
  if (!found_) Refuse("an animation without a header");
  header_ = *found_;
  const bool isKnown = header_.coding == DibCoding::Plain || header_.coding == DibCoding::BitFields ||
                       header_.coding == DibCoding::Rle8;
  if (!isKnown) Refuse("an animation in another coding");
  if (frames_.empty()) Refuse("an animation without frames");
}

void AnimationFile::ReadList(Stretch list, int depth) {
  ByteReader reader(BytesOf(list));
  while (reader.Remaining() >= 8) {
    const std::uint32_t kind = reader.U32Le();
    const std::uint32_t stated = reader.U32Le();
    const std::size_t offset = list.offset + reader.Position();
    const std::size_t length = std::min<std::size_t>(stated, reader.Remaining());
    if (kind == Code("LIST") && length >= 4 && depth < deepestList) {
      ReadList({offset + 4, length - 4}, depth + 1);
    } else {
      ReadChunk(kind, {offset, length});
    }
    // Chunks begin at even places.
    reader.Skip(std::min<std::size_t>(length + length % 2, reader.Remaining()));
  }
}

void AnimationFile::ReadChunk(std::uint32_t kind, Stretch chunk) {
  if (kind == Code("avih")) {
    const std::uint32_t microseconds = ByteReader(BytesOf(chunk)).U32Le();
    millisecondsPerFrame_ = static_cast<int>(std::clamp(microseconds / 1000, 10U, 60000U));
  } else if (kind == Code("strf") && !found_) {
    DibOptions options;
    options.fileSize = bytes_.size();
    found_ = ReadDibHeader(BytesOf(chunk), options);
  } else if (IsFrame(kind) && frames_.size() < mostFrames) {
    frames_.push_back(chunk);
  }
}

void AnimationFile::Advance(Pixels& shown, int number) const {
  const Bytes bytes = BytesOf(frames_[static_cast<std::size_t>(number)]);
  // An empty chunk repeats the frame before.
  if (bytes.empty() && !shown.IsEmpty()) return;
  if (header_.coding != DibCoding::Rle8) {
    shown = DecodeDib(header_, bytes);
    return;
  }
  if (number == 0 || shown.IsEmpty()) shown = Pixels::Make(header_.size, PixelFormat::Rgb, blankPixel);
  DecodeDibRunLength(header_, bytes, shown);
}

void ClearGround(Pixels& pixels, std::uint32_t ground) {
  for (int y = 0; y < pixels.Height(); ++y) {
    for (std::uint32_t& pixel : pixels.Row(y)) {
      if (pixel == ground) pixel = 0;
    }
  }
  pixels.SetFormat(PixelFormat::Argb);
}

}  // namespace lumidex
