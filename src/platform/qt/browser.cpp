#include "platform/qt/browser.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QProcessEnvironment>

#include "base/run_time_error.h"
#include "platform/qt/conversions.h"

namespace lumidex {
namespace {

constexpr int mostPages = 8;
constexpr const char* nameWithoutPages = "Pages are not available";

}  // namespace

QtBrowser::QtBrowser(QString program, QStringList environment)
    : program_(std::move(program)), environment_(std::move(environment)) {}

QtBrowser::~QtBrowser() {
  End();
}

bool QtBrowser::PagesAreInside() {
  return QGuiApplication::platformName() == QLatin1String("xcb");
}

QtBrowser::Page& QtBrowser::PageOf(int browser) {
  if (browser < 0 || browser >= mostPages) throw RunTimeError(ErrorNumber::AutomationError);
  const auto place = static_cast<std::size_t>(browser);
  if (pages_.size() <= place) pages_.resize(place + 1);
  return pages_[place];
}

const QtBrowser::Page* QtBrowser::Find(int browser) const {
  const auto place = static_cast<std::size_t>(browser);
  return browser >= 0 && place < pages_.size() ? &pages_[place] : nullptr;
}

bool QtBrowser::Start() {
  if (process_) return true;
  if (!QFileInfo(program_).isExecutable()) {
    SetState(State::Missing);
    return false;
  }
  process_ = std::make_unique<QProcess>();
  QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
  for (const QString& variable : environment_) {
    variables.insert(variable.section(QLatin1Char('='), 0, 0), variable.section(QLatin1Char('='), 1));
  }
  process_->setProcessEnvironment(variables);
  process_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
  connect(process_.get(), &QProcess::readyReadStandardOutput, this, [this] {
    while (process_->canReadLine()) {
      QByteArray line = process_->readLine();
      line.chop(1);
      Hear(QString::fromUtf8(line));
    }
  });
  const auto ended = [this] {
    for (Page& page : pages_) page.busy = false;
    if (process_) process_.release()->deleteLater();
    SetState(state_ == State::Refused ? State::Refused : State::Ended);
  };
  connect(process_.get(), &QProcess::finished, this, ended);
  connect(process_.get(), &QProcess::errorOccurred, this, [ended](QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) ended();
  });
  process_->start(program_, {});
  SetState(State::Running);
  return true;
}

void QtBrowser::SetState(State state) {
  if (state_ == state) return;
  state_ = state;
  StateChanged.Emit();
}

void QtBrowser::Say(const QString& line) {
  if (process_) process_->write(line.toUtf8() + '\n');
}

void QtBrowser::Hear(const QString& line) {
  if (line == QLatin1String("refused")) return SetState(State::Refused);
  bool isNumber = false;
  const int browser = line.section(QLatin1Char(' '), 1, 1).toInt(&isNumber);
  if (!isNumber || !Find(browser)) return;
  Page& page = PageOf(browser);
  const QString verb = line.section(QLatin1Char(' '), 0, 0);
  if (verb == QLatin1String("busy")) page.busy = true;
  if (verb == QLatin1String("ready")) page.busy = false;
  if (verb == QLatin1String("ready") || verb == QLatin1String("title")) {
    page.title = line.section(QLatin1Char(' '), 2);
  }
}

void QtBrowser::Navigate(int browser, const std::string& address) {
  Page& page = PageOf(browser);
  // One line, whatever the address holds.
  page.address = ToQt(address).simplified();
  page.busy = Start();
  Say(QStringLiteral("navigate %1 %2").arg(browser).arg(page.address));
}

bool QtBrowser::Busy(int browser) const {
  const Page* page = Find(browser);
  return page && page->busy;
}

std::string QtBrowser::LocationName(int browser) const {
  if (IsWithoutPages()) return nameWithoutPages;
  const Page* page = Find(browser);
  return page ? FromQt(page->title) : std::string();
}

std::string QtBrowser::Address(int browser) const {
  const Page* page = Find(browser);
  return page ? FromQt(page->address) : std::string();
}

void QtBrowser::Place(int browser, WId window, QSize devicePixels) {
  Say(QStringLiteral("place %1 %2 %3 %4")
          .arg(browser)
          .arg(window)
          .arg(devicePixels.width())
          .arg(devicePixels.height()));
}

void QtBrowser::Show(int browser, bool shown) {
  Say(QStringLiteral("%1 %2").arg(shown ? QStringLiteral("show") : QStringLiteral("hide")).arg(browser));
}

void QtBrowser::End() {
  if (process_) {
    const std::unique_ptr<QProcess> ending = std::move(process_);
    ending->disconnect(this);
    // The end of its input asks it to go; it is not waited for longer than a moment.
    ending->closeWriteChannel();
    constexpr int moment = 50, untilKilled = 1000;
    if (!ending->waitForFinished(moment)) {
      ending->kill();
      ending->waitForFinished(untilKilled);
    }
  }
  for (Page& page : pages_) page = {};
  SetState(State::Idle);
}

}  // namespace lumidex
