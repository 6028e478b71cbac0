#include "imaging/proper_names.h"

#include "base/text.h"

namespace lumidex {

std::string ProperCaseName(const App& app, const std::string& name) {
  const char separator = app.platform.files.Separator();
  const std::string folded = LCase(name);
  std::string proper;
  proper.reserve(folded.size());
  char before = 0;
  bool isBehindPoint = false;
  for (std::size_t place = 0; place < folded.size();) {
    const char lead = folded[place];
    const bool isFirst = place == 0;
    const bool isRaised = isFirst || isBehindPoint || before == ' ' || before == separator;
    const bool isPlain = static_cast<unsigned char>(lead) < 0x80;
    const std::string_view rest = std::string_view(folded).substr(place);
    const std::string_view character = rest.substr(0, isPlain ? 1 : CharacterBytes(rest));
    if (isRaised) {
      proper += UCase(character);
    } else {
      proper += character;
    }
    // A point at the very start raises nothing, nor does one that was itself to be raised.
    isBehindPoint = lead == '.' && !isFirst && !isBehindPoint;
    before = character.size() == 1 ? lead : '\0';
    place += character.size();
  }
  return proper;
}

std::string ProperFileName(const App& app, const std::string& path) {
  return ProperCaseName(app, path.substr(path.rfind(app.platform.files.Separator()) + 1));  // npos + 1 is 0
}

}  // namespace lumidex
