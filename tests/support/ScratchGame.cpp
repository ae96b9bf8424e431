#include "tests/support/ScratchGame.h"

#include "zorvex/compiler/AGICommandFunctions.h"
#include "zorvex/compiler/LogCompile.h"
#include "zorvex/game/Error.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/game/Text.h"
#include "zorvex/logic/LogDecode.h"
#include "zorvex/logic/StringList.h"
#include "zorvex/sound/AGISounds.h"
#include "zorvex/view/AGIViews.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex::test {

namespace {

/// Puts a resource into VOL.0 and its collection.
void AddResource(MemoryFileSystem& files, ResourceCollectionBase& collection, std::uint8_t number,
                 ByteView bytes) {
    const std::string volume = std::string(ScratchGame::GameDir) + "VOL.0";
    const bool exists = files.Kind(volume) == FileKind::File;
    const auto loc = exists ? static_cast<std::int32_t>(files.Size(volume)) : 0;
    const auto size = static_cast<std::uint16_t>(bytes.size());
    files.Append(volume, ByteArray{0x12, 0x34, 0, static_cast<std::uint8_t>(size & 255U),
                                   static_cast<std::uint8_t>(size >> 8U)});
    files.Append(volume, bytes);
    collection.LoadEntry(number, 0, loc);
}

std::shared_ptr<AGIWordList> Words() {
    auto words = std::make_shared<AGIWordList>();
    words->NewWords();
    words->AddWord("the", 0);
    words->AddWord("look", 20);
    words->AddWord("far", 40000);
    return words;
}

std::shared_ptr<AGIInventoryObjects> Items() {
    auto items = std::make_shared<AGIInventoryObjects>();
    items->NewObjects();
    for (const std::string_view name : {"lamp", "key", "key", "?"})
        items->Add(name, 1);
    return items;
}

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

}  // namespace

ScratchGame::ScratchGame() : files_(std::make_shared<MemoryFileSystem>()), before_(UseFileSystem(files_)) {
    LibraryState& library = Library();
    library = LibraryState();
    InitCommandTables();
    files_->MakeDirectory(GameDir);
    files_->MakeDirectory(ResDir);
    library.GameDir = GameDir;
    library.ResDir = ResDir;
    library.TempDir = "\\temp";
    library.GameID = "TEST";
    library.GameLoaded = true;
    library.Events = std::make_shared<AGIGameEvents>();
    library.LogicSourceSettings = std::make_shared<AGILogicSourceSettings>();
    library.PropertyList = std::make_shared<StringList>();
    library.PropertyList->Add(std::string(GameDir) + "TEST.zvg");
    library.Logics = std::make_shared<AGILogics>();
    library.Views = std::make_shared<AGIViews>();
    library.Sounds = std::make_shared<AGISounds>();
    Version("2.917");
    files_->Write(std::string(GameDir) + "LOGDIR", ByteArray(30, 0xFF));
    for (const std::uint8_t number : ByteArray{0, 1, 5})
        AddResource(*files_, *library.Logics, number, ByteArray{1, 0, 0, 0, 2, 0});
    AddResource(*files_, *library.Views, 1, AGIView().AllData());
    AddResource(*files_, *library.Views, 2, ByteArray{1, 1, 200});
    AddResource(*files_, *library.Sounds, 1, ByteArray{8, 0, 8, 0, 8, 0, 8, 0, 255, 255});
    library.VocabularyWords = Words();
    library.InventoryObjects = Items();
}

ScratchGame::~ScratchGame() {
    Library() = LibraryState();
    UseFileSystem(before_);
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
    const auto warnings = Library().Events->LogCompWarning.Subscribe(
        [&](const std::string& warning, std::uint8_t) { result.warnings.push_back(WarningText(warning)); });
    try {
        CompileLogic(*logic);
    } catch (const Error& error) {
        result.error = ErrorText(error);
        return result;
    }
    const ByteArray bytes = logic->AllData();
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
