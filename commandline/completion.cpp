#include "commandline/completion.h"

#include "commandline/parse.h"

#include <algorithm>

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

}  // namespace vantrel::commandline
