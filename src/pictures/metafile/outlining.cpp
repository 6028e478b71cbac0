#include "pictures/metafile/outlining.h"

namespace lumidex::metafile {
namespace {

constexpr double perPoint = 60;

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

double FillCost(const Path& path, const Box& visible) {
  return perShape + perPoint * static_cast<double>(path.PointCount()) + perPixel * visible.Area() +
         perEdgeRow * path.EdgeRows(visible.top, visible.bottom) +
         perEdgeColumn * path.EdgeColumns(visible.left, visible.right);
}

}  // namespace lumidex::metafile
