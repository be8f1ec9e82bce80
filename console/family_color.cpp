// SPDX-License-Identifier: MIT

#include "console/family_color.h"

#include <array>

namespace vantrel::console {
namespace {

constexpr std::array<QRgb, 5> kOnLight = {0xFF1B4BC4, 0xFFE0301E, 0xFF1E9A4B, 0xFF7A3558,
                                          0xFF747881};
constexpr std::array<QRgb, 5> kOnDark = {0xFF7B6CFF, 0xFFF0B400, 0xFF5FA050, 0xFFE050B0,
                                         0xFFF8F8F8};

}  // namespace

QColor FamilyColor(Family family, const QColor& ground) {
  const auto& colors = ground.lightnessF() < 0.5 ? kOnDark : kOnLight;
  return colors.at(static_cast<std::size_t>(family));
}

}  // namespace vantrel::console
