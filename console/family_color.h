// SPDX-License-Identifier: MIT
#pragma once

#include "console/command_family.h"

#include <QColor>

namespace vantrel::console {

// The tint of a family on a ground of that colour. All five have a contrast of at least 3 to 1 on
// the usual grounds, light and dark, and differ for eyes that see no red, green or blue.
QColor FamilyColor(Family family, const QColor& ground);

}  // namespace vantrel::console
