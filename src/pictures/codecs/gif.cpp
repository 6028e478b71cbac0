#include "pictures/codecs/gif.h"

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <optional>

#include "base/run_time_error.h"
#include "pictures/alpha.h"
#include "pictures/palettes.h"

namespace lumidex {
namespace {

// One run of giflib over a byte source, in blocks.
class GifReader {
 public:
  explicit GifReader(const ByteSource& source) : source_(source) {
    int error = 0;
    file_ = DGifOpen(this, Read, &error);
  }
  ~GifReader() {
    if (file_ != nullptr) DGifCloseFile(file_, nullptr);
  }
  GifReader(const GifReader&) = delete;
  GifReader& operator=(const GifReader&) = delete;

  // Null when the file does not even begin as it should.
  GifFileType* File() const { return file_; }

  // Moves to the first frame, noting its transparent colour on the way; false when there is none.
  bool FindFrame() {
    GifRecordType record = UNDEFINED_RECORD_TYPE;
    while (DGifGetRecordType(file_, &record) == GIF_OK) {
      if (record == IMAGE_DESC_RECORD_TYPE) return DGifGetImageDesc(file_) == GIF_OK;
      if (record != EXTENSION_RECORD_TYPE || !ReadExtension()) return false;
    }
    return false;
  }
  std::optional<int> Transparent() const { return transparent_; }

  const ColorMapObject* Colours() const {
    return file_->Image.ColorMap != nullptr ? file_->Image.ColorMap : file_->SColorMap;
  }

 private:
  bool ReadExtension() {
    int code = 0;
    GifByteType* block = nullptr;
    if (DGifGetExtension(file_, &code, &block) != GIF_OK) return false;
    // Length, flags, two bytes of delay, transparent colour.
    if (code == GRAPHICS_EXT_FUNC_CODE && block != nullptr && block[0] >= 4) {
      transparent_.reset();
      if ((block[1] & 1) != 0) transparent_ = block[4];
    }
    while (block != nullptr) {
      if (DGifGetExtensionNext(file_, &block) != GIF_OK) return false;
    }
    return true;
  }

  static int Read(GifFileType* file, GifByteType* into, int count) {
    auto& self = *static_cast<GifReader*>(file->UserData);
    int done = 0;
    while (done < count) {
      if (self.place_ == self.filled_) {
        self.filled_ = self.source_.ReadAt(self.offset_, self.block_);
        self.offset_ += self.filled_;
        self.place_ = 0;
        if (self.filled_ == 0) break;
      }
      const std::size_t part = std::min(static_cast<std::size_t>(count - done), self.filled_ - self.place_);
      std::copy_n(self.block_.begin() + static_cast<std::ptrdiff_t>(self.place_), part, into + done);
      self.place_ += part;
      done += static_cast<int>(part);
    }
    return done;
  }

  const ByteSource& source_;
  std::array<std::uint8_t, PictureData::HeadSize> block_{};
  std::uint64_t offset_ = 0;
  std::size_t place_ = 0;
  std::size_t filled_ = 0;
  std::optional<int> transparent_;
  GifFileType* file_ = nullptr;
};

int DepthOf(const ColorMapObject* colours) {
  const int bits = colours == nullptr ? 8 : colours->BitsPerPixel;
  if (bits <= 2) return std::max(bits, 1);
  return bits <= 4 ? 4 : 8;
}

// The order in which the rows of an interlaced frame come.
std::vector<int> RowOrder(int height, bool interlaced) {
  std::vector<int> order;
  order.reserve(static_cast<std::size_t>(height));
  constexpr std::array<std::array<int, 2>, 4> passes = {{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
  if (interlaced) {
    for (const auto [first, step] : passes) {
      for (int y = first; y < height; y += step) order.push_back(y);
    }
  } else {
    for (int y = 0; y < height; ++y) order.push_back(y);
  }
  return order;
}

class GifDecoder final : public Decoder {
 public:
  GifDecoder(const PictureData& data, const OpenOptions& options)
      : source_(data.SharedSource()), limits_(options.limits) {
    GifReader reader(*source_);
    if (reader.File() == nullptr) throw RunTimeError(ErrorNumber::InvalidPicture, "GIF: the header is cut");
    const bool frame = reader.FindFrame();
    Size screen{reader.File()->SWidth, reader.File()->SHeight};
    if (frame && (screen.width == 0 || screen.height == 0)) {
      screen = {reader.File()->Image.Width, reader.File()->Image.Height};
    }
    facts_.size = CheckedSize(screen.width, screen.height, limits_, data.Size());
    facts_.bitsPerPixel = DepthOf(reader.Colours());
    facts_.format = "GIF";
  }

  Pixels Decode(const DecodeRequest&) const override {
    Pixels pixels = Pixels::Make(facts_.size, PixelFormat::Argb, 0, limits_);
    GifReader reader(*source_);
    if (reader.File() != nullptr && reader.FindFrame()) ReadFrame(reader, pixels);
    DeclareOpaqueIfSo(pixels);
    return pixels;
  }

 private:
  static Palette ColoursOf(const GifReader& reader) {
    const ColorMapObject* colours = reader.Colours();
    if (colours == nullptr) return GreyPalette();
    Palette palette = BlackPalette();
    for (std::size_t i = 0; i < static_cast<std::size_t>(std::min(colours->ColorCount, 256)); ++i) {
      palette[i] = Rgb(colours->Colors[i].Red, colours->Colors[i].Green, colours->Colors[i].Blue);
    }
    return palette;
  }

  static void ReadFrame(const GifReader& reader, Pixels& pixels) {
    const GifImageDesc& frame = reader.File()->Image;
    if (frame.Width < 1 || frame.Height < 1) return;
    Palette palette = ColoursOf(reader);
    if (reader.Transparent()) palette[static_cast<std::size_t>(*reader.Transparent())] = 0;
    const int visible = std::clamp(pixels.Width() - frame.Left, 0, frame.Width);
    std::vector<GifPixelType> line(static_cast<std::size_t>(frame.Width));
    // A frame far larger than its screen is no reason to unpack what nobody sees.
    std::int64_t budget = std::int64_t{pixels.Width()} * pixels.Height() * 4 + (std::int64_t{1} << 20);
    for (const int row : RowOrder(frame.Height, frame.Interlace)) {
      budget -= frame.Width;
      if (budget < 0 || DGifGetLine(reader.File(), line.data(), frame.Width) != GIF_OK) return;
      if (row + frame.Top >= pixels.Height()) {
        if (!frame.Interlace) return;
        continue;
      }
      const auto target = pixels.Row(row + frame.Top);
      for (int x = 0; x < visible; ++x) {
        target[static_cast<std::size_t>(frame.Left + x)] = palette[line[static_cast<std::size_t>(x)]];
      }
    }
  }

  std::shared_ptr<const ByteSource> source_;
  PictureLimits limits_;
};

}  // namespace

Match MatchGif(const PictureData& data) {
  constexpr std::string_view name = "GIF8";
  const Bytes head = data.Head();
  return head.size() >= name.size() && std::equal(name.begin(), name.end(), head.begin()) ? Match::Sure
                                                                                          : Match::No;
}

std::unique_ptr<Decoder> OpenGif(const PictureData& data, const OpenOptions& options) {
  return std::make_unique<GifDecoder>(data, options);
}

}  // namespace lumidex
