#include "zorvex/compiler/CheckLogic.h"

#include <algorithm>
#include <bitset>

#include "zorvex/base/CodePage.h"
#include "zorvex/base/PathText.h"
#include "zorvex/compiler/CompilePasses.h"
#include "zorvex/compiler/GameWorld.h"
#include "zorvex/compiler/names/GlobalDefines.h"
#include "zorvex/compiler/names/ResourceIDs.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/language/AGILogicSourceSettings.h"
#include "zorvex/language/ReservedTables.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex {

namespace {

bool IsGameResource(AGIResType type) {
    return type <= rtView;
}

/// The world of a check: what the host says, and nothing else.
class CheckWorld : public CompileWorld {
  public:
    CheckWorld(const LogicCheckSettings& settings, const LogicCheckNames& names, LogicCheck& result);

    std::uint8_t LogicNumber() const override { return settings_.LogicNumber; }
    LogicErrorLevel Level() const override { return settings_.ErrorLevel; }
    std::string InterpreterVersion() const override { return settings_.InterpreterVersion; }
    bool Ignores(std::int32_t warning) const override {
        const auto& ignored = settings_.IgnoredWarnings;
        return std::find(ignored.begin(), ignored.end(), warning) != ignored.end();
    }

    const CommandTables& Commands() const override { return commands_; }
    const ReservedTables& Reserved() const override { return reserved_; }
    bool UsesReservedNames() const override { return settings_.UseReservedNames; }
    std::shared_ptr<const GlobalDefineTable> Globals() const override { return globals_; }
    std::shared_ptr<const ResourceIDTable> ResourceIDs() const override { return ids_; }

    bool HasResource(AGIResType type, std::uint8_t number) const override { return exists_[type][number]; }
    bool KnowsViews() const override { return names_.CelCounts != nullptr; }
    std::optional<std::vector<std::int32_t>> CelCounts(std::uint8_t view) const override {
        return names_.CelCounts(view);
    }
    std::shared_ptr<const AGIInventoryObjects> Items() const override { return items_; }
    std::shared_ptr<const AGIWordList> Words() const override { return words_; }

    std::string IncludeFile(std::string_view name) const override;
    bool HasInclude(const std::string& file) const override;
    ByteArray ReadInclude(const std::string& file) const override;

    void TakeWarning(const Diagnostic& warning) override { result_.Diagnostics.push_back(warning); }
    bool TakeError(const Diagnostic& error) override {
        if (++errors_ >= settings_.MaxErrors) return false;
        result_.Diagnostics.push_back(error);
        return true;
    }

  private:
    void FillTables();

    const LogicCheckSettings& settings_;
    const LogicCheckNames& names_;
    LogicCheck& result_;
    std::size_t errors_ = 0;
    CommandTables commands_;
    ReservedTables reserved_;
    std::shared_ptr<const GlobalDefineTable> globals_;
    std::shared_ptr<const ResourceIDTable> ids_;
    std::array<std::bitset<256>, 4> exists_;
    std::shared_ptr<const AGIInventoryObjects> items_;
    std::shared_ptr<const AGIWordList> words_;
};

CheckWorld::CheckWorld(const LogicCheckSettings& settings, const LogicCheckNames& names, LogicCheck& result)
    : settings_(settings),
      names_(names),
      result_(result),
      commands_(CommandsOfVersion(settings.InterpreterVersion)),
      items_(names.Items != nullptr && names.Items->Loaded() ? names.Items : nullptr),
      words_(names.Words != nullptr && names.Words->Loaded() ? names.Words : nullptr) {
    FillTables();
}

void CheckWorld::FillTables() {
    if (names_.Reserved != nullptr) reserved_ = *names_.Reserved;
    const std::int32_t highestItem = items_ != nullptr ? items_->Count() - 1 : -1;
    SetGameValues(reserved_, {names_.GameVersion, names_.GameAbout, names_.GameID, highestItem});
    auto globals = std::make_shared<GlobalDefineTable>();
    for (const TDefine& define : names_.GlobalDefines)
        AddUsableDefine(*globals, define, UsedReserved());
    globals_ = std::move(globals);
    auto ids = std::make_shared<ResourceIDTable>();
    for (const ResourceName& resource : names_.Resources) {
        if (!IsGameResource(resource.Type)) continue;
        exists_[resource.Type][resource.Number] = true;
        ids->Add(resource.Type, resource.Number, TextToGame(resource.ID));
    }
    ids_ = std::move(ids);
}

// --- Includes ---
std::string CheckWorld::IncludeFile(std::string_view name) const {
    const std::string file = InnerPath(name);
    const auto& directories = settings_.IncludeDirectories;
    if (!JustPath(file, true).empty() || directories.empty()) return file;
    std::string first;
    for (const std::string& directory : directories) {
        std::string path = InnerPath(directory);
        if (!path.empty() && !path.ends_with('\\')) path += '\\';
        path += file;
        if (HasInclude(path)) return path;
        if (first.empty()) first = std::move(path);
    }
    return first;
}

bool CheckWorld::HasInclude(const std::string& file) const {
    return settings_.IncludeFile ? settings_.IncludeFile(file).has_value() : FileExists(file);
}

ByteArray CheckWorld::ReadInclude(const std::string& file) const {
    if (!settings_.IncludeFile) return Files().Read(file);
    return settings_.IncludeFile(file).value_or(ByteArray{});
}

}  // namespace

bool LogicCheck::HasErrors() const {
    return std::any_of(Diagnostics.begin(), Diagnostics.end(),
                       [](const Diagnostic& diagnostic) { return diagnostic.IsError(); });
}

LogicCheck CheckLogic(std::string_view source, const LogicCheckSettings& settings,
                      const LogicCheckNames& names) {
    LogicCheck result;
    CheckWorld world(settings, names, result);
    CompileRun run(world);
    try {
        RunPasses(run, TextToGame(source));
    } catch (const CompileFailure& failure) {
        result.Diagnostics.push_back(run.Told(failure));
    } catch (...) {
        result.Diagnostics.push_back(ToldPlaceless(CurrentError()));
    }
    if (!result.HasErrors()) {
        const ByteView bytes = run.LogicBuffer.View();
        result.Bytes.assign(bytes.begin(), bytes.end());
    }
    return result;
}

LogicCheckSettings PresentCheckSettings(std::uint8_t logicNumber) {
    const LibraryState& library = Library();
    LogicCheckSettings settings;
    settings.ErrorLevel = library.LogicSourceSettings ? library.LogicSourceSettings->ErrorLevel() : leHigh;
    for (std::size_t i = 0; i < library.IgnoreWarnings.size(); ++i) {
        constexpr std::int32_t firstWarning = 5001;
        if (library.IgnoreWarnings[i])
            settings.IgnoredWarnings.push_back(firstWarning + static_cast<std::int32_t>(i));
    }
    settings.UseReservedNames = library.UseReservedNames;
    settings.LogicNumber = logicNumber;
    settings.InterpreterVersion = library.InterpreterVersion;
    settings.IncludeDirectories = {library.ResDir};
    return settings;
}

LogicCheckNames PresentCheckNames() {
    const LibraryState& library = Library();
    LogicCheckNames names;
    for (const AGIResType type : {rtLogic, rtPicture, rtSound, rtView}) {
        const ResourceCollectionBase* collection = CollectionOf(type);
        if (collection == nullptr) continue;
        for (const auto& member : collection->Members())
            names.Resources.push_back({type, member->Number(), member->ID()});
    }
    names.GlobalDefines = CurrentGlobalDefines()->List();
    names.Words = library.VocabularyWords;
    names.Items = library.InventoryObjects;
    names.CelCounts = CelCountsOfGame;
    names.GameVersion = library.GameVersion;
    names.GameAbout = library.GameAbout;
    names.GameID = library.GameID;
    names.Reserved = std::make_shared<const ReservedTables>(ReservedNames());
    return names;
}

}  // namespace zorvex
