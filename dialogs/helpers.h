// SPDX-License-Identifier: MIT
#pragma once

namespace vantrel::dialogs {

class Dialogs;
class FileChooser;
class Guard;

// What a window is handed to ask, to tell, and to run inside; all must outlive the window.
struct Helpers {
  Dialogs& dialogs;
  FileChooser& files;
  Guard& guard;
};

}  // namespace vantrel::dialogs
