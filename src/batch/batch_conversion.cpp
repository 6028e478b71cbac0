#include "batch/batch_conversion.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/paths.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmConvertFileName.h"
#include "forms/frmConvertFileType.h"
#include "imaging/files_ahead.h"
#include "imaging/save_picture.h"

namespace lumidex {
namespace {

// ".BMP", ".JPG", or nothing when no type is chosen.
std::string ChosenTarget(App& app) {
  std::string target;
  ControlArray<OptionButton>& options = app.frmConvertFileType.optFileType;
  for (app.CurrentIndex = 0; app.CurrentIndex <= 1; ++app.CurrentIndex) {
    const OptionButton& option = options(app.CurrentIndex);
    if (option.Value) target = Mid(option.Caption.Get(), 2, 4);
  }
  return target;
}

// The folder that takes the target of a source in `folder`. One that is there but empty counts as missing,
// and can't be made.
std::string OutputFolder(App& app, std::string folder) {
  if (!(app.frmConvertFileType.chkAddConvertFolder.Value == 1)) return folder;
  const std::string convert = folder + "convert" + app.platform.files.Separator();
  if (!FileExists(app, convert)) app.platform.files.MakeDirectory(convert);
  return Trim(convert);
}

void ConvertFile(App& app, std::string source, std::string target) {
  frmConvertFileNameWindow& progress = app.frmConvertFileName;
  Gvbox& control = app.checkjpg.Gvbox2;
  control.SetFileName(source);
  std::string drive, directory, file;
  SplitPath(app, source, drive, directory, file);
  const std::string folder = OutputFolder(app, drive + directory);
  const std::int32_t dot = InStr(file, ".");
  const std::string base = Left(file, dot - 1);
  const bool isJpeg = UCase(target) == ".JPG";
  const std::string path = Trim(folder + base + (isJpeg ? ".jpg" : ".bmp"));
  progress.lblFileName.Caption = source;
  progress.lblConvertFileName.Caption = path;
  app.platform.events.Yield();
  if (isJpeg) {
    control.SaveJPEG(path);
  } else {
    SavePicture(app, control.Picture(), path);
  }
}

}  // namespace

void ConvertImages(App& app) {
  frmConvertFileNameWindow& progress = app.frmConvertFileName;
  if (progress.Converting) return;
  app.frmConvertFileType.Show(Modality::Modal);
  const std::string target = ChosenTarget(app);
  if (target.empty()) return;
  const ListBox& list = app.WPaper2.LstRight;
  const std::int32_t count = list.ListCount();
  progress.Converting = true;
  progress.Show();
  try {
    const FilesAhead ahead(app.checkjpg.Gvbox2, EntriesOf(list), DecodingExtent::Full);
    // The place is this loop's own: commands in its yields move CurrentIndex too.
    for (std::int32_t place = 0; place < count; ++place) {
      app.CurrentIndex = place;
      app.platform.events.Yield();
      // The list may have lost entries meanwhile.
      if (place >= list.ListCount()) break;
      ConvertFile(app, list.List(place), target);
    }
  } catch (...) {
    progress.Converting = false;
    throw;
  }
  progress.Converting = false;
  app.CurrentIndex = count;
  progress.Hide();
}

}  // namespace lumidex
