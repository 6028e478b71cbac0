#pragma once
// The main window: every control at its own position in twips, the toolbar above, the status bar below.

#include "platform/qt/form_view.h"

namespace lumidex {

class MainView final : public FormView {
 public:
  MainView(FormViews& views, Form& form);

 protected:
  bool SizeComesFromForm() const override { return true; }
  QPoint DrawingCorner() const override { return client_->pos(); }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AddControls();
  void AddPicture();
  void PlaceBars();
  // Leaves the window unpainted until its picture is there, and not for long if none comes.
  void HoldPainting();

  QWidget* client_;  // below the menu bar: positions count from its corner
  QWidget* toolbar_ = nullptr;
  QWidget* statusBar_ = nullptr;
};

}  // namespace lumidex
