#pragma once
// How a file format plugs in: one `Codec` row in the table of formats.cpp, one decoder behind it.
//
// Opening reads the header and nothing more, and is the only step that may fail. Decoding after a good
// header always gives pixels: what is damaged or missing stays blank.

#include <memory>
#include <span>
#include <stop_token>
#include <string_view>

#include "pictures/decoder_options.h"
#include "pictures/jpeg_metadata.h"
#include "pictures/picture_data.h"
#include "pictures/pixels.h"

namespace lumidex {

struct PictureFacts {
  Size size;                // pixels, after turning by the file's own orientation mark
  int bitsPerPixel = 24;    // 1, 2, 4, 8, 16, 24 or 32: the stored depth raised to what a bitmap can hold
  std::string_view format;  // "JPEG", "PCX": for people
  bool scalable = false;    // a drawing: any size asked for is drawn sharp
  bool reducible = false;   // decoding for a smaller size costs less memory
  bool once = false;        // all there is to it comes with the first decode
};

struct OpenOptions {
  PictureLimits limits;
  // Leaves out turning by the orientation mark and colour conversion, to compare with other decoders.
  bool asStored = false;
  DecoderOptions decoder = {};
};

// What to make of the size that a picture is wanted at.
enum class Fit {
  Exact,   // it is the size at which the picture will be shown
  AtLeast  // it will be shown no larger, at a size not known yet: the answer must be good for making smaller
};

struct DecodeRequest {
  // 0 by 0 asks for full size. A decoder may answer with any size that is at least this on both sides, or
  // with its full size; drawings answer with exactly this size.
  Size wanted;
  Fit fit = Fit::Exact;
  // Once it is asked for, nobody wants the answer: a decoder may end with any, and does where its file ends.
  std::stop_token stop = {};
};

class Decoder {
 public:
  virtual ~Decoder() = default;
  const PictureFacts& Facts() const { return facts_; }
  // Never raises anything but OutOfMemory. May be called again and from another thread, one at a time.
  virtual Pixels Decode(const DecodeRequest& request) const = 0;
  // What the file says beside its pixels, but for its orientation mark true of the pixels as this decoder
  // gives them. Only JPEG files say anything that is kept.
  virtual JpegMetadata Metadata() const { return {}; }
  // The file as it stands, of formats that are drawings; empty for all others.
  virtual std::vector<std::uint8_t> Drawing() const { return {}; }

 protected:
  PictureFacts facts_;
};

enum class Match { No, Maybe, Sure };

struct Codec {
  std::string_view name;
  // Endings with their point, in lower case; they decide only where `match` says Maybe.
  std::span<const std::string_view> extensions;
  // Looks at the head (and the file's length) only.
  Match (*match)(const PictureData& data);
  // Raises InvalidPicture with a short text when the header is no good or beyond the limits.
  std::unique_ptr<Decoder> (*open)(const PictureData& data, const OpenOptions& options);
};

// All formats, in the order in which they are asked.
std::span<const Codec> Codecs();

// Finds the format by content, then by extension, and opens it. Raises InvalidPicture when nobody can.
std::unique_ptr<Decoder> OpenDecoder(const PictureData& data, const OpenOptions& options = {});

}  // namespace lumidex
