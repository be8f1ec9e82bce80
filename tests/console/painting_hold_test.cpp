// SPDX-License-Identifier: MIT

#include "console/painting_hold.h"

#include <QCoreApplication>
#include <QLabel>
#include <QScrollArea>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include <chrono>

namespace vantrel::console {
namespace {

constexpr std::chrono::hours kNever{1};

class Painted : public QWidget {
 public:
  int Paints() const { return paints_; }

 protected:
  void paintEvent(QPaintEvent*) override { ++paints_; }

 private:
  int paints_ = 0;
};

class PaintingHoldTest : public testing::Test {
 protected:
  PaintingHoldTest() {
    layout_.addWidget(&painted_);
    window_.resize(200, 100);
    window_.show();
    while (painted_.Paints() == 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }

  QWidget window_;
  Painted painted_;
  QVBoxLayout layout_{&window_};
};

TEST_F(PaintingHoldTest, PaintsOnceAtItsEndWhatWasDueMeanwhile) {
  PaintingHold hold(kNever);
  hold.Watch(&window_);
  const int before = painted_.Paints();
  hold.Begin();
  for (int i = 0; i < 3; ++i) {
    painted_.update();
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(painted_.Paints(), before);
  hold.End();
  EXPECT_EQ(painted_.Paints(), before);
  QCoreApplication::processEvents();
  EXPECT_EQ(painted_.Paints(), before + 1);
}

TEST_F(PaintingHoldTest, LetsAScrollAreaLayOutAtItsEnd) {
  QScrollArea area;
  auto* label = new QLabel("One line");
  label->setWordWrap(true);
  area.setWidgetResizable(true);
  area.setWidget(label);
  area.resize(200, 100);
  area.show();
  QCoreApplication::processEvents();
  PaintingHold hold(kNever);
  hold.Watch(area.viewport());
  const int before = label->height();
  hold.Begin();
  label->setText(QString("Many lines. ").repeated(100));
  QCoreApplication::processEvents();
  EXPECT_EQ(label->height(), before);
  hold.End();
  QCoreApplication::processEvents();
  EXPECT_GT(label->height(), before);
}

TEST_F(PaintingHoldTest, EndsOfItself) {
  PaintingHold hold(std::chrono::milliseconds(1));
  hold.Watch(&window_);
  const int before = painted_.Paints();
  hold.Begin();
  painted_.update();
  EXPECT_TRUE(QTest::qWaitFor([&] { return painted_.Paints() > before; }));
}

TEST_F(PaintingHoldTest, OutlivesWhatItPutOff) {
  PaintingHold hold(kNever);
  {
    QWidget window;
    window.show();
    QCoreApplication::processEvents();
    hold.Watch(&window);
    hold.Begin();
    window.update();
    QCoreApplication::processEvents();
  }
  hold.End();
  QCoreApplication::processEvents();
}

}  // namespace
}  // namespace vantrel::console
