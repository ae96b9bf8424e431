#include <memory>
#include <string>

#include "zorvex/base/CodePage.h"
#include "zorvex/compiler/CompilePasses.h"
#include "zorvex/compiler/CompileRun.h"
#include "zorvex/compiler/GameWorld.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/logic/LogCompile.h"
#include "zorvex/state/AGIGameEvents.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

namespace {

constexpr std::string_view errorSource = "LogCompile";

/// Marks that a compile runs, for as long as it lives.
class RunningMark {
  public:
    RunningMark() { Library().CompilingLogic = true; }
    RunningMark(const RunningMark&) = delete;
    RunningMark& operator=(const RunningMark&) = delete;
    ~RunningMark() { Library().CompilingLogic = false; }
};

void Tell(const AGILogic& logic, const Diagnostic& error) {
    Library().CompileColumn = error.Column;
    if (const auto events = Library().Events) events->LogCompDiagnostic.Raise(error, logic.Number());
}

/// A fault that has no place in the source.
[[noreturn]] void RaisePlaceless(std::string_view what) {
    RaiseText(ObjectErrorBase + 634, errorSource, "-1||" + CatalogueText(591, {what}));
}

/// Tells of a fault that has no place in the source, and raises it.
[[noreturn]] void RaisePlaceless(const AGILogic& logic, const Error& error) {
    RememberError(error);
    Tell(logic, ToldPlaceless(error));
    if (IsLibraryError(error)) throw error;
    RaisePlaceless(error.NumberAndText());
}

[[noreturn]] void RaiseAtPlace(const AGILogic& logic, const CompileRun& run, const CompileFailure& failure) {
    const Diagnostic told = run.Told(failure);
    Tell(logic, told);
    RaiseText(ObjectErrorBase + 635, errorSource,
              std::to_string(told.Line) + "|" + told.File + "|" + failure.text);
}

void CompileInto(AGILogic& logic, CompileRun& run) {
    RunPasses(run, TextToGame(logic.SourceText()));
    logic.Resource().SetAllData(run.LogicBuffer.View());
    logic.NoteCompiled();
}

}  // namespace

void CompileLogic(AGILogic& logic) {
    if (Library().CompilingLogic) RaisePlaceless("another logic is being compiled");
    const RunningMark mark;
    Library().CompileColumn = 0;
    // A handler may take the logic out of the game while it is being compiled.
    const auto keep = Library().Logics ? Library().Logics->Find(logic.Number()) : nullptr;
    std::unique_ptr<GameWorld> world;
    std::unique_ptr<CompileRun> run;
    try {
        world = std::make_unique<GameWorld>(logic.Number());
        run = std::make_unique<CompileRun>(*world);
        CompileInto(logic, *run);
    } catch (const CompileFailure& failure) {
        RaiseAtPlace(logic, *run, failure);
    } catch (const HandlerFault& fault) {
        run.reset();
        std::rethrow_exception(fault.fault);
    } catch (...) {
        RaisePlaceless(logic, CurrentError());
    }
}

std::int32_t CompileColumn() {
    return Library().CompileColumn;
}

}  // namespace zorvex
