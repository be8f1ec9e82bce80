// SPDX-License-Identifier: MIT

#include "dialogs/program_start.h"

#include <QApplication>
#include <QDialog>
#include <QIcon>
#include <gtest/gtest.h>

namespace vantrel::dialogs {
namespace {

TEST(ProgramStartTest, EveryWindowHasTheIcon) {
  IdentifyApplication("test-program");
  EXPECT_EQ(QApplication::applicationName(), "test-program");
  // That of the installed desktop entry, by which a desktop knows whose windows they are.
  EXPECT_EQ(QApplication::desktopFileName(), "org.vantrel.vantrel");
  const QDialog window;
  EXPECT_FALSE(window.windowIcon().isNull());
  for (const int size : {16, 32, 256})
    EXPECT_EQ(window.windowIcon().pixmap(size, size).size(), QSize(size, size)) << size;
}

int messages_passed_on = 0;

TEST(ProgramStartTest, WhatTheLibrarySaysMeanwhileIsPassedOnAtTheEnd) {
  messages_passed_on = 0;
  const QtMessageHandler before = qInstallMessageHandler(
      [](QtMsgType, const QMessageLogContext&, const QString&) { ++messages_passed_on; });
  {
    const DisplayWatch watch("test-program");
    qWarning("a message");
    EXPECT_EQ(messages_passed_on, 0);
  }
  EXPECT_EQ(messages_passed_on, 1);
  qInstallMessageHandler(before);
}

}  // namespace
}  // namespace vantrel::dialogs
