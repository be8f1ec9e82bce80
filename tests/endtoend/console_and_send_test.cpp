// SPDX-License-Identifier: MIT

// The sender's frames are those of the console, for the same answers to the console's questions.
// What their bytes are to be is written out in tests/send/frames_test.cpp.

#include "console/command_table.h"
#include "link/frame.h"
#include "tests/send/command_lines.h"
#include "tests/support/console_fixture.h"

#include <QComboBox>
#include <QTemporaryFile>
#include <QTest>

namespace vantrel::endtoend {
namespace {

using dialogs::Answer;
using send::Words;

class ConsoleAndSend : public support::ConsoleTest {
 protected:
  ConsoleAndSend() {
    Load();
    AnswerAll();
  }
  // Presses the command's button, and expects that one frame is sent, the sender's for `words`.
  void Expect(const Words& words) {
    const std::size_t before = Frames().size();
    for (const console::ConsoleCommand& command : console::Commands())
      if (command.code == words.front()) Press(std::string(command.button).c_str());
    ASSERT_EQ(Frames().size(), before + 1) << words.front();
    EXPECT_EQ(Words{Frames().back()}, send::Composed(words).frames) << words.front();
  }
  // The same, with a form that is left by its button for the next step.
  void Expect(const Words& words, std::function<void(QDialog& form)> act) {
    OnForm([act = std::move(act)](QDialog& form) {
      act(form);
      Click(form, "CmdNext");
    });
    Expect(words);
  }
  static void Choose(QDialog& form, const char* box, const char* text) {
    form.findChild<QComboBox*>(box)->setCurrentText(text);
  }
};

TEST_F(ConsoleAndSend, SendTheSameWhereNothingIsAsked) {
  for (const char* code : {"21", "22", "23", "25", "26", "27", "29", "2A", "2B", "40", "49",
                           "51", "52", "53", "54", "55", "58", "59", "5F", "95", "96"})
    Expect({code});
}

TEST_F(ConsoleAndSend, SendTheSameForTypedNumbers) {
  for (const char* code : {"31", "32"}) {
    for (const char* tracks : {"1", "4", "7"}) {
      dialogs_.Types(tracks);
      Expect({code, tracks});
    }
  }
  for (const char* code : {"46", "47", "48"}) {
    for (const char* method : {"0", "1", "2"}) {
      dialogs_.Types(method);
      Expect({code, method});
    }
  }
}

TEST_F(ConsoleAndSend, SendTheSameForTypedTrackData) {
  const auto expect = [this](const char* code, const char* text) {
    dialogs_.Answers(Answer::kYes);
    dialogs_.Types(text);
    Expect({code, text});
  };
  for (const char* code : {"35", "36", "37", "38", "39", "3A"}) expect(code, "a~\x01\x04 Z");
  expect("3B", " A^");
  expect("3C", "0:>");
  expect("3D", "123=;>");
}

TEST_F(ConsoleAndSend, SendTheSameForAPressedAnswer) {
  dialogs_.Answers(Answer::kYes);
  Expect({"50", "1"});
  dialogs_.Answers(Answer::kNo);
  Expect({"50", "0"});
  // The warning, the choice, and the reminder of the restart.
  for (int i = 0; i < 3; ++i) dialogs_.Answers(i == 2 ? Answer::kOk : Answer::kYes);
  Expect({"5B", "1"});
  dialogs_.Answers(Answer::kYes);
  dialogs_.Answers(Answer::kNo);
  Expect({"5B", "0"});
  dialogs_.Answers(Answer::kYes);
  dialogs_.Types("7Ab");
  Expect({"91", "7Ab"});
}

TEST_F(ConsoleAndSend, SendTheSamePrintData) {
  // The form's close box sends its header and its text.
  OnForm([](QDialog& form) { form.close(); });
  Expect({"41", "Test Print"});
  // The button of a sequence sends the text, line breaks, the sequence and the text again.
  dialogs_.Types("22");
  OnForm([](QDialog& form) {
    Click(form, "Opt_direction_3");
    Type(form, "TxtXCoordinate", "479");
    Type(form, "TxtYCoordinate", "319");
    Type(form, "TxtPrint", "a\\b c");
    Click(form, "Cmd_EscEe");
  });
  Expect(
      {"41", "--direction", "3", "--x", "479", "--y", "319", "a\\\\b c\\n\\n\\n\\n\\eE22a\\\\b c"});
  Expect({"42", "--direction", "1", "--y", "5", "1999"}, [](QDialog& form) {
    Click(form, "Opt_direction_1");
    Type(form, "TxtYCoordinate", "5");
    Type(form, "TxtImageNo", "1999");
  });
}

TEST_F(ConsoleAndSend, SendTheSameImages) {
  Expect({"43", "--x", "100", "0100000080"}, [](QDialog& form) {
    Type(form, "TxtXCoordinate", "100");
    Click(form, "CmdSet");
    ClickDot(form, "Lbldot", 0);
    ClickDot(form, "Lbldot", 39);
  });
  Expect({"4D", "--x", "479", "--line-bytes", "40", std::string(80, '0')}, [](QDialog& form) {
    Type(form, "TxtXCoordinate", "479");
    Click(form, "CmdSet");
  });
}

TEST_F(ConsoleAndSend, SendTheSameCharacters) {
  for (int i = 0; i < 2; ++i) dialogs_.Answers(Answer::kOk);
  Expect({"44", "A", "01" + std::string(142, '0')}, [](QDialog& form) {
    form.findChild<QComboBox*>("ComboImageNo")->setEditText("A");
    ClickDot(form, "LblDot", 0);
  });
  Expect({"45", "--size", "16", "3", "02" + std::string(30, '0')}, [](QDialog& form) {
    Click(form, "Opt16dot");
    form.findChild<QComboBox*>("ComboImageNo")->setEditText("3");
    ClickDot(form, "LblDot", 1);
  });
}

TEST_F(ConsoleAndSend, SendTheSameBarcodes) {
  Expect({"4E", "AB"}, [](QDialog& form) {
    for (const char* key : {"CmdKey_33", "CmdKey_34"}) Click(form, key);
  });
  Expect({"4E", "--text-below", "--top", "1", "--bottom", "319", "--set", "B", "aB"},
         [](QDialog& form) {
           Click(form, "OptBarcodeType_1");
           Click(form, "OptCodeSet_1");
           Type(form, "TxtStartCoordinate", "1");
           Type(form, "TxtEndCoordinate", "319");
           for (const char* key : {"CmdKey_65", "CmdKey_34"}) Click(form, key);
         });
  // From set C to set B, where the character is, by CodeB.
  Expect({"4E", "--set", "C", "1234a"}, [](QDialog& form) {
    Click(form, "OptCodeSet_2");
    for (const char* key : {"CmdKey_12", "CmdKey_34", "CmdKey_100", "CmdKey_65"}) Click(form, key);
  });
  Expect({"4E", "--type", "code39", "--text-below", "12"}, [](QDialog& form) {
    Click(form, "OptBarcodeType_3");
    for (const char* key : {"CmdKey_1", "CmdKey_2"}) Click(form, key);
  });
  Expect({"4E", "--type", "itf", "0123"}, [](QDialog& form) {
    Click(form, "OptBarcodeType_4");
    for (const char* key : {"CmdKey_0", "CmdKey_1", "CmdKey_2", "CmdKey_3"}) Click(form, key);
  });
  Expect({"4E", "--type", "codabar", "--start", "D", "--stop", "B", "98"}, [](QDialog& form) {
    Click(form, "OptBarcodeType_6");
    Choose(form, "ComboStart", "D");
    Choose(form, "ComboEnd", "B");
    for (const char* key : {"CmdKey_9", "CmdKey_8"}) Click(form, key);
  });
}

TEST_F(ConsoleAndSend, SendTheSameIndicators) {
  const char* leds[] = {"keep", "off", "on", "flashing", "one-cycle", "three-cycles"};
  const char* buzzers[] = {"keep", "off", "on", "buzzing", "one-cycle", "three-cycles"};
  const char* colours[] = {"green", "orange", "red"};
  for (int i = 0; i < 6; ++i) {
    const int led = i;
    const int buzzer = 5 - i;
    const int colour = i % 3;
    Expect({"5A", "--led", leds[led], "--buzzer", buzzers[buzzer], "--colour", colours[colour]},
           [=](QDialog& form) {
             Click(form, ("OptLED_" + std::to_string(led)).c_str());
             Click(form, ("OptLEDColor_" + std::to_string(colour)).c_str());
             Click(form, ("OptBuzzer_" + std::to_string(buzzer)).c_str());
           });
  }
}

// The console sends two blocks of a picture and not the rest of it.
TEST_F(ConsoleAndSend, SendTheSameBlocksOfABmpFile) {
  Press("Cmd4B");
  ASSERT_EQ(Frames().size(), 2U);
  QByteArray file;
  for (const std::string& frame : Frames()) {
    const link::Bytes bytes = link::BytesOf(frame);
    // Behind STX, the code and "0,"; before ETX and the block check.
    const std::string hex(bytes.begin() + 4, bytes.end() - 2);
    file += QByteArray::fromHex(QByteArray::fromStdString(hex));
  }
  // What the file's header says of its size.
  file.append(QByteArray(7454 - file.size(), '\0'));
  QTemporaryFile saved;
  ASSERT_TRUE(saved.open());
  saved.write(file);
  saved.flush();
  const auto frames = send::Composed({"4B", "0", saved.fileName().toStdString()}).frames;
  ASSERT_EQ(frames.size(), 47U);
  EXPECT_EQ(Frames(), (Words{frames[0], frames[1]}));
}

}  // namespace
}  // namespace vantrel::endtoend
