#pragma once
// How enhanced metafile records store points, boxes and maps.

#include <bit>
#include <vector>

#include "pictures/byte_reader.h"
#include "pictures/metafile/geometry.h"

namespace lumidex::metafile {

// Of the box around what a record draws, which many begin with.
inline constexpr std::size_t boundsBytes = 16;

inline Point ReadPoint(ByteReader& reader) {
  const double x = reader.S32Le();
  return {x, static_cast<double>(reader.S32Le())};
}

inline Box ReadBox(ByteReader& reader) {
  const Point from = ReadPoint(reader), to = ReadPoint(reader);
  return {from.x, from.y, to.x, to.y};
}

inline double ReadFloat(ByteReader& reader) {
  const double value = std::bit_cast<float>(reader.U32Le());
  return std::isfinite(value) ? value : 0;
}

inline Matrix ReadMatrix(ByteReader& reader) {
  Matrix matrix;
  for (double* part : {&matrix.xx, &matrix.yx, &matrix.xy, &matrix.yy, &matrix.x0, &matrix.y0})
    *part = ReadFloat(reader);
  return matrix;
}

// Up to `count` points of 32 or, when `narrow`, 16 bits a coordinate; fewer when the record ends.
inline std::vector<Point> ReadPoints(ByteReader& reader, std::size_t count, bool narrow) {
  std::vector<Point> points(std::min(count, reader.Remaining() / (narrow ? 4 : 8)));
  for (Point& point : points) {
    if (narrow) {
      point.x = reader.S16Le();
      point.y = reader.S16Le();
    } else {
      point = ReadPoint(reader);
    }
  }
  return points;
}

}  // namespace lumidex::metafile
