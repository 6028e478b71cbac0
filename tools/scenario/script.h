#pragma once
// A scenario file, read into its statements. Deeper indentation below a line that ends in a colon makes the
// block of that line.

#include <string>
#include <vector>

#include "scenario/words.h"

namespace lumidex::scenario {

struct Statement {
  int line = 0;      // one-based
  std::string text;  // without indentation and without the colon of a block
  std::vector<Word> words;
  bool hasBlock = false;
  std::vector<Statement> block;
};

// One case: a fresh world, and what happens in it.
struct Scenario {
  std::string name;
  int line = 0;
  std::vector<Statement> statements;
};

struct Script {
  std::string file;
  std::vector<Scenario> scenarios;
};

// The lines before the first "scenario:" begin every scenario of the file; a file without any is one scenario
// under its own name. Throws Failure with the line.
Script ReadScript(const std::string& file, const std::string& text);

// The statement and its block with a number in place of `mark`.
Statement WithNumber(const Statement& statement, const std::string& mark, long long number);

}  // namespace lumidex::scenario
