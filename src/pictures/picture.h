#pragma once
// The picture handle that everything passes around: shared, immutable, its size known at once, its
// pixels decoded when they are first asked for.

#include <cstdint>
#include <memory>
#include <stop_token>
#include <string_view>
#include <vector>

#include "pictures/size.h"

namespace lumidex {

class Decoder;
class PictureData;
class Pixels;
struct JpegMetadata;
struct OpenOptions;

enum class PictureType : std::int16_t { None = 0, Bitmap = 1, Metafile = 2, Icon = 3, EnhancedMetafile = 4 };

class Picture {
 public:
  Picture() = default;  // the empty picture

  // Opens a file's bytes; raises InvalidPicture when they are no picture.
  static Picture Open(const PictureData& data);
  static Picture Open(const PictureData& data, const OpenOptions& options);
  static Picture FromPixels(Pixels pixels, int bitsPerPixel);
  static Picture FromDecoder(std::unique_ptr<Decoder> decoder);

  bool IsEmpty() const { return state_ == nullptr; }
  PictureType Type() const;
  Size GetSize() const;
  int BitsPerPixel() const;
  std::string_view Format() const;
  bool IsScalable() const;
  // Decoding it for a smaller size costs less memory.
  bool IsReducible() const;

  // All pixels; decoded once and kept as long as the picture lives. Empty for the empty picture.
  Pixels FullPixels() const;
  // All pixels of a picture that is given up: not shared, when nobody else holds it and it has no file behind
  // it, so that they can be changed in place.
  static Pixels Release(Picture picture);
  // Pixels at no less than `wanted` on both sides (or full size when that is smaller). The last answer is
  // kept. Empty when `stop` was asked for before they were there; then nothing is kept.
  Pixels PixelsFor(Size wanted, const std::stop_token& stop = {}) const;
  // Pixels for showing it at that very size: each side as long as wanted, or as the picture where that is
  // shorter, but a drawing's. They are kept instead of larger ones that were only made for them. `stop` as
  // above.
  Pixels PixelsToShow(Size wanted, const std::stop_token& stop = {}) const;

  // What the two above would answer without any work; empty when there is some, or somebody is at it.
  Pixels ReadyPixels() const;
  Pixels ReadyToShow(Size wanted) const;
  // Keeps nothing for showing it again, where that can be made anew.
  void LetGoOfShown() const;

  // What its file says beside the pixels, read anew each time; see Decoder::Metadata.
  JpegMetadata Metadata() const;
  // A drawing's own file, read anew each time; empty for every other picture.
  std::vector<std::uint8_t> Drawing() const;
  // Bytes of the pixels that are kept. Never waits for a decode that is running elsewhere.
  std::size_t HeldBytes() const;

  // True while somebody waits for pixels that another thread is making.
  bool IsAwaited() const;

  // The same picture object (not the same content).
  bool operator==(const Picture& other) const { return state_ == other.state_; }

 private:
  struct State;
  explicit Picture(std::shared_ptr<State> state) : state_(std::move(state)) {}
  std::shared_ptr<State> state_;
};

}  // namespace lumidex
