#include "core/default_report.h"

#include <new>

#include "base/run_time_error.h"
#include "base/text.h"

namespace lumidex {
namespace {

void Report(App& app, ErrorNumber number) {
  Message message;
  message.text = "Run-time error '" + Number(static_cast<int>(number)) + "':\n\n" + ErrorText(number);
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
