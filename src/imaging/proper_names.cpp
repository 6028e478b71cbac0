#include "imaging/proper_names.h"

#include "base/text.h"

namespace lumidex {

std::string ProperCaseName(const App& app, const std::string& name) {
  const std::string separator(1, app.platform.files.Separator());
  std::vector<std::string> characters;
  for (std::string_view rest = name; !rest.empty(); rest.remove_prefix(CharacterBytes(rest))) {
    characters.emplace_back(rest.substr(0, CharacterBytes(rest)));
  }
  const std::size_t length = characters.size();
  // One-based, as the rule is told; positions outside are no character.
  const auto at = [&](std::size_t i) { return i >= 1 && i <= length ? characters[i - 1] : std::string(); };
  const auto raise = [&](std::size_t i) {
    if (i >= 1 && i <= length) characters[i - 1] = UCase(characters[i - 1]);
  };
  for (std::string& character : characters) character = LCase(character);
  raise(1);
  for (std::size_t i = 2; i <= length; ++i) {
    if (at(i - 1) == " ") raise(i);
    if (at(i) == ".") raise(++i);
    if (at(i - 1) == separator) raise(i);
  }
  std::string proper;
  for (const std::string& character : characters) proper += character;
  return proper;
}

std::string ProperFileName(const App& app, const std::string& path) {
  return ProperCaseName(app, path.substr(path.rfind(app.platform.files.Separator()) + 1));  // npos + 1 is 0
}

}  // namespace lumidex
