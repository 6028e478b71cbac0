#pragma once
// How a decoder works where its format leaves a choice. Only JPEG leaves any so far, and there they mean what
// they mean to libjpeg.

namespace lumidex {

enum class DctMethod { SlowInteger, FastInteger, FloatingPoint };
enum class DitherMode { None, Ordered, FloydSteinberg };

struct DecoderOptions {
  bool fancyUpsampling = true;
  DctMethod dct = DctMethod::SlowInteger;
  // Brings the picture down to 256 colours, spread by the dithering: with two passes those that suit the
  // picture best, with one a fixed set. Greys and inks are left alone.
  bool reduceColours = false;
  bool twoPassQuantize = true;
  DitherMode dithering = DitherMode::None;
  bool operator==(const DecoderOptions&) const = default;
};

}  // namespace lumidex
