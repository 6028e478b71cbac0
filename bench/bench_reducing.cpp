// bench_reducing [FILE...]: how near a picture made smaller comes to the average of the area under each of
// its pixels, reckoned apart in full precision: in decibels for the program, a bicubic reducer and Lanczos'
// with three lobes, both widened by the ratio as good reducers do. Without a file: lines of one and two
// pixels and stairs, which show what leaves out pixels.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <numbers>
#include <vector>

#include "pictures/pixels.h"
#include "pictures/scaling.h"
#include "pictures/support/thin_lines.h"
#include "platform/posix/posix_file_system.h"
#include "ports/open_picture.h"

namespace {

using namespace lumidex;

// A channel of each pixel, row by row.
struct Plane {
  int width = 0, height = 0;
  std::vector<double> values;
  double At(int x, int y) const {
    return values[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
};

Plane Green(const Pixels& pixels) {
  Plane plane{pixels.Width(), pixels.Height(), {}};
  for (int y = 0; y < pixels.Height(); ++y)
    for (const std::uint32_t word : pixels.Row(y)) plane.values.push_back(word >> 8 & 255);
  return plane;
}

// What a pixel `distance` away from the middle counts, in pixels of the smaller picture.
using Kernel = std::function<double(double distance)>;

double Cubic(double distance) {
  const double x = std::abs(distance);
  if (x < 1) return 1.5 * x * x * x - 2.5 * x * x + 1;
  return x < 2 ? -0.5 * x * x * x + 2.5 * x * x - 4 * x + 2 : 0;
}

double Lanczos(double distance) {
  const double x = std::numbers::pi * distance;
  if (x == 0) return 1;
  return std::abs(distance) < 3 ? 3 * std::sin(x) * std::sin(x / 3) / (x * x) : 0;
}

// Brings rows to another length and puts each down as a column, so that twice does both sides.
Plane Resampled(const Plane& plane, int to, const std::function<double(int from, int into)>& share,
                double reach) {
  Plane made{plane.height, to,
             std::vector<double>(static_cast<std::size_t>(plane.height) * static_cast<std::size_t>(to))};
  const double ratio = static_cast<double>(plane.width) / to;
  for (int into = 0; into < to; ++into) {
    const double middle = (into + 0.5) * ratio;
    const int first = std::max(0, static_cast<int>(middle - reach * ratio) - 1);
    const int end = std::min(plane.width, static_cast<int>(middle + reach * ratio) + 2);
    std::vector<double> shares;
    double all = 0;
    for (int x = first; x < end; ++x) all += shares.emplace_back(share(x, into));
    for (int y = 0; y < plane.height; ++y) {
      double sum = 0;
      for (int x = first; x < end; ++x) sum += plane.At(x, y) * shares[static_cast<std::size_t>(x - first)];
      made.values[static_cast<std::size_t>(into) * static_cast<std::size_t>(plane.height) +
                  static_cast<std::size_t>(y)] = sum / all;
    }
  }
  return made;
}

Plane ByKernel(const Plane& plane, Size size, const Kernel& kernel) {
  const auto across = [&](const Plane& from, int to) {
    const double ratio = static_cast<double>(from.width) / to;
    return Resampled(
        from, to, [&](int x, int into) { return kernel((x + 0.5) / ratio - (into + 0.5)); }, 3);
  };
  Plane made = across(across(plane, size.width), size.height);
  for (double& value : made.values) value = std::clamp(std::round(value), 0.0, 255.0);
  return made;
}

Plane ByArea(const Plane& plane, Size size) {
  const auto across = [&](const Plane& from, int to) {
    const double ratio = static_cast<double>(from.width) / to;
    const auto covered = [&](int x, int into) {
      return std::max(0.0, std::min((into + 1) * ratio, x + 1.0) - std::max(into * ratio, x * 1.0));
    };
    return Resampled(from, to, covered, 1);
  };
  return across(across(plane, size.width), size.height);
}

double Decibels(const Plane& made, const Plane& referee) {
  double squares = 0;
  for (std::size_t i = 0; i < made.values.size(); ++i)
    squares += std::pow(made.values[i] - referee.values[i], 2);
  return 10 * std::log10(255.0 * 255.0 * static_cast<double>(made.values.size()) / std::max(squares, 1e-9));
}

void Compare(const char* name, const Pixels& pixels) {
  std::printf("%s\n  ratio   program   bicubic   Lanczos\n", name);
  const Plane plane = Green(pixels);
  for (const double ratio : {0.52, 0.6, 0.667, 0.75, 0.82, 0.9, 0.97}) {
    const Size size{static_cast<int>(pixels.Width() * ratio), static_cast<int>(pixels.Height() * ratio)};
    const Plane referee = ByArea(plane, size);
    std::printf("  %5.3f %9.1f %9.1f %9.1f\n", ratio, Decibels(Green(Scale(pixels, size)), referee),
                Decibels(ByKernel(plane, size, Cubic), referee),
                Decibels(ByKernel(plane, size, Lanczos), referee));
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) Compare("lines and stairs", ThinLines({1200, 900}));
  for (int i = 1; i < argc; ++i) Compare(argv[i], OpenPicture(PosixFileSystem(), argv[i]).FullPixels());
}
