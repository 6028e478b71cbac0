#include "pictures/exif.h"

#include "pictures/byte_reader.h"

namespace lumidex {

ExifMark ReadExifOrientation(Bytes tiff) {
  constexpr std::uint16_t littleEndian = 0x4949, bigEndian = 0x4D4D;
  constexpr std::uint16_t orientationTag = 0x0112;
  ByteReader reader(tiff);
  const std::uint16_t order = reader.U16Be();
  if (order != littleEndian && order != bigEndian) return {};
  const bool big = order == bigEndian;
  const auto u16 = [&] { return big ? reader.U16Be() : reader.U16Le(); };
  reader.Skip(2);
  reader.Seek(big ? reader.U32Be() : reader.U32Le());
  const int entries = u16();
  for (int i = 0; i < entries && !reader.WasCut(); ++i) {
    const std::uint16_t tag = u16();
    reader.Skip(6);  // the type and the count: some writers give a long where a short belongs
    const std::uint16_t first = u16();
    const std::uint16_t second = u16();
    if (reader.WasCut()) break;
    if (tag == orientationTag) return {OrientationOf(big && first == 0 ? second : first), false};
  }
  return {Orientation::Upright, reader.WasCut()};
}

}  // namespace lumidex
