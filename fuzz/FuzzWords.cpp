// Word lists: whatever decodes is in order, and what is written reads back as the same.
#include <algorithm>

#include "fuzz/Check.h"
#include "zorvex/base/Error.h"
#include "zorvex/vocab/WordsFile.h"
#include "zorvex/vocab/WordsText.h"

namespace {

using namespace zorvex;

void CheckArranged(const VocabularyData& data) {
    FUZZ_CHECK(!data.Words.empty());
    for (std::size_t i = 1; i < data.Words.size(); ++i) {
        FUZZ_CHECK(data.Words[i - 1].WordText < data.Words[i].WordText);
    }
    for (const AGIWord& word : data.Words) {
        FUZZ_CHECK(word.Group >= 0 && word.Group <= MaxGroupNumber);
        FUZZ_CHECK(std::binary_search(data.Groups.begin(), data.Groups.end(), word.Group));
    }
}

/// The bytes, or none where the format has no room for the words.
ByteArray TryEncode(const VocabularyData& data) {
    try {
        return EncodeWordsFile(data);
    } catch (const Error& error) {
        FUZZ_CHECK(error.Number() == reOverflow || error.Number() == reInvalidCall);
        return {};
    }
}

/// What is refused in the middle of a text form is refused at a line of it.
std::optional<VocabularyData> TryText(ByteView bytes) {
    std::int32_t badLine = 0;
    try {
        const auto words = DecodeWordsText(bytes, &badLine);
        FUZZ_CHECK(!words || badLine == 0);
        FUZZ_CHECK(badLine == 0 || badLine > 1);
        return words;
    } catch (const Error& error) {
        FUZZ_CHECK(error.Is(579) && badLine > 1);
        return std::nullopt;
    }
}

bool FitsText(const VocabularyData& data) {
    return std::none_of(data.Words.begin(), data.Words.end(), [](const AGIWord& word) {
        return word.WordText.find_first_of("\t\r\n") != std::string::npos;
    });
}

void CheckRoundTrips(const VocabularyData& data) {
    CheckArranged(data);
    if (const ByteArray bytes = TryEncode(data); !bytes.empty()) {
        const auto back = DecodeWordsFile(bytes);
        FUZZ_CHECK(back && back->Words == data.Words);
    }
    if (FitsText(data)) {
        const auto back = DecodeWordsText(EncodeWordsText(data));
        FUZZ_CHECK(back && back->Words == data.Words && back->Description == data.Description);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView bytes(data, size);
    if (const auto words = DecodeWordsFile(bytes)) CheckRoundTrips(*words);
    if (const auto words = TryText(bytes)) CheckRoundTrips(*words);
    return 0;
}
