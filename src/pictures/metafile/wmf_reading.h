#pragma once
// How the records of Windows metafiles follow each other and store coordinates.

#include "pictures/byte_reader.h"
#include "pictures/metafile/geometry.h"
#include "pictures/picture_data.h"

namespace lumidex::metafile {

// Coordinates stand in reverse order: y before x, bottom before top.
inline Point ReversedPoint(ByteReader& record) {
  const double y = record.S16Le();
  return {static_cast<double>(record.S16Le()), y};
}

inline Box ReversedBox(ByteReader& record) {
  const Point corner = ReversedPoint(record), origin = ReversedPoint(record);
  return {origin.x, origin.y, corner.x, corner.y};
}

// Of a cut file's last record only a bitmap is worth showing in part; of others, a part means something else.
inline bool HoldsBitmap(unsigned function) {
  return function == 0x0940 || function == 0x0B41 || function == 0x0D33 || function == 0x0F43;
}

// Runs `visit(function, record)` over all records until it answers false.
template <class Visit>
void ForEachRecord(Bytes records, Visit visit) {
  constexpr std::size_t recordHeaderBytes = 6;
  ByteReader reader(records);
  while (reader.Remaining() >= recordHeaderBytes) {
    const std::uint64_t bytes = std::uint64_t{reader.U32Le()} * 2;
    const unsigned function = reader.U16Le();
    if (bytes < recordHeaderBytes || function == 0) return;
    const std::uint64_t rest = bytes - recordHeaderBytes;
    if (rest > reader.Remaining() && !HoldsBitmap(function)) return;
    if (!visit(function, reader.Sub(static_cast<std::size_t>(rest)))) return;
  }
}

}  // namespace lumidex::metafile
