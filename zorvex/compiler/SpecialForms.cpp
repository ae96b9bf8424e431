// The statements without a command's name: assignments and arithmetic.
#include "zorvex/base/Text.h"
#include "zorvex/compiler/IfCompiler.h"
#include "zorvex/compiler/StatementCompiler.h"
#include "zorvex/compiler/arguments/ArgumentChecks.h"
#include "zorvex/compiler/arguments/ArgumentText.h"
#include "zorvex/compiler/lines/TokenReader.h"
#include "zorvex/language/AGICommandFunctions.h"

namespace zorvex {

namespace {

enum SpecialNumber : std::uint8_t {
    snIncrement = 1,
    snDecrement = 2,
    snAssignN = 3,
    snAssignV = 4,
    snAddN = 5,
    snSubN = 7,
    snLIndirectV = 9,
    snRIndirect = 10,
    snLIndirectN = 11,
    snSet = 12,
    snReset = 13,
    snSetString = 114,
    snMulN = 165,
    snDivN = 167
};

struct OperatorCommand {
    std::string_view text;
    std::int32_t command;
};

/// What may follow a variable at the start of a statement; -1: an assignment, whose command is not known yet.
constexpr OperatorCommand variableOperators[] = {
    {"++", snIncrement}, {"--", snDecrement}, {"+=", snAddN}, {"-=", snSubN},
    {"*=", snMulN},      {"/=", snDivN},      {"=", -1}};

/// What may follow a variable that is assigned to itself.
constexpr OperatorCommand arithmeticOperators[] = {
    {"+", snAddN}, {"-", snSubN}, {"*", snMulN}, {"/", snDivN}};

bool HasOneOperand(std::int32_t command) {
    return command == snIncrement || command == snDecrement || command == snSet || command == snReset;
}

bool HasNumberForm(std::int32_t command) {
    return command == snAssignN || command == snAddN || command == snSubN || command == snMulN ||
           command == snDivN;
}

}  // namespace

bool StatementCompiler::CompileSpecial(std::string_view token) {
    return WrappedRuntime(659, [&] {
        SpecialCommand special;
        if (!ReadFirstOperand(token, special)) return false;
        if (!HasOneOperand(special.command) && special.command != snSetString) {
            ReadSecondOperand(special);
            if (special.command == -1) ChooseVariableCommand(special);
            if (special.rightIsVariable && HasNumberForm(special.command)) ++special.command;
        }
        if (!TakeChar(run_, ';', true)) run_.FailOrBlameQuote(4007);
        --run_.CharPos;  // the end of the statement is the caller's
        WriteSpecial(special);
        return true;
    });
}

bool StatementCompiler::ReadFirstOperand(std::string_view token, SpecialCommand& special) {
    bool varOrNum = false;
    std::string_view name = token;
    if (token.starts_with('*')) {
        ReadIndirectTarget(special);
    } else if (run_.Names.ConvertArgument(name, atStr, varOrNum)) {
        ReadStringAssignment(name, special);
    } else if (run_.Names.ConvertArgument(name, atVar, varOrNum)) {
        ReadVariableOperator(name, special);
    } else if (run_.Names.ConvertArgument(name, atFlag, varOrNum)) {
        ReadFlagAssignment(name, special);
    } else {
        return false;
    }
    return true;
}

void StatementCompiler::ReadIndirectTarget(SpecialCommand& special) {
    if (AtBlank(run_)) run_.Fail(4105);
    try {
        special.left = static_cast<std::uint8_t>(arguments_.GetNextArg(atVar, -1));
    } catch (const CompileFailure&) {
        run_.Fail(4064);
    }
    special.leftIndirect = true;
    if (NextCommand(run_, false) != "=") run_.Fail(4105);
}

void StatementCompiler::ReadStringAssignment(std::string_view name, SpecialCommand& special) {
    const std::int32_t value = VariableValue(name);
    const std::string limit = std::to_string(arguments_.HighestString());
    if (value > arguments_.HighestString()) {
        if (run_.Level == leHigh) run_.Fail(4079, {"1", limit});
        run_.Report(0, 5007, {limit});
    }
    special.left = static_cast<std::uint8_t>(value);
    if (NextCommand(run_, false) != "=") run_.Fail(4034);
    try {
        special.right = static_cast<std::uint8_t>(arguments_.GetNextArg(atMsg, -1));
    } catch (const CompileFailure& failure) {
        if (failure.number == 4054) run_.Fail(4058);
        throw;
    }
    special.command = snSetString;
}

void StatementCompiler::ReadVariableOperator(std::string_view name, SpecialCommand& special) {
    const std::int32_t value = VariableValue(name);
    if (value == -1) run_.Fail(4085);
    special.left = static_cast<std::uint8_t>(value);
    const std::string_view found = NextCommand(run_, false);
    for (const OperatorCommand& known : variableOperators) {
        if (known.text != found) continue;
        special.command = known.command;
        special.rightIsVariable = false;
        return;
    }
    run_.Fail(4034);
}

void StatementCompiler::ReadFlagAssignment(std::string_view name, SpecialCommand& special) {
    special.left = static_cast<std::uint8_t>(VariableValue(name));
    if (NextCommand(run_, false) != "=") run_.Fail(4034);
    const std::string_view value = NextCommand(run_, false);
    if (EqualNoCase(value, "true")) {
        special.command = snSet;
    } else if (EqualNoCase(value, "false")) {
        special.command = snReset;
    } else {
        run_.Fail(4034);
    }
}

void StatementCompiler::ReadSecondOperand(SpecialCommand& special) {
    const std::string_view token = NextCommand(run_, false);
    if (token == "*") {
        if (special.command != -1 || special.leftIndirect) run_.Fail(4105);
        ReadIndirectSource(special);
    } else {
        ReadValue(token, special);
    }
}

void StatementCompiler::ReadIndirectSource(SpecialCommand& special) {
    special.rightIndirect = true;
    if (AtBlank(run_)) run_.Fail(4105);
    try {
        special.right = static_cast<std::uint8_t>(arguments_.GetNextArg(atVar, -1));
    } catch (const CompileFailure&) {
        run_.Fail(4105);
    }
}

void StatementCompiler::ReadValue(std::string_view token, SpecialCommand& special) {
    std::string unsignedText;
    std::string_view text = token;
    if (const auto number = NumericValue(token); number && *number < 0) {
        if (*number < -128) run_.Fail(4095);
        unsignedText = std::to_string(static_cast<std::int32_t>(*number) + 256);
        text = unsignedText;
        run_.Report(5098, 5098);
    }
    special.rightIsVariable = true;
    const bool known = run_.Names.ConvertArgument(text, atNum, special.rightIsVariable);
    if (known) arguments_.RequireItemCount(token, text);
    const std::int32_t value = known ? VariableValue(text) : -1;
    if (value == -1) run_.Fail(4088, {text});
    special.right = static_cast<std::uint8_t>(value);
    if (!special.rightIsVariable && special.command == -1) {
        special.command = special.leftIndirect ? snLIndirectN : snAssignN;
    }
}

void StatementCompiler::ChooseVariableCommand(SpecialCommand& special) {
    if (special.left == special.right && !special.leftIndirect && !special.rightIndirect) {
        ReadArithmetic(special);
        return;
    }
    special.command = special.leftIndirect ? snLIndirectV : special.rightIndirect ? snRIndirect : snAssignV;
    special.rightIsVariable = false;
}

void StatementCompiler::ReadArithmetic(SpecialCommand& special) {
    const std::string_view found = NextCommand(run_, false);
    if (found == ";") {
        --run_.CharPos;
        run_.Report(4084, 5036);
        special.command = snAssignN;
        return;
    }
    for (const OperatorCommand& known : arithmeticOperators) {
        if (known.text == found) special.command = known.command;
    }
    if (special.command == -1) run_.Fail(4087);
    special.rightIsVariable = true;
    try {
        special.right = static_cast<std::uint8_t>(arguments_.GetNextArg(atNum, -1, special.rightIsVariable));
    } catch (const CompileFailure& failure) {
        throw CompileFailure{4161, CatalogueText(4161, {QuotedValue(failure)}), {}};
    }
}

void StatementCompiler::WriteSpecial(const SpecialCommand& special) {
    const auto command = static_cast<std::uint8_t>(special.command);
    const bool one = HasOneOperand(command);
    ValidateArgs(run_, command, {special.left, one ? std::uint8_t{0} : special.right});
    run_.Append(command);
    run_.Append(special.left);
    if (!one) run_.Append(special.right);
}

}  // namespace zorvex
