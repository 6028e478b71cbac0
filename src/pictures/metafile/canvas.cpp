#include "pictures/metafile/canvas.h"

#include <utility>

#include "pictures/metafile/hatches.h"
#include "pictures/metafile/outlining.h"
#include "pictures/metafile/surfaces.h"

namespace lumidex::metafile {
namespace {

constexpr double perLetter = 1500;
// Drawing a letter of a size or slant that the renderer has not kept.
constexpr double perNewLetter = 30000;
constexpr double perHatchedPixel = 3;
constexpr double perTiledPixel = 12;
constexpr double perPlacedPixel = 40;
constexpr double perCopiedPixel = 6;

// Letters larger than this, in pixels, are filled as outlines: the renderer would keep each as a picture.
constexpr double largestDrawnLetter = 64;

}  // namespace

Canvas::Canvas(Pixels& pixels, WorkBudget& budget, Use use)
    : pixels_(pixels),
      budget_(budget),
      area_{0, 0, static_cast<double>(pixels.Width()), static_cast<double>(pixels.Height())},
      surface_(SharedSurface(pixels, CAIRO_FORMAT_RGB24)),
      context_(cairo_create(surface_.get())),
      measures_(use == Use::Measure),
      maskBytes_(std::make_shared<double>(0)) {
  cairo_set_tolerance(context_.get(), tolerance);
}

Canvas::~Canvas() = default;

void Canvas::Finish() {
  cairo_surface_flush(surface_.get());
  for (int y = 0; y < pixels_.Height(); ++y)
    for (std::uint32_t& word : pixels_.Row(y)) word |= 0xFF000000u;
}

Box Canvas::Visible(const Clip& clip, const Box& bounds) {
  if (measures_) {
    Box& drawn = drawnBox_ ? *drawnBox_ : drawnBox_.emplace(bounds);
    drawn = {std::min(drawn.left, bounds.left), std::min(drawn.top, bounds.top),
             std::max(drawn.right, bounds.right), std::max(drawn.bottom, bounds.bottom)};
  }
  // One pixel more, so that shapes without any width still lie within.
  return bounds.Grown(1).GrownToWhole().Intersected(clip.box).Intersected(area_);
}

double Canvas::InkCost(const Ink& ink, const Box& visible) const {
  if (ink.kind == Ink::Kind::Hatched) return perHatchedPixel * visible.Area();
  if (ink.kind == Ink::Kind::Shaded && ink.shading)
    return ShadingCost(*ink.shading, ink.shadingToSheet, visible);
  if (ink.kind != Ink::Kind::Tiled) return 0;
  const double tile = static_cast<double>(ink.tile.Width()) * ink.tile.Height();
  return (ink.tileMap ? perPlacedPixel : perTiledPixel) * visible.Area() +
         (HoldsTile(ink.tile) ? 0 : perCopiedPixel * tile);
}

bool Canvas::HoldsTile(const Pixels& tile) const {
  return tileSurface_ && tile_.Data() == tile.Data();
}

cairo_surface_t* Canvas::TileSurface(const Pixels& tile) {
  if (!HoldsTile(tile)) {
    tile_ = tile;
    tileSurface_ = CopiedSurface(tile);
  }
  return tileSurface_.get();
}

void Canvas::SetInk(cairo_t* context, const Ink& ink, const Box& visible) {
  CairoPattern pattern;
  const bool placeable = !ink.tileMap || ink.tileMap->IsUsable();
  if (ink.kind == Ink::Kind::Hatched) {
    pattern = HatchPattern(ink.hatch, ink.colour, ink.background, ink.origin);
  } else if (ink.kind == Ink::Kind::Tiled && !ink.tile.IsEmpty() && placeable) {
    pattern = TilePattern(TileSurface(ink.tile), ink);
  } else if (ink.kind == Ink::Kind::Shaded && ink.shading) {
    pattern = ink.shading->kind == Shading::Kind::Line
                  ? LinePattern(*ink.shading, ink.shadingToSheet)
                  : CentrePattern(*ink.shading, ink.shadingToSheet, visible);
  }
  if (!pattern) pattern = SolidPattern(ink.colour, ink.opacity);
  cairo_set_source(context, pattern.get());
}

void Canvas::Fill(const Clip& clip, const Path& path, FillRule rule, const Ink& ink, int rasterOperation) {
  if (ink.kind == Ink::Kind::None || path.IsEmpty()) return;
  const Box visible = Visible(clip, path.Bounds());
  if (visible.IsEmpty()) return;
  PaintShape(clip, visible, ink, rasterOperation, FillCost(path, visible), [&](cairo_t* context) {
    SetFillRule(context, rule);
    Trace(context, path);
    cairo_fill(context);
  });
}

void Canvas::Stroke(const Clip& clip, const Path& path, const StrokeStyle& style, const Ink& ink,
                    int rasterOperation) {
  if (ink.kind == Ink::Kind::None || path.IsEmpty()) return;
  const metafile::Stroke stroke(path, style);
  const Box visible = Visible(clip, stroke.bounds);
  if (visible.IsEmpty()) return;
  PaintShape(clip, visible, ink, rasterOperation, stroke.Cost(visible),
             [&](cairo_t* context) { stroke.Paint(context); });
}

void Canvas::FillGradient(const Clip& clip, const Path& path, const ColourStop& first,
                          const ColourStop& second) {
  const Box visible = Visible(clip, path.Bounds());
  if (visible.IsEmpty() || !budget_.Spend(FillCost(path, visible) + perGroupPixel * visible.Area())) return;
  const CairoPattern pattern(cairo_pattern_create_linear(first.at.x, first.at.y, second.at.x, second.at.y));
  const auto addStop = [&](double place, std::uint32_t colour) {
    cairo_pattern_add_color_stop_rgb(pattern.get(), place, (colour >> 16 & 0xFF) / 255.0,
                                     (colour >> 8 & 0xFF) / 255.0, (colour & 0xFF) / 255.0);
  };
  addStop(0, first.colour);
  addStop(1, second.colour);
  Paint(clip, visible, [&](cairo_t* context) {
    cairo_set_source(context, pattern.get());
    Trace(context, path);
    cairo_fill(context);
  });
}

void Canvas::DrawText(const Clip& clip, const TextFace& face, const std::string& text, const Matrix& toSheet,
                      std::uint32_t colour) {
  const double size = std::max(toSheet.HorizontalScale(), toSheet.VerticalScale());
  const double least = std::min(toSheet.HorizontalScale(), toSheet.VerticalScale());
  if (!toSheet.IsUsable() || !(least > 0.1) || !(toSheet.MeanScale() > 0.2) || text.empty()) return;
  const double letters = static_cast<double>(text.size());
  Path cell;
  cell.AddBox({-0.5, -face.Ascent() - 0.3, face.Advance(text) + 0.5, face.Descent() + 0.3});
  const Box bounds = cell.Transformed(toSheet).Bounds();
  const bool outlined = size > largestDrawnLetter;
  // Making letters is what costs, so that those beside the sheet are left out before.
  if (!measures_ && Visible(clip, bounds).IsEmpty()) {
    budget_.Spend(perLetter * letters);
    return;
  }
  const LetterShape shape{face.Handle(), toSheet.xx, toSheet.yx, toSheet.xy, toSheet.yy};
  const bool kept = std::exchange(lastLetters_, shape) == shape && !outlined;
  if (!budget_.Spend((kept ? perLetter : perNewLetter) * letters)) return;
  if (outlined) {
    const Ink ink{.kind = Ink::Kind::Solid, .colour = colour};
    return Fill(clip, face.Outline(text).Transformed(toSheet), FillRule::Winding, ink, copyPen);
  }
  const Box visible = Visible(clip, bounds);
  if (visible.IsEmpty() || !budget_.Spend(perPixel * visible.Area())) return;
  Paint(clip, visible, [&](cairo_t* context) {
    cairo_set_source(context, SolidPattern(colour).get());
    cairo_set_font_options(context, TextFace::Options().get());
    cairo_set_font_face(context, face.Handle());
    cairo_matrix_t matrix;
    cairo_matrix_init(&matrix, toSheet.xx, toSheet.yx, toSheet.xy, toSheet.yy, 0, 0);
    cairo_set_font_matrix(context, &matrix);
    cairo_move_to(context, toSheet.x0, toSheet.y0);
    cairo_show_text(context, text.c_str());
    cairo_new_path(context);
  });
}

}  // namespace lumidex::metafile
