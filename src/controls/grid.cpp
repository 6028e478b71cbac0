#include "controls/grid.h"

#include "base/run_time_error.h"
#include "base/text.h"

namespace lumidex {

Grid::Grid(Form& owner, std::string name, int rows, int columns)
    : Control(owner, std::move(name)), designRows_(rows), designColumns_(columns), columns_(columns) {
  SetRows(rows);
}

std::optional<std::string> Grid::ReadProperty(std::string_view name) {
  if (name == "Rows") return Number(Rows());
  if (name == "Cols") return Number(Cols());
  constexpr std::string_view call = "TextMatrix(";
  if (name.starts_with(call)) {
    const auto comma = name.find(',');
    if (comma == std::string_view::npos) return {};
    return TextMatrix(static_cast<int>(Val(name.substr(call.size()))),
                      static_cast<int>(Val(name.substr(comma + 1))));
  }
  return Control::ReadProperty(name);
}

void Grid::RestoreDesign() {
  Control::RestoreDesign();
  Clear();
  SetRows(designRows_);
  SetCols(designColumns_);
}

void Grid::SetRows(int rows) {
  if (rows < 0) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
  cells_.resize(static_cast<std::size_t>(rows), std::vector<std::string>(static_cast<std::size_t>(columns_)));
  Changed.Emit();
}

void Grid::SetCols(int columns) {
  if (columns < 0) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
  columns_ = columns;
  for (auto& row : cells_) row.resize(static_cast<std::size_t>(columns));
  Changed.Emit();
}

void Grid::CheckCell(int row, int column) const {
  if (row < 0 || row >= Rows() || column < 0 || column >= Cols()) RaiseSubscript();
}

std::string Grid::TextMatrix(int row, int column) const {
  CheckCell(row, column);
  return cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

void Grid::SetTextMatrix(int row, int column, std::string text) {
  CheckCell(row, column);
  cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = std::move(text);
  Changed.Emit();
}

void Grid::Clear() {
  for (auto& row : cells_) row.assign(row.size(), {});
  Changed.Emit();
}

}  // namespace lumidex
