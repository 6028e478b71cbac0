#pragma once
// A grid of text cells. The first row is that of the headings; the first column is theirs, too, and stays in
// place.

#include "controls/control.h"

namespace lumidex {

class Grid final : public Control {
 public:
  Grid(Form& owner, std::string name, int rows = 2, int columns = 2);
  std::string_view Kind() const override { return "MSFlexGrid"; }
  // Also Rows, Cols, Row, Col, Text, TextMatrix(row,column) and ColWidth(column).
  std::optional<std::string> ReadProperty(std::string_view name) override;
  // What was built up so far belongs to the design.
  void KeepDesign() override;
  void RestoreDesign() override;
  bool CanTakeFocus() const override { return true; }

  int Rows() const { return static_cast<int>(now_.cells.size()); }
  int Cols() const { return static_cast<int>(now_.widths.size()); }
  // Below 0 raises InvalidPropertyValue. Cells that stay keep their text.
  void SetRows(int rows);
  void SetCols(int columns);
  // A row behind the last one, or before row `index`; a tab ends each cell but the last, and cells beyond the
  // columns are left out. Raises InvalidCall for an index outside.
  void AddItem(std::string_view cells, int index = -1);
  // Raise Subscript outside.
  std::string TextMatrix(int row, int column) const;
  void SetTextMatrix(int row, int column, std::string text);

  // The current cell; positions outside raise InvalidPropertyValue. Text is that of the current cell.
  int Row() const { return now_.row; }
  int Col() const { return now_.column; }
  void SetRow(int row);
  void SetCol(int column);
  std::string Text() const { return TextMatrix(Row(), Col()); }
  void SetText(std::string text) { SetTextMatrix(Row(), Col(), std::move(text)); }

  // In twips; -1 is the width that the desktop gives a column by itself. A column that does not exist raises
  // Subscript, a width below -1 InvalidPropertyValue.
  int ColWidth(int column) const;
  void SetColWidth(int column, int width);

  // Empties every cell; rows, columns and widths stay.
  void Clear();

  // The user goes to a cell.
  void UserSelect(int row, int column);

 private:
  using Cells = std::vector<std::string>;
  struct Content {
    std::vector<Cells> cells;
    std::vector<int> widths;  // one for each column
    int row = 0, column = 0;
  };
  void CheckCell(int row, int column) const;
  std::size_t Column(int column) const;

  Content now_, design_;
};

}  // namespace lumidex
