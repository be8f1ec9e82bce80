// SPDX-License-Identifier: MIT

// The console against the software printer over a pseudo-terminal: what one command does, another
// one sees.

#include "printer/model/printer_model.h"
#include "printer/service/printer_server.h"
#include "tests/support/console_fixture.h"
#include "tests/support/installed_fonts.h"
#include "tests/support/print_bench.h"

#include <QLineEdit>
#include <QTest>

namespace vantrel::endtoend {
namespace {

class SoftwarePrinterTest : public support::ConsoleTest {
 protected:
  SoftwarePrinterTest() : server_(model_) { first_device_ = server_.DevicePath(); }

  void SetUp() override {
    model_.SetInstantWork(true);
    Load();
  }

  // Presses a button and expects that the printer takes the command with the normal status.
  void PressWell(const char* name) {
    Press(name);
    EXPECT_TRUE(Text("TxtResponse").starts_with("02 ")) << name << ": " << Text("TxtResponse");
    EXPECT_EQ(Text("TxtResponse").substr(6, 2), "20") << name;
  }
  // What the reply means: what stands under the two lines of help.
  std::string Meaning() {
    const std::string hints = Text("LblHints");
    return hints.substr(hints.rfind("\r\n") + 2);
  }
  void SetData(const char* button, const std::string& data) {
    dialogs_.Answers(dialogs::Answer::kYes);
    dialogs_.Types(data);
    PressWell(button);
  }
  void Write(const char* choice) {
    dialogs_.Types(choice);
    PressWell("Cmd31");
  }
  // Runs `act` while a command waits for a card, once the console has dealt with its 06h: what
  // comes while it does is lost.
  void OnceItWaitsForACard(std::function<void()> act) {
    Once([this] { return model_.State().wait != printer::CardWait::kNone && server_.IsTaken(); },
         std::move(act));
  }
  int BlackDots() const { return support::BlackDots(model_.State().card.face); }

  printer::PrinterModel model_{support::InstalledFonts(), link::CodePage::kWestern};
  printer::PrinterServer server_;
};

TEST_F(SoftwarePrinterTest, WhatIsSetAndWrittenIsReadBackFromEveryTrack) {
  server_.InsertCard();
  SetData("Cmd3B", "HELLO TRACK 1");
  SetData("Cmd3C", "0123456789");
  SetData("Cmd3D", "987654321");
  Write("7");
  PressWell("Cmd21");
  EXPECT_EQ(Meaning(), "First Track: HELLO TRACK 1");
  PressWell("Cmd22");
  EXPECT_EQ(Meaning(), "Second Track: 0123456789");
  PressWell("Cmd23");
  EXPECT_EQ(Meaning(), "Third Track: 987654321");
}

TEST_F(SoftwarePrinterTest, EverySampleIsTaken) {
  for (const char* button :
       {"Cmd35", "Cmd36", "Cmd37", "Cmd38", "Cmd39", "Cmd3A", "Cmd3B", "Cmd3C", "Cmd3D"}) {
    dialogs_.Answers(dialogs::Answer::kNo);
    PressWell(button);
  }
}

TEST_F(SoftwarePrinterTest, A32hWritesTheCardInside) {
  server_.InsertCard();
  SetData("Cmd38", "Seven bits: a-z");
  dialogs_.Types("1");
  PressWell("Cmd32");
  PressWell("Cmd25");
  EXPECT_EQ(Meaning(), "First Track: Seven bits: a-z");
}

TEST_F(SoftwarePrinterTest, A32hWithoutACardSaysSo) {
  dialogs_.Types("1");
  Press("Cmd32");
  EXPECT_EQ(Meaning(), "22h: No targeted Card");
}

TEST_F(SoftwarePrinterTest, CardsAreDischargedByEachMethod) {
  server_.InsertCard();
  dialogs_.Types("0");
  PressWell("Cmd46");
  EXPECT_EQ(model_.State().place, printer::CardPlace::kFront);
  dialogs_.Types("2");
  PressWell("Cmd47");
  // It has left at the back, so the next command needs a new one.
  EXPECT_EQ(model_.State().place, printer::CardPlace::kOutside);
  server_.InsertCard();
  dialogs_.Types("1");
  PressWell("Cmd48");
  EXPECT_EQ(model_.State().place, printer::CardPlace::kExit);
}

TEST_F(SoftwarePrinterTest, A50hDischargesToTheFrontOrCompletely) {
  server_.InsertCard();
  dialogs_.Answers(dialogs::Answer::kNo);
  PressWell("Cmd50");
  EXPECT_EQ(model_.State().place, printer::CardPlace::kFront);
  dialogs_.Answers(dialogs::Answer::kYes);
  PressWell("Cmd50");
  EXPECT_EQ(model_.State().place, printer::CardPlace::kExit);
}

TEST_F(SoftwarePrinterTest, A46hWaitsForTheCardThatAPersonPutsIn) {
  dialogs_.Types("1");
  OnceItWaitsForACard([this] { server_.InsertCard(); });
  PressWell("Cmd46");
  EXPECT_EQ(model_.State().place, printer::CardPlace::kExit);
}

TEST_F(SoftwarePrinterTest, A54hCancelsTheWaitForACard) {
  bool had_waited = false;
  OnceItWaitsForACard([&] {
    had_waited = true;
    PressWell("Cmd54");
    EXPECT_EQ(model_.State().wait, printer::CardWait::kNone);
    form_->close();  // ends the outer wait, which would go on for five seconds
  });
  Press("Cmd21");
  EXPECT_TRUE(had_waited);
  EXPECT_FALSE(form_->IsWaiting());
}

TEST_F(SoftwarePrinterTest, PrintedTextStandsOnTheCardUntilItIsErased) {
  server_.InsertCard();
  OnForm([](QDialog& form) { form.close(); });
  PressWell("Cmd41");
  dialogs_.Types("0");
  PressWell("Cmd46");
  EXPECT_GT(BlackDots(), 0);
  dialogs_.Types("0");
  PressWell("Cmd48");
  EXPECT_EQ(BlackDots(), 0);
  PressWell("Cmd96");
  EXPECT_EQ(Meaning(), "Print Count: 1");
}

TEST_F(SoftwarePrinterTest, A40hClearsWhatWouldBePrinted) {
  server_.InsertCard();
  OnForm([](QDialog& form) { form.close(); });
  PressWell("Cmd41");
  EXPECT_GT(support::BlackDots(model_.State().print_image), 0);
  PressWell("Cmd40");
  EXPECT_EQ(support::BlackDots(model_.State().print_image), 0);
  dialogs_.Types("0");
  PressWell("Cmd46");
  EXPECT_EQ(BlackDots(), 0);
}

TEST_F(SoftwarePrinterTest, BarcodesImagesAndCharactersAreTaken) {
  server_.InsertCard();
  OnForm([](QDialog& form) {
    Click(form, "OptBarcodeType_2");
    for (const char* key : {"CmdKey_1", "CmdKey_2"}) Click(form, key);
    Click(form, "CmdNext");
  });
  PressWell("Cmd4E");
  OnForm([](QDialog& form) {
    Click(form, "CmdSet");
    Click(form, "CmdNext");
  });
  PressWell("Cmd43");
  OnForm([](QDialog& form) {
    Click(form, "CmdSet");
    Click(form, "CmdNext");
  });
  PressWell("Cmd4D");
  dialogs_.Answers(dialogs::Answer::kOk);
  OnForm([](QDialog& form) { Click(form, "CmdNext"); });
  PressWell("Cmd44");
  dialogs_.Answers(dialogs::Answer::kOk);
  OnForm([](QDialog& form) { Click(form, "CmdNext"); });
  PressWell("Cmd45");
  OnForm([](QDialog& form) { Click(form, "CmdNext"); });
  PressWell("Cmd42");
  PressWell("Cmd4B");
  PressWell("Cmd49");
}

TEST_F(SoftwarePrinterTest, WhatACloseBoxOfTheFontEditorSendsIsRejected) {
  OnForm([](QDialog& form) { form.close(); });
  Press("Cmd44");
  EXPECT_EQ(Text("TxtResponse"), "&H10: Reject Response");
}

TEST_F(SoftwarePrinterTest, TheRestOfTheCommandsAreTaken) {
  server_.InsertCard();
  for (const char* button :
       {"Cmd21", "Cmd22", "Cmd23", "Cmd25", "Cmd26", "Cmd27", "Cmd29", "Cmd2A", "Cmd2B", "Cmd51",
        "Cmd53", "Cmd54", "Cmd55", "Cmd58", "Cmd59", "Cmd5F", "Cmd95", "Cmd96"}) {
    model_.SetTrack(0, "1");
    model_.SetTrack(1, "2");
    model_.SetTrack(2, "3");
    PressWell(button);
  }
  OnForm([](QDialog& form) { Click(form, "CmdNext"); });
  PressWell("Cmd5A");
  dialogs_.Answers(dialogs::Answer::kYes);
  dialogs_.Answers(dialogs::Answer::kNo);
  PressWell("Cmd5B");
  dialogs_.Answers(dialogs::Answer::kYes);
  dialogs_.Types("11");
  PressWell("Cmd91");
  const std::string response = Text("TxtResponse");
  Press("Cmd4A");  // sends nothing
  EXPECT_EQ(Text("TxtResponse"), response);
  server_.PullOutCard();
  model_.SetCardKind(printer::CardKind::kCleaning);
  server_.InsertCard();
  PressWell("cmd52");
}

}  // namespace
}  // namespace vantrel::endtoend
