#include "zorvex/compiler/lines/SourcePreparation.h"

#include <array>

#include "zorvex/base/Text.h"
#include "zorvex/compiler/CompileMessages.h"
#include "zorvex/compiler/arguments/ArgumentText.h"
#include "zorvex/compiler/lines/TokenReader.h"
#include "zorvex/compiler/names/DefineRules.h"
#include "zorvex/compiler/names/GlobalDefines.h"

namespace zorvex {

namespace {

constexpr std::size_t maxLabels = 255;
constexpr std::string_view defineMark = "#define ";
constexpr std::string_view messageMark = "#message";

/// The error for each DefineFault: in a label, and in a define.
constexpr std::array<std::int32_t, 14> labelErrors{0,    4096, 0,    4025, 4026, 4028, 4091,
                                                   4024, 4033, 4030, 4029, 4032, 4031, 4068};
constexpr std::array<std::int32_t, 14> defineErrors{0,    4070, 4072, 4021, 4022, 4013, 4071,
                                                    4019, 4018, 4014, 4016, 4017, 4015, 4067};

std::string_view TrimWhite(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// --- Labels ---
/// What a line declares as a label; "" for a line that declares none.
std::string_view LabelOf(std::string_view line) {
    const std::string_view text = TrimWhite(line);
    if (text.ends_with(':')) return TrimWhite(text.substr(0, text.size() - 1));
    if (text.starts_with(':')) return TrimWhite(text.substr(1));
    return {};
}

void ReadLabel(CompileRun& run, std::string_view label) {
    if (run.Labels.size() >= maxLabels) run.Fail(4109, {std::to_string(maxLabels)});
    const auto fault =
        static_cast<std::size_t>(ValidateDefName(label, run.Names.Globals(), run.World.UsedReserved()));
    if (labelErrors[fault] != 0) run.Fail(labelErrors[fault], {label});
    if (label.find('.') != std::string_view::npos) run.Fail(4068);
    if (run.LabelNum(label) >= 0) run.Fail(4027, {label});
    run.AddLabel(label);
}

// --- Defines ---
/// The text of the error that a define's name deserves; "" for a good one.
std::string NameComplaint(CompileRun& run, const std::string& name) {
    DefineFault fault = ValidateDefName(name, run.Names.Globals(), run.World.UsedReserved());
    const bool overrides = fault == DefineFault::GlobalName || IsReservedNameFault(fault);
    if (overrides && run.Level != leHigh) {
        run.Report(0, fault == DefineFault::GlobalName ? 5034 : 5035, {name});
        fault = DefineFault::None;
    }
    const std::int32_t number = defineErrors[static_cast<std::size_t>(fault)];
    return number == 0 ? std::string() : run.Failure(number, {name}).text;
}

/// What is wrong with a value: the error, and the warning that takes its place at leMedium, if any.
struct ValueComplaint {
    std::int32_t error = 0;
    std::int32_t warning = 0;
};

ValueComplaint ComplaintOf(ValueFault fault) {
    switch (fault) {
        case ValueFault::Empty: return {4073, 0};
        case ValueFault::OutOfRange: return {4042, 0};
        case ValueFault::NotQuoted: return {4082, 5022};
        case ValueFault::ReservedValue: return {4041, 5032};
        case ValueFault::GlobalValue: return {4040, 5031};
        default: return {};
    }
}

/// The same for a define's value, which may get quotes.
std::string CheckValue(CompileRun& run, TDefine& define) {
    if (define.Value.starts_with('"') && !EndsInQuote(define.Value)) {
        if (run.Level == leHigh) return run.Failure(4080).text;
        run.Report(0, 5002);
        define.Value += '"';
    }
    const ValueFault fault = ValidateDefValue(define, run.Names.Globals(), run.World.UsedReserved());
    const ValueComplaint complaint = ComplaintOf(fault);
    if (complaint.error == 0) return {};
    if (complaint.warning == 0 || run.Level == leHigh)
        return run.Failure(complaint.error, {define.Value}).text;
    if (fault == ValueFault::NotQuoted) define.Value = '"' + define.Value + '"';
    run.Report(0, complaint.warning, {define.Value});
    return {};
}

/// Looks through the earlier defines, in their order, for one of this name and for those of this value.
void CompareWithEarlier(CompileRun& run, const TDefine& define) {
    const std::int32_t sameName = run.Names.LocalNamed(define.Name);
    const auto& locals = run.Names.Locals();
    const auto* sameValues = NumericValue(define.Value) ? nullptr : run.Names.LocalsOfValue(define.Value);
    if (sameValues != nullptr && run.Level != leLow) {
        for (const std::size_t index : *sameValues) {
            if (sameName >= 0 && index >= static_cast<std::size_t>(sameName)) break;
            run.Report(4023, 5033, {define.Value, locals[index].Name});
        }
    }
    if (sameName >= 0) run.Fail(4012, {locals[static_cast<std::size_t>(sameName)].Name});
}

/// A define that failed is known all the same, so that a compile that goes on does not complain of each of
/// its uses.
void KeepName(CompileRun& run, TDefine define) {
    if (!define.Name.empty() && run.Names.LocalNamed(define.Name) < 0) run.Names.AddLocal(std::move(define));
}

void ReadDefine(CompileRun& run, std::string_view line) {
    const std::string_view rest = Trim(line.substr(defineMark.size()));
    const std::size_t blank = rest.find(' ');
    if (blank == std::string_view::npos) run.Fail(4104);
    TDefine define;
    define.Name = Trim(rest.substr(0, blank));
    define.Value = Trim(rest.substr(blank));
    std::string complaint = NameComplaint(run, define.Name);
    const std::string valueComplaint = CheckValue(run, define);
    if (!valueComplaint.empty()) complaint += (complaint.empty() ? "" : "; and ") + valueComplaint;
    if (!complaint.empty()) {
        KeepName(run, std::move(define));
        throw CompileFailure{static_cast<std::int32_t>(Val(complaint)), complaint, {}};
    }
    CompareWithEarlier(run, define);
    if (run.LabelNum(define.Name) >= 0) run.Fail(4020, {define.Name});
    run.Names.AddLocal(std::move(define));
}

// --- Messages ---
std::int32_t MessageNumber(CompileRun& run) {
    const std::string_view token = NextCommand(run, true);
    const std::int32_t number = NumericValue(token) ? VariableValue(token) : -1;
    if (number < 1) run.Fail(4077);
    if (run.Messages.MsgUsed[static_cast<std::size_t>(number)]) run.Fail(4094, {token});
    return number;
}

/// The text of a message with its quotes, of which missing ones are added below leHigh.
std::string MessageText(CompileRun& run) {
    std::string_view token = NextCommand(run, false);
    bool goesOn = true;
    if (!token.starts_with('"') || !EndsInQuote(token)) {
        bool varOrNum = false;
        goesOn = !run.Names.ConvertArgument(token, atMsg, varOrNum);
    }
    run.QuoteErrLine = -1;
    std::string text(token);
    const bool startsQuoted = text.starts_with('"');
    const bool endsQuoted = EndsInQuote(startsQuoted ? text : '"' + text);
    if (!startsQuoted || !endsQuoted) {
        run.QuoteErrLine = run.LineIndex;
        if (run.Level == leHigh) run.Fail(4051);
        if (!startsQuoted) text.insert(text.begin(), '"');
        if (!endsQuoted) text.push_back('"');
        run.Report(0, 5002);
    }
    if (!goesOn) return text;
    std::string buffer;
    return std::string(ConcatArg(run, text, buffer));
}

void ReadMessage(CompileRun& run) {
    const std::int32_t number = MessageNumber(run);
    run.Messages.MsgUsed[static_cast<std::size_t>(number)] = true;  // also when its text is at fault
    const std::string quoted = MessageText(run);
    if (run.CharPos != run.CurrentLine.size()) run.Fail(4099);
    const std::string_view text = std::string_view(quoted).substr(1, quoted.size() - 2);
    CheckMessageText(run, text, number);
    StoreMessage(run, number, text);
}

/// Empties the lines of a message, up to the present one.
void BlankLines(CompileRun& run, std::int32_t first) {
    const auto last =
        run.LineIndex < 0 ? static_cast<std::int32_t>(run.SourceLines.size()) - 1 : run.LineIndex;
    for (std::int32_t line = first; line <= last; ++line)
        run.SourceLines[static_cast<std::size_t>(line)].text = {};
}

}  // namespace

void ReadLabels(CompileRun& run) {
    Reporting(run, "ReadLabels", [&] {
        for (run.ResetCompiler(); run.LineIndex != -1; run.NextLine()) {
            if (run.CurrentLine.find(':') == std::string_view::npos) continue;
            const std::string_view label = LabelOf(run.CurrentLine);
            if (label.empty() || Recovering(run, [&] { ReadLabel(run, label); })) continue;
            if (run.LabelNum(label) < 0) run.AddLabel(label);
            run.UpdateCurrentLine({});
        }
    });
}

void ReadDefines(CompileRun& run) {
    Reporting(run, "ReadDefines", [&] {
        for (run.ResetCompiler(); run.LineIndex != -1; run.NextLine()) {
            if (!StartsWithNoCase(run.CurrentLine, defineMark)) continue;
            Recovering(run, [&] { ReadDefine(run, run.CurrentLine); });
            run.UpdateCurrentLine({});
        }
    });
}

void ReadMsgs(CompileRun& run) {
    Reporting(run, "ReadMsgs", [&] {
        for (run.ResetCompiler(); run.LineIndex != -1; run.NextLine()) {
            if (!EqualNoCase(NextCommand(run, true), messageMark)) continue;
            const std::int32_t first = run.LineIndex;
            Recovering(run, [&] { ReadMessage(run); });
            BlankLines(run, first);
        }
    });
}

}  // namespace zorvex
