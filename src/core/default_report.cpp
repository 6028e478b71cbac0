#include "core/default_report.h"

#include <new>

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/list_text.h"
#include "forms/WPaper2.h"

namespace lumidex {
namespace {

// The program ends here and the user's list would go with it. The standard list is left alone: what it holds
// may be what the user wants back.
std::string KeepDisplayList(App& app) {
  if (app.WPaper2.LstRight.ListCount() == 0) return {};
  const std::string path = app.AppPath + "Recovered.LST";
  try {
    app.platform.files.WriteAll(path, ListFileText(app));
    return "\n\nThe Display List was kept in " + path + ".";
  } catch (const RunTimeError& error) {
    return "\n\nThe Display List could not be kept in " + path + ": " + ErrorText(error.Number()) + ".";
  } catch (const std::bad_alloc&) {
    return "\n\nThe Display List could not be kept in " + path + ".";
  }
}

void Report(App& app, ErrorNumber number) {
  Message message;
  message.text = "Run-time error '" + Number(static_cast<int>(number)) + "':\n\n" + ErrorText(number) +
                 KeepDisplayList(app);
  message.icon = MessageIcon::Critical;
  app.platform.dialogs.MsgBox(message);
  app.platform.events.EndProcess(1);
}

}  // namespace

void RunEvent(App& app, const std::function<void()>& event) {
  try {
    event();
  } catch (const RunTimeError& error) {
    Report(app, error.Number());
  } catch (const std::bad_alloc&) {
    Report(app, ErrorNumber::OutOfMemory);
  }
}

}  // namespace lumidex
