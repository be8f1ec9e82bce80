// SPDX-License-Identifier: MIT
#pragma once

#include "printer/drawing/fonts.h"

namespace vantrel::support {

// The fonts of this machine, opened once for all tests of a program.
inline printer::Fonts& InstalledFonts() {
  static printer::Fonts fonts(printer::SystemFontFolder());
  return fonts;
}

}  // namespace vantrel::support
