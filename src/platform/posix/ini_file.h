#pragma once
// A small store of text values in sections, kept in one file that a person can read.
//
//   [Section]
//   Key=value
//
// A backslash, a line's end and a blank at either end of a value are written as \\, \n, \r and \s.

#include <map>
#include <optional>
#include <string>

namespace lumidex {

class IniFile {
 public:
  // Reads the file; one that is missing or unreadable is empty.
  explicit IniFile(std::string path);
  std::optional<std::string> Value(const std::string& section, const std::string& key) const;
  // Reads the file anew, so that another process's values stay, and writes it whole. False when it could not
  // be written; the value holds for this process all the same.
  bool SetValue(const std::string& section, const std::string& key, const std::string& value);

 private:
  using Values = std::map<std::string, std::map<std::string, std::string>>;
  void Read();
  std::string Text() const;

  std::string path_;
  Values values_;
  Values written_;  // by this process
};

}  // namespace lumidex
