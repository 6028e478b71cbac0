#include "platform/posix/file_address.h"

#include <algorithm>

namespace lumidex {
namespace {

int HexDigit(char character) {
  if (character >= '0' && character <= '9') return character - '0';
  if (character >= 'a' && character <= 'f') return character - 'a' + 10;
  if (character >= 'A' && character <= 'F') return character - 'A' + 10;
  return -1;
}

std::string Decoded(std::string_view text) {
  std::string path;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escaped =
        text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 && HexDigit(text[i + 2]) >= 0;
    path += escaped ? static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2])) : text[i];
    if (escaped) i += 2;
  }
  return path;
}

}  // namespace

std::string PathOfAddress(const std::string& address) {
  std::string_view rest = address;
  if (!rest.starts_with("file:/")) return address;
  rest.remove_prefix(5);
  if (rest.starts_with("//")) {
    rest.remove_prefix(2);
    const std::string_view host = rest.substr(0, rest.find('/'));
    if (!host.empty() && host != "localhost") return address;
    rest.remove_prefix(host.size());
  }
  return Decoded(rest);
}

std::vector<std::string> PathsOfAddresses(std::string_view list) {
  std::vector<std::string> paths;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find('\n'), list.size());
    std::string line(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
    if (line.ends_with('\r')) line.pop_back();
    const std::string path = PathOfAddress(line);
    if (path.starts_with('/')) paths.push_back(path);
  }
  return paths;
}

}  // namespace lumidex
