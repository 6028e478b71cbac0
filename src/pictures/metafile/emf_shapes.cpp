#include "pictures/metafile/emf_player.h"
#include "pictures/metafile/emf_reading.h"

namespace lumidex::metafile {
namespace {

constexpr std::size_t boundsBytes = 16;

// Every shape of many points exists with 32 and with 16 bits a coordinate.
constexpr unsigned WideType(unsigned type) {
  switch (type) {
    case 85:
    case 86:
    case 87:
    case 88:
    case 89:
    case 90:
    case 91:
      return type - 83;
    case 92:
      return 56;
    default:
      return type;
  }
}

}  // namespace

bool EmfPlayer::PlayPoints(unsigned type, ByteReader& reader) {
  const unsigned wide = WideType(type);
  const bool narrow = wide != type;
  const auto points = [&] {
    reader.Skip(boundsBytes);
    const std::uint32_t count = reader.U32Le();
    return ReadPoints(reader, count, narrow);
  };
  switch (wide) {
    case 2:
      drawing_.Curves(points());
      return true;
    case 3:
      drawing_.Polygon(points());
      return true;
    case 4:
      drawing_.Polyline(points());
      return true;
    case 5:
      drawing_.CurvesTo(points());
      return true;
    case 6:
      drawing_.PolylineTo(points());
      return true;
    case 7:
      PlayPolyPolyline(reader, narrow, false);
      return true;
    case 8:
      PlayPolyPolyline(reader, narrow, true);
      return true;
    case 56:
      PlayPolyDraw(reader, narrow);
      return true;
    default:
      return false;
  }
}

void EmfPlayer::PlayPolyPolyline(ByteReader& reader, bool narrow, bool filled) {
  reader.Skip(boundsBytes);
  const std::uint32_t outlines = reader.U32Le();
  const std::uint32_t total = reader.U32Le();
  std::vector<std::uint32_t> counts(std::min<std::size_t>(outlines, reader.Remaining() / 4));
  for (std::uint32_t& count : counts) count = reader.U32Le();
  const std::vector<Point> points = ReadPoints(reader, total, narrow);
  if (filled) return drawing_.PolyPolygon(points, counts);
  std::span<const Point> rest = points;
  Path path;
  for (const std::uint32_t count : counts) {
    if (count > rest.size()) break;
    path.AddPolyline(rest.first(count), false);
    rest = rest.subspan(count);
  }
  drawing_.Shape(path, false);
}

void EmfPlayer::PlayPolyDraw(ByteReader& reader, bool narrow) {
  constexpr unsigned closes = 1, line = 2, curve = 4, move = 6;
  reader.Skip(boundsBytes);
  const std::uint32_t count = reader.U32Le();
  // Each point has a byte that says what it is, behind all points.
  const std::size_t each = (narrow ? 4 : 8) + 1;
  const std::vector<Point> points =
      ReadPoints(reader, std::min<std::size_t>(count, reader.Remaining() / each), narrow);
  Path path;
  path.MoveTo(drawing_.State().current);
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
  if (!points.empty()) drawing_.State().current = points.back();
  drawing_.Shape(path, false, true);
}

bool EmfPlayer::PlayShape(unsigned type, ByteReader& reader) {
  const auto arc = [&](Drawing::ArcKind kind) {
    const Box box = ReadBox(reader);
    const Point start = ReadPoint(reader), end = ReadPoint(reader);
    drawing_.Arc(box, start, end, kind);
  };
  switch (type) {
    case 15: {
      const Point at = ReadPoint(reader);
      drawing_.SetPixel(at, drawing_.Color(reader.U32Le()));
      return true;
    }
    case 53: {
      const Point at = ReadPoint(reader);
      const std::uint32_t color = drawing_.Color(reader.U32Le());
      drawing_.FloodFill(at, color, reader.U32Le() == 1);
      return true;
    }
    case 27:
      drawing_.MoveTo(ReadPoint(reader));
      return true;
    case 54:
      drawing_.LineTo(ReadPoint(reader));
      return true;
    case 41: {
      const Point centre = ReadPoint(reader);
      const double radius = reader.U32Le(), start = ReadFloat(reader), sweep = ReadFloat(reader);
      drawing_.AngleArc(centre, radius, start, sweep);
      return true;
    }
    case 42:
      drawing_.Ellipse(ReadBox(reader));
      return true;
    case 43:
      drawing_.Rectangle(ReadBox(reader));
      return true;
    case 44: {
      const Box box = ReadBox(reader);
      drawing_.RoundRectangle(box, ReadPoint(reader));
      return true;
    }
    case 45:
      arc(Drawing::ArcKind::Open);
      return true;
    case 46:
      arc(Drawing::ArcKind::Chord);
      return true;
    case 47:
      arc(Drawing::ArcKind::Pie);
      return true;
    case 55:
      arc(Drawing::ArcKind::Continued);
      return true;
    case 118:
      PlayGradient(reader);
      return true;
    default:
      return false;
  }
}

void EmfPlayer::PlayGradient(ByteReader& reader) {
  constexpr std::uint32_t acrossMode = 0, triangleMode = 2;
  reader.Skip(boundsBytes);
  const std::uint32_t vertexCount = reader.U32Le(), shapes = reader.U32Le(), mode = reader.U32Le();
  std::vector<Drawing::Vertex> vertices(std::min<std::size_t>(vertexCount, reader.Remaining() / 16));
  for (Drawing::Vertex& vertex : vertices) {
    vertex.at = ReadPoint(reader);
    const std::uint32_t red = reader.U16Le() >> 8, green = reader.U16Le() >> 8, blue = reader.U16Le() >> 8;
    reader.Skip(2);
    vertex.color = red << 16 | green << 8 | blue;
  }
  const std::size_t corners = mode == triangleMode ? 3 : 2;
  for (std::uint32_t i = 0; i < shapes && reader.Remaining() >= corners * 4; ++i) {
    std::array<Drawing::Vertex, 3> chosen{};
    bool valid = true;
    for (std::size_t k = 0; k < corners; ++k) {
      const std::uint32_t number = reader.U32Le();
      valid = valid && number < vertices.size();
      if (valid) chosen[k] = vertices[number];
    }
    if (!valid) continue;
    if (mode == triangleMode) {
      drawing_.GradientTriangle(chosen);
    } else {
      drawing_.GradientBox(chosen[0], chosen[1], mode == acrossMode);
    }
  }
}

}  // namespace lumidex::metafile
