#include "pictures/metafile/device_state.h"

#include <array>

namespace lumidex::metafile {
namespace {

constexpr std::uint32_t whites[] = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0x000000};

// As the published list of stock objects numbers them.
enum class StockNumber : unsigned {
  WhiteBrush,
  LightGrayBrush,
  GrayBrush,
  DarkGrayBrush,
  BlackBrush,
  NullBrush,
  WhitePen,
  BlackPen,
  NullPen,
  OemFixedFont = 10,
  AnsiFixedFont,
  AnsiVariableFont,
  SystemFont,
  DeviceDefaultFont,
  DefaultPalette,
  SystemFixedFont,
  DefaultGuiFont,
  DCBrush,
  DCPen
};

}  // namespace

PaletteColours DefaultPalette() {
  constexpr std::uint32_t colours[] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080,
                                       0xC0C0C0, 0xC0DCC0, 0xA6CAF0, 0xFFFBF0, 0xA0A0A4, 0x808080, 0xFF0000,
                                       0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
  auto palette = std::make_shared<std::vector<std::uint32_t>>();
  for (const std::uint32_t colour : colours) palette->push_back(0xFF000000U | colour);
  return palette;
}

Object StockObject(unsigned number) {
  switch (static_cast<StockNumber>(number)) {
    case StockNumber::WhiteBrush:
    case StockNumber::LightGrayBrush:
    case StockNumber::GrayBrush:
    case StockNumber::DarkGrayBrush:
    case StockNumber::BlackBrush:
      return Brush{.kind = Ink::Kind::Solid, .colour = whites[number]};
    case StockNumber::NullBrush:
      return Brush{};
    case StockNumber::WhitePen:
      return Pen{.ink = {.kind = Ink::Kind::Solid, .colour = 0xFFFFFF}, .dashes = {}};
    case StockNumber::BlackPen:
    case StockNumber::DCPen:
      return Pen{};
    case StockNumber::NullPen:
      return Pen{.style = pen_style::null, .dashes = {}};
    case StockNumber::OemFixedFont:
    case StockNumber::AnsiFixedFont:
    case StockNumber::SystemFixedFont:
      return Font{.family = "Courier New", .height = 16, .pitchAndFamily = 0x31};
    case StockNumber::AnsiVariableFont:
    case StockNumber::SystemFont:
    case StockNumber::DeviceDefaultFont:
    case StockNumber::DefaultGuiFont:
      return Font{.family = "Arial", .height = 16, .pitchAndFamily = 0x22};
    case StockNumber::DefaultPalette:
      return DefaultPalette();
    case StockNumber::DCBrush:
      return Brush{.kind = Ink::Kind::Solid, .colour = 0xFFFFFF};
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
