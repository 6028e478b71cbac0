#include "forms/app.h"

#include "forms/SelectPictureDirectoryForm.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmAbout.h"
#include "forms/frmAdjustColorBalance.h"
#include "forms/frmAdjustContrastandBrightness.h"
#include "forms/frmBackground.h"
#include "forms/frmBrowser.h"
#include "forms/frmConvertFileName.h"
#include "forms/frmConvertFileType.h"
#include "forms/frmFileProperties.h"
#include "forms/frmMakeThumbNails.h"
#include "forms/frmPreferences.h"
#include "forms/frmReport.h"
#include "forms/frmSelectBatchDir.h"
#include "forms/frmSlideShowFullScreen.h"
#include "forms/frmSplash.h"
#include "forms/frmSystemTray.h"
#include "forms/frmThumbNail.h"
#include "forms/frmTip.h"
#include "forms/frmZoomView.h"
#include "forms/frmlocatefiles.h"
#include "forms/frmstats.h"

namespace lumidex {
struct App::AllForms {
  explicit AllForms(Platform& platform)
      : WPaper2(platform),
        frmPreferences(platform),
        SelectPictureDirectoryForm(platform),
        checkjpg(platform),
        frmAbout(platform),
        frmlocatefiles(platform),
        frmSystemTray(platform),
        frmAdjustColorBalance(platform),
        frmAdjustContrastandBrightness(platform),
        frmFileProperties(platform),
        frmMakeThumbNails(platform),
        frmSplash(platform),
        frmstats(platform),
        frmThumbNail(platform),
        frmZoomView(platform),
        frmBackground(platform),
        frmSlideShowFullScreen(platform),
        frmTip(platform),
        frmReport(platform),
        frmBrowser(platform),
        frmConvertFileType(platform),
        frmConvertFileName(platform),
        frmSelectBatchDir(platform) {}
  WPaper2Window WPaper2;
  frmPreferencesWindow frmPreferences;
  SelectPictureDirectoryFormWindow SelectPictureDirectoryForm;
  checkjpgWindow checkjpg;
  frmAboutWindow frmAbout;
  frmlocatefilesWindow frmlocatefiles;
  frmSystemTrayWindow frmSystemTray;
  frmAdjustColorBalanceWindow frmAdjustColorBalance;
  frmAdjustContrastandBrightnessWindow frmAdjustContrastandBrightness;
  frmFilePropertiesWindow frmFileProperties;
  frmMakeThumbNailsWindow frmMakeThumbNails;
  frmSplashWindow frmSplash;
  frmstatsWindow frmstats;
  frmThumbNailWindow frmThumbNail;
  frmZoomViewWindow frmZoomView;
  frmBackgroundWindow frmBackground;
  frmSlideShowFullScreenWindow frmSlideShowFullScreen;
  frmTipWindow frmTip;
  frmReportWindow frmReport;
  frmBrowserWindow frmBrowser;
  frmConvertFileTypeWindow frmConvertFileType;
  frmConvertFileNameWindow frmConvertFileName;
  frmSelectBatchDirWindow frmSelectBatchDir;
};

App::App(Platform& itsPlatform)
    : platform(itsPlatform),
      forms_(std::make_unique<AllForms>(itsPlatform)),
      WPaper2(forms_->WPaper2),
      frmPreferences(forms_->frmPreferences),
      SelectPictureDirectoryForm(forms_->SelectPictureDirectoryForm),
      checkjpg(forms_->checkjpg),
      frmAbout(forms_->frmAbout),
      frmlocatefiles(forms_->frmlocatefiles),
      frmSystemTray(forms_->frmSystemTray),
      frmAdjustColorBalance(forms_->frmAdjustColorBalance),
      frmAdjustContrastandBrightness(forms_->frmAdjustContrastandBrightness),
      frmFileProperties(forms_->frmFileProperties),
      frmMakeThumbNails(forms_->frmMakeThumbNails),
      frmSplash(forms_->frmSplash),
      frmstats(forms_->frmstats),
      frmThumbNail(forms_->frmThumbNail),
      frmZoomView(forms_->frmZoomView),
      frmBackground(forms_->frmBackground),
      frmSlideShowFullScreen(forms_->frmSlideShowFullScreen),
      frmTip(forms_->frmTip),
      frmReport(forms_->frmReport),
      frmBrowser(forms_->frmBrowser),
      frmConvertFileType(forms_->frmConvertFileType),
      frmConvertFileName(forms_->frmConvertFileName),
      frmSelectBatchDir(forms_->frmSelectBatchDir) {}

App::~App() = default;

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
          &frmConvertFileName,
          &frmSelectBatchDir};
}

Form* App::FindForm(std::string_view name) {
  for (Form* form : Forms()) {
    if (form->Name() == name) return form;
  }
  return nullptr;
}

}  // namespace lumidex
