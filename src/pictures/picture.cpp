#include "pictures/picture.h"

#include <atomic>
#include <mutex>
#include <utility>

#include "base/out_of_memory.h"

namespace lumidex {

// The mutex guards the cached pixels: a read-ahead thread may decode while the program asks.
struct Picture::State {
  std::unique_ptr<Decoder> decoder;  // none when made from pixels
  PictureFacts facts;
  std::mutex mutex;
  Pixels pixels;                      // the last answer
  std::atomic<std::size_t> bytes{0};  // of the pixels; read without the mutex, which a decode holds long

  void Keep(Pixels answer) {
    pixels = std::move(answer);
    bytes = pixels.ByteCount();
  }
};

namespace {

bool Covers(Size have, Size wanted, Size full) {
  if (have == full) return true;
  if (wanted.width <= 0 || wanted.height <= 0) return false;
  return have.width >= wanted.width && have.height >= wanted.height;
}

}  // namespace

Picture Picture::FromDecoder(std::unique_ptr<Decoder> decoder) {
  auto state = std::make_shared<State>();
  state->facts = decoder->Facts();
  state->decoder = std::move(decoder);
  return Picture(std::move(state));
}

Picture Picture::Open(const PictureData& data, const OpenOptions& options) {
  return TellingOutOfMemory([&] { return FromDecoder(OpenDecoder(data, options)); });
}

Picture Picture::FromPixels(Pixels pixels, int bitsPerPixel) {
  auto state = std::make_shared<State>();
  state->facts.size = pixels.GetSize();
  state->facts.bitsPerPixel = bitsPerPixel;
  state->Keep(std::move(pixels));
  return Picture(std::move(state));
}

PictureType Picture::Type() const {
  if (!state_) return PictureType::None;
  return state_->facts.scalable ? PictureType::Metafile : PictureType::Bitmap;
}

Size Picture::GetSize() const {
  return state_ ? state_->facts.size : Size{};
}
int Picture::BitsPerPixel() const {
  return state_ ? state_->facts.bitsPerPixel : 0;
}
std::string_view Picture::Format() const {
  return state_ ? state_->facts.format : std::string_view{};
}
bool Picture::IsScalable() const {
  return state_ && state_->facts.scalable;
}

bool Picture::IsReducible() const {
  return state_ && state_->facts.reducible;
}

std::size_t Picture::HeldBytes() const {
  return state_ ? state_->bytes.load() : 0;
}

Pixels Picture::FullPixels() const {
  return PixelsFor({});
}

Pixels Picture::Release(Picture picture) {
  const std::shared_ptr<State> state = std::move(picture.state_);
  if (state && !state->decoder && state.use_count() == 1) return std::move(state->pixels);
  return Picture(state).FullPixels();
}

Pixels Picture::PixelsFor(Size wanted) const {
  if (!state_) return {};
  const std::scoped_lock lock(state_->mutex);
  const bool exact = state_->facts.scalable && wanted.width > 0 && wanted.height > 0;
  const Size have = state_->pixels.GetSize();
  const bool good = exact ? have == wanted : Covers(have, wanted, state_->facts.size);
  if (!good && state_->decoder)
    state_->Keep(TellingOutOfMemory([&] { return state_->decoder->Decode({wanted}); }));
  return state_->pixels;
}

bool Picture::HasPixelsFor(Size wanted) const {
  if (!state_) return true;
  const std::scoped_lock lock(state_->mutex);
  if (state_->facts.scalable && wanted.width > 0 && wanted.height > 0)
    return state_->pixels.GetSize() == wanted;
  return Covers(state_->pixels.GetSize(), wanted, state_->facts.size);
}

}  // namespace lumidex
