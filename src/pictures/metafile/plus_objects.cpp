#include "pictures/metafile/plus_objects.h"

#include <algorithm>

#include "base/run_time_error.h"
#include "pictures/metafile/embedded_image.h"
#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/letters.h"
#include "pictures/metafile/plus_brushes.h"

namespace lumidex::metafile::plus {
namespace {

// A number of 7 or 15 bits with its sign.
double PackedNumber(ByteReader& reader) {
  const unsigned first = reader.U8();
  if (!(first & 0x80)) return static_cast<int>(first & 0x7F) - static_cast<int>((first & 0x40) << 1);
  const unsigned value = (first & 0x7F) << 8 | reader.U8();
  return static_cast<int>(value) - static_cast<int>((value & 0x4000) << 1);
}

// A tree that is cut or makes no sense is everything.
ClipObject ReadClip(ByteReader& reader) {
  constexpr std::uint32_t lastMode = 5, box = 0x10000000, outline = 0x10000001, everything = 0x10000003;
  constexpr std::size_t mostNodes = 65536;
  reader.Skip(8);
  ClipObject clip;
  std::size_t missing = 1;
  while (missing > 0 && reader.Remaining() >= 4 && clip.nodes.size() < mostNodes) {
    const std::uint32_t kind = reader.U32Le();
    const bool joins = kind >= 1 && kind <= lastMode;
    if (!joins && (kind < box || kind > everything)) break;
    ClipNode node{.mode = joins ? kind : 0, .everything = kind == everything};
    if (kind == box) node.outline.AddBox(ReadBox(reader, false));
    if (kind == outline) {
      ByteReader path = reader.Sub(reader.U32Le());
      node.outline = ReadPath(path);
    }
    clip.nodes.push_back(std::move(node));
    missing = joins ? missing + 1 : missing - 1;
  }
  if (missing > 0) clip.nodes = {{.everything = true}};
  return clip;
}

FontObject ReadFont(ByteReader& reader) {
  constexpr std::uint32_t bold = 1, italic = 2, underlined = 4, struckOut = 8;
  FontObject object;
  reader.Skip(4);
  object.font.height = -std::abs(ReadFloat(reader));
  object.unit = static_cast<Unit>(std::min<std::uint32_t>(reader.U32Le(), 6));
  const std::uint32_t style = reader.U32Le();
  object.font.weight = style & bold ? 700 : 400;
  object.font.italic = (style & italic) != 0;
  object.font.underlined = (style & underlined) != 0;
  object.font.struckOut = (style & struckOut) != 0;
  reader.Skip(4);
  const std::uint32_t letters = reader.U32Le();
  object.font.family = NameFromUtf16(reader.Take(std::min<std::size_t>(letters, 64) * 2));
  return object;
}

TextFormat ReadFormat(ByteReader& reader) {
  constexpr std::uint32_t oneLine = 0x1000;
  reader.Skip(4);
  TextFormat format;
  format.wraps = (reader.U32Le() & oneLine) == 0;
  reader.Skip(4);
  format.across = static_cast<int>(std::min<std::uint32_t>(reader.U32Le(), 2));
  format.down = static_cast<int>(std::min<std::uint32_t>(reader.U32Le(), 2));
  return format;
}

// How pixels are stored, and the colours of those of up to 8 bits.
constexpr std::uint32_t indexed1 = 0x00030101, indexed4 = 0x00030402, indexed8 = 0x00030803,
                        bits555 = 0x00021005, bits565 = 0x00021006, bits1555 = 0x00061007, rgb24 = 0x00021808,
                        rgb32 = 0x00022009, argb32 = 0x0026200A, pargb32 = 0x000E200B;

std::uint32_t FromShort(unsigned value, std::uint32_t format) {
  const auto wide = [](unsigned part, unsigned most) { return part * 255 / most; };
  if (format == bits565)
    return 0xFF000000U | wide(value >> 11, 31) << 16 | wide(value >> 5 & 63, 63) << 8 | wide(value & 31, 31);
  const std::uint32_t alpha = format == bits1555 && !(value & 0x8000) ? 0 : 0xFF000000U;
  return alpha | wide(value >> 10 & 31, 31) << 16 | wide(value >> 5 & 31, 31) << 8 | wide(value & 31, 31);
}

std::uint32_t CappedToAlpha(std::uint32_t word) {
  const std::uint32_t alpha = word >> 24;
  const auto capped = [&](int shift) { return std::min(word >> shift & 0xFF, alpha) << shift; };
  return alpha << 24 | capped(16) | capped(8) | capped(0);
}

std::optional<Pixels> DecodeBitmapPixels(ByteReader& reader, Size size, int stride, std::uint32_t format) {
  const unsigned bits = format >> 8 & 0xFF;
  std::vector<std::uint32_t> colours(256, 0xFF000000U);
  if (format == indexed1 || format == indexed4 || format == indexed8) {
    reader.Skip(4);
    const std::uint32_t count = reader.U32Le();
    for (std::uint32_t i = 0; i < count && reader.Remaining() >= 4; ++i) {
      const std::uint32_t colour = reader.U32Le();
      if (i < colours.size()) colours[i] = colour;
    }
  } else if (format != bits555 && format != bits565 && format != bits1555 && format != rgb24 &&
             format != rgb32 && format != argb32 && format != pargb32) {
    return std::nullopt;
  }
  const bool premultiplied = format == pargb32;
  Pixels pixels = Pixels::Make(size, premultiplied ? PixelFormat::ArgbPremultiplied : PixelFormat::Argb,
                               premultiplied ? 0 : 0x00FFFFFF);
  const std::size_t start = reader.Position();
  for (int y = 0; y < size.height; ++y) {
    reader.Seek(start + static_cast<std::size_t>(stride) * static_cast<std::size_t>(y));
    if (reader.AtEnd()) break;
    unsigned packed = 0;
    unsigned left = 0;
    for (std::uint32_t& word : pixels.Row(y)) {
      if (bits <= 8) {
        if (left == 0) packed = reader.U8();
        left = left == 0 ? 8 - bits : left - bits;
        word = colours[packed >> left & ((1U << bits) - 1)];
      } else if (bits == 16) {
        word = FromShort(reader.U16Le(), format);
      } else if (bits == 24) {
        const std::uint32_t low = reader.U16Le();
        word = 0xFF000000U | std::uint32_t{reader.U8()} << 16 | low;
      } else {
        word = reader.U32Le();
        if (format == rgb32) word |= 0xFF000000U;
        if (premultiplied) word = CappedToAlpha(word);
      }
    }
  }
  return pixels;
}

}  // namespace

std::vector<Point> ReadPoints(ByteReader& reader, std::size_t count, bool narrow, bool relative) {
  const std::size_t least = relative ? 2 : narrow ? 4 : 8;
  std::vector<Point> points(std::min(count, reader.Remaining() / least));
  Point last;
  for (Point& point : points) {
    if (relative) {
      const double x = PackedNumber(reader);
      point = {last.x + x, last.y + PackedNumber(reader)};
    } else if (narrow) {
      const double x = reader.S16Le();
      point = {x, static_cast<double>(reader.S16Le())};
    } else {
      const double x = ReadFloat(reader);
      point = {x, ReadFloat(reader)};
    }
    last = point;
  }
  return points;
}

Box ReadBox(ByteReader& reader, bool narrow) {
  const auto corners = ReadPoints(reader, 2, narrow, false);
  if (corners.size() < 2) return {};
  return {corners[0].x, corners[0].y, corners[0].x + corners[1].x, corners[0].y + corners[1].y};
}

Path ReadPath(ByteReader& reader) {
  constexpr std::uint32_t narrowPoints = 0x4000, relativePoints = 0x800, packedTypes = 0x1000;
  constexpr unsigned kindMask = 0xF, start = 0, curve = 3, closes = 0x80;
  reader.Skip(4);
  const std::uint32_t count = reader.U32Le(), flags = reader.U32Le();
  const std::vector<Point> points =
      ReadPoints(reader, count, (flags & narrowPoints) != 0, (flags & relativePoints) != 0);
  std::vector<unsigned> types;
  while (types.size() < points.size() && !reader.AtEnd()) {
    // Packed types come as a length and a type that holds for so many points.
    std::size_t times = 1;
    if (flags & packedTypes) times = reader.U8() & 0x3F;
    types.insert(types.end(), std::min(times, points.size() - types.size()), reader.U8());
  }
  Path path;
  for (std::size_t i = 0; i < types.size(); ++i) {
    const unsigned kind = types[i] & kindMask;
    std::size_t last = i;
    if (kind == start) {
      path.MoveTo(points[i]);
    } else if (kind == curve && i + 2 < types.size()) {
      last = i + 2;
      path.CurveTo(points[i], points[i + 1], points[last]);
    } else {
      path.LineTo(points[i]);
    }
    if (types[last] & closes) path.Close();
    i = last;
  }
  return path;
}

Object ReadObject(ObjectKind kind, Bytes bytes, WorkBudget& budget) {
  ByteReader reader(bytes);
  switch (kind) {
    case ObjectKind::Brush:
      return ReadBrush(reader, budget);
    case ObjectKind::Pen:
      return ReadPen(reader, budget);
    case ObjectKind::Path:
      return ReadPath(reader);
    case ObjectKind::Region:
      return ReadClip(reader);
    case ObjectKind::Image:
      return ImageObject{{bytes.begin(), bytes.end()}};
    case ObjectKind::Font:
      return ReadFont(reader);
    case ObjectKind::StringFormat:
      return ReadFormat(reader);
    default:
      return {};
  }
}

std::optional<Bytes> StoredMetafile(Bytes image) {
  ByteReader reader(image);
  reader.Skip(4);
  if (static_cast<ImageKind>(reader.U32Le()) != ImageKind::Metafile) return std::nullopt;
  reader.Skip(4);
  const std::uint32_t bytes = reader.U32Le();
  return reader.Take(std::min<std::size_t>(bytes, reader.Remaining()));
}

std::optional<Pixels> DecodeImage(Bytes bytes, WorkBudget& budget) {
  constexpr std::uint32_t plainPixels = 0;
  ByteReader reader(bytes);
  reader.Skip(4);
  if (static_cast<ImageKind>(reader.U32Le()) != ImageKind::Bitmap) return std::nullopt;
  const Size size{reader.S32Le(), reader.S32Le()};
  const int stride = reader.S32Le();
  const std::uint32_t format = reader.U32Le();
  if (reader.U32Le() != plainPixels) return DecodeFile(reader.Take(reader.Remaining()), budget);
  try {
    if (stride < 1 || !AffordImage(size, budget)) return std::nullopt;
    return DecodeBitmapPixels(reader, size, stride, format);
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace lumidex::metafile::plus
