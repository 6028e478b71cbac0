#pragma once
// The program: the global record, one instance of each form, and the platform. Made in `main` and in each
// test, and handed to every routine as its first argument.

#include <cstdint>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/display_requests.h"
#include "forms/list_loading.h"
#include "ports/picture_area.h"
#include "ports/platform.h"

namespace lumidex {

class Form;
struct WPaper2Window;
struct frmPreferencesWindow;
struct SelectPictureDirectoryFormWindow;
struct checkjpgWindow;
struct frmAboutWindow;
struct frmlocatefilesWindow;
struct frmSystemTrayWindow;
struct frmAdjustColorBalanceWindow;
struct frmAdjustContrastandBrightnessWindow;
struct frmFilePropertiesWindow;
struct frmMakeThumbNailsWindow;
struct frmSplashWindow;
struct frmstatsWindow;
struct frmThumbNailWindow;
struct frmZoomViewWindow;
struct frmBackgroundWindow;
struct frmSlideShowFullScreenWindow;
struct frmTipWindow;
struct frmReportWindow;
struct frmBrowserWindow;
struct frmConvertFileTypeWindow;
struct frmConvertFileNameWindow;
struct frmSelectBatchDirWindow;

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
  explicit App(Platform& itsPlatform);
  ~App();
  App(const App&) = delete;
  App& operator=(const App&) = delete;

  Platform& platform;

 private:
  struct AllForms;
  const std::unique_ptr<AllForms> forms_;

 public:
  // Whoever works on a form includes its header, so that a change of one form concerns no others.
  WPaper2Window& WPaper2;
  frmPreferencesWindow& frmPreferences;
  SelectPictureDirectoryFormWindow& SelectPictureDirectoryForm;
  checkjpgWindow& checkjpg;
  frmAboutWindow& frmAbout;
  frmlocatefilesWindow& frmlocatefiles;
  frmSystemTrayWindow& frmSystemTray;
  frmAdjustColorBalanceWindow& frmAdjustColorBalance;
  frmAdjustContrastandBrightnessWindow& frmAdjustContrastandBrightness;
  frmFilePropertiesWindow& frmFileProperties;
  frmMakeThumbNailsWindow& frmMakeThumbNails;
  frmSplashWindow& frmSplash;
  frmstatsWindow& frmstats;
  frmThumbNailWindow& frmThumbNail;
  frmZoomViewWindow& frmZoomView;
  frmBackgroundWindow& frmBackground;
  frmSlideShowFullScreenWindow& frmSlideShowFullScreen;
  frmTipWindow& frmTip;
  frmReportWindow& frmReport;
  frmBrowserWindow& frmBrowser;
  frmConvertFileTypeWindow& frmConvertFileType;
  frmConvertFileNameWindow& frmConvertFileName;
  frmSelectBatchDirWindow& frmSelectBatchDir;

  std::vector<Form*> Forms();
  // Null when there is no such form.
  Form* FindForm(std::string_view name);
  // A field of the global record by its name, as text; nothing when there is no such field.
  std::optional<std::string> ReadGlobal(std::string_view name) const;
  // False when there is no such field. Raises TypeMismatch for text of another kind and Overflow for a number
  // beyond the field's width.
  bool WriteGlobal(std::string_view name, std::string_view text);

  // ExitProgram has begun; a second one, as the unloading of the main window asks for, changes nothing.
  bool exiting = false;
  // What has been asked of the picture area.
  DisplayRequests displays;
  // Where a picture was placed last.
  std::optional<PictureArea> lastArea;
  // The default report is on the screen, and the program ends with it.
  bool reporting = false;
  ListLoading listLoading;
  // Directory searches so far: one that sees the number grow in its yields has been overtaken by another.
  std::uint64_t searchesBegun = 0;
  // Entries go over to the Display list, or out of it, and are counted behind the picture that comes up with
  // that: pressed again in its yields, the same command would take them twice.
  bool addingEntries = false;
  bool removingEntry = false;
};

}  // namespace lumidex
