#pragma once
// The window that counts the Display list: the file at hand above, the counters in their groups, the buttons
// below.

#include "forms/frmstats.h"
#include "platform/qt/typed_view.h"

class QGridLayout;

namespace lumidex {

class StatisticsView final : public TypedView<frmstatsWindow> {
 public:
  StatisticsView(FormViews& views, frmstatsWindow& form);

 private:
  QWidget* Progress();
  QWidget* Types();
  QWidget* Sizes();
  QWidget* Colours();
  // A counter below its label.
  void AddPair(QGridLayout& grid, int row, int column, Label& label, TextBox& box, QWidget* parent);
};

}  // namespace lumidex
