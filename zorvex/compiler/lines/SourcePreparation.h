// The passes over a source before its first statement is compiled. Each one is finished before the next
// begins, and the first fault ends the compile.
#pragma once

#include <string>

#include "zorvex/compiler/CompileRun.h"

namespace zorvex {

/// Splits the logic's text (game text) into the working lines and puts the lines of each include file before
/// the line that names it, which becomes empty. Includes do not nest.
void AddIncludes(CompileRun& run, std::string sourceText);

/// Takes comments, and blanks at both ends, off all lines.
void RemoveComments(CompileRun& run);

/// Collects the labels. Their lines stay.
void ReadLabels(CompileRun& run);

/// Collects the `#define` lines and blanks them.
void ReadDefines(CompileRun& run);

/// Collects the `#message` lines and blanks them.
void ReadMsgs(CompileRun& run);

}  // namespace zorvex
