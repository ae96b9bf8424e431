#include <memory>
#include <string>

#include "zorvex/base/CodePage.h"
#include "zorvex/compiler/CompileRun.h"
#include "zorvex/compiler/GlobalDefines.h"
#include "zorvex/compiler/LogCompile.h"
#include "zorvex/compiler/ResourceIDs.h"
#include "zorvex/compiler/SourcePreparation.h"
#include "zorvex/compiler/StatementCompiler.h"
#include "zorvex/language/AGILogicSourceSettings.h"
#include "zorvex/language/ReservedTables.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/vocab/AGIInventoryObjects.h"

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

/// Gives the reserved names that speak of the game their present values.
void RefreshReservedValues() {
    auto& info = ReservedNames().Group(rgGameInfo);
    const LibraryState& library = Library();
    const auto quoted = [](const std::string& text) { return '"' + TextToGame(text) + '"'; };
    info[giGameVersionMsg].Value = quoted(library.GameVersion);
    info[giGameAboutMsg].Value = quoted(library.GameAbout);
    info[giGameID].Value = quoted(library.GameID);
    const bool loaded = library.InventoryObjects != nullptr && library.InventoryObjects->Loaded();
    info[giNumberOfItems].Value = std::to_string(loaded ? library.InventoryObjects->Count() - 1 : -1);
}

/// Lines of the logic's own text that are empty at its end do not count.
void DropEmptyEnd(CompileRun& run) {
    auto& lines = run.SourceLines;
    while (!lines.empty() && lines.back().text.empty() && lines.back().file < 0)
        lines.pop_back();
    if (!lines.empty()) return;
    run.ErrLine = 0;
    run.Fail(4159);
}

void RunPasses(CompileRun& run, const std::string& sourceText) {
    AddIncludes(run, TextToGame(sourceText));
    DropEmptyEnd(run);
    RemoveComments(run);
    ReadLabels(run);
    ReadDefines(run);
    ReadMsgs(run);
    run.LogicBuffer.NewResource();
    run.LogicBuffer.WriteWord(0, 0);
    StatementCompiler(run).CompileAGI();
    try {
        WriteMsgs(run.LogicBuffer, run.Messages);
    } catch (...) {
        const Error error = CurrentError();
        if (IsLibraryError(error)) throw error;
        run.Fail(4115, {std::to_string(error.Number()), "WriteMsgs"});
    }
}

void CompileInto(AGILogic& logic, CompileRun& run) {
    RunPasses(run, logic.SourceText());
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
