#pragma once
// The desktop's message, input, file and colour dialogs, standing before the window that the user works in.

#include <QString>
#include <QStringList>

#include "platform/qt/form_views.h"
#include "ports/dialogs.h"

namespace lumidex {

class QtDialogs final : public Dialogs {
 public:
  explicit QtDialogs(FormViews& views) : views_(views) {}

  MessageAnswer MsgBox(const Message& message) override;
  std::optional<std::string> InputBox(const InputRequest& request) override;
  FileDialogAnswer AskFile(const FileDialogRequest& request) override;

 private:
  FormViews& views_;
};

// "Pictures|*.bmp;*.jpg|All|*.*" as the name filters of Qt: "Pictures (*.bmp *.jpg)", "All (*)".
QStringList NameFilters(const std::string& filter);

}  // namespace lumidex
