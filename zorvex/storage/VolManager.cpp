#include "zorvex/storage/VolManager.h"

#include <algorithm>

#include "zorvex/game/Checked.h"
#include "zorvex/game/Faults.h"
#include "zorvex/game/Helpers.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/game/Text.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/WholeFile.h"
#include "zorvex/storage/AGIResource.h"
#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/storage/ResourceFunctions.h"

namespace zorvex {

namespace {

constexpr std::size_t volumeCount = 16;
constexpr std::size_t maxSpans = 1023;  // of one volume, in one search
constexpr std::array collectionOrder{rtLogic, rtPicture, rtSound, rtView};

struct Span {
    std::int32_t start;
    std::int32_t length;
};

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
        std::stable_sort(ofVolume.begin(), ofVolume.end(),
                         [](const Span& left, const Span& right) { return left.start < right.start; });
    }
    return spans;
}

bool PlaceInGap(AGIResource& resource, const std::vector<Span>& spans, std::int32_t volume,
                std::int32_t needed) {
    std::int32_t position = 0;
    for (std::size_t i = 0; i <= spans.size(); ++i) {
        const std::int32_t end = i < spans.size() ? spans[i].start : Library().MaxVolSize;
        if (end - position >= needed) {
            resource.Volume(volume);
            resource.Loc(position);
            return true;
        }
        // Damaged directories can let spans overlap; the gap begins where the last of them ends.
        if (i < spans.size()) position = std::max(position, spans[i].start + spans[i].length);
    }
    return false;
}

/// The simpler search, for a volume with more resources than the tables hold: the end of a volume that has
/// room.
bool PlaceAtEnd(AGIResource& resource) {
    for (std::int32_t volume = 0; volume <= HighestVolume(Library().IsV3); ++volume) {
        const std::string path = VolumePath(volume);
        const std::uint64_t length = FileExists(path) ? Files().Size(path) : 0;
        if (length + static_cast<std::uint64_t>(resource.Size()) <
            static_cast<std::uint64_t>(Library().MaxVolSize)) {
            resource.Volume(volume);
            resource.Loc(static_cast<std::int32_t>(length));
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

std::string VolumeName(std::int32_t volume, bool isV3, const std::string& gameID) {
    return (isV3 ? gameID : std::string()) + "VOL." + std::to_string(volume);
}

std::string VolumePath(std::int32_t volume) {
    const LibraryState& library = Library();
    return library.GameDir + VolumeName(volume, library.IsV3, library.GameID);
}

std::string DirectoryFileName(AGIResType type, bool isV3, const std::string& gameID) {
    return (isV3 ? gameID : std::string(At(ResTypeAbbrev, static_cast<int>(type)))) + "DIR";
}

std::int32_t HighestVolume(bool isV3) {
    return isV3 ? 15 : 4;
}

std::int32_t HeaderLength(bool isV3) {
    return isV3 ? HeaderLengthV3 : HeaderLengthV2;
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
        if (PlaceInGap(resource, spans[static_cast<std::size_t>(volume)], volume, needed)) return;
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

void AddToVol(AGIResource& resource, bool isV3File, bool rebuild, std::int32_t vol, std::int32_t loc) {
    LibraryState& library = Library();
    const auto size = static_cast<std::int32_t>(resource.View().size());
    if (size > 0xFFFF) RaiseCatalogue(516, AGIResource::ErrorSource);  // the header has 16 bits for the size
    if (!rebuild) {
        FindFreeVOLSpace(resource);
        vol = resource.Volume();
        loc = resource.Loc();
    }
    const std::string path = rebuild ? library.NewVolFile : VolumePath(vol);
    Wrapped(638, [&] {
        Files().WriteAt(path, static_cast<std::uint64_t>(loc), HeaderAndData(resource, vol, isV3File));
    });
    UpdateSizeInVol(resource, size);
    if (rebuild) {
        library.CurrentLoc += size + HeaderLength(isV3File);
    } else {
        UpdateDirFile(resource, false);
    }
}

void UpdateSizeInVol(const AGIResource& resource, std::int32_t size) {
    const ResourceCollectionBase* collection = CollectionOf(resource.ResType());
    if (collection == nullptr) return;
    if (const auto member = collection->Find(resource.Number())) member->Resource().SizeInVol(size);
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
            library.NewVolFile = path;
            return;
        }
    }
    RaiseTooBig(source);
}

}  // namespace zorvex
