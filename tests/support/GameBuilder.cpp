#include "tests/support/GameBuilder.h"

#include "zorvex/platform/FileSystem.h"
#include "zorvex/storage/V3Directory.h"
#include "zorvex/storage/VolManager.h"
#include "zorvex/vocab/WordsFile.h"

namespace zorvex::test {

ByteArray SmallestLogic() {
    return {1, 0, 0, 0, 2, 0};
}
ByteArray SmallestView() {
    return {1, 1, 1, 0, 0, 7, 0, 1, 3, 0, 1, 1, 0, 0};
}
ByteArray SilentSound() {
    return {8, 0, 10, 0, 12, 0, 14, 0, 255, 255, 255, 255, 255, 255, 255, 255};
}

ByteArray CountingBytes(std::size_t count) {
    ByteArray bytes(count);
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<std::uint8_t>(i);
    return bytes;
}

ByteArray SampleResource(AGIResType type, std::size_t variant) {
    if (type == rtLogic) {
        ByteArray logic(variant + 6);
        logic[0] = static_cast<std::uint8_t>(variant + 1);
        logic[1] = static_cast<std::uint8_t>((variant + 1) >> 8U);
        logic[variant + 4] = 2;
        return logic;
    }
    ByteArray bytes = type == rtPicture ? ByteArray{0xFF} : type == rtView ? SmallestView() : SilentSound();
    bytes.resize(bytes.size() + variant, static_cast<std::uint8_t>(variant));
    return bytes;
}

namespace {

void AppendWord(ByteArray& bytes, std::size_t value) {
    bytes.push_back(static_cast<std::uint8_t>(value));
    bytes.push_back(static_cast<std::uint8_t>(value >> 8U));
}

void Append(ByteArray& bytes, const ByteArray& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
}

}  // namespace

GameBuilder& GameBuilder::Add(AGIResType type, int number, const ByteArray& data, int volume) {
    ByteArray& bytes = volumes_[volume];
    Entry(type, number, volume, static_cast<std::int32_t>(bytes.size()));
    Append(bytes, {0x12, 0x34, static_cast<std::uint8_t>(volume)});
    AppendWord(bytes, data.size());
    if (IsV3()) AppendWord(bytes, data.size());
    Append(bytes, data);
    return *this;
}

GameBuilder& GameBuilder::Entry(AGIResType type, int number, int volume, std::int32_t location) {
    ByteArray& directory = directories_[type];
    const std::size_t at = static_cast<std::size_t>(number) * 3;
    if (directory.size() < at + 3) directory.resize(at + 3, 255);
    const DirectoryEntryBytes entry = MakeDirectoryEntry(volume, location);
    std::copy(entry.begin(), entry.end(), directory.begin() + static_cast<std::ptrdiff_t>(at));
    return *this;
}

GameBuilder& GameBuilder::Fill(int volume, std::size_t count, std::uint8_t value) {
    volumes_[volume].resize(volumes_[volume].size() + count, value);
    return *this;
}

std::int32_t GameBuilder::VolumeSize(int volume) const {
    return static_cast<std::int32_t>(volumes_.at(volume).size());
}

ByteArray GameBuilder::Directory(AGIResType type) const {
    const auto ofType = [this](AGIResType wanted) {
        const ByteArray& bytes = directories_[wanted];
        return bytes.empty() ? ByteArray{255, 255, 255} : bytes;
    };
    return IsV3() ? MakeV3Directory(ofType) : ofType(type);
}

std::map<std::string, ByteArray> GameBuilder::AllFiles() const {
    std::map<std::string, ByteArray> files;
    for (const auto& [number, bytes] : volumes_)
        files[VolumeName(number, IsV3(), id_)] = bytes;
    if (volumes_.empty()) files[VolumeName(0, IsV3(), id_)] = {};
    for (const AGIResType type : {rtLogic, rtPicture, rtSound, rtView})
        files[DirectoryFileName(type, IsV3(), id_)] = Directory(type);
    files["WORDS.TOK"] = EncodeWordsFile(DefaultVocabulary());
    files["OBJECT"] = {3, 0, 16, 3, 0, 0, '?', 0};
    return files;
}

void GameBuilder::WriteInto(const std::string& directory) const {
    if (Files().Kind(directory) == FileKind::None) Files().MakeDirectory(directory);
    for (const auto& [name, bytes] : AllFiles())
        Files().Write(directory + name, bytes);
}

}  // namespace zorvex::test
