#include "scenario/captions.h"

#include "base/text.h"
#include "controls/menu_item.h"

namespace lumidex::scenario {
namespace {

// The texts of `row` with each number from `first` on in place of its #.
void AddRows(Control& control, const std::string& count, const std::string& row, int first,
             std::vector<std::string>& texts) {
  const int end = first + static_cast<int>(Val(control.ReadProperty(count).value_or("")));
  for (int i = first; i < end; ++i) {
    std::string name = row;
    name.replace(name.find('#'), 1, Number(i));
    if (const auto text = control.ReadProperty(name)) texts.push_back(*text);
  }
}

}  // namespace

int AccessKeyOf(Control& control) {
  const std::string caption = control.ReadProperty("Caption").value_or("");
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return static_cast<unsigned char>(UCase(caption.substr(i + 1, 1))[0]);
    ++i;
  }
  return 0;
}

std::string AsSeen(const std::string& caption) {
  std::string seen;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    const bool isMark = caption[i] == '&' && i + 1 < caption.size();
    if (isMark) ++i;
    seen += caption[i];
  }
  return seen;
}

std::vector<std::string> ShownTexts(Form& form) {
  std::vector<std::string> texts;
  if (!form.Visible()) return texts;
  texts.push_back(form.Caption);
  for (Control* control : form.Controls()) {
    // Entries of menus are seen only while their menu is open.
    const auto* item = dynamic_cast<const MenuItem*>(control);
    if (!control->Visible || (item && item->Parent())) continue;
    if (const auto caption = control->ReadProperty("Caption")) texts.push_back(AsSeen(*caption));
    if (const auto text = control->ReadProperty("Text")) texts.push_back(*text);
    AddRows(*control, "ListCount", "List(#)", 0, texts);
    AddRows(*control, "Tabs", "TabCaption(#)", 0, texts);
    AddRows(*control, "Panels.Count", "Panels(#).Text", 1, texts);
  }
  return texts;
}

}  // namespace lumidex::scenario
