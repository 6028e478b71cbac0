#include "platform/qt/views/view_factory.h"

#include "platform/qt/views/directory_view.h"
#include "platform/qt/views/main_view.h"
#include "platform/qt/views/preferences_view.h"
#include "platform/qt/views/search_view.h"
#include "platform/qt/views/splash_view.h"
#include "platform/qt/views/stacked_view.h"
#include "platform/qt/views/tip_view.h"

namespace lumidex {

std::unique_ptr<FormView> MakeView(FormViews& views, Form& form) {
  const std::string& name = form.Name();
  // It stands for the icon in the notification area, and its menus pop up from there.
  if (name == "frmSystemTray") return nullptr;
  if (name == "WPaper2") return std::make_unique<MainView>(views, form);
  if (name == "SelectPictureDirectoryForm") return std::make_unique<DirectoryView>(views, form);
  if (name == "frmPreferences") return std::make_unique<PreferencesView>(views, form);
  if (name == "frmSplash") return std::make_unique<SplashView>(views, form);
  if (name == "frmlocatefiles") return std::make_unique<SearchView>(views, form);
  if (name == "frmTip") return std::make_unique<TipView>(views, form);
  return std::make_unique<StackedView>(views, form);
}

}  // namespace lumidex
