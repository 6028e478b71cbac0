#pragma once
// The program: the global record, one instance of each form, and the platform. Made in `main` and in each
// test, and handed to every routine as its first argument.

#include <cstdint>

#include "forms/SelectPictureDirectoryForm.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmBackground.h"
#include "forms/frmPreferences.h"
#include "forms/frmSplash.h"
#include "forms/frmTip.h"
#include "forms/frmlocatefiles.h"
#include "ports/platform.h"

namespace lumidex {

// The public variables, with their values at process start.
struct GlobalRecord {
  std::int16_t ColorMNU = 0;    // index of the main window colour
  bool SavingSettings = false;  // while SaveSettingsAndList runs
  std::int16_t ViewMode = 0;
  std::string AppVersion;
  std::string CurrentImagePath;   // of the picture last brought up
  std::int32_t CurrentIndex = 0;  // one-based position in the Display list, 0 for none
  std::string SearchDirectory;
  bool SearchRunning = false;
  std::int32_t DirectoriesSearched = 0;
  std::int16_t ImageWidth = 0;  // pixels
  std::int16_t ImageHeight = 0;
  float ImageBitsPerPixel = 0;
  std::string FilePattern;
  bool CommandLineMode = false;
  std::int32_t ListFilePictureCount = 0;
  std::int16_t ListFileFlag = 0;
  std::int16_t SlideShowInterval = 0;  // seconds
  bool SlideShowRestart = false;
  std::string AppPath;  // ends in a separator
  bool SlideShowBusy = false;
  std::int16_t TopmostFlags = 0;
  std::int16_t NaturalWidth = 0;  // the file's own size, before zoom and fit
  std::int16_t NaturalHeight = 0;
};

struct App : GlobalRecord {
  explicit App(Platform& itsPlatform) : platform(itsPlatform) {}
  App(const App&) = delete;
  App& operator=(const App&) = delete;

  Platform& platform;

  // Windows with no controls of their own so far are plain forms.
  WPaper2Window WPaper2{platform};
  frmPreferencesWindow frmPreferences{platform};
  SelectPictureDirectoryFormWindow SelectPictureDirectoryForm{platform};
  checkjpgWindow checkjpg{platform};
  Form frmAbout{platform, "frmAbout", "Korvane Lumidex - About"};
  frmlocatefilesWindow frmlocatefiles{platform};
  Form frmSystemTray{platform, "frmSystemTray"};
  Form frmAdjustColorBalance{platform, "frmAdjustColorBalance"};
  Form frmAdjustContrastandBrightness{platform, "frmAdjustContrastandBrightness"};
  Form frmFileProperties{platform, "frmFileProperties"};
  Form frmMakeThumbNails{platform, "frmMakeThumbNails"};
  frmSplashWindow frmSplash{platform};
  Form frmstats{platform, "frmstats"};
  Form frmThumbNail{platform, "frmThumbNail"};
  Form frmZoomView{platform, "frmZoomView"};
  frmBackgroundWindow frmBackground{platform};
  Form frmSlideShowFullScreen{platform, "frmSlideShowFullScreen"};
  frmTipWindow frmTip{platform};
  Form frmReport{platform, "frmReport"};
  Form frmBrowser{platform, "frmBrowser"};
  Form frmConvertFileType{platform, "frmConvertFileType", "Convert File Type"};
  Form frmConvertFileName{platform, "frmConvertFileName"};

  std::vector<Form*> Forms();
  // Null when there is no such form.
  Form* FindForm(std::string_view name);
  // A field of the global record by its name, as text; nothing when there is no such field.
  std::optional<std::string> ReadGlobal(std::string_view name) const;

  // ExitProgram has begun; a second one, as the unloading of the main window asks for, changes nothing.
  bool exiting = false;
  // Counts what was asked to be shown, an emptied list too: what yields while it shows a picture ends where
  // another was asked for meanwhile.
  std::uint64_t pictureRequests = 0;
};

}  // namespace lumidex
