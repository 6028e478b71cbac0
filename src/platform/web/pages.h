#pragma once
// The web pages of the viewer's window: each in a window of its own, inside a window of the viewer where the
// window system allows that.

#include <QString>
#include <functional>
#include <map>
#include <memory>

class QWebEngineView;

namespace lumidex {

class Pages {
 public:
  // `say` sends a line to the viewer: "busy N", "ready N TITLE", "title N TITLE".
  explicit Pages(std::function<void(const QString& line)> say);
  ~Pages();

  // A line of the viewer: "navigate N ADDRESS"; "place N WINDOW WIDTH HEIGHT" in device pixels, where window
  // 0 is none and the page stands by itself; "show N" and "hide N" for a page that stands by itself. Others
  // are passed over.
  void Obey(const QString& line);

 private:
  QWebEngineView& PageOf(int number);
  void Place(int number, const QStringList& words);

  std::function<void(const QString&)> say_;
  std::map<int, std::unique_ptr<QWebEngineView>> pages_;
};

}  // namespace lumidex
