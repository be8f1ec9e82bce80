// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/file_chooser.h"

#include <gtest/gtest.h>

#include <deque>
#include <utility>

namespace vantrel::support {

// Answers each question with the next path of its list. A question that no test expected fails.
class ScriptedFileChooser : public dialogs::FileChooser {
 public:
  ~ScriptedFileChooser() override {
    EXPECT_TRUE(answers_.empty()) << "an answer was not asked for";
  }

  // The next question is answered with `path`; an empty one cancels it.
  void WillAnswer(const QString& path) { answers_.push_back(path); }
  // The title, suggestion and filters of the last question.
  const QString& LastTitle() const { return title_; }
  const QString& LastFilters() const { return filters_; }

  QString SaveName(QWidget*, const QString& title, const QString&,
                   const QString& filters) override {
    return OpenName(nullptr, title, filters);
  }
  QString OpenName(QWidget*, const QString& title, const QString& filters) override {
    title_ = title;
    filters_ = filters;
    if (answers_.empty()) {
      ADD_FAILURE() << "unexpected question: " << title.toStdString();
      return {};
    }
    QString path = std::move(answers_.front());
    answers_.pop_front();
    return path;
  }

 private:
  std::deque<QString> answers_;
  QString title_;
  QString filters_;
};

}  // namespace vantrel::support
