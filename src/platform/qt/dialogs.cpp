#include "platform/qt/dialogs.h"

#include <QAbstractButton>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <algorithm>

#include "platform/qt/conversions.h"

namespace lumidex {
namespace {

// While one of the desktop's dialogs is open. Its closing gives the keyboard back to a window of ours, which
// is no activation for the program: its own windows have not changed places. The one that it stands before
// may go meanwhile and would take it along.
class DialogPause {
 public:
  explicit DialogPause(FormViews& views) : before_(views.Active()), keeping_(views) {}
  ~DialogPause() {
    if (before_ && before_->isVisible() && !before_->isActiveWindow()) before_->IgnoreNextActivation();
  }
  DialogPause(const DialogPause&) = delete;
  DialogPause& operator=(const DialogPause&) = delete;

 private:
  QPointer<FormView> before_;
  FormViews::Keeping keeping_;
};

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::Ok:
      return QMessageBox::Ok;
    case MessageButtons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::AbortRetryIgnore:
      return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    case MessageButtons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageButtons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::RetryCancel:
      return QMessageBox::Retry | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

MessageAnswer AnswerOf(int button, MessageButtons buttons) {
  switch (button) {
    case QMessageBox::Ok:
      return MessageAnswer::Ok;
    case QMessageBox::Abort:
      return MessageAnswer::Abort;
    case QMessageBox::Retry:
      return MessageAnswer::Retry;
    case QMessageBox::Ignore:
      return MessageAnswer::Ignore;
    case QMessageBox::Yes:
      return MessageAnswer::Yes;
    case QMessageBox::No:
      return MessageAnswer::No;
    default:
      return buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Cancel;
  }
}

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Critical:
      return QMessageBox::Critical;
    case MessageIcon::Question:
      return QMessageBox::Question;
    case MessageIcon::Exclamation:
      return QMessageBox::Warning;
    case MessageIcon::Information:
      return QMessageBox::Information;
    case MessageIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

MessageAnswer QtDialogs::MsgBox(const Message& message) {
  const DialogPause pause(views_);
  QMessageBox box(views_.DialogParent());
  box.setWindowTitle(ToQt(message.title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(message.text));
  box.setIcon(IconOf(message.icon));
  box.setStandardButtons(ButtonsOf(message.buttons));
  return AnswerOf(box.exec(), message.buttons);
}

std::optional<std::string> QtDialogs::InputBox(const InputRequest& request) {
  const DialogPause pause(views_);
  QInputDialog dialog(views_.DialogParent());
  dialog.setWindowTitle(ToQt(request.title));
  dialog.setLabelText(WithDoubledAmpersands(ToQt(request.prompt)));
  dialog.setTextValue(ToQt(request.preset));
  if (dialog.exec() != QDialog::Accepted) return {};
  return FromQt(dialog.textValue());
}

QStringList NameFilters(const std::string& filter) {
  const QStringList parts = ToQt(filter).split(u'|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
    for (QString& pattern : patterns) {
      pattern = pattern.trimmed();
      // Only there do all names have a point.
      if (pattern == QStringLiteral("*.*")) pattern = QStringLiteral("*");
    }
    // A description often ends in the patterns already; Qt would show them twice.
    QString description = parts[i].trimmed();
    if (const auto open = description.lastIndexOf(u'('); open > 0 && description.endsWith(u')')) {
      description = description.left(open).trimmed();
    }
    filters << description + QStringLiteral(" (") + patterns.join(u' ') + u')';
  }
  return filters;
}

FileDialogAnswer QtDialogs::AskFile(const FileDialogRequest& request) {
  const DialogPause pause(views_);
  QFileDialog dialog(views_.DialogParent());
  dialog.setWindowTitle(request.title.empty() ? QFileDialog::tr(request.save ? "Save As" : "Open")
                                              : ToQt(request.title));
  dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(!request.save && request.fileMustExist ? QFileDialog::ExistingFile
                                                            : QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.overwritePrompt);
  const QStringList filters = NameFilters(request.filter);
  if (!filters.isEmpty()) {
    dialog.setNameFilters(filters);
    const auto chosen = std::clamp<qsizetype>(request.filterIndex - 1, 0, filters.size() - 1);
    dialog.selectNameFilter(filters[chosen]);
  }
  dialog.setDefaultSuffix(ToQt(request.defaultExtension));
  if (!request.directory.empty()) dialog.setDirectory(QFile::decodeName(request.directory.c_str()));
  if (!request.fileName.empty()) dialog.selectFile(QFile::decodeName(request.fileName.c_str()));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  FileDialogAnswer answer;
  answer.accepted = true;
  answer.fileName = QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
  answer.filterIndex = static_cast<int>(filters.indexOf(dialog.selectedNameFilter())) + 1;
  return answer;
}

}  // namespace lumidex
