#include "core/list_text.h"

#include "base/delimited.h"
#include "base/text.h"
#include "forms/WPaper2.h"

namespace lumidex {

std::string ListFileText(const App& app) {
  using namespace list_text;
  const ListBox& list = app.WPaper2.LstRight;
  std::string text;
  const auto line = [&](const std::string& content) { text += content + "\r\n"; };
  line(titleLine);
  line(countKey + ("=" + Number(list.ListCount())));
  line(indexKey + ("=" + Number(app.CurrentIndex)));
  for (int position = 0; position < list.ListCount(); ++position) {
    line(DelimitedItem(Number(position) + " =| " + list.List(position)));
  }
  line(endLine);
  return text;
}

}  // namespace lumidex
