#include "platform/web/pages.h"

#include <QEvent>
#include <QUrl>
#include <QWebEngineView>
#include <QWindow>

namespace lumidex {
namespace {

constexpr int mostPages = 8;

// Gives the keyboard to a page that is clicked: inside of another program's window nobody else does.
class FocusOnClick final : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonPress) static_cast<QWindow*>(watched)->requestActivate();
    return false;
  }
};

QString OneLine(const QString& text) {
  return text.simplified();
}

}  // namespace

Pages::Pages(std::function<void(const QString&)> say) : say_(std::move(say)) {}

Pages::~Pages() = default;

QWebEngineView& Pages::PageOf(int number) {
  auto& page = pages_[number];
  if (page) return *page;
  page = std::make_unique<QWebEngineView>();
  QWebEngineView* view = page.get();
  QObject::connect(view, &QWebEngineView::loadStarted, view,
                   [this, number] { say_(QStringLiteral("busy %1").arg(number)); });
  QObject::connect(view, &QWebEngineView::loadFinished, view, [this, number, view] {
    say_(QStringLiteral("ready %1 %2").arg(number).arg(OneLine(view->title())));
  });
  QObject::connect(view, &QWebEngineView::titleChanged, view, [this, number](const QString& title) {
    say_(QStringLiteral("title %1 %2").arg(number).arg(OneLine(title)));
  });
  return *view;
}

void Pages::Place(int number, const QStringList& words) {
  QWebEngineView& page = PageOf(number);
  const auto host = static_cast<WId>(words.value(2).toULongLong());
  const QSizeF device(words.value(3).toInt(), words.value(4).toInt());
  if (host == 0) return;
  if (!page.windowHandle() || !page.windowHandle()->parent()) {
    page.setWindowFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    page.setAttribute(Qt::WA_ShowWithoutActivating);
    page.winId();
    page.windowHandle()->setParent(QWindow::fromWinId(host));
    page.windowHandle()->installEventFilter(new FocusOnClick(page.windowHandle()));
  }
  page.setGeometry(QRect(QPoint(0, 0), (device / page.devicePixelRatioF()).toSize()));
  page.show();
}

void Pages::Obey(const QString& line) {
  const QStringList words = line.split(QLatin1Char(' '));
  bool isNumber = false;
  const int number = words.value(1).toInt(&isNumber);
  if (!isNumber || number < 0 || number >= mostPages) return;
  const QString& verb = words.first();
  if (verb == QLatin1String("navigate")) {
    PageOf(number).load(QUrl(line.section(QLatin1Char(' '), 2)));
  } else if (verb == QLatin1String("place")) {
    Place(number, words);
  } else if (verb == QLatin1String("show")) {
    PageOf(number).show();
    PageOf(number).raise();
  } else if (verb == QLatin1String("hide")) {
    PageOf(number).hide();
  }
}

}  // namespace lumidex
