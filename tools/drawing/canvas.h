#pragma once
// A drawing surface for the programs that make this project's own pictures: paths, paints and text over
// Cairo, with the finished drawing handed out as pixels.

#include <cairo.h>

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "pictures/size.h"

namespace lumidex {

class Pixels;

// Channels from 0 to 1, straight alpha.
struct Colour {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;
};

// From 0xRRGGBB.
constexpr Colour Hex(std::uint32_t rgb, double alpha = 1) {
  return {static_cast<double>(rgb >> 16 & 255) / 255, static_cast<double>(rgb >> 8 & 255) / 255,
          static_cast<double>(rgb & 255) / 255, alpha};
}
// `share` of 0 is `from`, 1 is `to`.
Colour Mix(Colour from, Colour to, double share);

struct Point {
  double x = 0;
  double y = 0;
};

// What a path is filled or stroked with: one colour, or a gradient in the canvas's units.
class Paint {
 public:
  struct Stop {
    double offset;  // 0 to 1
    Colour colour;
  };
  using Stops = std::initializer_list<Stop>;

  Paint(Colour colour);
  static Paint Linear(Point from, Point to, Stops stops);
  static Paint Vertical(double top, double bottom, Colour from, Colour to);
  static Paint Radial(Point centre, double radius, Stops stops);

  cairo_pattern_t* Pattern() const { return pattern_.get(); }

 private:
  explicit Paint(cairo_pattern_t* pattern, Stops stops);
  std::shared_ptr<cairo_pattern_t> pattern_;
};

// One filled or outlined path as polygons, for formats that store drawings; in pixels of the canvas.
struct DrawnShape {
  std::vector<std::vector<Point>> outlines;
  std::optional<Colour> fill;
  std::optional<Colour> line;
  double lineWidth = 0;
};

enum class Weight { Normal, Bold };

class Canvas {
 public:
  // `size` in pixels; drawing happens on a grid of `grid` units a row, whatever the size. Starts transparent.
  Canvas(Size size, double grid);
  explicit Canvas(Size size) : Canvas(size, size.width) {}

  double Width() const { return width_; }    // in units
  double Height() const { return height_; }  // in units
  cairo_t* Context() const { return context_.get(); }

  // Paths; they add up until they are filled, stroked or clipped to. Angles in degrees, clockwise from east.
  void MoveTo(double x, double y);
  void LineTo(double x, double y);
  void CurveTo(Point first, Point second, Point end);
  void Close();
  void Line(double x1, double y1, double x2, double y2);
  void Rectangle(double x, double y, double width, double height);
  void RoundedRectangle(double x, double y, double width, double height, double radius);
  void Circle(double x, double y, double radius);
  void Ellipse(double x, double y, double radiusX, double radiusY);
  void Arc(double x, double y, double radius, double fromAngle, double toAngle);
  void Polygon(std::initializer_list<Point> points);
  // A smooth line through the points; closed makes a blob.
  void Smooth(std::initializer_list<Point> points, bool closed);

  // These end the path.
  void Fill(const Paint& paint);
  void Stroke(const Paint& paint, double width);
  void FillAndStroke(const Paint& fill, const Paint& line, double width);
  void Clip();
  void FillAll(const Paint& paint);

  // From now on notes down every path that is filled or stroked. Only plain colours can be noted: a gradient
  // raises std::logic_error.
  void NoteShapes(std::vector<DrawnShape>* into) { shapes_ = into; }

  // Text in the sans family, centred on x, its capitals resting on the base line y.
  void Text(const std::string& text, double x, double y, double size, Weight weight, const Paint& paint);
  // Traces the text as a path instead.
  void TextPath(const std::string& text, double x, double y, double size, Weight weight);
  double TextWidth(const std::string& text, double size, Weight weight);

  void Translate(double x, double y) { cairo_translate(Context(), x, y); }
  void Scale(double x, double y) { cairo_scale(Context(), x, y); }
  void Rotate(double degrees);

  // Runs `draw` and undoes its changes to clip and transformation.
  template <class Draw>
  void Within(Draw&& draw) {
    cairo_save(Context());
    std::forward<Draw>(draw)();
    cairo_restore(Context());
  }
  // Runs `draw` on a layer of its own and lays that down with `alpha`.
  template <class Draw>
  void Layer(double alpha, Draw&& draw) {
    cairo_push_group(Context());
    std::forward<Draw>(draw)();
    cairo_pop_group_to_source(Context());
    cairo_paint_with_alpha(Context(), alpha);
  }

  // With straight alpha; PixelFormat::Rgb when every pixel is opaque.
  Pixels ToPixels() const;

 private:
  void SetFont(double size, Weight weight);
  void Note(const Paint* fill, const Paint* line, double lineWidth);
  std::shared_ptr<cairo_surface_t> surface_;
  std::shared_ptr<cairo_t> context_;
  double width_;
  double height_;
  std::vector<DrawnShape>* shapes_ = nullptr;
};

}  // namespace lumidex
