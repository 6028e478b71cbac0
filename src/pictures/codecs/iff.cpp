#include "pictures/codecs/iff.h"

#include <algorithm>
#include <vector>

#include "pictures/alpha.h"
#include "pictures/byte_reader.h"
#include "pictures/byte_stream.h"
#include "pictures/codecs/iff_chunks.h"
#include "pictures/codecs/iff_colours.h"
#include "pictures/codecs/iff_columns.h"
#include "pictures/file_decoder.h"
#include "pictures/pack_bits.h"
#include "pictures/planes.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

enum Compression { Plain = 0, Packed = 1, Columns = 2, Runs = 4, Steps = 5 };

constexpr int rgb8Planes = 25, rgbnPlanes = 13;  // the last is not of the colour

int DepthOf(const IffPicture& picture, IffMode mode) {
  if (picture.kind == IffKind::Chunky) return 8;
  if (picture.kind == IffKind::ColourRuns) return picture.planes - 1;
  return mode == IffMode::HoldAndModify ? 24 : picture.planes;
}

// Changes of the palette from row to row. Nobody needs more than this of them: 16 for each row of the highest
// picture, each of six bytes.
IffLineColours LineColoursOf(const PictureData& data, const IffPicture& picture) {
  constexpr std::uint64_t most = std::uint64_t{4} << 20;
  constexpr std::uint32_t interlaced = 4;
  const std::vector<std::uint8_t> chunk = data.Stretch(
      picture.lineColoursOffset, static_cast<std::size_t>(std::min(picture.lineColoursLength, most)));
  const bool mayPairRows = (picture.displayMode.value_or(interlaced) & interlaced) != 0;
  return {picture.lineColours, chunk, picture.size.height, mayPairRows};
}

std::size_t StrideOf(const IffPicture& picture) {
  const std::size_t width = static_cast<std::size_t>(picture.size.width);
  switch (picture.kind) {
    case IffKind::Chunky:
      return (width + 1) / 2 * 2;
    case IffKind::ColourRuns:
      return width * 4;
    case IffKind::Deep:
      return width * picture.elements.size();
    default:
      return (width + 15) / 16 * 2;
  }
}

// Turns the planes of one row at a time into pixels.
class RowPainter {
 public:
  RowPainter(const IffPicture& picture, IffMode mode, IffLineColours lineColours)
      : picture_(picture),
        mode_(mode),
        lineColours_(std::move(lineColours)),
        planes_(picture.planes),
        palette_(PaletteOf(picture, mode)),
        codes_(static_cast<std::size_t>(picture.size.width)),
        green_(mode == IffMode::TrueColour ? codes_.size() : 0),
        blue_(green_.size()) {}

  // To be called for each row from the top, before it is painted.
  void BeginRow(int y) {
    if (lineColours_.Advance(y, picture_.colours)) palette_ = PaletteOf(picture_, mode_);
  }

  // Plane p of the row begins at `bits[p * stride]`.
  void PaintPlanes(Bytes bits, std::size_t stride, std::span<std::uint32_t> row) {
    if (mode_ == IffMode::TrueColour) return PaintComponents(bits, stride, row);
    JoinPlanes(bits, stride, planes_, codes_);
    if (mode_ == IffMode::HoldAndModify) {
      HoldAndModify(codes_, planes_, palette_, row);
    } else {
      LookUp(codes_, palette_, row);
    }
  }

  void PaintIndices(Bytes indices, std::span<std::uint32_t> row) const { LookUp(indices, palette_, row); }

  // Where the bit is 0 the row becomes transparent.
  void Mask(Bytes bits, std::span<std::uint32_t> row) {
    JoinPlanes(bits, bits.size(), 1, codes_);
    for (std::size_t x = 0; x < row.size(); ++x) row[x] &= 0U - codes_[x];
  }

 private:
  // Eight planes each for red, green, blue and, where there are 32, alpha; the lowest bit comes first.
  void PaintComponents(Bytes bits, std::size_t stride, std::span<std::uint32_t> row) {
    JoinPlanes(bits, stride, 8, codes_);
    JoinPlanes(bits.subspan(8 * stride), stride, 8, green_);
    JoinPlanes(bits.subspan(16 * stride), stride, 8, blue_);
    for (std::size_t x = 0; x < row.size(); ++x) row[x] = Rgb(codes_[x], green_[x], blue_[x]);
    if (planes_ < 32) return;
    JoinPlanes(bits.subspan(24 * stride), stride, 8, codes_);
    for (std::size_t x = 0; x < row.size(); ++x)
      row[x] = (row[x] & 0xFFFFFF) | std::uint32_t{codes_[x]} << 24;
  }

  IffPicture picture_;  // its colours are those of the row
  IffMode mode_;
  IffLineColours lineColours_;
  int planes_;
  Palette palette_;
  std::vector<std::uint8_t> codes_, green_, blue_;
};

class IffDecoder final : public FileDecoder {
 public:
  IffDecoder(const PictureData& data, const IffPicture& picture, const OpenOptions& options)
      : FileDecoder(data, options, picture.size, DepthOf(picture, ModeOf(picture)), "IFF"),
        picture_(picture),
        mode_(ModeOf(picture)) {
    stride_ = StrideOf(picture);
  }

  Pixels Decode(const DecodeRequest&) const override {
    Pixels pixels = UnfilledPixels();
    const int rows = PaintBody(pixels);
    if (HasAlpha()) {
      SettleAlpha(pixels, rows);
    } else {
      BlankFrom(pixels, rows);
      if (HasMaskPlane() || picture_.masking == 2) DeclareOpaqueIfSo(pixels);
    }
    return pixels;
  }

 private:
  bool HasAlpha() const {
    if (picture_.kind != IffKind::Deep) return picture_.planes == 32;
    return std::ranges::find(picture_.elements, DeepElement::Alpha, &DeepElement::kind) !=
           picture_.elements.end();
  }

  bool HasMaskPlane() const { return picture_.masking == 1 && picture_.kind == IffKind::Interleaved; }

  std::size_t RowStrides() const {
    if (picture_.kind != IffKind::Interleaved && picture_.kind != IffKind::Contiguous) return 1;
    return static_cast<std::size_t>(picture_.planes) + (HasMaskPlane() ? 1 : 0);
  }

  // The stored length of the rows is not trusted; nobody packs them into more than this.
  std::size_t LongestBody() const {
    constexpr std::size_t slack = 65536;
    return 2 * RowStrides() * stride_ * static_cast<std::size_t>(picture_.size.height) + slack;
  }

  std::vector<std::uint8_t> Body() const { return Data().Stretch(picture_.bodyOffset, LongestBody()); }

  // These return how many rows were whole.
  int PaintBody(Pixels& pixels) const {
    if (picture_.kind == IffKind::ColourRuns)
      return UnpackColourRuns(Body(), picture_.planes == rgb8Planes, pixels);
    if (picture_.kind == IffKind::Deep && picture_.compression == Steps)
      return UnpackDeepSteps(Body(), picture_.elements, picture_.steps, pixels);
    if (picture_.kind == IffKind::Deep)
      return UnpackDeepPixels(Body(), picture_.elements, picture_.compression == Packed, pixels);
    RowPainter painter(picture_, mode_, LineColoursOf(Data(), picture_));
    if (picture_.compression == Columns) {
      const auto planes = UnpackColumns(Body(), picture_.planes, stride_, picture_.size.height);
      return PaintContiguous(planes, painter, pixels);
    }
    if (picture_.kind == IffKind::Contiguous) return PaintContiguous(Body(), painter, pixels);
    if (picture_.compression == Plain) {
      ByteStream stream(Data(), picture_.bodyOffset);
      return PaintRows([&](std::span<std::uint8_t> room) { return stream.Take(room.size()); }, painter,
                       pixels);
    }
    const std::vector<std::uint8_t> body = Body();
    PackBits packed{ByteReader(body)};
    const auto unpack = [&](std::span<std::uint8_t> room) { return room.first(packed.Read(room)); };
    return PaintRows(unpack, painter, pixels);
  }

  // `nextRow` answers with all planes of a row, in the room it is given or elsewhere.
  template <class NextRow>
  int PaintRows(NextRow nextRow, RowPainter& painter, Pixels& pixels) const {
    std::vector<std::uint8_t> room(RowStrides() * stride_);
    // The padding at the very end may be missing.
    const std::size_t lastBytes = RowBytes(facts_.size.width, picture_.kind == IffKind::Chunky ? 8 : 1);
    const std::size_t needed = room.size() - stride_ + lastBytes;
    for (int y = 0; y < facts_.size.height; ++y) {
      const Bytes bits = nextRow(std::span(room));
      if (bits.size() < needed) return y;
      const auto row = pixels.Row(y);
      painter.BeginRow(y);
      if (picture_.kind == IffKind::Chunky) {
        painter.PaintIndices(bits, row);
      } else {
        painter.PaintPlanes(bits, stride_, row);
      }
      if (HasMaskPlane()) painter.Mask(bits.subspan(room.size() - stride_), row);
    }
    return facts_.size.height;
  }

  // One whole plane behind the other; a row can be shown once its last plane is there.
  int PaintContiguous(Bytes planes, RowPainter& painter, Pixels& pixels) const {
    const std::size_t planeBytes = stride_ * static_cast<std::size_t>(facts_.size.height);
    const std::size_t beforeLast = planeBytes * static_cast<std::size_t>(picture_.planes - 1);
    for (int y = 0; y < facts_.size.height; ++y) {
      const std::size_t start = static_cast<std::size_t>(y) * stride_;
      if (beforeLast + start + stride_ > planes.size()) return y;
      painter.BeginRow(y);
      painter.PaintPlanes(planes.subspan(start), planeBytes, pixels.Row(y));
    }
    return facts_.size.height;
  }

  IffPicture picture_;
  IffMode mode_;
  std::size_t stride_ = 0;  // bytes of a row in one plane, or of a row of indices or colours
};

void CheckPlanes(const IffPicture& picture) {
  const bool deep = picture.planes == 24 || picture.planes == 32;
  const bool mayBeDeep = picture.kind == IffKind::Interleaved && picture.compression != Columns;
  if (picture.planes < 1 || (picture.planes > 8 && !(deep && mayBeDeep)))
    Refuse("IFF: this number of planes is not supported");
  if (picture.compression > Columns) Refuse("IFF: unknown compression");
  if (picture.compression == Columns && picture.kind != IffKind::Interleaved)
    Refuse("IFF: this compression does not occur here");
  if (picture.compression == Packed && picture.kind == IffKind::Contiguous)
    Refuse("IFF: packed contiguous planes are not supported");
}

void CheckColourRuns(const IffPicture& picture) {
  if (picture.planes != rgb8Planes && picture.planes != rgbnPlanes)
    Refuse("IFF: this number of planes is not supported");
  if (picture.compression != Runs) Refuse("IFF: unknown compression");
}

void CheckDeep(const IffPicture& picture) {
  const auto isByte = [](const DeepElement& element) { return element.bits == 8; };
  if (picture.elements.empty() || !std::ranges::all_of(picture.elements, isByte))
    Refuse("IFF: only deep pictures of 8 bits a component are supported");
  if (picture.compression > Packed && picture.compression != Steps)
    Refuse("IFF: this compression of deep pictures is not supported");
}

}  // namespace

Match MatchIff(const PictureData& data) {
  return MatchIffHead(data.Head());
}

std::unique_ptr<Decoder> OpenIff(const PictureData& data, const OpenOptions& options) {
  const IffPicture picture = FindIffPicture(data);
  switch (picture.kind) {
    case IffKind::ColourRuns:
      CheckColourRuns(picture);
      break;
    case IffKind::Deep:
      CheckDeep(picture);
      break;
    default:
      CheckPlanes(picture);
  }
  return std::make_unique<IffDecoder>(data, picture, options);
}

}  // namespace lumidex
