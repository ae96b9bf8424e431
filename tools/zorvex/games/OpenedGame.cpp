#include "tools/zorvex/games/OpenedGame.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include "tools/zorvex/console/Command.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/games/DirectoryFiles.h"
#include "tools/zorvex/games/GameCopy.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace fs = std::filesystem;

ScratchDirectory::ScratchDirectory() {
    std::string name = (fs::temp_directory_path() / "zorvex-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("cannot make a temporary directory");
    path_ = name;
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

namespace {

std::vector<fs::path> PropertyFilesOf(const fs::path& directory) {
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        if (entry.is_regular_file() && EqualNoCase(entry.path().extension().string(), ".zvg")) {
            files.push_back(entry.path());
        }
    }
    return files;
}

fs::path LogPathOf(const fs::path& directory) {
    return directory / "errlog.txt";
}

std::uintmax_t SizeOf(const fs::path& file) {
    std::error_code code;
    const std::uintmax_t size = fs::file_size(file, code);
    return code ? 0 : size;
}

}  // namespace

bool NamesGame(const std::string& path) {
    return fs::is_directory(path) || EqualNoCase(fs::path(path).extension().string(), ".zvg");
}

OpenedGame::OpenedGame(const std::string& path, Access access) {
    Locate(path);
    if (access == Access::Look) {
        CopyToScratch();
    } else {
        // Its own paths are shown with the system's separators all the same.
        for (const fs::path& form : {directory_, fs::absolute(directory_)})
            ShowScratchAs(form.string(), directory_.string());
    }
    MendEmptyDirectories(access);
    const std::vector<SkippedResource> entries = UsedEntries(directory_);
    const std::uintmax_t logBefore = SizeOf(LogPathOf(directory_));
    Open();
    CollectWarnings(logBefore);
    FindSkipped(entries);
}

OpenedGame::~OpenedGame() {
    try {
        game_->CloseGame();
    } catch (const std::exception&) {  // nothing is left that could be done about it
    }
}

void OpenedGame::Locate(const std::string& path) {
    if (!fs::exists(path)) throw Error(reFileNotFound, "zorvex", "no such file or directory: " + path);
    if (!fs::is_directory(path)) {
        propertyFile_ = path;
        directory_ = fs::absolute(path).parent_path();
        return;
    }
    directory_ = path;
    const std::vector<fs::path> files = PropertyFilesOf(directory_);
    if (files.size() > 1) throw UsageError(path + " holds several property files; name the one to open");
    if (files.size() == 1) propertyFile_ = files.front();
    if (files.empty() && DirectoryFileNames(directory_).empty()) {
        throw Error(ObjectErrorBase + 541, "zorvex", CatalogueText(541, {path}));
    }
}

void OpenedGame::CopyToScratch() {
    scratch_ = std::make_unique<ScratchDirectory>();
    CopyDirectoryTree(directory_, scratch_->Path());
    ShowScratchAs(scratch_->Path().string(), directory_.string());
    if (!propertyFile_.empty()) propertyFile_ = scratch_->Path() / propertyFile_.filename();
    directory_ = scratch_->Path();
}

void OpenedGame::MendEmptyDirectories(Access access) {
    for (const fs::path& file : EmptyDirectoryFiles(directory_)) {
        if (access == Access::Change) {
            fs::path backup = file;
            backup += ".OLD";
            fs::rename(file, backup);
        }
        std::ofstream(file, std::ios::binary) << "\xFF\xFF\xFF";
        mendedDirectories_.push_back(file.filename().string());
        SayNote(file.filename().string() + " has no bytes; it is taken as a directory with one empty entry" +
                (access == Access::Change ? ", and the former file is kept as .OLD" : ""));
    }
}

void OpenedGame::Open() {
    game_ = std::make_unique<AGIGame>();
    try {
        if (propertyFile_.empty()) {
            game_->OpenGameDIR(directory_.string());
        } else {
            game_->OpenGameZVG(fs::absolute(propertyFile_).string());
        }
    } catch (const Error& error) {
        if (error.Is(636)) return;
        // A property file that cannot be opened is told by its bare name; the catalogue has the sentence to
        // go with it.
        const bool bareName = error.Is(655) || error.Is(665) || error.Is(690) || error.Is(691);
        if (!bareName) throw;
        std::string text = CatalogueText(error.Id(), {error.Description()});
        if (text.find(error.Description()) == std::string::npos) text += " (" + error.Description() + ")";
        throw Error(error.Number(), error.Source(), text);
    }
}

void OpenedGame::CollectWarnings(std::uintmax_t logBefore) {
    std::ifstream log(LogPathOf(directory_), std::ios::binary);
    if (!log) return;
    log.seekg(static_cast<std::streamoff>(logBefore));
    for (std::string line; std::getline(log, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const std::size_t date = line.find(": ");
        if (date != std::string::npos) line.erase(0, date + 2);
        const std::size_t level = line.find(": ");
        if (level != std::string::npos) line.erase(0, level + 2);
        warnings_.push_back(ShownText(line));
        SayWarning(line);
    }
}

bool OpenedGame::HasSkipped(AGIResType type) const {
    return std::any_of(skipped_.begin(), skipped_.end(),
                       [type](const SkippedResource& skipped) { return skipped.Type == type; });
}

void OpenedGame::FindSkipped(const std::vector<SkippedResource>& entries) {
    for (const SkippedResource& entry : entries) {
        const ResourceCollectionBase* collection = CollectionOf(entry.Type);
        if (collection != nullptr && !collection->Exists(entry.Number)) skipped_.push_back(entry);
    }
}

}  // namespace zorvex::tool
