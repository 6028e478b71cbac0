#include "pictures/metafile/emf_player.h"
#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/gradients.h"
#include "pictures/metafile/record_values.h"
#include "pictures/metafile/regions.h"

namespace lumidex::metafile {
namespace {

std::vector<Point> ReadCountedPoints(ByteReader& reader, EmfRecord type) {
  reader.Skip(boundsBytes);
  const std::uint32_t count = reader.U32Le();
  return ReadPoints(reader, count, HasNarrowPoints(type));
}

}  // namespace

void EmfPlayer::PlayPolyBezier(Record& record) {
  drawing_.shapes.Curves(ReadCountedPoints(record.reader, record.type));
}

void EmfPlayer::PlayPolygon(Record& record) {
  drawing_.shapes.Polygon(ReadCountedPoints(record.reader, record.type));
}

void EmfPlayer::PlayPolyline(Record& record) {
  drawing_.shapes.Polyline(ReadCountedPoints(record.reader, record.type));
}

void EmfPlayer::PlayPolyBezierTo(Record& record) {
  drawing_.shapes.CurvesTo(ReadCountedPoints(record.reader, record.type));
}

void EmfPlayer::PlayPolyLineTo(Record& record) {
  drawing_.shapes.PolylineTo(ReadCountedPoints(record.reader, record.type));
}

void EmfPlayer::PlayPolyPolyline(Record& record) {
  PlayOutlines(record, false);
}

void EmfPlayer::PlayPolyPolygon(Record& record) {
  PlayOutlines(record, true);
}

void EmfPlayer::PlayOutlines(Record& record, bool closed) {
  ByteReader& reader = record.reader;
  reader.Skip(boundsBytes);
  const std::uint32_t outlines = reader.U32Le();
  const std::uint32_t total = reader.U32Le();
  std::vector<std::uint32_t> counts(std::min<std::size_t>(outlines, reader.Remaining() / 4));
  for (std::uint32_t& count : counts) count = reader.U32Le();
  const std::vector<Point> points = ReadPoints(reader, total, HasNarrowPoints(record.type));
  if (closed) return drawing_.shapes.PolyPolygon(points, counts);
  drawing_.shapes.PolyPolyline(points, counts);
}

void EmfPlayer::PlayPolyDraw(Record& record) {
  constexpr unsigned closes = 1, line = 2, curve = 4, move = 6;
  ByteReader& reader = record.reader;
  const bool narrow = HasNarrowPoints(record.type);
  reader.Skip(boundsBytes);
  const std::uint32_t count = reader.U32Le();
  // Each point has a byte that says what it is, behind all points.
  const std::size_t each = (narrow ? 4 : 8) + 1;
  const std::vector<Point> points =
      ReadPoints(reader, std::min<std::size_t>(count, reader.Remaining() / each), narrow);
  Path path;
  path.MoveTo(State().current);
  std::vector<Point> controls;
  for (const Point point : points) {
    const unsigned kind = reader.U8();
    if ((kind & 6) == move) path.MoveTo(point);
    if ((kind & 6) == line) path.LineTo(point);
    if ((kind & 6) == curve) controls.push_back(point);
    if (controls.size() == 3) {
      path.CurveTo(controls[0], controls[1], controls[2]);
      controls.clear();
    }
    if (kind & closes) path.Close();
  }
  if (!points.empty()) State().current = points.back();
  drawing_.shapes.Draw(path, false, true);
}

void EmfPlayer::PlaySetPixelV(Record& record) {
  const Point at = ReadPoint(record.reader);
  SetPixel(drawing_.context, at, drawing_.context.Colour(record.reader.U32Le()));
}

void EmfPlayer::PlayExtFloodFill(Record& record) {
  const Point at = ReadPoint(record.reader);
  const std::uint32_t colour = drawing_.context.Colour(record.reader.U32Le());
  FloodFill(drawing_.context, at, colour, record.reader.U32Le() == floodFillsSurface);
}

void EmfPlayer::PlayMoveToEx(Record& record) {
  drawing_.shapes.MoveTo(ReadPoint(record.reader));
}

void EmfPlayer::PlayLineTo(Record& record) {
  drawing_.shapes.LineTo(ReadPoint(record.reader));
}

void EmfPlayer::PlayAngleArc(Record& record) {
  ByteReader& reader = record.reader;
  const Point centre = ReadPoint(reader);
  const double radius = reader.U32Le(), start = ReadFloat(reader), sweep = ReadFloat(reader);
  drawing_.shapes.AngleArc(centre, radius, start, sweep);
}

void EmfPlayer::PlayEllipse(Record& record) {
  drawing_.shapes.Ellipse(ReadBox(record.reader));
}

void EmfPlayer::PlayRectangle(Record& record) {
  drawing_.shapes.Rectangle(ReadBox(record.reader));
}

void EmfPlayer::PlayRoundRect(Record& record) {
  const Box box = ReadBox(record.reader);
  drawing_.shapes.RoundRectangle(box, ReadPoint(record.reader));
}

void EmfPlayer::PlayArc(Record& record) {
  PlayArcOf(record, Shapes::ArcKind::Open);
}

void EmfPlayer::PlayChord(Record& record) {
  PlayArcOf(record, Shapes::ArcKind::Chord);
}

void EmfPlayer::PlayPie(Record& record) {
  PlayArcOf(record, Shapes::ArcKind::Pie);
}

void EmfPlayer::PlayArcTo(Record& record) {
  PlayArcOf(record, Shapes::ArcKind::Continued);
}

void EmfPlayer::PlayArcOf(Record& record, Shapes::ArcKind kind) {
  const Box box = ReadBox(record.reader);
  const Point start = ReadPoint(record.reader), end = ReadPoint(record.reader);
  drawing_.shapes.Arc(box, start, end, kind);
}

void EmfPlayer::PlayGradientFill(Record& record) {
  constexpr std::uint32_t acrossMode = 0, triangleMode = 2;
  ByteReader& reader = record.reader;
  reader.Skip(boundsBytes);
  const std::uint32_t vertexCount = reader.U32Le(), shapes = reader.U32Le(), mode = reader.U32Le();
  std::vector<Vertex> vertices(std::min<std::size_t>(vertexCount, reader.Remaining() / 16));
  for (Vertex& vertex : vertices) {
    vertex.at = ReadPoint(reader);
    const std::uint32_t red = reader.U16Le() >> 8, green = reader.U16Le() >> 8, blue = reader.U16Le() >> 8;
    reader.Skip(2);
    vertex.colour = red << 16 | green << 8 | blue;
  }
  const std::size_t corners = mode == triangleMode ? 3 : 2;
  for (std::uint32_t i = 0; i < shapes && reader.Remaining() >= corners * 4; ++i) {
    std::array<Vertex, 3> chosen{};
    bool valid = true;
    for (std::size_t k = 0; k < corners; ++k) {
      const std::uint32_t number = reader.U32Le();
      valid = valid && number < vertices.size();
      if (valid) chosen[k] = vertices[number];
    }
    if (!valid) continue;
    if (mode == triangleMode) {
      FillGradientTriangle(drawing_.context, chosen);
    } else {
      FillGradientBox(drawing_.context, chosen[0], chosen[1], mode == acrossMode);
    }
  }
}

}  // namespace lumidex::metafile
