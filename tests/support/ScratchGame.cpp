#include "tests/support/ScratchGame.h"

#include <algorithm>
#include <stdexcept>

#include "tests/support/GameBuilder.h"
#include "zorvex/base/Error.h"
#include "zorvex/base/Text.h"
#include "zorvex/compiler/CheckLogic.h"
#include "zorvex/decompiler/LogDecode.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/logic/LogCompile.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex::test {

namespace {

std::string Placed(const std::string& line, const std::string& module, const std::string& text) {
    return (module.empty() ? "" : module.substr(module.rfind('\\') + 1) + ":") + line + ": " + text;
}

/// "line|module|text" as "module:line: text".
std::string ErrorText(const Error& error) {
    const std::string& text = error.Description();
    const std::size_t first = text.find('|');
    const std::size_t second = text.find('|', first + 1);
    if (first == std::string::npos || second == std::string::npos) return text;
    return Placed(text.substr(0, first), text.substr(first + 1, second - first - 1), text.substr(second + 1));
}

std::string WarningText(const std::string& warning) {
    const std::vector<std::string> parts = Split(warning, "|");
    if (parts.size() != 4) return "malformed warning: " + warning;
    return Placed(parts[2], parts[3], parts[0] + " " + parts[1]);
}

/// A check tells the same as a compile, up to the error that ends the compile.
bool SameStart(const std::vector<Diagnostic>& told, const LogicCheck& check) {
    return check.HasErrors() == (!told.empty() && told.back().IsError()) &&
           told.size() <= check.Diagnostics.size() &&
           std::equal(told.begin(), told.end(), check.Diagnostics.begin());
}

}  // namespace

ScratchGame::ScratchGame() {
    GameBuilder builder;
    for (const int number : {0, 1, 5})
        builder.Add(rtLogic, number, SmallestLogic());
    builder.Add(rtView, 1, SmallestView()).Add(rtView, 2, {1, 1, 200}).Add(rtSound, 1, SilentSound());
    files_->MakeDirectory(GameDir);
    files_->MakeDirectory(ResDir);
    builder.WriteInto(std::string(GameDir));
    game_.OpenGameDIR(GameDir);
    Version("2.917");
    game_.VocabularyWords()->AddWord("the", 0);
    game_.VocabularyWords()->AddWord("look", 20);
    game_.VocabularyWords()->AddWord("far", 40000);
    for (const std::string_view name : {"lamp", "key", "key", "?"})
        game_.InventoryObjects()->Add(name, 1);
}

AGILogicSourceSettings& ScratchGame::Settings() {
    return *Library().LogicSourceSettings;
}

std::shared_ptr<AGILogic> ScratchGame::Logic(std::uint8_t number) const {
    return Library().Logics->Item(number);
}

void ScratchGame::Version(std::string_view version) {
    Library().InterpreterVersion = version;
    SetCommandsForVersion(version);
}

void ScratchGame::Write(std::string_view name, std::string_view text) const {
    files_->Write(std::string(ResDir) + std::string(name), ByteArray(text.begin(), text.end()));
}

ScratchGame::Result ScratchGame::Compile(std::string_view source, std::uint8_t number) {
    Result result;
    const auto logic = Logic(number);
    if (!logic->Loaded()) logic->Load();
    logic->SourceText(source);
    const LogicCheck check = CheckLogic(source, PresentCheckSettings(number), PresentCheckNames());
    std::vector<Diagnostic> told;
    const auto diagnostics = Library().Events->LogCompDiagnostic.Subscribe(
        [&](const Diagnostic& diagnostic, std::uint8_t) { told.push_back(diagnostic); });
    const auto warnings = Library().Events->LogCompWarning.Subscribe(
        [&](const std::string& warning, std::uint8_t) { result.warnings.push_back(WarningText(warning)); });
    try {
        CompileLogic(*logic);
    } catch (const Error& error) {
        result.error = ErrorText(error);
        if (!SameStart(told, check)) throw std::logic_error("a check tells another story");
        return result;
    }
    const ByteArray bytes = logic->AllData();
    if (!SameStart(told, check) || check.Bytes != bytes)
        throw std::logic_error("a check tells another story");
    const auto codeEnd = static_cast<std::ptrdiff_t>(bytes[0] + 256 * bytes[1] + 2);
    result.code = ByteArray(bytes.begin() + 2, bytes.begin() + codeEnd);
    try {
        DecodeSettings settings;
        settings.ErrorLevel = leLow;
        for (const DecodedMessage& message : DecodeLogic(bytes, settings, PresentDecodeNames()).Messages)
            result.messages.push_back(std::to_string(message.Number) + " " + message.Literal);
    } catch (const Error&) {  // a test for false cannot be decompiled
    }
    return result;
}

}  // namespace zorvex::test
