// The windows of the Qt front end, driven by a scenario. Time, files and dialogs stay the simulated ones.

#include <QAbstractButton>
#include <QApplication>

#include "platform/qt/driver_hooks.h"
#include "platform/qt/form_views.h"
#include "platform/qt/views/view_factory.h"
#include "scenario/front_end.h"

namespace lumidex::scenario {
namespace {

class QtWindows final : public FrontEnd {
 public:
  QtWindows(int& argc, char** argv) : application_(argc, argv) {
    QApplication::setQuitOnLastWindowClosed(false);
  }

  void Attach(App& app, HeadlessPlatform&) override {
    views_ = std::make_unique<FormViews>(&MakeView);
    for (Form* form : app.Forms()) views_->Attach(*form);
  }

  void Detach() override { views_.reset(); }

  void Settle() override {
    if (views_) QtDriverHooks(*views_).Settle();
  }

  bool Click(Control& control) override {
    FormView* view = views_ ? views_->ViewOf(control.Owner()) : nullptr;
    auto* button = view ? qobject_cast<QAbstractButton*>(view->WidgetOf(control)) : nullptr;
    if (!button) return false;
    button->click();
    return true;
  }

  bool Screenshot(const std::string& file) override {
    return views_ && QtDriverHooks(*views_).Screenshot(file);
  }

 private:
  QApplication application_;
  std::unique_ptr<FormViews> views_;
};

}  // namespace

std::unique_ptr<FrontEnd> MakeWindows(int& argc, char** argv) {
  const bool hasScreen = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
  if (!hasScreen && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  return std::make_unique<QtWindows>(argc, argv);
}

}  // namespace lumidex::scenario
