#include "gallery/encoders/gif_encoder.h"

#include <gif_lib.h>

#include <memory>
#include <stdexcept>

namespace lumidex {
namespace {

int Append(GifFileType* gif, const GifByteType* data, int count) {
  auto& bytes = *static_cast<std::vector<std::uint8_t>*>(gif->UserData);
  bytes.insert(bytes.end(), data, data + count);
  return count;
}

void Check(int status) {
  if (status == GIF_ERROR) throw std::runtime_error("the GIF library refused the picture");
}

}  // namespace

std::vector<std::uint8_t> EncodeGif(const IndexedPicture& picture) {
  std::vector<std::uint8_t> bytes;
  int bits = 1;
  while ((std::size_t{1} << bits) < picture.palette.size()) ++bits;
  const std::unique_ptr<ColorMapObject, void (*)(ColorMapObject*)> colours(
      GifMakeMapObject(1 << bits, nullptr), GifFreeMapObject);
  for (std::size_t i = 0; i < picture.palette.size(); ++i) {
    const std::uint32_t word = picture.palette[i];
    colours->Colors[i] = {static_cast<GifByteType>(word >> 16), static_cast<GifByteType>(word >> 8),
                          static_cast<GifByteType>(word)};
  }
  int error = 0;
  GifFileType* gif = EGifOpen(&bytes, Append, &error);
  if (gif == nullptr) throw std::runtime_error("no memory for a GIF");
  const Size size = picture.size;
  Check(EGifPutScreenDesc(gif, size.width, size.height, bits, 0, colours.get()));
  Check(EGifPutImageDesc(gif, 0, 0, size.width, size.height, false, nullptr));
  std::vector<std::uint8_t> row;
  for (int y = 0; y < size.height; ++y) {
    row.assign(picture.Row(y).begin(), picture.Row(y).end());
    Check(EGifPutLine(gif, row.data(), size.width));
  }
  Check(EGifCloseFile(gif, &error));
  return bytes;
}

}  // namespace lumidex
