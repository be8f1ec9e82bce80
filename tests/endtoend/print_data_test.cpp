// SPDX-License-Identifier: MIT

// 41h, 42h and 4Eh from the button to the line: the form opens, composes, and the console sends
// what it left.

#include "tests/support/console_fixture.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

namespace vantrel::endtoend {
namespace {

class PrintDataTest : public support::ConsoleTest {
 protected:
  void Load() {
    support::ConsoleTest::Load();
    AnswerAll();
  }
};

TEST_F(PrintDataTest, A41hSendsTheHeaderAndTheBodyOfAnEscButton) {
  Load();
  dialogs_.Types("22");
  OnForm([this](QDialog& form) {
    EXPECT_EQ(form.objectName(), "FrmPrintBuffer");
    EXPECT_FALSE(form_->isVisible());
    Click(form, "Cmd_EscEe");
  });
  Press("Cmd41");
  EXPECT_TRUE(form_->isVisible());
  // "2,0,47,Test Print", four line breaks, ESC, "E22Test Print".
  EXPECT_EQ(Frames(),
            std::vector<std::string>{"0241322C302C34372C54657374205072696E740D0A0D0A0D0A0D0A"
                                     "1B45323254657374205072696E740331"});
  EXPECT_EQ(Text("LblHints"),
            "         Send: STX 41h 'Print data string' ETX BCC\r\n"
            "Response: STX 41h Status ETX BCC\r\n"
            "20h: Normal Status");
}

TEST_F(PrintDataTest, A41hClosedByItsCloseBoxSendsTheHeaderAndTheText) {
  Load();
  OnForm([](QDialog& form) { form.close(); });
  Press("Cmd41");
  EXPECT_EQ(Frames(), std::vector<std::string>{"0241322C302C34372C54657374205072696E740328"});
}

TEST_F(PrintDataTest, A42hSendsTheImageNumber) {
  Load();
  OnForm([](QDialog& form) {
    auto* number = form.findChild<QLineEdit*>("TxtImageNo");
    number->selectAll();
    QTest::keyClicks(number, "15");
    Click(form, "CmdNext");
  });
  Press("Cmd42");
  EXPECT_EQ(Frames(), std::vector<std::string>{"0242322C302C34372C31350368"});
}

TEST_F(PrintDataTest, A42hClosedByItsCloseBoxSendsWhatAnEarlierFormLeft) {
  Load();
  OnForm([](QDialog& form) { form.close(); });
  Press("Cmd42");
  OnForm([](QDialog& form) { form.close(); });
  Press("Cmd41");
  OnForm([](QDialog& form) { form.close(); });
  Press("Cmd42");
  EXPECT_EQ(Frames(),
            (std::vector<std::string>{"02420341", "0241322C302C34372C54657374205072696E740328",
                                      "0242322C302C34372C54657374205072696E74032B"}));
}

TEST_F(PrintDataTest, A4EhSendsTheBarcode) {
  Load();
  OnForm([](QDialog& form) {
    EXPECT_EQ(form.windowTitle(), "4Eh Barcode Data Setting command");
    Click(form, "OptBarcodeType_2");
    for (const char* key : {"CmdKey_1", "CmdKey_2", "CmdKey_13"}) Click(form, key);
    Click(form, "CmdNext");
  });
  Press("Cmd4E");
  // "0,47,2,12$"
  EXPECT_EQ(Frames(), std::vector<std::string>{"024E302C34372C322C3132240347"});
}

TEST_F(PrintDataTest, A4EhClosedByItsCloseBoxSendsNoData) {
  Load();
  OnForm([](QDialog& form) { form.close(); });
  Press("Cmd4E");
  EXPECT_EQ(Frames(), std::vector<std::string>{"024E034D"});
}

}  // namespace
}  // namespace vantrel::endtoend
