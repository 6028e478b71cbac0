// The table of all picture formats: adding a format is one line here.

#include <algorithm>
#include <array>

#include "base/run_time_error.h"
#include "pictures/codec.h"
#include "pictures/codecs/bmp.h"

namespace lumidex {
namespace {

// Formats with a signature come first; those without one, which go by their extension, stand last.
constexpr std::string_view bmpEndings[] = {".bmp", ".dib", ".rle"};

constexpr auto allCodecs = std::to_array<Codec>({
    {"BMP", bmpEndings, MatchBmp, OpenBmp},
});

bool HasExtension(const Codec& codec, const std::string& extension) {
  return std::ranges::find(codec.extensions, extension) != codec.extensions.end();
}

}  // namespace

std::span<const Codec> Codecs() {
  return allCodecs;
}

std::unique_ptr<Decoder> OpenDecoder(const PictureData& data, const OpenOptions& options) {
  if (data.Head().empty()) throw RunTimeError(ErrorNumber::InvalidPicture, "The file is empty");
  const Codec* candidate = nullptr;
  for (const Codec& codec : Codecs()) {
    const Match match = codec.match(data);
    if (match == Match::Sure) return codec.open(data, options);
    if (match == Match::Maybe && !candidate && HasExtension(codec, data.Extension())) candidate = &codec;
  }
  if (candidate) return candidate->open(data, options);
  throw RunTimeError(ErrorNumber::InvalidPicture, "No picture format is recognised");
}

}  // namespace lumidex
