#pragma once
// A grid of text cells.

#include "controls/control.h"

namespace lumidex {

class Grid final : public Control {
 public:
  Grid(Form& owner, std::string name, int rows = 2, int columns = 2);
  std::string_view Kind() const override { return "MSFlexGrid"; }
  // Also Rows, Cols and TextMatrix(row,column).
  std::optional<std::string> ReadProperty(std::string_view name) override;
  void RestoreDesign() override;

  int Rows() const { return static_cast<int>(cells_.size()); }
  int Cols() const { return columns_; }
  // Below 0 raises InvalidPropertyValue. Cells that stay keep their text.
  void SetRows(int rows);
  void SetCols(int columns);
  // Raise Subscript outside.
  std::string TextMatrix(int row, int column) const;
  void SetTextMatrix(int row, int column, std::string text);
  void Clear();

 private:
  void CheckCell(int row, int column) const;
  const int designRows_, designColumns_;
  int columns_;
  std::vector<std::vector<std::string>> cells_;
};

}  // namespace lumidex
