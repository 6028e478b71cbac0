#include "core/default_report.h"

#include <new>

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/list_text.h"
#include "forms/WPaper2.h"

namespace lumidex {
namespace {

// A load that has failed leaves a part, or a list that nobody can go on with: what was there before is
// wanted.
std::string TextToKeep(const App& app) {
  if (app.listLoading.before) return *app.listLoading.before;
  return app.WPaper2.LstRight.ListCount() == 0 ? std::string() : ListFileText(app);
}

// The program ends here and the user's list would go with it. The standard list is left alone: what it holds
// may be what the user wants back.
std::string KeepDisplayList(App& app) {
  const std::string text = TextToKeep(app);
  if (text.empty()) return {};
  const std::string path = app.platform.files.FreePath(app.AppPath + "Recovered.LST");
  try {
    app.platform.files.WriteAll(path, text);
    return "\n\nThe Display List was kept in " + path + ".";
  } catch (const RunTimeError& error) {
    return "\n\nThe Display List could not be kept in " + path + ": " + ErrorText(error.Number()) + ".";
  } catch (const std::bad_alloc&) {
    return "\n\nThe Display List could not be kept in " + path + ".";
  }
}

std::string TextOf(const RunTimeError& error) {
  std::string text = ErrorText(error.Number());
  if (!error.Path().empty()) text += "\n" + error.Path();
  const auto* stepped = dynamic_cast<const OldContentKept*>(&error);
  if (stepped) text += "\n\nWhat the file held before was kept in " + stepped->KeptPath() + ".";
  return text;
}

void Report(App& app, ErrorNumber number, std::string text) {
  // The window is drawn on behind the message, and what is wrong there is wrong again.
  if (app.reporting) return;
  app.reporting = true;
  Message message;
  message.text =
      "Run-time error '" + Number(static_cast<int>(number)) + "':\n\n" + text + KeepDisplayList(app);
  message.icon = MessageIcon::Critical;
  try {
    app.platform.dialogs.MsgBox(message);
  } catch (const std::exception&) {
    // There is no memory left to say so; the list is kept already.
  }
  app.platform.events.EndProcess(1);
}

}  // namespace

void RunEvent(App& app, const std::function<void()>& event) {
  try {
    event();
  } catch (const RunTimeError& error) {
    Report(app, error.Number(), TextOf(error));
  } catch (const std::bad_alloc&) {
    Report(app, ErrorNumber::OutOfMemory, ErrorText(ErrorNumber::OutOfMemory));
  } catch (const std::exception& error) {
    Report(app, ErrorNumber::InternalError, ErrorText(ErrorNumber::InternalError) + ": " + error.what());
  }
}

}  // namespace lumidex
