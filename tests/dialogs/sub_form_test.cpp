// SPDX-License-Identifier: MIT

#include "dialogs/sub_form.h"

#include "tests/support/recording_guard.h"

#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace vantrel::dialogs {
namespace {

class CountingForm : public SubForm {
 public:
  explicit CountingForm(Guard& guard) : SubForm("FrmCounting", guard) {}
  int activations = 0;
  int unloads = 0;

 protected:
  void Form_Activate() override { ++activations; }
  void Form_Unload() override { ++unloads; }
};

TEST(SubForm, IsActivatedOncePerShowingAndUnloadedOnce) {
  support::RecordingGuard guard;
  CountingForm form(guard);
  form.show();
  EXPECT_EQ(form.activations, 1);
  form.Unload();
  EXPECT_EQ(form.unloads, 1);
  form.show();
  EXPECT_EQ(form.activations, 2);
  form.close();
  EXPECT_EQ(form.unloads, 2);
}

TEST(SubForm, ABoxOverItDoesNotActivateItAgain) {
  support::RecordingGuard guard;
  CountingForm form(guard);
  form.show();
  QDialog box(&form);
  box.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
  box.close();
  form.activateWindow();
  QCoreApplication::processEvents();
  EXPECT_EQ(form.activations, 1);
}

TEST(SubForm, EnterAndEscapeDoNothing) {
  support::RecordingGuard guard;
  CountingForm form(guard);
  auto* button = new QPushButton(&form);
  int clicks = 0;
  QObject::connect(button, &QPushButton::clicked, button, [&] { ++clicks; });
  form.show();
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
    QTest::keyClick(&form, key);
  EXPECT_EQ(clicks, 0);
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(form.unloads, 0);
}

class ThrowingForm : public SubForm {
 public:
  explicit ThrowingForm(Guard& guard) : SubForm("FrmThrowing", guard) {
    QObject::connect(this, &QObject::objectNameChanged, this,
                     Guarded([] { throw std::runtime_error("slot"); }));
  }

 protected:
  void Form_Activate() override { throw std::runtime_error("activate"); }
  void Form_Unload() override { throw std::runtime_error("unload"); }
};

TEST(SubForm, WhatItsHandlersThrowStaysInTheGuard) {
  support::RecordingGuard guard;
  ThrowingForm form(guard);
  form.show();
  form.setObjectName("FrmOther");
  form.close();
  EXPECT_EQ(guard.TakeFaults(), (std::vector<std::string>{"activate", "slot", "unload"}));
  EXPECT_FALSE(form.isVisible());
}

}  // namespace
}  // namespace vantrel::dialogs
