#include "pictures/support/byte_writer.h"

namespace lumidex {

ByteWriter& ByteWriter::U8(unsigned value) {
  bytes_.push_back(static_cast<std::uint8_t>(value));
  return *this;
}
ByteWriter& ByteWriter::U16Le(unsigned value) {
  return U8(value).U8(value >> 8);
}
ByteWriter& ByteWriter::U32Le(std::uint32_t value) {
  return U16Le(value).U16Le(value >> 16);
}
ByteWriter& ByteWriter::U16Be(unsigned value) {
  return U8(value >> 8).U8(value);
}
ByteWriter& ByteWriter::U32Be(std::uint32_t value) {
  return U16Be(value >> 16).U16Be(value);
}
ByteWriter& ByteWriter::Text(std::string_view text) {
  bytes_.insert(bytes_.end(), text.begin(), text.end());
  return *this;
}
ByteWriter& ByteWriter::Add(std::initializer_list<unsigned> values) {
  for (const unsigned value : values) U8(value);
  return *this;
}
ByteWriter& ByteWriter::Add(const std::vector<std::uint8_t>& bytes) {
  bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
  return *this;
}
ByteWriter& ByteWriter::Fill(std::size_t count, unsigned value) {
  bytes_.insert(bytes_.end(), count, static_cast<std::uint8_t>(value));
  return *this;
}

PictureData DataOf(std::vector<std::uint8_t> bytes, std::string extension) {
  return {std::make_shared<MemorySource>(std::move(bytes)), std::move(extension)};
}

std::unique_ptr<Decoder> OpenBytes(const std::vector<std::uint8_t>& bytes, const std::string& extension,
                                   const OpenOptions& options) {
  return OpenDecoder(DataOf(bytes, extension), options);
}

Pixels DecodeBytes(const std::vector<std::uint8_t>& bytes, const std::string& extension,
                   const OpenOptions& options) {
  return OpenBytes(bytes, extension, options)->Decode({});
}

std::vector<std::uint32_t> WordsOf(const Pixels& pixels) {
  return {pixels.Data(), pixels.Data() + pixels.ByteCount() / 4};
}

std::vector<std::uint32_t> RowOf(const Pixels& pixels, int y) {
  const auto row = pixels.Row(y);
  return {row.begin(), row.end()};
}

}  // namespace lumidex
