#pragma once
// The words of a statement, taken one after the other. What is missing, unknown or left over is a Failure, so
// that no word of a scenario goes unread.

#include <initializer_list>

#include "scenario/script.h"

namespace lumidex::scenario {

class Arguments {
 public:
  // The words of the statement from `first` up to the one at `end`.
  explicit Arguments(const Statement& statement, std::size_t first = 1, std::size_t end = std::string::npos);

  const Statement& Line() const { return statement_; }
  bool AtEnd() const { return next_ >= end_; }
  // The next word, which stays; null at the end.
  const Word* Peek() const;
  // Takes the next word when it reads so and stands outside of quotes.
  bool Take(std::string_view word);

  // Each throws Failure when there is no further word; `what` says what is missing then.
  const Word& NextWord(const char* what);
  const std::string& Next(const char* what) { return NextWord(what).text; }
  long long NextNumber(const char* what);
  int NextInt(const char* what) { return static_cast<int>(NextNumber(what)); }
  void Need(std::string_view word);
  // The place of the next word among these; throws Failure for any other.
  std::size_t Choice(std::initializer_list<const char*> words);
  // The rest of the line as one text; see RestOfLine.
  std::string Rest();

  // The block below the line; throws Failure when there is none.
  const Statement& Block();
  // The block when there is one, else null.
  const Statement* BlockIfAny();

  // Throws Failure for a word or a block that nobody has taken. Statements ask for it before they act.
  void End() const;

 private:
  const Statement& statement_;
  std::size_t next_;
  std::size_t end_;
  bool blockTaken_ = false;
};

}  // namespace lumidex::scenario
