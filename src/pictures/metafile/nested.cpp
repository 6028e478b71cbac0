#include "pictures/metafile/nested.h"

#include "pictures/metafile/emf_layout.h"
#include "pictures/metafile/wmf_layout.h"

namespace lumidex::metafile {
namespace {

// Setting up a player; looking a file through for what it shows.
constexpr double perNested = 60000;
constexpr double perNestedByte = 8;

}  // namespace

bool PlayNested(DeviceContext& outer, Bytes file, const Matrix& unitToLogical) {
  const Stage stage = outer.StageFor(unitToLogical);
  Canvas& canvas = outer.GetCanvas();
  if (stage.depth > deepestNesting || !stage.unitToSheet.IsUsable()) return false;
  if (!canvas.Budget().Spend(perNested + perNestedByte * static_cast<double>(file.size()))) return false;
  if (const auto header = ReadEmfHeader(file)) {
    PlayEmf(LayOutEmf(*header), file, canvas, stage);
    return true;
  }
  if (const auto header = ReadWmfHeader(file)) {
    const auto layout = LayOutWmf(*header, file);
    if (layout) PlayWmf(*layout, file, canvas, stage);
    return layout.has_value();
  }
  return false;
}

}  // namespace lumidex::metafile
