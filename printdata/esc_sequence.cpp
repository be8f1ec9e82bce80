// SPDX-License-Identifier: MIT

#include "printdata/esc_sequence.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vantrel::printdata {
namespace {

using enum EscPiece;

// A sequence whose prompt is the same in both orientations.
EscSequence Sequence(std::string name, std::string caption, std::string label, std::string panel1,
                     std::string panel2, const EscPrompt& prompt, char letter,
                     std::vector<EscPiece> body, EscNotice notice = EscNotice::kNone) {
  return {std::move(name),
          std::move(caption),
          std::move(label),
          std::move(panel1),
          std::move(panel2),
          prompt,
          prompt,
          letter,
          std::move(body),
          notice};
}

// The bodies that repeat the print text, or print the number after the sequence, show a sample
// before and after it or label the number used; that is meant.
std::vector<EscSequence> MakeSequences() {
  return {
      Sequence("Cmd_EscEe", "ESC E/e", "ESC E/e : ", "Specifies font size", "",
               {"Normal Size: Input '11'\r\nHorizontal double size: Input '12'\r\n"
                "Vertical double size: Input '21'\r\n"
                "Vertical/Horizontal double Size: Input '22'",
                {{11, 12}, {21, 22}}},
               'E', {kText, kLineBreak, kLineBreak, kLineBreak, kLineBreak, kEsc, kDec, kText}),
      Sequence("Cmd_EscG", "ESC G", "ESC G : ",
               "Expands a specified 24 dot 2-byte external character font in print buffer", "",
               {"Input '0 - 15' for specifying 24 dot 2-byte external character", {{0, 15}}}, 'G',
               {kEsc, kHex1}),
      Sequence("CmdEsc_d", "ESC d", "ESC d : ", "Sets the dot space for gaps in one-byte character",
               "Dots spaces are applied to the right side of character",
               {"Input '0 - 15' for specifying the dots space", {{0, 15}}}, 'd',
               {kText, kLineBreak, kEsc, kHex1, kText}),
      Sequence("CmdEsc_i", "ESC i", "ESC i : ",
               "Expands a specified 16 dot 1-byte external character font in print buffer", "",
               {"Input '0 - 15' for specifying 16 dot 1-byte external character", {{0, 15}}}, 'i',
               {kEsc, kHex1}, EscNotice::kNoEmptiesData),
      Sequence("CmdEsc_s", "ESC s",
               "ESC s : ", "Moves the next print character to the right an N character amount ",
               "by calculating the position to expand the expansion buffer memory in one byte",
               {"Input '0 - 59' for specifying the dots space", {{0, 59}}}, 's',
               {kText, kEsc, kDec2, kText}),
      Sequence("CmdESCBb", "ESC B/b", "ESC B/b : ", "Specifies the line width of ANK characters",
               "",
               {"Input '0' for specifying normal narrow gothic fonts or '1' for enhanced gothic "
                "fonts or '2' for double-enhanced gothic fonts",
                {{0, 2}}},
               'B', {kText, kLineBreak, kLineBreak, kEsc, kDec, kText}),
      Sequence(
          "CmdEscD", "ESC D", "ESC D : ", "Sets the dot space for gaps in two-byte character",
          "Dots spaces are applied to the right side of character",
          {"Input '0 - 15' for setting the dot spaces for gaps in two-byte character", {{0, 15}}},
          'D', {kText, kFiveBlanks, kDec, kLineBreak, kEsc, kHex1, kText, kText}),
      Sequence("CmdEscFf", "ESC F/f", "ESC F/f : ", "Sets 24/16 dot fonts for ANK character",
               "Invalid command for DBSC",
               {"Input '1' for specifying 24 dots fonts or '0' for 16 dots fonts", {{0, 1}}}, 'F',
               {kText, kEsc, kDec, kText}),
      Sequence("CmdEscg", "ESC g", "ESC g : ",
               "Expands a specified 24 dot 1-byte external character font in print buffer", "",
               {"Input '0 - 15' for specifying 24 dot 1-byte external character", {{0, 15}}}, 'g',
               {kEsc, kHex1}),
      Sequence("CmdEscI", "ESC I", "ESC I : ",
               "Expands a specified 16 dot 2-byte external character font in print buffer", "",
               {"Input '0 - 15' for specifying 16 dot 2-byte external character", {{0, 15}}}, 'I',
               {kEsc, kHex1}, EscNotice::kNoKeepsData),
      Sequence("CmdESCJj", "ESC J/j", "ESC J/j : ",
               "Sets double/single byte fonts as ANK character", "Valid only in Japanese model",
               {"Input '1' for specifying single-byte gothic fonts or '0' for two-byte gothic "
                "fonts",
                {{0, 1}}},
               'J', {kText, kEsc, kDec, kText}),
      // The caption has a capital I where the label has a small l; that is meant.
      Sequence("CmdEscLI", "ESC L/I", "ESC L/l : ",
               "Moves the next print character to below the N line (including line space)",
               "by calculating the position to expand the expansion buffer memory",
               {"Input '0 - 19' for specifying the dots space", {{0, 19}}}, 'L',
               {kText, kEsc, kDec2, kText}),
      Sequence("CmdEscMm", "ESC M/m", "ESC M/m : ", "Sets the dot space between lines", "",
               {"Input '0 - 15' for specifying the dots space between lines", {{0, 15}}}, 'M',
               {kEsc, kHex1, kDec, kLineBreak, kText, kLineBreak, kText, kLineBreak, kText,
                kLineBreak, kText}),
      Sequence("CmdEscS", "ESC S",
               "ESC S : ", "Moves the next print character to the right an N character amount ",
               "by calculating the position to expand the expansion buffer memory in one byte",
               {"Input '0 - 29' for specifying the dots space", {{0, 29}}}, 'S',
               {kText, kEsc, kDec2, kText}),
      Sequence(
          "CmdEscVv", "ESC V/v", "ESC V/v : ", "Sets the vertical size of characters to expand", "",
          {"Input '1' for specifying normal height fonts or '2' for double height fonts", {{1, 2}}},
          'V', {kText, kLineBreak, kLineBreak, kEsc, kDec, kText}),
      Sequence(
          "CmdESCWw", "ESC W/w", "ESC W/w : ", "Sets the width size of characters to expand", "",
          {"Input '1' for specifying normal width fonts or '2' for double width fonts", {{1, 2}}},
          'W', {kText, kLineBreak, kLineBreak, kEsc, kDec, kText}),
      // The hint and the prompt of ESC X speak of the Y coordinate; that is meant.
      {"CmdEscXx",
       "ESC X/x",
       "ESC X/x : ",
       "Sets the Y coordinate to expand character",
       "",
       {"Input '000 - 319' for setting the Y coordinate", {{0, 319}}},
       {"Input '000 - 479' for setting the Y coordinate", {{0, 479}}},
       'X',
       {kEsc, kDec3, kDec}},
      {"CmdEscYy",
       "ESC Y/y",
       "ESC Y/y : ",
       "Sets the Y coordinate to expand character",
       "",
       {"Input '000 - 479' for setting the Y coordinate", {{0, 479}}},
       {"Input '000 - 319' for setting the Y coordinate", {{0, 319}}},
       'Y',
       {kEsc, kDec3, kDec}},
  };
}

std::string WithLeadingZeros(int number, std::size_t digits) {
  const std::string padded = std::string(digits, '0') + std::to_string(number);
  return padded.substr(padded.size() - digits);
}

}  // namespace

std::span<const EscSequence> EscSequences() {
  static const std::vector<EscSequence> kSequences = MakeSequences();
  return kSequences;
}

bool Accepts(const EscPrompt& prompt, int number) {
  return std::any_of(
      prompt.accepted.begin(), prompt.accepted.end(),
      [number](const NumberRange& range) { return number >= range.first && number <= range.last; });
}

std::string ComposeEscBody(const EscSequence& sequence, int number, const std::string& print_text) {
  std::string body;
  for (const EscPiece piece : sequence.body) {
    switch (piece) {
      case kText:
        body += print_text;
        break;
      case kLineBreak:
        body += "\r\n";
        break;
      case kFiveBlanks:
        body += "     ";
        break;
      case kEsc:
        body += '\x1B';
        body += sequence.letter;
        break;
      case kDec:
        body += std::to_string(number);
        break;
      case kHex1:
        body += "0123456789ABCDEF"[number & 0xF];
        break;
      case kDec2:
        body += WithLeadingZeros(number, 2);
        break;
      case kDec3:
        body += WithLeadingZeros(number, 3);
        break;
    }
  }
  return body;
}

}  // namespace vantrel::printdata
