#pragma once
// How the records of Windows metafiles follow each other and store coordinates.

#include "pictures/byte_reader.h"
#include "pictures/metafile/geometry.h"
#include "pictures/metafile/wmf_records.h"
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
inline bool HoldsBitmap(WmfRecord record) {
  return record == WmfRecord::DibBitBlt || record == WmfRecord::DibStretchBlt ||
         record == WmfRecord::SetDibToDev || record == WmfRecord::StretchDib;
}

// Runs `visit(type, record)` over all records until it answers false.
template <class Visit>
void ForEachRecord(Bytes records, Visit visit) {
  constexpr std::size_t recordHeaderBytes = 6;
  ByteReader reader(records);
  while (reader.Remaining() >= recordHeaderBytes) {
    const std::uint64_t bytes = std::uint64_t{reader.U32Le()} * 2;
    const auto type = static_cast<WmfRecord>(reader.U16Le());
    if (bytes < recordHeaderBytes || type == WmfRecord::EndOfFile) return;
    const std::uint64_t rest = bytes - recordHeaderBytes;
    if (rest > reader.Remaining() && !HoldsBitmap(type)) return;
    if (!visit(type, reader.Sub(static_cast<std::size_t>(rest)))) return;
  }
}

}  // namespace lumidex::metafile
