// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

// What every fuzz target defines: one input. It ends the program where the input does harm; 0 says
// that the input may be kept.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
