#include "pictures/codecs/ico.h"

#include <algorithm>
#include <bit>

#include "base/run_time_error.h"
#include "pictures/alpha.h"
#include "pictures/byte_reader.h"
#include "pictures/codecs/png.h"
#include "pictures/dib.h"
#include "pictures/file_decoder.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

constexpr std::size_t DirectoryBytes = 6;
constexpr std::size_t EntryBytes = 16;
constexpr unsigned IconKind = 1, CursorKind = 2;

// What the directory says of a picture.
struct Entry {
  int height = 0;
  int bits = 0;  // of a pixel, 0 when it says nothing sensible
  std::uint32_t bytes = 0;
  std::uint32_t offset = 0;
};

// The directory counts bits, or no more than the colours of pictures with few; cursors have their hot spot
// where icons have the bits.
int StatedBits(unsigned kind, unsigned colours, unsigned bits) {
  for (const unsigned depth : {1U, 4U, 8U, 16U, 24U, 32U})
    if (kind == IconKind && bits == depth) return static_cast<int>(depth);
  return colours == 0 ? 0 : std::bit_width(colours - 1);
}

// The bitmap of one icon: colours above, a mask of one bit a pixel below.
class DibIconDecoder final : public FileDecoder {
 public:
  DibIconDecoder(const PictureData& data, const Entry& entry, const OpenOptions& options)
      : FileDecoder(data, options, "ICO") {
    DibOptions dibOptions;
    dibOptions.limits = options.limits;
    dibOptions.fileSize = data.Size();
    dibOptions.icon = true;
    header_ = ReadDibHeader(data.Head(), dibOptions);
    if (LacksMaskRows(entry, data.Size())) {
      dibOptions.icon = false;
      header_ = ReadDibHeader(data.Head(), dibOptions);
    }
    SetShape(header_.size, header_.bitsPerPixel);
  }

  // Whether its colours fit into so many bytes; the mask may be missing.
  bool IsWhole(std::uint64_t bytes) const { return header_.pixelOffset + ColourBytes() <= bytes; }

  Pixels Decode(const DecodeRequest&) const override {
    const auto bytes = Data().Stretch(header_.pixelOffset, ColourBytes() + MaskRowBytes() * Height());
    if (header_.bitsPerPixel == 32 && IsUnpacked()) {
      DibHeader withAlpha = header_;
      if (withAlpha.masks[3] == 0) withAlpha.masks[3] = RemainingMask();
      Pixels pixels = DecodeDib(withAlpha, bytes, Limits());
      if (HasVisiblePixel(pixels)) return pixels;
    }
    // Without alpha of its own the mask says what is seen.
    const Bytes mask = Bytes(bytes).subspan(std::min(ColourBytes(), bytes.size()));
    Pixels pixels = DecodeDib(header_, bytes, Limits());
    ApplyMask(mask, pixels, [](std::uint32_t) { return 0U; });
    if (header_.bitsPerPixel == 32 || HasVisiblePixel(pixels)) return pixels;
    // Under the mask, colours other than black invert the screen. Cursors made of nothing else, as those for
    // text, are shown as they look over white.
    pixels = DecodeDib(header_, bytes, Limits());
    ApplyMask(mask, pixels, [](std::uint32_t word) { return word == blackPixel ? 0U : word ^ 0xFFFFFFU; });
    return pixels;
  }

 private:
  // Some writers that leave out the mask do not count its rows either: the height is that of the directory,
  // and there are colours for all of it. Of one bit a pixel, colours and mask are as long as such colours.
  bool LacksMaskRows(const Entry& entry, std::uint64_t bytes) const {
    const std::uint64_t needed = header_.pixelOffset + 2 * std::uint64_t{ColourBytes()};
    return IsUnpacked() && header_.bitsPerPixel > 1 && header_.size.height * 2 == entry.height &&
           needed <= std::min<std::uint64_t>(entry.bytes, bytes);
  }

  bool IsUnpacked() const {
    return header_.coding == DibCoding::Plain || header_.coding == DibCoding::BitFields;
  }
  // The bits that no colour takes, when they are a byte's.
  std::uint32_t RemainingMask() const {
    const std::uint32_t rest = ~(header_.masks[0] | header_.masks[1] | header_.masks[2]);
    return std::popcount(rest) == 8 ? rest : 0;
  }
  std::size_t Height() const { return static_cast<std::size_t>(header_.size.height); }
  std::size_t ColourBytes() const { return header_.RowBytes() * Height(); }
  std::size_t MaskRowBytes() const { return (static_cast<std::size_t>(header_.size.width) + 31) / 32 * 4; }

  // Changes the pixels whose bit in the mask is set. A mask that is missing or short leaves pixels visible.
  template <class Change>
  void ApplyMask(Bytes mask, Pixels& pixels, Change change) const {
    for (std::size_t row = 0; row < Height(); ++row) {
      const int y = static_cast<int>(header_.topDown ? row : Height() - 1 - row);
      auto words = pixels.Row(y);
      for (std::size_t x = 0; x < words.size(); ++x) {
        const std::size_t at = row * MaskRowBytes() + x / 8;
        if (at < mask.size() && (mask[at] >> (7 - x % 8) & 1) != 0) words[x] = change(words[x]);
      }
    }
    DeclareOpaqueIfSo(pixels);
  }

  DibHeader header_;
};

// Gives the chosen picture under the name of the whole file.
class IconDecoder final : public Decoder {
 public:
  IconDecoder(std::unique_ptr<Decoder> chosen, std::string_view format) : chosen_(std::move(chosen)) {
    facts_ = chosen_->Facts();
    facts_.format = format;
  }
  Pixels Decode(const DecodeRequest& request) const override { return chosen_->Decode(request); }

 private:
  std::unique_ptr<Decoder> chosen_;
};

struct Candidate {
  std::unique_ptr<Decoder> decoder;
  bool whole = false;  // in the file up to its end
  int statedBits = 0;

  const PictureFacts& Facts() const { return decoder->Facts(); }
  // Pictures of few colours may be stored with more bits than they have.
  int Depth() const {
    return statedBits == 0 ? Facts().bitsPerPixel : std::min(statedBits, Facts().bitsPerPixel);
  }
};

Candidate OpenEntry(const PictureData& data, const Entry& entry, const OpenOptions& options) {
  // The stated length is often wrong; each picture knows where it ends.
  const PictureData picture(StretchOf(data.SharedSource(), entry.offset, data.Size()), {});
  if (MatchPng(picture) == Match::Sure)
    return {OpenPng(picture, options), entry.bytes <= picture.Size(), entry.bits};
  auto decoder = std::make_unique<DibIconDecoder>(picture, entry, options);
  const bool whole = decoder->IsWhole(picture.Size());
  return {std::move(decoder), whole, entry.bits};
}

// True when `a` is to be shown rather than `b`.
bool IsBetter(const Candidate& a, const Candidate& b) {
  const auto area = [](Size size) { return std::int64_t{size.width} * size.height; };
  if (area(a.Facts().size) != area(b.Facts().size)) return area(a.Facts().size) > area(b.Facts().size);
  if (a.whole != b.whole) return a.whole;
  if (a.Depth() != b.Depth()) return a.Depth() > b.Depth();
  return a.Facts().bitsPerPixel > b.Facts().bitsPerPixel;
}

std::unique_ptr<Decoder> OpenBest(const PictureData& data, const OpenOptions& options,
                                  std::string_view format) {
  const Bytes head = data.Head();
  ByteReader reader(head);
  reader.Skip(2);
  const unsigned kind = reader.U16Le();
  const std::size_t count = reader.U16Le();
  Candidate best;
  std::string reason = "no picture in it";
  // The directory is read as far as the head goes: 255 entries, of which real files have about ten.
  for (std::size_t i = 0; i < count && reader.Remaining() >= EntryBytes; ++i) {
    Entry entry;
    reader.Skip(1);
    entry.height = reader.U8();
    if (entry.height == 0) entry.height = 256;
    const unsigned colours = reader.U8();
    reader.Skip(3);
    entry.bits = StatedBits(kind, colours, reader.U16Le());
    entry.bytes = reader.U32Le();
    entry.offset = reader.U32Le();
    if (entry.offset < DirectoryBytes || entry.offset >= data.Size()) continue;
    try {
      Candidate candidate = OpenEntry(data, entry, options);
      if (!best.decoder || IsBetter(candidate, best)) best = std::move(candidate);
    } catch (const RunTimeError& error) {
      reason = error.what();
    }
  }
  if (!best.decoder) Refuse(std::string(format) + ": " + reason);
  return std::make_unique<IconDecoder>(std::move(best.decoder), format);
}

Match MatchKind(const PictureData& data, unsigned kind) {
  ByteReader reader(data.Head());
  if (reader.U16Le() != 0 || reader.U16Le() != kind) return Match::No;
  const std::size_t count = reader.U16Le();
  reader.Skip(8);
  const std::uint32_t bytes = reader.U32Le();
  const std::uint32_t offset = reader.U32Le();
  if (count == 0 || reader.WasCut()) return Match::No;
  const bool plausible = bytes > 0 && offset >= DirectoryBytes + EntryBytes && offset < data.Size();
  return plausible ? Match::Sure : Match::Maybe;
}

}  // namespace

Match MatchIco(const PictureData& data) {
  return MatchKind(data, IconKind);
}

std::unique_ptr<Decoder> OpenIco(const PictureData& data, const OpenOptions& options) {
  return OpenBest(data, options, "ICO");
}

Match MatchCur(const PictureData& data) {
  return MatchKind(data, CursorKind);
}

std::unique_ptr<Decoder> OpenCur(const PictureData& data, const OpenOptions& options) {
  return OpenBest(data, options, "CUR");
}

}  // namespace lumidex
