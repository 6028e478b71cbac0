#include "pictures/metafile/outlining.h"

namespace lumidex::metafile {
namespace {

constexpr double perPoint = 60;
constexpr double perStrokePoint = 700;
// More dashes than this in one stroke are not told apart any more.
constexpr double mostDashes = 20000;

// How far lines reach to both sides together.
double Reach(const StrokeStyle& style) {
  return style.width * std::max(style.pen.HorizontalScale(), style.pen.VerticalScale()) *
         (style.join == CAIRO_LINE_JOIN_MITER ? std::max(1.0, style.miterLimit) : 1.0);
}

}  // namespace

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

Stroke::Stroke(const Path& path, const StrokeStyle& strokeStyle)
    : style(strokeStyle),
      lines(style.width * style.pen.MeanScale() < 1.5 ? path.WithCrispLines() : path),
      bounds(lines.Bounds().Grown(Reach(style) / 2)) {
  double period = 0;
  for (const double dash : style.dashes) period += dash;
  if (period > 0) dashes_ = lines.Length() / (period * style.pen.MeanScale());
  if (!(dashes_ * static_cast<double>(style.dashes.size()) < mostDashes)) dashes_ = 0;
}

double Stroke::Cost(const Box& visible) const {
  const double width = style.width * style.pen.MeanScale(), reach = Reach(style);
  const double pieces = static_cast<double>(lines.PointCount()) + 2 * dashes_;
  // Each piece has two sides, and ends as high as the line is wide.
  const double rows = 2 * lines.EdgeRows(visible.top - reach, visible.bottom + reach) +
                      pieces * 2 * std::min(width, visible.Height());
  const double columns = 2 * lines.EdgeColumns(visible.left - reach, visible.right + reach);
  const double touched = std::min(visible.Area(), lines.Length() * (width + 2) + pieces * width * width);
  return perShape + perStrokePoint * pieces + perEdgeRow * rows + perEdgeColumn * columns +
         perPixel * touched;
}

void Stroke::Paint(cairo_t* context) const {
  Trace(context, lines);
  cairo_matrix_t pen;
  cairo_matrix_init(&pen, style.pen.xx, style.pen.yx, style.pen.xy, style.pen.yy, 0, 0);
  cairo_set_matrix(context, &pen);
  cairo_set_line_width(context, style.width);
  cairo_set_line_cap(context, style.cap);
  cairo_set_line_join(context, style.join);
  cairo_set_miter_limit(context, std::max(1.0, style.miterLimit));
  cairo_set_dash(context, style.dashes.data(), dashes_ > 0 ? static_cast<int>(style.dashes.size()) : 0,
                 style.dashOffset);
  cairo_stroke(context);
  cairo_identity_matrix(context);
}

double FillCost(const Path& path, const Box& visible) {
  return perShape + perPoint * static_cast<double>(path.PointCount()) + perPixel * visible.Area() +
         perEdgeRow * path.EdgeRows(visible.top, visible.bottom) +
         perEdgeColumn * path.EdgeColumns(visible.left, visible.right);
}

}  // namespace lumidex::metafile
