#include "dialogs/sub_form.h"

#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

class CountingForm : public SubForm {
 public:
  CountingForm() : SubForm("FrmCounting") {}
  int activations = 0;
  int unloads = 0;

 protected:
  void Form_Activate() override { ++activations; }
  void Form_Unload() override { ++unloads; }
};

TEST(SubForm, IsActivatedOncePerShowingAndUnloadedOnce) {
  CountingForm form;
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
  CountingForm form;
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
  CountingForm form;
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

}  // namespace
}  // namespace vantrel
