// The part of VolManager that edits directory files.
#include <algorithm>
#include <utility>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/WholeFile.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/AGIResource.h"
#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/storage/V3Directory.h"
#include "zorvex/storage/VolManager.h"

namespace zorvex {

namespace {

/// A directory file in memory and, within it, the directory of one type.
class DirectoryEdit {
  public:
    DirectoryEdit(ByteArray file, AGIResType type, bool isV3)
        : file_(std::move(file)),
          type_(type),
          isV3_(isV3),
          range_{0, static_cast<std::int32_t>(file_.size())} {
        if (isV3) range_ = V3DirectoryRange(file_, type);
        // A damaged V3 file can have a directory that reaches into the header; an edit there would ruin the
        // rest.
        if (range_.start < (isV3 ? V3HeaderLength : 0) || range_.start > range_.end ||
            std::cmp_greater(range_.end, file_.size())) {
            RaiseRuntime(reSubscript);
        }
        const double entries = RoundHalfEven((range_.end - range_.start) / 3.0 - 1);
        max_ = static_cast<std::int32_t>(entries);
        // A cut entry counts only at the end of the file, where there is room to complete it.
        if (HasFollower()) max_ = std::min(max_, (range_.end - range_.start) / 3 - 1);
    }

    /// The highest number with an entry before any edit.
    std::int32_t Max() const { return max_; }
    const ByteArray& File() const { return file_; }

    /// The offset of an entry in the file.
    std::int32_t PlaceOf(std::int32_t number) const { return range_.start + 3 * number; }

    void Store(std::int32_t number, const DirectoryEntryBytes& entry) {
        const auto at = static_cast<std::size_t>(PlaceOf(number));
        if (file_.size() < at + entry.size()) file_.resize(at + entry.size(), 255);
        std::copy(entry.begin(), entry.end(), file_.begin() + static_cast<std::ptrdiff_t>(at));
    }

    void Grow(std::int32_t newMax, const DirectoryEntryBytes& entry) {
        const std::int32_t delta = (newMax - max_) * 3;
        file_.insert(file_.begin() + range_.end, static_cast<std::size_t>(delta), 255);
        // The rest of a cut entry becomes part of the first new one and must not look like a place.
        std::fill(file_.begin() + std::min(PlaceOf(max_ + 1), range_.end), file_.begin() + range_.end, 255);
        MoveFollowers(delta);
        Store(newMax, entry);
    }

    /// The highest number with an entry that is not empty, but for one.
    std::int32_t MaxBut(std::int32_t removed) const {
        std::int32_t number = max_;
        while (number >= 0 && (number == removed || file_[static_cast<std::size_t>(PlaceOf(number))] == 255))
            --number;
        return number;
    }

    void Shrink(std::int32_t newMax, std::int32_t removed) {
        const std::int32_t delta = (max_ - newMax) * 3;
        const std::int32_t keepEnd = range_.start + 3 * (newMax + 1);
        const std::int32_t cutEnd = HasFollower() ? keepEnd + delta : static_cast<std::int32_t>(file_.size());
        file_.erase(file_.begin() + keepEnd, file_.begin() + cutEnd);
        MoveFollowers(-delta);
        if (removed <= newMax) Store(removed, {255, 255, 255});
    }

  private:
    bool HasFollower() const { return isV3_ && type_ != rtSound; }

    void MoveFollowers(std::int32_t delta) {
        if (HasFollower()) MoveV3Directories(file_, type_, delta);
    }

    ByteArray file_;
    AGIResType type_;
    bool isV3_;
    DirectoryRange range_;
    std::int32_t max_ = -1;
};

}  // namespace

namespace {

/// Writes the edited directory. Where no new file can be made, the old one takes what it has room for: the
/// one entry, or, behind blank entries that harm nothing should they be all, the grown directory.
void StoreDirectory(const std::string& path, const DirectoryEdit& edit, std::int32_t number,
                    const DirectoryEntryBytes& entry) {
    const auto error = Attempt([&] { ReplaceWholeFile(path, edit.File()); });
    if (!error) return;
    if (number <= edit.Max()) {
        Files().WriteAt(path, static_cast<std::uint64_t>(edit.PlaceOf(number)), entry);
        return;
    }
    const std::uint64_t length = Files().Size(path);
    if (edit.File().size() < length) throw *error;
    Files().Append(path, ByteArray(edit.File().size() - static_cast<std::size_t>(length), 255));
    Files().WriteAt(path, 0, edit.File());
}

}  // namespace

bool UpdateDirFile(AGIResType type, std::uint8_t number, std::optional<VolumePlace> place) {
    const auto error = Attempt([&] {
        const LibraryState& library = Library();
        // An emptied directory keeps one empty entry: a directory file without any could not be opened again.
        // A new entry needs room for its own number, which need not be the highest, nor still in the
        // collection.
        std::int32_t maxNum = place ? number : std::max<std::int32_t>(CollectionOf(type)->Max(), 0);
        const std::string path = library.GameDir + DirectoryFileName(type, library.IsV3, library.GameID);
        DirectoryEdit edit(Files().Read(path), type, library.IsV3);
        // Entries of resources that could not be read stay where the game was opened so.
        if (!place && library.LeftEntries[type].any()) maxNum = std::max(maxNum, edit.MaxBut(number));
        const DirectoryEntryBytes entry =
            place ? MakeDirectoryEntry(place->Volume, place->Loc) : DirectoryEntryBytes{255, 255, 255};
        const bool inPlace = place ? edit.Max() >= maxNum : maxNum >= edit.Max();
        // What never came into the directory cannot be blanked there; its place may be that of another type.
        if (!place && inPlace && number > edit.Max()) return;
        if (inPlace) {
            edit.Store(number, entry);
        } else if (place) {
            edit.Grow(maxNum, entry);
        } else {
            edit.Shrink(maxNum, number);
        }
        StoreDirectory(path, edit, number, entry);
    });
    return !error;
}

}  // namespace zorvex
