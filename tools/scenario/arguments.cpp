#include "scenario/arguments.h"

#include <algorithm>

namespace lumidex::scenario {

Arguments::Arguments(const Statement& statement, std::size_t first, std::size_t end)
    : statement_(statement), next_(first), end_(std::min(end, statement.words.size())) {}

const Word* Arguments::Peek() const {
  return AtEnd() ? nullptr : &statement_.words[next_];
}

bool Arguments::Take(std::string_view word) {
  const Word* next = Peek();
  if (!next || !next->Is(word)) return false;
  ++next_;
  return true;
}

const Word& Arguments::NextWord(const char* what) {
  if (AtEnd()) throw Failure{std::string(what) + " is missing"};
  return statement_.words[next_++];
}

long long Arguments::NextNumber(const char* what) {
  return WholeNumber(Next(what));
}

void Arguments::Need(std::string_view word) {
  if (Take(word)) return;
  const Word* next = Peek();
  const std::string wanted = "\"" + std::string(word) + "\"";
  throw Failure{next ? "\"" + next->text + "\" stands where " + wanted + " belongs" : wanted + " is missing"};
}

std::size_t Arguments::Choice(std::initializer_list<const char*> words) {
  std::string all;
  std::size_t place = 0;
  for (const char* word : words) {
    if (Take(word)) return place;
    if (place > 0) all += place + 1 == words.size() ? " or " : ", ";
    all += std::string("\"") + word + "\"";
    ++place;
  }
  const Word* next = Peek();
  throw Failure{next ? "\"" + next->text + "\" is not " + all : all + " is missing"};
}

std::string Arguments::Rest() {
  const std::size_t start = AtEnd() ? statement_.text.size() : statement_.words[next_].start;
  next_ = end_;
  return RestOfLine(statement_.text, start);
}

const Statement& Arguments::Block() {
  const Statement* block = BlockIfAny();
  if (!block) throw Failure{"an indented block is missing below the line"};
  return *block;
}

const Statement* Arguments::BlockIfAny() {
  blockTaken_ = true;
  return statement_.hasBlock ? &statement_ : nullptr;
}

void Arguments::End() const {
  if (const Word* next = Peek()) throw Failure{"\"" + next->text + "\" is one word too many"};
  if (statement_.hasBlock && !blockTaken_) throw Failure{"the line takes no block"};
}

}  // namespace lumidex::scenario
