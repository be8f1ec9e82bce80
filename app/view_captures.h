#pragma once

#include <string>
#include <vector>

namespace vantrel::app {

// Shows one capture, or two side by side, in a window until it is closed. Returns the status to end
// with.
int ViewCaptures(int argc, char** argv, const std::vector<std::string>& paths);

}  // namespace vantrel::app
