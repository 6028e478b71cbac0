// The status bar: texts, the picture of the file type, and a date and a time that the bar keeps itself.

#include <QDateTime>
#include <QFrame>
#include <QHBoxLayout>
#include <QLocale>
#include <QPainter>
#include <QTimer>

#include "platform/qt/accessibility.h"
#include "platform/qt/artwork.h"
#include "platform/qt/conversions.h"
#include "platform/qt/guarded.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

constexpr int margin = 4;

// In the desktop's own style, to the minute: some styles show seconds even in their short form.
QString ClockText(const QTime& time) {
  const QLocale locale;
  return locale.toString(time, locale.timeFormat(QLocale::ShortFormat).remove(QStringLiteral(":ss")));
}

// One sunken panel: a small picture, then a text that is cut in the middle where it is too long.
class PanelView final : public QFrame {
 public:
  explicit PanelView(QWidget* parent) : QFrame(parent) {
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    SetAccessibleRole(*this, QAccessible::StaticText);
  }

  void Show(const QString& text) {
    if (text_ == text) return;
    text_ = text;
    setAccessibleName(text);
    setToolTip(text);
    update();
  }
  void ShowType(const std::string& key) {
    if (key_ == key) return;
    key_ = key;
    picture_ = key.empty() ? Picture() : ArtworkPicture("types/" + key + ".bmp");
    update();
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QFrame::paintEvent(event);
    PaintGuarded(*this, [this] { PaintContent(); });
  }

 private:
  void PaintContent() {
    QPainter painter(this);
    QRect room = contentsRect().adjusted(margin, 0, -margin, 0);
    if (!picture_.IsEmpty()) {
      const int height = room.height() - 2;
      const QRect box(room.left(), room.top() + 1, height * 2, height);
      painter.setRenderHint(QPainter::SmoothPixmapTransform);
      painter.drawImage(box, ToImage(picture_, (QSizeF(box.size()) * devicePixelRatioF()).toSize()));
      room.setLeft(box.right() + 1 + margin);
    }
    const QString shown = fontMetrics().elidedText(text_, Qt::ElideMiddle, room.width());
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
  }

  QString text_;
  std::string key_;
  Picture picture_;
};

class StatusBarView final : public QWidget {
 public:
  StatusBarView(const StatusBar& control, QWidget* parent) : QWidget(parent), control_(control) {
    // The lists and the picture area may reach below the window; the bar hides what stands behind it.
    setAutoFillBackground(true);
    SetAccessibleRole(*this, QAccessible::StatusBar);
    setAccessibleName(QStringLiteral("Status bar"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(2, 1, 2, 2);
    row->setSpacing(2);
    for (int position = 1; position <= control.Count(); ++position) {
      auto* panel = new PanelView(this);
      panels_.push_back(panel);
      const int width = WidthOf(position);
      panel->setFixedHeight(fontMetrics().height() + 6);
      if (width > 0) panel->setFixedWidth(width);
      row->addWidget(panel, width > 0 ? 0 : 1);
    }
    clock_.setSingleShot(true);
    clock_.setTimerType(Qt::PreciseTimer);
    connect(&clock_, &QTimer::timeout, this, [this] { ShowClock(); });
    ShowClock();
  }

  void Show() {
    for (int position = 1; position <= control_.Count(); ++position) {
      const StatusPanel& panel = control_.Panel(position);
      if (panel.Style != PanelStyle::Text) continue;
      PanelView* shown = panels_[static_cast<std::size_t>(position - 1)];
      shown->Show(ToQt(panel.Text));
      shown->ShowType(panel.PictureKey);
    }
  }

 private:
  // Room for the longest text that a panel is meant for; 0 takes what is left.
  int WidthOf(int position) const {
    const QLocale locale;
    const StatusPanel& panel = control_.Panel(position);
    QString longest;
    if (panel.Style == PanelStyle::Date) {
      longest = locale.toString(QDate(2000, 12, 28), QLocale::ShortFormat);
    } else if (panel.Style == PanelStyle::Time) {
      longest = ClockText(QTime(22, 58));
    } else if (panel.Widest.empty()) {
      return 0;
    } else {
      longest = ToQt(panel.Widest);
    }
    return fontMetrics().horizontalAdvance(longest + QStringLiteral("0")) + 2 * margin + 4;
  }

  void ShowClock() {
    const QDateTime now = QDateTime::currentDateTime();
    const QLocale locale;
    for (int position = 1; position <= control_.Count(); ++position) {
      PanelView* shown = panels_[static_cast<std::size_t>(position - 1)];
      const PanelStyle style = control_.Panel(position).Style;
      if (style == PanelStyle::Date) shown->Show(locale.toString(now.date(), QLocale::ShortFormat));
      if (style == PanelStyle::Time) shown->Show(ClockText(now.time()));
    }
    const QTime time = now.time();
    clock_.start((60 - time.second()) * 1000 - time.msec());
  }

  const StatusBar& control_;
  std::vector<PanelView*> panels_;
  QTimer clock_;
};

}  // namespace

QWidget* MakeStatusBar(FormView& view, StatusBar& control, QWidget* parent) {
  auto* bar = new StatusBarView(control, parent);
  view.Follow(control, bar, [bar] { bar->Show(); });
  return bar;
}

}  // namespace lumidex
