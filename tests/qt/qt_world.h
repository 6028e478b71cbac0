#pragma once
// A platform for tests of the front end: real widgets on a screen that nobody sees, everything else
// simulated.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "platform/headless/headless_platform.h"
#include "platform/qt/clipboard.h"
#include "platform/qt/dialogs.h"
#include "platform/qt/event_queue.h"
#include "platform/qt/form_views.h"
#include "platform/qt/views/view_factory.h"
#include "platform/qt/window_control.h"

namespace lumidex {

struct QtWorld {
  // `factory` makes the views; the program's own by default.
  explicit QtWorld(FormViews::Factory factory = &MakeView) : views(std::move(factory)) {}

  HeadlessPlatform headless{'/'};
  QtEventQueue events;
  FormViews views;
  QtWindowControl windows{views};
  QtDialogs dialogs{views};
  QtClipboard clipboard;
  Platform platform = PlatformWith(headless.decoding);

  // The same with another service behind it.
  Platform PlatformWith(DecodingService& decoding) {
    return {headless.files,  events,           dialogs,          windows,
            headless.events, headless.process, clipboard,        headless.desktop,
            headless.tray,   headless.popup,   headless.shell,   headless.settings,
            headless.loader, headless.folders, headless.browser, decoding};
  }
};

// Serves what is pending and what that leads to, so that every widget shows what its control holds.
inline void Settle() {
  YieldInRoutine::PushPostponed();
  for (int turn = 0; turn < 4; ++turn) QCoreApplication::processEvents();
}

// The widget that shows a control.
template <class Widget>
Widget& WidgetOf(const QtWorld& world, Control& control) {
  auto* widget = dynamic_cast<Widget*>(world.views.ViewOf(control.Owner())->WidgetOf(control));
  if (!widget) throw std::logic_error(control.Name() + " has no such widget");
  return *widget;
}

}  // namespace lumidex
