#include "pictures/metafile/device_state.h"

#include <array>

namespace lumidex::metafile {
namespace {

constexpr std::uint32_t whites[] = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0x000000};

}  // namespace

PaletteColors DefaultPalette() {
  constexpr std::uint32_t colors[] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080,
                                      0xC0C0C0, 0xC0DCC0, 0xA6CAF0, 0xFFFBF0, 0xA0A0A4, 0x808080, 0xFF0000,
                                      0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
  auto palette = std::make_shared<std::vector<std::uint32_t>>();
  for (const std::uint32_t color : colors) palette->push_back(0xFF000000U | color);
  return palette;
}

Object StockObject(unsigned number) {
  if (number <= 4) return Brush{.kind = Ink::Kind::Solid, .color = whites[number]};
  switch (number) {
    case 5:
      return Brush{};
    case 6:
      return Pen{.ink = {.kind = Ink::Kind::Solid, .color = 0xFFFFFF}, .dashes = {}};
    case 7:
    case 19:
      return Pen{};
    case 8:
      return Pen{.style = pen_style::null, .dashes = {}};
    case 10:
    case 11:
    case 16:
      return Font{.family = "Courier New", .height = 16, .pitchAndFamily = 0x31};
    case 12:
    case 13:
    case 14:
    case 17:
      return Font{.family = "Arial", .height = 16, .pitchAndFamily = 0x22};
    case 15:
      return DefaultPalette();
    case 18:
      return Brush{.kind = Ink::Kind::Solid, .color = 0xFFFFFF};
    default:
      return {};
  }
}

Matrix Mapping::PageToDevice(Point pixelsPerMillimetre) const {
  // Millimetres per unit of the five fixed scales, whose y grows upwards.
  constexpr std::array<double, 7> fixedScales = {0, 0, 0.1, 0.01, 0.254, 0.0254, 25.4 / 1440};
  double across = 1, down = 1;
  if (mode >= map_mode::lowMetric && mode <= map_mode::twips) {
    across = fixedScales[static_cast<std::size_t>(mode)] * pixelsPerMillimetre.x;
    down = -fixedScales[static_cast<std::size_t>(mode)] * pixelsPerMillimetre.y;
  } else if (mode == map_mode::isotropic || mode == map_mode::anisotropic) {
    if (windowExtent.x != 0) across = viewportExtent.x / windowExtent.x;
    if (windowExtent.y != 0) down = viewportExtent.y / windowExtent.y;
    if (mode == map_mode::isotropic) {
      const double smaller = std::min(std::abs(across), std::abs(down));
      across = std::copysign(smaller, across);
      down = std::copysign(smaller, down);
    }
  }
  return {.xx = across,
          .yy = down,
          .x0 = viewportOrigin.x - windowOrigin.x * across,
          .y0 = viewportOrigin.y - windowOrigin.y * down};
}

}  // namespace lumidex::metafile
