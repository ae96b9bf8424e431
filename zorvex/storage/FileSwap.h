// Putting a set of new files in the place of old ones, so that a directory never stays between the two.
//
// Before anything is renamed, a list of the renames is written to a file of its own in the directory. If the
// process dies on the way, that file is found when the directory is next opened, and the rest of the renames
// is done then.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorvex {

class FileSwap {
  public:
    /// The files are names in `directory`, which ends in a backslash.
    explicit FileSwap(std::string directory) : directory_(std::move(directory)) {}

    /// The file `fresh` is to become `name`; a file that has this name becomes `name` + ".OLD".
    void Add(std::string_view fresh, std::string_view name);
    /// A file of this name, if there is one, is to become `name` + ".OLD".
    void Retire(std::string_view name);

    /// Carries out the swap. If a step fails, what was done is undone as far as possible, and the fault is
    /// raised.
    void Run();
    /// The file at which the last Run failed.
    const std::string& FailedAt() const { return failedAt_; }

    /// Finishes a swap that was begun in a directory and broken off; nothing happens where there is none.
    static void Finish(std::string_view directory);

  private:
    struct Step {
        std::string fresh;  // empty: only retire the file
        std::string name;
    };

    static FileSwap FromJournal(const std::string& directory);
    std::string Journal() const;
    void DropJournal() const;
    bool IsDone() const;
    void Forward();
    void Backward();

    std::string directory_;
    std::vector<Step> steps_;
    std::string failedAt_;
};

}  // namespace zorvex
