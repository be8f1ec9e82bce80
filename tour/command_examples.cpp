// SPDX-License-Identifier: MIT

#include "tour/command_examples.h"

namespace vantrel::tour {
namespace {

constexpr std::string_view kNoStripe = "23h where the track is empty or the card has no stripe";
constexpr std::string_view kNotWritten =
    "37h where nothing is loaded for one of the tracks, or the card has no stripe";
constexpr std::string_view kBeyondFace = "51h where it runs past the edge of the card";
constexpr std::string_view kWhichTracks =
    "Which tracks, as the sum of 1, 2 and 4; 2 stands there. A number below 0 is asked for again, "
    "of a longer one the first digit is sent. 0, nothing and Cancel send nothing.";
constexpr std::string_view kWhatToWrite =
    "Whether you have data. \"No\" sends a sample. \"Yes\" asks for the data until all its "
    "characters are ones that the track takes; nothing, blanks and Cancel send the sample, too.";
constexpr std::string_view kMethod =
    "The discharge method, 0 to 2; 1 stands there. Anything else is asked for again, but nothing "
    "and Cancel are 0, which is sent.";
constexpr std::string_view kCharacterEditor =
    "A form opens, with the dots of the character. \">>\" sends them; closed otherwise, it sends "
    "144 times \"F\" alone.";
constexpr std::string_view kImageEditor =
    "A form opens, with the dots of the image and where they go. \">>\" sends them; closed "
    "otherwise, it sends \"0\", which a printer rejects.";

const std::vector<CommandExample>& Rows() {
  static const std::vector<CommandExample> kRows = {
      {.code = "21", .statuses = kNoStripe},
      {.code = "22", .statuses = kNoStripe},
      {.code = "23", .statuses = kNoStripe},
      {.code = "25", .statuses = kNoStripe},
      {.code = "26", .statuses = kNoStripe},
      {.code = "27", .statuses = kNoStripe},
      {.code = "29", .statuses = kNoStripe},
      {.code = "2A", .statuses = kNoStripe},
      {.code = "2B", .statuses = kNoStripe},
      {"31", kWhichTracks, {"1"}, kNotWritten},
      {"32", kWhichTracks, {"7"}, kNotWritten},
      {"35", kWhatToWrite, {"Member 0042"}},
      {"36", kWhatToWrite, {"Member 0042"}},
      {"37", kWhatToWrite, {"Member 0042"}},
      {"38", kWhatToWrite, {"Member 0042"}},
      {"39", kWhatToWrite, {"Member 0042"}},
      {"3A", kWhatToWrite, {"Member 0042"}},
      {"3B", kWhatToWrite, {"MEMBER 0042"}},
      {"3C", kWhatToWrite, {"0042"}},
      {"3D", kWhatToWrite, {"0042"}},
      {"41",
       "A form opens, with direction, place and text. The button of an ESC sequence asks for its "
       "value and sends; closed otherwise, the form sends the text without a sequence, as it stood "
       "at first.",
       {"--x", "20", "--y", "60", "Points: 120"},
       kBeyondFace},
      {"42",
       "The form of 41h opens, for direction, place and the number of the image. \">>\" sends "
       "them; closed otherwise, it sends the data of the form that was open before.",
       {"--x", "20", "--y", "60", "1"},
       kBeyondFace},
      {"43", kImageEditor, {"--x", "10", "FF818181FF"}},
      {"44",
       kCharacterEditor,
       {"--size", "16", "0", "FFFF01800180018001800180018001800180018001800180018001800180FFFF"}},
      {"45", kCharacterEditor, {"--size", "16", "0", "FFFF018001800180018001800180FFFF"}},
      {"46", kMethod, {"1"}},
      {"47", kMethod, {"0"}},
      {"48", kMethod, {"0"}},
      {"4A",
       "Nothing, and sends nothing: it shows the syntax alone.",
       {"0", "0", "15"},
       "51h where it runs past the edge of the card; rejected with 10h where the register holds no "
       "image with those columns"},
      {"4B",
       "Nothing. It sends the first two frames of a sample.",
       {"0", "logo.bmp"},
       "4Ch where it cannot be a monochrome BMP file"},
      {"4D", kImageEditor, {"--x", "10", "--line-bytes", "2", "FFFF01800180FFFF"}},
      {"4E",
       "A form opens, with the kind of barcode, its place and keys for its characters. \">>\" "
       "sends "
       "them; closed otherwise, it sends no data, which a printer rejects.",
       {"--type", "code39", "--text-below", "--top", "100", "--bottom", "180", "0042"},
       "51h where its characters do not fit below the bars"},
      {"50",
       "\"Yes\" lets the card go, \"No\" holds it at the front, \"Cancel\" sends nothing.",
       {"1"}},
      {"5A",
       "A form opens, with LED and buzzer. \">>\" sends; closed otherwise, nothing is sent.",
       {"--led", "flashing", "--colour", "red", "--buzzer", "one-cycle"}},
      {"5B",
       "A warning of the memory's life: anything but \"Yes\" sends nothing. Then \"Yes\" enables "
       "the button and \"No\" disables it.",
       {"1"}},
      {"91",
       "A warning of the memory's life: anything but \"Yes\" sends nothing. Then the setting, "
       "which is sent as it was typed; 2 sends nothing.",
       {"A1"}},
  };
  return kRows;
}

}  // namespace

std::span<const CommandExample> CommandExamples() { return Rows(); }

}  // namespace vantrel::tour
