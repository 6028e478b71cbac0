#include "thumbnails/thumbnail.h"

#include "core/paths.h"
#include "forms/checkjpg.h"
#include "forms/frmThumbNail.h"

namespace lumidex {
namespace {

constexpr int thumbnailSize = 80;

}  // namespace

void MakeThumbnail(App& app, std::string path) {
  if (!FileExists(app, path)) return;
  Gvbox& control = app.checkjpg.Gvbox2;
  control.Appearance = 0;
  control.SetFileName(path);
  control.ThumbnailSize = thumbnailSize;
  app.frmThumbNail.imgThumbNail(0).Picture = control.Picture();
  control.ThumbnailSize = 0;
  control.Appearance = 1;
  control.SetFileName("");
}

}  // namespace lumidex
