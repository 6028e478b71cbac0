#include "pictures/metafile/pen_and_brush.h"

#include <algorithm>
#include <array>

namespace lumidex::metafile {
namespace {

using namespace pen_style;

// A pen's tip on the sheet.
struct Tip {
  bool isGeometric = false;
  bool isThin = false;   // and so drawn one pixel wide
  double reach = 0;      // its width on the sheet where it is widest
  double meanScale = 1;  // of lengths on their way to the sheet
};

using Lengths = std::array<double, 6>;

void AppendLengths(std::vector<double>& dashes, const Lengths& lengths, double unit) {
  for (const double length : lengths)
    if (length > 0) dashes.push_back(length * unit);
}

void SetDashes(StrokeStyle& style, const Pen& pen, const Tip& tip, double unitOnSheet) {
  constexpr std::array<Lengths, 4> multiplesOfWidth = {{{3, 1}, {1, 1}, {3, 1, 1, 1}, {3, 1, 1, 1, 1, 1}}};
  constexpr std::array<Lengths, 4> deviceLengths = {{{18, 6}, {3, 3}, {9, 6, 3, 6}, {9, 3, 3, 3, 3, 3}}};
  const unsigned dash = pen.style & dashMask;
  const bool isNumbered = dash >= 1 && dash <= multiplesOfWidth.size();
  if (dash == user) {
    // The lengths of a thin pen are those of the sheet.
    const double scale = tip.isThin && tip.isGeometric ? tip.meanScale : 1;
    for (const double length : pen.dashes)
      style.dashes.push_back(std::max(tip.isThin ? 1.0 : 1e-3, length * scale));
    style.dashOffset = pen.dashOffset * scale;
  } else if (dash == alternate) {
    style.dashes = {1, 1};
  } else if (isNumbered && tip.isGeometric) {
    AppendLengths(style.dashes, multiplesOfWidth[dash - 1], style.width);
    if (!tip.isThin) style.dashOffset = pen.dashOffset;
  } else if (isNumbered && tip.reach <= 1.001 * std::max(1.0, unitOnSheet)) {
    AppendLengths(style.dashes, deviceLengths[dash - 1], std::max(1.0, unitOnSheet));
  }
}

}  // namespace

StrokeStyle StyleOfPen(const DeviceContext& context) {
  const DeviceState& state = context.State();
  const Pen& pen = state.pen;
  Tip tip{.isGeometric = (pen.style & geometric) != 0};
  StrokeStyle style;
  const Matrix map = context.LogicalToSheet();
  tip.meanScale = map.MeanScale();
  style.miterLimit = state.miterLimit;
  style.width = std::clamp(std::abs(pen.width), 0.0, 1e6);
  style.pen = {.xx = map.xx, .yx = map.yx, .xy = map.xy, .yy = map.yy};
  if (!tip.isGeometric) style.pen = {.xx = map.HorizontalScale(), .yy = map.HorizontalScale()};
  tip.reach = std::max(style.pen.HorizontalScale(), style.pen.VerticalScale()) * style.width;
  tip.isThin = !style.pen.IsUsable() || style.width * style.pen.MeanScale() < 1;
  if (tip.isThin || !(tip.reach < 1e5)) {
    style.width = 1;
    style.pen = {};
  }
  const unsigned cap = pen.style & capMask, join = pen.style & joinMask;
  style.cap = cap == capSquare ? CAIRO_LINE_CAP_SQUARE
              : cap == capFlat ? CAIRO_LINE_CAP_BUTT
                               : CAIRO_LINE_CAP_ROUND;
  style.join = join == joinBevel   ? CAIRO_LINE_JOIN_BEVEL
               : join == joinMiter ? CAIRO_LINE_JOIN_MITER
                                   : CAIRO_LINE_JOIN_ROUND;
  // A round tip on a line of one pixel only blurs its ends.
  if (tip.isThin && cap == 0) style.cap = CAIRO_LINE_CAP_SQUARE;
  SetDashes(style, pen, tip, context.UnitOnSheet());
  if (!style.dashes.empty() && cap == 0 && !pen.roundDashes) style.cap = CAIRO_LINE_CAP_BUTT;
  return style;
}

void StrokePath(DeviceContext& context, const Path& onSheet) {
  const DeviceState& state = context.State();
  if ((state.pen.style & dashMask) == null) return;
  const StrokeStyle style = StyleOfPen(context);
  if (!style.dashes.empty() && !(state.pen.style & geometric) && state.opaqueBackground) {
    StrokeStyle solid = style;
    solid.dashes.clear();
    const Ink gaps{.kind = Ink::Kind::Solid, .colour = state.backgroundColour};
    context.GetCanvas().Stroke(state.clip, onSheet, solid, gaps, state.rasterOperation);
  }
  context.GetCanvas().Stroke(state.clip, onSheet, style, context.Completed(state.pen.ink),
                             state.rasterOperation);
}

void FillPath(DeviceContext& context, const Path& onSheet) {
  const DeviceState& state = context.State();
  context.GetCanvas().Fill(state.clip, onSheet, state.fillRule, context.Completed(state.brush),
                           state.rasterOperation);
}

void FillStroke(DeviceContext& context, const Path& onSheet) {
  const DeviceState& state = context.State();
  context.GetCanvas().Stroke(state.clip, onSheet, StyleOfPen(context), context.Completed(state.brush),
                             state.rasterOperation);
}

}  // namespace lumidex::metafile
