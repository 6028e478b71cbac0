#include "pictures/exif.h"

#include <algorithm>
#include <string_view>

#include "pictures/byte_reader.h"

namespace lumidex {
namespace {

constexpr std::uint16_t littleEndian = 0x4949, bigEndian = 0x4D4D;
constexpr std::uint16_t orientationTag = 0x0112;

// The directories of a block of EXIF data, read and written in their places; what lies outside reads as 0 and
// is not written.
class ExifBlock {
 public:
  struct Entry {
    std::uint16_t tag = 0, type = 0;
    std::uint32_t count = 0;
    std::size_t value = 0;  // the place of the value, or of the offset to it
  };

  explicit ExifBlock(std::span<std::uint8_t> bytes) : bytes_(bytes) {
    big_ = bytes.size() >= 2 && bytes[0] == 'M';
  }
  bool IsOne() const { return bytes_.size() >= 8 && (U16(0) == littleEndian || U16(0) == bigEndian); }
  std::uint32_t U32(std::size_t at) const { return Number(at, 4); }
  void Put32(std::size_t at, std::uint32_t number) { Put(at, 4, number); }

  // Gives every entry of the directory to `take`; returns the place of the offset to the next directory.
  template <class Take>
  std::size_t Visit(std::size_t directory, Take take) {
    const std::size_t entries = U16(directory);
    for (std::size_t i = 0; i < entries; ++i) {
      const std::size_t at = directory + 2 + 12 * i;
      if (at + 12 > bytes_.size()) break;
      take(Entry{U16(at), U16(at + 2), U32(at + 4), at + 8});
    }
    return directory + 2 + 12 * entries;
  }

  // Writes a number as wide as the entry's type has it.
  void Write(const Entry& entry, std::uint32_t number) {
    constexpr std::uint16_t byteType = 1, longType = 4;
    if (entry.type == longType) return Put(entry.value, 4, number);
    Put(entry.value, 4, 0);
    Put(entry.value, entry.type == byteType ? 1 : 2, number);
  }
  void WriteText(const Entry& entry, std::string_view text) {
    if (entry.count != text.size() + 1 || text.size() >= 4 || entry.value + 4 > bytes_.size()) return;
    std::copy(text.begin(), text.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(entry.value));
  }

 private:
  std::uint16_t U16(std::size_t at) const { return static_cast<std::uint16_t>(Number(at, 2)); }
  int ShiftOf(std::size_t i, std::size_t width) const {
    return static_cast<int>(8 * (big_ ? width - 1 - i : i));
  }
  std::uint32_t Number(std::size_t at, std::size_t width) const {
    if (at > bytes_.size() || bytes_.size() - at < width) return 0;
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < width; ++i) number |= std::uint32_t{bytes_[at + i]} << ShiftOf(i, width);
    return number;
  }
  void Put(std::size_t at, std::size_t width, std::uint32_t number) {
    if (at > bytes_.size() || bytes_.size() - at < width) return;
    for (std::size_t i = 0; i < width; ++i) {
      bytes_[at + i] = static_cast<std::uint8_t>(number >> ShiftOf(i, width));
    }
  }

  std::span<std::uint8_t> bytes_;
  bool big_ = false;
};

}  // namespace

ExifMark ReadExifOrientation(Bytes tiff) {
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

void ChangeExif(std::span<std::uint8_t> tiff, const ExifChanges& changes) {
  constexpr std::uint16_t widthTag = 0x0100, heightTag = 0x0101, cameraTag = 0x8769;
  constexpr std::uint16_t pixelWidthTag = 0xA002, pixelHeightTag = 0xA003;
  constexpr std::uint16_t colourSpaceTag = 0xA001, interoperabilityTag = 0xA005, indexTag = 0x0001;
  constexpr std::uint32_t srgb = 1;
  ExifBlock block(tiff);
  if (!block.IsOne()) return;
  std::size_t camera = 0, interoperability = 0;
  const std::size_t next = block.Visit(block.U32(4), [&](const ExifBlock::Entry& entry) {
    if (entry.tag == cameraTag) camera = block.U32(entry.value);
    if (!changes.size) return;
    if (entry.tag == orientationTag) block.Write(entry, static_cast<std::uint32_t>(Orientation::Upright));
    if (entry.tag == widthTag) block.Write(entry, static_cast<std::uint32_t>(changes.size->width));
    if (entry.tag == heightTag) block.Write(entry, static_cast<std::uint32_t>(changes.size->height));
  });
  // The small picture is told of in the next directory.
  if (changes.dropsThumbnail) block.Put32(next, 0);
  if (camera == 0) return;
  block.Visit(camera, [&](const ExifBlock::Entry& entry) {
    if (entry.tag == interoperabilityTag) interoperability = block.U32(entry.value);
    if (entry.tag == colourSpaceTag && changes.coloursAreSrgb) block.Write(entry, srgb);
    if (!changes.size) return;
    if (entry.tag == pixelWidthTag) block.Write(entry, static_cast<std::uint32_t>(changes.size->width));
    if (entry.tag == pixelHeightTag) block.Write(entry, static_cast<std::uint32_t>(changes.size->height));
  });
  if (interoperability == 0 || !changes.coloursAreSrgb) return;
  block.Visit(interoperability, [&](const ExifBlock::Entry& entry) {
    if (entry.tag == indexTag) block.WriteText(entry, "R98");
  });
}

}  // namespace lumidex
