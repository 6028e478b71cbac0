#include "pictures/support/tiff_bytes.h"

#include "gallery/encoders/byte_writer.h"

namespace lumidex {
namespace {

std::size_t WidthOf(unsigned type) {
  switch (type) {
    case TiffTag::Byte:
    case TiffTag::Text:
    case TiffTag::Undefined:
      return 1;
    case TiffTag::Short:
      return 2;
    case TiffTag::Double:
      return 8;
    default:
      return 4;
  }
}

class Writer {
 public:
  explicit Writer(bool bigEndian) : bigEndian_(bigEndian) {}
  void Number(std::uint64_t value, std::size_t width) {
    for (std::size_t i = 0; i < width; ++i)
      bytes.U8(static_cast<std::uint32_t>(value >> 8 * (bigEndian_ ? width - 1 - i : i)));
  }

  ByteWriter bytes;

 private:
  bool bigEndian_;
};

}  // namespace

std::vector<std::uint8_t> TiffBytes(const std::vector<TiffTag>& tags, const std::vector<std::uint8_t>& pixels,
                                    TiffForm form) {
  const std::size_t offsetBytes = form.wide ? 8 : 4, countBytes = form.wide ? 8 : 2;
  const std::size_t directory = TiffPixelsAt(form) + (pixels.size() + 1) / 2 * 2;
  const std::size_t farStart = directory + countBytes + tags.size() * (4 + 2 * offsetBytes) + offsetBytes;
  Writer file(form.bigEndian), far(form.bigEndian);
  file.bytes.Text(form.bigEndian ? "MM" : "II");
  file.Number(form.wide ? 43 : 42, 2);
  if (form.wide) file.Number(form.bigEndian ? 8 << 16 : 8, 4);
  file.Number(directory, offsetBytes);
  file.bytes.Add(pixels).PadTo(2);
  file.Number(tags.size(), countBytes);
  for (const TiffTag& tag : tags) {
    file.Number(tag.number, 2);
    file.Number(tag.type, 2);
    file.Number(tag.values.size(), offsetBytes);
    const std::size_t width = WidthOf(tag.type), bytes = width * tag.values.size();
    if (bytes > offsetBytes) file.Number(farStart + far.bytes.Size(), offsetBytes);
    Writer& values = bytes > offsetBytes ? far : file;
    for (const std::uint64_t value : tag.values) values.Number(value, width);
    if (bytes <= offsetBytes) file.bytes.Fill(offsetBytes - bytes);
    far.bytes.PadTo(2);
  }
  file.Number(0, offsetBytes);
  return file.bytes.Add(far.bytes.Bytes()).Take();
}

}  // namespace lumidex
