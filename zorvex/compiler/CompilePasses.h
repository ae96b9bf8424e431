// The order of the compiler's passes.
#pragma once

#include <string>

#include "zorvex/compiler/CompileRun.h"

namespace zorvex {

/// Takes a source text, as game text, through all passes; the code and messages then stand in the run's
/// LogicBuffer. A fault of the source leaves as a CompileFailure, unless the run goes on after it; the
/// LogicBuffer is then worth nothing. A fault of a warning handler leaves as a HandlerFault.
void RunPasses(CompileRun& run, std::string sourceText);

}  // namespace zorvex
