#include "pictures/metafile/canvas.h"

#include <utility>

#include "pictures/metafile/outlining.h"
#include "pictures/metafile/surfaces.h"

namespace lumidex::metafile {
namespace {

// A quarter of a pixel more or less can not be seen, and curves become far fewer lines.
constexpr double tolerance = 0.2;

constexpr double perStrokePoint = 700;
constexpr double perLetter = 1500;
// Drawing a letter of a size or slant that the renderer has not kept.
constexpr double perNewLetter = 30000;
constexpr double perHatchedPixel = 3;
constexpr double perTiledPixel = 12;
constexpr double perCopiedPixel = 6;

// What is painted through surfaces in between is painted in bands of so many pixels, which bounds their
// memory.
constexpr double mostGroupPixels = 1 << 22;
constexpr double mostTransferPixels = 1 << 20;

// More dashes than this in one stroke are not told apart any more.
constexpr double mostDashes = 20000;
// Letters larger than this, in pixels, are filled as outlines: the renderer would keep each as a picture.
constexpr double largestDrawnLetter = 64;

// Cuts a box of whole pixels into bands of at most about `pixels`, from its top.
template <class Visit>
void ForEachBand(const Box& box, double pixels, Visit visit) {
  const int bottom = static_cast<int>(box.bottom);
  const int rows = std::max(1, static_cast<int>(pixels / box.Width()));
  for (int top = static_cast<int>(box.top); top < bottom; top += rows)
    visit(Box{box.left, static_cast<double>(top), box.right,
              static_cast<double>(std::min(bottom, top + rows))});
}

}  // namespace

Canvas::Canvas(Pixels& pixels, WorkBudget& budget)
    : pixels_(pixels),
      budget_(budget),
      area_{0, 0, static_cast<double>(pixels.Width()), static_cast<double>(pixels.Height())},
      surface_(SharedSurface(pixels, CAIRO_FORMAT_RGB24)),
      context_(cairo_create(surface_.get())),
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
  if (!drawnBox_) {
    drawnBox_ = bounds;
  } else {
    drawnBox_->left = std::min(drawnBox_->left, bounds.left);
    drawnBox_->top = std::min(drawnBox_->top, bounds.top);
    drawnBox_->right = std::max(drawnBox_->right, bounds.right);
    drawnBox_->bottom = std::max(drawnBox_->bottom, bounds.bottom);
  }
  // One pixel more, so that shapes without any width still lie within.
  return bounds.Grown(1).GrownToWhole().Intersected(clip.box).Intersected(area_);
}

template <class Draw>
void Canvas::Paint(const Clip& clip, const Box& bounds, cairo_operator_t blend, Draw draw) {
  cairo_t* context = context_.get();
  cairo_set_operator(context, blend);
  if (!clip.mask) {
    ClipToBox(context, bounds);
    draw(context);
    return;
  }
  if (!budget_.Spend(perGroupPixel * bounds.Area())) return;
  ForEachBand(bounds, mostGroupPixels, [&](const Box& band) {
    const CairoSurface group = BlankSurface(band, CAIRO_FORMAT_ARGB32);
    const CairoContext inner(cairo_create(group.get()));
    cairo_set_tolerance(inner.get(), tolerance);
    draw(inner.get());
    ClipToBox(context, band);
    cairo_set_source_surface(context, group.get(), 0, 0);
    cairo_mask_surface(context, clip.mask.get(), 0, 0);
  });
}

double Canvas::InkCost(const Ink& ink, const Box& visible) const {
  if (ink.kind == Ink::Kind::Hatched) return perHatchedPixel * visible.Area();
  if (ink.kind != Ink::Kind::Tiled) return 0;
  const double tile = static_cast<double>(ink.tile.Width()) * ink.tile.Height();
  return perTiledPixel * visible.Area() + (HoldsTile(ink.tile) ? 0 : perCopiedPixel * tile);
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

void Canvas::SetInk(cairo_t* context, const Ink& ink, const Mix* mix) {
  const bool inverted = mix && mix->inverted;
  const std::uint32_t color = mix && mix->fixedColor ? *mix->fixedColor : ink.color;
  const bool fixed = mix && mix->fixedColor;
  CairoPattern pattern;
  if (!fixed && ink.kind == Ink::Kind::Hatched) {
    pattern = HatchPattern(ink.hatch, color, ink.background, ink.origin);
  } else if (!fixed && ink.kind == Ink::Kind::Tiled && !ink.tile.IsEmpty()) {
    pattern = TilePattern(TileSurface(ink.tile), ink.origin, ink.tileScale);
  } else {
    pattern = SolidPattern(inverted ? ~color : color, ink.opacity);
  }
  cairo_set_source(context, pattern.get());
}

void Canvas::Fill(const Clip& clip, const Path& path, FillRule rule, const Ink& ink, int rasterOperation) {
  const Mix mix = MixOf(rasterOperation);
  if (ink.kind == Ink::Kind::None || mix.nothing || path.IsEmpty()) return;
  const Box visible = Visible(clip, path.Bounds());
  if (visible.IsEmpty() || !budget_.Spend(FillCost(path, visible) + InkCost(ink, visible))) return;
  Paint(clip, visible, mix.blend, [&](cairo_t* context) {
    SetInk(context, ink, &mix);
    SetFillRule(context, rule);
    Trace(context, path);
    cairo_fill(context);
  });
}

void Canvas::Stroke(const Clip& clip, const Path& path, const StrokeStyle& style, const Ink& ink,
                    int rasterOperation) {
  const Mix mix = MixOf(rasterOperation);
  if (ink.kind == Ink::Kind::None || mix.nothing || path.IsEmpty()) return;
  const double width = style.width * style.pen.MeanScale();
  const double reach = style.width * std::max(style.pen.HorizontalScale(), style.pen.VerticalScale()) *
                       (style.join == CAIRO_LINE_JOIN_MITER ? std::max(1.0, style.miterLimit) : 1.0);
  const Path lines = width < 1.5 ? path.WithCrispLines() : path;
  const Box visible = Visible(clip, lines.Bounds().Grown(reach / 2));
  if (visible.IsEmpty()) return;
  double period = 0;
  for (const double dash : style.dashes) period += dash;
  const double dashes = period > 0 ? lines.Length() / (period * style.pen.MeanScale()) : 0;
  const bool dashed = dashes > 0 && dashes * static_cast<double>(style.dashes.size()) < mostDashes;
  const double pieces = static_cast<double>(lines.PointCount()) + (dashed ? 2 * dashes : 0);
  // Each piece has two sides, and ends as high as the line is wide.
  const double rows = 2 * lines.EdgeRows(visible.top - reach, visible.bottom + reach) +
                      pieces * 2 * std::min(width, visible.Height());
  const double columns = 2 * lines.EdgeColumns(visible.left - reach, visible.right + reach);
  const double touched = std::min(visible.Area(), lines.Length() * (width + 2) + pieces * width * width);
  if (!budget_.Spend(perShape + perStrokePoint * pieces + perEdgeRow * rows + perEdgeColumn * columns +
                     perPixel * touched + InkCost(ink, visible)))
    return;
  Paint(clip, visible, mix.blend, [&](cairo_t* context) {
    SetInk(context, ink, &mix);
    Trace(context, lines);
    cairo_matrix_t pen;
    cairo_matrix_init(&pen, style.pen.xx, style.pen.yx, style.pen.xy, style.pen.yy, 0, 0);
    cairo_set_matrix(context, &pen);
    cairo_set_line_width(context, style.width);
    cairo_set_line_cap(context, style.cap);
    cairo_set_line_join(context, style.join);
    cairo_set_miter_limit(context, std::max(1.0, style.miterLimit));
    cairo_set_dash(context, style.dashes.data(), dashed ? static_cast<int>(style.dashes.size()) : 0, 0);
    cairo_stroke(context);
    cairo_identity_matrix(context);
  });
}

void Canvas::FillGradient(const Clip& clip, const Path& path, const ColorStop& first,
                          const ColorStop& second) {
  const Box visible = Visible(clip, path.Bounds());
  if (visible.IsEmpty() || !budget_.Spend(FillCost(path, visible) + perGroupPixel * visible.Area())) return;
  const CairoPattern pattern(cairo_pattern_create_linear(first.at.x, first.at.y, second.at.x, second.at.y));
  const auto addStop = [&](double place, std::uint32_t color) {
    cairo_pattern_add_color_stop_rgb(pattern.get(), place, (color >> 16 & 0xFF) / 255.0,
                                     (color >> 8 & 0xFF) / 255.0, (color & 0xFF) / 255.0);
  };
  addStop(0, first.color);
  addStop(1, second.color);
  Paint(clip, visible, CAIRO_OPERATOR_OVER, [&](cairo_t* context) {
    cairo_set_source(context, pattern.get());
    Trace(context, path);
    cairo_fill(context);
  });
}

void Canvas::DrawImage(const Clip& clip, const ImagePart& part, double opacity) {
  const auto placed = PlaceImage(part);
  if (!placed) return;
  const Box visible = Visible(clip, placed->outline.Bounds());
  if (visible.IsEmpty() || !budget_.Spend(perShape + placed->CostPerPixel() * visible.Area())) return;
  Paint(clip, visible, CAIRO_OPERATOR_OVER, [&](cairo_t* context) {
    cairo_set_source(context, placed->pattern.get());
    Trace(context, placed->outline);
    if (opacity >= 1) {
      cairo_fill(context);
      return;
    }
    cairo_save(context);
    cairo_clip(context);
    cairo_paint_with_alpha(context, opacity);
    cairo_restore(context);
  });
}

void Canvas::Transfer(const Clip& clip, const Path& area, int rasterOperation, const ImagePart* source,
                      const Ink& pattern) {
  if (rasterOperation == patternCopy) return Fill(clip, area, FillRule::Winding, pattern, copyPen);
  if (rasterOperation == sourceCopy && source) return DrawImage(clip, *source);
  const bool needsSource = UsesSource(rasterOperation);
  if (needsSource && !source) return;
  const auto placed = needsSource ? PlaceImage(*source) : std::nullopt;
  if (needsSource && !placed) return;
  const Path& outline = placed ? placed->outline : area;
  const Box visible = Visible(clip, outline.Bounds());
  if (visible.IsEmpty()) return;
  const double cost = 3 * perGroupPixel + (placed ? placed->CostPerPixel() : 0);
  const bool needsPattern = UsesPattern(rasterOperation) && pattern.kind != Ink::Kind::None;
  const double inkCost = needsPattern ? InkCost(pattern, visible) : 0;
  if (!budget_.Spend(perShape + cost * visible.Area() + inkCost)) return;

  ForEachBand(visible, mostTransferPixels, [&](const Box& band) {
    const CairoSurface sources = BlankSurface(band, CAIRO_FORMAT_RGB24);
    const CairoSurface patterns = BlankSurface(band, CAIRO_FORMAT_RGB24);
    if (placed) {
      const CairoContext painter(cairo_create(sources.get()));
      cairo_set_source(painter.get(), placed->pattern.get());
      cairo_paint(painter.get());
    }
    if (needsPattern) {
      const CairoContext painter(cairo_create(patterns.get()));
      SetInk(painter.get(), pattern, nullptr);
      cairo_paint(painter.get());
    }
    cairo_surface_flush(surface_.get());
    const int left = static_cast<int>(band.left), top = static_cast<int>(band.top);
    const int width = static_cast<int>(band.Width()), height = static_cast<int>(band.Height());
    for (int y = 0; y < height; ++y) {
      std::uint32_t* const from = SurfaceRow(sources.get(), y);
      const std::uint32_t* const brush = SurfaceRow(patterns.get(), y);
      const std::uint32_t* const below = pixels_.Row(top + y).data() + left;
      if (!from || !brush) return;
      for (int x = 0; x < width; ++x) from[x] = Combine(rasterOperation, brush[x], from[x], below[x]);
    }
    cairo_surface_mark_dirty(sources.get());
    Paint(clip, band, CAIRO_OPERATOR_OVER, [&](cairo_t* context) {
      cairo_set_source_surface(context, sources.get(), 0, 0);
      Trace(context, outline);
      cairo_fill(context);
    });
  });
}

void Canvas::DrawText(const Clip& clip, const TextFace& face, const std::string& text, const Matrix& toSheet,
                      std::uint32_t color) {
  const double size = std::max(toSheet.HorizontalScale(), toSheet.VerticalScale());
  const double least = std::min(toSheet.HorizontalScale(), toSheet.VerticalScale());
  if (!toSheet.IsUsable() || !(least > 0.1) || !(toSheet.MeanScale() > 0.2) || text.empty()) return;
  const double letters = static_cast<double>(text.size());
  const LetterShape shape{face.Handle(), toSheet.xx, toSheet.yx, toSheet.xy, toSheet.yy};
  const bool kept = std::exchange(lastLetters_, shape) == shape && size <= largestDrawnLetter;
  if (!budget_.Spend((kept ? perLetter : perNewLetter) * letters)) return;
  if (size > largestDrawnLetter) {
    const Ink ink{.kind = Ink::Kind::Solid, .color = color};
    return Fill(clip, face.Outline(text).Transformed(toSheet), FillRule::Winding, ink, copyPen);
  }
  Path cell;
  cell.AddBox({-0.5, -face.Ascent() - 0.3, face.Advance(text) + 0.5, face.Descent() + 0.3});
  const Box visible = Visible(clip, cell.Transformed(toSheet).Bounds());
  if (visible.IsEmpty() || !budget_.Spend(perPixel * visible.Area())) return;
  Paint(clip, visible, CAIRO_OPERATOR_OVER, [&](cairo_t* context) {
    cairo_set_source(context, SolidPattern(color).get());
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
