#include "imaging/proper_names.h"

#include "base/text.h"

namespace lumidex {

std::string ProperCaseName(const App& app, const std::string& name) {
  const char separator = app.platform.files.Separator();
  const std::string folded = LCase(name);
  std::string proper;
  proper.reserve(folded.size());
  char before = 0;
  bool isFirst = true, isBehindPoint = false;
  for (std::string_view rest = folded; !rest.empty(); isFirst = false) {
    const std::string_view character = rest.substr(0, CharacterBytes(rest));
    rest.remove_prefix(character.size());
    const bool isRaised = isFirst || isBehindPoint || before == ' ' || before == separator;
    if (isRaised) {
      proper += UCase(character);
    } else {
      proper += character;
    }
    // A point at the very start raises nothing, nor does one that was itself to be raised.
    isBehindPoint = character == "." && !isFirst && !isBehindPoint;
    before = character.size() == 1 ? character[0] : '\0';
  }
  return proper;
}

std::string ProperFileName(const App& app, const std::string& path) {
  return ProperCaseName(app, path.substr(path.rfind(app.platform.files.Separator()) + 1));  // npos + 1 is 0
}

}  // namespace lumidex
