// SPDX-License-Identifier: MIT

// The window's menus, keys, names and what it remembers.

#include "dialogs/telling_guard.h"
#include "printer/window/face_view.h"
#include "tests/support/printer_form_bench.h"
#include "tests/support/wait_for.h"
#include "tests/support/window_checks.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QSplitter>
#include <QTableView>
#include <QTemporaryDir>

namespace vantrel::printer {
namespace {

class FrmPrinterMenu : public support::PrinterFormBench {
 protected:
  QMenu* Menu(const QString& title) {
    for (QAction* action : Find<QMenuBar>("MnuPrinter")->actions()) {
      if (action->text().remove('&') == title) return action->menu();
    }
    throw std::runtime_error(title.toStdString());
  }
  QStringList Entries(const QString& title) {
    QStringList entries;
    for (const QAction* action : Menu(title)->actions()) {
      if (!action->isSeparator()) entries += action->text().section('\t', 0, 0).remove('&');
    }
    return entries;
  }
  void Choose(const QString& menu, const QString& entry) {
    for (QAction* action : Menu(menu)->actions()) {
      if (action->text().section('\t', 0, 0).remove('&') == entry) return action->trigger();
    }
    throw std::runtime_error(entry.toStdString());
  }
};

TEST_F(FrmPrinterMenu, HasWhatPeopleLookFor) {
  EXPECT_EQ(Entries("File"), QStringList({"Open deck...", "Save deck...", "Save picture...",
                                          "Save log...", "Quit"}));
  EXPECT_EQ(Entries("Edit"), QStringList({"Copy", "Copy picture", "Find in the log", "Find next",
                                          "Find previous", "Clear the log"}));
  EXPECT_EQ(Entries("View"),
            QStringList({"Fit the face", "Face 1:1", "Face 2:1", "Face 3:1", "Turn the face",
                         "Card", "Tracks", "Print buffer", "Printer", "Faults"}));
  EXPECT_EQ(Entries("Help"), QStringList({"Keys", "About"}));
}

TEST_F(FrmPrinterMenu, HasNoMnemonicTwice) {
  auto* pages = Find<QTabWidget>("TabPages");
  for (int page = 0; page < pages->count(); ++page) {
    pages->setCurrentIndex(page);
    EXPECT_GT(support::MnemonicsIn(form_).size(), 10);
    EXPECT_EQ(support::MnemonicsTwiceIn(form_), QStringList())
        << pages->tabText(page).toStdString();
  }
  for (const char* title : {"File", "Edit", "View", "Help"}) {
    QStringList letters;
    for (const QAction* action : Menu(title)->actions()) {
      if (action->isSeparator()) continue;
      letters += QKeySequence::mnemonic(action->text().section('\t', 0, 0)).toString();
      EXPECT_NE(letters.last(), "") << action->text().toStdString();
    }
    EXPECT_EQ(letters.removeDuplicates(), 0) << title;
  }
}

TEST_F(FrmPrinterMenu, HasNoKeyTwice) {
  QStringList keys;
  for (const QAction* action : form_.findChildren<QAction*>()) {
    if (!action->shortcut().isEmpty()) keys += action->shortcut().toString();
  }
  EXPECT_TRUE(keys.contains("Ctrl+Q"));
  EXPECT_TRUE(keys.contains("Ctrl+F"));
  EXPECT_EQ(keys.removeDuplicates(), 0) << keys.join(' ').toStdString();
}

TEST_F(FrmPrinterMenu, NamesEveryWidgetToAScreenReader) {
  auto* pages = Find<QTabWidget>("TabPages");
  for (int page = 0; page < pages->count(); ++page) {
    pages->setCurrentIndex(page);
    EXPECT_EQ(support::UnnamedIn(form_), QStringList()) << pages->tabText(page).toStdString();
  }
  // Nothing is named by being overlooked.
  QWidget nameless(&form_);
  nameless.setFocusPolicy(Qt::TabFocus);
  nameless.show();
  EXPECT_EQ(support::UnnamedIn(form_), QStringList({"QWidget "}));
}

TEST_F(FrmPrinterMenu, TellsEveryValueWithItsCaption) {
  Click("CmdInsertCard");
  EXPECT_EQ(Find<QLabel>("LblActivity")->accessibleName(), "Printer: Idle");
  EXPECT_EQ(Find<QLabel>("LblPlace")->accessibleName(), "Card: inserted at the front");
  EXPECT_EQ(Find<QLabel>("LblLED")->accessibleName(), "LED: off");
  EXPECT_EQ(Find<QLabel>("LblBuzzer")->accessibleName(), "Buzzer: off");
  EXPECT_EQ(Find<QLabel>("LblTransportCount")->accessibleName(), "Transports: 0");
  EXPECT_EQ(Find<QLabel>("LblPrintCount")->accessibleName(), "Prints: 0");
  EXPECT_EQ(Find<QLabel>("LblDevice")->accessibleName().toStdString(),
            "Device: " + server_.DevicePath());
  EXPECT_EQ(Find<QWidget>("SignLED")->accessibleName(), "LED");
  EXPECT_EQ(Find<QWidget>("SignLED")->accessibleDescription(), "off");
  EXPECT_EQ(Find<QWidget>("SignBuzzer")->accessibleName(), "Buzzer");
}

TEST_F(FrmPrinterMenu, TellsTheFaceInDots) {
  auto* face = Find<FaceView>("FaceView");
  EXPECT_EQ(face->accessibleName(), "Card face, 480 by 320 dots, 0 black");
  Card card;
  for (int dot = 0; dot < 1024; ++dot) card.face.Set(dot % 480, dot / 480, true);
  ASSERT_TRUE(model_.ChangeCard(card));
  EXPECT_TRUE(support::WaitFor(
      [&] { return face->accessibleName() == "Card face, 480 by 320 dots, 1,024 black"; }));
}

TEST_F(FrmPrinterMenu, DescribesNoFilledTrackAsEmpty) {
  model_.SetTrack(0, "ABC");
  const auto description = [this](const char* name) {
    return QAccessible::queryAccessibleInterface(Find<QLineEdit>(name))
        ->text(QAccessible::Description);
  };
  EXPECT_EQ(description("TxtTrack_1"), "3 of 76 characters");
  EXPECT_EQ(description("TxtTrack_2"), "empty");
  EXPECT_EQ(description("TxtTrackHex_1"), "8 characters");
  EXPECT_EQ(description("TxtBuffer_1"), "no card has passed");
}

TEST_F(FrmPrinterMenu, SaysWhatToDoWhileNothingIsOnTheLine) {
  auto* words = Find<QLabel>("LblLogEmpty");
  EXPECT_TRUE(words->isVisible());
  EXPECT_EQ(words->text().toStdString(),
            "Nothing on the line yet. A console opens " + server_.DevicePath() + ".");
  server_.Unplug();
  EXPECT_EQ(
      words->text(),
      "Nothing on the line: the printer is unplugged. \"Plug in\" stands on the page Printer.");
  server_.PlugIn();
  EXPECT_EQ(words->text().toStdString(),
            "Nothing on the line yet. A console opens " + server_.DevicePath() + ".");
  support::DeviceUser(server_.DevicePath()).Write("02 21 03 22");
  EXPECT_TRUE(support::WaitFor([&] { return !words->isVisible(); }));
}

TEST_F(FrmPrinterMenu, ShowsEightWholeRowsAtFirst) {
  form_.hide();
  FrmPrinter first(model_, server_, {dialogs_, files_, guard_});
  first.show();
  const auto* log = first.findChild<QTableView*>("TxtLog");
  EXPECT_GE(log->viewport()->height(), 8 * log->verticalHeader()->defaultSectionSize());
}

TEST_F(FrmPrinterMenu, RemembersItsSizeItsPartsAndItsColumns) {
  const QTemporaryDir folder;
  QSettings settings(folder.filePath("printer.ini"), QSettings::IniFormat);
  QList<int> halves;
  QSize size;
  {
    FrmPrinter first(model_, server_, {dialogs_, files_, guard_}, &settings);
    first.show();
    // As the screen lets it.
    first.resize(first.minimumSizeHint().width(), 690);
    auto* splitter = first.findChild<QSplitter*>("SplHalves");
    splitter->setSizes({350, 250});
    first.findChild<QTableView*>("TxtLog")->horizontalHeader()->resizeSection(2, 77);
    QCoreApplication::processEvents();
    halves = splitter->sizes();
    size = first.size();
  }
  FrmPrinter second(model_, server_, {dialogs_, files_, guard_}, &settings);
  second.show();
  QCoreApplication::processEvents();
  EXPECT_EQ(size.height(), 690);
  EXPECT_EQ(second.size(), size);
  EXPECT_EQ(second.findChild<QSplitter*>("SplHalves")->sizes(), halves);
  EXPECT_EQ(second.findChild<QTableView*>("TxtLog")->horizontalHeader()->sectionSize(2), 77);
}

TEST_F(FrmPrinterMenu, TellsItsKeysAndItsVersion) {
  dialogs_.Answers(dialogs::Answer::kOk);
  Choose("Help", "Keys");
  EXPECT_NE(dialogs_.Last().prompt.find("Ctrl+F, F3, Shift+F3: find in the log"),
            std::string::npos);
  dialogs_.Answers(dialogs::Answer::kOk);
  Choose("Help", "About");
  EXPECT_NE(dialogs_.Last().prompt.find("vantrel-printer " VANTREL_VERSION), std::string::npos);
  EXPECT_NE(dialogs_.Last().prompt.find(server_.DevicePath()), std::string::npos);
}

TEST_F(FrmPrinterMenu, CopiesWhatIsSelectedOrElseTheLog) {
  model_.SetTrack(0, "STRIPE");
  auto* track = Find<QLineEdit>("TxtTrack_1");
  track->setFocus();
  track->setSelection(0, 3);
  Choose("Edit", "Copy");
  EXPECT_EQ(QApplication::clipboard()->text(), "STR");
  console_.Write("02 21 03 22");
  ASSERT_TRUE(
      support::WaitFor([&] { return Find<QTableView>("TxtLog")->model()->rowCount() > 0; }));
  track->deselect();
  Choose("Edit", "Copy");
  EXPECT_TRUE(QApplication::clipboard()->text().contains("02 21 03 22  21h first track read\n"));
}

TEST_F(FrmPrinterMenu, TurnsToAPageAndZoomsTheFace) {
  Choose("View", "Faults");
  EXPECT_EQ(Find<QTabWidget>("TabPages")->currentIndex(), 4);
  Choose("View", "Face 2:1");
  EXPECT_EQ(Find<QComboBox>("CmbZoom")->currentText(), "2:1");
  EXPECT_EQ(Find<FaceView>("FaceView")->Scale(), 2);
  Choose("View", "Turn the face");
  EXPECT_EQ(Find<FaceView>("FaceView")->QuarterTurns(), 1);
}

TEST_F(FrmPrinterMenu, LetsNoExceptionLeaveASlot) {
  // The device cannot be made, for a reason that the page does not expect.
  Click("CmdInsertCard");
  TurnTo("Printer");
  Click("CmdUnplug");
  make_line_throws_ = true;
  Click("CmdPlugIn");
  EXPECT_EQ(guard_.TakeFaults(), std::vector<std::string>({"No memory for a line."}));
  make_line_throws_ = false;
}

TEST(TellingGuard, TellsWhatWasThrownAndGoesOn) {
  support::ScriptedDialogs dialogs;
  dialogs::TellingGuard guard(dialogs);
  int ran = 0;
  guard.Run([&] { ++ran; });
  EXPECT_TRUE(dialogs.All().empty());
  dialogs.Answers(dialogs::Answer::kOk);
  guard.Run([] { throw std::logic_error("The slot is out of order."); });
  EXPECT_EQ(dialogs.Last().prompt,
            "The slot is out of order.\r\n\r\nThis is a fault of the program. Save what you need, "
            "then start it again.");
  EXPECT_EQ(dialogs.Last().icon, dialogs::Icon::kCritical);
  dialogs.Answers(dialogs::Answer::kOk);
  guard.Run([] { throw 1; });
  guard.Run([&] { ++ran; });
  EXPECT_EQ(ran, 2);
}

}  // namespace
}  // namespace vantrel::printer
