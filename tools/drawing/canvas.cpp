#include "drawing/canvas.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>
#include <vector>

#include "pictures/pixels.h"

namespace lumidex {
namespace {

double Radians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

std::uint32_t Straight(std::uint32_t premultiplied) {
  const std::uint32_t alpha = premultiplied >> 24;
  if (alpha == 0) return 0;
  const auto channel = [&](int shift) { return ((premultiplied >> shift & 255) * 255 + alpha / 2) / alpha; };
  return alpha << 24 | channel(16) << 16 | channel(8) << 8 | channel(0);
}

Colour PlainColour(const Paint& paint) {
  Colour colour;
  if (cairo_pattern_get_rgba(paint.Pattern(), &colour.red, &colour.green, &colour.blue, &colour.alpha) !=
      CAIRO_STATUS_SUCCESS)
    throw std::logic_error("a gradient has no plain colour");
  return colour;
}

}  // namespace

Colour Mix(Colour from, Colour to, double share) {
  const auto mix = [&](double a, double b) { return a + (b - a) * share; };
  return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue),
          mix(from.alpha, to.alpha)};
}

Paint::Paint(Colour colour)
    : Paint(cairo_pattern_create_rgba(colour.red, colour.green, colour.blue, colour.alpha), {}) {}

Paint::Paint(cairo_pattern_t* pattern, Stops stops) : pattern_(pattern, cairo_pattern_destroy) {
  for (const Stop& stop : stops) {
    const Colour& colour = stop.colour;
    cairo_pattern_add_color_stop_rgba(pattern, stop.offset, colour.red, colour.green, colour.blue,
                                      colour.alpha);
  }
}

Paint Paint::Linear(Point from, Point to, Stops stops) {
  return Paint(cairo_pattern_create_linear(from.x, from.y, to.x, to.y), stops);
}

Paint Paint::Vertical(double top, double bottom, Colour from, Colour to) {
  return Linear({0, top}, {0, bottom}, {{0, from}, {1, to}});
}

Paint Paint::Radial(Point centre, double radius, Stops stops) {
  return Paint(cairo_pattern_create_radial(centre.x, centre.y, 0, centre.x, centre.y, radius), stops);
}

Canvas::Canvas(Size size, double grid)
    : surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size.width, size.height),
               cairo_surface_destroy),
      context_(cairo_create(surface_.get()), cairo_destroy),
      width_(grid),
      height_(grid * size.height / size.width) {
  Scale(size.width / grid, size.width / grid);
  cairo_set_line_join(Context(), CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_cap(Context(), CAIRO_LINE_CAP_ROUND);
}

void Canvas::MoveTo(double x, double y) {
  cairo_move_to(Context(), x, y);
}

void Canvas::LineTo(double x, double y) {
  cairo_line_to(Context(), x, y);
}

void Canvas::CurveTo(Point first, Point second, Point end) {
  cairo_curve_to(Context(), first.x, first.y, second.x, second.y, end.x, end.y);
}

void Canvas::Close() {
  cairo_close_path(Context());
}

void Canvas::Line(double x1, double y1, double x2, double y2) {
  MoveTo(x1, y1);
  LineTo(x2, y2);
}

void Canvas::Rectangle(double x, double y, double width, double height) {
  cairo_rectangle(Context(), x, y, width, height);
}

void Canvas::RoundedRectangle(double x, double y, double width, double height, double radius) {
  cairo_new_sub_path(Context());
  cairo_arc(Context(), x + width - radius, y + radius, radius, Radians(-90), 0);
  cairo_arc(Context(), x + width - radius, y + height - radius, radius, 0, Radians(90));
  cairo_arc(Context(), x + radius, y + height - radius, radius, Radians(90), Radians(180));
  cairo_arc(Context(), x + radius, y + radius, radius, Radians(180), Radians(270));
  Close();
}

void Canvas::Circle(double x, double y, double radius) {
  Ellipse(x, y, radius, radius);
}

void Canvas::Ellipse(double x, double y, double radiusX, double radiusY) {
  Within([&] {
    Translate(x, y);
    Scale(radiusX, radiusY);
    cairo_new_sub_path(Context());
    cairo_arc(Context(), 0, 0, 1, 0, Radians(360));
    Close();
  });
}

void Canvas::Arc(double x, double y, double radius, double fromAngle, double toAngle) {
  cairo_arc(Context(), x, y, radius, Radians(fromAngle), Radians(toAngle));
}

void Canvas::Polygon(std::initializer_list<Point> points) {
  cairo_new_sub_path(Context());
  for (const Point& point : points) LineTo(point.x, point.y);
  Close();
}

void Canvas::Smooth(std::initializer_list<Point> points, bool closed) {
  // Catmull-Rom: the tangent at a point is parallel to the line between its neighbours.
  const std::vector<Point> all(points);
  const auto count = static_cast<int>(all.size());
  const auto at = [&](int i) -> const Point& {
    return all[static_cast<std::size_t>(closed ? (i + count) % count : std::clamp(i, 0, count - 1))];
  };
  MoveTo(all[0].x, all[0].y);
  for (int i = 0; i < (closed ? count : count - 1); ++i) {
    const Point &before = at(i - 1), &from = at(i), &to = at(i + 1), &after = at(i + 2);
    CurveTo({from.x + (to.x - before.x) / 6, from.y + (to.y - before.y) / 6},
            {to.x - (after.x - from.x) / 6, to.y - (after.y - from.y) / 6}, to);
  }
  if (closed) Close();
}

void Canvas::Note(const Paint* fill, const Paint* line, double lineWidth) {
  if (!shapes_) return;
  DrawnShape shape;
  if (fill) shape.fill = PlainColour(*fill);
  if (line) shape.line = PlainColour(*line);
  double across = 0;
  shape.lineWidth = lineWidth;
  cairo_user_to_device_distance(Context(), &shape.lineWidth, &across);
  const std::unique_ptr<cairo_path_t, void (*)(cairo_path_t*)> path(cairo_copy_path_flat(Context()),
                                                                    cairo_path_destroy);
  for (int i = 0; i < path->num_data; i += path->data[i].header.length) {
    const cairo_path_data_t* data = &path->data[i];
    if (data->header.type == CAIRO_PATH_CLOSE_PATH) {
      shape.outlines.back().push_back(shape.outlines.back().front());
      continue;
    }
    Point point{data[1].point.x, data[1].point.y};
    cairo_user_to_device(Context(), &point.x, &point.y);
    if (data->header.type == CAIRO_PATH_MOVE_TO) shape.outlines.emplace_back();
    shape.outlines.back().push_back(point);
  }
  // Closing a path starts the next one on the same point, which is no outline until a line follows.
  std::erase_if(shape.outlines, [](const std::vector<Point>& outline) { return outline.size() < 2; });
  if (!shape.outlines.empty()) shapes_->push_back(std::move(shape));
}

void Canvas::Fill(const Paint& paint) {
  Note(&paint, nullptr, 0);
  cairo_set_source(Context(), paint.Pattern());
  cairo_fill(Context());
}

void Canvas::Stroke(const Paint& paint, double width) {
  Note(nullptr, &paint, width);
  cairo_set_source(Context(), paint.Pattern());
  cairo_set_line_width(Context(), width);
  cairo_stroke(Context());
}

void Canvas::FillAndStroke(const Paint& fill, const Paint& line, double width) {
  Note(&fill, nullptr, 0);
  cairo_set_source(Context(), fill.Pattern());
  cairo_fill_preserve(Context());
  Stroke(line, width);
}

void Canvas::Clip() {
  cairo_clip(Context());
}

void Canvas::FillAll(const Paint& paint) {
  Rectangle(0, 0, width_, height_);
  Note(&paint, nullptr, 0);
  cairo_new_path(Context());
  cairo_set_source(Context(), paint.Pattern());
  cairo_paint(Context());
}

void Canvas::SetFont(double size, Weight weight) {
  cairo_select_font_face(Context(), "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL,
                         weight == Weight::Bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(Context(), size);
}

double Canvas::TextWidth(const std::string& text, double size, Weight weight) {
  SetFont(size, weight);
  cairo_text_extents_t extents;
  cairo_text_extents(Context(), text.c_str(), &extents);
  return extents.width;
}

void Canvas::TextPath(const std::string& text, double x, double y, double size, Weight weight) {
  SetFont(size, weight);
  cairo_text_extents_t extents;
  cairo_text_extents(Context(), text.c_str(), &extents);
  MoveTo(x - extents.width / 2 - extents.x_bearing, y);
  cairo_text_path(Context(), text.c_str());
}

void Canvas::Text(const std::string& text, double x, double y, double size, Weight weight,
                  const Paint& paint) {
  TextPath(text, x, y, size, weight);
  Fill(paint);
}

void Canvas::Rotate(double degrees) {
  cairo_rotate(Context(), Radians(degrees));
}

Pixels Canvas::ToPixels() const {
  cairo_surface_flush(surface_.get());
  const Size size{cairo_image_surface_get_width(surface_.get()),
                  cairo_image_surface_get_height(surface_.get())};
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface_.get())) / 4;
  const auto* words = reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(surface_.get()));
  bool opaque = true;
  for (int y = 0; y < size.height; ++y)
    for (int x = 0; x < size.width; ++x)
      opaque =
          opaque && words[static_cast<std::size_t>(y) * stride + static_cast<std::size_t>(x)] >> 24 == 255;
  Pixels pixels = Pixels::MakeUnfilled(size, opaque ? PixelFormat::Rgb : PixelFormat::Argb);
  for (int y = 0; y < size.height; ++y) {
    const std::span<std::uint32_t> row = pixels.Row(y);
    for (std::size_t x = 0; x < row.size(); ++x)
      row[x] = Straight(words[static_cast<std::size_t>(y) * stride + x]);
  }
  return pixels;
}

}  // namespace lumidex
