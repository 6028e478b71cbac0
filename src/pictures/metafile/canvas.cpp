#include "pictures/metafile/canvas.h"

#include "pictures/metafile/surfaces.h"

namespace lumidex::metafile {
namespace {

// What the steps of painting cost, in units of the budget: estimates, not measurements.
constexpr double perShape = 1500;
constexpr double perPoint = 60;
constexpr double perEdgeRow = 90;
constexpr double perPixel = 1;
constexpr double perGroupPixel = 4;
constexpr double perStrokePoint = 700;
constexpr double perLetter = 2500;

// All clip masks of one picture together; beyond that, clips stay as they are.
constexpr double mostMaskBytes = 160e6;
// More dashes than this in one stroke are not told apart any more.
constexpr double mostDashes = 20000;
// Letters larger than this, in pixels, are filled as outlines: the renderer would keep each as a picture.
constexpr double largestDrawnLetter = 200;

void Trace(cairo_t* context, const Path& path) {
  cairo_new_path(context);
  const auto points = path.Points();
  std::size_t next = 0;
  for (const Path::Verb verb : path.Verbs()) {
    const Point* p = points.data() + next;
    switch (verb) {
      case Path::Verb::Move:
        cairo_move_to(context, p->x, p->y);
        next += 1;
        break;
      case Path::Verb::Line:
        cairo_line_to(context, p->x, p->y);
        next += 1;
        break;
      case Path::Verb::Curve:
        cairo_curve_to(context, p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y);
        next += 3;
        break;
      case Path::Verb::Close:
        cairo_close_path(context);
        break;
    }
  }
}

void SetFillRule(cairo_t* context, FillRule rule) {
  cairo_set_fill_rule(context,
                      rule == FillRule::Winding ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
}

void ClipToBox(cairo_t* context, const Box& box) {
  cairo_reset_clip(context);
  cairo_new_path(context);
  cairo_rectangle(context, box.left, box.top, box.Width(), box.Height());
  cairo_clip(context);
}

double FillCost(const Path& path, const Box& visible) {
  return perShape + perPoint * static_cast<double>(path.PointCount()) + perPixel * visible.Area() +
         perEdgeRow * path.EdgeRows(visible.top, visible.bottom);
}

}  // namespace

Canvas::Canvas(Pixels& pixels, WorkBudget& budget)
    : pixels_(pixels),
      budget_(budget),
      area_{0, 0, static_cast<double>(pixels.Width()), static_cast<double>(pixels.Height())},
      surface_(SharedSurface(pixels, CAIRO_FORMAT_RGB24)),
      context_(cairo_create(surface_.get())),
      maskBytes_(std::make_shared<double>(0)) {
  // A quarter of a pixel more or less can not be seen, and curves become far fewer lines.
  cairo_set_tolerance(context_.get(), 0.2);
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
  ClipToBox(context, bounds);
  cairo_set_operator(context, blend);
  if (!clip.mask) {
    draw(context);
    return;
  }
  if (!budget_.Spend(perGroupPixel * bounds.Area())) return;
  const CairoSurface group = BlankSurface(bounds, CAIRO_FORMAT_ARGB32);
  const CairoContext inner(cairo_create(group.get()));
  cairo_set_tolerance(inner.get(), 0.2);
  draw(inner.get());
  cairo_set_source_surface(context, group.get(), 0, 0);
  cairo_mask_surface(context, clip.mask.get(), 0, 0);
}

void Canvas::SetInk(cairo_t* context, const Ink& ink, const Mix* mix) {
  const bool inverted = mix && mix->inverted;
  const std::uint32_t color = mix && mix->fixedColor ? *mix->fixedColor : ink.color;
  const bool fixed = mix && mix->fixedColor;
  CairoPattern pattern;
  if (!fixed && ink.kind == Ink::Kind::Hatched) {
    pattern = HatchPattern(ink.hatch, color, ink.background, ink.origin);
  } else if (!fixed && ink.kind == Ink::Kind::Tiled && !ink.tile.IsEmpty()) {
    pattern = TilePattern(ink.tile, ink.origin, ink.tileScale);
  } else {
    pattern = SolidPattern(inverted ? ~color : color);
  }
  cairo_set_source(context, pattern.get());
}

void Canvas::Fill(const Clip& clip, const Path& path, FillRule rule, const Ink& ink, int rasterOperation) {
  const Mix mix = MixOf(rasterOperation);
  if (ink.kind == Ink::Kind::None || mix.nothing || path.IsEmpty()) return;
  const Box visible = Visible(clip, path.Bounds());
  if (visible.IsEmpty() || !budget_.Spend(FillCost(path, visible))) return;
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
  const double touched = std::min(visible.Area(), lines.Length() * (width + 2) + pieces * width * width);
  if (!budget_.Spend(perShape + perStrokePoint * pieces + perEdgeRow * rows + perPixel * touched)) return;
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
  if (!budget_.Spend(perShape + cost * visible.Area())) return;

  const CairoSurface sources = BlankSurface(visible, CAIRO_FORMAT_RGB24);
  const CairoSurface patterns = BlankSurface(visible, CAIRO_FORMAT_RGB24);
  if (placed) {
    const CairoContext painter(cairo_create(sources.get()));
    cairo_set_source(painter.get(), placed->pattern.get());
    cairo_paint(painter.get());
  }
  if (UsesPattern(rasterOperation) && pattern.kind != Ink::Kind::None) {
    const CairoContext painter(cairo_create(patterns.get()));
    SetInk(painter.get(), pattern, nullptr);
    cairo_paint(painter.get());
  }
  cairo_surface_flush(surface_.get());
  const int left = static_cast<int>(visible.left), top = static_cast<int>(visible.top);
  const int width = static_cast<int>(visible.Width()), height = static_cast<int>(visible.Height());
  for (int y = 0; y < height; ++y) {
    std::uint32_t* const from = SurfaceRow(sources.get(), y);
    const std::uint32_t* const brush = SurfaceRow(patterns.get(), y);
    const std::uint32_t* const below = pixels_.Row(top + y).data() + left;
    if (!from || !brush) return;
    for (int x = 0; x < width; ++x) from[x] = Combine(rasterOperation, brush[x], from[x], below[x]);
  }
  cairo_surface_mark_dirty(sources.get());
  Paint(clip, visible, CAIRO_OPERATOR_OVER, [&](cairo_t* context) {
    cairo_set_source_surface(context, sources.get(), 0, 0);
    Trace(context, outline);
    cairo_fill(context);
  });
}

void Canvas::DrawText(const Clip& clip, const TextFace& face, const std::string& text, const Matrix& toSheet,
                      std::uint32_t color) {
  const double size = toSheet.MeanScale();
  if (!toSheet.IsUsable() || !(size > 0.2) || text.empty()) return;
  const double letters = static_cast<double>(text.size());
  if (!budget_.Spend(perLetter * letters)) return;
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

std::shared_ptr<cairo_surface_t> Canvas::MakeMask() {
  const double bytes = area_.Area();
  if (*maskBytes_ + bytes > mostMaskBytes || !budget_.Spend(bytes)) return nullptr;
  *maskBytes_ += bytes;
  return {BlankSurface(area_, CAIRO_FORMAT_A8).release(),
          [counter = maskBytes_, bytes](cairo_surface_t* surface) {
            *counter -= bytes;
            cairo_surface_destroy(surface);
          }};
}

void Canvas::CombineClip(Clip& clip, const Path& path, FillRule rule, ClipMode mode) {
  const Box bounds = path.Bounds().GrownToWhole().Intersected(area_);
  if (mode == ClipMode::And || mode == ClipMode::Copy) {
    const bool all = mode == ClipMode::Copy;
    if (const auto box = path.IsEmpty() ? Box{} : path.AsBox()) {
      clip.box = box->Rounded().Intersected(all ? area_ : clip.box);
      if (all) clip.mask.reset();
      return;
    }
  }
  if (path.IsEmpty()) return;
  if (!budget_.Spend(FillCost(path, bounds) + area_.Area())) return;
  std::shared_ptr<cairo_surface_t> mask = MakeMask();
  if (!mask) return;
  const CairoContext painter(cairo_create(mask.get()));
  SetFillRule(painter.get(), rule);
  const auto paintOld = [&] {
    ClipToBox(painter.get(), clip.box);
    if (clip.mask) {
      cairo_set_source_surface(painter.get(), clip.mask.get(), 0, 0);
    } else {
      cairo_set_source_rgba(painter.get(), 0, 0, 0, 1);
    }
    cairo_paint(painter.get());
    cairo_reset_clip(painter.get());
  };
  const auto paintNew = [&](cairo_operator_t blend) {
    cairo_set_operator(painter.get(), blend);
    cairo_set_source_rgba(painter.get(), 0, 0, 0, 1);
    Trace(painter.get(), path);
    cairo_fill(painter.get());
  };
  const Box joined{std::min(clip.box.left, bounds.left), std::min(clip.box.top, bounds.top),
                   std::max(clip.box.right, bounds.right), std::max(clip.box.bottom, bounds.bottom)};
  switch (mode) {
    case ClipMode::Copy:
      paintNew(CAIRO_OPERATOR_OVER);
      clip.box = bounds;
      break;
    case ClipMode::And:
      paintNew(CAIRO_OPERATOR_OVER);
      cairo_set_operator(painter.get(), CAIRO_OPERATOR_IN);
      if (clip.mask) {
        cairo_set_source_surface(painter.get(), clip.mask.get(), 0, 0);
        cairo_paint(painter.get());
      }
      clip.box = clip.box.Intersected(bounds);
      break;
    case ClipMode::Or:
      paintOld();
      paintNew(CAIRO_OPERATOR_OVER);
      clip.box = joined;
      break;
    case ClipMode::Xor:
      paintOld();
      paintNew(CAIRO_OPERATOR_XOR);
      clip.box = joined;
      break;
    case ClipMode::Difference:
      paintOld();
      paintNew(CAIRO_OPERATOR_DEST_OUT);
      break;
  }
  clip.mask = std::move(mask);
}

}  // namespace lumidex::metafile
