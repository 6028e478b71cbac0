#include "imaging/clipboard.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "forms/WPaper2.h"

namespace lumidex {
namespace {

void TellFailure(App& app, const char* what) {
  Message message;
  message.text = std::string("Lumidex experienced problems trying to copy the current ") + what +
                 " to the clipboard.  It is possible that the current image is not a clipboard compatible "
                 "format.";
  message.icon = MessageIcon::Exclamation;
  app.platform.dialogs.MsgBox(message);
}

}  // namespace

void CopyPictureLink(App& app) {
  try {
    app.platform.clipboard.Clear();
    app.platform.clipboard.SetText(app.WPaper2.LstRight.Text());
  } catch (const RunTimeError&) {
    TellFailure(app, "image name link");
  }
}

void CopyPicture(App& app) {
  try {
    app.platform.clipboard.Clear();
    const bool isMetafile = InStr(UCase(app.CurrentImagePath), ".WMF") > 0;
    app.platform.clipboard.SetData(app.WPaper2.Image1.Picture,
                                   isMetafile ? ClipboardFormat::Metafile : ClipboardFormat::Own);
  } catch (const RunTimeError&) {
    TellFailure(app, "image");
  }
}

}  // namespace lumidex
