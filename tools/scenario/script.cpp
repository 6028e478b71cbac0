#include "scenario/script.h"

namespace lumidex::scenario {
namespace {

struct Line {
  int number;
  std::size_t indentation;
  std::string text;
};

std::vector<Line> LinesOf(const std::string& text) {
  std::vector<Line> lines;
  int number = 0;
  for (std::size_t start = 0; start < text.size();) {
    const auto end = std::min(text.find('\n', start), text.size());
    std::string line = text.substr(start, end - start);
    start = end + 1;
    ++number;
    const auto first = line.find_first_not_of(" \t\r");
    if (first == std::string::npos || line[first] == '#') continue;
    line.erase(line.find_last_not_of(" \t\r") + 1);
    lines.push_back({number, first, line.substr(first)});
  }
  return lines;
}

class Reader {
 public:
  explicit Reader(std::vector<Line> lines) : lines_(std::move(lines)) {}

  std::vector<Statement> Statements(std::size_t indentation) {
    std::vector<Statement> statements;
    while (next_ < lines_.size() && lines_[next_].indentation >= indentation) {
      const Line& line = lines_[next_++];
      if (line.indentation > indentation)
        throw Failure{"the line is indented, but belongs to no block", line.number};
      statements.push_back(One(line));
    }
    return statements;
  }

 private:
  Statement One(const Line& line) {
    Statement statement;
    statement.line = line.number;
    statement.text = line.text;
    const bool isTitle = line.text.starts_with("scenario:");
    if (!isTitle && line.text.ends_with(':')) {
      // "drive D:" ends in a colon without being a block.
      const bool deeperFollows = next_ < lines_.size() && lines_[next_].indentation > line.indentation;
      if (deeperFollows) {
        statement.hasBlock = true;
        statement.text.pop_back();
        statement.block = Statements(lines_[next_].indentation);
      }
    }
    try {
      statement.words = SplitWords(statement.text);
    } catch (const Failure& failure) {
      throw Failure{failure.text, line.number};
    }
    return statement;
  }

  std::vector<Line> lines_;
  std::size_t next_ = 0;
};

}  // namespace

Script ReadScript(const std::string& file, const std::string& text) {
  Script script{file, {}};
  std::vector<Statement> common;
  for (Statement& statement : Reader(LinesOf(text)).Statements(0)) {
    constexpr std::string_view title = "scenario:";
    if (statement.text.starts_with(title)) {
      script.scenarios.push_back({RestOfLine(statement.text, title.size()), statement.line, common});
    } else if (script.scenarios.empty()) {
      common.push_back(std::move(statement));
    } else {
      script.scenarios.back().statements.push_back(std::move(statement));
    }
  }
  if (script.scenarios.empty()) script.scenarios.push_back({"the whole file", 1, std::move(common)});
  return script;
}

Statement WithNumber(const Statement& statement, const std::string& mark, long long number) {
  Statement copy = statement;
  const std::string digits = std::to_string(number);
  for (std::size_t at = 0; (at = copy.text.find(mark, at)) != std::string::npos; at += digits.size()) {
    copy.text.replace(at, mark.size(), digits);
  }
  copy.words = SplitWords(copy.text);
  for (Statement& line : copy.block) line = WithNumber(line, mark, number);
  return copy;
}

}  // namespace lumidex::scenario
