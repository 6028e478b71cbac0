#include "pictures/file_decoder.h"

namespace lumidex {

FileDecoder::FileDecoder(const PictureData& data, const OpenOptions& options, std::string_view format)
    : data_(data), options_(options) {
  facts_.format = format;
}

FileDecoder::FileDecoder(const PictureData& data, const OpenOptions& options, Size size, int storedBits,
                         std::string_view format)
    : FileDecoder(data, options, format) {
  SetShape(size, storedBits);
}

void FileDecoder::SetShape(Size size, int storedBits, int channels) {
  CheckSize(size, Limits(), data_.Size());
  facts_.size = size;
  facts_.bitsPerPixel = BitmapDepth(storedBits, channels);
}

Size FileDecoder::Checked(std::int64_t width, std::int64_t height) const {
  return CheckedSize(width, height, Limits(), data_.Size());
}

}  // namespace lumidex
