#pragma once
// The drawing interface that both kinds of metafile play into: logical coordinates, a state that can be
// saved, selected objects, path brackets. Ends on the canvas.

#include <array>
#include <functional>
#include <span>
#include <utility>
#include <vector>

#include "pictures/metafile/canvas.h"
#include "pictures/metafile/device_state.h"
#include "pictures/metafile/stage.h"

namespace lumidex::metafile {

// The sheet of paper a metafile believes to draw on.
struct Device {
  Matrix toSheet;  // from device units to pixels of the result
  Point pixelsPerMillimetre{96 / 25.4, 96 / 25.4};
  // Enhanced metafiles store boxes with their last row and column, the older ones without.
  bool boxesIncludeEdge = false;
  double mirroredAt = 0;       // twice the x about which right-to-left layouts are mirrored, device units
  std::optional<Clip> within;  // as in a stage
  int depth = 0;
};

// One letter, or several that belong together, and how far it moves the pen if the record says.
struct TextUnit {
  std::string text;    // UTF-8
  double advance = 0;  // logical units
  double rise = 0;     // and upwards from the line
};

struct TextLine {
  Point at;
  std::vector<TextUnit> units;
  bool hasAdvances = false;
  Box box;
  bool fillBox = false;
  bool clipToBox = false;
};

struct Blit {
  Point target;  // logical units
  Point targetSize;
  Box source;  // pixels of the image, from its top; a negative extent mirrors
  int rasterOperation = sourceCopy;
};

Box TargetBox(const Blit& blit);

// Of one bit a pixel: any colour but black is a one.
struct Mask {
  const Pixels& pixels;
  Point from;  // the pixel that lies at the target's corner
};

class Drawing {
 public:
  Drawing(Canvas& canvas, const Device& device);

  // A drawing on the same sheet in the state that all drawings begin in.
  Drawing Fresh() const { return Drawing(canvas_, device_); }

  // Where a metafile inside this one goes that fills what the map makes of the unit square.
  Stage StageFor(const Matrix& unitToLogical);

  DeviceState& State() { return state_; }
  Canvas& Sheet() { return canvas_; }
  void Save();
  // A negative number counts back from the newest state, a positive one from the oldest.
  void Restore(int which);
  void Select(const Object& object);
  // A colour as records store it (0xTTBBGGRR; its top byte may name a palette entry) as 0xRRGGBB.
  std::uint32_t Color(std::uint32_t stored) const;

  void MoveTo(Point to);
  void LineTo(Point to);
  void Polyline(std::span<const Point> points);
  void PolylineTo(std::span<const Point> points);
  void Polygon(std::span<const Point> points);
  // One shape of several outlines, `counts` points each.
  void PolyPolygon(std::span<const Point> points, std::span<const std::uint32_t> counts);
  // The first point is the start, each further three a curve.
  void Curves(std::span<const Point> points);
  void CurvesTo(std::span<const Point> points);
  void Rectangle(const Box& box);
  void RoundRectangle(const Box& box, Point corner);
  void Ellipse(const Box& box);
  enum class ArcKind { Open, Chord, Pie, Continued };
  void Arc(const Box& box, Point start, Point end, ArcKind kind);
  // An arc of a circle from a line to its start; degrees, counterclockwise.
  void AngleArc(Point centre, double radius, double startAngle, double sweepAngle);
  void SetPixel(Point at, std::uint32_t color);
  // The boxes are in logical units.
  void FillRegion(std::span<const Box> boxes, const Brush& brush);
  // Paints the region's edge, inside it, `edge` wide and high.
  void FrameRegion(std::span<const Box> boxes, const Brush& brush, Point edge);
  void InvertRegion(std::span<const Box> boxes);
  // Fills with the brush from `at` to the edge of that colour or, with `surface` set, of the part in that
  // colour.
  void FloodFill(Point at, std::uint32_t color, bool surface);
  // Draws a path given in logical units with the selected pen and, when `filled`, brush. In a path bracket a
  // shape that `continues` starts from where the bracket's path ends.
  void Shape(const Path& logical, bool filled, bool continues = false);

  void BeginPath();
  void EndPath();
  void AbortPath();
  void CloseFigure();
  void DrawPath(bool filled, bool stroked);
  void ClipToPath(ClipMode mode);
  // Makes the path the outline of what its stroke would cover.
  void WidenPath() { pathWidened_ = true; }

  void ClipBox(const Box& box, ClipMode mode);
  void ClipRegion(std::span<const Box> boxes, ClipMode mode, bool inDeviceUnits);
  void OffsetClip(Point by);
  void ResetClip();
  // From here on the clip can only become smaller than it is now.
  void KeepClip() { state_.base = state_.clip; }

  void Text(TextLine line);
  // How wide letters of the selected font are without further spacing, logical units; 0 when the budget is
  // spent.
  double TextWidth(const std::string& text);

  void Transfer(const Blit& blit, const Pixels& image);
  // Transfers where the mask has ones, and with the other operation where it has zeros; the image may be null
  // when none of the two takes one.
  void TransferMasked(const Blit& blit, const Pixels* image, const Mask& mask, int zerosOperation);
  // A raster operation that takes no image.
  void TransferPattern(const Box& box, int rasterOperation);
  // Blends with the image's own transparency and `opacity`.
  void Blend(const Blit& blit, const Pixels& image, double opacity);
  // Draws the image into the parallelogram with these corners: top left, top right, bottom left.
  void Parallelogram(const Box& source, std::span<const Point, 3> corners, const Pixels& image);

  struct Vertex {
    Point at;
    std::uint32_t color = 0;
  };
  // A box between two corners, its colour running from the left (or upper) one's to the other's.
  void GradientBox(const Vertex& first, const Vertex& second, bool across);
  void GradientTriangle(const std::array<Vertex, 3>& corners);

  Matrix LogicalToSheet() const;
  // How many device units a logical unit takes, across and down.
  Point DeviceScale() const;

 private:
  Matrix PageToDevice() const;
  Path RegionOnSheet(std::span<const Box> boxes) const;
  // The selected brush or a pen's ink with what the state adds to it.
  Ink Completed(const Ink& ink);
  Pixels InTextColors(const Pixels& tile);
  StrokeStyle PenStyle() const;
  // Pays for handling so many points; false when they are too many.
  bool AffordPoints(std::size_t count);
  // Adds to the path of an open bracket, up to a bound on its length.
  void Extend(const Path& onSheet, bool continues);
  void StrokeSheet(const Path& path);
  void FillSheet(const Path& path);
  // The area that the selected pen would cover.
  void FillWidened(const Path& path);
  // A shape in a box: `add` appends it to the path, within the box it is given.
  // The map takes logical units to those of the box.
  using AddToPath = std::function<void(Path&, const Box&, const Matrix&)>;
  void BoxShape(const Box& box, bool filled, const AddToPath& add, bool continues = false);
  Matrix BlitMatrix(const Blit& blit) const;
  Path SheetBox(const Box& logical) const;
  // The selected font, or one in its place that has these letters.
  const TextFace& FaceFor(const std::string& text);
  // The height of an em of the selected font, logical units.
  double EmHeight(const TextFace& face) const;
  double EmWidth(const TextFace& face) const;
  Matrix TextMatrix(double width, double height, Point at) const;
  // Moves the current position by so much on the sheet.
  void MoveOnSheet(Point by);
  // The length of one device unit on the sheet.
  double UnitOnSheet() const { return device_.toSheet.MeanScale(); }

  Canvas& canvas_;
  Device device_;
  DeviceState state_;
  std::vector<DeviceState> saved_;
  bool pathOpen_ = false;
  Path path_;  // on the sheet
  bool pathWidened_ = false;
  TextFaces faces_;
  // The tile that took on the text colours last, and what it became.
  struct {
    Pixels tile, result;
    std::uint32_t text = 0, background = 0;
  } inTextColors_;
};

}  // namespace lumidex::metafile
