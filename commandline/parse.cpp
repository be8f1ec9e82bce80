// SPDX-License-Identifier: MIT

#include "commandline/parse.h"

#include "commandline/help.h"

#include <algorithm>
#include <charconv>
#include <iostream>

namespace vantrel::commandline {
namespace {

std::string WithoutDashes(const std::string& option) {
  return option.substr(std::min(option.find_first_not_of('-'), option.size()));
}

}  // namespace

std::string Listed(const std::vector<std::string>& words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) text += i + 1 == words.size() ? " or " : ", ";
    text += words[i];
  }
  return text;
}

std::string Checked(const Value& value, const std::string& subject, const std::string& text) {
  if (value.range) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool is_number =
        !text.empty() && text[0] != '-' && error == std::errc() && end == text.data() + text.size();
    if (!is_number || number < value.range->lowest || number > value.range->highest)
      throw WrongUse(subject + " is a number from " + std::to_string(value.range->lowest) + " to " +
                     std::to_string(value.range->highest) + ", not '" + text + "'.");
    return std::to_string(number);
  }
  if (!value.choices.empty() &&
      std::find(value.choices.begin(), value.choices.end(), text) == value.choices.end())
    throw WrongUse(subject + " is " + Listed(value.choices) + ", not '" + text + "'.");
  return text;
}

std::string Parsed::Value(std::string_view option) const {
  if (const auto given = values_.find(option); given != values_.end()) return given->second.back();
  const auto found = defaults_.find(option);
  return found == defaults_.end() ? "" : found->second;
}

std::vector<std::string> Parsed::Values(std::string_view option) const {
  const auto given = values_.find(option);
  return given == values_.end() ? std::vector<std::string>() : given->second;
}

class Parser {
 public:
  explicit Parser(const Program& program) : program_(program) {}

  Parsed Parse(std::span<const std::string> arguments) {
    bool options_ended = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
      const std::string& word = arguments[i];
      if (options_ended || word == "-" || word.empty() || word[0] != '-') {
        words_.push_back(word);
      } else if (word == "--") {
        options_ended = true;
      } else {
        i += TakeOption(word, arguments.subspan(i + 1));
        if (parsed_.Has("help") || parsed_.Has("version")) return std::move(parsed_);
      }
    }
    ChooseCommand();
    CheckOptions();
    TakeParameters();
    return std::move(parsed_);
  }

 private:
  // Adds the option that `word` names; returns how many of the words after it it took.
  std::size_t TakeOption(const std::string& word, std::span<const std::string> after) {
    const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
    const std::string spelled = word.substr(0, equals);
    const Option* option = Find(spelled);
    if (option == nullptr) throw WrongUse("Unknown option '" + WithoutDashes(spelled) + "'.");
    std::vector<std::string>& values = parsed_.values_[option->name];
    if (option->value.name.empty()) {
      if (equals != std::string::npos) throw WrongUse(spelled + " takes no value.");
      values.emplace_back();
      return 0;
    }
    if (equals == std::string::npos && after.empty())
      throw WrongUse("Missing value after '" + spelled + "'.");
    values.push_back(equals == std::string::npos ? after[0] : word.substr(equals + 1));
    return equals == std::string::npos ? 1 : 0;
  }

  // The first option so spelled of the program, of any command, or of all programs. Options of one
  // name agree in whether they take a value, so the words can be told apart before the command is
  // known.
  const Option* Find(const std::string& spelled) const {
    const auto is_it = [&](const Option& option) {
      return spelled == "--" + option.name ||
             (option.letter != 0 && spelled == std::string("-") + option.letter);
    };
    const auto find_in = [&](const std::vector<Option>& options) -> const Option* {
      const auto found = std::find_if(options.begin(), options.end(), is_it);
      return found == options.end() ? nullptr : &*found;
    };
    if (const Option* option = find_in(program_.options)) return option;
    if (const Option* option = find_in(CommonOptions())) return option;
    for (const Command& command : program_.commands)
      if (const Option* option = find_in(command.options)) return option;
    return nullptr;
  }

  void ChooseCommand() {
    if (program_.commands.empty()) return;
    if (words_.empty()) throw WrongUse("A command is missing.");
    parsed_.command_ = FindCommand(program_, words_.front());
    if (parsed_.command_ == nullptr)
      throw WrongUse("There is no command '" + words_.front() + "'.");
    words_.erase(words_.begin());
  }

  void CheckOptions() {
    std::vector<std::string> known;
    const auto check = [&](const std::vector<Option>& options) {
      for (const Option& option : options) {
        known.push_back(option.name);
        parsed_.defaults_[option.name] = option.default_value;
        const auto given = parsed_.values_.find(option.name);
        if (given == parsed_.values_.end()) continue;
        for (std::string& value : given->second)
          value = Checked(option.value, "--" + option.name, value);
        if (option.replaces_parameters) replaces_parameters_ = "--" + option.name;
      }
    };
    check(program_.options);
    if (parsed_.command_ != nullptr) check(parsed_.command_->options);
    for (const auto& [name, values] : parsed_.values_)
      if (std::find(known.begin(), known.end(), name) == known.end())
        throw WrongUse("Command " + parsed_.command_->name + " takes no option --" + name + ".");
  }

  void TakeParameters() {
    const std::vector<Parameter>& table =
        parsed_.command_ != nullptr ? parsed_.command_->parameters : program_.parameters;
    if (!replaces_parameters_.empty()) {
      if (!words_.empty())
        throw WrongUse(replaces_parameters_ + " stands in place of parameters such as '" +
                       words_.front() + "'.");
      return;
    }
    for (std::size_t i = 0; i < words_.size(); ++i) {
      const bool repeats = !table.empty() && table.back().repeated;
      if (i >= table.size() && !repeats) throw WrongUse("Unexpected argument '" + words_[i] + "'.");
      const Value& value = table[std::min(i, table.size() - 1)].value;
      parsed_.parameters_.push_back(Checked(value, value.name, words_[i]));
    }
    if (words_.size() < table.size() && !table[words_.size()].optional)
      throw WrongUse("The parameter " + table[words_.size()].value.name + " is missing.");
  }

  const Program& program_;
  Parsed parsed_;
  std::vector<std::string> words_;  // those that are no options, the command's name included
  std::string replaces_parameters_;
};

Parsed Parse(const Program& program, std::span<const std::string> arguments) {
  return Parser(program).Parse(arguments);
}

Start Begin(const Program& program, int argc, const char* const* argv, std::ostream& out,
            std::ostream& errors) {
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  try {
    Parsed parsed = Parse(program, arguments);
    if (parsed.Has("help")) return {{}, TellText(program, HelpText(program), out, errors)};
    if (parsed.Has("version"))
      return {{}, TellText(program, program.name + ' ' + program.version + '\n', out, errors)};
    return {std::move(parsed), {}};
  } catch (const WrongUse& error) {
    return {{}, TellWrongUse(program, error.what(), errors)};
  }
}

int TellText(const Program& program, const std::string& text, std::ostream& out,
             std::ostream& errors) {
  if (out << text << std::flush) return 0;
  errors << program.name << ": Standard output cannot be written.\n";
  return kFailureStatus;
}

int TellWrongUse(const Program& program, const std::string& sentence, std::ostream& errors) {
  errors << program.name << ": " << sentence << " Try '" << program.name << " --help'.\n";
  return kWrongUseStatus;
}

}  // namespace vantrel::commandline
