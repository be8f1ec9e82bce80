#include "console/guarded_application.h"

#include "link/port.h"
#include "link/transaction.h"
#include "tests/support/current_dialogs.h"
#include "tests/support/scripted_dialogs.h"

#include <QMetaObject>
#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel {
namespace {

class GuardedApplicationTest : public testing::Test {
 protected:
  GuardedApplicationTest() {
    CurrentDialogs::Instance().Set(&dialogs_);
    CurrentDialogs::Instance().end_status = -1;
  }
  ~GuardedApplicationTest() override { CurrentDialogs::Instance().Set(nullptr); }

  // Delivers an event whose handler throws.
  template <typename Exception>
  void Deliver(Exception exception) {
    QObject receiver;
    QMetaObject::invokeMethod(
        &receiver, [exception] { throw exception; }, Qt::QueuedConnection);
    QCoreApplication::processEvents();
  }

  ScriptedDialogs dialogs_;
};

TEST_F(GuardedApplicationTest, ShowsAFailureOfThePortAndGoesOn) {
  dialogs_.Answers(Answer::kOk);
  Deliver(PortError("COM 1 (/dev/x) is gone"));
  EXPECT_EQ(dialogs_.Last().prompt, "COM 1 (/dev/x) is gone");
  EXPECT_EQ(dialogs_.Last().icon, Icon::kCritical);
  EXPECT_EQ(CurrentDialogs::Instance().end_status, -1);
}

TEST_F(GuardedApplicationTest, ShowsAFaultOfTheProgramAndEndsWithStatus1) {
  dialogs_.Answers(Answer::kOk);
  Deliver(std::out_of_range("Subscript out of range"));
  EXPECT_TRUE(dialogs_.Last().prompt.starts_with("Subscript out of range\r\n"));
  EXPECT_EQ(dialogs_.Last().icon, Icon::kCritical);
  EXPECT_EQ(CurrentDialogs::Instance().end_status, 1);
}

TEST_F(GuardedApplicationTest, EndsOnAnExceptionOfAnyOtherKind) {
  dialogs_.Answers(Answer::kOk);
  Deliver(42);
  EXPECT_EQ(CurrentDialogs::Instance().end_status, 1);
}

TEST_F(GuardedApplicationTest, SaysNothingWhenAWaitHasEnded) {
  Deliver(ExchangeEnded());
  EXPECT_TRUE(dialogs_.All().empty());
  EXPECT_EQ(CurrentDialogs::Instance().end_status, -1);
}

}  // namespace
}  // namespace vantrel
