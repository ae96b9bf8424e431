#include "zorvex/vocab/WordsFile.h"

#include <array>
#include <string>
#include <utility>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Text.h"

namespace zorvex {

namespace {

constexpr std::size_t letterCount = 26;
constexpr std::size_t indexSize = 2 * letterCount;
constexpr std::uint8_t characterMask = 0x7F;
constexpr std::uint8_t lastCharacter = 0x80;

char DecodeCharacter(std::uint8_t byte) {
    return LowerCase(static_cast<char>((byte ^ characterMask) & characterMask));
}

std::uint8_t EncodeCharacter(char character) {
    const auto code = static_cast<std::uint8_t>(character);
    if (code >= lastCharacter) RaiseRuntime(reOverflow, VocabularyErrorSource);
    return code ^ characterMask;
}

std::size_t CommonStart(std::string_view left, std::string_view right) {
    const std::size_t shorter = std::min(left.size(), right.size());
    std::size_t count = 0;
    while (count < shorter && left[count] == right[count])
        ++count;
    return count;
}

void AppendWord(ByteArray& bytes, const AGIWord& word, std::string_view previous) {
    const std::size_t shared = CommonStart(word.WordText, previous);
    const std::string_view rest = std::string_view(word.WordText).substr(shared);
    if (rest.empty()) RaiseRuntime(reInvalidCall, VocabularyErrorSource);
    bytes.push_back(Narrow<std::uint8_t>(shared, VocabularyErrorSource));
    for (const char character : rest)
        bytes.push_back(EncodeCharacter(character));
    bytes.back() |= lastCharacter;
    const auto group = Narrow<std::uint16_t>(word.Group, VocabularyErrorSource);
    bytes.push_back(static_cast<std::uint8_t>(group >> 8U));
    bytes.push_back(static_cast<std::uint8_t>(group & 0xFFU));
}

}  // namespace

std::optional<VocabularyData> DecodeWordsFile(ByteView bytes) {
    if (bytes.size() < 2) return std::nullopt;
    std::size_t at = 256U * bytes[0] + bytes[1];
    if (at >= bytes.size()) return std::nullopt;
    std::size_t shared = bytes[at++];
    VocabularyData data;
    std::string previous;
    while (at < bytes.size()) {
        std::string word = previous.substr(0, shared);
        for (bool last = false; !last; ++at) {
            if (at >= bytes.size()) return std::nullopt;
            last = bytes[at] >= lastCharacter;
            word.push_back(DecodeCharacter(bytes[at]));
        }
        // The group, and the shared length of the next word or the zero byte that stands in its place.
        if (bytes.size() - at < 3) return std::nullopt;
        const std::int32_t group = 256 * bytes[at] + bytes[at + 1];
        shared = bytes[at + 2];
        at += 3;
        if (word == previous) continue;
        previous = word;
        data.Words.push_back({std::move(word), group});
    }
    ArrangeVocabulary(data);
    return data;
}

ByteArray EncodeWordsFile(const VocabularyData& data) {
    std::array<std::int16_t, letterCount> index{};
    index[0] = indexSize;
    ByteArray bytes(indexSize);
    char letter = 'a';
    std::string_view previous;
    for (const AGIWord& word : data.Words) {
        const char first = word.WordText.empty() ? '\0' : word.WordText.front();
        if (first >= 'a' && first <= 'z' && first != letter) {
            letter = first;
            index[static_cast<std::size_t>(letter - 'a')] =
                Narrow<std::int16_t>(bytes.size(), VocabularyErrorSource);
        }
        AppendWord(bytes, word, previous);
        previous = word.WordText;
    }
    bytes.push_back(0);
    for (std::size_t i = 0; i < letterCount; ++i) {
        bytes[2 * i] = static_cast<std::uint8_t>(index[i] / 256);
        bytes[2 * i + 1] = static_cast<std::uint8_t>(index[i] % 256);
    }
    return bytes;
}

}  // namespace zorvex
