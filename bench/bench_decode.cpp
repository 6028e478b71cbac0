// bench_decode FILE.jpg...: full decode of each picture against the bare library, which reads the whole
// file into memory and decodes it to 32-bit pixels in one fresh block, as a program would that does nothing
// else. Both in turn in one process; prints the medians and their ratio, which is to be at most 1.05.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <jpeglib.h>  // after <cstdio>, which it needs

#include "platform/posix/posix_file_system.h"
#include "ports/open_picture.h"

namespace {

using namespace lumidex;

double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> times) {
  std::ranges::sort(times);
  return times[times.size() / 2];
}

void DecodeBare(const std::string& path) {
  std::ifstream stream(path, std::ios::binary | std::ios::ate);
  std::vector<unsigned char> file(static_cast<std::size_t>(stream.tellg()));
  stream.seekg(0);
  stream.read(reinterpret_cast<char*>(file.data()), static_cast<std::streamsize>(file.size()));
  jpeg_decompress_struct info;
  jpeg_error_mgr errors;
  info.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&info);
  jpeg_mem_src(&info, file.data(), static_cast<unsigned long>(file.size()));
  jpeg_read_header(&info, TRUE);
  info.out_color_space = JCS_EXT_BGRX;
  jpeg_start_decompress(&info);
  const std::size_t stride = std::size_t{4} * info.output_width;
  const std::unique_ptr<JSAMPLE[]> pixels(new JSAMPLE[stride * info.output_height]);
  while (info.output_scanline < info.output_height) {
    JSAMPROW row = pixels.get() + stride * info.output_scanline;
    jpeg_read_scanlines(&info, &row, 1);
  }
  jpeg_finish_decompress(&info);
  jpeg_destroy_decompress(&info);
}

}  // namespace

int main(int argc, char** argv) {
  const PosixFileSystem files;
  constexpr int rounds = 15;
  for (int i = 1; i < argc; ++i) {
    const std::string path = argv[i];
    std::vector<double> bare, ours;
    for (int round = 0; round <= rounds; ++round) {
      const double first = Milliseconds([&] { DecodeBare(path); });
      const double second = Milliseconds([&] { OpenPicture(files, path).FullPixels(); });
      if (round == 0) continue;  // warms the caches
      bare.push_back(first);
      ours.push_back(second);
    }
    std::printf("%s: library %.1f ms, program %.1f ms, ratio %.3f (at most 1.05)\n", path.c_str(),
                Median(bare), Median(ours), Median(ours) / Median(bare));
  }
}
