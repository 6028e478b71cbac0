#include "platform/posix/ini_file.h"

#include <fstream>

#include "platform/posix/environment.h"
#include "platform/posix/posix_errors.h"
#include "platform/posix/write_file.h"

namespace lumidex {
namespace {

std::string Escaped(const std::string& value) {
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const bool atEnd = i == 0 || i + 1 == value.size();
    if (value[i] == '\\') {
      text += "\\\\";
    } else if (value[i] == '\n') {
      text += "\\n";
    } else if (value[i] == '\r') {
      text += "\\r";
    } else if (value[i] == ' ' && atEnd) {
      text += "\\s";
    } else {
      text += value[i];
    }
  }
  return text;
}

std::string Unescaped(const std::string& text) {
  std::string value;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      value += text[i];
      continue;
    }
    switch (text[++i]) {
      case 'n':
        value += '\n';
        break;
      case 'r':
        value += '\r';
        break;
      case 's':
        value += ' ';
        break;
      default:
        value += text[i];
    }
  }
  return value;
}

}  // namespace

IniFile::IniFile(std::string path) : path_(std::move(path)) {
  Read();
}

void IniFile::Read() {
  values_.clear();
  std::ifstream file(path_, std::ios::binary);
  std::string section;
  for (std::string line; std::getline(file, line);) {
    if (line.size() >= 2 && line.front() == '[' && line.back() == ']') {
      section = Unescaped(line.substr(1, line.size() - 2));
    } else if (const auto equals = line.find('='); equals != std::string::npos) {
      values_[section][Unescaped(line.substr(0, equals))] = Unescaped(line.substr(equals + 1));
    }
  }
}

std::optional<std::string> IniFile::Value(const std::string& section, const std::string& key) const {
  const auto group = values_.find(section);
  if (group == values_.end()) return {};
  const auto found = group->second.find(key);
  if (found == group->second.end()) return {};
  return found->second;
}

bool IniFile::SetValue(const std::string& section, const std::string& key, const std::string& value) {
  written_[section][key] = value;
  Read();
  const Values onDisk = values_;
  for (const auto& [name, group] : written_) {
    for (const auto& [entry, text] : group) values_[name][entry] = text;
  }
  if (values_ == onDisk) return true;
  MakeFolders(path_.substr(0, path_.rfind('/')));
  try {
    WriteFile(path_, [this](ByteSink& sink) { sink.WriteText(Text()); });
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

std::string IniFile::Text() const {
  std::string text;
  for (const auto& [name, group] : values_) {
    text += "[" + Escaped(name) + "]\n";
    for (const auto& [key, value] : group) text += Escaped(key) + "=" + Escaped(value) + "\n";
  }
  return text;
}

}  // namespace lumidex
