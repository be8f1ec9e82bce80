// SPDX-License-Identifier: MIT
#pragma once

#include "printer/drawing/bitmap.h"
#include "printer/drawing/fonts.h"
#include "protocol/barcode.h"

#include <string>
#include <vector>

namespace vantrel::printer {

// The modules of the symbol without quiet zones, from left to right, true for a bar. Throws
// std::runtime_error where the barcode library cannot encode it.
std::vector<bool> BarcodeModules(const protocol::Barcode& barcode);

// What a person reads below the bars; Code 128's function characters and control characters are
// left out.
std::string BarcodeText(const protocol::Barcode& barcode);

// Draws the barcode in the middle of the card's long side, over whatever was there, with a quiet
// zone of ten modules on either side. Returns false, and draws nothing, where its subscript does
// not fit below the bars.
bool DrawBarcode(Bitmap& face, Fonts& fonts, const protocol::Barcode& barcode);

}  // namespace vantrel::printer
