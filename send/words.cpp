// SPDX-License-Identifier: MIT

#include "send/words.h"

#include "commandline/parse.h"

namespace vantrel::send {
namespace {

using commandline::WrongUse;

bool IsBlank(char character) { return character == ' ' || character == '\t'; }

class Splitter {
 public:
  explicit Splitter(std::string_view line) : line_(line) {}

  std::vector<std::string> Split() {
    SkipBlanks();
    if (!AtEnd() && line_[position_] == '#') return {};
    // It would end the parameter early wherever that is a path or told.
    if (line_.find('\0') != std::string_view::npos) throw WrongUse("The line holds a byte 00h.");
    while (!AtEnd()) {
      words_.push_back(Word());
      SkipBlanks();
    }
    return std::move(words_);
  }

 private:
  bool AtEnd() const { return position_ == line_.size(); }

  void SkipBlanks() {
    while (!AtEnd() && IsBlank(line_[position_])) ++position_;
  }

  std::string Word() {
    std::string word;
    while (!AtEnd() && !IsBlank(line_[position_])) {
      const char character = line_[position_++];
      if (character == '\'')
        TakeSingleQuoted(word);
      else if (character == '"')
        TakeDoubleQuoted(word);
      else if (character == '\\')
        word += Next("The line ends in a backslash.");
      else
        word += character;
    }
    return word;
  }

  void TakeSingleQuoted(std::string& word) {
    while (true) {
      const char character = Next(kUnclosed);
      if (character == '\'') return;
      word += character;
    }
  }

  void TakeDoubleQuoted(std::string& word) {
    while (true) {
      const char character = Next(kUnclosed);
      if (character == '"') return;
      if (character != '\\') {
        word += character;
        continue;
      }
      const char escaped = Next(kUnclosed);
      if (std::string_view("$`\"\\").find(escaped) == std::string_view::npos) word += '\\';
      word += escaped;
    }
  }

  char Next(const char* refusal) {
    if (AtEnd()) throw WrongUse(refusal);
    return line_[position_++];
  }

  static constexpr const char* kUnclosed = "A quote is not closed.";

  const std::string_view line_;
  std::size_t position_ = 0;
  std::vector<std::string> words_;
};

}  // namespace

std::vector<std::string> WordsOf(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  return Splitter(line).Split();
}

}  // namespace vantrel::send
