// SPDX-License-Identifier: MIT

#include "printer/window/card_page.h"

#include "printer/window/card_slot_view.h"
#include "printer/window/form_text.h"
#include "printer/window/track_box.h"
#include "tests/support/printer_form_bench.h"
#include "tests/support/wait_for.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QStringList>
#include <QTemporaryDir>

#include <string>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

class CardPageTest : public support::PrinterFormBench {
 protected:
  CardPageTest() { form_.activateWindow(); }

  TrackBox* Track(int number) {
    return Find<TrackBox>(("TxtTrack_" + std::to_string(number)).c_str());
  }
  std::string FocusName() {
    const QWidget* focus = form_.focusWidget();
    return focus != nullptr ? focus->objectName().toStdString() : "none";
  }
  void Focus(const char* name) {
    Find<QWidget>(name)->setFocus();
    ASSERT_EQ(FocusName(), name);
  }
  // The key goes to whatever has the focus.
  void Press(Qt::Key key) { QTest::keyClick(form_.focusWidget(), key); }
};

TEST_F(CardPageTest, HandsTheFocusFromOneHandToTheOther) {
  Focus("CmdInsertCard");
  Press(Qt::Key_Space);
  EXPECT_EQ(model_.State().place, CardPlace::kFront);
  EXPECT_EQ(FocusName(), "CmdPullOutCard");
  Press(Qt::Key_Space);
  EXPECT_EQ(model_.State().place, CardPlace::kOutside);
  EXPECT_EQ(FocusName(), "CmdInsertCard");
}

TEST_F(CardPageTest, WritesNothingWithTheNextKeyAfterAnInsertion) {
  model_.SetTrack(0, "STRIPE");
  for (const char* before : {"CmdInsertCard", "CmdNewCard", "CmbDeck", "OptCard_0"}) {
    Focus(before);
    server_.InsertCard();
    Press(Qt::Key_X);
    Press(Qt::Key_Return);
    EXPECT_EQ(model_.State().card.tracks[0], "STRIPE") << before;
    EXPECT_EQ(FocusName(), "CmdPullOutCard") << before;
    server_.PullOutCard();
  }
}

TEST_F(CardPageTest, LeavesTheFocusAtThePictureWhileACardMoves) {
  Pass(0ms);
  model_.SetInstantWork(false);
  server_.InsertCard();
  Focus("CmdPullOutCard");
  console_.Write("02 51 03 52");
  ASSERT_TRUE(support::WaitFor([&] { return model_.IsWorking(); }));
  EXPECT_EQ(FocusName(), "CardSlotView");
  Press(Qt::Key_X);
  EXPECT_FALSE(Track(1)->Edit());
  Pass(400ms);
  EXPECT_EQ(FocusName(), "CmdPullOutCard");
}

TEST_F(CardPageTest, RecordsATrackByEnterAlone) {
  model_.SetTrack(0, "OLD");
  QTest::keyClicks(Track(1), "ER");
  EXPECT_EQ(model_.State().card.tracks[0], "OLD");
  EXPECT_EQ(Label("LblTracks"),
            "Track 1 is not recorded yet.\nEnter records it, Escape takes it back.");
  QTest::keyClick(Track(1), Qt::Key_Return);
  EXPECT_EQ(model_.State().card.tracks[0], "OLDER");
  EXPECT_EQ(Label("LblTracks"), "");
  QTest::keyClicks(Track(1), "!");
  QTest::keyClick(Track(1), Qt::Key_Enter);
  EXPECT_EQ(model_.State().card.tracks[0], "OLDER!");
}

TEST_F(CardPageTest, TakesAnEditBackByEscape) {
  model_.SetTrack(1, "12");
  QTest::keyClicks(Track(2), "34");
  QTest::keyClick(Track(2), Qt::Key_Escape);
  EXPECT_EQ(Track(2)->text(), "12");
  EXPECT_EQ(model_.State().card.tracks[1], "12");
  EXPECT_FALSE(Track(2)->Edit());
}

TEST_F(CardPageTest, KeepsAnEditWhenACommandChangesTheTrackMeanwhile) {
  model_.SetTrack(0, "OLD");
  QTest::keyClicks(Track(1), "ER");
  model_.SetTrack(0, "WRITTEN");
  EXPECT_EQ(Track(1)->text(), "OLDER");
  EXPECT_EQ(Label("LblTracks"),
            "Track 1 is not recorded yet. Track 1 holds \"WRITTEN\" now.\n"
            "Enter records it, Escape takes it back.");
  QTest::keyClick(Track(1), Qt::Key_Escape);
  EXPECT_EQ(Track(1)->text(), "WRITTEN");
  EXPECT_EQ(Label("LblTracks"), "");
}

TEST_F(CardPageTest, ShowsThatAnEditIsNotRecorded) {
  const QImage before = Track(1)->grab().toImage();
  EXPECT_EQ(Track(1)->accessibleDescription(), "empty");
  QTest::keyClicks(Track(1), "A");
  EXPECT_TRUE(Track(1)->font().italic());
  EXPECT_EQ(Track(1)->accessibleDescription(), "changed and not recorded, 1 of 76 characters");
  // The frame in the colour of a notice: at the left edge, half way down.
  const QImage after = Track(1)->grab().toImage();
  const QRgb notice = NoticeColour(Track(1)->palette()).rgb();
  EXPECT_EQ(after.pixel(1, after.height() / 2), notice);
  EXPECT_NE(before.pixel(1, before.height() / 2), notice);
  QTest::keyClick(Track(1), Qt::Key_Return);
  EXPECT_FALSE(Track(1)->font().italic());
  EXPECT_EQ(Track(1)->accessibleDescription(), "1 of 76 characters");
}

TEST_F(CardPageTest, KeepsAnEditWithItsCard) {
  QTest::keyClicks(Track(1), "FIRST");
  Click("CmdNewCard");
  EXPECT_FALSE(Track(1)->Edit());
  auto* deck = Find<QComboBox>("CmbDeck");
  QTest::keyClick(deck, Qt::Key_Up);
  EXPECT_EQ(Track(1)->text(), "FIRST");
  EXPECT_TRUE(Track(1)->Edit());
  QTest::keyClick(deck, Qt::Key_Down);
  EXPECT_EQ(Track(1)->text(), "");
}

class FrmPrinterDeck : public CardPageTest {
 protected:
  QAction* Entry(const QString& text) {
    for (QAction* action : form_.findChildren<QAction*>()) {
      if (action->text().remove('&') == text) return action;
    }
    throw std::runtime_error(text.toStdString());
  }
  QStringList Names() {
    const auto* deck = Find<QComboBox>("CmbDeck");
    QStringList names;
    for (int i = 0; i < deck->count(); ++i) names += deck->itemText(i);
    return names;
  }

  QTemporaryDir folder_;
};

TEST_F(FrmPrinterDeck, IsSavedAndOpenedAgain) {
  QTest::keyClicks(Track(1), "FIRST\r");
  Click("CmdNewCard");
  QTest::keyClicks(Track(3), "THIRD\r");
  dialogs_.Types("Guest");
  Click("CmdRenameCard");
  files_.WillAnswer(folder_.filePath("cards.json"));
  Entry("Save deck...")->trigger();
  EXPECT_EQ(files_.LastTitle(), "Save deck");
  EXPECT_EQ(Label("LblLog"), "Saved to " + folder_.filePath("cards.json"));

  PrinterModel model{support::InstalledFonts(), link::CodePage::kWestern};
  PrinterServer server(model);
  FrmPrinter other(model, server, {dialogs_, files_, guard_});
  files_.WillAnswer(folder_.filePath("cards.json"));
  for (QAction* action : other.findChildren<QAction*>()) {
    if (action->text() == "&Open deck...") action->trigger();
  }
  EXPECT_EQ(files_.LastTitle(), "Open deck");
  const auto* deck = other.findChild<QComboBox*>("CmbDeck");
  ASSERT_EQ(deck->count(), 2);
  EXPECT_EQ(deck->itemText(0), "Card 1");
  EXPECT_EQ(deck->currentText(), "Guest");
  EXPECT_EQ(model.State().card.tracks[2], "THIRD");
  EXPECT_EQ(other.findChild<TrackBox*>("TxtTrack_3")->text(), "THIRD");
  // What was opened is saved.
  EXPECT_TRUE(other.close());
}

TEST_F(FrmPrinterDeck, TellsWhyItWasNotSavedOrOpened) {
  files_.WillAnswer(folder_.filePath("missing/cards.json"));
  dialogs_.Answers(dialogs::Answer::kOk);
  Entry("Save deck...")->trigger();
  EXPECT_EQ(dialogs_.Last().prompt, folder_.filePath("missing/cards.json").toStdString() +
                                        " was not saved: No such file or directory.");
  EXPECT_EQ(dialogs_.Last().title, "Save deck");
  files_.WillAnswer(folder_.filePath("none.json"));
  dialogs_.Answers(dialogs::Answer::kOk);
  Entry("Open deck...")->trigger();
  EXPECT_NE(dialogs_.Last().prompt.find(folder_.filePath("none.json").toStdString()),
            std::string::npos);
  EXPECT_NE(dialogs_.Last().prompt.find("No such file or directory"), std::string::npos);
  EXPECT_EQ(Names(), QStringList({"Card 1"}));
}

TEST_F(FrmPrinterDeck, StaysWhereNoFileIsChosen) {
  QTest::keyClicks(Track(1), "FIRST\r");
  dialogs_.Answers(dialogs::Answer::kNo);  // it is not to be saved first
  files_.WillAnswer({});
  Entry("Open deck...")->trigger();
  EXPECT_EQ(files_.LastTitle(), "Open deck");
  EXPECT_EQ(Names(), QStringList({"Card 1"}));
  EXPECT_EQ(Track(1)->text(), "FIRST");
}

TEST_F(FrmPrinterDeck, IsOpenedWhileTheCardIsOutsideAlone) {
  server_.InsertCard();
  EXPECT_FALSE(Entry("Open deck...")->isEnabled());
  server_.PullOutCard();
  EXPECT_TRUE(Entry("Open deck...")->isEnabled());
}

TEST_F(FrmPrinterDeck, HasItsCardsRenamed) {
  dialogs_.Types("  Guest   card ");
  Click("CmdRenameCard");
  EXPECT_EQ(dialogs_.Last().default_text, "Card 1");
  EXPECT_EQ(Names(), QStringList({"Guest card"}));
  dialogs_.CancelsInput();
  Click("CmdRenameCard");
  EXPECT_EQ(Names(), QStringList({"Guest card"}));
}

TEST_F(FrmPrinterDeck, HasItsCardsRemoved) {
  QTest::keyClicks(Track(1), "FIRST\r");
  EXPECT_FALSE(Find<QPushButton>("CmdRemoveCard")->isEnabled());
  Click("CmdNewCard");
  QTest::keyClicks(Track(1), "SECOND\r");
  Click("CmdNewCard");
  QTest::keyClicks(Track(1), "typed");
  QTest::keyClick(Find<QComboBox>("CmbDeck"), Qt::Key_Up);
  dialogs_.Answers(dialogs::Answer::kNo);
  Click("CmdRemoveCard");
  EXPECT_EQ(Names(), QStringList({"Card 1", "Card 2", "Card 3"}));
  dialogs_.Answers(dialogs::Answer::kYes);
  Click("CmdRemoveCard");
  EXPECT_EQ(dialogs_.Last().prompt,
            "Take \"Card 2\" out of the deck? What is recorded and printed on it is lost.");
  EXPECT_EQ(Names(), QStringList({"Card 1", "Card 3"}));
  // What was typed for the third card is still with it.
  EXPECT_EQ(Find<QComboBox>("CmbDeck")->currentText(), "Card 3");
  EXPECT_EQ(Track(1)->text(), "typed");
  QTest::keyClick(Find<QComboBox>("CmbDeck"), Qt::Key_Up);
  EXPECT_EQ(Track(1)->text(), "FIRST");
  // No name is given twice.
  Click("CmdNewCard");
  EXPECT_EQ(Names(), QStringList({"Card 1", "Card 3", "Card 4"}));
}

TEST_F(FrmPrinterDeck, IsNotAskedForWhenNothingWasDoneByHand) {
  server_.InsertCard();
  console_.Write("02 51 03 52");
  ASSERT_TRUE(support::WaitFor([&] { return Label("LblPlace") == "at the rear"; }));
  EXPECT_TRUE(form_.close());
}

TEST_F(FrmPrinterDeck, IsAskedForOnceAtTheEnd) {
  Click("CmdNewCard");
  dialogs_.Answers(dialogs::Answer::kCancel);
  EXPECT_FALSE(form_.close());
  EXPECT_TRUE(form_.isVisible());
  EXPECT_EQ(dialogs_.Last().prompt,
            "Cards were made or changed by hand and are not saved. Save the deck?");
  EXPECT_EQ(dialogs_.Last().buttons, dialogs::Buttons::kYesNoCancel);
  // A question where to save that is cancelled leaves the window open.
  dialogs_.Answers(dialogs::Answer::kYes);
  files_.WillAnswer("");
  EXPECT_FALSE(form_.close());
  dialogs_.Answers(dialogs::Answer::kYes);
  files_.WillAnswer(folder_.filePath("cards.json"));
  EXPECT_TRUE(form_.close());
  EXPECT_TRUE(QFile::exists(folder_.filePath("cards.json")));
  form_.show();
  EXPECT_TRUE(form_.close());
}

TEST_F(FrmPrinterDeck, IsAskedForWhenATrackWasTypedAndNotRecorded) {
  QTest::keyClicks(Track(2), "1");
  dialogs_.Answers(dialogs::Answer::kNo);
  EXPECT_TRUE(form_.close());
}

TEST_F(FrmPrinterDeck, IsAskedForWhenTheKindWasChanged) {
  Click("OptCard_1");
  dialogs_.Answers(dialogs::Answer::kNo);
  EXPECT_TRUE(form_.close());
}

}  // namespace
}  // namespace vantrel::printer
