#include "artwork/windows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "artwork/style.h"

namespace lumidex {
namespace {

constexpr std::array<Colour, 6> Spectrum{Hex(0xF2433F), Hex(0xF8913A), Hex(0xFBDD4A),
                                         Hex(0x4CC75E), Hex(0x3C9BF2), Hex(0x8A5BE0)};

// The spectrum as a fan from one point to a vertical line.
void DrawFan(Canvas& canvas, Point from, double x, double top, double bottom, double alpha) {
  const double step = (bottom - top) / Spectrum.size();
  // Solid bands overlap a little, so that no seam shows; on thin ones the overlap itself would.
  const double reach = alpha > 0.5 ? 1.06 : 1;
  for (std::size_t i = 0; i < Spectrum.size(); ++i) {
    const double y = top + step * static_cast<double>(i);
    Colour colour = Spectrum[i];
    colour.alpha = alpha;
    canvas.Polygon({from, {x, y}, {x, y + step * reach}});
    canvas.Fill(colour);
  }
}

// Overlapping blades around a hole; `turn` in degrees opens them like a camera's.
void DrawAperture(Canvas& canvas, Point centre, double outer, double inner, int blades, Colour fill,
                  Colour line, double lineWidth) {
  const auto at = [&](double radius, double degrees) -> Point {
    const double angle = degrees * std::numbers::pi / 180;
    return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
  };
  canvas.Circle(centre.x, centre.y, outer);
  canvas.Fill(fill);
  const double step = 360.0 / blades;
  for (int i = 0; i < blades; ++i) {
    const Point corner = at(inner, i * step), next = at(inner, (i + 1) * step);
    // A blade's edge runs from one corner of the hole through the next out to the ring.
    const double dx = next.x - corner.x, dy = next.y - corner.y, length = std::hypot(dx, dy);
    const double reach =
        std::sqrt(outer * outer - inner * inner * std::pow(std::cos(std::numbers::pi / blades), 2)) +
        inner * std::sin(std::numbers::pi / blades);
    canvas.Line(corner.x, corner.y, corner.x + dx / length * reach, corner.y + dy / length * reach);
  }
  canvas.Circle(centre.x, centre.y, outer);
  canvas.Stroke(line, lineWidth);
}

void DrawFolder(Canvas& canvas) {
  FolderBack(canvas, 5.5, 21.5);
  canvas.RoundedRectangle(2.5, 9.5, 19, 11, 1);
  Body(canvas, Amber, 9, 22);
}

}  // namespace

void DrawProgramIcon(Canvas& canvas, int pixels) {
  const bool small = pixels < 32;
  const double unit = canvas.Width() / 64;
  canvas.Within([&] {
    canvas.Scale(unit, unit);
    const double margin = small ? 0 : 2;
    canvas.RoundedRectangle(margin, margin, 64 - 2 * margin, 64 - 2 * margin, small ? 12 : 14);
    canvas.Fill(Paint::Linear({0, 0}, {0, 64}, {{0, Hex(0x35538F)}, {1, Hex(0x121D3C)}}));
    canvas.Within([&] {
      canvas.RoundedRectangle(margin, margin, 64 - 2 * margin, 64 - 2 * margin, small ? 12 : 14);
      canvas.Clip();
      canvas.Polygon({{-2, 40}, {-2, small ? 50.0 : 46.0}, {29, 32}});
      canvas.Fill(Hex(0xFFFFFF));
      DrawFan(canvas, {28, 32}, 70, 24, 62, 1);
    });
    if (small) {
      canvas.Polygon({{30, 8}, {52, 52}, {8, 52}});
      canvas.Fill(Paint::Linear({12, 16}, {46, 52}, {{0, Hex(0xFFFFFF)}, {1, Hex(0xA9CCF8)}}));
      return;
    }
    canvas.Polygon({{31, 11}, {52, 49}, {10, 49}});
    canvas.FillAndStroke(
        Paint::Linear({14, 20}, {46, 52},
                      {{0, Hex(0xFFFFFF, 0.85)}, {0.5, Hex(0xBFDCFF, 0.5)}, {1, Hex(0x7FB0F0, 0.4)}}),
        Hex(0xF4FAFF), 2.6);
    canvas.RoundedRectangle(2.75, 2.75, 58.5, 58.5, 13.25);
    canvas.Stroke(Paint::Vertical(2, 62, Hex(0xAECBFF, 0.75), Hex(0x4A6CB0, 0.5)), 1.5);
  });
}

void DrawDesktopFolder(Canvas& canvas) {
  canvas.RoundedRectangle(1.5, 3.5, 21, 14, 1.5);
  Body(canvas, Grey, 3, 18);
  canvas.Rectangle(3, 5, 18, 11);
  canvas.Fill(Paint::Vertical(5, 16, Hex(0x5FB0F0), Hex(0x2A6AB8)));
  for (const double y : {6.0, 10.0}) canvas.Rectangle(5, y, 2, 2);
  canvas.Fill(Paper.light);
  canvas.Rectangle(3, 14, 18, 2);
  canvas.Fill(Hex(0x1F4F8F));
  canvas.Polygon({{10.5, 17.5}, {13.5, 17.5}, {14.5, 20.5}, {9.5, 20.5}});
  canvas.FillAndStroke(Grey.base, Grey.dark, 1);
  canvas.Line(7, 20.5, 17, 20.5);
  canvas.Stroke(Grey.dark, 1);
}

void DrawDocumentsFolder(Canvas& canvas) {
  FolderBack(canvas, 6.5, 21.5);
  canvas.RoundedRectangle(6.5, 2.5, 11, 14, 0.8);
  Body(canvas, Paper, 2, 16);
  for (const double y : {5.0, 7.0, 9.0}) canvas.Rectangle(9, y, 6, 1);
  canvas.Fill(Blue.base);
  canvas.RoundedRectangle(2.5, 11.5, 19, 9, 1);
  Body(canvas, Amber, 11, 22);
}

void DrawFavouritesFolder(Canvas& canvas) {
  DrawFolder(canvas);
  for (int i = 0; i < 10; ++i) {
    const double radius = i % 2 == 0 ? 6.8 : 3, angle = std::numbers::pi * (i / 5.0 - 0.5);
    canvas.LineTo(15.5 + radius * std::cos(angle), 15.5 + radius * std::sin(angle));
  }
  canvas.Close();
  canvas.FillAndStroke(Paint::Vertical(9, 22, Hex(0xFFB0A4), Red.base), Red.dark, 1);
}

void DrawSplash(Canvas& canvas) {
  canvas.FillAll(
      Paint::Linear({0, 0}, {480, 320}, {{0, Hex(0x1B2B59)}, {0.55, Hex(0x131C3E)}, {1, Hex(0x0C1128)}}));
  const Point hole{86, 106}, top{236, 30}, left{172, 144}, right{300, 144}, entry{203, 89};
  canvas.Circle(hole.x, hole.y, 190);
  canvas.Fill(Paint::Radial(hole, 190, {{0, Hex(0x6F9BFF, 0.5)}, {1, Hex(0x6F9BFF, 0)}}));
  DrawAperture(canvas, hole, 62, 24, 7, Hex(0x24386C), Hex(0x7FA2E6, 0.9), 1.6);
  canvas.Circle(hole.x, hole.y, 67);
  canvas.Stroke(Hex(0x3D5CA6), 4);
  canvas.Circle(hole.x, hole.y, 40);
  canvas.Fill(Paint::Radial(
      hole, 40,
      {{0, Hex(0xFFFFFF)}, {0.38, Hex(0xFFFBEA)}, {0.55, Hex(0xDDE8FF, 0.55)}, {1, Hex(0xAFC8FF, 0)}}));
  const auto fan = [&](double alpha) { DrawFan(canvas, entry, 500, 84, 204, alpha); };
  canvas.Within([&] {
    canvas.Polygon({top, left, right});
    canvas.Clip();
    fan(0.3);
  });
  canvas.Within([&] {
    canvas.Polygon({top, right, {right.x, 320}, {480, 320}, {480, 0}, {top.x, 0}});
    canvas.Clip();
    fan(0.95);
  });
  canvas.Polygon(
      {{hole.x, hole.y - 6}, {entry.x + 3, entry.y - 4}, {entry.x - 1, entry.y + 3}, {hole.x, hole.y + 6}});
  canvas.Fill(Hex(0xFFFFFF));
  canvas.Polygon({top, right, left});
  canvas.FillAndStroke(
      Paint::Linear({180, 40}, {290, 150},
                    {{0, Hex(0xFFFFFF, 0.4)}, {0.5, Hex(0xA8C8FF, 0.16)}, {1, Hex(0xE8F2FF, 0.36)}}),
      Hex(0xF2F8FF, 0.95), 2);
  canvas.Rectangle(0, 178, 480, 142);
  canvas.Fill(Paint::Linear({0, 178}, {0, 240},
                            {{0, Hex(0x0C1128, 0)}, {0.6, Hex(0x0C1128, 0.72)}, {1, Hex(0x0C1128, 0.86)}}));
  for (std::size_t i = 0; i < Spectrum.size(); ++i) {
    canvas.Rectangle(80.0 * static_cast<double>(i), 316, 80, 4);
    canvas.Fill(Spectrum[i]);
  }
}

void DrawBackdrop(Canvas& canvas) {
  canvas.FillAll(Paint::Linear(
      {0, 0}, {512, 384}, {{0, Hex(0x6FA0F0, 0.16)}, {0.5, Hex(0x6FA0F0, 0.05)}, {1, Hex(0x8A6BE0, 0.14)}}));
  DrawFan(canvas, {-60, 384}, 512, 150, 330, 0.05);
  for (const double radius : {150.0, 158.0}) canvas.Circle(470, 60, radius);
  canvas.Stroke(Hex(0x6F94D8, 0.14), 3);
  DrawAperture(canvas, {470, 60}, 144, 58, 7, Hex(0x6F94D8, 0.05), Hex(0x6F94D8, 0.16), 2);
}

void DrawEmptyThumbnail(Canvas& canvas) {
  canvas.RoundedRectangle(2.5, 2.5, 19, 19, 2);
  canvas.Stroke(Hex(0x8492A8, 0.5), 0.5);
  canvas.Layer(0.28, [&] { MiniPicture(canvas, 7, 8, 10, 8); });
}

void DrawErrorThumbnail(Canvas& canvas) {
  MiniPicture(canvas, 3.5, 4.5, 17, 14);
  canvas.Circle(17, 17, 5);
  Body(canvas, Red, 12, 22);
  canvas.Rectangle(16, 14, 2, 4);
  canvas.Rectangle(16, 19, 2, 1.6);
  canvas.Fill(Paper.light);
}

void DrawSearchFrame(Canvas& canvas, int frame) {
  const double turn = 2 * std::numbers::pi * frame / SearchFrames;
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

}  // namespace lumidex
