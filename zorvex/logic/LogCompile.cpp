#include <memory>
#include <string>

#include "zorvex/base/CodePage.h"
#include "zorvex/compiler/CompilePasses.h"
#include "zorvex/compiler/CompileRun.h"
#include "zorvex/compiler/names/GlobalDefines.h"
#include "zorvex/compiler/names/ResourceIDs.h"
#include "zorvex/language/AGILogicSourceSettings.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/logic/LogCompile.h"
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

/// A fault that has no place in the source.
[[noreturn]] void RaisePlaceless(std::string_view what) {
    RaiseText(ObjectErrorBase + 634, errorSource, "-1||" + CatalogueText(591, {what}));
}

[[noreturn]] void RaiseAtPlace(const CompileRun& run, const CompileFailure& failure) {
    Library().CompileColumn = run.Column();
    RaiseText(ObjectErrorBase + 635, errorSource,
              std::to_string(run.ErrLine + 1) + "|" + run.ModuleName() + "|" + failure.text);
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
    Attempt([] { CurrentGlobalDefines(); });
    Attempt([] { LoadResourceIDs(); });
    RefreshReservedValues();
    std::unique_ptr<CompileRun> run;
    try {
        const auto& settings = Library().LogicSourceSettings;
        run = std::make_unique<CompileRun>(logic.Number(), settings ? settings->ErrorLevel() : leHigh);
        CompileInto(logic, *run);
    } catch (const CompileFailure& failure) {
        RaiseAtPlace(*run, failure);
    } catch (const HandlerFault& fault) {
        run.reset();
        std::rethrow_exception(fault.fault);
    } catch (...) {
        const Error error = CurrentError();
        RememberError(error);
        if (IsLibraryError(error)) throw error;
        RaisePlaceless(error.NumberAndText());
    }
}

std::int32_t CompileColumn() {
    return Library().CompileColumn;
}

}  // namespace zorvex
