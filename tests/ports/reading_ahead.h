#pragma once
// A disk with four pictures, and files of it that are read ahead by workers that the test drives by hand.

#include <gmock/gmock.h>

#include <utility>

#include "gallery/encoders/bmp_encoder.h"
#include "platform/headless/headless_platform.h"
#include "ports/decoding.h"

namespace lumidex {

inline Size Whole(Size full) {
  return full;
}

class DecodingAhead : public testing::Test {
 protected:
  static constexpr std::size_t pictureBytes = 100 * 100 * 4;

  HeadlessPlatform platform{'/'};
  // Room for three of the pictures.
  DecodingService ahead{platform.files, 3 * pictureBytes};
  DecodingService::Client client{ahead};

  void SetUp() override {
    for (const char* path : {"/a.bmp", "/b.bmp", "/c.bmp", "/d.bmp"}) AddPicture(path);
  }
  void AddPicture(const std::string& path, Size size = {100, 100}) {
    const auto bytes = EncodeBmp(Pixels::Make(size, PixelFormat::Rgb, 0xFF123456));
    platform.files.AddFile(path, {bytes.begin(), bytes.end()});
  }
  std::uint64_t Stamp(const std::string& path) { return platform.files.Look(path)->stamp; }
  Picture Find(const std::string& path) { return ahead.Find(path, Stamp(path), {}); }
  OpenedPicture Opened(const std::string& path) {
    return {path, Stamp(path), {}, OpenPicture(platform.files, path)};
  }
  void Want(std::vector<std::string> paths, const OpenedPicture& current = {},
            DecodingService::ShownSize shown = Whole) {
    client.Want(DecodingPriority::Neighbours, {std::move(paths), DecodingExtent::Shown, std::move(shown)},
                current);
  }
  int RunAll() {
    int runs = 0;
    while (ahead.RunNext()) ++runs;
    return runs;
  }
};

}  // namespace lumidex
