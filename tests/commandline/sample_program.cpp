// SPDX-License-Identifier: MIT

#include "tests/commandline/sample_program.h"

#include "tests/support/file_folder.h"

#include <stdio.h>

#include <fstream>

namespace vantrel::commandline {

const Program& Dispenser() {
  static const Program kProgram{
      .name = "test-dispenser",
      .version = "3.14",
      .summary = "hot drinks from a shell",
      .description = "Dispenses what is asked for.",
      .options = {{.name = "speed",
                   .letter = 's',
                   .value = {.name = "BPS", .range = NumberRange{50, 4000}},
                   .help = "Talks at BPS bits a second.",
                   .default_value = "9600"},
                  {.name = "quiet", .letter = 'q', .help = "Says nothing; not with --log."},
                  {.name = "log",
                   .value = {.name = "FILE", .completion = Completion::kFiles},
                   .help = "Keeps a log in FILE.",
                   .repeated = true}},
      .commands =
          {{.name = "2A",
            .summary = "tea",
            .options = {{.name = "milk",
                         .value = {.name = "KIND", .choices = {"cow", "oat", "none"}},
                         .help = "What to pour in.",
                         .default_value = "none"},
                        {.name = "raw",
                         .value = {.name = "HEX"},
                         .help = "Sends HEX.",
                         .replaces_parameters = true}},
            .parameters = {{.value = {.name = "CUPS", .range = NumberRange{1, 7}},
                            .help = "How many."},
                           {.value = {.name = "NAME"}, .optional = true}}},
           {.name = "46",
            .summary = "coffee",
            .options = {{.name = "sugar", .help = "Sweetens."}},
            .parameters = {{.value = {.name = "NAME"}, .optional = true, .repeated = true}}},
           {.name = "-", .summary = "reads orders"}},
      .commands_ignore_case = true,
      .input_lines = {{.usage = "pour-out CUP [TWICE|now]",
                       .help = "Pours CUP, of 5 DL. At 'once'; --log tells."}},
      .notes = "Cups are counted\n  by hand.\n"};
  return kProgram;
}

const Program& Copier() {
  static const Program kProgram{
      .name = "test-copier",
      .version = "1",
      .summary = "copies",
      .synopsis = {"[OPTIONS] FROM TO", "--list"},
      .options = {{.name = "list", .help = "Lists."}},
      .parameters = {{.value = {.name = "FROM", .completion = Completion::kFiles},
                      .help = "The file to copy."},
                     {.value = {.name = "TO", .choices = {"here", "there"}}}}};
  return kProgram;
}

std::string OutputOf(const std::string& command) {
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return "cannot be run";
  std::string output;
  char part[4096];
  for (std::size_t got = 0; (got = fread(part, 1, sizeof part, pipe)) > 0;)
    output.append(part, got);
  pclose(pipe);
  return output;
}

std::string TemporaryFile(const std::string& name, const std::string& text) {
  static const support::FileFolder kFolder;
  std::string path = kFolder.Path(name);
  std::ofstream(path) << text;
  return path;
}

}  // namespace vantrel::commandline
