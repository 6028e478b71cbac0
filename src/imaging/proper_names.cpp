#include "imaging/proper_names.h"

#include "base/text.h"

namespace lumidex {

std::string ProperCaseName(const App& app, const std::string& name) {
  const char separator = app.platform.files.Separator();
  std::string proper = LCase(name);
  char before = 0;
  bool isBehindPoint = false;
  for (std::size_t place = 0; place < proper.size();) {
    const char lead = proper[place];
    std::size_t bytes = IsAscii(lead) ? 1 : CharacterBytes(std::string_view(proper).substr(place));
    const bool isSingle = bytes == 1;
    const bool isFirst = place == 0;
    const bool isRaised = isFirst || isBehindPoint || before == ' ' || before == separator;
    if (isRaised && IsAscii(lead)) {
      proper[place] = UpperAscii(lead);
    } else if (isRaised) {
      const std::string raised = UCase(std::string_view(proper).substr(place, bytes));
      proper.replace(place, bytes, raised);
      bytes = raised.size();
    }
    // A point at the very start raises nothing, nor does one that was itself to be raised.
    isBehindPoint = lead == '.' && !isFirst && !isBehindPoint;
    before = isSingle ? lead : '\0';
    place += bytes;
  }
  return proper;
}

std::string ProperFileName(const App& app, const std::string& path) {
  return ProperCaseName(app, path.substr(path.rfind(app.platform.files.Separator()) + 1));  // npos + 1 is 0
}

}  // namespace lumidex
