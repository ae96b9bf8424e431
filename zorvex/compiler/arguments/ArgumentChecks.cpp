#include "zorvex/compiler/arguments/ArgumentChecks.h"

#include <string>
#include <vector>

#include "zorvex/compiler/arguments/CheckTable.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/language/ReservedTables.h"

namespace zorvex {

namespace {

// --- Reserved variables and flags ---
void CheckReservedVar(CompileRun& run, std::uint8_t variable, std::uint8_t value) {
    const auto& table = run.World.Reserved().Group(rgVariables);
    if (run.Level == leLow || variable >= table.size()) return;
    const std::string& name = table[variable].Name;
    const auto limit = [&](std::uint8_t highest) {
        if (value > highest) run.Warn(5018, {name, std::to_string(highest)});
    };
    switch (variable) {
        case 3:
        case 7:
        case 15:
        case 21: return;
        case 6: limit(8); return;
        case 10:
            if (value > 20) run.Warn(5055);
            return;
        case 23: limit(15); return;
        case 24: limit(39); return;
        case 17:
        case 18:
            if (value != 0) run.Warn(5092, {name});
            return;
        case 19:
            if (value != 0) run.Warn(5017, {name});
            return;
        default: run.Warn(5017, {name});
    }
}

void CheckReservedFlag(CompileRun& run, std::uint8_t flag) {
    if (run.Level == leLow) return;
    switch (flag) {
        case 0:
        case 1:
        case 3:
        case 5:
        case 6:
        case 11:
        case 12: run.Warn(5025, {run.World.Reserved().Group(rgFlags)[flag].Name}); return;
        default: return;
    }
}

// --- add.to.pic ---
void CheckAddToPic(CompileRun& run, const ArgBytes& args) {
    const std::string view = std::to_string(args[0]);
    const std::string loop = std::to_string(args[1]);
    const bool exists = run.World.HasResource(rtView, args[0]);
    if (!exists) {
        run.Report(4138, 5064, {view});
        if (run.Level != leLow) return;
    }
    if (!run.World.KnowsViews()) return;
    const auto counts = exists ? run.World.CelCounts(args[0]) : std::nullopt;
    if (!counts) {
        run.Warn(5021, {view});
    } else if (args[1] >= counts->size()) {
        run.Report(4139, 5085, {loop, view});
    } else if (args[2] >= (*counts)[args[1]]) {
        run.Report(4140, 5086, {std::to_string(args[2]), loop, view});
    }
}

// --- clear.text.rect ---
void CheckTextRect(CompileRun& run, const ArgBytes& args) {
    constexpr int maxRow = 24;
    constexpr int maxColumn = 39;
    const bool crossed = args[2] < args[0] || args[3] < args[1];
    const bool outside = args[0] > maxRow || args[2] > maxRow || args[1] > maxColumn || args[3] > maxColumn;
    if (run.Level == leHigh && (crossed || outside)) run.Fail(4150);
    if (crossed) run.Report(0, 5069);
    if (outside) run.Report(0, 5070);
}

// --- The table ---
using ChecksByCommand = std::array<std::vector<const ArgCheck*>, ActionCommandRows>;

ChecksByCommand IndexOf(std::span<const ArgCheck> checks) {
    ChecksByCommand index;
    for (const ArgCheck& check : checks) {
        for (std::size_t i = 0; i < check.commands.count; ++i)
            index[check.commands.ids[i]].push_back(&check);
    }
    return index;
}

void ReportCheck(CompileRun& run, const ArgCheck& check, const ArgBytes& args, const std::string& name) {
    switch (check.filler) {
        case CheckFiller::None: run.Report(check.high, check.medium); return;
        case CheckFiller::Arg0: run.Report(check.high, check.medium, {std::to_string(args[0])}); return;
        case CheckFiller::Arg1: run.Report(check.high, check.medium, {std::to_string(args[1])}); return;
        case CheckFiller::Name: run.Report(check.high, check.medium, {name}); return;
    }
}

void RunCheck(CompileRun& run, const ArgCheck& check, const ArgBytes& args, const CommandStruct& command) {
    switch (check.step) {
        case CheckStep::Report:
            if (run.Level != leLow && check.holds({run, args, command.ArgCount})) {
                ReportCheck(run, check, args, command.Name);
            }
            return;
        case CheckStep::ReservedVar: CheckReservedVar(run, args[0], 0); return;
        case CheckStep::ReservedValue: CheckReservedVar(run, args[0], args[1]); return;
        case CheckStep::ReservedFlag: CheckReservedFlag(run, args[check.index]); return;
        case CheckStep::NewRoom: run.NewRoomPending = true; return;
        case CheckStep::AddToPic: CheckAddToPic(run, args); return;
        case CheckStep::TextRect: CheckTextRect(run, args); return;
    }
}

}  // namespace

void ValidateArgs(CompileRun& run, std::uint8_t command, const ArgBytes& args) {
    static const ChecksByCommand index = IndexOf(ActionChecks());
    for (const ArgCheck* check : index[command])
        RunCheck(run, *check, args, run.World.Commands().ActionCommandTable[command]);
}

void ValidateIfArgs(CompileRun& run, std::uint8_t test, const ArgBytes& args) {
    static const ChecksByCommand index = IndexOf(TestChecks());
    for (const ArgCheck* check : index[test])
        RunCheck(run, *check, args, run.World.Commands().TestCommandTable[test]);
}

}  // namespace zorvex
