#pragma once
// The main window: its controls with their design values.

#include "controls/bars.h"
#include "controls/buttons.h"
#include "controls/common_dialog.h"
#include "controls/control_array.h"
#include "controls/field.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/menu_item.h"
#include "controls/picture_controls.h"
#include "controls/texts.h"
#include "controls/timer.h"

namespace lumidex {

struct WPaper2Window : Form {
  explicit WPaper2Window(Platform& platform);

  Timer tmrSlideShow{*this, "tmrSlideShow", 0, false};
  StatusBar StatusBar1;
  Toolbar Toolbar1;
  PictureBox Picture1{*this, "Picture1"};
  // Inside Picture1, and placed in its pixels.
  ImageBox Image1{*this, "Image1", true};
  Label lblSelectionList{*this, "lblSelectionList", "Selection List"};
  ListBox LstLeft{*this, "LstLeft", ListStyle::Sorted};
  CommandButton cmdRightOne{*this, "cmdRightOne", "Add O&ne"};
  CommandButton cmdRightAll{*this, "cmdRightAll", "&Add All"};
  CommandButton cmdLeftOne{*this, "cmdLeftOne", "Remove &One"};
  CommandButton cmdLeftAll{*this, "cmdLeftAll", "&Remove All"};
  Label lblCountLabel{*this, "lblCountLabel", "Files in List:"};
  Label lblCount{*this, "lblCount", "0"};
  Label lblItemUseLabel{*this, "lblItemUseLabel", "Item In Use:"};
  Label CurrentPicture{*this, "CurrentPicture"};
  Label lblDisplayList{*this, "lblDisplayList", "Display List"};
  ListBox LstRight{*this, "LstRight"};
  CommandButton cmdUp{*this, "cmdUp", "Move Up"};
  CommandButton cmdDown{*this, "cmdDown", "Move Down"};
  Label txtPrgTitle{*this, "txtPrgTitle"};
  CommonDialog CMDialog1{*this, "CMDialog1"};

  MenuItem mnuFile{*this, "mnuFile", nullptr, "&File"};
  MenuItem mnuFileDirectory{*this, "mnuFileDirectory", &mnuFile, "Select Image(s) &Directory", 'D'};
  MenuItem mnuFileClear{*this, "mnuFileClear", &mnuFile, "&Zap Display Image List", 'Z'};
  MenuItem mnufiledivider1{*this, "mnufiledivider1", &mnuFile, "-"};
  MenuItem mnuFileBatchConvertImages{*this, "mnuFileBatchConvertImages", &mnuFile, "&Batch Convert Images",
                                     'B'};
  MenuItem mnuFileSaveImageAs{*this, "mnuFileSaveImageAs", &mnuFile, "Save Image &As", 'A'};
  MenuItem mnuFileSaveThumbnail{*this, "mnuFileSaveThumbnail", &mnuFile, "Save &Thumbnail of Current Image",
                                'T'};
  MenuItem mnuFileDivider3{*this, "mnuFileDivider3", &mnuFile, "-"};
  MenuItem mnuFileSave{*this, "mnuFileSave", &mnuFile, "&Save Standard Image List", 'S'};
  MenuItem mnuFileLoad{*this, "mnuFileLoad", &mnuFile, "&Load Standard Image List", 'L'};
  MenuItem mnuFileDivider4{*this, "mnuFileDivider4", &mnuFile, "-"};
  MenuItem mnuFileSaveAs{*this, "mnuFileSaveAs", &mnuFile, "Save &User Image List As", 'U'};
  MenuItem mnuFileLoadAs{*this, "mnuFileLoadAs", &mnuFile, "L&oad User Image List ", 'O'};
  MenuItem sep4{*this, "sep4", &mnuFile, "-"};
  MenuItem mnuFileExit{*this, "mnuFileExit", &mnuFile, "E&xit Lumidex", 'X'};

  MenuItem mnuEdit{*this, "mnuEdit", nullptr, "&Edit"};
  MenuItem mnuEditCopyPictureLink{*this, "mnuEditCopyPictureLink", &mnuEdit,
                                  "&Copy Image Name Link to ClipBoard"};
  MenuItem mnuPictureCopy{*this, "mnuPictureCopy", &mnuEdit, "&Copy Image to ClipBoard", 'C'};
  MenuItem mnuEditSepBar1{*this, "mnuEditSepBar1", &mnuEdit, "-"};
  MenuItem mnuEditRotateImage{*this, "mnuEditRotateImage", &mnuEdit, "&Rotate Image"};
  MenuItem mnuEditRotate90{*this, "mnuEditRotate90", &mnuEditRotateImage, "&90 degrees"};
  MenuItem mnuEditRotate180{*this, "mnuEditRotate180", &mnuEditRotateImage, "&180 degrees"};
  MenuItem mnuEditRotate270{*this, "mnuEditRotate270", &mnuEditRotateImage, "&270 degrees"};
  MenuItem mnuEditFlipImage{*this, "mnuEditFlipImage", &mnuEdit, "&Flip Image"};
  MenuItem mnuEditFlipHorizontal{*this, "mnuEditFlipHorizontal", &mnuEditFlipImage, "Horizontally"};
  MenuItem mnuEditFlipVertical{*this, "mnuEditFlipVertical", &mnuEditFlipImage, "Vertically"};
  MenuItem mnuEditImageContrast{*this, "mnuEditImageContrast", &mnuEdit, "Image &Contrast and Brightness"};
  MenuItem mnuEditImageColorBalances{*this, "mnuEditImageColorBalances", &mnuEdit, "Image Color &Balances"};

  MenuItem mnuView{*this, "mnuView", nullptr, "&View"};
  MenuItem mnuEditToolBar{*this, "mnuEditToolBar", &mnuView, "Show Toolbar"};
  MenuItem mnuEditStatusBar{*this, "mnuEditStatusBar", &mnuView, "Show Statusbar"};
  MenuItem sep1{*this, "sep1(1)", &mnuView, "-"};
  MenuItem mnuEditZoom{*this, "mnuEditZoom", &mnuView, "&Zoom Level"};
  ControlArray<MenuItem> mnuEditZoomLevel{*this, "mnuEditZoomLevel", 1, 11, &mnuEditZoom, ""};
  MenuItem mnuPictureViewer{*this, "mnuPictureViewer", &mnuView, "Display &In Full Screen Viewer", 'I'};
  MenuItem mnuPictureThumbNailViewer{*this, "mnuPictureThumbNailViewer", &mnuView,
                                     "Display Thu&mbnail Viewer", 'M'};

  MenuItem mnuPicture{*this, "mnuPicture", nullptr, "&Picture"};
  MenuItem mnuPicturePrevious{*this, "mnuPicturePrevious", &mnuPicture, "View Pre&vious Image", 'V'};
  MenuItem mnuPictureNext{*this, "mnuPictureNext", &mnuPicture, "View &Next Image", 'N'};
  MenuItem sep3{*this, "sep3", &mnuPicture, "-"};
  MenuItem mnuPictureAddOne{*this, "mnuPictureAddOne", &mnuPicture, "Add &One Image To Display List"};
  MenuItem mnuPictureAddAll{*this, "mnuPictureAddAll", &mnuPicture, "Add &All Images To Display List"};
  MenuItem mnuPictureRemoveOne{*this, "mnuPictureRemoveOne", &mnuPicture,
                               "&Remove One Image From Display List"};
  MenuItem mnuPictureRemoveAll{*this, "mnuPictureRemoveAll", &mnuPicture,
                               "R&emove All Images From Display List"};
  MenuItem mnuPictureDivider3{*this, "mnuPictureDivider3", &mnuPicture, "-"};
  MenuItem mnuPictureDesktopWallpaper{*this, "mnuPictureDesktopWallpaper", &mnuPicture,
                                      "Set To &Desktop Wallpaper"};
  MenuItem mnuPictureWallPaperCentered{*this, "mnuPictureWallPaperCentered", &mnuPictureDesktopWallpaper,
                                       "&Centered", 'G'};
  MenuItem mnuPictureWallPaperStretched{*this, "mnuPictureWallPaperStretched", &mnuPictureDesktopWallpaper,
                                        "&Stretched", 'H'};
  MenuItem mnuPictureWallPaperTiled{*this, "mnuPictureWallPaperTiled", &mnuPictureDesktopWallpaper, "&Tiled",
                                    'J'};
  MenuItem mnuPictureWallPaperClear{*this, "mnuPictureWallPaperClear", &mnuPictureDesktopWallpaper,
                                    "&Remove Wallpaper", 'K'};
  MenuItem mnuFileProperties{*this, "mnuFileProperties", &mnuPicture, "Image &Properties", 'P'};

  MenuItem mnuSlideShow{*this, "mnuSlideShow", nullptr, "&Slide Show"};
  MenuItem mnuSlideShowFullScreen{*this, "mnuSlideShowFullScreen", &mnuSlideShow,
                                  "&Start Full Screen Slide Show"};
  MenuItem mnuSlideShowDivider1{*this, "mnuSlideShowDivider1", &mnuSlideShow, "-"};
  MenuItem mnuSlideShowRunSlideShow{*this, "mnuSlideShowRunSlideShow", &mnuSlideShow,
                                    "S&tart/Stop Slide Show"};
  MenuItem mnuSlideShowViewerOnly{*this, "mnuSlideShowViewerOnly", &mnuSlideShow, "&Main Viewer Only"};
  MenuItem mnuSlideshowDesktopCentered{*this, "mnuSlideshowDesktopCentered", &mnuSlideShow,
                                       "     + Desktop &Centered"};
  MenuItem mnuSlideshowDesktopStretched{*this, "mnuSlideshowDesktopStretched", &mnuSlideShow,
                                        "     + Desktop &Stretched"};
  MenuItem mnuSlideShowDivider2{*this, "mnuSlideShowDivider2", &mnuSlideShow, "-"};
  MenuItem mnuSlideShowForwardOrder{*this, "mnuSlideShowForwardOrder", &mnuSlideShow, "&Forward Order"};
  MenuItem mnuSlideShowReverseOrder{*this, "mnuSlideShowReverseOrder", &mnuSlideShow, "&Reverse Order"};
  MenuItem mnuSlideShowDivider3{*this, "mnuSlideShowDivider3", &mnuSlideShow, "-"};
  MenuItem mnuSlideShowInterval{*this, "mnuSlideShowInterval", &mnuSlideShow, "&Interval"};

  MenuItem mnuTools{*this, "mnuTools", nullptr, "&Tools"};
  MenuItem mnuPictureImageSummary{*this, "mnuPictureImageSummary", &mnuTools,
                                  "Graphic Image Information S&ummary", 'F'};
  MenuItem mnuToolsOptions{*this, "mnuToolsOptions", &mnuTools, "Program Op&tions"};
  MenuItem mnuToolsDivider1{*this, "mnuToolsDivider1", &mnuTools, "-"};
  MenuItem mnuOptionsAssociate{*this, "mnuOptionsAssociate", &mnuTools, "&Associate File Types"};
  MenuItem mnuOptionsScreenSettings{*this, "mnuOptionsScreenSettings", &mnuTools,
                                    "Background Settings / Report Info"};
  MenuItem mnuOptionsGraphicViewingImageQuality{*this, "mnuOptionsGraphicViewingImageQuality", &mnuTools,
                                                "JPEG Display / Save Settings"};
  MenuItem mnuOptionsSavingJPEGFileFormat{*this, "mnuOptionsSavingJPEGFileFormat", &mnuTools,
                                          "Toolbar / Thumbnail Settings"};
  MenuItem mnuOptionsFileTypes{*this, "mnuOptionsFileTypes", &mnuTools, "Select View &File Types"};
  MenuItem mnuOptionsToolbarSettings{*this, "mnuOptionsToolbarSettings", &mnuTools, "&Toolbar Icon Settings"};
  MenuItem mnuToolsDivider2{*this, "mnuToolsDivider2", &mnuTools, "-"};
  MenuItem mnuOptionsDisplayOptions{*this, "mnuOptionsDisplayOptions", &mnuTools, "&Windows Display Options",
                                    'W'};

  MenuItem mnuHelp{*this, "mnuHelp", nullptr, "&Help"};
  MenuItem mnuHelpHelp{*this, "mnuHelpHelp", &mnuHelp, "Lumidex &Help"};
  MenuItem mnuHelpDisplaySplashScreen{*this, "mnuHelpDisplaySplashScreen", &mnuHelp,
                                      "&Redisplay Splash Screen"};
  MenuItem mnuHelpTipOfTheDay{*this, "mnuHelpTipOfTheDay", &mnuHelp, "&Tip of the Day"};
  MenuItem mnuHelpAbout{*this, "mnuHelpAbout", &mnuHelp, "&About"};
  MenuItem mnuHelpSep1{*this, "mnuHelpSep1", &mnuHelp, "-"};
  MenuItem mnuHelpHomePage{*this, "mnuHelpHomePage", &mnuHelp, "&Korvane Website"};
  MenuItem mnuHelpDownloadLatestVersion{*this, "mnuHelpDownloadLatestVersion", &mnuHelp,
                                        "&Download Latest Version of Lumidex"};
  MenuItem mnuHelpPictureLibrary{*this, "mnuHelpPictureLibrary", &mnuHelp, "Visit Korvane Photo Library"};

  MenuItem mnusg{*this, "mnusg", nullptr, "Show GVBOX"};
  MenuItem mPopUpSys{*this, "mPopUpSys", nullptr, "&SysTray"};
  MenuItem mPopRestore{*this, "mPopRestore", &mPopUpSys, "&Restore"};
  MenuItem mPopExit{*this, "mPopExit", &mPopUpSys, "&Exit"};

  // The window's layout goes by its size alone. It is never less wide and high than this.
  static constexpr float leastWidth = 9500;
  static constexpr float leastHeight = 6400;
  // Between the picture area and the window's right edge.
  static constexpr float rightMargin = 240;
  // The picture area's height to its width.
  static constexpr float pictureProportion = 0.75F;
  // From the top of the title to the window's lower edge.
  static constexpr float titleAboveEdge = 1605;
  // The width up to which the picture area and the lists end above the title, in a window of that height.
  float WidestFor(float height) const;

  // Follows the timer of the slide show, and whether the screen was told to stay awake for it.
  Connection SlideShowWatch;
  bool KeepsScreenAwake = false;
  // False until the first activation has finished its one-time work.
  Field<bool> WindowActivatedOnce{*this, "WindowActivatedOnce"};

 private:
  void PlaceControls();
  void SetMenuStates();
};

}  // namespace lumidex
