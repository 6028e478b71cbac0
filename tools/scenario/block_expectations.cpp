#include "scenario/block_expectations.h"

#include "base/text.h"
#include "controls/menu_item.h"
#include "scenario/captions.h"
#include "scenario/targets.h"

namespace lumidex::scenario {
namespace {

using Rows = std::vector<std::string>;

Rows RowsOf(const Statement& block) {
  Rows rows;
  for (const Statement& line : block.block) rows.push_back(RestOfLine(line.text, 0));
  return rows;
}

std::string Shown(const Rows& rows, std::size_t first = 0) {
  if (first >= rows.size()) return " nothing";
  std::string text;
  for (std::size_t i = first; i < rows.size(); ++i) text += "\n    " + rows[i];
  return text;
}

void CheckRows(const Rows& rows, const Statement* block, const char* what) {
  const Rows wanted = block ? RowsOf(*block) : Rows{};
  if (rows != wanted) throw Failure{std::string(what) + " holds" + Shown(rows)};
}

Rows ListRows(App& app, const std::string& name) {
  Rows rows;
  const int count = static_cast<int>(Val(ReadProperty(app, name + ".ListCount")));
  for (int row = 0; row < count; ++row)
    rows.push_back(ReadProperty(app, name + ".List(" + Number(row) + ")"));
  return rows;
}

// Cells apart by a bar.
Rows GridRows(App& app, const std::string& name) {
  Rows rows;
  const int count = static_cast<int>(Val(ReadProperty(app, name + ".Rows")));
  const int columns = static_cast<int>(Val(ReadProperty(app, name + ".Cols")));
  for (int row = 0; row < count; ++row) {
    std::string text;
    for (int column = 0; column < columns; ++column) {
      const std::string cell = name + ".TextMatrix(" + Number(row) + "," + Number(column) + ")";
      text += (column == 0 ? "" : " | ") + ReadProperty(app, cell);
    }
    rows.push_back(std::move(text));
  }
  return rows;
}

// The entries of a menu as they stand on the screen: those that are visible, "-" for a separator. A form's
// own are the titles of its menu bar.
Rows MenuRows(App& app, const std::string& name) {
  const Target target = FindElement(app, name);
  const auto* menu = dynamic_cast<const MenuItem*>(target.control);
  if (target.control && !menu) throw Failure{target.control->Name() + " is no menu"};
  Rows rows;
  for (Control* control : target.form->Controls()) {
    const auto* item = dynamic_cast<const MenuItem*>(control);
    if (item && item->Parent() == menu && item->Visible) rows.push_back(item->Caption);
  }
  return rows;
}

Rows FileRows(const MemoryFileSystem& files, const std::string& path) {
  Rows rows;
  const std::string text = files.ReadAll(path);
  constexpr std::string_view lineEnd = "\r\n";
  for (std::size_t start = 0; start < text.size();) {
    const auto end = text.find(lineEnd, start);
    // A line that ends otherwise must not look like one that ends as it should.
    if (end == std::string::npos)
      throw Failure{"the last line does not end in CR LF:\n    " + text.substr(start)};
    rows.push_back(text.substr(start, end - start));
    start = end + lineEnd.size();
  }
  return rows;
}

// With a block: exactly these lines, or with "has" these lines in this order, others between them.
void CheckLogLines(const Rows& lines, const Rows& wanted, bool mayHaveMore) {
  std::size_t next = 0;
  for (const std::string& text : wanted) {
    const std::size_t start = next;
    while (mayHaveMore && next < lines.size() && lines[next] != text) ++next;
    if (next >= lines.size() || lines[next] != text) {
      throw Failure{"instead of \"" + text + "\" the log goes on with" + Shown(lines, start)};
    }
    ++next;
  }
  if (!mayHaveMore && next < lines.size()) throw Failure{"the log goes on with \"" + lines[next] + "\""};
}

void CheckLogText(const Rows& lines, Arguments& words) {
  const bool wanted = words.Choice({"contains", "lacks"}) == 0;
  const std::string text = words.Rest();
  bool found = false;
  for (const std::string& line : lines) found = found || line.find(text) != std::string::npos;
  if (found != wanted) throw Failure{"the log is" + Shown(lines)};
}

void CheckLog(Execution& run, Arguments& words) {
  const Rows& lines = run.World().log.Lines();
  if (const Statement* block = words.BlockIfAny()) {
    const bool mayHaveMore = words.Take("has");
    CheckLogLines(lines, RowsOf(*block), mayHaveMore);
  } else {
    CheckLogText(lines, words);
  }
}

}  // namespace

bool CheckBlock(Execution& run, Arguments& words) {
  if (words.Take("log")) {
    CheckLog(run, words);
  } else if (words.Take("list")) {
    CheckRows(ListRows(run.Program(), words.Next("the list")), words.BlockIfAny(), "the list");
  } else if (words.Take("grid")) {
    CheckRows(GridRows(run.Program(), words.Next("the grid")), words.BlockIfAny(), "the grid");
  } else if (words.Take("menu")) {
    CheckRows(MenuRows(run.Program(), words.Next("the menu")), words.BlockIfAny(), "the menu");
  } else if (words.Line().hasBlock && words.Take("file")) {
    const std::string& path = words.Next("the path");
    words.Need("lines");
    CheckRows(FileRows(run.World().files, path), words.BlockIfAny(), "the file");
  } else {
    return false;
  }
  return true;
}

}  // namespace lumidex::scenario
