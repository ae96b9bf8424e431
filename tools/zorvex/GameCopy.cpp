#include "tools/zorvex/GameCopy.h"

#include <filesystem>

#include "tools/zorvex/Command.h"
#include "tools/zorvex/Resources.h"

namespace zorvex::tool {

namespace fs = std::filesystem;

std::string CopyGame(const std::string& game, const std::string& target) {
    if (!fs::exists(game)) throw Error(reFileNotFound, "zorvex", "no such file or directory: " + game);
    if (fs::exists(target) && !fs::is_empty(target)) throw UsageError(target + " is not empty");
    const bool isDirectory = fs::is_directory(game);
    const fs::path source = isDirectory ? fs::path(game) : fs::absolute(game).parent_path();
    MakeOutputDirectory(target);
    fs::copy(source, target, fs::copy_options::recursive | fs::copy_options::skip_symlinks);
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(target)) {
        std::error_code ignored;
        fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add, ignored);
    }
    return isDirectory ? target : (fs::path(target) / fs::path(game).filename()).string();
}

}  // namespace zorvex::tool
