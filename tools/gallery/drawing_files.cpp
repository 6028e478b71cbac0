#include "gallery/drawing_files.h"

#include <algorithm>
#include <cmath>

#include "gallery/encoders/byte_writer.h"
#include "gallery/encoders/emf_encoder.h"
#include "gallery/encoders/wmf_encoder.h"

namespace lumidex {
namespace {

constexpr unsigned SolidStyle = 0, NullBrushStyle = 1, NullPenStyle = 5;
constexpr int Anisotropic = 8, WindingFill = 2;

// Functions and types of the records that the writers have no name for.
namespace wmf {
constexpr unsigned SetMapMode = 0x0103, SetPolygonFillMode = 0x0106, Polyline = 0x0325, PolyPolygon = 0x0538;
}
namespace emf {
constexpr unsigned SetWindowExtent = 9, SetViewportExtent = 11, SetMapMode = 17, SetPolygonFillMode = 19,
                   PolyPolyline = 90, PolyPolygon = 91;
}

// A pen or a brush; without a colour it draws nothing.
struct Tool {
  bool pen = false;
  bool visible = false;
  std::uint32_t colour = 0;  // 0xRRGGBB
  int width = 0;
  bool operator==(const Tool&) const = default;

  unsigned Style() const { return visible ? SolidStyle : pen ? NullPenStyle : NullBrushStyle; }
};

Tool MakeTool(bool pen, const std::optional<Colour>& colour, double width) {
  if (!colour) return {.pen = pen};
  const auto channel = [](double value) { return static_cast<std::uint32_t>(std::lround(value * 255)); };
  return {pen, true, channel(colour->red) << 16 | channel(colour->green) << 8 | channel(colour->blue),
          static_cast<int>(std::lround(width))};
}

Tool PenOf(const DrawnShape& shape) {
  return MakeTool(true, shape.line, shape.lineWidth);
}

Tool BrushOf(const DrawnShape& shape) {
  return MakeTool(false, shape.fill, 0);
}

// Every tool once, its place being its number in the file's object table.
std::vector<Tool> ToolsOf(const NotedDrawing& drawing) {
  std::vector<Tool> tools;
  for (const DrawnShape& shape : drawing.shapes)
    for (const Tool& tool : {PenOf(shape), BrushOf(shape)})
      if (std::ranges::find(tools, tool) == tools.end()) tools.push_back(tool);
  return tools;
}

int NumberOf(const std::vector<Tool>& tools, const Tool& tool) {
  return static_cast<int>(std::ranges::find(tools, tool) - tools.begin());
}

std::uint32_t Coordinate(double value) {
  return static_cast<std::uint32_t>(std::lround(value));
}

void PutPoints(ByteWriter& writer, const std::vector<Point>& points) {
  for (const Point& point : points) writer.U16Le(Coordinate(point.x)).U16Le(Coordinate(point.y));
}

std::uint32_t Count(const std::vector<Point>& points) {
  return static_cast<std::uint32_t>(points.size());
}

void PutShape(WmfWriter& writer, const DrawnShape& shape) {
  if (!shape.fill) {
    for (const std::vector<Point>& outline : shape.outlines) {
      ByteWriter points;
      PutPoints(points, outline);
      writer.Record(wmf::Polyline, {static_cast<int>(outline.size())}, points.Take());
    }
    return;
  }
  ByteWriter polygons;
  for (const std::vector<Point>& outline : shape.outlines) polygons.U16Le(Count(outline));
  for (const std::vector<Point>& outline : shape.outlines) PutPoints(polygons, outline);
  writer.Record(wmf::PolyPolygon, {static_cast<int>(shape.outlines.size())}, polygons.Take());
}

void PutShape(EmfWriter& writer, const DrawnShape& shape) {
  double left = shape.outlines[0][0].x, right = left, top = shape.outlines[0][0].y, bottom = top;
  std::uint32_t points = 0;
  for (const std::vector<Point>& outline : shape.outlines) {
    points += Count(outline);
    for (const Point& point : outline) {
      left = std::min(left, point.x);
      right = std::max(right, point.x);
      top = std::min(top, point.y);
      bottom = std::max(bottom, point.y);
    }
  }
  ByteWriter outlines;
  for (const std::vector<Point>& outline : shape.outlines) outlines.U32Le(Count(outline));
  for (const std::vector<Point>& outline : shape.outlines) PutPoints(outlines, outline);
  writer.Record(shape.fill ? emf::PolyPolygon : emf::PolyPolyline,
                {Coordinate(left), Coordinate(top), Coordinate(right), Coordinate(bottom),
                 static_cast<std::int64_t>(shape.outlines.size()), points},
                outlines.Take());
}

}  // namespace

std::vector<std::uint8_t> EncodeWmf(const NotedDrawing& drawing) {
  const int width = drawing.size.width * NotedDrawing::Fineness;
  const int height = drawing.size.height * NotedDrawing::Fineness;
  const std::vector<Tool> tools = ToolsOf(drawing);
  WmfWriter writer;
  writer.Record(wmf::SetMapMode, {Anisotropic}).Window(0, 0, width, height);
  writer.Record(wmf::SetPolygonFillMode, {WindingFill});
  for (const Tool& tool : tools) {
    if (tool.pen)
      writer.CreatePen(tool.Style(), tool.width, tool.colour);
    else
      writer.CreateBrush(tool.Style(), tool.colour);
  }
  for (const DrawnShape& shape : drawing.shapes) {
    for (const Tool& tool : {PenOf(shape), BrushOf(shape)}) writer.Select(NumberOf(tools, tool));
    PutShape(writer, shape);
  }
  return writer.File(WmfWriter::Placing{0, 0, width, height, 96 * NotedDrawing::Fineness});
}

std::vector<std::uint8_t> EncodeEmf(const NotedDrawing& drawing) {
  const int width = drawing.size.width, height = drawing.size.height;
  const std::vector<Tool> tools = ToolsOf(drawing);
  EmfWriter writer(width, height);
  writer.Record(emf::SetMapMode, {Anisotropic});
  writer.Record(emf::SetWindowExtent, {width * NotedDrawing::Fineness, height * NotedDrawing::Fineness});
  writer.Record(emf::SetViewportExtent, {width, height});
  writer.Record(emf::SetPolygonFillMode, {WindingFill});
  // Number 0 is the file itself.
  for (const Tool& tool : tools) {
    const int number = NumberOf(tools, tool) + 1;
    if (tool.pen)
      writer.CreatePen(number, tool.Style(), tool.width, tool.colour);
    else
      writer.CreateBrush(number, tool.Style(), tool.colour);
  }
  for (const DrawnShape& shape : drawing.shapes) {
    for (const Tool& tool : {PenOf(shape), BrushOf(shape)}) writer.Select(NumberOf(tools, tool) + 1);
    PutShape(writer, shape);
  }
  return writer.File();
}

}  // namespace lumidex
