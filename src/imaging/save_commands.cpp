#include "imaging/save_commands.h"

#include <algorithm>

#include "base/text.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmPreferences.h"
#include "imaging/proper_names.h"
#include "imaging/save_picture.h"

namespace lumidex {
namespace {

constexpr int longNames = 0x200000;
constexpr int hideReadOnly = 0x4;
constexpr int bitmapFilter = 1, jpegFilter = 2;

// The file's name as it is shown, without its last characters: nothing where it has no more than those.
std::string CutName(const App& app, const std::string& path, std::int32_t cut) {
  const std::string name = ProperFileName(app, path);
  return Trim(Left(name, std::max(0, Len(name) - cut)));
}

// False when the user cancels.
bool AskForName(App& app, const char* title, std::string fileName, const char* filter) {
  CommonDialog& dialog = app.WPaper2.CMDialog1;
  dialog.DefaultExt = "BMP";
  dialog.DialogTitle = title;
  dialog.FileName = fileName;
  dialog.Filter = filter;
  dialog.Flags = longNames | hideReadOnly | CommonDialog::OverwritePrompt;
  return dialog.ShowSave();
}

void SaveBitmap(App& app, std::string path) {
  Gvbox& control = app.checkjpg.Picture1;
  control.AutoRedraw = 1;
  SavePicture(app, control.Picture(), path);
  control.AutoRedraw = 0;
}

void TakeWriterOptions(App& app) {
  Gvbox& control = app.checkjpg.Picture1;
  frmPreferencesWindow& options = app.frmPreferences;
  for (int i = 0; i <= 2; ++i) {
    if (!options.optJPGDitherSaving(i).Value) continue;
    control.JPGDitherMethod = i;
    break;
  }
  control.JPGOptimize = options.chkJPGOptimize.Value.Get();
  control.JPGQuality = options.txtJPGQuality.Text.Get();
  control.JPGSmoothing = options.txtJPGSmoothing.Text.Get();
}

void SaveJpegFile(App& app, std::string path) {
  Gvbox& control = app.checkjpg.Picture1;
  if (InStr(path, ".JPG") == 0) path = CutName(app, path, 3) + "JPG";
  const int dithering = control.JPGDitherMethod;
  TakeWriterOptions(app);
  control.AutoRedraw = 1;
  control.SaveJPEG(path);
  control.AutoRedraw = 0;
  control.JPGDitherMethod = dithering;
}

}  // namespace

void SaveImageAs(App& app) {
  if (!AskForName(app, "Save Image As", CutName(app, app.CurrentImagePath, 4),
                  "Bitmap Files (*.BMP)|*.BMP|JPEG Format (*.JPG)|*.JPG|"))
    return;
  const CommonDialog& dialog = app.WPaper2.CMDialog1;
  const std::string path = dialog.FileName;
  if (dialog.FilterIndex == bitmapFilter) SaveBitmap(app, path);
  if (dialog.FilterIndex == jpegFilter) SaveJpegFile(app, path);
}

void SaveThumbnailAs(App& app) {
  if (!AskForName(app, "Save Thumbnail Of Current Image",
                  "tbn_" + CutName(app, app.CurrentImagePath, 3) + "BMP", "Bitmap Files (*.BMP)|*.BMP"))
    return;
  const std::string path = app.WPaper2.CMDialog1.FileName;
  Gvbox& control = app.checkjpg.Picture1;
  const frmPreferencesWindow& options = app.frmPreferences;
  control.Appearance = options.chkThumbNailStyle.Value == 1 ? 1 : 0;
  control.ThumbnailSize = options.sldThumbNailSize.Value.Get();
  app.platform.events.Yield();
  SavePicture(app, control.Picture(), path);
  control.ThumbnailSize = 0;
  control.Appearance = 0;
}

}  // namespace lumidex
