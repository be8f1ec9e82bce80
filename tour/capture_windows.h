// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/helpers.h"
#include "log/line_recorder.h"

#include <QString>

#include <functional>

class QWidget;

namespace vantrel::tour {

using Photographer = std::function<void(QWidget& window, const QString& name)>;

// Hands the windows that show captures to `photograph`, one after the other: a capture, two side by
// side, one that is played back, and a pass-through. They show what `recorder` has, which is not
// changed. Throws std::runtime_error when a window does not come to show it.
void PhotographCaptureWindows(log::LineRecorder& recorder, dialogs::Helpers helpers,
                              const Photographer& photograph);

}  // namespace vantrel::tour
