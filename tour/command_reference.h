// SPDX-License-Identifier: MIT
#pragma once

#include "printer/drawing/fonts.h"

#include <string>

namespace vantrel::tour {

// The command reference of docs/commands.md, in Markdown: a section for every command, made from
// the tables of the programs, from a frame that vantrel-send composes and from what the software
// printer answers to it. The fonts draw what an example prints; what is written does not depend on
// them.
std::string CommandReference(printer::Fonts& fonts);

}  // namespace vantrel::tour
