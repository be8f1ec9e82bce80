// SPDX-License-Identifier: MIT
#pragma once

#include "link/code_page.h"
#include "printer/drawing/fonts.h"
#include "printer/drawing/page.h"
#include "printer/drawing/print_registers.h"
#include "protocol/print_text.h"

#include <vector>

namespace vantrel::printer {

// Where print text begins and what it is drawn with.
struct TextSetting {
  Fonts& fonts;
  const PrintRegisters& registers;
  link::CodePage code_page;
  int x;  // the reference point on the page
  int y;
};

// Draws print text until a character does not fit on the page. Returns whether all did.
bool DrawPrintText(Page& page, const TextSetting& setting,
                   const std::vector<protocol::TextItem>& items);

}  // namespace vantrel::printer
