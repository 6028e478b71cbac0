#pragma once
// The main window on a screen that nobody sees, with none of the program's routines behind it.

#include <QAction>

#include "forms/WPaper2.h"
#include "forms/app.h"
#include "qt/qt_world.h"

namespace lumidex {

struct MainWindowTest : testing::Test {
  MainWindowTest() {
    for (Form* form : app.Forms()) world.views.Attach(*form);
    window.Show();
    Settle();
  }
  ~MainWindowTest() override { world.views.Close(); }
  FormView& View() { return *world.views.ViewOf(window); }
  QAction& Action(const char* name) {
    auto* action = View().findChild<QAction*>(QString::fromLatin1(name));
    if (!action) throw std::logic_error(name);
    return *action;
  }
  QtWorld world;
  App app{world.platform};
  WPaper2Window& window = app.WPaper2;
};

}  // namespace lumidex
