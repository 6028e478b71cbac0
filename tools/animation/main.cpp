// Draws what plays while a search runs: lumidex-animation FILE writes it as an AVI file. A lens wanders over
// three folders, and the picture in the one below it comes up.

#include <algorithm>
#include <cmath>
#include <iostream>
#include <numbers>

#include "animation/avi_encoder.h"
#include "artwork/style.h"
#include "drawing/drawing_program.h"
#include "pictures/pixels.h"

namespace {

using namespace lumidex;

constexpr int frameCount = 16;
constexpr int millisecondsPerFrame = 90;
// Twice as many pixels as the window shows it at, for fine screens.
constexpr Size frameSize{192, 128};
constexpr double gridWidth = 96;
// Shows nowhere: players that know of it leave it out, and in others it is the corners of the card.
constexpr std::uint32_t ground = 0xFF008080;

void DrawFrame(Canvas& canvas, int frame) {
  const double turn = 2 * std::numbers::pi * frame / frameCount;
  canvas.RoundedRectangle(0.5, 0.5, 95, 63, 8);
  canvas.FillAndStroke(Hex(0xEDF3FB), Hex(0x8FA6C8), 1);
  // The lens runs along a flat loop, so that the last frame leads back to the first.
  const Point lens{44 + 30 * std::sin(turn), 26 + 7 * std::sin(2 * turn)};
  for (int i = 0; i < 3; ++i) {
    const double left = 3 + i * 30;
    // A folder under the lens puts out its picture.
    const double near = std::max(0.0, 1 - std::abs(lens.x - (left + 15)) / 16);
    canvas.Within([&] {
      canvas.Translate(left, 22);
      canvas.Scale(1.25, 1.25);
      canvas.Polygon({{2.5, 20}, {2.5, 6.5}, {9, 6.5}, {11, 8.5}, {21.5, 8.5}, {21.5, 20}});
      canvas.FillAndStroke(Amber.base, Amber.dark, 1);
      MiniPicture(canvas, 5.5, 9.5 - 6 * near, 13, 10);
      canvas.RoundedRectangle(2.5, 12.5, 19, 9, 1);
      Body(canvas, Amber, 12, 23);
    });
  }
  canvas.Line(lens.x + 9, lens.y + 9, lens.x + 19, lens.y + 20);
  canvas.Stroke(Amber.dark, 6);
  canvas.Line(lens.x + 10, lens.y + 10, lens.x + 19, lens.y + 20);
  canvas.Stroke(Amber.base, 3.6);
  canvas.Circle(lens.x, lens.y, 12.5);
  canvas.FillAndStroke(
      Paint::Radial({lens.x - 4, lens.y - 5}, 20,
                    {{0, Hex(0xFFFFFF, 0.6)}, {0.6, Hex(0xCBE5FB, 0.25)}, {1, Hex(0x86BCEE, 0.45)}}),
      Grey.dark, 3.2);
  canvas.Circle(lens.x, lens.y, 12.5);
  canvas.Stroke(Grey.light, 1.2);
}

Pixels Drawn(int frame) {
  Canvas canvas(frameSize, gridWidth);
  DrawFrame(canvas, frame);
  Pixels pixels = canvas.ToPixels();
  // There is no half of the ground.
  constexpr std::uint32_t half = 0x80000000;
  for (int y = 0; y < pixels.Height(); ++y) {
    for (std::uint32_t& pixel : pixels.Row(y)) pixel = pixel < half ? ground : pixel | 0xFF000000;
  }
  pixels.SetFormat(PixelFormat::Rgb);
  return pixels;
}

// All frames below one another.
Pixels Stacked(const std::vector<Pixels>& frames) {
  Pixels all = Pixels::Make({frameSize.width, frameSize.height * frameCount}, PixelFormat::Rgb, ground);
  int y = 0;
  for (const Pixels& frame : frames) {
    for (int row = 0; row < frame.Height(); ++row) std::ranges::copy(frame.Row(row), all.Row(y++).begin());
  }
  return all;
}

std::vector<std::uint8_t> Animation() {
  std::vector<Pixels> frames;
  for (int frame = 0; frame < frameCount; ++frame) frames.push_back(Drawn(frame));
  Colours palette = MedianCut(Stacked(frames), 255);
  palette.insert(palette.begin(), ground);
  std::vector<IndexedPicture> reduced;
  for (const Pixels& frame : frames) reduced.push_back(Reduce(frame, palette, Dithering::None));
  return EncodeAvi(reduced, millisecondsPerFrame);
}

}  // namespace

int main(int count, char** arguments) {
  return RunDrawingProgram(count, arguments,
                           [](const std::filesystem::path& file) { WriteFile(file, Animation()); });
}
