#include "forms/app.h"

#include "controls/property.h"

namespace lumidex {

std::vector<Form*> App::Forms() {
  return {&WPaper2,
          &frmPreferences,
          &SelectPictureDirectoryForm,
          &checkjpg,
          &frmAbout,
          &frmlocatefiles,
          &frmSystemTray,
          &frmAdjustColorBalance,
          &frmAdjustContrastandBrightness,
          &frmFileProperties,
          &frmMakeThumbNails,
          &frmSplash,
          &frmstats,
          &frmThumbNail,
          &frmZoomView,
          &frmBackground,
          &frmSlideShowFullScreen,
          &frmTip,
          &frmReport,
          &frmBrowser,
          &frmConvertFileType,
          &frmConvertFileName};
}

Form* App::FindForm(std::string_view name) {
  for (Form* form : Forms()) {
    if (form->Name() == name) return form;
  }
  return nullptr;
}

std::optional<std::string> App::ReadGlobal(std::string_view name) const {
  std::optional<std::string> text;
  const auto offer = [&](std::string_view field, const auto& value) {
    if (field != name) return;
    if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::int16_t> ||
                  std::is_same_v<std::decay_t<decltype(value)>, std::int32_t>) {
      text = property_text::Of(std::int64_t{value});
    } else {
      text = property_text::Of(value);
    }
  };
  offer("ColorMNU", ColorMNU);
  offer("SavingSettings", SavingSettings);
  offer("ViewMode", ViewMode);
  offer("AppVersion", AppVersion);
  offer("CurrentImagePath", CurrentImagePath);
  offer("CurrentIndex", CurrentIndex);
  offer("SearchDirectory", SearchDirectory);
  offer("SearchRunning", SearchRunning);
  offer("DirectoriesSearched", DirectoriesSearched);
  offer("ImageWidth", ImageWidth);
  offer("ImageHeight", ImageHeight);
  offer("ImageBitsPerPixel", ImageBitsPerPixel);
  offer("FilePattern", FilePattern);
  offer("CommandLineMode", CommandLineMode);
  offer("ListFilePictureCount", ListFilePictureCount);
  offer("ListFileFlag", ListFileFlag);
  offer("SlideShowInterval", SlideShowInterval);
  offer("SlideShowRestart", SlideShowRestart);
  offer("AppPath", AppPath);
  offer("SlideShowBusy", SlideShowBusy);
  offer("TopmostFlags", TopmostFlags);
  offer("NaturalWidth", NaturalWidth);
  offer("NaturalHeight", NaturalHeight);
  return text;
}

}  // namespace lumidex
