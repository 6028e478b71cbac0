// bench_pixels [FOLDER]: the pixel operations and the writers on 24 megapixels, each as a ratio to what it is
// bounded by, with the limit that the ratio must keep beside it. Ratios are those of medians; an operation
// and its bound are measured in turn. Writers write to FOLDER, by default /dev/shm. Cjpeg must be installed.

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <vector>

#include "pictures/bmp_writer.h"
#include "pictures/filters.h"
#include "pictures/jpeg_writer.h"
#include "pictures/orientation.h"
#include "platform/posix/posix_file_system.h"
#include "timing.h"

namespace {

using namespace lumidex;

constexpr Size size{6000, 4000};
constexpr int rounds = 11;

void Compare(const char* what, double limit, const std::function<void()>& bound,
             const std::function<void()>& work) {
  std::vector<double> boundTimes, workTimes;
  for (int round = -1; round < rounds; ++round) {
    const double boundTime = Milliseconds(bound), workTime = Milliseconds(work);
    if (round < 0) continue;  // warms up
    boundTimes.push_back(boundTime);
    workTimes.push_back(workTime);
  }
  const double ratio = Median(workTimes) / Median(boundTimes);
  std::printf("%-28s bound %7.1f ms  program %7.1f ms  ratio %5.2f  limit %4.1f  %s\n", what,
              Median(boundTimes), Median(workTimes), ratio, limit, ratio <= limit ? "met" : "MISSED");
}

// A photograph's mixture: smooth slopes with noise on them.
Pixels MakePicture() {
  Pixels pixels = Pixels::MakeUnfilled(size, PixelFormat::Rgb);
  std::uint32_t state = 1;
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      state = state * 1664525 + 1013904223;
      const auto channel = [&](int slope, int shift) {
        return (static_cast<std::uint32_t>(slope) + (state >> 28)) % 256 << shift;
      };
      pixels.Row(y)[static_cast<std::size_t>(x)] =
          0xFF000000U | channel(x / 24, 16) | channel(y / 16, 8) | channel((x + y) / 40, 0);
    }
  }
  return pixels;
}

void WritePpm(const Pixels& pixels, const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) std::abort();
  std::fprintf(file, "P6\n%d %d\n255\n", pixels.Width(), pixels.Height());
  std::vector<unsigned char> row;
  for (int y = 0; y < pixels.Height(); ++y) {
    row.clear();
    for (const std::uint32_t word : pixels.Row(y))
      for (const int shift : {16, 8, 0}) row.push_back(static_cast<unsigned char>(word >> shift));
    std::fwrite(row.data(), 1, row.size(), file);
  }
  std::fclose(file);
}

void Run(const std::string& command) {
  if (std::system(command.c_str()) != 0) std::abort();
}

void MeasureMemory(const Pixels& picture) {
  // The bound makes its copy where the operations make theirs.
  const auto copy = [&] {
    Pixels into = Pixels::MakeUnfilled(size, picture.Format());
    std::memcpy(into.Data(), picture.Data(), picture.ByteCount());
  };
  const auto turn = [&](Orientation how) { return [&picture, how] { Turned(picture, how); }; };
  Compare("quarter turn right", 2.2, copy, turn(Orientation::QuarterRight));
  Compare("quarter turn left", 2.2, copy, turn(Orientation::QuarterLeft));
  Compare("mirror left to right", 1.2, copy, turn(Orientation::MirrorLeftRight));
  Compare("mirror top to bottom", 1.2, copy, turn(Orientation::MirrorTopBottom));
  const auto filter = [&](const char* what, const std::function<void(Pixels&)>& change) {
    Compare(what, 2.0, copy, [&] {
      Pixels changed = picture;
      change(changed);
    });
  };
  filter("brightness", [](Pixels& pixels) { Brighten(pixels, 20); });
  filter("contrast", [](Pixels& pixels) { ChangeContrast(pixels, 20); });
  filter("colour balance", [](Pixels& pixels) { BalanceColours(pixels, 20, -10, 5); });
}

void MeasureFiles(const Pixels& picture, const std::string& folder) {
  PosixFileSystem files;
  const std::string ours = folder + "/bench_pixels.ours", theirs = folder + "/bench_pixels.theirs";
  const std::string ppm = folder + "/bench_pixels.ppm";
  files.Write(ours, [&](ByteSink& sink) { WriteBmp(picture, sink); });
  const std::string bytes = files.ReadAll(ours);
  Compare(
      "BMP against the same bytes", 1.5, [&] { files.WriteAll(theirs, bytes); },
      [&] { files.Write(ours, [&](ByteSink& sink) { WriteBmp(picture, sink); }); });
  Compare(
      "BMP against cp", 1.5, [&] { Run("cp " + ours + " " + theirs); },
      [&] { files.Write(ours + "2", [&](ByteSink& sink) { WriteBmp(picture, sink); }); });
  WritePpm(picture, ppm);
  for (const bool optimize : {false, true}) {
    std::string command = "cjpeg -quality 90 ";
    if (optimize) command += "-optimize ";
    command.append("-outfile ").append(theirs).append(" ").append(ppm);
    Compare(
        optimize ? "JPEG, optimized" : "JPEG", 1.1, [&] { Run(command); },
        [&] {
          files.Write(
              ours, [&](ByteSink& sink) { WriteJpeg(picture, {.quality = 90, .optimize = optimize}, sink); });
        });
    if (files.ReadAll(ours) != files.ReadAll(theirs)) std::puts("The two JPEG files differ");
  }
  for (const std::string& path : {ours, ours + "2", theirs, ppm}) std::remove(path.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  const Pixels picture = MakePicture();
  std::puts("Into memory fresh from the system, as the program has it:");
  MeasureMemory(picture);
  // The allocator keeps what is given back, so nothing but the operations themselves is left.
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  std::puts("Into memory that was used before:");
  MeasureMemory(picture);
  std::puts("Files:");
  MeasureFiles(picture, argc > 1 ? argv[1] : "/dev/shm");
}
