// The order of the compiler's passes.
#pragma once

#include <string>

#include "zorvex/compiler/CompileRun.h"

namespace zorvex {

/// Gives the reserved names that speak of the game their present values.
void RefreshReservedValues();

/// Takes a source text, as game text, through all passes; the code and messages then stand in the run's
/// LogicBuffer. A fault of the source leaves as a CompileFailure, one of a warning handler as a HandlerFault.
void RunPasses(CompileRun& run, std::string sourceText);

}  // namespace zorvex
