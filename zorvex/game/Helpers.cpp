#include "zorvex/game/Helpers.h"

#include <array>
#include <cmath>

#include "zorvex/game/Error.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/game/Text.h"
#include "zorvex/platform/FileSystem.h"

namespace zorvex {

namespace {

constexpr std::array<std::uint32_t, 256> MakeCrcTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t n = 0; n < 256; ++n) {
        std::uint32_t value = n;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? (value >> 1U) ^ 0xEDB88320U : value >> 1U;
        table[n] = value;
    }
    return table;
}

constexpr std::array<std::uint32_t, 256> crcTable = MakeCrcTable();

// The upper half of code page 437, except that byte 255 holds character 255, so that no byte is a hard blank.
constexpr std::array<char16_t, 128> codePageTable{
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7, 0x00EA, 0x00EB, 0x00E8, 0x00EF, 0x00EE,
    0x00EC, 0x00C4, 0x00C5, 0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9, 0x00FF, 0x00D6,
    0x00DC, 0x00A2, 0x00A3, 0x00A5, 0x20A7, 0x0192, 0x00E1, 0x00ED, 0x00F3, 0x00FA, 0x00F1, 0x00D1, 0x00AA,
    0x00BA, 0x00BF, 0x2310, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB, 0x2591, 0x2592, 0x2593, 0x2502,
    0x2524, 0x2561, 0x2562, 0x2556, 0x2555, 0x2563, 0x2551, 0x2557, 0x255D, 0x255C, 0x255B, 0x2510, 0x2514,
    0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x255E, 0x255F, 0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550,
    0x256C, 0x2567, 0x2568, 0x2564, 0x2565, 0x2559, 0x2558, 0x2552, 0x2553, 0x256B, 0x256A, 0x2518, 0x250C,
    0x2588, 0x2584, 0x258C, 0x2590, 0x2580, 0x03B1, 0x00DF, 0x0393, 0x03C0, 0x03A3, 0x03C3, 0x00B5, 0x03C4,
    0x03A6, 0x0398, 0x03A9, 0x03B4, 0x221E, 0x03C6, 0x03B5, 0x2229, 0x2261, 0x00B1, 0x2265, 0x2264, 0x2320,
    0x2321, 0x00F7, 0x2248, 0x00B0, 0x2219, 0x00B7, 0x221A, 0x207F, 0x00B2, 0x25A0, 0x00FF};

template <class Bytes>
std::int32_t Crc32Of(const Bytes& bytes) {
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const auto byte : bytes)
        crc = crcTable[(crc ^ static_cast<std::uint8_t>(byte)) & 0xFFU] ^ (crc >> 8U);
    return static_cast<std::int32_t>(~crc);
}

}  // namespace

std::int32_t CRC32(ByteView bytes) {
    return Crc32Of(bytes);
}
std::int32_t CRC32(std::string_view bytes) {
    return Crc32Of(bytes);
}

char32_t CodePageCharacter(std::uint8_t byte) {
    return byte < 128 ? byte : codePageTable[byte - 128U];
}

std::string ConvertToCodePage(std::string_view gameText) {
    std::string result;
    result.reserve(gameText.size());
    for (const char c : gameText)
        AppendCharacter(result, CodePageCharacter(static_cast<std::uint8_t>(c)));
    return result;
}

std::uint8_t CharToByte(char32_t code) {
    for (std::size_t i = 0; i < codePageTable.size(); ++i) {
        if (codePageTable[i] == code) return static_cast<std::uint8_t>(i + 128);
    }
    return 32;
}

std::string TextToGame(std::string_view hostText) {
    std::string result;
    result.reserve(hostText.size());
    while (!hostText.empty()) {
        const char32_t character = TakeCharacter(hostText);
        const std::uint8_t byte =
            character > 128 ? CharToByte(character) : static_cast<std::uint8_t>(character);
        result.push_back(static_cast<char>(byte));
    }
    return result;
}

ByteArray TextToBytes(std::string_view hostText) {
    const std::string bytes = TextToGame(hostText);
    return {bytes.begin(), bytes.end()};
}

std::string CDir(std::string_view directory) {
    std::string result(directory);
    if (!result.empty() && result.back() != '\\') result.push_back('\\');
    return result;
}

std::string CurrentDirectory() {
    return CDir(Files().CurrentDirectory());
}

std::string JustPath(std::string_view path, bool noSlash) {
    const std::size_t last = path.rfind('\\');
    std::string result(last == std::string_view::npos ? std::string_view() : path.substr(0, last));
    if (!noSlash) result.push_back('\\');
    return result;
}

std::string JustFileName(std::string_view path) {
    const std::size_t last = path.rfind('\\');
    return std::string(last == std::string_view::npos ? path : path.substr(last + 1));
}

std::string FileNameNoExt(std::string_view path) {
    const std::string name = JustFileName(path);
    return name.substr(0, name.rfind('.'));
}

std::string HexPad(std::int32_t value, int width) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result;
    for (auto rest = static_cast<std::uint32_t>(value); rest != 0; rest >>= 4U) {
        result.insert(result.begin(), digits[rest & 15U]);
    }
    const auto wanted = static_cast<std::size_t>(std::max(width, 1));
    if (result.size() < wanted) result.insert(0, wanted - result.size(), '0');
    return result;
}

std::string Hex2(std::int32_t value) {
    return HexPad(value, 2);
}

std::string RepeatText(std::string_view text, std::uint8_t count) {
    std::string result;
    for (int i = 0; i < count; ++i)
        result.append(text);
    return result;
}

double Log10(double x) {
    return x > 0 && std::isfinite(x) ? std::log(x) / std::log(10.0) : 0;
}

std::string TempFileName() {
    try {
        return Files().UniqueTempFile(Library().TempDir, "AGI");
    } catch (...) {
        const Error error = CurrentError();
        RaiseCatalogue(547, "TempFileName", std::to_string(error.Number()));
    }
}

DateTime FileLastMod(std::string_view path) {
    try {
        return Files().LastWriteTime(path);
    } catch (...) {  // a file that cannot be read has the zero date
        return {};
    }
}

bool FileExists(std::string_view path, bool orDirectory) {
    if (path.empty()) return false;
    const FileKind kind = Files().Kind(path);
    return kind == FileKind::File || (orDirectory && kind == FileKind::Directory);
}

bool DirectoryExists(std::string_view path) {
    return !path.empty() && Files().Kind(path) == FileKind::Directory;
}

}  // namespace zorvex
