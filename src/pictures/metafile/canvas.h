#pragma once
// The sheet that both metafile players draw on: outlines, pictures and text go in in pixels of the result
// and are painted through Cairo, antialiased, within a budget of work. What exceeds the budget is left out.

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "pictures/metafile/cairo_handles.h"
#include "pictures/metafile/clip.h"
#include "pictures/metafile/path.h"
#include "pictures/metafile/raster_operations.h"
#include "pictures/metafile/shading.h"
#include "pictures/metafile/text_face.h"
#include "pictures/metafile/work_budget.h"
#include "pictures/pixels.h"

namespace lumidex::metafile {

enum class FillRule { EvenOdd, Winding };

// What an area or line is painted with; colours are 0xRRGGBB.
struct Ink {
  enum class Kind { None, Solid, Hatched, Tiled, Shaded };
  Kind kind = Kind::None;
  std::uint32_t colour = 0;
  int hatch = 0;                              // as in hatches.h
  std::optional<std::uint32_t> background{};  // between the lines of a hatch; absent leaves the picture there
  Pixels tile{};
  // The tile's black and white stand for the text and background colours at the time of painting. Replaced
  // before the ink comes here.
  bool takesTextColours = false;
  Point origin{};
  double tileScale = 1;  // pixels of the result per pixel of the tile
  // Of tiles that are not laid on the device's pixels: from their pixels to the sheet (in a brush: to the
  // drawing's coordinates), and what follows at their edges.
  std::optional<Matrix> tileMap{};
  cairo_extend_t tileEdge = CAIRO_EXTEND_REPEAT;
  std::shared_ptr<const Shading> shading{};
  Matrix shadingToSheet{};
  double opacity = 1;  // of a solid colour
};

struct StrokeStyle {
  double width = 1;  // in units of `pen`
  Matrix pen;        // its linear part takes the round tip to the sheet: a pen may be wider than high
  cairo_line_cap_t cap = CAIRO_LINE_CAP_ROUND;
  cairo_line_join_t join = CAIRO_LINE_JOIN_ROUND;
  double miterLimit = 10;
  std::vector<double> dashes;  // lengths on and off in turn, in units of `pen`; none for a solid line
  double dashOffset = 0;       // how far into them lines begin
};

// A stretch of a picture and where it goes.
struct ImagePart {
  Pixels image;
  Box source;      // in pixels of the image
  Matrix toSheet;  // from pixels of the image to pixels of the sheet
};

struct ColourStop {
  Point at;
  std::uint32_t colour = 0;
};

class Canvas {
 public:
  enum class Use { Draw, Measure };
  // Draws into `pixels`, which must outlive the canvas and whose alpha is undefined until Finish.
  Canvas(Pixels& pixels, WorkBudget& budget, Use use = Use::Draw);
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  Box Area() const { return area_; }
  Clip WholeClip() const { return {area_, nullptr}; }
  // Joins `path` to the clip; nothing reaches beyond `base`, within which the clip lies already.
  void CombineClip(Clip& clip, const Clip& base, const Path& path, FillRule rule, ClipMode mode);
  // The same with another clip, and with what a stroke of `path` covers.
  void CombineClip(Clip& clip, const Clip& base, const Clip& other, ClipMode mode);
  void CombineClip(Clip& clip, const Clip& base, const Path& path, const StrokeStyle& style, ClipMode mode);
  // Keeps of the clip what the image is opaque on.
  void ClipToImage(Clip& clip, const ImagePart& part);

  // `rasterOperation` is a binary one, 1 to 16.
  void Fill(const Clip& clip, const Path& path, FillRule rule, const Ink& ink, int rasterOperation);
  void Stroke(const Clip& clip, const Path& path, const StrokeStyle& style, const Ink& ink,
              int rasterOperation);
  void DrawImage(const Clip& clip, const ImagePart& part, double opacity = 1);
  // `first` and `second` lie where the colour is that of their own, which goes on beyond them.
  void FillGradient(const Clip& clip, const Path& path, const ColourStop& first, const ColourStop& second);
  // A ternary raster operation over `area`, bit by bit; `source` may be absent when it takes no source.
  void Transfer(const Clip& clip, const Path& area, int rasterOperation, const ImagePart* source,
                const Ink& pattern);
  // Fills the part around `at` that its edge or its own colour bounds: with `surface` set, as far as `color`
  // goes, else up to `color`. The colours of antialiased edges count as the edge.
  void Flood(const Clip& clip, Point at, std::uint32_t colour, bool surface, const Ink& ink);
  // Draws one line of text; `toSheet` takes ems (x to the right, y down) to the sheet.
  void DrawText(const Clip& clip, const TextFace& face, const std::string& text, const Matrix& toSheet,
                std::uint32_t colour);

  // The box of everything drawn so far, also of what lay outside the sheet; for canvases made to measure.
  std::optional<Box> DrawnBox() const { return drawnBox_; }
  // Whether something drawn depended on what is drawn around it, as colour that flows up to an edge.
  bool LookedAround() const { return lookedAround_; }
  // Sets every alpha to opaque; nothing may be drawn afterwards.
  void Finish();
  WorkBudget& Budget() { return budget_; }

 private:
  using Draw = std::function<void(cairo_t*)>;
  // Lets `draw` paint what shows of `bounds` through the clip.
  void Paint(const Clip& clip, const Box& bounds, const Draw& draw);
  // Paints `shape`, a fill or stroke of a path, in the colours that a ternary operation gives bit by bit;
  // a pattern of no ink and a source that is null count as black. With `smoothed`, a masking operation works
  // on channels instead.
  void PaintBits(const Clip& clip, const Box& visible, int operation, cairo_pattern_t* source, bool smoothed,
                 const Ink& pattern, const Draw& shape);
  // Paints `shape`, whose drawing costs `cost`, with a binary operation.
  void PaintShape(const Clip& clip, const Box& visible, const Ink& ink, int operation, double cost,
                  const Draw& shape);
  // Sets the ink for painting within `visible`.
  void SetInk(cairo_t* context, const Ink& ink, const Box& visible);
  // What `ink` costs beyond a plain colour.
  double InkCost(const Ink& ink, const Box& visible) const;
  bool HoldsTile(const Pixels& tile) const;
  cairo_surface_t* TileSurface(const Pixels& tile);
  std::shared_ptr<cairo_surface_t> MakeMask();
  // What `paint` covers with its operator, all of it within `bounds`, joins the clip.
  using PaintCover = std::function<void(cairo_t*, cairo_operator_t)>;
  void JoinCover(Clip& clip, const Clip& base, const Box& bounds, ClipMode mode, double cost,
                 const PaintCover& paint);
  // The part of `bounds` that shows; empty when nothing does. Remembers the bounds for DrawnBox.
  Box Visible(const Clip& clip, const Box& bounds);

  Pixels& pixels_;
  WorkBudget& budget_;
  Box area_;
  CairoSurface surface_;
  CairoContext context_;
  bool measures_;
  bool lookedAround_ = false;
  std::optional<Box> drawnBox_;
  std::shared_ptr<double> maskBytes_;  // shared with the masks, which may live longer than this
  Pixels tile_;                        // of the tiled ink used last, and its copy
  CairoSurface tileSurface_;

  // The renderer keeps letters it has drawn, each for one face, size and slant.
  struct LetterShape {
    const void* face = nullptr;
    double xx = 0, yx = 0, xy = 0, yy = 0;
    bool operator==(const LetterShape&) const = default;
  };
  LetterShape lastLetters_;
};

}  // namespace lumidex::metafile
