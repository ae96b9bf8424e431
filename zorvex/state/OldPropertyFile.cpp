#include "zorvex/state/OldPropertyFile.h"

#include "zorvex/base/Faults.h"
#include "zorvex/base/StringList.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

namespace {

constexpr std::size_t signatureLength = 16;
constexpr std::size_t recordHeaderLength = 5;
constexpr std::array<std::string_view, 3> signatures{"ZORVEX v1.2     ", "ZORVEX v1.0     ",
                                                     "1.0 BETA        "};

constexpr std::uint8_t gameIDCode = 131;
constexpr std::uint8_t interpreterCode = 132;
constexpr std::uint8_t paletteCode = 172;

struct Record {
    std::uint8_t code = 0;
    std::uint8_t sub = 0;
    std::uint8_t resNum = 0;
    ByteView data;
};

struct GameKey {
    std::uint8_t code;
    std::string_view section;
    std::string_view key;
};

constexpr std::array gameKeys{
    GameKey{129, "General", "Description"},   GameKey{130, "General", "Author"},
    GameKey{gameIDCode, "General", "GameID"}, GameKey{interpreterCode, "General", "Interpreter"},
    GameKey{133, "General", "LastEdit"},      GameKey{134, "General", "GameVersion"},
    GameKey{135, "General", "About"},         GameKey{137, "General", "ResDir"},
    GameKey{144, "OBJECT", "Description"},    GameKey{160, "WORDS.TOK", "Description"},
    GameKey{180, "General", "UseResNames"},
};

struct ResourceKey {
    std::uint8_t sub;
    std::string_view key;
};

constexpr std::array commonKeys{ResourceKey{0, "ID"}, ResourceKey{1, "Description"},
                                ResourceKey{254, "Size"}};
constexpr std::array logicKeys{ResourceKey{2, "CompCRC32"}, ResourceKey{3, "CRC32"},
                               ResourceKey{13, "IsRoom"}};
constexpr std::array pictureKeys{ResourceKey{18, "BkgdImg"}, ResourceKey{19, "BkgdTrans"},
                                 ResourceKey{20, "BkgdPosn"}, ResourceKey{21, "BkgdSize"}};
constexpr std::array soundKeys{
    ResourceKey{4, "Key"},       ResourceKey{5, "Inst0"},     ResourceKey{6, "Inst1"},
    ResourceKey{7, "Inst2"},     ResourceKey{8, "Mute0"},     ResourceKey{9, "Mute1"},
    ResourceKey{10, "Mute2"},    ResourceKey{11, "Mute3"},    ResourceKey{12, "TPQN"},
    ResourceKey{14, "Visible0"}, ResourceKey{15, "Visible1"}, ResourceKey{16, "Visible2"},
    ResourceKey{17, "Visible3"},
};

struct ResourceCode {
    std::uint8_t code;
    AGIResType type;
    std::span<const ResourceKey> keys;
};

constexpr std::array resourceCodes{ResourceCode{192, rtLogic, logicKeys},
                                   ResourceCode{208, rtPicture, pictureKeys},
                                   ResourceCode{224, rtSound, soundKeys}, ResourceCode{240, rtView, {}}};

/// Each byte stands for the character of its code.
std::string TextOf(ByteView data) {
    std::string text;
    for (const std::uint8_t byte : data)
        AppendCharacter(text, byte);
    return text;
}

std::optional<std::string_view> KeyOf(std::span<const ResourceKey> keys, std::uint8_t sub) {
    for (const ResourceKey& key : keys) {
        if (key.sub == sub) return key.key;
    }
    return std::nullopt;
}

void StorePalette(ByteView data) {
    for (std::size_t i = 0; i < 16 && 4 * i + 4 <= data.size(); ++i) {
        std::string digits;
        for (const std::uint8_t byte : data.subspan(4 * i, 4))
            digits += HexPad(byte, 2);
        WriteGameProperty("Palette", "Color" + std::to_string(i), digits);
    }
}

void StoreResourceRecord(const ResourceCode& code, const Record& record) {
    auto key = KeyOf(commonKeys, record.sub);
    if (!key) key = KeyOf(code.keys, record.sub);
    if (!key) return;
    std::string value = TextOf(record.data);
    if (key->ends_with("CRC32")) value.insert(0, "&H");
    if (*key == "IsRoom" && record.resNum == 0) value = BoolText(false);
    const std::string type(ResTypeNames[code.type]);
    WriteGameProperty(type + std::to_string(record.resNum), *key, value, type + "s");
}

void StoreRecord(const Record& record) {
    if (record.code == paletteCode) return StorePalette(record.data);
    for (const GameKey& target : gameKeys) {
        if (target.code == record.code) WriteGameProperty(target.section, target.key, TextOf(record.data));
    }
    for (const ResourceCode& code : resourceCodes) {
        if (code.code == record.code) StoreResourceRecord(code, record);
    }
}

/// The records before the signature. None when the signature is unknown, or when the last record runs past
/// the end: then some length is wrong, and what was read up to there cannot be trusted either.
std::vector<Record> ReadRecords(ByteView file) {
    if (file.size() < signatureLength) return {};
    const ByteView signature = file.last(signatureLength);
    const auto isSignature = [signature](std::string_view known) {
        return std::equal(known.begin(), known.end(), signature.begin(),
                          [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
    };
    if (std::none_of(signatures.begin(), signatures.end(), isSignature)) return {};

    std::vector<Record> records;
    for (ByteView rest = file.first(file.size() - signatureLength); !rest.empty();) {
        if (rest.size() < recordHeaderLength) return {};
        const std::size_t length = rest[3] + 256U * rest[4];
        if (rest.size() - recordHeaderLength < length) return {};
        records.push_back({rest[0], rest[1], rest[2], rest.subspan(recordHeaderLength, length)});
        rest = rest.subspan(recordHeaderLength + length);
    }
    return records;
}

bool HasValue(const std::vector<Record>& records, std::uint8_t code) {
    return std::any_of(records.begin(), records.end(),
                       [code](const Record& record) { return record.code == code && !record.data.empty(); });
}

}  // namespace

void ConvertOldPropertyFile() {
    LibraryState& library = Library();
    if (!library.PropertyList) return;
    ByteArray file;
    Attempt([&] { file = Files().Read(library.GameFile); });
    const std::vector<Record> records = ReadRecords(file);
    if (!HasValue(records, gameIDCode) || !HasValue(records, interpreterCode)) {
        library.PropertyList.reset();
        return;
    }
    const std::string path = library.PropertyList->Lines().front();
    library.PropertyList->Assign(
        std::vector<std::string>{path, "#", "# Zorvex Game Property File", "# converted from version 1.2.1",
                                 "#", "[General]", "   ZorvexVersion = " + std::string(LibraryVersion)});
    for (const Record& record : records)
        StoreRecord(record);
}

}  // namespace zorvex
