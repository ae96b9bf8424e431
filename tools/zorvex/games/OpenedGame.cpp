#include "tools/zorvex/games/OpenedGame.h"

#include <algorithm>

#include "tools/zorvex/console/Command.h"
#include "tools/zorvex/console/Console.h"
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

}  // namespace

bool NamesGame(const std::string& path) {
    return fs::is_directory(path) || EqualNoCase(fs::path(path).extension().string(), ".zvg");
}

OpenedGame::OpenedGame(const std::string& path, Access access, BadEntry badEntries) {
    Locate(path);
    // Paths of the game are shown with the system's separators, as the user named the directory.
    for (const fs::path& form : {directory_, fs::absolute(directory_)})
        ShowScratchAs(form.string(), directory_.string());
    const bool look = access == Access::Look;
    game_ = std::make_unique<AGIGame>();
    game_->Open(fs::absolute(propertyFile_.empty() ? directory_ : propertyFile_).string(),
                {.PreferPropertyFile = true,
                 .ReadOnly = look,
                 .EmptyDirectories = look ? EmptyDirectory::MendInMemory : EmptyDirectory::MendOnDisk,
                 .BadEntries = badEntries});
    CollectIssues(look);
}

OpenedGame::~OpenedGame() {
    try {
        if (game_) game_->CloseGame();
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
    if (files.empty() && FilesMatching(InnerPath(directory_.string()), "*DIR").empty()) {
        throw Error(ObjectErrorBase + 541, "zorvex", CatalogueText(541, {path}));
    }
}

void OpenedGame::CollectIssues(bool look) {
    for (const LoadIssue& issue : game_->LoadIssues()) {
        if (issue.Kind == LoadIssueKind::EmptyDirectory) {
            SayNote(issue.Text + (look ? "" : ", and the former file is kept as .OLD"));
            continue;
        }
        warnings_.push_back(ShownText(issue.Text));
        SayWarning(issue.Text);
        if (issue.Kind != LoadIssueKind::Resource || issue.Number < 0) continue;
        const auto number = static_cast<std::uint8_t>(issue.Number);
        if (CollectionOf(issue.Type)->Exists(number)) continue;
        skipped_.push_back({issue.Type, number, issue.Volume, issue.Loc});
    }
}

bool OpenedGame::HasSkipped(AGIResType type) const {
    return std::any_of(skipped_.begin(), skipped_.end(),
                       [type](const SkippedResource& skipped) { return skipped.Type == type; });
}

}  // namespace zorvex::tool
