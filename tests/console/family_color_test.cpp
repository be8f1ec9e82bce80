// SPDX-License-Identifier: MIT

#include "console/family_color.h"

#include "dialogs/focus_ring.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace vantrel::console {
namespace {

constexpr std::array kFamilies = {Family::kTrackReads, Family::kTrackWrites, Family::kPrintData,
                                  Family::kCard, Family::kMaintenance};
const QColor kLight(0xEF, 0xEF, 0xEF);
const QColor kDark(0x35, 0x35, 0x35);

using Vector = std::array<double, 3>;
using Matrix = std::array<Vector, 3>;

// How linear RGB is seen without one kind of cone: Machado, Oliveira, Fernandes (2009), severity 1.
constexpr Matrix kNoRed = {{{0.152286, 1.052583, -0.204868},
                            {0.114503, 0.786281, 0.099216},
                            {-0.003882, -0.048116, 1.051998}}};
constexpr Matrix kNoGreen = {{{0.367322, 0.860646, -0.227968},
                              {0.280085, 0.672501, 0.047413},
                              {-0.011820, 0.042940, 0.968881}}};
constexpr Matrix kNoBlue = {{{1.255528, -0.076749, -0.178779},
                             {-0.078411, 0.930809, 0.147602},
                             {0.004733, 0.691367, 0.303900}}};
constexpr Matrix kAll = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

Vector Seen(const Matrix& eye, const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  const Vector rgb = {linear(color.redF()), linear(color.greenF()), linear(color.blueF())};
  Vector seen{};
  for (std::size_t i = 0; i < 3; ++i)
    seen[i] = std::clamp(eye[i][0] * rgb[0] + eye[i][1] * rgb[1] + eye[i][2] * rgb[2], 0.0, 1.0);
  return seen;
}

// CIE 1976 L*a*b* under D65.
Vector Lab(const Vector& rgb) {
  const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116; };
  const double x = f((0.4124 * rgb[0] + 0.3576 * rgb[1] + 0.1805 * rgb[2]) / 0.9505);
  const double y = f(0.2126 * rgb[0] + 0.7152 * rgb[1] + 0.0722 * rgb[2]);
  const double z = f((0.0193 * rgb[0] + 0.1192 * rgb[1] + 0.9505 * rgb[2]) / 1.089);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double Distance(const Vector& one, const Vector& other) {
  return std::hypot(one[0] - other[0], one[1] - other[1], one[2] - other[2]);
}

TEST(FamilyColor, StandsOutFromTheButton) {
  for (const QColor& ground : {kLight, kDark})
    for (const Family family : kFamilies)
      EXPECT_GE(dialogs::ContrastRatio(FamilyColor(family, ground), ground), 3)
          << static_cast<int>(family);
}

// A distance of 2 can just be seen side by side.
TEST(FamilyColor, IsToldFromTheOthersByAnyEye) {
  for (const QColor& ground : {kLight, kDark})
    for (const Matrix* eye : {&kAll, &kNoRed, &kNoGreen, &kNoBlue})
      for (const Family one : kFamilies)
        for (const Family other : kFamilies) {
          if (one >= other) continue;
          EXPECT_GE(Distance(Lab(Seen(*eye, FamilyColor(one, ground))),
                             Lab(Seen(*eye, FamilyColor(other, ground)))),
                    12)
              << static_cast<int>(one) << " and " << static_cast<int>(other);
        }
}

}  // namespace
}  // namespace vantrel::console
