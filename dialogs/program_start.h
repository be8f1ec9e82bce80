// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace vantrel::dialogs {

// Stands around the making of an application with windows, one at a time. Where the display cannot
// be reached the library would abort; instead one line on standard error tells it, "PROGRAM: " and
// a sentence, and the process ends with status 1. Anything else that the library says meanwhile is
// passed on at the end.
class DisplayWatch {
 public:
  // `advice` ends the line: "--headless needs none."; empty for none.
  explicit DisplayWatch(const char* program, const char* advice = "");
  ~DisplayWatch();
  DisplayWatch(const DisplayWatch&) = delete;
  DisplayWatch& operator=(const DisplayWatch&) = delete;
};

// Gives the application its name, its version and the icon of all its windows.
void IdentifyApplication(const QString& name);

}  // namespace vantrel::dialogs
