#include "zorvex/compiler/GameWorld.h"

#include "zorvex/base/CodePage.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/PathText.h"
#include "zorvex/compiler/names/GlobalDefines.h"
#include "zorvex/compiler/names/ResourceIDs.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/language/AGILogicSourceSettings.h"
#include "zorvex/language/ReservedTables.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/AGIGameEvents.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/view/AGIViews.h"
#include "zorvex/view/ViewCodec.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex {

namespace {

LogicErrorLevel PresentLevel() {
    const auto& settings = Library().LogicSourceSettings;
    return settings ? settings->ErrorLevel() : leHigh;
}

GameValues PresentValues() {
    const LibraryState& library = Library();
    const bool loaded = library.InventoryObjects != nullptr && library.InventoryObjects->Loaded();
    return {library.GameVersion, library.GameAbout, library.GameID,
            loaded ? library.InventoryObjects->Count() - 1 : -1};
}

std::vector<std::int32_t> CelCountsOf(const ViewContent& content) {
    std::vector<std::int32_t> counts;
    for (const LoopContent& loop : content.loops) {
        const bool mirrors = loop.cels.empty() && loop.mirrorLoop >= 0;
        const auto& cels =
            mirrors ? content.loops[static_cast<std::size_t>(loop.mirrorLoop)].cels : loop.cels;
        counts.push_back(static_cast<std::int32_t>(cels.size()));
    }
    return counts;
}

/// The view is loaded, and its bytes can be decoded.
std::vector<std::int32_t> CelCountsOf(AGIView& view) {
    std::vector<std::int32_t> counts;
    for (const auto& loop : *view.Loops())
        counts.push_back(loop->Cels()->Count());
    return counts;
}

}  // namespace

GameWorld::GameWorld(std::uint8_t logicNumber) : logicNumber_(logicNumber), level_(PresentLevel()) {
    Attempt([] { CurrentGlobalDefines(); });
    Attempt([] { LoadResourceIDs(); });
    SetGameValues(ReservedNames(), PresentValues());
}

// --- Settings ---
std::string GameWorld::InterpreterVersion() const {
    return Library().InterpreterVersion;
}

bool GameWorld::Ignores(std::int32_t warning) const {
    constexpr std::int32_t firstWarning = 5001;
    const auto& switches = Library().IgnoreWarnings;
    const auto index = static_cast<std::size_t>(warning - firstWarning);
    return warning >= firstWarning && index < switches.size() && switches[index];
}

// --- Tables ---
const CommandTables& GameWorld::Commands() const {
    return CommandCatalogue();
}

const ReservedTables& GameWorld::Reserved() const {
    return ReservedNames();
}

bool GameWorld::UsesReservedNames() const {
    return Library().UseReservedNames;
}

std::shared_ptr<const GlobalDefineTable> GameWorld::Globals() const {
    return Library().GlobalDefines;
}

std::shared_ptr<const ResourceIDTable> GameWorld::ResourceIDs() const {
    return Library().ResourceIDs;
}

// --- The game ---
bool GameWorld::HasResource(AGIResType type, std::uint8_t number) const {
    const ResourceCollectionBase* collection = CollectionOf(type);
    return collection != nullptr && collection->Exists(number);
}

std::optional<std::vector<std::int32_t>> GameWorld::CelCounts(std::uint8_t view) const {
    return CelCountsOfGame(view);
}

std::shared_ptr<const AGIInventoryObjects> GameWorld::Items() const {
    const auto& items = Library().InventoryObjects;
    return items != nullptr && items->Loaded() ? items : nullptr;
}

std::shared_ptr<const AGIWordList> GameWorld::Words() const {
    const auto& words = Library().VocabularyWords;
    return words != nullptr && words->Loaded() ? words : nullptr;
}

// --- Includes ---
std::string GameWorld::IncludeFile(std::string_view name) const {
    std::string file = InnerPath(name);
    return JustPath(file, true).empty() ? Library().ResDir + file : file;
}

bool GameWorld::HasInclude(const std::string& file) const {
    return FileExists(file);
}

ByteArray GameWorld::ReadInclude(const std::string& file) const {
    return Files().Read(file);
}

// --- Diagnostics ---
void GameWorld::TakeWarning(const Diagnostic& warning) {
    Library().CompileColumn = warning.Column;
    const auto events = Library().Events;
    if (events == nullptr) return;
    events->LogCompWarning.Raise(std::to_string(warning.Number) + "|" + warning.Text + "|" +
                                     std::to_string(warning.Line) + "|" + warning.File,
                                 logicNumber_);
    events->LogCompDiagnostic.Raise(warning, logicNumber_);
}

void SetGameValues(ReservedTables& tables, const GameValues& values) {
    auto& info = tables.Group(rgGameInfo);
    const auto quoted = [](const std::string& text) { return '"' + TextToGame(text) + '"'; };
    info[giGameVersionMsg].Value = quoted(values.Version);
    info[giGameAboutMsg].Value = quoted(values.About);
    info[giGameID].Value = quoted(values.ID);
    info[giNumberOfItems].Value = std::to_string(values.Items);
}

std::optional<std::vector<std::int32_t>> CelCountsOfGame(std::uint8_t number) {
    const auto& views = Library().Views;
    if (views == nullptr || !views->Exists(number)) return std::nullopt;
    AGIView& view = *views->Item(number);
    std::vector<std::int32_t> counts;
    const auto failed = Attempt([&] {
        // Only the bytes are read, so that nothing that the view itself holds is lost.
        const bool wasLoaded = view.Loaded();
        if (!wasLoaded) view.Resource().Load();
        const auto unload = [&] {
            if (!wasLoaded) view.Resource().Unload();
        };
        Guarded([&] { counts = CelCountsOf(DecodeView(view.Resource().View())); }, unload);
        unload();
        if (wasLoaded) counts = CelCountsOf(view);
    });
    if (failed) return std::nullopt;
    return counts;
}

}  // namespace zorvex
