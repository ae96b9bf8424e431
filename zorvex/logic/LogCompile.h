// The door to the logic compiler.
#pragma once

#include <cstdint>
#include <string_view>

namespace zorvex {

class AGILogic;

/// Compiles the source text of a logic of the open game into the logic's bytes, and notes the check sums in
/// the property list. Either all of that happens or an error is raised and nothing has changed.
///
/// Warnings leave as AGIGameEvents::LogCompWarning while the compile runs, as "number|text|line|module": the
/// line counts from 1; the module is the full name of the include file, empty for the logic's own text. How
/// much is an error, a warning or nothing goes by AGILogicSourceSettings::ErrorLevel.
///
/// Each warning also leaves as AGIGameEvents::LogCompDiagnostic, and so does the error that ends a compile.
///
/// The first error in the source ends the compile. It is raised as catalogue number 635 with the source
/// "LogCompile" and the description "line|module|text", whose text begins with a number of its own, such as
/// "12||4007: ';' expected at end of statement". Errors of the library pass as they are; any other fault is
/// raised as number 634 with line -1. A fault of a warning handler passes as it is. A compile that a handler
/// starts while another one runs is refused with 634.
void CompileLogic(AGILogic& logic);

/// Where in its line the last warning or source error of a compile lies: a character's place from 1, 0 when
/// that is not known. To be asked inside the event, or when the error has been caught.
std::int32_t CompileColumn();

}  // namespace zorvex
