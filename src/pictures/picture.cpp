#include "pictures/picture.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <utility>

#include "base/out_of_memory.h"
#include "pictures/codec.h"
#include "pictures/picture_data.h"
#include "pictures/scaling.h"

namespace lumidex {

// The mutex guards what is kept: others decode while the program asks.
struct Picture::State {
  std::unique_ptr<Decoder> decoder;  // none when made from pixels
  std::shared_ptr<std::atomic<bool>> stopMark = std::make_shared<std::atomic<bool>>(false);
  PictureFacts facts;
  std::mutex mutex;
  std::atomic<int> waiting{0};        // for the mutex while it is held for a decode
  Pixels pixels;                      // the last answer
  bool fullWanted = false;            // somebody has asked for all pixels, and may do so again
  Pixels shown;                       // scaled for showing
  std::atomic<std::size_t> bytes{0};  // of both; read without the mutex, which a decode holds long

  std::unique_lock<std::mutex> Lock();
  bool IsDrawnAt(Size wanted) const { return facts.scalable && wanted.width > 0 && wanted.height > 0; }
  bool Covers(Size wanted) const;
  Size SizeToShow(Size wanted) const;
  Pixels Decode(const DecodeRequest& request) const;
  void Keep(Pixels answer);
  void KeepShown(Pixels answer);
  void Count() { bytes = pixels.ByteCount() + (shown.Data() == pixels.Data() ? 0 : shown.ByteCount()); }
};

std::unique_lock<std::mutex> Picture::State::Lock() {
  std::unique_lock lock(mutex, std::try_to_lock);
  if (!lock) {
    ++waiting;
    lock.lock();
    --waiting;
  }
  return lock;
}

bool Picture::State::Covers(Size wanted) const {
  const Size have = pixels.GetSize();
  if (IsDrawnAt(wanted)) return have == wanted;
  if (have == facts.size) return true;
  if (wanted.width <= 0 || wanted.height <= 0) return false;
  return have.width >= wanted.width && have.height >= wanted.height;
}

Size Picture::State::SizeToShow(Size wanted) const {
  if (IsDrawnAt(wanted)) return wanted;
  return {std::min(wanted.width, facts.size.width), std::min(wanted.height, facts.size.height)};
}

Pixels Picture::State::Decode(const DecodeRequest& request) const {
  if (request.stop.stop_requested()) return {};
  *stopMark = false;
  const std::stop_callback endTheFile(request.stop, [this] { *stopMark = true; });
  Pixels answer = TellingOutOfMemory([&] { return decoder->Decode(request); });
  // What came of a file that was ended must not be taken for the picture.
  return request.stop.stop_requested() ? Pixels() : answer;
}

void Picture::State::Keep(Pixels answer) {
  pixels = std::move(answer);
  if (facts.once && pixels.GetSize() == facts.size) decoder.reset();
  Count();
}

void Picture::State::KeepShown(Pixels answer) {
  shown = std::move(answer);
  if (!facts.scalable && shown.GetSize() == facts.size) {
    pixels = shown;
  } else if (decoder && !fullWanted) {
    pixels = {};
  }
  Count();
}

Picture Picture::FromDecoder(std::unique_ptr<Decoder> decoder) {
  auto state = std::make_shared<State>();
  state->facts = decoder->Facts();
  state->decoder = std::move(decoder);
  return Picture(std::move(state));
}

Picture Picture::Open(const PictureData& data) {
  return Open(data, {});
}

Picture Picture::Open(const PictureData& data, const OpenOptions& options) {
  Picture picture = TellingOutOfMemory([&] { return FromDecoder(OpenDecoder(data, options)); });
  picture.state_->stopMark = data.StopMark();
  return picture;
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

bool Picture::IsAwaited() const {
  return state_ && state_->waiting > 0;
}

Pixels Picture::FullPixels() const {
  return PixelsFor({});
}

Pixels Picture::Release(Picture picture) {
  const std::shared_ptr<State> state = std::move(picture.state_);
  if (state && !state->decoder && state.use_count() == 1) return std::move(state->pixels);
  return Picture(state).FullPixels();
}

Pixels Picture::PixelsFor(Size wanted, const std::stop_token& stop) const {
  if (!state_) return {};
  const auto lock = state_->Lock();
  if (wanted.width <= 0 || wanted.height <= 0) state_->fullWanted = true;
  if (!state_->Covers(wanted) && state_->decoder) {
    Pixels answer = state_->Decode({wanted, Fit::AtLeast, stop});
    if (answer.IsEmpty()) return {};
    state_->Keep(std::move(answer));
  }
  return state_->pixels;
}

JpegMetadata Picture::Metadata() const {
  if (!state_ || !state_->decoder) return {};
  return TellingOutOfMemory([&] { return state_->decoder->Metadata(); });
}

std::vector<std::uint8_t> Picture::Drawing() const {
  if (!state_) return {};
  const auto lock = state_->Lock();
  if (!state_->decoder) return {};
  // A decode that was stopped has left the file ended.
  *state_->stopMark = false;
  return TellingOutOfMemory([&] { return state_->decoder->Drawing(); });
}

Pixels Picture::PixelsToShow(Size wanted, const std::stop_token& stop) const {
  if (!state_ || wanted.width <= 0 || wanted.height <= 0) return {};
  const auto lock = state_->Lock();
  const Size size = state_->SizeToShow(wanted);
  const Size have = state_->shown.GetSize();
  if (have == size) return state_->shown;
  Pixels pixels;
  if (state_->Covers(wanted)) {
    pixels = state_->pixels;
  } else if (!state_->facts.scalable && have.width >= 2 * size.width && have.height >= 2 * size.height) {
    // Averages of averages: below half the size nobody can tell.
    pixels = state_->shown;
  } else if (state_->decoder) {
    pixels = state_->Decode({size, Fit::Exact, stop});
  }
  if (pixels.IsEmpty() || stop.stop_requested()) return {};
  if (state_->facts.once) state_->Keep(pixels);
  if (!(pixels.GetSize() == size)) pixels = TellingOutOfMemory([&] { return Scale(pixels, size); });
  // What it was made from is of more use then: another size is wanted by now.
  if (stop.stop_requested()) return {};
  state_->KeepShown(pixels);
  return pixels;
}

Pixels Picture::ReadyPixels() const {
  if (!state_) return {};
  const std::unique_lock lock(state_->mutex, std::try_to_lock);
  return lock && state_->Covers({}) ? state_->pixels : Pixels();
}

Pixels Picture::ReadyToShow(Size wanted) const {
  if (!state_) return {};
  const std::unique_lock lock(state_->mutex, std::try_to_lock);
  if (!lock) return {};
  const Size size = state_->SizeToShow(wanted);
  if (state_->shown.GetSize() == size) return state_->shown;
  return state_->pixels.GetSize() == size ? state_->pixels : Pixels();
}

void Picture::LetGoOfShown() const {
  if (!state_) return;
  const auto lock = state_->Lock();
  if (!state_->decoder || state_->facts.once || state_->fullWanted) return;
  state_->shown = state_->pixels = {};
  state_->Count();
}

}  // namespace lumidex
