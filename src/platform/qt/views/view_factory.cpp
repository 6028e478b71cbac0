#include "platform/qt/views/view_factory.h"

#include "forms/frmSystemTray.h"
#include "platform/qt/views/about_view.h"
#include "platform/qt/views/adjustment_view.h"
#include "platform/qt/views/batch_views.h"
#include "platform/qt/views/browser_view.h"
#include "platform/qt/views/directory_view.h"
#include "platform/qt/views/full_screen_view.h"
#include "platform/qt/views/main_view.h"
#include "platform/qt/views/preferences_view.h"
#include "platform/qt/views/properties_view.h"
#include "platform/qt/views/report_view.h"
#include "platform/qt/views/search_view.h"
#include "platform/qt/views/splash_view.h"
#include "platform/qt/views/stacked_view.h"
#include "platform/qt/views/statistics_view.h"
#include "platform/qt/views/thumbnail_view.h"
#include "platform/qt/views/tip_view.h"
#include "platform/qt/views/zoom_view.h"

namespace lumidex {
namespace {

// Makes `View` when the form is a `Window`.
template <class View, class Window>
bool Try(FormViews& views, Form& form, std::unique_ptr<FormView>& view) {
  auto* window = dynamic_cast<Window*>(&form);
  if (window) view = std::make_unique<View>(views, *window);
  return window != nullptr;
}

}  // namespace

std::unique_ptr<FormView> MakeView(FormViews& views, Form& form) {
  // It stands for the icon in the notification area, and its menus pop up from there.
  if (dynamic_cast<frmSystemTrayWindow*>(&form)) return nullptr;
  std::unique_ptr<FormView> view;
  Try<MainView, WPaper2Window>(views, form, view) ||
      Try<DirectoryView, SelectPictureDirectoryFormWindow>(views, form, view) ||
      Try<PreferencesView, frmPreferencesWindow>(views, form, view) ||
      Try<SplashView, frmSplashWindow>(views, form, view) ||
      Try<FullScreenView, frmSlideShowFullScreenWindow>(views, form, view) ||
      Try<SearchView, frmlocatefilesWindow>(views, form, view) ||
      Try<TipView, frmTipWindow>(views, form, view) || Try<AboutView, frmAboutWindow>(views, form, view) ||
      Try<BrowserView, frmBrowserWindow>(views, form, view) ||
      Try<StatisticsView, frmstatsWindow>(views, form, view) ||
      Try<ReportView, frmReportWindow>(views, form, view) ||
      Try<ConvertTypeView, frmConvertFileTypeWindow>(views, form, view) ||
      Try<ConvertProgressView, frmConvertFileNameWindow>(views, form, view) ||
      Try<AdjustmentView, frmAdjustColorBalanceWindow>(views, form, view) ||
      Try<AdjustmentView, frmAdjustContrastandBrightnessWindow>(views, form, view) ||
      Try<PropertiesView, frmFilePropertiesWindow>(views, form, view) ||
      Try<ZoomView, frmZoomViewWindow>(views, form, view) ||
      Try<ThumbnailView, frmThumbNailWindow>(views, form, view);
  if (!view) view = std::make_unique<StackedView>(views, form);
  return view;
}

}  // namespace lumidex
