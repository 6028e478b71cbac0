#include "pictures/metafile/path_bracket.h"

#include <utility>

#include "pictures/metafile/pen_and_brush.h"

namespace lumidex::metafile {
namespace {

// One path of a bracket; no drawing needs more, and letters could make it any length.
constexpr std::size_t mostPathPoints = std::size_t{1} << 20;

}  // namespace

void PathBracket::Begin() {
  isOpen_ = true;
  isWidened_ = false;
  path_ = {};
}

void PathBracket::Abort() {
  isOpen_ = false;
  path_ = {};
}

void PathBracket::MoveTo(Point onSheet) {
  if (isOpen_) path_.MoveTo(onSheet);
}

void PathBracket::CloseFigure() {
  if (isOpen_) path_.Close();
}

void PathBracket::Add(const Path& onSheet, bool continues) {
  if (isOpen_ && path_.PointCount() + onSheet.PointCount() <= mostPathPoints)
    path_.Append(onSheet, continues);
}

Path PathBracket::TakePath() {
  isOpen_ = false;
  return std::exchange(path_, {}).Transformed({});
}

void PathBracket::Draw(bool filled, bool stroked) {
  const Path path = TakePath();
  if (isWidened_) return FillStroke(context_, path);
  if (filled) FillPath(context_, path);
  if (stroked) StrokePath(context_, path);
}

void PathBracket::Clip(ClipMode mode) {
  const Path path = TakePath();
  DeviceState& state = context_.State();
  Canvas& sheet = context_.GetCanvas();
  if (isWidened_) return sheet.CombineClip(state.clip, state.base, path, StyleOfPen(context_), mode);
  sheet.CombineClip(state.clip, state.base, path, state.fillRule, mode);
}

}  // namespace lumidex::metafile
