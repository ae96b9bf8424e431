#include "zorvex/storage/VolManager.h"

#include <algorithm>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/WholeFile.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/AGIResource.h"
#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/storage/ResourceFunctions.h"
#include "zorvex/storage/VolumeFiles.h"

namespace zorvex {

namespace {

constexpr std::size_t volumeCount = 16;
constexpr std::size_t maxSpans = 1023;  // of one volume, in one search
constexpr std::array collectionOrder{rtLogic, rtPicture, rtSound, rtView};

struct Span {
    std::int32_t start;
    std::int32_t length;
};

bool StartsBefore(const Span& left, const Span& right) {
    return left.start < right.start;
}

using SpanTable = std::array<std::vector<Span>, volumeCount>;

SpanTable CollectSpans(const AGIResource& except, std::int32_t headerLength) {
    SpanTable spans;
    for (const AGIResType type : collectionOrder) {
        const ResourceCollectionBase* collection = CollectionOf(type);
        if (collection == nullptr) continue;
        for (const auto& member : collection->Members()) {
            const AGIResource& resource = member->Resource();
            if (type == except.ResType() && resource.Number() == except.Number()) continue;
            std::int32_t size = 0;
            if (Attempt([&] { size = resource.SizeInVol(); })) continue;
            auto& ofVolume = At(spans, resource.Volume());
            if (ofVolume.size() == maxSpans) RaiseRuntime(reSubscript);
            ofVolume.push_back({resource.Loc(), size + headerLength});
        }
    }
    for (auto& ofVolume : spans) {
        std::stable_sort(ofVolume.begin(), ofVolume.end(), StartsBefore);
    }
    return spans;
}

/// The start of the first gap between spans, in rising order, that takes `needed` bytes; -1 if there is none.
std::int32_t FirstGap(const std::vector<Span>& spans, std::int32_t needed) {
    std::int32_t position = 0;
    for (const Span& span : spans) {
        if (span.start - position >= needed) return position;
        // Damaged directories can let spans overlap; the gap begins where the last of them ends.
        position = std::max(position, span.start + span.length);
    }
    return Library().MaxVolSize - position >= needed ? position : -1;
}

/// The simpler search, for a volume with more resources than the tables hold: the end of a volume that has
/// room.
bool PlaceAtEnd(AGIResource& resource) {
    for (std::int32_t volume = 0; volume <= HighestVolume(Library().IsV3); ++volume) {
        const std::string path = VolumePath(volume);
        const std::uint64_t length = FileExists(path) ? Files().Size(path) : 0;
        if (length + static_cast<std::uint64_t>(resource.Size()) <
            static_cast<std::uint64_t>(Library().MaxVolSize)) {
            resource.Volume(Internal(), volume);
            resource.Loc(Internal(), static_cast<std::int32_t>(length));
            return true;
        }
    }
    return false;
}

[[noreturn]] void RaiseTooBig(std::string_view source) {
    RaiseCatalogue(593, source);
}

}  // namespace

DirectoryEntryBytes MakeDirectoryEntry(std::int32_t volume, std::int32_t loc) {
    const auto place = static_cast<std::uint32_t>(loc);
    return {static_cast<std::uint8_t>((static_cast<std::uint32_t>(volume) << 4U) | ((place >> 16U) & 0x0FU)),
            static_cast<std::uint8_t>(place >> 8U), static_cast<std::uint8_t>(place)};
}

std::string VolumePath(std::int32_t volume) {
    const LibraryState& library = Library();
    return library.GameDir + VolumeName(volume, library.IsV3, library.GameID);
}

void FindFreeVOLSpace(AGIResource& resource) {
    constexpr std::string_view source = "ResourceFunctions.FindFreeVOLSpace";
    const bool isV3 = Library().IsV3;
    const std::int32_t needed = resource.Size() + HeaderLength(isV3);
    SpanTable spans;
    if (Attempt([&] { spans = CollectSpans(resource, HeaderLength(isV3)); })) {
        if (!PlaceAtEnd(resource)) RaiseTooBig(source);
        return;
    }
    for (std::int32_t volume = 0; volume <= HighestVolume(isV3); ++volume) {
        const std::int32_t loc = FirstGap(spans[static_cast<std::size_t>(volume)], needed);
        if (loc < 0) continue;
        resource.Volume(Internal(), volume);
        resource.Loc(Internal(), loc);
        return;
    }
    RaiseTooBig(source);
}

namespace {

ByteArray HeaderAndData(const AGIResource& resource, std::int32_t volume, bool isV3) {
    const ByteView data = resource.View();
    const auto low = static_cast<std::uint8_t>(data.size() % 256);
    const auto high = static_cast<std::uint8_t>(data.size() / 256);
    ByteArray bytes{0x12, 0x34, static_cast<std::uint8_t>(volume), low, high};
    if (isV3) bytes.insert(bytes.end(), {low, high});
    bytes.insert(bytes.end(), data.begin(), data.end());
    return bytes;
}

}  // namespace

namespace {

/// A place in a volume.
struct Place {
    std::int32_t volume;
    std::int32_t loc;
    std::int32_t length;

    bool Overlaps(const Place& other) const {
        return volume == other.volume && loc < other.loc + other.length && other.loc < loc + length;
    }
};

/// Writes a resource of the open game into its volumes so that its old form is there until the new one is:
/// the directory entry moves only to bytes that are written, and bytes that an entry points at are not
/// written over.
class PlacedWrite {
  public:
    explicit PlacedWrite(AGIResource& resource) : resource_(resource), isV3_(Library().IsV3) {
        old_ = {resource.Volume(), resource.Loc(), 0};
        Attempt([&] { old_.length = resource.SizeInVol() + HeaderLength(isV3_); });
    }

    /// False when the directory could not be made to point at the new form.
    bool Run() {
        FindFreeVOLSpace(resource_);
        Guarded([this] { WriteTo(PlaceFound()); }, [this] { Return(); });
        return entryWritten_;
    }

  private:
    Place PlaceFound() const {
        return {resource_.Volume(), resource_.Loc(),
                static_cast<std::int32_t>(resource_.View().size()) + HeaderLength(isV3_)};
    }

    void WriteTo(const Place& target) {
        if (!target.Overlaps(old_)) {
            Write(target);
            UpdateEntry(target);
        } else if (target.loc == old_.loc) {
            WriteOver(target);
            UpdateEntry(target);
        } else {
            MoveOver(target);
        }
    }

    void Write(const Place& place) const {
        Wrapped(638, [&] {
            const std::string path = VolumePath(place.volume);
            ForgetVolume(path);
            Files().WriteAt(path, static_cast<std::uint64_t>(place.loc), BytesAt(place));
        });
    }

    ByteArray BytesAt(const Place& place) const { return HeaderAndData(resource_, place.volume, isV3_); }

    /// Puts the new form over the old one by a new volume file that takes the old one's place.
    void WriteOver(const Place& place) const {
        Wrapped(638, [&] {
            const std::string path = VolumePath(place.volume);
            ForgetVolume(path);
            ByteArray volume = Files().Read(path);
            const ByteArray bytes = BytesAt(place);
            const auto start = static_cast<std::size_t>(place.loc);
            if (volume.size() < start + bytes.size()) volume.resize(start + bytes.size());
            std::copy(bytes.begin(), bytes.end(), volume.begin() + place.loc);
            ReplaceWholeFile(path, volume);
        });
    }

    /// Moves to a place that takes in part of the old one, by way of a third place.
    void MoveOver(const Place& target) {
        Place between = target;
        std::uint64_t oldLength = 0;
        if (FindBetween(target, between)) {
            oldLength = FileExists(VolumePath(between.volume)) ? Files().Size(VolumePath(between.volume)) : 0;
            Write(between);
            UpdateEntry(between);
            Write(target);
            UpdateEntry(target);
            CutVolume(between.volume, target, oldLength);
        } else {
            WriteOver(target);
            UpdateEntry(target);
        }
    }

    bool FindBetween(const Place& target, Place& between) const {
        SpanTable spans;
        if (Attempt([&] { spans = CollectSpans(resource_, HeaderLength(isV3_)); })) return false;
        for (const Place& taken : {old_, target}) {
            auto& ofVolume = At(spans, taken.volume);
            ofVolume.push_back({taken.loc, taken.length});
            std::stable_sort(ofVolume.begin(), ofVolume.end(), StartsBefore);
        }
        for (std::int32_t volume = 0; volume <= HighestVolume(isV3_); ++volume) {
            const std::int32_t loc = FirstGap(spans[static_cast<std::size_t>(volume)], target.length);
            if (loc < 0) continue;
            between = {volume, loc, target.length};
            return true;
        }
        return false;
    }

    /// Takes the end of a volume off again that only the place between has added.
    void CutVolume(std::int32_t volume, const Place& target, std::uint64_t oldLength) const {
        Attempt([&] {
            const std::string path = VolumePath(volume);
            ForgetVolume(path);
            const auto end =
                static_cast<std::uint64_t>(target.volume == volume ? target.loc + target.length : 0);
            const std::uint64_t wanted = std::max(oldLength, end);
            if (wanted == 0) {
                Files().Remove(path);
            } else if (Files().Size(path) > wanted) {
                ReplaceWholeFile(path, Files().ReadAt(path, 0, static_cast<std::size_t>(wanted)));
            }
        });
    }

    /// Points the directory at a place; if that fails, the place that it still points at counts as taken.
    void UpdateEntry(const Place& place) {
        resource_.Volume(Internal(), place.volume);
        resource_.Loc(Internal(), place.loc);
        entryWritten_ = (place.volume == old_.volume && place.loc == old_.loc);
        if (UpdateDirFile(resource_.ResType(), resource_.Number(), VolumePlace{place.volume, place.loc}))
            entryWritten_ = true;
        if (entryWritten_) {
            UpdateSizeInVol(resource_, place.length - HeaderLength(isV3_));
            old_ = place;
            return;
        }
        Return();
    }

    /// The place that the directory names is the one that counts, and it is not free.
    void Return() {
        resource_.Volume(Internal(), old_.volume);
        resource_.Loc(Internal(), old_.loc);
    }

    AGIResource& resource_;
    bool isV3_;
    Place old_{};
    bool entryWritten_ = false;
};

}  // namespace

bool AddToVol(AGIResource& resource, bool isV3File, bool rebuild) {
    if (!resource.InGame()) RaiseRuntime(reObjectNotSet, AGIResource::ErrorSource);
    resource.RequirePresent(Internal());
    const auto size = static_cast<std::int32_t>(resource.View().size());
    if (size > 0xFFFF) RaiseCatalogue(516, AGIResource::ErrorSource);  // the header has 16 bits for the size
    if (!rebuild) {
        return PlacedWrite(resource).Run();
    }
    LibraryState& library = Library();
    Wrapped(638, [&] { library.NewVolFile->Add(HeaderAndData(resource, library.CurrentVol, isV3File)); });
    UpdateSizeInVol(resource, size);
    library.CurrentLoc += size + HeaderLength(isV3File);
    return true;
}

void UpdateSizeInVol(const AGIResource& resource, std::int32_t size) {
    const ResourceCollectionBase* collection = CollectionOf(resource.ResType());
    if (collection == nullptr) return;
    if (const auto member = collection->Find(resource.Number()))
        member->Resource().SizeInVol(Internal(), size);
}

std::int32_t ReadSizeInVol(std::int32_t volume, std::int32_t loc) {
    std::int32_t size = -1;
    Attempt([&] {
        if (volume < 0 || loc < 0) return;
        const bool isV3 = Library().IsV3;
        const ByteArray header =
            Files().ReadAt(VolumePath(volume), static_cast<std::uint64_t>(loc), HeaderLengthV3);
        if (header.size() < HeaderLengthV2 || header[0] != 0x12 || header[1] != 0x34) return;
        const int at = isV3 ? 5 : 3;
        size = At(header, at) + At(header, at + 1) * 256;
    });
    return size;
}

void ValidateVolAndLoc(std::int32_t size, bool isV3) {
    constexpr std::string_view source = "VolManager.ValidateVolAndLoc";
    LibraryState& library = Library();
    const auto fits = [&library, size](std::int32_t volume, std::int64_t position) {
        return position + size <= library.MaxVolSize &&
               (volume != 0 || position + size <= library.MaxVol0Size);
    };
    if (fits(library.CurrentVol, library.CurrentLoc)) return;
    library.NewVolFile->Flush();
    for (std::int32_t volume = 0; volume <= HighestVolume(isV3); ++volume) {
        const std::string path = library.TargetDir + "NEW_VOL." + std::to_string(volume);
        std::uint64_t length = 0;
        const auto failed = Attempt([&] {
            Files().Append(path, {});
            length = Files().Size(path);
        });
        if (failed) RaiseCatalogue(640, source);
        if (fits(volume, static_cast<std::int64_t>(length))) {
            library.CurrentVol = volume;
            library.CurrentLoc = static_cast<std::int32_t>(length);
            library.NewVolFile = std::make_shared<NewVolume>(path, library.CurrentLoc);
            return;
        }
    }
    RaiseTooBig(source);
}

}  // namespace zorvex
