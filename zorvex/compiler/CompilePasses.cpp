#include "zorvex/compiler/CompilePasses.h"

#include <utility>

#include "zorvex/base/CodePage.h"
#include "zorvex/compiler/StatementCompiler.h"
#include "zorvex/compiler/lines/SourcePreparation.h"

namespace zorvex {

namespace {

/// Lines of the logic's own text that are empty at its end do not count.
void DropEmptyEnd(CompileRun& run) {
    auto& lines = run.SourceLines;
    while (!lines.empty() && lines.back().text.empty() && lines.back().file < 0)
        lines.pop_back();
    if (!lines.empty() || run.HasFailed()) return;
    run.ErrLine = 0;
    run.Fail(4159);
}

}  // namespace

void RunPasses(CompileRun& run, std::string sourceText) {
    AddIncludes(run, std::move(sourceText));
    DropEmptyEnd(run);
    RemoveComments(run);
    ReadLabels(run);
    ReadDefines(run);
    ReadMsgs(run);
    run.LogicBuffer.NewResource();
    run.LogicBuffer.WriteWord(0, 0);
    StatementCompiler(run).CompileAGI();
    if (run.HasFailed()) return;
    try {
        WriteMsgs(run.LogicBuffer, run.Messages);
    } catch (...) {
        const Error error = CurrentError();
        if (IsLibraryError(error)) throw error;
        run.Fail(4115, {std::to_string(error.Number()), "WriteMsgs"});
    }
}

}  // namespace zorvex
