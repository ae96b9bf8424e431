#include "zorvex/vocab/ObjectFile.h"

#include <algorithm>
#include <limits>

#include "zorvex/base/Checked.h"
#include "zorvex/base/ScrambleKey.h"

namespace zorvex {

namespace {

constexpr std::size_t recordSize = 3;
constexpr std::size_t amigaRecordSize = 4;

void Scramble(ByteArray& bytes) {
    std::size_t key = 0;
    for (std::uint8_t& byte : bytes) {
        byte ^= ScrambleKey[key];
        key = key + 1 == ScrambleKey.size() ? 0 : key + 1;
    }
}

/// Where the 16-bit value at a place points, counted from the end of record 0; nothing outside the bytes.
std::optional<std::size_t> Target(const ByteArray& bytes, std::size_t at, std::size_t record) {
    if (at + 1 >= bytes.size()) return std::nullopt;
    const std::size_t target = bytes[at] + 256U * bytes[at + 1] + record;
    if (target > std::numeric_limits<std::int16_t>::max() || target >= bytes.size()) return std::nullopt;
    return target;
}

std::string NameAt(const ByteArray& bytes, std::size_t at) {
    const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    return {begin, std::find(begin, bytes.end(), 0)};
}

/// Finds out the record size; nothing when no text area is where it should be.
std::optional<std::size_t> FindRecordSize(const ByteArray& bytes) {
    for (const std::size_t record : {recordSize, amigaRecordSize}) {
        const std::optional<std::size_t> texts = Target(bytes, 0, record);
        if (!texts) return std::nullopt;
        if (bytes[*texts] == '?') return record;
    }
    return std::nullopt;
}

std::optional<InventoryData> DecodePlain(const ByteArray& bytes) {
    const std::optional<std::size_t> record = FindRecordSize(bytes);
    if (!record) return std::nullopt;
    const std::size_t texts = *Target(bytes, 0, *record);
    InventoryData data;
    data.AmigaOBJ = *record == amigaRecordSize;
    data.MaxScreenObjects = bytes[2];
    for (std::size_t at = *record; at < texts && data.Items.size() < MaxItems; at += *record) {
        const std::optional<std::size_t> name = Target(bytes, at, *record);
        if (!name || at + 2 >= bytes.size()) return std::nullopt;
        data.Items.push_back({NameAt(bytes, *name), bytes[at + 2]});
    }
    return data;
}

}  // namespace

std::optional<InventoryData> DecodeObjectFile(ByteView bytes) {
    if (bytes.empty()) return std::nullopt;
    const bool plain = bytes.back() == 0;
    if (!plain && bytes.back() != ScrambleKey[(bytes.size() - 1) % ScrambleKey.size()]) return std::nullopt;
    ByteArray file(bytes.begin(), bytes.end());
    if (!plain) Scramble(file);
    std::optional<InventoryData> data = DecodePlain(file);
    if (data) data->Encrypted = !plain;
    return data;
}

ByteArray EncodeObjectFile(const InventoryData& data) {
    const std::size_t record = data.AmigaOBJ ? amigaRecordSize : recordSize;
    const std::size_t texts = record * (data.Items.size() + 1);
    ByteArray bytes(texts);
    const auto writeRecord = [&](std::size_t index, std::size_t target, std::uint8_t value) {
        const auto offset = static_cast<std::uint16_t>(Narrow<std::int16_t>(target, InventoryErrorSource) -
                                                       static_cast<int>(record));
        bytes[record * index] = static_cast<std::uint8_t>(offset & 0xFFU);
        bytes[record * index + 1] = static_cast<std::uint8_t>(offset >> 8U);
        bytes[record * index + 2] = value;
    };
    const auto writeText = [&](std::string_view text) {
        bytes.insert(bytes.end(), text.begin(), text.end());
        bytes.push_back(0);
    };

    writeRecord(0, texts, data.MaxScreenObjects);
    writeText(UnusedItemName);
    for (std::size_t i = 0; i < data.Items.size(); ++i) {
        const InventoryData::Item& item = data.Items[i];
        const bool unused = item.Name == UnusedItemName;
        writeRecord(i + 1, unused ? texts : bytes.size(), item.Room);
        if (!unused) writeText(item.Name);
    }
    if (data.Encrypted) Scramble(bytes);
    return bytes;
}

}  // namespace zorvex
