#include "zorvex/compiler/IfCompiler.h"

#include <array>
#include <vector>

#include "zorvex/base/Text.h"
#include "zorvex/compiler/StatementCompiler.h"
#include "zorvex/compiler/arguments/ArgumentChecks.h"
#include "zorvex/compiler/arguments/ArgumentText.h"
#include "zorvex/compiler/lines/TokenReader.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/language/LogicFormat.h"

namespace zorvex {

namespace {

constexpr std::size_t maxWords = 10;
constexpr std::uint8_t returnFalseTest = 0;

struct Comparison {
    std::string_view text;
    std::uint8_t test;
    bool negated;
};

enum TestNumber : std::uint8_t { tnEqualN = 1, tnLessN = 3, tnGreaterN = 5, tnIsSet = 7 };

constexpr Comparison comparisons[] = {
    {"==", tnEqualN, false},  {"!=", tnEqualN, true}, {">", tnGreaterN, false}, {"<=", tnGreaterN, true},
    {"=<", tnGreaterN, true}, {"<", tnLessN, false},  {">=", tnLessN, true},    {"=>", tnLessN, true}};

/// One test list.
class IfCompiler {
  public:
    IfCompiler(CompileRun& run, ArgumentReader& arguments) : run_(run), arguments_(arguments) {}

    void Compile();

  private:
    std::string_view NextToken();
    void BeginTerm(std::string_view token);
    bool EndTerm(std::string_view token);
    void CompileTest(std::string_view token);
    void CompileTestCommand(std::uint8_t test);
    void CompileWords();
    void CompileSpecial(std::string_view token, bool isNot);
    void CompileVariable(std::int32_t variable, bool isNot);
    void CompileComparison(const Comparison& comparison, std::int32_t variable);

    CompileRun& run_;
    ArgumentReader& arguments_;
    bool needTest_ = true;
    bool inGroup_ = false;
    std::int32_t testsDone_ = 0;
    std::int32_t groupDone_ = 0;
};

std::string_view IfCompiler::NextToken() {
    const std::string_view token = NextCommand(run_, false);
    if (run_.LineIndex == -1) run_.Fail(4106);
    return token;
}

void IfCompiler::Compile() {
    run_.Append(lbIf);
    if (!TakeChar(run_, '(')) run_.Fail(4002);
    while (true) {
        const std::string_view token = NextToken();
        if (needTest_) {
            BeginTerm(token);
        } else if (EndTerm(token)) {
            return;
        }
    }
}

void IfCompiler::BeginTerm(std::string_view token) {
    if (token == "(") {
        if (inGroup_) run_.Fail(4045);
        run_.Append(lbOr);
        inGroup_ = true;
        groupDone_ = 0;
    } else if (token == ")") {
        if (testsDone_ == 0) run_.Fail(4057);
        run_.Fail(inGroup_ && groupDone_ == 0 ? 4044 : 4056);
    } else {
        CompileTest(token);
        ++testsDone_;
        if (inGroup_) ++groupDone_;
        needTest_ = false;
    }
}

/// Takes what stands behind a test. True at the end of the list.
bool IfCompiler::EndTerm(std::string_view token) {
    if (token == "!") run_.Fail(4097);
    if (token == "&&") {
        if (inGroup_) run_.Fail(4037);
        needTest_ = true;
    } else if (token == "||") {
        if (!inGroup_) run_.Fail(4100);
        needTest_ = true;
    } else if (token != ")") {
        run_.Fail(inGroup_ ? 4101 : 4038);
    } else if (!inGroup_) {
        run_.Append(lbIf);
        return true;
    } else {
        if (groupDone_ == 0) run_.Fail(4044);
        run_.Append(lbOr);
        inGroup_ = false;
    }
    return false;
}

void IfCompiler::CompileTest(std::string_view token) {
    const bool isNot = token == "!";
    if (isNot) {
        run_.Append(lbNot);
        token = NextToken();
    }
    const std::uint8_t test = CommandNum(run_, true, token);
    if (test == UnknownCommand) {
        CompileSpecial(token, isNot);
    } else {
        CompileTestCommand(test);
    }
}

void IfCompiler::CompileTestCommand(std::uint8_t test) {
    const CommandStruct& row = run_.World.Commands().TestCommandTable[test];
    run_.Append(test);
    if (!TakeChar(run_, '(')) run_.Fail(4048);
    if (test == returnFalseTest) run_.Report(5081, 5081);
    std::array<std::uint8_t, 8> values{};
    run_.QuoteErrLine = -1;
    if (test == SaidCommand) CompileWords();
    for (std::uint8_t i = 0; i < row.ArgCount; ++i) {
        if (i > 0 && !TakeChar(run_, ',', true)) run_.FailOrBlameQuote(4047, {std::to_string(i + 1)});
        const std::int32_t value =
            NamingCommand(row.Name, [&] { return arguments_.GetNextArg(row.ArgType[i], i); });
        values[i] = static_cast<std::uint8_t>(value);
        run_.Append(value);
    }
    if (!TakeChar(run_, ')')) run_.FailOrBlameQuote(4160);
    run_.QuoteErrLine = -1;
    ValidateIfArgs(run_, test, values);
}

/// The words of a `said`, each an argument; messages count the first as argument 2.
void IfCompiler::CompileWords() {
    std::vector<std::int32_t> words;
    while (true) {
        const auto position = static_cast<std::int32_t>(words.size()) + 1;
        words.push_back(NamingCommand("said", [&] { return arguments_.GetNextArg(atVocWrd, position); }));
        const std::int32_t next = NextChar(run_, false);
        if (next == ')') {
            --run_.CharPos;
            break;
        }
        if (next != ',') run_.FailOrBlameQuote(4047, {std::to_string(words.size() + 1)});
        if (words.size() == maxWords) run_.Fail(4093);
    }
    run_.QuoteErrLine = -1;
    run_.Append(static_cast<std::int32_t>(words.size()));
    for (const std::int32_t word : words)
        run_.LogicBuffer.WriteWord(word);
}

void IfCompiler::CompileSpecial(std::string_view token, bool isNot) {
    bool varOrNum = false;
    std::string_view name = token;
    if (run_.Names.ConvertArgument(name, atVar, varOrNum)) {
        const std::int32_t variable = VariableValue(name);
        if (variable == -1) run_.Fail(4086);
        CompileVariable(variable, isNot);
    } else if (run_.Names.ConvertArgument(name, atFlag, varOrNum)) {
        const std::int32_t flag = VariableValue(name);
        if (flag == -1) run_.Fail(4066, {"1"});
        run_.Append(tnIsSet);
        run_.Append(flag);
    } else {
        run_.Fail(4039, {token});
    }
}

void IfCompiler::CompileVariable(std::int32_t variable, bool isNot) {
    const std::string_view found = NextCommand(run_, false);
    if (found == ")" || found == "&&" || found == "||") {
        // A variable alone is a test for more than 0.
        run_.CharPos -= found.size();
        run_.Append(tnGreaterN);
        run_.Append(variable);
        run_.Append(0);
        return;
    }
    for (const Comparison& comparison : comparisons) {
        if (comparison.text != found) continue;
        if (isNot) run_.Fail(4098);
        CompileComparison(comparison, variable);
        return;
    }
    run_.Fail(4078);
}

void IfCompiler::CompileComparison(const Comparison& comparison, std::int32_t variable) {
    bool isVariable = true;
    run_.QuoteErrLine = -1;
    std::int32_t value = 0;
    try {
        value = arguments_.GetNextArg(atNum, -1, isVariable);
    } catch (const CompileFailure& failure) {
        throw CompileFailure{4089, CatalogueText(4089, {QuotedValue(failure)}), {}};
    }
    if (comparison.negated) run_.Append(lbNot);
    run_.Append(comparison.test + (isVariable ? 1 : 0));
    run_.Append(variable);
    run_.Append(value);
}

}  // namespace

void CompileIf(CompileRun& run, ArgumentReader& arguments) {
    Reporting(run, "CompileIf", [&] { IfCompiler(run, arguments).Compile(); });
}

std::string QuotedValue(const CompileFailure& failure) {
    return failure.number == 4063 ? "'" + failure.value + "' " : std::string();
}

}  // namespace zorvex
