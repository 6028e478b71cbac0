#include "controls/grid.h"

#include <algorithm>

#include "base/run_time_error.h"
#include "base/text.h"

namespace lumidex {
namespace {

constexpr int widthOfTheDesktop = -1;

[[noreturn]] void RaiseInvalidValue() {
  throw RunTimeError(ErrorNumber::InvalidPropertyValue);
}

}  // namespace

Grid::Grid(Form& owner, std::string name, int rows, int columns) : Control(owner, std::move(name)) {
  SetCols(columns);
  SetRows(rows);
  // The first cell behind the headings.
  now_.row = std::max(0, std::min(1, rows - 1));
  now_.column = std::max(0, std::min(1, columns - 1));
  design_ = now_;
}

std::optional<std::string> Grid::ReadProperty(std::string_view name) {
  if (name == "Rows") return Number(Rows());
  if (name == "Cols") return Number(Cols());
  if (name == "Row") return Number(Row());
  if (name == "Col") return Number(Col());
  if (name == "Text") return Text();
  if (const auto column = Argument(name, "ColWidth")) return Number(ColWidth(*column));
  constexpr std::string_view call = "TextMatrix(";
  if (name.starts_with(call)) {
    const auto comma = name.find(',');
    if (comma == std::string_view::npos) return {};
    return TextMatrix(static_cast<int>(Val(name.substr(call.size()))),
                      static_cast<int>(Val(name.substr(comma + 1))));
  }
  return Control::ReadProperty(name);
}

void Grid::KeepDesign() {
  Control::KeepDesign();
  design_ = now_;
}

void Grid::RestoreDesign() {
  Control::RestoreDesign();
  now_ = design_;
  Changed.Emit();
}

void Grid::SetRows(int rows) {
  if (rows < 0) RaiseInvalidValue();
  now_.cells.resize(static_cast<std::size_t>(rows), Cells(now_.widths.size()));
  now_.row = std::clamp(now_.row, 0, std::max(0, rows - 1));
  Changed.Emit();
}

void Grid::SetCols(int columns) {
  if (columns < 0) RaiseInvalidValue();
  now_.widths.resize(static_cast<std::size_t>(columns), widthOfTheDesktop);
  for (Cells& row : now_.cells) row.resize(static_cast<std::size_t>(columns));
  now_.column = std::clamp(now_.column, 0, std::max(0, columns - 1));
  Changed.Emit();
}

void Grid::AddItem(std::string_view text, int index) {
  if (index < -1 || index > Rows()) throw RunTimeError(ErrorNumber::InvalidCall);
  Cells row(now_.widths.size());
  for (std::string& cell : row) {
    const auto end = text.find('\t');
    cell = text.substr(0, end);
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  now_.cells.insert(index < 0 ? now_.cells.end() : now_.cells.begin() + index, std::move(row));
  Changed.Emit();
}

void Grid::CheckCell(int row, int column) const {
  if (row < 0 || row >= Rows() || column < 0 || column >= Cols()) RaiseSubscript();
}

std::string Grid::TextMatrix(int row, int column) const {
  CheckCell(row, column);
  return now_.cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

void Grid::SetTextMatrix(int row, int column, std::string text) {
  CheckCell(row, column);
  now_.cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = std::move(text);
  Changed.Emit();
}

void Grid::SetRow(int row) {
  if (row < 0 || row >= Rows()) RaiseInvalidValue();
  if (row == now_.row) return;
  now_.row = row;
  Changed.Emit();
}

void Grid::SetCol(int column) {
  if (column < 0 || column >= Cols()) RaiseInvalidValue();
  if (column == now_.column) return;
  now_.column = column;
  Changed.Emit();
}

std::size_t Grid::Column(int column) const {
  if (column < 0 || column >= Cols()) RaiseSubscript();
  return static_cast<std::size_t>(column);
}

int Grid::ColWidth(int column) const {
  return now_.widths[Column(column)];
}

void Grid::SetColWidth(int column, int width) {
  const std::size_t place = Column(column);
  if (width < widthOfTheDesktop) RaiseInvalidValue();
  now_.widths[place] = width;
  Changed.Emit();
}

void Grid::Clear() {
  for (Cells& row : now_.cells) row.assign(row.size(), {});
  Changed.Emit();
}

void Grid::UserSelect(int row, int column) {
  if (row < 0 || row >= Rows() || column < 0 || column >= Cols() || !UserMayAct()) return;
  SetRow(row);
  SetCol(column);
}

}  // namespace lumidex
