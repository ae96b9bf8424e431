#include "tools/zorvex/games/GameCopy.h"

#include <algorithm>
#include <vector>

#include "tools/zorvex/console/Command.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/games/Resources.h"

namespace zorvex::tool {

namespace fs = std::filesystem;

namespace {

/// One copy. A directory that is being copied, or is the target, is not copied into itself, whatever links
/// lead back to it.
class TreeCopy {
  public:
    explicit TreeCopy(const fs::path& target) : open_{fs::canonical(target)} {}

    void Copy(const fs::path& source, const fs::path& target) {
        const fs::path real = fs::canonical(source);
        if (std::find(open_.begin(), open_.end(), real) != open_.end()) return;
        open_.push_back(real);
        std::error_code code;
        fs::create_directory(target, code);
        fs::directory_iterator entries(source, code);
        if (code) SayLeftOut(source);
        for (; entries != fs::directory_iterator(); entries.increment(code))
            CopyEntry(*entries, target / entries->path().filename());
        open_.pop_back();
    }

  private:
    void CopyEntry(const fs::directory_entry& entry, const fs::path& target) {
        std::error_code code;
        if (entry.is_directory(code)) {
            Copy(entry.path(), target);
        } else if (entry.is_regular_file(code)) {
            fs::copy_file(entry.path(), target, code);
            if (code) return SayLeftOut(entry.path());
            // Files that may only be read stay so in the copy, unless told otherwise.
            fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add,
                            code);
        }
    }

    static void SayLeftOut(const fs::path& path) {
        SayWarning(path.string() + " cannot be read and is left out");
    }

    std::vector<fs::path> open_;
};

}  // namespace

void CopyDirectoryTree(const fs::path& source, const fs::path& target) {
    TreeCopy(target).Copy(source, target);
}

std::string CopyGame(const std::string& game, const std::string& target) {
    if (!fs::exists(game)) throw Error(reFileNotFound, "zorvex", "no such file or directory: " + game);
    if (fs::exists(target) && !fs::is_empty(target)) throw UsageError(target + " is not empty");
    const bool isDirectory = fs::is_directory(game);
    MakeOutputDirectory(target);
    CopyDirectoryTree(isDirectory ? fs::path(game) : fs::absolute(game).parent_path(), target);
    return isDirectory ? target : (fs::path(target) / fs::path(game).filename()).string();
}

}  // namespace zorvex::tool
