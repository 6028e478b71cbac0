#include "decoder_target.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "base/run_time_error.h"
#include "pictures/codec.h"

namespace lumidex {
namespace {

const Codec& FindCodec(std::string_view name) {
  const auto codecs = Codecs();
  const auto found = std::ranges::find(codecs, name, &Codec::name);
  if (found == codecs.end()) {
    std::fputs("no codec of this name\n", stderr);
    std::abort();
  }
  return *found;
}

std::uint32_t Sum(const Pixels& pixels) {
  std::uint32_t sum = 0;
  for (int y = 0; y < pixels.Height(); ++y) {
    for (const std::uint32_t word : pixels.Row(y)) sum += word;
  }
  return sum;
}

}  // namespace

int FuzzDecoder(std::string_view codecName, const std::uint8_t* data, std::size_t size) {
  const Codec& codec = FindCodec(codecName);
  const PictureData picture(std::make_shared<MemorySource>(std::vector<std::uint8_t>(data, data + size)),
                            std::string(codec.extensions.front()));
  OpenOptions options;
  options.limits.bytes = std::int64_t{16} << 20;  // large pictures slow the search and find nothing new
  try {
    if (picture.Head().empty() || codec.match(picture) == Match::No) return 0;
    const auto decoder = codec.open(picture, options);
    const Size full = decoder->Facts().size;
    const Size small{std::max(1, full.width / 3), std::max(1, full.height / 3)};
    volatile std::uint32_t kept = Sum(decoder->Decode({}));
    kept = kept + Sum(decoder->Decode({small}));
  } catch (const RunTimeError&) {
    return 0;  // a refusal is a good answer
  }
  return 0;
}

}  // namespace lumidex
