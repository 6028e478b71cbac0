#include "gallery/drawing_files.h"

#include <algorithm>
#include <cmath>

#include "gallery/encoders/byte_writer.h"

namespace lumidex {
namespace {

constexpr std::uint32_t SolidStyle = 0, NullBrushStyle = 1, NullPenStyle = 5;
constexpr std::uint32_t Anisotropic = 8, WindingFill = 2;

// Functions and types of the records used here.
namespace wmf {
constexpr std::uint32_t End = 0, SetMapMode = 0x0103, SetPolygonFillMode = 0x0106, SelectObject = 0x012D,
                        SetWindowOrigin = 0x020B, SetWindowExtent = 0x020C, CreatePen = 0x02FA,
                        CreateBrush = 0x02FC, Polyline = 0x0325, PolyPolygon = 0x0538;
}
namespace emf {
constexpr std::uint32_t SetWindowExtent = 9, SetViewportExtent = 11, End = 14, SetMapMode = 17,
                        SetPolygonFillMode = 19, SelectObject = 37, CreatePen = 38, CreateBrush = 39,
                        PolyPolyline = 90, PolyPolygon = 91;
}

// A pen or a brush; without a colour it draws nothing.
struct Tool {
  bool pen = false;
  bool visible = false;
  std::uint32_t colour = 0;  // 0x00BBGGRR
  std::uint32_t width = 0;
  bool operator==(const Tool&) const = default;

  std::uint32_t Style() const { return visible ? SolidStyle : pen ? NullPenStyle : NullBrushStyle; }
};

Tool MakeTool(bool pen, const std::optional<Colour>& colour, double width) {
  if (!colour) return {.pen = pen};
  const auto channel = [](double value) { return static_cast<std::uint32_t>(std::lround(value * 255)); };
  return {pen, true, channel(colour->red) | channel(colour->green) << 8 | channel(colour->blue) << 16,
          static_cast<std::uint32_t>(std::lround(width))};
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

std::uint32_t NumberOf(const std::vector<Tool>& tools, const Tool& tool) {
  return static_cast<std::uint32_t>(std::ranges::find(tools, tool) - tools.begin());
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

// The records of a Windows metafile: length in words, function, parameters.
class WmfRecords {
 public:
  void Put(std::uint32_t function, ByteWriter parameters = {}) {
    const auto words = static_cast<std::uint32_t>(3 + parameters.Size() / 2);
    longest_ = std::max(longest_, words);
    records_.U32Le(words).U16Le(function).Append(parameters.Take());
  }
  void Put(std::uint32_t function, std::initializer_list<std::uint32_t> words) {
    ByteWriter parameters;
    for (const std::uint32_t word : words) parameters.U16Le(word);
    Put(function, std::move(parameters));
  }
  std::uint32_t Longest() const { return longest_; }
  std::vector<std::uint8_t> Take() { return records_.Take(); }

 private:
  ByteWriter records_;
  std::uint32_t longest_ = 0;
};

void PutTool(WmfRecords& records, const Tool& tool) {
  const std::uint32_t low = tool.colour & 0xFFFF, high = tool.colour >> 16;
  if (tool.pen)
    records.Put(wmf::CreatePen, {tool.Style(), tool.width, 0, low, high});
  else
    records.Put(wmf::CreateBrush, {tool.Style(), low, high, 0});
}

void PutShape(WmfRecords& records, const DrawnShape& shape) {
  if (!shape.fill) {
    for (const std::vector<Point>& outline : shape.outlines) {
      ByteWriter polyline;
      PutPoints(polyline.U16Le(Count(outline)), outline);
      records.Put(wmf::Polyline, std::move(polyline));
    }
    return;
  }
  ByteWriter polygons;
  polygons.U16Le(static_cast<std::uint32_t>(shape.outlines.size()));
  for (const std::vector<Point>& outline : shape.outlines) polygons.U16Le(Count(outline));
  for (const std::vector<Point>& outline : shape.outlines) PutPoints(polygons, outline);
  records.Put(wmf::PolyPolygon, std::move(polygons));
}

std::vector<std::uint8_t> PlaceableHeader(std::uint32_t width, std::uint32_t height) {
  constexpr std::uint32_t unitsAnInch = 96 * NotedDrawing::Fineness;
  ByteWriter header;
  header.U32Le(0x9AC6CDD7).U16Le(0).U16Le(0).U16Le(0).U16Le(width).U16Le(height).U16Le(unitsAnInch).U32Le(0);
  std::uint32_t checksum = 0;
  for (std::size_t i = 0; i < header.Size(); i += 2)
    checksum ^= header.Bytes()[i] | static_cast<std::uint32_t>(header.Bytes()[i + 1]) << 8;
  return header.U16Le(checksum).Take();
}

// The records of an enhanced metafile: type, length in bytes, parameters.
class EmfRecords {
 public:
  void Put(std::uint32_t type, ByteWriter parameters = {}) {
    records_.U32Le(type).U32Le(static_cast<std::uint32_t>(8 + parameters.Size())).Append(parameters.Take());
    ++count_;
  }
  void Put(std::uint32_t type, std::initializer_list<std::uint32_t> words) {
    ByteWriter parameters;
    for (const std::uint32_t word : words) parameters.U32Le(word);
    Put(type, std::move(parameters));
  }
  std::uint32_t RecordCount() const { return count_; }
  std::vector<std::uint8_t> Take() { return records_.Take(); }

 private:
  ByteWriter records_;
  std::uint32_t count_ = 0;
};

// Handle 0 is the file itself.
void PutTool(EmfRecords& records, const Tool& tool, std::uint32_t handle) {
  if (tool.pen)
    records.Put(emf::CreatePen, {handle, tool.Style(), tool.width, 0, tool.colour});
  else
    records.Put(emf::CreateBrush, {handle, tool.Style(), tool.colour, 0});
}

void PutShape(EmfRecords& records, const DrawnShape& shape) {
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
  ByteWriter record;
  for (const double side : {left, top, right, bottom}) record.U32Le(Coordinate(side));
  record.U32Le(static_cast<std::uint32_t>(shape.outlines.size())).U32Le(points);
  for (const std::vector<Point>& outline : shape.outlines) record.U32Le(Count(outline));
  for (const std::vector<Point>& outline : shape.outlines) PutPoints(record, outline);
  records.Put(shape.fill ? emf::PolyPolygon : emf::PolyPolyline, std::move(record));
}

}  // namespace

std::vector<std::uint8_t> EncodeWmf(const NotedDrawing& drawing) {
  const auto width = static_cast<std::uint32_t>(drawing.size.width * NotedDrawing::Fineness);
  const auto height = static_cast<std::uint32_t>(drawing.size.height * NotedDrawing::Fineness);
  const std::vector<Tool> tools = ToolsOf(drawing);
  WmfRecords records;
  records.Put(wmf::SetMapMode, {Anisotropic});
  records.Put(wmf::SetWindowOrigin, {0, 0});
  records.Put(wmf::SetWindowExtent, {height, width});
  records.Put(wmf::SetPolygonFillMode, {WindingFill});
  for (const Tool& tool : tools) PutTool(records, tool);
  for (const DrawnShape& shape : drawing.shapes) {
    for (const Tool& tool : {PenOf(shape), BrushOf(shape)})
      records.Put(wmf::SelectObject, {NumberOf(tools, tool)});
    PutShape(records, shape);
  }
  records.Put(wmf::End);
  const std::uint32_t longest = records.Longest();
  const std::vector<std::uint8_t> body = records.Take();
  ByteWriter file;
  file.Append(PlaceableHeader(width, height));
  file.U16Le(1).U16Le(9).U16Le(0x0300).U32Le(static_cast<std::uint32_t>(9 + body.size() / 2));
  file.U16Le(static_cast<std::uint32_t>(tools.size())).U32Le(longest).U16Le(0).Append(body);
  return file.Take();
}

std::vector<std::uint8_t> EncodeEmf(const NotedDrawing& drawing) {
  const auto width = static_cast<std::uint32_t>(drawing.size.width);
  const auto height = static_cast<std::uint32_t>(drawing.size.height);
  const std::vector<Tool> tools = ToolsOf(drawing);
  EmfRecords records;
  records.Put(emf::SetMapMode, {Anisotropic});
  records.Put(emf::SetWindowExtent, {width * NotedDrawing::Fineness, height * NotedDrawing::Fineness});
  records.Put(emf::SetViewportExtent, {width, height});
  records.Put(emf::SetPolygonFillMode, {WindingFill});
  for (const Tool& tool : tools) PutTool(records, tool, NumberOf(tools, tool) + 1);
  for (const DrawnShape& shape : drawing.shapes) {
    for (const Tool& tool : {PenOf(shape), BrushOf(shape)})
      records.Put(emf::SelectObject, {NumberOf(tools, tool) + 1});
    PutShape(records, shape);
  }
  records.Put(emf::End, {0, 16, 20});
  const std::uint32_t count = records.RecordCount() + 1;
  const std::vector<std::uint8_t> body = records.Take();
  constexpr std::uint32_t headerSize = 88;
  // Hundredths of a millimetre of so many pixels at 96 dots an inch.
  const auto frame = [](std::uint32_t pixels) { return (pixels * 2540 + 48) / 96; };
  ByteWriter file;
  file.U32Le(1).U32Le(headerSize);
  file.U32Le(0).U32Le(0).U32Le(width - 1).U32Le(height - 1);
  file.U32Le(0).U32Le(0).U32Le(frame(width)).U32Le(frame(height));
  file.Append(" EMF").U32Le(0x10000).U32Le(static_cast<std::uint32_t>(headerSize + body.size())).U32Le(count);
  file.U16Le(static_cast<std::uint32_t>(tools.size() + 1)).U16Le(0).Zeros(12);
  file.U32Le(1440).U32Le(960).U32Le(381).U32Le(254);  // the device: pixels, then millimetres
  return file.Append(body).Take();
}

}  // namespace lumidex
