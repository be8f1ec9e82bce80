// SPDX-License-Identifier: MIT

#include "commandline/manual.h"

#include "commandline/help.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

namespace vantrel::commandline {
namespace {

std::string InCapitals(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char character) {
    return static_cast<char>(std::toupper(character));
  });
  return text;
}

// Text in which roff finds nothing of its own.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char character : text) {
    if (character == '\\')
      escaped += "\\e";
    else if (character == '-')
      escaped += "\\-";
    else if (character == '\'')
      escaped += "\\(aq";
    else if (character == '^')
      escaped += "\\(ha";
    else if (character == '~')
      escaped += "\\(ti";
    else
      escaped += character;
  }
  return escaped;
}

bool IsWordCharacter(char character) {
  return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

// Options in bold; words in capitals that `is_placeholder` accepts in italics.
template <typename IsPlaceholder>
std::string Styled(std::string_view text, IsPlaceholder is_placeholder) {
  std::string styled;
  std::size_t i = 0;
  while (i < text.size()) {
    std::size_t end = i;
    const bool at_start = i == 0 || !IsWordCharacter(text[i - 1]);
    if (at_start && text[i] == '-') {
      while (end < text.size() && (IsWordCharacter(text[end]) || text[end] == '-')) ++end;
      if (end - i > 1) {
        styled += "\\fB" + Escaped(text.substr(i, end - i)) + "\\fR";
        i = end;
        continue;
      }
      end = i;
    }
    if (at_start && IsWordCharacter(text[i])) {
      while (end < text.size() && IsWordCharacter(text[end])) ++end;
      const std::string_view word = text.substr(i, end - i);
      styled += is_placeholder(word) ? "\\fI" + std::string(word) + "\\fR" : std::string(word);
      i = end;
      continue;
    }
    styled += Escaped(text.substr(i, 1));
    ++i;
  }
  return styled;
}

bool IsCapitals(std::string_view word) {
  return std::all_of(word.begin(), word.end(),
                     [](unsigned char character) { return std::isupper(character) != 0; });
}

std::string SynopsisStyle(std::string_view text) { return Styled(text, IsCapitals); }

// What is wrapped keeps to this many characters a line; a longer word stands alone.
constexpr std::size_t kLineLength = 80;

// One sentence on lines of their own, none longer than can be avoided. A line that would begin with
// a roff request begins with a mark of no width.
std::string Wrapped(std::string_view sentence) {
  std::string lines;
  std::size_t length = 0;
  while (!sentence.empty()) {
    const std::size_t end = std::min(sentence.find(' '), sentence.size());
    std::string word(sentence.substr(0, end));
    sentence.remove_prefix(std::min(end + 1, sentence.size()));
    if (length > 0 && length + 1 + word.size() <= kLineLength) {
      lines += ' ';
      ++length;
    } else {
      if (!lines.empty()) lines += '\n';
      if (word.starts_with('.') && !lines.empty()) word.insert(0, "\\&");
      length = 0;
    }
    lines += word;
    length += word.size();
  }
  return lines + '\n';
}

// Prose with a new line for each sentence, so that changes read well.
std::string InLines(std::string_view styled) {
  std::string lines;
  for (std::size_t i = styled.find(". "); i != std::string_view::npos; i = styled.find(". ")) {
    lines += Wrapped(styled.substr(0, i + 1));
    styled.remove_prefix(i + 2);
  }
  return lines + Wrapped(styled);
}

std::string Prose(const std::string& text, const std::string& value_name) {
  return InLines(Styled(
      text, [&](std::string_view word) { return !value_name.empty() && word == value_name; }));
}

std::string Name(const Program& program) {
  return ".TH " + InCapitals(Escaped(program.name)) + " 1 \"" VANTREL_DATE "\" \"vantrel " +
         program.version + "\" \"User Commands\"\n.SH NAME\n" + Escaped(program.name) + " \\- " +
         Escaped(program.summary) + '\n';
}

std::string Synopsis(const Program& program) {
  std::string text = ".SH SYNOPSIS\n";
  bool first = true;
  for (const std::string& line : SynopsisOf(program)) {
    if (!first) text += ".PP\n";
    first = false;
    text += ".B " + Escaped(program.name) + '\n' + Wrapped(SynopsisStyle(line));
  }
  return text;
}

std::string Tagged(const std::string& tag, const std::string& help, const std::string& value_name) {
  return ".TP\n" + SynopsisStyle(tag) + '\n' + Prose(help, value_name);
}

std::string Options(const Program& program) {
  std::string text = ".SH OPTIONS\n";
  for (const std::vector<Option>& options : {CommonOptions(), program.options})
    for (const Option& option : options)
      text += Tagged(Spelling(option), HelpOf(option), option.value.name);
  return text;
}

std::string Commands(const Program& program) {
  std::string text = ".SH COMMANDS\n";
  for (const Command& command : program.commands) {
    std::string synopsis = SynopsisOf(command).substr(command.name.size());
    text += ".TP\n\\fB" + Escaped(command.name) + "\\fR" + SynopsisStyle(synopsis) + '\n' +
            Prose(command.summary + ".", "");
    std::string inner;
    for (const Parameter& parameter : command.parameters)
      if (const std::string help = HelpOf(parameter); !help.empty())
        inner += Tagged(parameter.value.name, help, parameter.value.name);
    for (const Option& option : command.options)
      inner += Tagged(Spelling(option), HelpOf(option), option.value.name);
    if (!inner.empty()) text += ".RS\n" + inner + ".RE\n";
  }
  return text;
}

// Small letters in bold, words in capitals in italics.
std::string LineStyle(std::string_view usage) {
  std::string styled;
  while (!usage.empty()) {
    const auto* const end = std::find_if_not(usage.begin(), usage.end(), [](char character) {
      return IsWordCharacter(character) || character == '-';
    });
    const std::string_view word = usage.substr(0, static_cast<std::size_t>(end - usage.begin()));
    if (word.empty())
      styled += Escaped(usage.substr(0, 1));
    else
      styled += (IsCapitals(word) ? "\\fI" : "\\fB") + Escaped(word) + "\\fR";
    usage.remove_prefix(std::max<std::size_t>(word.size(), 1));
  }
  return styled;
}

std::string Lines(const Program& program) {
  std::string text;
  for (const InputLine& line : program.input_lines) {
    text += ".TP\n" + LineStyle(line.usage) + '\n' +
            InLines(Styled(line.help, [&line](std::string_view word) {
              return IsCapitals(word) && line.usage.find(word) != std::string::npos;
            }));
  }
  return text;
}

std::string Replacement(const Program& program, std::string_view line) {
  if (line == "@NAME@") return Name(program);
  if (line == "@SYNOPSIS@") return Synopsis(program);
  if (line == "@OPTIONS@") return Options(program);
  if (line == "@COMMANDS@") return Commands(program);
  if (line == "@LINES@") return Lines(program);
  throw std::invalid_argument("The page has a line " + std::string(line) +
                              " that stands for nothing.");
}

}  // namespace

std::string ManualPage(const Program& program, std::string_view page) {
  std::string text;
  while (!page.empty()) {
    const std::size_t end = std::min(page.find('\n'), page.size());
    const std::string_view line = page.substr(0, end);
    page.remove_prefix(std::min(end + 1, page.size()));
    if (line.size() > 1 && line.front() == '@' && line.back() == '@')
      text += Replacement(program, line);
    else
      text += std::string(line) + '\n';
  }
  return text;
}

}  // namespace vantrel::commandline
