// SPDX-License-Identifier: MIT

#include "commandline/completion.h"

#include "commandline/parse.h"

#include <algorithm>
#include <string_view>

namespace vantrel::commandline {
namespace {

std::string Joined(const std::vector<std::string>& words, const std::string& separator) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : separator) + word;
  return text;
}

std::vector<std::string> SpellingsOf(const std::vector<Option>& options) {
  std::vector<std::string> names;
  for (const Option& option : options) {
    names.push_back("--" + option.name);
    if (option.letter != 0) names.push_back(std::string("-") + option.letter);
  }
  return names;
}

std::vector<Option> ProgramOptions(const Program& program) {
  std::vector<Option> options = program.options;
  options.insert(options.end(), CommonOptions().begin(), CommonOptions().end());
  return options;
}

std::string Reply(const Value& value) {
  if (!value.choices.empty())
    return "COMPREPLY=($(compgen -W '" + Joined(value.choices, " ") + "' -- \"$word\"))";
  if (value.completion == Completion::kFiles)
    return "compopt -o filenames; COMPREPLY=($(compgen -f -- \"$word\"))";
  return "COMPREPLY=()";
}

// One case of bash for the options whose value is to be completed, each name once.
std::string ValueCases(const Program& program) {
  std::string text;
  std::vector<std::string> done;
  const auto add = [&](const std::vector<Option>& options) {
    for (const Option& option : options) {
      if (option.value.name.empty() ||
          std::find(done.begin(), done.end(), option.name) != done.end())
        continue;
      done.push_back(option.name);
      text += "    " + Joined(SpellingsOf({option}), "|") + ") " + Reply(option.value) +
              "; return ;;\n";
    }
  };
  add(ProgramOptions(program));
  for (const Command& command : program.commands) add(command.options);
  return text;
}

// The options that take the next word, for finding the words that are none.
std::string TakesNextWord(const Program& program) {
  std::vector<std::string> names;
  const auto add = [&](const std::vector<Option>& options) {
    for (const Option& option : options)
      if (!option.value.name.empty())
        for (const std::string& name : SpellingsOf({option})) names.push_back(name);
  };
  add(ProgramOptions(program));
  for (const Command& command : program.commands) add(command.options);
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names.empty() ? "--" : Joined(names, "|");
}

std::string ParameterReply(const std::vector<Parameter>& parameters) {
  if (parameters.empty()) return "COMPREPLY=()";
  std::string text = "case $count in\n";
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const bool rest = parameters[i].repeated;
    text += "      " + (rest ? std::string("*") : std::to_string(i)) + ") " +
            Reply(parameters[i].value) + " ;;\n";
  }
  return text + "    esac";
}

std::string EitherCase(const std::string& name) {
  std::string pattern;
  for (const char character : name) {
    if (character >= 'A' && character <= 'Z')
      pattern += std::string("[") + character + static_cast<char>(character + 32) + "]";
    else
      pattern += character;
  }
  return pattern;
}

std::string CommandCases(const Program& program) {
  std::string text;
  std::vector<std::string> names;
  for (const Command& command : program.commands) {
    names.push_back(command.name);
    text += "    " + (program.commands_ignore_case ? EitherCase(command.name) : command.name) +
            ")\n    if [[ $word == -* ]]; then\n      COMPREPLY=($(compgen -W \"$options " +
            Joined(SpellingsOf(command.options), " ") +
            "\" -- \"$word\"))\n      return\n    fi\n    " + ParameterReply(command.parameters) +
            " ;;\n";
  }
  return "    '') COMPREPLY=($(compgen -W '" + Joined(names, " ") + "' -- \"$word\")) ;;\n" + text;
}

std::string FunctionName(const Program& program) {
  std::string name = "_" + program.name;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

// `text` as a word of zsh between single quotes, without them.
std::string InQuotes(const std::string& text) {
  std::string quoted;
  for (const char character : text)
    quoted += character == '\'' ? "'\\''" : std::string(1, character);
  return quoted;
}

std::string WithBackslashes(const std::string& text, std::string_view special) {
  std::string result;
  for (const char character : text) {
    if (special.find(character) != std::string_view::npos) result += '\\';
    result += character;
  }
  return result;
}

// The first sentence of a help, without its end.
std::string FirstSentence(const std::string& help) {
  std::string sentence = help.substr(0, help.find(". "));
  if (!sentence.empty() && sentence.back() == '.') sentence.pop_back();
  return sentence;
}

// ":DEVICE:_files": what zsh is to call a value and to offer for it.
std::string ZshValue(const Value& value) {
  std::string action = " ";
  if (!value.choices.empty())
    action = "(" + Joined(value.choices, " ") + ")";
  else if (value.completion == Completion::kFiles)
    action = "_files";
  return ":" + WithBackslashes(value.name, ":\\") + ":" + action;
}

// The words for _arguments of one option, a line each.
std::string ZshOption(const Option& option) {
  const bool has_value = !option.value.name.empty();
  const std::string name = "--" + option.name + (has_value ? "=" : "");
  std::string rest = "[" + WithBackslashes(FirstSentence(option.help), "[]\\") + "]";
  if (has_value) rest += ZshValue(option.value);
  rest = InQuotes(rest) + "'";
  const std::string often = option.repeated ? "*" : "";
  if (option.letter == 0) return "'" + often + name + rest;
  const std::string letter = std::string("-") + option.letter;
  const std::string before = option.repeated ? "'*'" : "'(" + letter + " --" + option.name + ")'";
  return before + "{" + letter + (has_value ? "+" : "") + "," + name + "}'" + rest;
}

std::string ZshOptions(const std::vector<Option>& options, const std::string& indent) {
  std::string text;
  for (const Option& option : options) text += indent + ZshOption(option) + "\n";
  return text;
}

std::string ZshParameters(const std::vector<Parameter>& parameters, const std::string& indent) {
  std::string text;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const Parameter& parameter = parameters[i];
    const std::string place = parameter.repeated ? "*" : std::to_string(i + 1);
    const std::string optional = parameter.optional && !parameter.repeated ? ":" : "";
    text += indent;
    text += "'" + place;
    text += optional;
    text += InQuotes(ZshValue(parameter.value)) + "'\n";
  }
  return text;
}

// A list of words in parentheses, each on its line.
std::string ZshList(const std::string& name, const std::string& lines, const std::string& indent) {
  return indent + name + "=(\n" + lines + indent + ")\n";
}

std::string UpperCase(std::string text) {
  for (char& character : text)
    if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 32);
  return text;
}

std::string ZshCommands(const Program& program) {
  const bool any_case = program.commands_ignore_case;
  std::string names;
  std::string cases;
  for (const Command& command : program.commands) {
    names += "        '" + InQuotes(WithBackslashes(command.name, ":\\") + ":" + command.summary) +
             "'\n";
    cases += "        '" + InQuotes(any_case ? UpperCase(command.name) : command.name) + "')\n" +
             ZshList("own",
                     ZshOptions(command.options, "            ") +
                         ZshParameters(command.parameters, "            "),
                     "          ") +
             "          ;;\n";
  }
  return "  _arguments -s -S -C $options '1:command:->command' '*::parameter:->parameters' && "
         "return\n"
         "  case $state in\n"
         "    command)\n" +
         ZshList("commands", names, "      ") + "      _describe command commands" +
         (any_case ? " -M 'm:{a-z}={A-Z}'" : "") +
         "\n      ;;\n"
         "    parameters)\n"
         "      case " +
         (any_case ? "${(U)words[1]}" : "$words[1]") + " in\n" + cases +
         "      esac\n"
         "      _arguments -s -S $options $own\n"
         "      ;;\n"
         "  esac\n";
}

}  // namespace

std::string BashCompletion(const Program& program) {
  const std::string function = FunctionName(program);
  const bool has_commands = !program.commands.empty();
  std::string text = "# Completion of " + program.name + " for bash.\n" + function +
                     "() {\n"
                     "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]}\n"
                     "  local command= count=0 i\n"
                     "  local options='" +
                     Joined(SpellingsOf(ProgramOptions(program)), " ") +
                     "'\n"
                     "  # \"--x=5\" is three words here: --x, = and 5.\n"
                     "  if [[ $word == = ]]; then word=; "
                     "elif [[ $before == = ]]; then before=${COMP_WORDS[COMP_CWORD-2]}; fi\n"
                     "  case $before in\n" +
                     ValueCases(program) +
                     "  esac\n"
                     "  for ((i = 1; i < COMP_CWORD; ++i)); do\n"
                     "    case ${COMP_WORDS[i]} in\n"
                     "      " +
                     TakesNextWord(program) +
                     ") ((++i)); [[ ${COMP_WORDS[i]} == = ]] && ((++i)) ;;\n"
                     "      --) ;;\n"
                     "      -?*) ;;\n"
                     "      *) ";
  text += has_commands ? "if [[ -z $command ]]; then command=${COMP_WORDS[i]}; else ((++count)); fi"
                       : "((++count))";
  text += " ;;\n    esac\n  done\n";
  const std::string option_reply = "COMPREPLY=($(compgen -W \"$options\" -- \"$word\"))";
  if (has_commands) {
    text += "  if [[ -z $command && $word == -?* ]]; then\n    " + option_reply +
            "\n    return\n  fi\n  case $command in\n" + CommandCases(program) + "  esac\n";
  } else {
    text += "  if [[ $word == -* ]]; then\n    " + option_reply + "\n    return\n  fi\n  " +
            ParameterReply(program.parameters) + "\n";
  }
  return text + "}\ncomplete -F " + function + " " + program.name + "\n";
}

std::string ZshCompletion(const Program& program) {
  const std::string function = FunctionName(program);
  std::string text = "#compdef " + program.name + "\n# Completion of " + program.name +
                     " for zsh.\n" + function +
                     "() {\n"
                     "  local state line\n"
                     "  local -a options commands own\n" +
                     ZshList("options", ZshOptions(ProgramOptions(program), "    "), "  ");
  if (program.commands.empty()) {
    text += ZshList("own", ZshParameters(program.parameters, "    "), "  ");
    text += "  _arguments -s -S $options $own\n";
  } else {
    text += ZshCommands(program);
  }
  // As a file of fpath it is the function's body at its first use.
  return text + "}\nif [[ $funcstack[1] == " + function + " ]]; then\n  " + function +
         " \"$@\"\nelse\n  compdef " + function + " " + program.name + "\nfi\n";
}

}  // namespace vantrel::commandline
