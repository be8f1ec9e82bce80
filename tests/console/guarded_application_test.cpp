// SPDX-License-Identifier: MIT

#include "console/guarded_application.h"

#include "link/port.h"
#include "link/transaction.h"
#include "tests/support/current_dialogs.h"
#include "tests/support/scripted_dialogs.h"

#include <QEvent>
#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel::console {
namespace {

class GuardedApplicationTest : public testing::Test {
 protected:
  GuardedApplicationTest() {
    support::CurrentDialogs::Instance().Set(&dialogs_);
    support::CurrentDialogs::Instance().end_status = -1;
  }
  ~GuardedApplicationTest() override { support::CurrentDialogs::Instance().Set(nullptr); }

  // Runs work that throws.
  template <typename Exception>
  static void Throw(Exception exception) {
    dynamic_cast<GuardedApplication&>(*qApp).Run([exception] { throw exception; });
  }

  support::ScriptedDialogs dialogs_;
};

TEST_F(GuardedApplicationTest, ShowsAFailureOfThePortAndGoesOn) {
  dialogs_.Answers(dialogs::Answer::kOk);
  Throw(link::PortError("COM 1 (/dev/x) is gone"));
  EXPECT_EQ(dialogs_.Last().prompt, "COM 1 (/dev/x) is gone");
  EXPECT_EQ(dialogs_.Last().icon, dialogs::Icon::kCritical);
  EXPECT_EQ(support::CurrentDialogs::Instance().end_status, -1);
}

TEST_F(GuardedApplicationTest, ShowsAFaultOfTheProgramAndEndsWithStatus1) {
  dialogs_.Answers(dialogs::Answer::kOk);
  Throw(std::out_of_range("Subscript out of range"));
  EXPECT_TRUE(dialogs_.Last().prompt.starts_with("Subscript out of range\r\n"));
  EXPECT_EQ(dialogs_.Last().icon, dialogs::Icon::kCritical);
  EXPECT_EQ(support::CurrentDialogs::Instance().end_status, 1);
}

TEST_F(GuardedApplicationTest, EndsOnAnExceptionOfAnyOtherKind) {
  dialogs_.Answers(dialogs::Answer::kOk);
  Throw(42);
  EXPECT_EQ(support::CurrentDialogs::Instance().end_status, 1);
}

TEST_F(GuardedApplicationTest, SaysNothingWhenAWaitHasEnded) {
  Throw(link::ExchangeEnded());
  EXPECT_TRUE(dialogs_.All().empty());
  EXPECT_EQ(support::CurrentDialogs::Instance().end_status, -1);
}

TEST_F(GuardedApplicationTest, RunsWhatThrowsNothing) {
  bool ran = false;
  dynamic_cast<GuardedApplication&>(*qApp).Run([&ran] { ran = true; });
  EXPECT_TRUE(ran);
}

// An object whose event throws past everything that runs inside the guard.
class Thrower : public QObject {
 protected:
  bool event(QEvent*) override { throw std::runtime_error("no memory"); }
};

TEST_F(GuardedApplicationTest, CatchesWhatNothingElseDid) {
  dialogs_.Answers(dialogs::Answer::kOk);
  Thrower thrower;
  QEvent event(QEvent::User);
  QCoreApplication::sendEvent(&thrower, &event);
  EXPECT_TRUE(dialogs_.Last().prompt.starts_with("no memory\r\n"));
  EXPECT_EQ(support::CurrentDialogs::Instance().end_status, 1);
}

}  // namespace
}  // namespace vantrel::console
