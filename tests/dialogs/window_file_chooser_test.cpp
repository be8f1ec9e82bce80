// SPDX-License-Identifier: MIT

#include "dialogs/window_file_chooser.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>

namespace vantrel::dialogs {
namespace {

class WindowFileChooserTest : public testing::Test {
 protected:
  // Runs `act` on the dialog that opens next, and closes it by its button or, where nothing is
  // chosen, by its close box.
  void OnDialog(std::function<void(QFileDialog& dialog)> act, bool accepts = true) {
    look_.disconnect();
    QObject::connect(&look_, &QTimer::timeout, &look_, [this, act = std::move(act), accepts] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr || !dialog->isVisible()) return;
      look_.stop();
      act(*dialog);
      if (accepts)
        QMetaObject::invokeMethod(dialog, "accept");
      else
        dialog->close();
    });
    look_.start(1);
  }
  static void Name(QFileDialog& dialog, const QString& name) {
    auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
    ASSERT_NE(edit, nullptr);
    edit->setText(name);
  }
  QString Save() {
    return chooser_.SaveName(nullptr, "Save log", folder_.filePath("line.txt"),
                             "Text (*.txt);;Comma-separated values (*.csv)");
  }

  QTemporaryDir folder_;
  WindowFileChooser chooser_;

 private:
  QTimer look_;
};

TEST_F(WindowFileChooserTest, SuggestsAName) {
  OnDialog([](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Save log");
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "line.txt");
  });
  EXPECT_EQ(Save(), folder_.filePath("line.txt"));
}

TEST_F(WindowFileChooserTest, AddsTheEndingOfTheFirstFilter) {
  OnDialog([](QFileDialog& dialog) { Name(dialog, "mine"); });
  EXPECT_EQ(Save(), folder_.filePath("mine.txt"));
}

TEST_F(WindowFileChooserTest, AddsTheEndingOfTheFilterThatIsChosen) {
  OnDialog([](QFileDialog& dialog) {
    auto* filters = dialog.findChild<QComboBox*>("fileTypeCombo");
    ASSERT_NE(filters, nullptr);
    QTest::keyClick(filters, Qt::Key_Down);
    Name(dialog, "mine");
  });
  EXPECT_EQ(Save(), folder_.filePath("mine.csv"));
}

TEST_F(WindowFileChooserTest, KeepsAnEndingThatIsThere) {
  OnDialog([](QFileDialog& dialog) { Name(dialog, "mine.log"); });
  EXPECT_EQ(Save(), folder_.filePath("mine.log"));
}

TEST_F(WindowFileChooserTest, ClosedGivesNoName) {
  OnDialog([](QFileDialog&) {}, false);
  EXPECT_EQ(Save(), "");
}

TEST_F(WindowFileChooserTest, OpensAFileThatIsThere) {
  const QString path = folder_.filePath("cards.json");
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.close();
  const auto open = [this] {
    return chooser_.OpenName(nullptr, "Open deck", "Decks of cards (*.json);;All files (*)");
  };
  OnDialog([&path](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Open deck");
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
    Name(dialog, path);
  });
  EXPECT_EQ(open(), path);
  OnDialog([&path](QFileDialog& dialog) { Name(dialog, path); }, false);
  EXPECT_EQ(open(), "");
}

}  // namespace
}  // namespace vantrel::dialogs
