#include "pictures/metafile/plus_brushes.h"

#include "pictures/metafile/embedded_image.h"
#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/plus_objects.h"

namespace lumidex::metafile::plus {
namespace {

// What a brush's flags say follows it.
constexpr std::uint32_t hasPath = 0x1, hasMap = 0x2, hasColours = 0x4, hasFactors = 0x8, hasFocus = 0x40;
// What follows at the edges of a tile or line.
constexpr std::uint32_t flipsAcross = 1, flipsBoth = 3, clamps = 4;

// More colours or corners than any drawing shows apart.
constexpr std::size_t mostStops = 256, mostCorners = 1024;

std::vector<double> ReadPlaces(ByteReader& reader, std::size_t count) {
  std::vector<double> places(count);
  double last = 0;
  for (double& place : places) place = last = std::clamp(ReadFloat(reader), last, 1.0);
  return places;
}

std::size_t ReadCount(ByteReader& reader, std::size_t bytesEach) {
  return std::min<std::size_t>(reader.U32Le(), reader.Remaining() / bytesEach);
}

// Colours at places.
std::vector<ShadingStop> ReadColours(ByteReader& reader) {
  const std::size_t count = ReadCount(reader, 8);
  const std::vector<double> places = ReadPlaces(reader, count);
  std::vector<ShadingStop> stops;
  stops.reserve(count);
  for (const double place : places) stops.push_back({place, reader.U32Le()});
  if (stops.size() > mostStops) stops.resize(mostStops);
  return stops;
}

struct Factor {
  double place = 0;
  double part = 0;
};

// How much of the second colour there is at places; all from none to all of it when nothing is stored.
std::vector<Factor> ReadFactors(ByteReader& reader, std::uint32_t flags) {
  if (!(flags & hasFactors)) return {{0, 0}, {1, 1}};
  const std::size_t count = ReadCount(reader, 8);
  const std::vector<double> places = ReadPlaces(reader, count);
  std::vector<Factor> factors;
  factors.reserve(count);
  for (const double place : places) factors.push_back({place, std::clamp(ReadFloat(reader), 0.0, 1.0)});
  if (factors.size() > mostStops) factors.resize(mostStops);
  return factors;
}

// `plain` is the one colour that stands for the shading where none can be drawn, as in text.
Brush ShadedBrush(Shading shading, std::uint32_t plain) {
  Brush brush = SolidBrush(plain);
  brush.kind = Ink::Kind::Shaded;
  brush.shading = std::make_shared<const Shading>(std::move(shading));
  return brush;
}

Brush ReadLineBrush(ByteReader& reader) {
  const std::uint32_t flags = reader.U32Le(), edge = reader.U32Le();
  const Box box = ReadBox(reader, false);
  const std::uint32_t first = reader.U32Le(), second = reader.U32Le();
  reader.Skip(8);
  Shading shading;
  shading.start = box.left;
  shading.end = box.right;
  if (edge == flipsAcross || edge == flipsBoth) shading.beyond = Shading::Beyond::Mirrors;
  if (flags & hasMap) shading.map = ReadMatrix(reader);
  if (flags & hasColours) {
    shading.stops = ReadColours(reader);
  } else {
    for (const Factor& factor : ReadFactors(reader, flags))
      shading.stops.push_back({factor.place, Mixed(first, second, factor.part)});
  }
  if (shading.stops.empty()) return Brush{};
  const std::uint32_t plain = Mixed(shading.stops.front().argb, shading.stops.back().argb, 0.5);
  return ShadedBrush(std::move(shading), plain);
}

// Lines in place of the outline's curves; its first part alone.
std::vector<Point> Corners(const Path& path) {
  constexpr int piecesOfCurve = 12;
  std::vector<Point> corners;
  const auto points = path.Points();
  std::size_t next = 0;
  for (const Path::Verb verb : path.Verbs()) {
    if (corners.size() >= mostCorners || (verb == Path::Verb::Move && next > 0)) break;
    if (verb == Path::Verb::Move || verb == Path::Verb::Line) corners.push_back(points[next++]);
    if (verb != Path::Verb::Curve) continue;
    const Point a = corners.back(), b = points[next], c = points[next + 1], d = points[next + 2];
    for (int i = 1; i <= piecesOfCurve; ++i) {
      const double t = static_cast<double>(i) / piecesOfCurve, u = 1 - t;
      const double wa = u * u * u, wb = 3 * u * u * t, wc = 3 * u * t * t, wd = t * t * t;
      corners.push_back(
          {wa * a.x + wb * b.x + wc * c.x + wd * d.x, wa * a.y + wb * b.y + wc * c.y + wd * d.y});
    }
    next += 3;
  }
  return corners;
}

Brush ReadCentreBrush(ByteReader& reader) {
  const std::uint32_t flags = reader.U32Le();
  reader.Skip(4);
  Shading shading;
  shading.kind = Shading::Kind::Centre;
  shading.centreColour = reader.U32Le();
  shading.centre.x = ReadFloat(reader);
  shading.centre.y = ReadFloat(reader);
  shading.outlineColours.resize(ReadCount(reader, 4));
  for (std::uint32_t& colour : shading.outlineColours) colour = reader.U32Le();
  if (flags & hasPath) {
    ByteReader path = reader.Sub(reader.U32Le());
    shading.outline = Corners(ReadPath(path));
  } else {
    const std::uint32_t count = reader.U32Le();
    shading.outline = ReadPoints(reader, count, false, false);
  }
  if (shading.outline.size() > mostCorners) shading.outline.resize(mostCorners);
  if (flags & hasMap) shading.map = ReadMatrix(reader);
  if (flags & hasColours) {
    shading.stops = ReadColours(reader);
  } else {
    shading.mixesWithOutline = true;
    for (const Factor& factor : ReadFactors(reader, flags))
      shading.stops.push_back(
          {factor.place, static_cast<std::uint32_t>(std::lround(factor.part * 255)) << 24});
  }
  if (flags & hasFocus) {
    reader.Skip(4);
    const double across = ReadFloat(reader);
    shading.focus = std::clamp((across + ReadFloat(reader)) / 2, 0.0, 1.0);
  }
  if (shading.stops.empty() || shading.outline.size() < 3) return Brush{};
  const std::uint32_t edge =
      shading.outlineColours.empty() ? shading.centreColour : shading.outlineColours.front();
  const std::uint32_t plain = Mixed(shading.centreColour, edge, 0.5);
  return ShadedBrush(std::move(shading), plain);
}

Brush ReadHatchBrush(ByteReader& reader) {
  const std::uint32_t hatch = reader.U32Le(), lines = reader.U32Le(), between = reader.U32Le();
  Brush brush = SolidBrush(lines);
  brush.kind = Ink::Kind::Hatched;
  brush.hatch = static_cast<int>(std::min<std::uint32_t>(hatch, 255));
  if (between >> 24 != 0) brush.background = between & 0xFFFFFF;
  return brush;
}

Brush ReadPictureBrush(ByteReader& reader, WorkBudget& budget) {
  const std::uint32_t flags = reader.U32Le(), edge = reader.U32Le();
  Brush brush{.kind = Ink::Kind::Tiled};
  brush.tileMap = flags & hasMap ? ReadMatrix(reader) : Matrix{};
  brush.tileEdge = edge == clamps                         ? CAIRO_EXTEND_NONE
                   : edge >= flipsAcross && edge < clamps ? CAIRO_EXTEND_REFLECT
                                                          : CAIRO_EXTEND_REPEAT;
  auto image = DecodeImage(reader.Take(reader.Remaining()), budget);
  if (!image || !budget.Keep(static_cast<double>(image->ByteCount()))) return Brush{};
  brush.tile = *std::move(image);
  return brush;
}

}  // namespace

Brush SolidBrush(std::uint32_t argb) {
  return {.kind = argb >> 24 == 0 ? Ink::Kind::None : Ink::Kind::Solid,
          .colour = argb & 0xFFFFFF,
          .opacity = static_cast<double>(argb >> 24) / 255};
}

Brush ReadBrush(ByteReader& reader, WorkBudget& budget) {
  reader.Skip(4);
  switch (static_cast<BrushKind>(reader.U32Le())) {
    case BrushKind::SolidColor:
      return SolidBrush(reader.U32Le());
    case BrushKind::HatchFill:
      return ReadHatchBrush(reader);
    case BrushKind::TextureFill:
      return ReadPictureBrush(reader, budget);
    case BrushKind::PathGradient:
      return ReadCentreBrush(reader);
    case BrushKind::LinearGradient:
      return ReadLineBrush(reader);
    default:
      return Brush{};
  }
}

}  // namespace lumidex::metafile::plus
