#include "artwork/types.h"

#include <algorithm>
#include <array>
#include <string>

#include "artwork/motifs.h"

namespace lumidex {
namespace {

constexpr std::array<TypePicture, 29> Pictures{
    {{"ART", Amber, DrawEasel},     {"BMP", Blue, DrawWindowOfPixels},
     {"CUR", Grey, DrawPointer},    {"CUT", Red, DrawScissors},
     {"DIB", Blue, DrawPixelGrid},  {"EMF", Violet, DrawCurve},
     {"GEM", Teal, DrawJewel},      {"GIF", Green, DrawFilm},
     {"HRZ", Grey, DrawTelevision}, {"ICO", Blue, DrawTiles},
     {"IFF", Amber, DrawChunks},    {"IMG", Teal, DrawFramedPicture},
     {"JPG", Green, DrawCamera},    {"LBM", Amber, DrawBrush},
     {"MAC", Grey, DrawComputer},   {"MSP", Blue, DrawPencil},
     {"PBM", Grey, DrawChequers},   {"PCX", Red, DrawPalette},
     {"PGM", Grey, DrawGreySteps},  {"PIC", Violet, DrawPaintPot},
     {"PNG", Teal, DrawNetwork},    {"PNM", Violet, DrawThreeMaps},
     {"PPM", Red, DrawColourSteps}, {"RAS", Amber, DrawSun},
     {"RLE", Blue, DrawRuns},       {"TGA", Red, DrawTarget},
     {"TIF", Green, DrawTag},       {"WMF", Violet, DrawShapes},
     {"WPG", Blue, DrawPen}}};

}  // namespace

std::span<const TypePicture> TypePictures() {
  return Pictures;
}

void DrawTypeBitmap(Canvas& canvas, const TypePicture& type) {
  canvas.FillAll(Paper.light);
  canvas.Rectangle(28, 0, 36, 32);
  canvas.Fill(type.tones.dark);
  canvas.Within([&] {
    canvas.Translate(2, 4);
    type.motif(canvas);
  });
  const std::string letters(type.key);
  const double size = std::min(13.0, 13 * 32 / canvas.TextWidth(letters, 13, Weight::Bold));
  canvas.Text(letters, 46, 16 + size * 0.36, size, Weight::Bold, Hex(0xFFFFFF));
  canvas.Rectangle(0.5, 0.5, 63, 31);
  canvas.Stroke(type.tones.dark, 1);
}

void DrawTypeSheet(Canvas& canvas, const TypePicture& type) {
  const double left = 12, top = 4, right = 84, bottom = 92, fold = 18;
  const auto trace = [&] {
    canvas.MoveTo(left + 4, top);
    canvas.LineTo(right - fold, top);
    canvas.LineTo(right, top + fold);
    canvas.LineTo(right, bottom - 4);
    canvas.CurveTo({right, bottom - 2}, {right - 2, bottom}, {right - 4, bottom});
    canvas.LineTo(left + 4, bottom);
    canvas.CurveTo({left + 2, bottom}, {left, bottom - 2}, {left, bottom - 4});
    canvas.LineTo(left, top + 4);
    canvas.CurveTo({left, top + 2}, {left + 2, top}, {left + 4, top});
    canvas.Close();
  };
  trace();
  canvas.Fill(Paint::Vertical(top, bottom, Paper.light, Paper.base));
  canvas.Within([&] {
    trace();
    canvas.Clip();
    canvas.Rectangle(left, 64, right - left, 30);
    canvas.Fill(Paint::Vertical(64, 92, Mix(type.tones.base, type.tones.dark, 0.35), type.tones.dark));
  });
  canvas.Polygon({{right - fold, top}, {right, top + fold}, {right - fold, top + fold}});
  canvas.FillAndStroke(Paint(Grey.light), Grey.dark, 2);
  trace();
  canvas.Stroke(Grey.dark, 2);
  canvas.Within([&] {
    canvas.Translate(24, 14);
    canvas.Scale(2, 2);
    type.motif(canvas);
  });
  canvas.Text(std::string(type.key), 48, 85, 20, Weight::Bold, Hex(0xFFFFFF));
}

}  // namespace lumidex
