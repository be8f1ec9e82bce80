#pragma once

namespace vantrel {

// Milliseconds of processor time that this process has used so far.
double ProcessorTime();

}  // namespace vantrel
