#include "zorvex/storage/ResourceFunctions.h"

#include <algorithm>
#include <array>
#include <limits>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/ScrambleKey.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/AGIResource.h"

namespace zorvex {

namespace {

constexpr std::size_t maxPackedPicture = 65531;

/// Existence is asked only after a failure, to tell which one it is.
template <class Step>
auto ReadOr502(std::string_view path, std::string_view name, Step&& step) {
    try {
        return step();
    } catch (...) {
        const Error error = CurrentError();
        if (!FileExists(path)) RaiseCatalogue(606, AGIResource::ErrorSource, name);
        RememberError(error);
        RaiseCatalogue(502, AGIResource::ErrorSource, std::to_string(error.Number()), name);
    }
}

std::int32_t WordAt(ByteView bytes, std::size_t pos) {
    return bytes[pos] + bytes[pos + 1] * 256;
}

}  // namespace

namespace {

void CheckLocation(std::int32_t loc, std::uint64_t volumeLength, std::string_view name) {
    if (loc < 0 || static_cast<std::uint64_t>(loc) > volumeLength) {
        RaiseCatalogue(505, AGIResource::ErrorSource, std::to_string(loc), name);
    }
}

/// Takes a resource from the bytes of a volume from its place on.
StoredResource TakeResource(ByteView bytes, std::string_view name, std::int32_t loc, bool isV3) {
    const auto headerLength = static_cast<std::size_t>(isV3 ? HeaderLengthV3 : HeaderLengthV2);
    std::array<std::uint8_t, HeaderLengthV3> header{};
    std::copy_n(bytes.begin(), std::min(bytes.size(), headerLength), header.begin());
    if (header[0] != 0x12 || header[1] != 0x34) {
        RaiseCatalogue(506, AGIResource::ErrorSource, std::to_string(loc), name);
    }
    StoredResource stored;
    stored.packedPicture = (header[2] & 0x80U) != 0;
    stored.expandedSize = WordAt(header, 3);
    const auto size = static_cast<std::size_t>(isV3 ? WordAt(header, 5) : stored.expandedSize);
    const ByteView rest = bytes.subspan(std::min(bytes.size(), headerLength));
    const ByteView data = rest.first(std::min(rest.size(), size));
    stored.data.reserve(size);
    stored.data.assign(data.begin(), data.end());
    stored.data.resize(size);
    return stored;
}

/// How many bytes a resource has with its header, as the header tells; a short one for what is none.
std::size_t StoredLength(ByteView first, bool isV3) {
    const auto headerLength = static_cast<std::size_t>(isV3 ? HeaderLengthV3 : HeaderLengthV2);
    if (first.size() < headerLength) return headerLength;
    return headerLength + static_cast<std::size_t>(WordAt(first, headerLength - 2));
}

}  // namespace

StoredResource StoredResourceIn(ByteView volume, std::string_view name, std::int32_t loc, bool isV3) {
    CheckLocation(loc, volume.size(), name);
    return TakeResource(volume.subspan(static_cast<std::size_t>(loc)), name, loc, isV3);
}

StoredResource ReadStoredResource(std::string_view path, std::string_view name, std::int32_t loc, bool isV3) {
    const auto size = [&] { return ReadOr502(path, name, [&] { return Files().Size(path); }); };
    if (loc < 0) CheckLocation(loc, size(), name);
    const auto length = [isV3](ByteView first) { return StoredLength(first, isV3); };
    const ByteArray bytes = ReadOr502(
        path, name, [&] { return Files().ReadPart(path, static_cast<std::uint64_t>(loc), length); });
    if (bytes.empty()) CheckLocation(loc, size(), name);
    return TakeResource(bytes, name, loc, isV3);
}

StoredResource ReadStoredFile(std::string_view path, std::string_view name) {
    StoredResource stored;
    stored.data = ReadOr502(path, name, [&] { return Files().Read(path); });
    stored.expandedSize = Narrow<std::int32_t>(stored.data.size());
    return stored;
}

void ExpandStored(StoredResource& stored, AGIResType type, std::string_view name) {
    try {
        if (stored.packedPicture) {
            DecompressPicture(stored.data);
        } else if (std::cmp_not_equal(stored.data.size(), stored.expandedSize)) {
            ExpandV3(stored.data, stored.expandedSize);
            if (type == rtLogic) ScrambleMessages(stored.data);
        }
    } catch (...) {
        const Error error = CurrentError();
        RememberError(error);
        RaiseCatalogue(507, AGIResource::ErrorSource, std::to_string(error.Number()), name);
    }
}

// --- LZW ---
namespace {

constexpr std::int32_t resetCode = 256;
constexpr std::int32_t endCode = 257;
constexpr std::int32_t firstFreeCode = 258;
constexpr std::int32_t codeCount =
    2048;  // codes are at most 11 bits wide, so no later entry can be referred to
constexpr std::int32_t lastTableIndex = 18041;
constexpr std::size_t maxCounter = std::numeric_limits<std::int16_t>::max();

/// One expansion: the bit reader, the table of entries and the place in the output.
class LzwExpansion {
  public:
    LzwExpansion(ByteView input, std::int32_t expandedSize)
        : input_(input), output_(static_cast<std::size_t>(expandedSize)) {}

    ByteArray Run() {
        SetWidth(9);
        std::int32_t previous = GetCode();
        if (previous != resetCode) RaiseRuntime(reOverflow);
        std::int32_t current = GetCode();
        while (current != endCode) {
            if (current == resetCode) {
                nextCode_ = firstFreeCode;
                SetWidth(9);
                previous = GetCode();
                lastByte_ = Narrow<std::uint8_t>(previous);
                Append(lastByte_);
            } else {
                Emit(current, previous);
                AddEntry(previous);
                previous = current;
            }
            current = GetCode();
        }
        return std::move(output_);
    }

  private:
    /// A table entry is the text of its prefix and one byte more. An entry not yet made stands for two zero
    /// bytes.
    struct Entry {
        std::int16_t prefix = 0;
        std::uint16_t length = 2;
        std::uint8_t append = 0;
    };

    void SetWidth(int width) {
        if (width > 11) return;
        width_ = width;
        widthLimit_ = (1 << width) - 2;
        mask_ = (1U << static_cast<unsigned>(width)) - 1;
    }

    std::int32_t GetCode() {
        while (inputPos_ < input_.size() && bitCount_ <= 24) {
            if (inputPos_ >= maxCounter) RaiseRuntime(reOverflow);
            bitBuffer_ |= static_cast<std::uint32_t>(input_[inputPos_++]) << static_cast<unsigned>(bitCount_);
            bitCount_ += 8;
        }
        const auto code = static_cast<std::int32_t>(bitBuffer_ & mask_);
        bitBuffer_ >>= static_cast<unsigned>(width_);
        bitCount_ = std::max(bitCount_ - width_, 0);
        return code;
    }

    std::size_t LengthOf(std::int32_t code) const {
        return code <= resetCode ? 1 : table_[static_cast<std::size_t>(code)].length;
    }

    /// The next `length` bytes of the output, which become its end.
    std::uint8_t* Claim(std::size_t length) {
        if (length > output_.size() - position_) RaiseRuntime(reSubscript);
        if (position_ + length > maxCounter) RaiseRuntime(reOverflow);
        std::uint8_t* const first = output_.data() + position_;
        position_ += length;
        return first;
    }

    void Append(std::uint8_t byte) { *Claim(1) = byte; }

    /// Writes the text of a code and keeps its first byte.
    void WriteText(std::int32_t code) {
        if (code == resetCode) RaiseRuntime(reSubscript);  // the opening code stands for no text
        const std::size_t length = damaged_ ? WalkedLength(code) : LengthOf(code);
        std::uint8_t* const first = Claim(length);
        for (std::uint8_t* to = first + length - 1; to > first; --to) {
            const Entry& entry = table_[static_cast<std::size_t>(code)];
            *to = entry.append;
            code = entry.prefix;
        }
        *first = static_cast<std::uint8_t>(code);
        lastByte_ = *first;
    }

    /// The length of a text by its chain of entries. Once a stream has referred to an entry not yet made,
    /// chains can run through entries that were replaced since, even in circles, and the lengths kept are not
    /// to be trusted.
    std::size_t WalkedLength(std::int32_t code) const {
        std::size_t length = 1;
        for (; code > resetCode; code = table_[static_cast<std::size_t>(code)].prefix) {
            if (++length > output_.size()) RaiseRuntime(reOutOfMemory);
        }
        if (code == resetCode) RaiseRuntime(reSubscript);
        return length;
    }

    void Emit(std::int32_t code, std::int32_t previous) {
        if (code < nextCode_) {
            WriteText(code);
            return;
        }
        if (code > nextCode_) damaged_ = true;
        const std::uint8_t ending = lastByte_;
        WriteText(previous);
        const std::uint8_t first = lastByte_;
        Append(ending);
        lastByte_ = first;
    }

    void AddEntry(std::int32_t previous) {
        if (nextCode_ > widthLimit_) SetWidth(width_ + 1);
        if (nextCode_ - endCode > lastTableIndex) RaiseRuntime(reSubscript);
        if (nextCode_ < codeCount) {
            table_[static_cast<std::size_t>(nextCode_)] = {static_cast<std::int16_t>(previous),
                                                           static_cast<std::uint16_t>(LengthOf(previous) + 1),
                                                           lastByte_};
        }
        ++nextCode_;
    }

    ByteView input_;
    ByteArray output_;
    std::size_t inputPos_ = 0;
    std::size_t position_ = 0;
    std::uint32_t bitBuffer_ = 0;
    int bitCount_ = 0;
    int width_ = 9;
    std::int32_t widthLimit_ = 0;
    std::uint32_t mask_ = 0;
    std::int32_t nextCode_ = endCode;
    std::uint8_t lastByte_ = 0;
    bool damaged_ = false;
    std::array<Entry, codeCount> table_;
};

}  // namespace

void ExpandV3(ByteArray& data, std::int32_t expandedSize) {
    try {
        if (expandedSize == 0) RaiseRuntime(reSubscript);
        data = LzwExpansion(data, expandedSize).Run();
    } catch (...) {
        const Error error = CurrentError();
        RememberError(error);
        RaiseText(559, AGIResource::ErrorSource, CatalogueText(559, {std::to_string(error.Number())}));
    }
}

// --- Packed pictures ---
namespace {

bool TakesColor(std::uint8_t action) {
    return action == 0xF0 || action == 0xF2;
}

/// Collects the expansion; past its bound or past the 16-bit input counter the expansion fails.
class PictureExpansion {
  public:
    explicit PictureExpansion(ByteView input) : input_(input) {
        output_.reserve(input.size() + input.size() / 8);
    }

    ByteArray Run() {
        while (inPos_ < input_.size()) {
            const std::uint8_t byte = Next();
            std::uint8_t current = byte;
            if (halfShifted_) {
                current = static_cast<std::uint8_t>((byte >> 4U) + rest_);
                rest_ = static_cast<std::uint8_t>(byte << 4U);
            }
            Write(current);
            if (TakesColor(current) && inPos_ + 2 < input_.size()) WriteColor();
        }
        return std::move(output_);
    }

  private:
    void WriteColor() {
        if (halfShifted_) {
            Write(static_cast<std::uint8_t>(rest_ >> 4U));
        } else {
            const std::uint8_t byte = Next();
            Write(static_cast<std::uint8_t>(byte >> 4U));
            rest_ = static_cast<std::uint8_t>(byte << 4U);
        }
        halfShifted_ = !halfShifted_;
    }

    std::uint8_t Next() {
        if (inPos_ >= maxCounter) RaiseRuntime(reOverflow);
        return input_[inPos_++];
    }

    void Write(std::uint8_t byte) {
        if (output_.size() >= maxPackedPicture) RaiseRuntime(reSubscript);
        output_.push_back(byte);
    }

    ByteView input_;
    ByteArray output_;
    std::size_t inPos_ = 0;
    bool halfShifted_ = false;
    std::uint8_t rest_ = 0;
};

}  // namespace

void DecompressPicture(ByteArray& data) {
    try {
        data = PictureExpansion(data).Run();
    } catch (...) {
        RememberError(CurrentError());
        RaiseCatalogue(504, "ResourceFunctions.DecompressPicture");
    }
}

// --- Messages ---
void ScrambleMessages(ByteArray& logic) {
    const auto byteAt = [&logic](std::int32_t pos) -> std::int32_t { return At(logic, pos); };
    const auto word = [](std::int32_t value) -> std::int32_t { return Narrow<std::int16_t>(value); };
    const std::int32_t start = word(word(byteAt(0) + word(byteAt(1) * 256)) + 2);
    const std::int32_t count = byteAt(start);
    if (count == 0) return;
    const std::int32_t end = word(word(start + byteAt(start + 1)) + word(byteAt(start + 2) * 256));
    const std::int32_t textStart = word(start + 3 + count * 2);
    for (std::int32_t i = textStart; i <= end; ++i) {
        At(logic, i) ^= ScrambleKey[static_cast<std::size_t>(i - textStart) % ScrambleKey.size()];
    }
}

}  // namespace zorvex
